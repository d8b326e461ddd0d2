#include "tools/dstool/InfoReport.h"

#include "tools/dstool/Latin1Text.h"
#include "tools/dstool/NumberText.h"

#include <cstdio>

namespace Dstool {

namespace {

// "label:" in a column of its own, then the value, all of it made UTF-8.
void Line(int indent, const std::string& label, const std::string& value)
{
    const std::string head = std::string(static_cast<std::size_t>(indent), ' ') + label + ":";
    std::printf("%-19s %s\n", head.c_str(), Utf8FromLatin1(value).c_str());
}

std::string WithUnit(double value, const std::string& unit)
{
    return ReadableNumber(value) + (unit.empty() ? "" : " " + unit);
}

template <class T>
std::string Maybe(const std::optional<T>& value, const std::string& unit = {})
{
    if (!value)
        return "-";
    if constexpr (std::is_same_v<T, int>)
        return std::to_string(*value) + (unit.empty() ? "" : " " + unit);
    else
        return WithUnit(*value, unit);
}

std::string Joined(const std::vector<std::string>& words)
{
    std::string out;
    for (const std::string& word : words)
        out += (out.empty() ? "" : ", ") + word;
    return out;
}

void Curves(const FileDescription& file)
{
    const CurvesDescription& c = *file.curves;
    std::string count = Maybe(c.curves);
    if (c.forcesPerLine)
        count += " (forces per line " + std::to_string(*c.forcesPerLine) + ")";
    Line(0, "curves", count);
    Line(0, "points per curve", Maybe(c.pointsPerCurve) + " (trace points " + Maybe(c.tracePoints) +
                                    ", samples per line " + Maybe(c.samplesPerLine) + ")");
    if (c.holdPoints && *c.holdPoints > 0)
        Line(0, "hold", std::to_string(*c.holdPoints) + " points, " + Maybe(c.holdTime, "s"));
    if (c.rampSize && *c.rampSize != 0.0)
        Line(0, "ramp", WithUnit(*c.rampSize, c.rampUnit) + ", velocity " + Maybe(c.forwardVelocity, c.rampUnit + "/s") +
                            " forward, " + Maybe(c.reverseVelocity, c.rampUnit + "/s") + " reverse");
}

void Segments(const FileDescription& file)
{
    Line(0, "segments", Maybe(file.segmentCount));
    for (const SegmentDescription& s : file.segments) {
        std::printf("  %d  %-16s %6d samples  %s s\n", s.index, s.description.c_str(), s.samples,
                    ReadableNumber(s.duration).c_str());
    }
}

void Channel(const ChannelDescription& c)
{
    std::printf("\nchannel %d: %s\n", c.index, Utf8FromLatin1(c.name).c_str());
    Line(2, "size", std::to_string(c.lines) + " lines x " + std::to_string(c.samples) + " samples");
    Line(2, "units", c.metricUnit + " (metric), " + c.voltsUnit + " (volts)");
    Line(2, "Z scale", WithUnit(c.zScaleMetric, c.metricUnit) + " (metric), " + WithUnit(c.zScaleVolts, c.voltsUnit) +
                           " (volts)");
    Line(2, "scan size", WithUnit(c.scanSize, c.scanSizeUnit));
    Line(2, "aspect ratio", ReadableNumber(c.aspectRatio));
    Line(2, "line direction", c.lineDirection);
    if (c.pointsPerCurve)
        Line(2, "points per curve", std::to_string(*c.pointsPerCurve));
    if (c.springConstant)
        Line(2, "spring constant", WithUnit(*c.springConstant, "N/m"));
    if (c.highSpeedRate)
        Line(2, "high-speed rate", WithUnit(*c.highSpeedRate, "Hz"));
}

}  // namespace

void InfoReport::Text(const FileDescription& file)
{
    Line(0, "file", file.path);
    Line(0, "family", file.family + " (type text \"" + file.typeText + "\")");
    Line(0, "kind", file.kind);
    if (file.kinds.size() > 1)
        Line(0, "kinds", Joined(file.kinds));
    Line(0, "channels", std::to_string(file.channelCount));
    if (file.curves)
        Curves(file);
    if (file.segmentCount)
        Segments(file);
    Line(0, "capture", file.tappingFrequency ? "on, tapping frequency " + WithUnit(*file.tappingFrequency, "Hz")
                                             : std::string("off"));
    if (file.sweepChannel)
        Line(0, "sweep", *file.sweepChannel + " from " + WithUnit(file.sweepLow, "Hz") + " to " +
                             WithUnit(file.sweepHigh, "Hz"));
    Line(0, "probe", "tip radius " + Maybe(file.probe.tipRadius) + ", half angle " + Maybe(file.probe.halfAngle) +
                         ", Poisson's ratio " + Maybe(file.probe.poissonRatio));
    for (const ChannelDescription& c : file.channels)
        Channel(c);
}

}  // namespace Dstool
