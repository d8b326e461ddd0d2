#include "tools/dstool/ExportCommand.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/ChannelImage.h"
#include "tools/dstool/ColorMap.h"
#include "tools/dstool/CommandLine.h"
#include "tools/dstool/CsvWriter.h"
#include "tools/dstool/FileKind.h"
#include "tools/dstool/LibrarySession.h"
#include "tools/dstool/NumberText.h"
#include "tools/dstool/PngWriter.h"

#include <cstdio>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool export FILE --channel N (--png OUT.png | --csv OUT.csv) [--raw | --volts | --metric]\n"
    "\n"
    "Writes the image of channel N (from 0) of FILE.\n"
    "\n"
    "  --png OUT   a colour picture: the channel's range from its 1st to its 99th\n"
    "              percentile spread over a perceptually even colour map\n"
    "  --csv OUT   the values, one image row per line, top row first\n"
    "  --metric    values in the channel's physical unit (the default)\n"
    "  --volts     values in hardware units\n"
    "  --raw       raw counts\n"
    "\n"
    "Exit status: 0 done, 1 the file does not open or has no such image, or OUT\n"
    "cannot be written, 2 a usage mistake.\n";

constexpr double kLowPercentile = 0.01;
constexpr double kHighPercentile = 0.99;

ImageUnits UnitsOf(const CommandLine& line)
{
    const std::optional<std::string> units = line.OneOf({"raw", "volts", "metric"});
    if (units == "raw")
        return ImageUnits::Raw;
    if (units == "volts")
        return ImageUnits::Volts;
    return ImageUnits::Metric;
}

std::vector<Rgb> Colours(const ChannelImage& image, double low, double high)
{
    std::vector<Rgb> colours;
    colours.reserve(image.values.size());
    const double span = high - low;
    for (double value : image.values)
        colours.push_back(ColorMap::At(span > 0.0 ? (value - low) / span : 0.5));
    return colours;
}

int RunExport(const std::vector<std::string>& words)
{
    const CommandLine line(words, {"channel", "png", "csv"}, {"raw", "volts", "metric"});
    if (line.Operands().size() != 1)
        throw UsageError(line.Operands().empty() ? "no FILE given" : "one FILE only");
    const std::optional<int> channel = line.Count("channel");
    if (!channel)
        throw UsageError("--channel N is needed");
    const std::optional<std::string> format = line.OneOf({"png", "csv"});
    if (!format)
        throw UsageError("--png OUT or --csv OUT is needed");
    const ImageUnits units = UnitsOf(line);
    const std::string& path = line.Operands()[0];
    const std::string out = *line.Value(*format);

    LibrarySession session;
    if (!session.Open(path))
        return session.ReportOpenFailure(path);
    const std::optional<ChannelImage> image = ChannelImage::Read(*channel, units);
    if (!image) {
        int channels = 0;
        DataSourceDllGetNumberOfChannels(&channels);
        std::fprintf(stderr, "dstool export: %s has no image for channel %d (file kind: %s, channels: %d)\n",
                     path.c_str(), *channel, FileKind::OfOpenFile().c_str(), channels);
        return kExitFailed;
    }

    if (*format == "csv") {
        CsvWriter::Write(out, image->values, static_cast<std::size_t>(image->samples));
        std::printf("%s: %d lines x %d samples%s%s\n", out.c_str(), image->lines, image->samples,
                    image->unit.empty() ? "" : " in ", image->unit.c_str());
        return kExitDone;
    }
    const auto [low, high] = image->PercentileRange(kLowPercentile, kHighPercentile);
    PngWriter::Write(out, image->samples, image->lines, Colours(*image, low, high));
    std::printf("%s: %d x %d pixels, colours from %s to %s%s%s\n", out.c_str(), image->samples, image->lines,
                NumberText(low).c_str(), NumberText(high).c_str(), image->unit.empty() ? "" : " ",
                image->unit.c_str());
    return kExitDone;
}

}  // namespace

Command ExportCommand() { return {"export", "a channel's image as a PNG picture or CSV values", kUsage, RunExport}; }

}  // namespace Dstool
