#pragma once

#include <string>

namespace SampleGen {

// The Harlen samples: a float height map and force sets of both label counts.
class HarlenSamples {
public:
    // Lipid bilayer patches and a few vesicles on mica, 256 x 256 over 5 um.
    static void WriteImage(const std::string& path);
    // 512 ramp positions into a soft cell membrane: Z and deflection (8 labels).
    static void WriteForce8(const std::string& path);
    // The same with force and lateral signal beside them (16 labels).
    static void WriteForce16(const std::string& path);
};

}  // namespace SampleGen
