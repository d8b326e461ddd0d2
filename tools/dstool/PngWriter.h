#pragma once

#include "tools/dstool/ColorMap.h"

#include <string>
#include <vector>

namespace Dstool {

// Writes images as 8-bit RGB PNG files through libpng.
class PngWriter {
public:
    // pixels holds width x height colours, top row first. Raises
    // std::runtime_error with the reason when the file cannot be written.
    static void Write(const std::string& path, int width, int height, const std::vector<Rgb>& pixels);
};

}  // namespace Dstool
