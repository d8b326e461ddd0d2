#include "tools/dstool/SetNoteCommand.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/CommandLine.h"
#include "tools/dstool/LibrarySession.h"
#include "tools/dstool/TefOutput.h"

#include <cstdio>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool set-note FILE TEXT OUT\n"
    "\n"
    "Writes the .tef file FILE again at OUT, with TEXT as its note and all else\n"
    "as it was (pixels of 4 bytes become 2-byte words). OUT may be FILE itself;\n"
    "it is written beside its place and then put there, so a failure leaves it\n"
    "as it was.\n"
    "\n"
    "The note area of a file keeps its size: a TEXT as long as the old note or\n"
    "longer is cut one character short of it (the last character of the old\n"
    "note stays), and a file without a note has no room for one.\n"
    "\n"
    "Exit status: 0 done, 1 FILE does not open or is no .tef file, or OUT cannot\n"
    "be written (with the library's reason), 2 a usage mistake.\n";

int RunSetNote(const std::vector<std::string>& words)
{
    const CommandLine line(words, {}, {});
    if (line.Operands().size() != 3)
        throw UsageError("FILE, TEXT and OUT are needed, and nothing else");
    const std::string& path = line.Operands()[0];
    std::string text = line.Operands()[1];
    std::string out = line.Operands()[2];

    LibrarySession session;
    if (const int status = OpenTefFile(session, "set-note", path); status != kExitDone)
        return status;
    if (DataSourceDllSetNote(text.data()) != 1 || DataSourceDllSaveAs(out.data()) != 1)
        return session.ReportFailure(out + " could not be written");
    std::printf("%s: %s with the new note\n", out.c_str(), path.c_str());
    return kExitDone;
}

}  // namespace

Command SetNoteCommand() { return {"set-note", "a .tef file written again with a new note", kUsage, RunSetNote}; }

}  // namespace Dstool
