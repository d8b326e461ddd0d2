#include "tools/dstool/DumpCommand.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/CommandLine.h"
#include "tools/dstool/Latin1Text.h"
#include "tools/dstool/LibrarySession.h"

#include <cstdio>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool dump FILE\n"
    "\n"
    "Lists every section of FILE, a file of the Quillon or Harlen family, with\n"
    "its keys and their values as the file layer formats them: the section's\n"
    "name on a line of its own, then \"  key = value\" for each key. Sample\n"
    "matrices are shown by their shape. A \".tef\" file has no sections.\n"
    "\n"
    "Exit status: 0 done, 1 FILE does not open as a section-and-key file,\n"
    "2 a usage mistake.\n";

int RunDump(const std::vector<std::string>& words)
{
    const CommandLine line(words, {}, {});
    std::string path = line.OneOperand("FILE");
    const std::string dump = LibrarySession::TakeText(DataSourceDllDumpParameters(path.data()));
    if (dump == "UNKNOWN") {
        std::fprintf(stderr, "dstool dump: %s does not open as a file of sections and keys\n", path.c_str());
        return kExitFailed;
    }
    std::fputs(Utf8FromLatin1(dump).c_str(), stdout);
    return kExitDone;
}

}  // namespace

Command DumpCommand() { return {"dump", "the sections and keys of a Quillon or Harlen file", kUsage, RunDump}; }

}  // namespace Dstool
