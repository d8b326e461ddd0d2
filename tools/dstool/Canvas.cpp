#include "tools/dstool/Canvas.h"

#include "tools/dstool/BitmapFont.h"

#include <algorithm>
#include <cmath>

namespace Dstool {

Canvas::Canvas(int width, int height, Rgb background)
    : width_(std::max(width, 1)), height_(std::max(height, 1)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), background)
{
    Unclip();
}

void Canvas::Unclip() { clip_ = {0.0, 0.0, static_cast<double>(width_), static_cast<double>(height_)}; }

Rgb Canvas::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= width_ || y >= height_)
        return {};
    return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)];
}

void Canvas::Blend(int x, int y, Rgb colour, double coverage)
{
    if (coverage <= 0.0 || x < 0 || y < 0 || x >= width_ || y >= height_ || x < clip_.left || x >= clip_.right ||
        y < clip_.top || y >= clip_.bottom)
        return;
    Rgb& p = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x)];
    const double a = std::min(coverage, 1.0);
    const auto mix = [a](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + (to - from) * a));
    };
    p = {mix(p.red, colour.red), mix(p.green, colour.green), mix(p.blue, colour.blue)};
}

void Canvas::Fill(const Rect& rect, Rgb colour)
{
    const int left = static_cast<int>(std::floor(std::max(rect.left, 0.0)));
    const int top = static_cast<int>(std::floor(std::max(rect.top, 0.0)));
    const int right = static_cast<int>(std::ceil(std::min(rect.right, double(width_))));
    const int bottom = static_cast<int>(std::ceil(std::min(rect.bottom, double(height_))));
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x)
            Blend(x, y, colour, 1.0);
    }
}

void Canvas::Line(double x0, double y0, double x1, double y1, double width, Rgb colour)
{
    if (!std::isfinite(x0) || !std::isfinite(y0) || !std::isfinite(x1) || !std::isfinite(y1))
        return;
    const double half = width / 2.0;
    // Only the pixels of the line's box inside the picture are looked at, so
    // a line far outside costs nothing.
    const auto inside = [](double v, int size) { return std::clamp(v, -1.0, static_cast<double>(size)); };
    const double left = inside(std::min(x0, x1) - half - 1.0, width_);
    const double right = inside(std::max(x0, x1) + half + 1.0, width_);
    const double top = inside(std::min(y0, y1) - half - 1.0, height_);
    const double bottom = inside(std::max(y0, y1) + half + 1.0, height_);
    const double dx = x1 - x0, dy = y1 - y0;
    const double length2 = dx * dx + dy * dy;
    for (int y = static_cast<int>(std::floor(top)); y <= static_cast<int>(bottom); ++y) {
        for (int x = static_cast<int>(std::floor(left)); x <= static_cast<int>(right); ++x) {
            // distance from the pixel's centre to the segment
            const double px = x + 0.5 - x0, py = y + 0.5 - y0;
            const double t = length2 > 0.0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
            const double distance = std::hypot(px - t * dx, py - t * dy);
            Blend(x, y, colour, half + 0.5 - distance);
        }
    }
}

void Canvas::Text(int x, int y, const std::string& text, int scale, Rgb colour, bool upwards)
{
    int advance = 0;
    for (const char c : text) {
        const auto& columns = BitmapFont::Glyph(static_cast<unsigned char>(c));
        for (int column = 0; column < BitmapFont::kGlyphWidth; ++column) {
            for (int row = 0; row < BitmapFont::kGlyphHeight; ++row) {
                if (!(columns[static_cast<std::size_t>(column)] >> row & 1))
                    continue;
                const int along = (advance + column) * scale, across = row * scale;
                for (int sy = 0; sy < scale; ++sy) {
                    for (int sx = 0; sx < scale; ++sx) {
                        if (upwards)
                            Blend(x + across + sy, y - along - sx - 1, colour, 1.0);
                        else
                            Blend(x + along + sx, y + across + sy, colour, 1.0);
                    }
                }
            }
        }
        advance += BitmapFont::kAdvance;
    }
}

}  // namespace Dstool
