#include "tools/dstool/InfoReport.h"

#include "tools/dstool/JsonWriter.h"

#include <cstdio>

namespace Dstool {

namespace {

// The same value in the two unit systems of a channel.
template <class Value>
void MetricAndVolts(JsonWriter& json, const std::string& key, const Value& metric, const Value& volts)
{
    json.BeginObject(key);
    json.Member("metric", metric);
    json.Member("volts", volts);
    json.EndObject();
}

// A value that the file's kind may not have is left out.
template <class T>
void Optional(JsonWriter& json, const std::string& key, const std::optional<T>& value)
{
    if (value)
        json.Member(key, *value);
}

void ValueAndUnit(JsonWriter& json, const std::string& key, double value, const std::string& unit)
{
    json.BeginObject(key);
    json.Member("value", value);
    json.Member("unit", unit);
    json.EndObject();
}

void Curves(JsonWriter& json, const CurvesDescription& c)
{
    json.BeginObject("curves");
    Optional(json, "count", c.curves);
    Optional(json, "pointsPerCurve", c.pointsPerCurve);
    Optional(json, "tracePoints", c.tracePoints);
    Optional(json, "samplesPerLine", c.samplesPerLine);
    Optional(json, "forcesPerLine", c.forcesPerLine);
    Optional(json, "holdPoints", c.holdPoints);
    Optional(json, "holdTime", c.holdTime);
    if (c.rampSize)
        ValueAndUnit(json, "rampSize", *c.rampSize, c.rampUnit);
    Optional(json, "forwardVelocity", c.forwardVelocity);
    Optional(json, "reverseVelocity", c.reverseVelocity);
    json.EndObject();
}

void Segments(JsonWriter& json, const FileDescription& file)
{
    json.BeginObject("script");
    json.Member("segmentCount", *file.segmentCount);
    json.BeginArray("segments");
    for (const SegmentDescription& s : file.segments) {
        json.BeginObject();
        json.Member("index", s.index);
        json.Member("type", s.type);
        json.Member("description", s.description);
        json.Member("samples", s.samples);
        json.Member("duration", s.duration);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

void Channel(JsonWriter& json, const ChannelDescription& c)
{
    json.BeginObject();
    json.Member("index", c.index);
    json.Member("name", c.name);
    json.Member("lines", c.lines);
    json.Member("samples", c.samples);
    MetricAndVolts(json, "units", c.metricUnit, c.voltsUnit);
    MetricAndVolts(json, "zScale", c.zScaleMetric, c.zScaleVolts);
    ValueAndUnit(json, "scanSize", c.scanSize, c.scanSizeUnit);
    json.Member("aspectRatio", c.aspectRatio);
    json.Member("lineDirection", c.lineDirection);
    Optional(json, "pointsPerCurve", c.pointsPerCurve);
    Optional(json, "springConstant", c.springConstant);
    Optional(json, "highSpeedRate", c.highSpeedRate);
    json.EndObject();
}

}  // namespace

void InfoReport::Json(const FileDescription& file)
{
    JsonWriter json;
    json.BeginObject();
    json.Member("file", file.path);
    json.Member("family", file.family);
    json.Member("fileType", file.typeText);
    json.Member("kind", file.kind);
    json.BeginArray("kinds");
    for (const std::string& kind : file.kinds)
        json.Member("", kind);
    json.EndArray();
    json.Member("channelCount", file.channelCount);
    if (file.curves)
        Curves(json, *file.curves);
    if (file.segmentCount)
        Segments(json, file);
    json.BeginObject("capture");
    json.Member("on", file.tappingFrequency.has_value());
    Optional(json, "tappingFrequency", file.tappingFrequency);
    json.EndObject();
    if (file.sweepChannel) {
        json.BeginObject("sweep");
        json.Member("channel", *file.sweepChannel);
        json.Member("low", file.sweepLow);
        json.Member("high", file.sweepHigh);
        json.EndObject();
    }
    json.BeginObject("probe");
    Optional(json, "tipRadius", file.probe.tipRadius);
    Optional(json, "halfAngle", file.probe.halfAngle);
    Optional(json, "poissonRatio", file.probe.poissonRatio);
    json.EndObject();
    json.BeginArray("channels");
    for (const ChannelDescription& c : file.channels)
        Channel(json, c);
    json.EndArray();
    json.EndObject();
    std::fputs(json.Text().c_str(), stdout);
}

}  // namespace Dstool
