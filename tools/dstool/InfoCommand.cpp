#include "tools/dstool/InfoCommand.h"

#include "tools/dstool/CommandLine.h"
#include "tools/dstool/FileDescription.h"
#include "tools/dstool/InfoReport.h"
#include "tools/dstool/LibrarySession.h"

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool info FILE [--json]\n"
    "\n"
    "Opens FILE and tells its family and the type text that chose it, its kind,\n"
    "and what the library answers for that kind: the counts of curves and their\n"
    "points, the hold section, the ramp, the forces per line of a force volume,\n"
    "the segments of a script with their descriptions, samples and durations, the\n"
    "capture's tapping frequency, a force sweep's channel and range, the probe.\n"
    "Then, for each channel, its name, size (lines x samples), data units in\n"
    "metric and in volts, Z scale, scan size, aspect ratio and line direction,\n"
    "and the points per curve, spring constant or high-speed rate where it has them.\n"
    "\n"
    "  --json   the same as one JSON document\n"
    "\n"
    "Exit status: 0 done, 1 the file does not open (with the library's reason),\n"
    "2 a usage mistake.\n";

int RunInfo(const std::vector<std::string>& words)
{
    const CommandLine line(words, {}, {"json"});
    const std::string path = line.OneOperand("FILE");

    LibrarySession session;
    if (!session.Open(path))
        return session.ReportOpenFailure(path);
    const FileDescription file = FileDescription::OfOpenFile(path);
    if (line.Has("json"))
        InfoReport::Json(file);
    else
        InfoReport::Text(file);
    return kExitDone;
}

}  // namespace

Command InfoCommand() { return {"info", "what a file holds: its kind, curves, segments and channels", kUsage, RunInfo}; }

}  // namespace Dstool
