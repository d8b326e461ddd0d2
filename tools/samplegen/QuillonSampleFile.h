#pragma once

#include "tools/samplegen/ChannelScale.h"
#include "tools/samplekit/QuillonBuilder.h"

#include <cstddef>
#include <string>
#include <vector>

namespace SampleGen {

// A Quillon file of one subtype as an instrument writes it, with the keys of
// a real acquisition in place of the sample kit's small defaults: the scan's
// geometry, channels named and scaled for what they hold, their samples.
class QuillonSampleFile {
public:
    QuillonSampleFile(const std::string& subtype, const std::string& version, const std::string& date);

    SampleKit::QuillonBuilder& Builder() { return file_; }
    const std::string& Channel(std::size_t channel) const { return file_.ChannelName(channel); }

    // Lines and samples of the scan and of every image channel, scan size and rate.
    void ScanGeometry(int lines, int samples, double scanSizeNm, double rateHz);
    // The sensitivity of a scale, as the scanner list keeps it.
    void Sensitivity(const ChannelScale& scale);
    // An image channel: its name, what it holds, how it is scaled, and its
    // values (top row first) stored in samples of that many bytes.
    void ImageChannel(std::size_t channel, const std::string& name, const ChannelScale& scale, int bytesPerSample,
                      int lines, int samples, const std::vector<double>& values);
    // A channel of force curves: rows curves of columns points each.
    void ForceChannel(std::size_t channel, const std::string& name, const ChannelScale& scale, std::size_t rows,
                      std::size_t columns, const std::vector<double>& values);
    // The ramp of the force list and its channels: points of each half, the
    // hold section, the ramp's length in Z and its speed.
    void Ramp(int pointsPerHalf, int holdPoints, double holdSeconds, const ChannelScale& z, double rampNm,
              double velocityNmPerS);

    void Write(const std::string& path) { file_.Write(path); }

private:
    void Named(std::size_t channel, const std::string& imageDataKey, const std::string& name);
    // The sections of the channels that hold force curves.
    std::vector<std::string> ForceSections() const;

    SampleKit::QuillonBuilder file_;
    std::string startContext_;
};

}  // namespace SampleGen
