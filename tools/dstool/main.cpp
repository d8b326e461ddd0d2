// dstool: reads microscope data files through the DataSourceDll library.

#include "tools/dstool/Command.h"
#include "tools/dstool/CommandLine.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace Dstool;

void PrintOverview(std::FILE* to)
{
    std::fprintf(to, "usage: dstool COMMAND [ARGUMENTS]\n\ncommands:\n");
    for (const Command& command : Commands())
        std::fprintf(to, "  %-8s %s\n", command.name.c_str(), command.summary.c_str());
    std::fprintf(to, "\n'dstool COMMAND --help' tells more of a command.\n");
}

bool AsksForHelp(const std::vector<std::string>& words)
{
    for (const std::string& word : words) {
        if (word == "--")
            return false;
        if (word == "--help" || word == "-h")
            return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        PrintOverview(stderr);
        return kExitUsage;
    }
    if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        const Command* command = args.size() > 1 ? FindCommand(args[1]) : nullptr;
        if (command)
            std::fputs(command->usage.c_str(), stdout);
        else
            PrintOverview(stdout);
        return kExitDone;
    }
    const Command* command = FindCommand(args[0]);
    if (!command) {
        std::fprintf(stderr, "dstool: unknown command '%s'\n\n", args[0].c_str());
        PrintOverview(stderr);
        return kExitUsage;
    }
    const std::vector<std::string> words(args.begin() + 1, args.end());
    if (AsksForHelp(words)) {
        std::fputs(command->usage.c_str(), stdout);
        return kExitDone;
    }
    try {
        return command->run(words);
    } catch (const UsageError& error) {
        std::fprintf(stderr, "dstool %s: %s\n\n%s", command->name.c_str(), error.what(), command->usage.c_str());
        return kExitUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dstool %s: %s\n", command->name.c_str(), error.what());
        return kExitFailed;
    }
}
