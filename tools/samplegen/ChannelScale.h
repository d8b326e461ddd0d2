#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace SampleGen {

// How an instrument scales a channel: the volts that the full range of its
// counts spans, and a sensitivity that turns volts into the channel's unit.
// From it follow the scale texts of a file and the counts of a value.
class ChannelScale {
public:
    ChannelScale(std::string sensitivityName, double fullScaleVolts, double sensitivity, std::string unit);

    const std::string& SensitivityName() const { return sensitivityName_; }
    // The value that the full range of counts spans, in the channel's unit.
    double FullScale() const { return volts_ * sensitivity_; }
    // "V [Sens. Zsens] (1.024455e-07 V/LSB) 440.0000 V" for samples of that
    // many bytes; a volts value of its own for the ramp and offset keys.
    std::string ScaleText(int bytesPerSample) const { return ScaleText(bytesPerSample, volts_); }
    std::string ScaleText(int bytesPerSample, double volts) const;
    // "V 12.50 nm/V", the sensitivity key's text.
    std::string SensitivityText() const;
    // The volts of a value in the channel's unit.
    double Volts(double value) const { return value / sensitivity_; }

    // Counts as stored: 32-bit samples span the whole range, 16-bit samples
    // are read back times 65536. Values beyond the range are held at its ends.
    std::vector<std::int32_t> Counts32(const std::vector<double>& values) const;
    std::vector<std::int16_t> Counts16(const std::vector<double>& values) const;

private:
    std::string sensitivityName_;
    double volts_;
    double sensitivity_;
    std::string unit_;
};

}  // namespace SampleGen
