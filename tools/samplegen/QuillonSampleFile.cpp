#include "tools/samplegen/QuillonSampleFile.h"

#include <algorithm>
#include <cstdio>

namespace SampleGen {

namespace {

using SampleKit::QuillonBuilder;

const char* const kScanList = QuillonBuilder::kScanList;
const char* const kForceList = QuillonBuilder::kForceList;

std::string Number(const char* format, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

}  // namespace

QuillonSampleFile::QuillonSampleFile(const std::string& subtype, const std::string& version, const std::string& date)
    : file_(subtype)
{
    file_.Text(QuillonBuilder::kFileList, "Version", version).Text(QuillonBuilder::kFileList, "Date", date);
    for (std::size_t c = 0; c < file_.ChannelCount(); ++c)
        file_.Text(Channel(c), "Note", "");
}

void QuillonSampleFile::ScanGeometry(int lines, int samples, double scanSizeNm, double rateHz)
{
    const std::string size = Number("%.0f", scanSizeNm);
    file_.Int(kScanList, "Samps/line", samples)
        .Int(kScanList, "Lines", lines)
        .Unitized(kScanList, "Scan Size", scanSizeNm, "nm")
        .Text(kScanList, "Scan Rate", Number("%.4g", rateHz))
        .Text(kScanList, "Aspect Ratio", lines == samples ? "1:1" : Number("%.4g:1", double(samples) / lines));
    for (std::size_t c = 0; c < file_.ChannelCount(); ++c) {
        if (file_.Root()->GetChild(Channel(c))->HasKey("Number of lines")) {
            file_.Int(Channel(c), "Samps/line", samples)
                .Int(Channel(c), "Number of lines", lines)
                .Int(Channel(c), "Valid data len X", samples)
                .Int(Channel(c), "Valid data len Y", lines)
                .Text(Channel(c), "Scan Size", size + " " + size + " nm");
        }
    }
}

void QuillonSampleFile::Sensitivity(const ChannelScale& scale)
{
    file_.Text("Scanner list", "@" + scale.SensitivityName(), scale.SensitivityText());
}

void QuillonSampleFile::Named(std::size_t channel, const std::string& imageDataKey, const std::string& name)
{
    std::string tag = name;
    tag.erase(std::remove(tag.begin(), tag.end(), ' '), tag.end());
    file_.Text(Channel(channel), imageDataKey, "S [" + tag + "] \"" + name + "\"")
        .Text(Channel(channel), "Data Type Description", name);
}

void QuillonSampleFile::ImageChannel(std::size_t channel, const std::string& name, const ChannelScale& scale,
                                     int bytesPerSample, int lines, int samples, const std::vector<double>& values)
{
    Sensitivity(scale);
    Named(channel, "@2:Image Data", name);
    file_.Text(Channel(channel), "@2:Z scale", scale.ScaleText(bytesPerSample))
        .Text(Channel(channel), "@2:Z offset", scale.ScaleText(bytesPerSample, 0.0));
    const auto rows = static_cast<std::size_t>(lines), columns = static_cast<std::size_t>(samples);
    if (bytesPerSample == 2)
        file_.Samples16(channel, rows, columns, scale.Counts16(values));
    else
        file_.Samples32(channel, rows, columns, scale.Counts32(values));
}

void QuillonSampleFile::ForceChannel(std::size_t channel, const std::string& name, const ChannelScale& scale,
                                     std::size_t rows, std::size_t columns, const std::vector<double>& values)
{
    Sensitivity(scale);
    Named(channel, "@4:Image Data", name);
    file_.Text(Channel(channel), "@4:Z scale", scale.ScaleText(4))
        .Text(Channel(channel), "@4:FV scale", scale.ScaleText(2))
        .Samples32(channel, rows, columns, scale.Counts32(values));
}

std::vector<std::string> QuillonSampleFile::ForceSections() const
{
    std::vector<std::string> sections;
    for (std::size_t c = 0; c < file_.ChannelCount(); ++c) {
        if (Channel(c).find("force") != std::string::npos)
            sections.push_back(Channel(c));
    }
    return sections;
}

void QuillonSampleFile::Ramp(int pointsPerHalf, int holdPoints, double holdSeconds, const ChannelScale& z,
                             double rampNm, double velocityNmPerS)
{
    const std::string half = std::to_string(pointsPerHalf);
    const double rampVolts = z.Volts(rampNm);
    file_.Text(kForceList, "Samps/line", half + " " + half)
        .Text(kForceList, "Hold Samples", std::to_string(holdPoints))
        .Text(kForceList, "Hold Time", Number("%g", holdSeconds))
        // the ramp's speed is kept in volts of the Z piezo a second
        .Double(kForceList, "Forward vel.", z.Volts(velocityNmPerS))
        .Double(kForceList, "Reverse vel.", z.Volts(velocityNmPerS))
        .Double(kForceList, "Scan rate", velocityNmPerS / (2.0 * rampNm));
    for (const std::string& section : ForceSections()) {
        file_.Text(section, "Samps/line", half + " " + half)
            .Text(section, "@4:Ramp Begin", z.ScaleText(2, 0.0))
            .Text(section, "@4:Ramp End", z.ScaleText(2, rampVolts))
            .Text(section, "@Z scan size", z.ScaleText(2, rampVolts))
            .Text(section, "@4:Ramp size", z.ScaleText(2, rampVolts));
    }
}

}  // namespace SampleGen
