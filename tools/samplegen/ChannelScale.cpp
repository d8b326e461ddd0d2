#include "tools/samplegen/ChannelScale.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace SampleGen {

namespace {

template <class Count>
std::vector<Count> Quantised(const std::vector<double>& values, double countsPerUnit)
{
    std::vector<Count> counts;
    counts.reserve(values.size());
    for (double value : values) {
        // a value that is no number has no count; it is stored as 0
        const double c = std::isnan(value) ? 0.0
                                           : std::clamp(std::round(value * countsPerUnit),
                                                        double(std::numeric_limits<Count>::min()),
                                                        double(std::numeric_limits<Count>::max()));
        counts.push_back(static_cast<Count>(c));
    }
    return counts;
}

}  // namespace

ChannelScale::ChannelScale(std::string sensitivityName, double fullScaleVolts, double sensitivity, std::string unit)
    : sensitivityName_(std::move(sensitivityName)), volts_(fullScaleVolts), sensitivity_(sensitivity),
      unit_(std::move(unit))
{
}

std::string ChannelScale::ScaleText(int bytesPerSample, double volts) const
{
    const double perCount = volts_ / std::ldexp(1.0, 8 * bytesPerSample);
    char text[160];
    std::snprintf(text, sizeof text, "V [%s] (%.7g V/LSB) %.4f V", sensitivityName_.c_str(), perCount, volts);
    return text;
}

std::string ChannelScale::SensitivityText() const
{
    char text[80];
    std::snprintf(text, sizeof text, "V %.3f %s/V", sensitivity_, unit_.c_str());
    return text;
}

std::vector<std::int32_t> ChannelScale::Counts32(const std::vector<double>& values) const
{
    return Quantised<std::int32_t>(values, 4294967295.0 / FullScale());
}

std::vector<std::int16_t> ChannelScale::Counts16(const std::vector<double>& values) const
{
    return Quantised<std::int16_t>(values, 4294967295.0 / 65536.0 / FullScale());
}

}  // namespace SampleGen
