#include "tools/dstool/InfoCommand.h"

#include "tools/dstool/CommandLine.h"
#include "tools/dstool/FileDescription.h"
#include "tools/dstool/JsonWriter.h"
#include "tools/dstool/LibrarySession.h"
#include "tools/dstool/NumberText.h"

#include <cstdio>

namespace Dstool {

namespace {

constexpr const char* kUsage =
    "usage: dstool info FILE [--json]\n"
    "\n"
    "Opens FILE and tells its family, its kind and, for each channel, its name,\n"
    "size (lines x samples), data units in metric and in volts, Z scale, scan size,\n"
    "aspect ratio and line direction.\n"
    "\n"
    "  --json   the same as one JSON document\n"
    "\n"
    "Exit status: 0 done, 1 the file does not open (with the library's reason),\n"
    "2 a usage mistake.\n";

void PrintText(const FileDescription& file)
{
    std::printf("file:      %s\n", file.path.c_str());
    std::printf("family:    %s\n", file.family.c_str());
    std::printf("kind:      %s\n", file.kind.c_str());
    std::printf("channels:  %d\n", file.channelCount);
    for (const ChannelDescription& c : file.channels) {
        std::printf("\nchannel %d: %s\n", c.index, c.name.c_str());
        std::printf("  size:            %d lines x %d samples\n", c.lines, c.samples);
        std::printf("  units:           %s (metric), %s (volts)\n", c.metricUnit.c_str(), c.voltsUnit.c_str());
        std::printf("  Z scale:         %s %s (metric), %s %s (volts)\n", NumberText(c.zScaleMetric).c_str(),
                    c.metricUnit.c_str(), NumberText(c.zScaleVolts).c_str(), c.voltsUnit.c_str());
        std::printf("  scan size:       %s %s\n", NumberText(c.scanSize).c_str(), c.scanSizeUnit.c_str());
        std::printf("  aspect ratio:    %s\n", NumberText(c.aspectRatio).c_str());
        std::printf("  line direction:  %s\n", c.lineDirection.c_str());
    }
}

// The same value in the two unit systems of a channel.
template <class Value>
void MetricAndVolts(JsonWriter& json, const std::string& key, const Value& metric, const Value& volts)
{
    json.BeginObject(key);
    json.Member("metric", metric);
    json.Member("volts", volts);
    json.EndObject();
}

void PrintJson(const FileDescription& file)
{
    JsonWriter json;
    json.BeginObject();
    json.Member("file", file.path);
    json.Member("family", file.family);
    json.Member("kind", file.kind);
    json.Member("channelCount", file.channelCount);
    json.BeginArray("channels");
    for (const ChannelDescription& c : file.channels) {
        json.BeginObject();
        json.Member("index", c.index);
        json.Member("name", c.name);
        json.Member("lines", c.lines);
        json.Member("samples", c.samples);
        MetricAndVolts(json, "units", c.metricUnit, c.voltsUnit);
        MetricAndVolts(json, "zScale", c.zScaleMetric, c.zScaleVolts);
        json.BeginObject("scanSize");
        json.Member("value", c.scanSize);
        json.Member("unit", c.scanSizeUnit);
        json.EndObject();
        json.Member("aspectRatio", c.aspectRatio);
        json.Member("lineDirection", c.lineDirection);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    std::fputs(json.Text().c_str(), stdout);
}

int RunInfo(const std::vector<std::string>& words)
{
    const CommandLine line(words, {}, {"json"});
    if (line.Operands().size() != 1)
        throw UsageError(line.Operands().empty() ? "no FILE given" : "one FILE only");
    const std::string& path = line.Operands()[0];

    LibrarySession session;
    if (!session.Open(path))
        return session.ReportOpenFailure(path);
    const FileDescription file = FileDescription::OfOpenFile(path);
    if (line.Has("json"))
        PrintJson(file);
    else
        PrintText(file);
    return kExitDone;
}

}  // namespace

Command InfoCommand() { return {"info", "what a file holds, channel by channel", kUsage, RunInfo}; }

}  // namespace Dstool
