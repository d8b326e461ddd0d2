// Drawing on the picture of a plot: lines, fills and text stay inside the
// picture and its clip, hostile coordinates draw nothing, and the font has a
// glyph of its own for every character it claims.

#include "tools/dstool/BitmapFont.h"
#include "tools/dstool/Canvas.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace {

using Dstool::BitmapFont;
using Dstool::Canvas;
using Dstool::Rgb;

constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kRed{255, 0, 0};

bool operator==(Rgb a, Rgb b) { return a.red == b.red && a.green == b.green && a.blue == b.blue; }

std::size_t Painted(const Canvas& canvas)
{
    std::size_t n = 0;
    for (const Rgb& p : canvas.Pixels())
        n += !(p == kWhite);
    return n;
}

TEST(CanvasTest, LineCoversItsPixelsAndNothingFarFromIt)
{
    Canvas canvas(40, 20, kWhite);
    canvas.Line(5.0, 10.5, 35.0, 10.5, 2.0, kRed);
    EXPECT_TRUE(canvas.At(20, 10) == kRed);
    EXPECT_TRUE(canvas.At(5, 10) == kRed);
    EXPECT_TRUE(canvas.At(20, 5) == kWhite);
    EXPECT_TRUE(canvas.At(2, 10) == kWhite);
    // the ink of its smooth edges adds up to its length times its width
    double ink = 0.0;
    for (const Rgb& p : canvas.Pixels())
        ink += (255.0 - p.green) / 255.0;
    EXPECT_NEAR(ink, 30.0 * 2.0, 4.0);
}

TEST(CanvasTest, HostileCoordinatesDrawNothingAndStayInside)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    Canvas canvas(16, 16, kWhite);
    canvas.Line(nan, 1.0, 5.0, 5.0, 2.0, kRed);
    canvas.Line(0.0, 0.0, inf, 5.0, 2.0, kRed);
    canvas.Line(-1e300, -1e300, -1e299, -1e299, 2.0, kRed);
    canvas.Fill({-1e300, -5.0, -1.0, 1e300}, kRed);
    canvas.Text(-1000, -1000, "far away", 2, kRed);
    EXPECT_EQ(Painted(canvas), 0u);
    // a line across the whole plane paints only the picture
    canvas.Line(-1e6, 8.0, 1e6, 8.0, 1.0, kRed);
    EXPECT_GT(Painted(canvas), 0u);
    EXPECT_LE(Painted(canvas), 32u);
    EXPECT_TRUE(canvas.At(-1, 8) == Rgb{} && canvas.At(16, 8) == Rgb{});
}

TEST(CanvasTest, ClipKeepsDrawingInItsRectangle)
{
    Canvas canvas(20, 20, kWhite);
    canvas.Clip({5.0, 5.0, 15.0, 15.0});
    canvas.Fill({0.0, 0.0, 20.0, 20.0}, kRed);
    EXPECT_EQ(Painted(canvas), 100u);
    canvas.Unclip();
    canvas.Fill({0.0, 0.0, 1.0, 1.0}, kRed);
    EXPECT_TRUE(canvas.At(0, 0) == kRed);
}

TEST(CanvasTest, TextLiesWhereItsWidthSaysAndTurnsUpwards)
{
    const std::string text = "nm";
    Canvas flat(60, 30, kWhite);
    flat.Text(10, 5, text, 2, kRed);
    Canvas turned(60, 60, kWhite);
    turned.Text(10, 50, text, 2, kRed, true);
    EXPECT_EQ(Painted(flat), Painted(turned));
    const int width = BitmapFont::Width(text, 2), height = BitmapFont::Height(2);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 60; ++x) {
            const bool inside = x >= 10 && x < 10 + width && y >= 5 && y < 5 + height;
            if (!inside) {
                EXPECT_TRUE(flat.At(x, y) == kWhite) << x << "," << y;
            }
            // the turned text reads upwards from its bottom left corner
            const bool insideTurned = x >= 10 && x < 10 + height && y < 50 && y >= 50 - width;
            if (!insideTurned) {
                EXPECT_TRUE(turned.At(x, y) == kWhite) << x << "," << y;
            }
        }
    }
}

TEST(FontTest, EveryPrintableCharacterAndUnitSignHasAGlyphOfItsOwn)
{
    std::set<std::array<std::uint8_t, BitmapFont::kGlyphWidth>> seen;
    const auto& box = BitmapFont::Glyph(0x01);
    for (int byte = 0x21; byte < 0x7F; ++byte) {
        const auto& glyph = BitmapFont::Glyph(static_cast<unsigned char>(byte));
        EXPECT_TRUE(seen.insert(glyph).second) << "glyph of '" << static_cast<char>(byte) << "' repeats another";
        EXPECT_NE(glyph, box) << static_cast<char>(byte);
        // only the letters with descenders reach below the line
        const bool descends = std::string("gjpqy").find(static_cast<char>(byte)) != std::string::npos;
        std::uint8_t rows = 0;
        for (std::uint8_t column : glyph)
            rows |= column;
        EXPECT_EQ((rows & 0x80) != 0, descends) << "glyph of '" << static_cast<char>(byte) << "'";
    }
    for (unsigned char sign : {0xB0, 0xB5, 0xBA})
        EXPECT_TRUE(seen.insert(BitmapFont::Glyph(sign)).second) << int(sign);
    EXPECT_EQ(BitmapFont::Glyph(0xFF), box);
    EXPECT_EQ(BitmapFont::Width("", 3), 0);
    EXPECT_EQ(BitmapFont::Width("ab", 2), (2 * BitmapFont::kAdvance - 1) * 2);
}

}  // namespace
