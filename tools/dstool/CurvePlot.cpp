#include "tools/dstool/CurvePlot.h"

#include "tools/dstool/AxisScale.h"
#include "tools/dstool/BitmapFont.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Dstool {

namespace {

constexpr int kTextScale = 2;
constexpr int kTitleScale = 2;
constexpr int kTickLength = 6;
constexpr int kGap = 8;
constexpr Rgb kBackground{255, 255, 255};
constexpr Rgb kInk{40, 40, 40};
constexpr Rgb kGrid{225, 225, 225};

// Smallest and largest finite values of one coordinate of all series.
std::pair<double, double> Extent(const std::vector<CurvePlot::Series>& series, bool ofX)
{
    double low = std::numeric_limits<double>::infinity(), high = -low;
    for (const CurvePlot::Series& s : series) {
        for (double v : ofX ? s.x : s.y) {
            if (std::isfinite(v)) {
                low = std::min(low, v);
                high = std::max(high, v);
            }
        }
    }
    return {low, high};
}

void Outline(Canvas& canvas, const Canvas::Rect& r, double width)
{
    canvas.Line(r.left, r.top, r.right, r.top, width, kInk);
    canvas.Line(r.left, r.bottom, r.right, r.bottom, width, kInk);
    canvas.Line(r.left, r.top, r.left, r.bottom, width, kInk);
    canvas.Line(r.right, r.top, r.right, r.bottom, width, kInk);
}

// A little room above and below the data, so that no curve runs in the frame.
std::pair<double, double> Padded(std::pair<double, double> range)
{
    const double pad = (range.second - range.first) * 0.04;
    return {range.first - pad, range.second + pad};
}

}  // namespace

CurvePlot::CurvePlot(std::string title, std::string xLabel, std::string yLabel)
    : title_(std::move(title)), xLabel_(std::move(xLabel)), yLabel_(std::move(yLabel))
{
}

Rgb CurvePlot::SeriesColour(std::size_t n)
{
    static constexpr Rgb kColours[] = {{0, 114, 178}, {213, 94, 0}, {0, 158, 115}, {204, 121, 167},
                                       {230, 159, 0}, {86, 180, 233}, {120, 120, 120}};
    return kColours[n % (sizeof kColours / sizeof kColours[0])];
}

Canvas CurvePlot::Render(int width, int height) const
{
    Canvas canvas(width, height, kBackground);
    const AxisScale xAxis = [&] {
        const auto [low, high] = Extent(series_, true);
        return AxisScale(low, high, 8);
    }();
    const AxisScale yAxis = [&] {
        const auto [low, high] = Padded(Extent(series_, false));
        return AxisScale(low, high, 6);
    }();

    // The frame leaves room for the widest tick number and the axis labels.
    const int textHeight = BitmapFont::Height(kTextScale);
    int widestY = 0;
    for (double tick : yAxis.Ticks())
        widestY = std::max(widestY, BitmapFont::Width(yAxis.Label(tick), kTextScale));
    const double left = kGap + textHeight + 2 * kGap + widestY + kTickLength;
    const double top = kGap + BitmapFont::Height(kTitleScale) + 2 * kGap;
    const double right = width - 3.0 * kGap;
    const double bottom = height - (kGap + textHeight + 2 * kGap + textHeight + kTickLength);
    const auto px = [&](double x) { return left + xAxis.Fraction(x) * (right - left); };
    const auto py = [&](double y) { return bottom - yAxis.Fraction(y) * (bottom - top); };

    for (double tick : xAxis.Ticks()) {
        const double x = std::round(px(tick)) + 0.5;
        canvas.Line(x, top, x, bottom, 1.0, kGrid);
        canvas.Line(x, bottom, x, bottom + kTickLength, 1.0, kInk);
        const std::string label = xAxis.Label(tick);
        canvas.Text(static_cast<int>(x) - BitmapFont::Width(label, kTextScale) / 2,
                    static_cast<int>(bottom) + kTickLength + kGap / 2, label, kTextScale, kInk);
    }
    for (double tick : yAxis.Ticks()) {
        const double y = std::round(py(tick)) + 0.5;
        canvas.Line(left, y, right, y, 1.0, kGrid);
        canvas.Line(left - kTickLength, y, left, y, 1.0, kInk);
        const std::string label = yAxis.Label(tick);
        canvas.Text(static_cast<int>(left) - kTickLength - kGap / 2 - BitmapFont::Width(label, kTextScale),
                    static_cast<int>(y) - textHeight / 2, label, kTextScale, kInk);
    }

    canvas.Clip({left, top, right, bottom});
    for (std::size_t n = 0; n < series_.size(); ++n) {
        const Series& s = series_[n];
        for (std::size_t i = 1; i < std::min(s.x.size(), s.y.size()); ++i)
            canvas.Line(px(s.x[i - 1]), py(s.y[i - 1]), px(s.x[i]), py(s.y[i]), 2.0, SeriesColour(n));
    }
    canvas.Unclip();
    Outline(canvas, {left, top, right, bottom}, 1.5);

    canvas.Text((width - BitmapFont::Width(title_, kTitleScale)) / 2, kGap, title_, kTitleScale, kInk);
    canvas.Text(static_cast<int>((left + right) / 2) - BitmapFont::Width(xLabel_, kTextScale) / 2,
                height - kGap - textHeight, xLabel_, kTextScale, kInk);
    canvas.Text(kGap, static_cast<int>((top + bottom) / 2) + BitmapFont::Width(yLabel_, kTextScale) / 2, yLabel_,
                kTextScale, kInk, true);

    // The legend, on white, in the corner of the frame where it hides the
    // fewest points.
    int widestLabel = 0;
    for (const Series& s : series_)
        widestLabel = std::max(widestLabel, BitmapFont::Width(s.label, kTextScale));
    const double lineLength = 28.0, rowHeight = textHeight + kGap;
    const double boxWidth = kGap + lineLength + kGap + widestLabel + kGap;
    const double boxHeight = kGap + rowHeight * static_cast<double>(series_.size());
    Canvas::Rect box{};
    std::size_t fewest = std::numeric_limits<std::size_t>::max();
    for (const auto& [atLeft, atTop] : {std::pair{true, true}, {false, true}, {true, false}, {false, false}}) {
        const double boxLeft = atLeft ? left + kGap : right - kGap - boxWidth;
        const double boxTop = atTop ? top + kGap : bottom - kGap - boxHeight;
        const Canvas::Rect candidate{boxLeft, boxTop, boxLeft + boxWidth, boxTop + boxHeight};
        std::size_t hidden = 0;
        for (const Series& s : series_) {
            for (std::size_t i = 0; i < std::min(s.x.size(), s.y.size()); ++i) {
                const double x = px(s.x[i]), y = py(s.y[i]);
                hidden += x >= candidate.left && x <= candidate.right && y >= candidate.top && y <= candidate.bottom;
            }
        }
        if (hidden < fewest) {
            fewest = hidden;
            box = candidate;
        }
    }
    canvas.Fill(box, kBackground);
    for (std::size_t n = 0; n < series_.size(); ++n) {
        const double rowTop = box.top + kGap + rowHeight * static_cast<double>(n);
        const double middle = rowTop + textHeight / 2.0;
        canvas.Line(box.left + kGap, middle, box.left + kGap + lineLength, middle, 3.0, SeriesColour(n));
        canvas.Text(static_cast<int>(box.left + 2 * kGap + lineLength), static_cast<int>(rowTop), series_[n].label,
                    kTextScale, kInk);
    }
    Outline(canvas, box, 1.0);
    return canvas;
}

}  // namespace Dstool
