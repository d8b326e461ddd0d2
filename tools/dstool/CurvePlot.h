#pragma once

#include "tools/dstool/Canvas.h"

#include <string>
#include <vector>

namespace Dstool {

// A line plot of a few series against a common axis, as a picture: a frame
// with ticks, their numbers and a light grid, the two axes' labels, a title,
// and a legend that names each series in its colour.
class CurvePlot {
public:
    struct Series {
        std::string label;
        std::vector<double> x, y;
    };

    CurvePlot(std::string title, std::string xLabel, std::string yLabel);
    void Add(Series series) { series_.push_back(std::move(series)); }

    // The colour of the n-th series: approach blue, retract vermilion, then
    // green, purple and further colours that stay apart for most readers.
    static Rgb SeriesColour(std::size_t n);

    Canvas Render(int width, int height) const;

private:
    std::string title_;
    std::string xLabel_;
    std::string yLabel_;
    std::vector<Series> series_;
};

}  // namespace Dstool
