#include "tools/dstool/ColorMap.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Dstool {

namespace {

// The map at nine evenly spaced points; the table runs straight between them.
constexpr std::array<Rgb, 9> kStops{{
    {68, 1, 84},
    {72, 40, 120},
    {62, 73, 137},
    {49, 104, 142},
    {38, 130, 142},
    {31, 158, 137},
    {53, 183, 121},
    {110, 206, 88},
    {253, 231, 37},
}};

std::uint8_t Between(std::uint8_t from, std::uint8_t to, double part)
{
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * part));
}

std::array<Rgb, 256> MakeTable()
{
    std::array<Rgb, 256> table{};
    constexpr double kSpans = kStops.size() - 1;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double position = static_cast<double>(i) / (table.size() - 1) * kSpans;
        const auto span = std::min(static_cast<std::size_t>(position), kStops.size() - 2);
        const double part = position - static_cast<double>(span);
        const Rgb& a = kStops[span];
        const Rgb& b = kStops[span + 1];
        table[i] = {Between(a.red, b.red, part), Between(a.green, b.green, part), Between(a.blue, b.blue, part)};
    }
    return table;
}

}  // namespace

const std::array<Rgb, 256>& ColorMap::Table()
{
    static const std::array<Rgb, 256> table = MakeTable();
    return table;
}

Rgb ColorMap::At(double fraction)
{
    if (!(fraction > 0.0))  // NaN too
        return Table().front();
    if (fraction >= 1.0)
        return Table().back();
    return Table()[static_cast<std::size_t>(fraction * 255.0 + 0.5)];
}

}  // namespace Dstool
