#pragma once

#include <string>

namespace SampleGen {

// The ".tef" samples, each written byte by byte by the sample kit's builder.
class TefSamples {
public:
    // 512 x 512 over 50 um: topography in "nm" and phase in "deg", 2-byte pixels.
    static void WriteGrating(const std::string& path);
    // 256 x 256 over 30 um: topography only, 4-byte pixels with 12 bits in use.
    static void WriteGrating12Bit(const std::string& path);
};

}  // namespace SampleGen
