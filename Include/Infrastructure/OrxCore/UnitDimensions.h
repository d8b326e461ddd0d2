#pragma once

// Arithmetic on the exponents of unit dimensions, for composing units.

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

namespace Orx::Core {

constexpr UnitDimension DimensionPower(const UnitDimension& a, int n) {
    UnitDimension d{};
    for (std::size_t i = 0; i < d.size(); ++i) {
        d[i] = static_cast<std::int8_t>(a[i] * n);
    }
    return d;
}

constexpr UnitDimension DimensionProduct(const UnitDimension& a, const UnitDimension& b) {
    UnitDimension d{};
    for (std::size_t i = 0; i < d.size(); ++i) {
        d[i] = static_cast<std::int8_t>(a[i] + b[i]);
    }
    return d;
}

constexpr UnitDimension DimensionQuotient(const UnitDimension& a, const UnitDimension& b) {
    return DimensionProduct(a, DimensionPower(b, -1));
}

}  // namespace Orx::Core
