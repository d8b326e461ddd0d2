#include "tools/dstool/ExtractCommand.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/CommandLine.h"
#include "tools/dstool/LibrarySession.h"
#include "tools/dstool/TefOutput.h"

#include <cstdio>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool extract FILE --channel N OUT\n"
    "\n"
    "Writes channel N (from 0) of the .tef file FILE as the only channel of a\n"
    "new .tef file OUT, with the file's parameters for that channel alone. The\n"
    "channel is taken as it stands in FILE.\n"
    "\n"
    "OUT is made as files of this format have always been made. Its size counts\n"
    "no preview: where FILE has the records of the channel count and of each\n"
    "channel's bits in use, the last 3 pixels do not fit in OUT and read back as\n"
    "the lowest value. Its count of parameters takes FILE to have had the whole\n"
    "usual set of records: where FILE lacks some (117 to 120 are always written),\n"
    "OUT's count falls short and readers refuse it.\n"
    "\n"
    "Exit status: 0 done, 1 FILE does not open, is no .tef file or has no channel\n"
    "N, or OUT cannot be written (with the library's reason), 2 a usage mistake.\n";

int RunExtract(const std::vector<std::string>& words)
{
    const CommandLine line(words, {"channel"}, {});
    if (line.Operands().size() != 2)
        throw UsageError("FILE and OUT are needed, and nothing else");
    const std::optional<int> channel = line.Count("channel");
    if (!channel)
        throw UsageError("--channel N is needed");
    const std::string& path = line.Operands()[0];
    std::string out = line.Operands()[1];

    LibrarySession session;
    if (const int status = OpenTefFile(session, "extract", path); status != kExitDone)
        return status;
    int channels = 0;
    DataSourceDllGetNumberOfChannels(&channels);
    if (*channel >= channels) {
        std::fprintf(stderr, "dstool extract: %s has no channel %d (channels: %d)\n", path.c_str(), *channel,
                     channels);
        return kExitFailed;
    }
    if (DataSourceDllSaveChannelAs(*channel, out.data()) != 1)
        return session.ReportFailure(out + " could not be written");
    std::printf("%s: channel %d of %s\n", out.c_str(), *channel, path.c_str());
    return kExitDone;
}

}  // namespace

Command ExtractCommand() { return {"extract", "one channel of a .tef file as a file of its own", kUsage, RunExtract}; }

}  // namespace Dstool
