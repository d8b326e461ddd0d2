#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include "Parm/UnitVocabulary.h"
#include "QlDataAnalysisExt/Core/PercentileRankEnds.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"

#include <algorithm>
#include <array>
#include <cmath>

double OLDataItem::RawToValue(std::int64_t raw, bool soft) const {
    const double scale = soft ? zScaleSw : zScaleHw;
    const double divisor = kRawRange / scale;
    // The difference is exact in 64 bits; an offset read from a record may be
    // anything, and a difference beyond them is taken in floating point.
    std::int64_t difference = 0;
    const double counts = __builtin_sub_overflow(raw, zOffset, &difference)
                              ? static_cast<double>(raw) - static_cast<double>(zOffset)
                              : static_cast<double>(difference);
    return counts / divisor;
}

std::int64_t OLDataItem::ValueToRaw(double value, bool soft) const {
    const double scale = soft ? zScaleSw : zScaleHw;
    const double divisor = kRawRange / scale;
    return TruncateToInt64(value * divisor + static_cast<double>(zOffset));
}

UValue OLDataItem::GetZRange(bool soft) const {
    UValue result(zScaleHw, UnitNamed(dataScaleName));
    if (soft && !zSensitivityUnits.empty()) {
        const std::string units = zSensitivityUnits == "m" ? std::string("Meters") : zSensitivityUnits;
        result = UValue(zScaleSw, UnitNamed(units));
    }
    return result;
}

UValue OLDataItem::MultiplyBySensitivity(const UValue& value, const UValue& sensitivity) {
    if (sensitivity.GetUnits()->GetAbbreviation().empty()) {
        return value;
    }
    double v = value.GetValue();
    if (Orx::Core::IsVoltageUnit(value.GetUnits()->GetAbbreviation())) {
        try {
            v = value.ConvertedTo("Volts").GetValue();
        } catch (const std::exception&) {
            // a value that will not turn into volts keeps its number
        }
    }
    return UValue(v * sensitivity.GetValue(), UnitNamed(sensitivity.GetUnits()->GetName()));
}

UValue OLDataItem::ScaledGroupValue(const ScaleGroup& group, bool scaled) {
    if (scaled && !group.sensitivityUnits.empty()) {
        return MultiplyBySensitivity(group.value, UValue(group.sensitivity, UnitNamed(group.sensitivityUnits)));
    }
    return group.value;
}

UValue OLDataItem::GetDataScale(bool soft) const {
    if (soft && !dataScaleName.empty()) {
        return MultiplyBySensitivity(dataScale, UValue(zSensitivity, UnitNamed(zSensitivityUnits)));
    }
    return dataScale;
}

namespace {
// The reverse of the scaled read of a group: the value handed in is in the
// scaled unit (or the group's own) and goes back into the group's own unit.
UValue unscaleValue(const UValue& value, bool soft, const UValue& stored, double sensitivity,
                    const std::string& sensitivityUnits) {
    double v = value.GetValue();
    const std::string& unitName = value.GetUnits()->GetName();
    const std::string& storedName = stored.GetUnits()->GetName();
    if (soft && !sensitivityUnits.empty() && !unitName.empty()) {
        v = value.ConvertedTo(sensitivityUnits).GetValue();
    } else if (!unitName.empty()) {
        v = value.ConvertedTo(storedName).GetValue();
    }
    if (soft && sensitivity != 0.0 && !sensitivityUnits.empty()) {
        v /= sensitivity;
        if (!unitName.empty()) {
            UValue volts(v, UnitNamed("Volts"));
            v = volts.ConvertedTo(storedName).GetValue();
        }
    }
    return UValue(v, UnitNamed(storedName));
}
}  // namespace

void OLDataItem::SetDataScale(UValue value, bool soft) {
    dataScale = unscaleValue(value, soft, dataScale, zSensitivity, zSensitivityUnits);
}

UValue OLDataItem::GetForceZOffset(bool scaled) const { return ScaledGroupValue(forceZOffset, scaled); }
UValue OLDataItem::GetRampBegin(bool scaled) const { return ScaledGroupValue(rampBegin, scaled); }
UValue OLDataItem::GetRampEnd(bool scaled) const { return ScaledGroupValue(rampEnd, scaled); }
UValue OLDataItem::GetRampSize(bool scaled) const { return ScaledGroupValue(rampSize, scaled); }
UValue OLDataItem::GetZScanSize(bool scaled) const { return ScaledGroupValue(zScanSize, scaled); }
double OLDataItem::GetRampSensitivity() const { return rampSize.sensitivity; }
UValue OLDataItem::GetSecondScale(bool scaled) const { return ScaledGroupValue(secondScale, scaled); }
UValue OLDataItem::GetThirdScale(bool scaled) const { return ScaledGroupValue(thirdScale, scaled); }

void OLDataItem::SetThirdScale(UValue value, bool scaled) {
    thirdScale.value = unscaleValue(value, scaled, thirdScale.value, thirdScale.sensitivity, thirdScale.sensitivityUnits);
}

double OLDataItem::GetSecondScaleFactor() const { return secondScaleFactor; }
double OLDataItem::GetSecondScaleFraction() const { return secondScaleFactor / kRawRange; }

void OLDataItem::ResetForceZOffsetSensitivity() {
    forceZOffset.sensitivity = zSensitivity;
    forceZOffset.sensitivityUnits = zSensitivityUnits == "m" ? std::string("Meters") : zSensitivityUnits;
}

void OLDataItem::GetOverrideMin(float* out, const std::string& units) const {
    if (out) {
        *out = static_cast<float>(UValue(overrideMin, UnitNamed(overrideUnits)).ConvertedTo(units).GetValue());
    }
}

void OLDataItem::GetOverrideMax(float* out, const std::string& units) const {
    if (out) {
        *out = static_cast<float>(UValue(overrideMax, UnitNamed(overrideUnits)).ConvertedTo(units).GetValue());
    }
}

// ---- ranges ---------------------------------------------------------------

void OLDataItem::rawExtremes(const std::int32_t* samples, std::uint32_t n, std::int32_t& lo, std::int32_t& hi) {
    lo = 0;
    hi = 0;
    if (!samples || n == 0) {
        return;
    }
    std::int32_t mn = samples[0];
    std::int32_t mx = samples[0];
    for (std::uint32_t i = 1; i < n; ++i) {
        mn = std::min(mn, samples[i]);
        mx = std::max(mx, samples[i]);
    }
    lo = mn;
    hi = mx;
}

// The histogram rule as it reads: every sample counted into its bin, then
// the bins walked from each end until more than the threshold are passed.
void OLDataItem::histogramNarrow(const std::int32_t* samples, std::uint32_t n, std::int32_t& lo, std::int32_t& hi) {
    const PercentileRankEnds::Bins bins(lo, hi);
    std::array<std::uint32_t, PercentileRankEnds::Bins::kCount> counts{};
    if (samples) {
        for (std::uint32_t i = 0; i < n; ++i) {
            ++counts[static_cast<std::size_t>(bins.Of(samples[i]))];
        }
    }
    const std::uint64_t threshold = PercentileRankEnds::Bins::Threshold(n);
    std::uint64_t sum = 0;
    for (int b = 0; b < PercentileRankEnds::Bins::kCount; ++b) {
        sum += counts[static_cast<std::size_t>(b)];
        if (sum > threshold) {
            lo = bins.LowEdge(b);
            break;
        }
    }
    sum = 0;
    for (int b = PercentileRankEnds::Bins::kCount - 1; b >= 1; --b) {
        sum += counts[static_cast<std::size_t>(b)];
        if (sum > threshold) {
            hi = bins.LowEdge(b);
            break;
        }
    }
}

void OLDataItem::GetRawRange(std::int32_t* min, std::int32_t* max) const {
    std::int32_t lo = 0, hi = 0;
    rawExtremes(data, dataSize, lo, hi);
    if (min) {
        *min = lo;
    }
    if (max) {
        *max = hi;
    }
}

void OLDataItem::GetFullRange(double* min, double* max, bool soft) const {
    if (!min || !max) {
        return;
    }
    std::int32_t lo = 0, hi = 0;
    rawExtremes(data, dataSize, lo, hi);
    *min = RawToValue(lo, soft);
    *max = RawToValue(hi, soft);
}

namespace {
// The ends of a percentile range widened by the contrast around its centre.
void contrastEnds(std::int32_t lo, std::int32_t hi, double contrast, std::int64_t& low, std::int64_t& high) {
    const double r = static_cast<double>(hi) - static_cast<double>(lo);
    const double c = lo + r * 0.5;
    const double h = r * contrast * 0.5;
    // The contrast comes from a record and may widen past any count.
    low = TruncateToInt64(c - h);
    high = TruncateToInt64(c + h);
}
}  // namespace

void OLDataItem::GetPercentileRange(double* min, double* max, bool soft) const {
    if (!min || !max) {
        return;
    }
    std::int32_t lo = 0, hi = 0;
    if (!PercentileRankEnds::Narrow(data, dataSize, lo, hi)) {
        rawExtremes(data, dataSize, lo, hi);
        histogramNarrow(data, data ? dataSize : 0, lo, hi);
    }
    std::int64_t low = 0, high = 0;
    contrastEnds(lo, hi, display1.contrast, low, high);
    *min = RawToValue(low, soft);
    *max = RawToValue(high, soft);
}

void OLDataItem::GetSecondPercentileRange(const std::int32_t* buffer, std::uint32_t count, double* min,
                                          double* max) const {
    if (!hasSecondScale || !min || !max) {
        return;
    }
    std::int32_t lo = 0, hi = 0;
    if (!PercentileRankEnds::Narrow(buffer, count, lo, hi)) {
        rawExtremes(buffer, count, lo, hi);
        histogramNarrow(buffer, buffer ? count : 0, lo, hi);
    }
    std::int64_t low = 0, high = 0;
    contrastEnds(lo, hi, display1.contrast, low, high);
    const double f = GetSecondScale(true).GetValue() / GetSecondScaleFraction();
    *min = static_cast<double>(low) / kRawRange * f;
    *max = static_cast<double>(high) / kRawRange * f;
}

void OLDataItem::GetSecondFullRange(const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const {
    if (!hasSecondScale || !min || !max) {
        return;
    }
    std::int32_t lo = 0, hi = 0;
    rawExtremes(buffer, count, lo, hi);
    const double f = GetSecondScale(true).GetValue() / GetSecondScaleFraction();
    *min = lo / kRawRange * f;
    *max = hi / kRawRange * f;
}

void OLDataItem::recomputeDisplay(bool soft) {
    if (display1.displayRangeMode == 0) {
        GetPercentileRange(&display1.displayMin, &display1.displayMax, soft);
    } else {
        const double half = GetDataScale(soft).GetValue() / 2.0;
        display1.displayMax = half;
        display1.displayMin = -half;
    }
}

void OLDataItem::recomputeSecondDisplay(bool soft) {
    if (display1.displayRangeMode == 0) {
        GetSecondPercentileRange(data, dataSize, &display2.displayMin, &display2.displayMax);
    } else {
        const double half = GetSecondScale(soft).GetValue() / 2.0;
        display2.displayMax = half;
        display2.displayMin = -half;
    }
}

void OLDataItem::SetDisplayRange(bool isExplicit, double min, double max, bool soft) {
    display1.hasExplicitRange = isExplicit;
    if (isExplicit) {
        display1.displayMin = min;
        display1.displayMax = max;
    } else {
        recomputeDisplay(soft);
    }
}

bool OLDataItem::GetDisplayRange(double* min, double* max, bool soft) {
    if (!display1.hasExplicitRange) {
        recomputeDisplay(soft);
    }
    if (min && max) {
        *min = display1.displayMin;
        *max = display1.displayMax;
    }
    return display1.hasExplicitRange;
}

void OLDataItem::SetSecondDisplayRange(bool isExplicit, double min, double max, bool soft) {
    display2.hasExplicitRange = isExplicit;
    if (isExplicit) {
        display2.displayMin = min;
        display2.displayMax = max;
    } else {
        recomputeSecondDisplay(soft);
    }
}

bool OLDataItem::GetSecondDisplayRange(double* min, double* max, bool soft) {
    if (!display2.hasExplicitRange) {
        recomputeSecondDisplay(soft);
    }
    if (min && max) {
        *min = display2.displayMin;
        *max = display2.displayMax;
    }
    return display2.hasExplicitRange;
}
