#include "tools/dstool/SaveCommand.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/CommandLine.h"
#include "tools/dstool/FileKind.h"
#include "tools/dstool/LibrarySession.h"

#include <cstdio>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool save FILE OUT\n"
    "\n"
    "Opens FILE and has the library write it again at OUT, in its own family's\n"
    "form: what the library does not understand of the file is kept. OUT is\n"
    "written beside its place and then put there, so a failure never leaves a\n"
    "damaged OUT.\n"
    "\n"
    "Exit status: 0 done, 1 FILE does not open or OUT cannot be written (with\n"
    "the library's reason), 2 a usage mistake.\n";

int RunSave(const std::vector<std::string>& words)
{
    const CommandLine line(words, {}, {});
    if (line.Operands().size() != 2)
        throw UsageError("FILE and OUT are needed, and nothing else");
    const std::string& path = line.Operands()[0];
    std::string out = line.Operands()[1];

    LibrarySession session;
    if (!session.Open(path))
        return session.ReportOpenFailure(path);
    if (DataSourceDllSaveAs(out.data()) != 1)
        return session.ReportFailure(out + " could not be written");
    std::printf("%s: %s written again (%s, %s)\n", out.c_str(), path.c_str(), FileKind::Family().c_str(),
                FileKind::OfOpenFile().c_str());
    return kExitDone;
}

}  // namespace

Command SaveCommand() { return {"save", "a file written again by the library under a new name", kUsage, RunSave}; }

}  // namespace Dstool
