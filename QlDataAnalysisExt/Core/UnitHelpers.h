#pragma once

// Small conversions shared by the items and the sources.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

// The unit of that name; an empty name means a value without a unit. An
// unknown name raises XUnitNotFound.
Orx::Core::UnitDescriptorPtr UnitNamed(const std::string& name);

// Truncation toward zero that saturates instead of leaving the range (NaN gives 0):
// hostile files must not reach an undefined conversion.
template <class I>
I TruncateTo(double v) {
    if (std::isnan(v)) {
        return 0;
    }
    constexpr double lo = static_cast<double>(std::numeric_limits<I>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<I>::max());
    if (v <= lo) {
        return std::numeric_limits<I>::min();
    }
    if (v >= hi) {
        return std::numeric_limits<I>::max();
    }
    return static_cast<I>(v);
}
inline std::int64_t TruncateToInt64(double v) { return TruncateTo<std::int64_t>(v); }
inline std::int32_t TruncateToInt32(double v) { return TruncateTo<std::int32_t>(v); }
