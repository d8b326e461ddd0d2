#pragma once

#include "tools/dstool/ColorMap.h"

#include <string>
#include <vector>

namespace Dstool {

// An RGB picture to draw a plot on: filled rectangles, smooth lines of any
// width, and text in the bitmap font. Whatever falls outside the picture,
// or outside the clip rectangle, is left out.
class Canvas {
public:
    struct Rect {
        double left, top, right, bottom;
    };

    Canvas(int width, int height, Rgb background);

    int Width() const { return width_; }
    int Height() const { return height_; }
    const std::vector<Rgb>& Pixels() const { return pixels_; }
    Rgb At(int x, int y) const;

    // Drawing is limited to this rectangle until it is cleared.
    void Clip(const Rect& rect) { clip_ = rect; }
    void Unclip();

    void Fill(const Rect& rect, Rgb colour);
    // A line of that width with smooth edges, from (x0, y0) to (x1, y1).
    void Line(double x0, double y0, double x1, double y1, double width, Rgb colour);
    // Text with its top left corner at (x, y); turned a quarter to the left
    // (reading upwards), when upwards, with (x, y) its bottom left corner.
    void Text(int x, int y, const std::string& text, int scale, Rgb colour, bool upwards = false);

private:
    // Mixes colour into a pixel by coverage from 0 to 1.
    void Blend(int x, int y, Rgb colour, double coverage);

    int width_;
    int height_;
    std::vector<Rgb> pixels_;
    Rect clip_;
};

}  // namespace Dstool
