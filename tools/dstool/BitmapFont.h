#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace Dstool {

// A 5 x 7 pixel font of the printable ASCII characters and the Latin signs
// that units use (degree, micro, ordinal o), drawn at a whole-number scale,
// with an eighth row below the line for the descenders of g, j, p, q, y and
// the micro sign. Each glyph is five columns of eight bits, the lowest bit at
// the top.
class BitmapFont {
public:
    static constexpr int kGlyphWidth = 5;
    static constexpr int kGlyphHeight = 8;
    static constexpr int kAdvance = 6;  // a column of space between glyphs

    // The columns of a byte's glyph; an unknown byte shows as a box.
    static const std::array<std::uint8_t, kGlyphWidth>& Glyph(unsigned char byte);
    // The width of a text at a scale, in pixels, without the last space.
    static int Width(const std::string& text, int scale);
    static int Height(int scale) { return kGlyphHeight * scale; }
};

}  // namespace Dstool
