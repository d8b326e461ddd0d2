#include "tools/dstool/AxisScale.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace Dstool {

namespace {

// 1, 2 or 5 times a power of ten, the nearest to a raw step.
double RoundStep(double raw)
{
    const double magnitude = std::pow(10.0, std::floor(std::log10(raw)));
    const double f = raw / magnitude;
    return magnitude * (f < 1.5 ? 1.0 : f < 3.5 ? 2.0 : f < 7.5 ? 5.0 : 10.0);
}

}  // namespace

AxisScale::AxisScale(double low, double high, int ticks)
{
    if (!std::isfinite(low) || !std::isfinite(high)) {
        low = 0.0;
        high = 1.0;
    }
    if (high < low)
        std::swap(low, high);
    if (high - low <= std::abs(high) * 1e-12 || high - low < 1e-300) {
        const double pad = low == 0.0 ? 1.0 : std::abs(low) * 0.1;
        low -= pad;
        high += pad;
    }
    // A span beyond what a double can step through is held to a plain range.
    if (!std::isfinite(high - low)) {
        low = -1e300;
        high = 1e300;
    }
    step_ = RoundStep((high - low) / std::max(ticks, 1));
    low_ = std::floor(low / step_) * step_;
    high_ = std::ceil(high / step_) * step_;
    for (double k = std::round(low_ / step_); k * step_ <= high_ + step_ * 1e-9 && ticks_.size() < 64; k += 1.0)
        ticks_.push_back(k * step_);
}

std::string AxisScale::Label(double value) const
{
    if (std::abs(value) < step_ * 1e-9)
        value = 0.0;  // no "-0"
    char text[64];
    const double largest = std::max(std::abs(low_), std::abs(high_));
    if (largest >= 1e6 || step_ < 1e-4) {
        std::snprintf(text, sizeof text, "%.3g", value);
    } else {
        const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step_) + 1e-9)));
        std::snprintf(text, sizeof text, "%.*f", decimals, value);
    }
    return text;
}

}  // namespace Dstool
