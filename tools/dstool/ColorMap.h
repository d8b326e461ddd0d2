#pragma once

#include <array>
#include <cstdint>

namespace Dstool {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

// A perceptually even colour map, dark violet through blue, teal and green to
// yellow: lightness rises steadily, so heights read the same in any part of
// the range, also for readers without full colour vision.
class ColorMap {
public:
    static const std::array<Rgb, 256>& Table();
    // The colour of a fraction of the range; outside 0..1 the ends hold.
    static Rgb At(double fraction);
};

}  // namespace Dstool
