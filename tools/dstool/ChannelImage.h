#pragma once

#include "tools/dstool/DataUnits.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Dstool {

// The image of one channel of the open file, top row first, in the units
// asked for.
struct ChannelImage {
    int lines = 0;
    int samples = 0;
    std::vector<double> values;
    std::string unit;  // empty for raw counts

    // Nothing when the library has no image for that channel in those
    // units: images have no force units. The image of a force volume is its
    // channel 0.
    static std::optional<ChannelImage> Read(int channel, DataUnits units);

    // The values at two fractions of the sorted finite values, such as 0.01
    // and 0.99; (0, 0) for an image without finite values.
    std::pair<double, double> PercentileRange(double low, double high) const;
};

}  // namespace Dstool
