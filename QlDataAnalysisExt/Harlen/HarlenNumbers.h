#pragma once

// Narrowing and division for values that come from a file: a hostile file
// must not reach an undefined conversion or a division by zero.

#include <cmath>
#include <limits>

namespace HarlenNumbers {

// A double as a float, saturated at the largest float; NaN stays NaN.
inline float NarrowToFloat(double value) {
    constexpr double largest = std::numeric_limits<float>::max();
    if (value > largest) {
        return std::numeric_limits<float>::max();
    }
    if (value < -largest) {
        return -std::numeric_limits<float>::max();
    }
    return static_cast<float>(value);
}

// numerator / denominator, or 0 where the denominator is 0.
inline double Quotient(double numerator, double denominator) {
    return denominator == 0.0 ? 0.0 : numerator / denominator;
}

}  // namespace HarlenNumbers
