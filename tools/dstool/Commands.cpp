#include "tools/dstool/Command.h"

#include "tools/dstool/CurveCommand.h"
#include "tools/dstool/DumpCommand.h"
#include "tools/dstool/ExportCommand.h"
#include "tools/dstool/ExtractCommand.h"
#include "tools/dstool/InfoCommand.h"
#include "tools/dstool/SaveCommand.h"
#include "tools/dstool/SetNoteCommand.h"

namespace Dstool {

const std::vector<Command>& Commands()
{
    static const std::vector<Command> commands{
        InfoCommand(),
        ExportCommand(),
        CurveCommand(),
        DumpCommand(),
        SaveCommand(),
        SetNoteCommand(),
        ExtractCommand(),
    };
    return commands;
}

const Command* FindCommand(const std::string& name)
{
    for (const Command& command : Commands()) {
        if (command.name == name)
            return &command;
    }
    return nullptr;
}

}  // namespace Dstool
