#include "tools/dstool/CurveCommand.h"

#include "tools/dstool/CommandLine.h"
#include "tools/dstool/CsvWriter.h"
#include "tools/dstool/CurveReader.h"
#include "tools/dstool/Latin1Text.h"
#include "tools/dstool/LibrarySession.h"
#include "tools/dstool/NumberText.h"
#include "tools/dstool/PngWriter.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool curve FILE [--index N] [--channel C] (--png OUT.png | --csv OUT.csv)\n"
    "                         [--raw | --volts | --metric | --force]\n"
    "\n"
    "Plots a curve of FILE, chosen by the file's kind:\n"
    "  force file        the approach and retract halves of channel C's curve\n"
    "  force volume      curve N (from 0) of the volume, always from its channel 1\n"
    "  script            segment N of channel C, or all segments without --index,\n"
    "                    against time\n"
    "  high-speed        channel C against time, its first half approach and its\n"
    "                    second retract\n"
    "The halves of a force curve are each in the order of time. They are drawn\n"
    "against the point of the ramp: the approach by its point index, the retract,\n"
    "which runs the ramp back, from its last point on. Where the file has the\n"
    "crest load capture on they are drawn against the capture's synthetic Z.\n"
    "\n"
    "  --index N   the curve of a force volume or the segment of a script\n"
    "  --channel C the channel (default 0)\n"
    "  --png OUT   a plot: axes with ticks, numbers and units, one colour for each\n"
    "              half or segment, and a legend\n"
    "  --csv OUT   a header line, then one line a point: the series, the point's\n"
    "              index in it (in the order of time), x and y as plotted\n"
    "  --metric    values in the channel's physical unit (the default)\n"
    "  --volts     values in hardware units\n"
    "  --force     force, for force curves and force volume curves\n"
    "  --raw       raw counts\n"
    "\n"
    "Exit status: 0 done, 1 the file does not open or has no such curve, or OUT\n"
    "cannot be written, 2 a usage mistake.\n";

constexpr int kPlotWidth = 960;
constexpr int kPlotHeight = 640;

void WriteCsv(const std::string& out, const CurveReader::Curve& curve)
{
    std::vector<std::vector<std::string>> rows;
    for (const CurvePlot::Series& s : curve.series) {
        const std::string label = CsvWriter::Cell(Utf8FromLatin1(s.label));
        for (std::size_t i = 0; i < std::min(s.x.size(), s.y.size()); ++i)
            rows.push_back({label, std::to_string(i), NumberText(s.x[i]), NumberText(s.y[i])});
    }
    CsvWriter::WriteTable(out, {"series", "point", Utf8FromLatin1(curve.xLabel), Utf8FromLatin1(curve.yLabel)}, rows);
}

int RunCurve(const std::vector<std::string>& words)
{
    const CommandLine line(words, {"index", "channel", "png", "csv"}, {"raw", "volts", "metric", "force"});
    const std::string path = line.OneOperand("FILE");
    const std::optional<std::string> format = line.OneOf({"png", "csv"});
    if (!format)
        throw UsageError("--png OUT or --csv OUT is needed");
    CurveRequest request;
    request.index = line.Count("index");
    request.channel = line.Count("channel");
    request.units = UnitsOf(line);
    const std::string out = *line.Value(*format);

    LibrarySession session;
    if (!session.Open(path))
        return session.ReportOpenFailure(path);
    CurveReader::Curve curve;
    try {
        curve = CurveReader::Read(request);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "dstool curve: %s: %s\n", path.c_str(), error.what());
        return kExitFailed;
    }

    if (*format == "csv") {
        WriteCsv(out, curve);
    } else {
        CurvePlot plot(std::filesystem::path(path).filename().string() + ": " + curve.what, curve.xLabel, curve.yLabel);
        for (const CurvePlot::Series& s : curve.series)
            plot.Add(s);
        const Canvas canvas = plot.Render(kPlotWidth, kPlotHeight);
        PngWriter::Write(out, canvas.Width(), canvas.Height(), canvas.Pixels());
    }
    std::string parts;
    for (const CurvePlot::Series& s : curve.series)
        parts += (parts.empty() ? "" : ", ") + s.label + " " + std::to_string(s.y.size()) + " points";
    std::printf("%s: %s: %s; %s against %s\n", out.c_str(), curve.what.c_str(), Utf8FromLatin1(parts).c_str(),
                Utf8FromLatin1(curve.yLabel).c_str(), Utf8FromLatin1(curve.xLabel).c_str());
    return kExitDone;
}

}  // namespace

Command CurveCommand()
{
    return {"curve", "a force curve, force volume curve, script segment or high-speed channel as a plot or CSV",
            kUsage, RunCurve};
}

}  // namespace Dstool
