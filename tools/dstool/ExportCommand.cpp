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
#include "tools/dstool/ProgressLine.h"

#include <cstdio>
#include <filesystem>
#include <functional>
#include <set>
#include <stdexcept>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool export FILE --channel N (--png OUT.png | --csv OUT.csv) [--raw | --volts | --metric]\n"
    "       dstool export FILE... (--channel N | --all-channels) --out DIR [--format png|csv]\n"
    "                     [--raw | --volts | --metric]\n"
    "\n"
    "Writes the image of channel N (from 0) of FILE; the image of a force volume\n"
    "is its channel 0. The second form takes many files and writes DIR/NAME_chN.png\n"
    "(or .csv) for each, NAME being the file's name without its extension. A file\n"
    "that fails is reported and the others go on. On a terminal a line tells how\n"
    "far the batch has come.\n"
    "\n"
    "  --png OUT       a colour picture: the channel's range from its 1st to its\n"
    "                  99th percentile spread over a perceptually even colour map\n"
    "  --csv OUT       the values, one image row per line, top row first\n"
    "  --all-channels  every channel that has an image; channels without one are\n"
    "                  passed over, and a file with none fails\n"
    "  --out DIR       the folder of the files written, made where missing\n"
    "  --format F      png (the default) or csv, with --out\n"
    "  --metric        values in the channel's physical unit (the default)\n"
    "  --volts         values in hardware units\n"
    "  --raw           raw counts\n"
    "\n"
    "Exit status: 0 done, 1 a file does not open or has no such image, or an\n"
    "output cannot be written (the batch goes on), 2 a usage mistake.\n";

constexpr double kLowPercentile = 0.01;
constexpr double kHighPercentile = 0.99;

std::vector<Rgb> Colours(const ChannelImage& image, double low, double high)
{
    std::vector<Rgb> colours;
    colours.reserve(image.values.size());
    const double span = high - low;
    for (double value : image.values)
        colours.push_back(ColorMap::At(span > 0.0 ? (value - low) / span : 0.5));
    return colours;
}

// Writes one image as a picture or as values, and says what it wrote.
void WriteImage(const ChannelImage& image, const std::string& out, bool asCsv)
{
    if (asCsv) {
        CsvWriter::Write(out, image.values, static_cast<std::size_t>(image.samples));
        std::printf("%s: %d lines x %d samples%s%s\n", out.c_str(), image.lines, image.samples,
                    image.unit.empty() ? "" : " in ", image.unit.c_str());
        return;
    }
    const auto [low, high] = image.PercentileRange(kLowPercentile, kHighPercentile);
    PngWriter::Write(out, image.samples, image.lines, Colours(image, low, high));
    std::printf("%s: %d x %d pixels, colours from %s to %s%s%s\n", out.c_str(), image.samples, image.lines,
                NumberText(low).c_str(), NumberText(high).c_str(), image.unit.empty() ? "" : " ", image.unit.c_str());
}

struct Batch {
    std::vector<std::string> files;
    std::optional<int> channel;  // every channel with an image when not given
    DataUnits units = DataUnits::Metric;
    std::filesystem::path folder;
    bool asCsv = false;
};

// The name of a file's channel in the folder; a second file of the same
// name gets a number behind it rather than overwrite the first.
std::string OutputName(const Batch& batch, const std::string& file, int channel, std::set<std::string>& used)
{
    const std::string stem = std::filesystem::path(file).stem().string() + "_ch" + std::to_string(channel);
    const std::string extension = batch.asCsv ? ".csv" : ".png";
    std::string name = stem + extension;
    for (int n = 2; used.count(name); ++n)
        name = stem + "_" + std::to_string(n) + extension;
    used.insert(name);
    return (batch.folder / name).string();
}

void ReportFailure(const std::string& file, const std::string& why)
{
    std::fprintf(stderr, "dstool export: %s: %s\n", file.c_str(), why.c_str());
}

// Exports the channels of one file, each to the output that is named for
// it; false when the file failed.
bool ExportFile(const Batch& batch, const std::string& file, const std::function<std::string(int)>& output,
                ProgressLine& progress)
{
    LibrarySession session;
    if (!session.Open(file)) {
        progress.Clear();
        session.ReportOpenFailure(file);
        return false;
    }
    int channels = 0;
    DataSourceDllGetNumberOfChannels(&channels);
    const int from = batch.channel.value_or(0);
    const int to = batch.channel ? from + 1 : channels;
    int exported = 0;
    for (int c = from; c < to; ++c) {
        const std::optional<ChannelImage> image = ChannelImage::Read(c, batch.units);
        if (!image || image->lines < 1 || image->samples < 1)
            continue;
        progress.Clear();
        try {
            WriteImage(*image, output(c), batch.asCsv);
            ++exported;
        } catch (const std::exception& error) {
            ReportFailure(file, error.what());
            return false;
        }
        progress.Redraw();
    }
    if (exported == 0) {
        progress.Clear();
        ReportFailure(file, (batch.channel ? "no image for channel " + std::to_string(from) : std::string("no channel with an image")) +
                                " (file kind: " + FileKind::OfOpenFile() + ", channels: " + std::to_string(channels) + ")");
        return false;
    }
    return true;
}

int RunBatch(const Batch& batch)
{
    std::filesystem::create_directories(batch.folder);
    ProgressLine progress;
    std::set<std::string> used;
    std::size_t failed = 0;
    for (std::size_t i = 0; i < batch.files.size(); ++i) {
        progress.Show(i + 1, batch.files.size(), batch.files[i]);
        const std::string& file = batch.files[i];
        if (!ExportFile(batch, file, [&](int c) { return OutputName(batch, file, c, used); }, progress))
            ++failed;
    }
    progress.Clear();
    std::printf("%zu of %zu files exported into %s\n", batch.files.size() - failed, batch.files.size(),
                batch.folder.string().c_str());
    return failed == 0 ? kExitDone : kExitFailed;
}

int RunExport(const std::vector<std::string>& words)
{
    const CommandLine line(words, {"channel", "png", "csv", "out", "format"}, {"all-channels", "raw", "volts", "metric"});
    if (line.Operands().empty())
        throw UsageError("no FILE given");
    if (line.Has("channel") == line.Has("all-channels"))
        throw UsageError("--channel N or --all-channels is needed, and not both");
    Batch batch;
    batch.files = line.Operands();
    batch.channel = line.Count("channel");
    batch.units = UnitsOf(line);

    if (const std::optional<std::string> folder = line.Value("out")) {
        if (line.Has("png") || line.Has("csv"))
            throw UsageError("--out DIR names the files itself; choose their kind with --format png or csv");
        const std::string format = line.Value("format").value_or("png");
        if (format != "png" && format != "csv")
            throw UsageError("--format is png or csv, not \"" + format + "\"");
        batch.folder = *folder;
        batch.asCsv = format == "csv";
        return RunBatch(batch);
    }

    if (batch.files.size() != 1 || !batch.channel)
        throw UsageError("many files or --all-channels want --out DIR");
    if (line.Has("format"))
        throw UsageError("--format goes with --out DIR");
    const std::optional<std::string> format = line.OneOf({"png", "csv"});
    if (!format)
        throw UsageError("--png OUT or --csv OUT is needed");
    const std::string out = *line.Value(*format);
    batch.asCsv = *format == "csv";
    ProgressLine quiet;  // one file: nothing to count
    return ExportFile(batch, batch.files.front(), [&](int) { return out; }, quiet) ? kExitDone : kExitFailed;
}

}  // namespace

Command ExportCommand()
{
    return {"export", "channel images as PNG pictures or CSV values, of one file or of many", kUsage, RunExport};
}

}  // namespace Dstool
