#pragma once

#include <cstdint>
#include <string>
#include <vector>

// One channel section as the walker found it. A section that failed part way
// keeps what was read before the failure and has complete false.
struct TefChannelSection {
    std::uint16_t type = 0;
    std::uint16_t subtype = 0;
    std::uint16_t lineDirectionCode = 0;
    std::string lineDirection;  // "Forward" or "Backward"
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint16_t bytesPerPixel = 0;
    // width x height x bytes per pixel as stored in the file
    std::uint64_t dataSize = 0;
    // One signed 16-bit value a pixel, widened, rows top-down. A pixel store
    // exists only for an image that has pixels and could be allocated.
    bool hasPixels = false;
    std::vector<std::int32_t> pixels;
    std::string displayName;
    bool complete = false;
};
