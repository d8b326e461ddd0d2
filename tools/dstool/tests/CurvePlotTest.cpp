// The plot of curves: the series are drawn in their colours inside the
// frame, the legend takes the corner that hides the fewest points, and
// series with holes or without points still give a picture.

#include "tools/dstool/CurvePlot.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Dstool::Canvas;
using Dstool::CurvePlot;
using Dstool::Rgb;

constexpr int kWidth = 600, kHeight = 400;

// Pixels of exactly that colour in a part of the picture, given in fractions.
std::size_t CountColour(const Canvas& canvas, Rgb colour, double left, double top, double right, double bottom)
{
    std::size_t n = 0;
    for (int y = static_cast<int>(top * kHeight); y < static_cast<int>(bottom * kHeight); ++y) {
        for (int x = static_cast<int>(left * kWidth); x < static_cast<int>(right * kWidth); ++x) {
            const Rgb p = canvas.At(x, y);
            n += p.red == colour.red && p.green == colour.green && p.blue == colour.blue;
        }
    }
    return n;
}

CurvePlot::Series Line(const std::string& label, double x0, double y0, double x1, double y1)
{
    CurvePlot::Series s{label, {}, {}};
    for (int i = 0; i <= 50; ++i) {
        s.x.push_back(x0 + (x1 - x0) * i / 50.0);
        s.y.push_back(y0 + (y1 - y0) * i / 50.0);
    }
    return s;
}

TEST(CurvePlotTest, SeriesAreDrawnInTheirColoursAndTheLegendAvoidsThem)
{
    // Data in the top left and the bottom right corners only.
    CurvePlot plot("title", "x (nm)", "y (nN)");
    plot.Add(Line("approach", 0.0, 100.0, 20.0, 100.0));
    plot.Add(Line("retract", 80.0, 0.0, 100.0, 0.0));
    const Canvas canvas = plot.Render(kWidth, kHeight);
    const Rgb approach = CurvePlot::SeriesColour(0), retract = CurvePlot::SeriesColour(1);
    EXPECT_GT(CountColour(canvas, approach, 0.0, 0.0, 0.5, 0.5), 50u);
    EXPECT_GT(CountColour(canvas, retract, 0.5, 0.5, 1.0, 1.0), 50u);
    // The legend, the only thing of both colours in one place, stands in the
    // free top right corner.
    EXPECT_GT(CountColour(canvas, approach, 0.5, 0.0, 1.0, 0.5), 20u);
    EXPECT_GT(CountColour(canvas, retract, 0.5, 0.0, 1.0, 0.5), 20u);
    EXPECT_EQ(CountColour(canvas, retract, 0.0, 0.0, 0.5, 0.5), 0u);
}

TEST(CurvePlotTest, SeriesColoursStayApart)
{
    for (std::size_t a = 0; a < 7; ++a) {
        for (std::size_t b = a + 1; b < 7; ++b) {
            const Rgb p = CurvePlot::SeriesColour(a), q = CurvePlot::SeriesColour(b);
            EXPECT_GT(std::abs(p.red - q.red) + std::abs(p.green - q.green) + std::abs(p.blue - q.blue), 60) << a << b;
        }
    }
}

TEST(CurvePlotTest, HolesAndEmptySeriesStillGiveAPicture)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    CurvePlot plot("holes", "x", "y");
    plot.Add({"with holes", {0.0, 1.0, nan, 3.0, 4.0}, {1.0, nan, 2.0, 3.0, std::numeric_limits<double>::infinity()}});
    plot.Add({"empty", {}, {}});
    plot.Add({"uneven", {0.0, 1.0, 2.0}, {5.0}});
    const Canvas canvas = plot.Render(kWidth, kHeight);
    EXPECT_EQ(canvas.Width(), kWidth);
    EXPECT_GT(CountColour(canvas, CurvePlot::SeriesColour(0), 0.0, 0.0, 1.0, 1.0), 0u);
    CurvePlot none("nothing", "x", "y");
    EXPECT_EQ(none.Render(100, 80).Pixels().size(), 100u * 80u);
}

}  // namespace
