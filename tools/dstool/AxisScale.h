#pragma once

#include <string>
#include <vector>

namespace Dstool {

// The scale of a plot's axis: a range widened to round numbers that holds
// the data, ticks at a step of 1, 2 or 5 times a power of ten, and their
// labels with as many decimals as the step needs.
class AxisScale {
public:
    // About that many ticks over low..high; a range without width, or with
    // values that are not finite, is made one that has.
    AxisScale(double low, double high, int ticks);

    double Low() const { return low_; }
    double High() const { return high_; }
    const std::vector<double>& Ticks() const { return ticks_; }
    std::string Label(double value) const;
    // Where a value falls from 0 at Low to 1 at High.
    double Fraction(double value) const { return (value - low_) / (high_ - low_); }

private:
    double low_;
    double high_;
    double step_;
    std::vector<double> ticks_;
};

}  // namespace Dstool
