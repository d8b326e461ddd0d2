// Forwarders from the source to the item of a channel.

#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include <utility>

// ---- display range and colour ----------------------------------------------

void OLDataSource::SetDisplayRange(unsigned channel, bool isExplicit, double min, double max) {
    if (auto* item = writeItem(channel)) {
        item->SetDisplayRange(isExplicit, min, max, IsMetric());
    }
}

bool OLDataSource::GetDisplayRange(unsigned channel, double* min, double* max) {
    auto* item = writeItem(channel);
    return item ? item->GetDisplayRange(min, max, IsMetric()) : false;
}

void OLDataSource::SetDisplayFlag(unsigned channel, bool flag) {
    if (auto* item = writeItem(channel)) {
        item->SetDisplayFlag(flag);
    }
}
bool OLDataSource::GetDisplayFlag(unsigned channel) const { return readItem(channel).GetDisplayFlag(); }

void OLDataSource::GetColorTableSettings(unsigned channel, std::int32_t& table, std::uint32_t& value1,
                                         std::uint32_t& value2, bool& flag) const {
    if (channel < items.size()) {
        items[channel].GetColorTableSettings(table, value1, value2, flag);
    }
}

void OLDataSource::SetColorTableSettings(unsigned channel, std::int32_t table, std::uint32_t value1,
                                         std::uint32_t value2, bool flag) {
    if (channel < items.size()) {
        items[channel].SetColorTableSettings(table, value1, value2, flag);
    }
}

void OLDataSource::SetHasColorTable(unsigned channel, bool has) {
    if (auto* item = writeItem(channel)) {
        item->SetHasColorTable(has);
    }
}
bool OLDataSource::HasColorTable(unsigned channel) const { return readItem(channel).HasColorTable(); }
ColorTableObject OLDataSource::GetColorTable(unsigned channel) const { return readItem(channel).GetColorTable(); }
void OLDataSource::SetColorTable(unsigned channel, const ColorTableObject& table) {
    if (auto* item = writeItem(channel)) {
        item->SetColorTable(table);
    }
}
void OLDataSource::SetColorEntries(unsigned channel, const ColorEntries& entries) {
    if (auto* item = writeItem(channel)) {
        item->SetColorEntries(entries);
    }
}
ColorEntry* OLDataSource::GetColorEntries(unsigned channel) {
    auto* item = writeItem(channel);
    return item ? item->GetColorEntries() : nullptr;
}
void OLDataSource::SetColorRanges(unsigned channel, std::uint32_t count, const std::vector<std::uint32_t>& a,
                                  const std::vector<std::uint32_t>& b, const std::vector<std::uint32_t>& c) {
    if (auto* item = writeItem(channel)) {
        item->SetColorRanges(count, a, b, c);
    }
}
void OLDataSource::GetColorRanges(unsigned channel, std::uint32_t& count, std::vector<std::uint32_t>& a,
                                  std::vector<std::uint32_t>& b, std::vector<std::uint32_t>& c) const {
    readItem(channel).GetColorRanges(count, a, b, c);
}
void OLDataSource::SetDisplayRangeMode(unsigned channel, std::uint32_t mode) {
    if (auto* item = writeItem(channel)) {
        item->SetDisplayRangeMode(mode);
    }
}
std::uint32_t OLDataSource::GetDisplayRangeMode(unsigned channel) const {
    return readItem(channel).GetDisplayRangeMode();
}
void OLDataSource::GetContrastRange(unsigned channel, double* min, double* max) const {
    readItem(channel).GetPercentileRange(min, max, IsMetric());
}
void OLDataSource::GetDataMinMax(unsigned channel, double* min, double* max) const {
    readItem(channel).GetFullRange(min, max, IsMetric());
}
double OLDataSource::GetRawRange(unsigned) const { return kRawRange; }
bool OLDataSource::IsMetric() const { return units == "Metric"; }

void OLDataSource::SetSecondDisplayRange(unsigned channel, bool isExplicit, double min, double max) {
    if (auto* item = writeItem(channel)) {
        item->SetSecondDisplayRange(isExplicit, min, max, IsMetric());
    }
}
bool OLDataSource::GetSecondDisplayRange(unsigned channel, double* min, double* max) {
    auto* item = writeItem(channel);
    return item ? item->GetSecondDisplayRange(min, max, IsMetric()) : false;
}
void OLDataSource::GetSecondPercentileRange(unsigned channel, const std::int32_t* buffer, std::uint32_t count,
                                            double* min, double* max) const {
    readItem(channel).GetSecondPercentileRange(buffer, count, min, max);
}
void OLDataSource::GetSecondFullRange(unsigned channel, const std::int32_t* buffer, std::uint32_t count, double* min,
                                      double* max) const {
    readItem(channel).GetSecondFullRange(buffer, count, min, max);
}
void OLDataSource::GetSecondColorTableSettings(unsigned channel, std::int32_t& table, std::uint32_t& value1,
                                               std::uint32_t& value2, bool& flag) const {
    readItem(channel).GetSecondColorTableSettings(table, value1, value2, flag);
}
void OLDataSource::SetSecondColorTableSettings(unsigned channel, std::int32_t table, std::uint32_t value1,
                                               std::uint32_t value2, bool flag) {
    if (auto* item = writeItem(channel)) {
        item->SetSecondColorTableSettings(table, value1, value2, flag);
    }
}
void OLDataSource::SetHasSecondColorTable(unsigned channel, bool has) {
    if (auto* item = writeItem(channel)) {
        item->SetHasSecondColorTable(has);
    }
}
bool OLDataSource::HasSecondColorTable(unsigned channel) const { return readItem(channel).HasSecondColorTable(); }
ColorTableObject OLDataSource::GetSecondColorTable(unsigned channel) const {
    return readItem(channel).GetSecondColorTable();
}
void OLDataSource::SetSecondColorTable(unsigned channel, const ColorTableObject& table) {
    if (auto* item = writeItem(channel)) {
        item->SetSecondColorTable(table);
    }
}
void OLDataSource::SetSecondColorEntries(unsigned channel, const ColorEntries& entries) {
    if (auto* item = writeItem(channel)) {
        item->SetSecondColorEntries(entries);
    }
}
ColorEntry* OLDataSource::GetSecondColorEntries(unsigned channel) {
    auto* item = writeItem(channel);
    return item ? item->GetSecondColorEntries() : nullptr;
}
void OLDataSource::SetSecondColorRanges(unsigned channel, std::uint32_t count, const std::vector<std::uint32_t>& a,
                                        const std::vector<std::uint32_t>& b, const std::vector<std::uint32_t>& c) {
    if (auto* item = writeItem(channel)) {
        item->SetSecondColorRanges(count, a, b, c);
    }
}
void OLDataSource::GetSecondColorRanges(unsigned channel, std::uint32_t& count, std::vector<std::uint32_t>& a,
                                        std::vector<std::uint32_t>& b, std::vector<std::uint32_t>& c) const {
    readItem(channel).GetSecondColorRanges(count, a, b, c);
}

// ---- channel texts -------------------------------------------------------------

std::string OLDataSource::GetDataTypeDesc(unsigned channel) const { return readItem(channel).GetDataTypeDesc(); }
void OLDataSource::SetDataTypeDesc(unsigned channel, std::string text) {
    if (auto* item = writeItem(channel)) {
        item->SetDataTypeDesc(std::move(text));
    }
}
std::string OLDataSource::GetDataName(unsigned channel) const { return readItem(channel).GetDataName(); }
std::string OLDataSource::GetLineDirection(unsigned channel) const { return readItem(channel).GetLineDirection(); }
std::string OLDataSource::GetFrameDirection(unsigned channel) const { return readItem(channel).GetFrameDirection(); }
std::uint32_t OLDataSource::GetCaptureStartLine(unsigned channel) const {
    return readItem(channel).GetCaptureStartLine();
}
std::string OLDataSource::GetScanLine(unsigned channel) const { return readItem(channel).GetScanLine(); }
std::string OLDataSource::GetNote(unsigned channel) const { return readItem(channel).GetNote(); }

void OLDataSource::SetNoteOfAll(std::string text) {
    for (int c = 0; c < numberOfChannels && static_cast<std::size_t>(c) < items.size(); ++c) {
        items[static_cast<std::size_t>(c)].SetNote(text);
    }
}

void OLDataSource::SetDataName(unsigned channel, std::string name) {
    if (validChannel(channel)) {
        items[channel].SetDataName(std::move(name));
    }
}

// ---- channel parameters -----------------------------------------------------------

int OLDataSource::GetChannelFileIndex(unsigned channel) const {
    return validChannel(channel) ? static_cast<int>(channel) : -1;
}
std::uint32_t OLDataSource::GetDataLength(unsigned channel) const { return readItem(channel).GetDataLength(); }
std::uint32_t OLDataSource::GetChannelUserValue(unsigned channel) const { return readItem(channel).GetItemTag(); }
void OLDataSource::SetChannelUserValue(unsigned channel, std::uint32_t value) {
    if (auto* item = writeItem(channel)) {
        item->SetItemTag(value);
    }
}
std::uint32_t OLDataSource::GetValidStartX(unsigned channel) const { return readItem(channel).GetValidStartX(); }
std::uint32_t OLDataSource::GetValidStartY(unsigned channel) const { return readItem(channel).GetValidStartY(); }
std::uint32_t OLDataSource::GetValidLenX(unsigned channel) const { return readItem(channel).GetValidLenX(); }
std::uint32_t OLDataSource::GetValidLenY(unsigned channel) const { return readItem(channel).GetValidLenY(); }

// The largest count of the channel's sample width.
std::int64_t OLDataSource::GetChannelRawHalfRange(unsigned channel) const {
    const std::uint32_t bits = readItem(channel).GetScaleBits();
    if (bits < 1 || bits > 63) {
        return 0;
    }
    return (std::int64_t{1} << (bits - 1)) - 1;
}

// ---- plane fit and ramps -------------------------------------------------------------

void OLDataSource::GetRawRange(unsigned channel, std::int32_t* min, std::int32_t* max) const {
    readItem(channel).GetRawRange(min, max);
}
PlaneFitSettings OLDataSource::GetPlanefitSettings(unsigned channel) const {
    return readItem(channel).GetPlanefitSettings();
}
std::string OLDataSource::GetPlanefitDesc(unsigned channel) const { return readItem(channel).GetPlanefitDesc(); }
std::int64_t OLDataSource::GetValue1(unsigned channel) const { return readItem(channel).GetValue1(); }
void OLDataSource::SetValue1(unsigned channel, std::int64_t value) {
    if (auto* item = writeItem(channel)) {
        item->SetValue1(value);
    }
}
std::int64_t OLDataSource::GetValue2(unsigned channel) const { return readItem(channel).GetValue2(); }
void OLDataSource::SetValue2(unsigned channel, std::int64_t value) {
    if (auto* item = writeItem(channel)) {
        item->SetValue2(value);
    }
}
UValue OLDataSource::GetForceZOffset(unsigned channel, bool scaled) const {
    return readItem(channel).GetForceZOffset(scaled);
}
UValue OLDataSource::GetRampBegin(unsigned channel, bool scaled) const { return readItem(channel).GetRampBegin(scaled); }
UValue OLDataSource::GetRampEnd(unsigned channel, bool scaled) const { return readItem(channel).GetRampEnd(scaled); }
UValue OLDataSource::GetRampSize(unsigned channel, bool scaled) const { return readItem(channel).GetRampSize(scaled); }
std::uint32_t OLDataSource::GetNumberOfPointsPerCurve(unsigned channel) const {
    return readItem(channel).GetNumberOfPointsPerCurve();
}
double OLDataSource::GetForcePhaseOffset(unsigned channel) const { return readItem(channel).GetForcePhaseOffset(); }
void OLDataSource::SetForcePhaseOffset(unsigned channel, double offset) {
    if (auto* item = writeItem(channel)) {
        item->SetForcePhaseOffset(offset);
    }
}
std::uint32_t OLDataSource::GetAvePoints(unsigned channel) const { return readItem(channel).GetAvePoints(); }
void OLDataSource::SetAvePoints(unsigned channel, std::uint32_t points) {
    if (auto* item = writeItem(channel)) {
        item->SetAvePoints(points);
    }
}
std::uint32_t OLDataSource::GetEffectiveBw(unsigned channel) const { return readItem(channel).GetEffectiveBw(); }
double OLDataSource::GetForceSpringConstant(unsigned channel) const {
    return readItem(channel).GetForceSpringConstant();
}
void OLDataSource::SetForceSpringConstant(unsigned channel, double value) {
    if (auto* item = writeItem(channel)) {
        item->SetForceSpringConstant(value);
    }
}
std::uint32_t OLDataSource::GetTracePoints(unsigned channel) const { return readItem(channel).GetTracePoints(); }
std::uint32_t OLDataSource::GetRetracePoints(unsigned channel) const { return readItem(channel).GetRetracePoints(); }
std::string OLDataSource::GetInvert(unsigned channel) const { return readItem(channel).GetInvert(); }
void OLDataSource::SetInvert(unsigned channel, std::string text) {
    if (auto* item = writeItem(channel)) {
        item->SetInvert(std::move(text));
    }
}
std::string OLDataSource::GetForceDisplayMode(unsigned channel) const {
    return readItem(channel).GetForceDisplayMode();
}
void OLDataSource::SetForceDisplayMode(unsigned channel, std::string text) {
    if (auto* item = writeItem(channel)) {
        item->SetForceDisplayMode(std::move(text));
    }
}
std::string OLDataSource::GetXDataType(unsigned channel) const { return readItem(channel).GetXDataType(); }
void OLDataSource::SetXDataType(unsigned channel, std::string text) {
    if (auto* item = writeItem(channel)) {
        item->SetXDataType(std::move(text));
    }
}

double OLDataSource::GetForwardRampVelocity(unsigned channel, bool scaled) const {
    return scaled ? forwardVelocity * readItem(channel).GetRampSensitivity() : forwardVelocity;
}
double OLDataSource::GetReverseRampVelocity(unsigned channel, bool scaled) const {
    return scaled ? reverseVelocity * readItem(channel).GetRampSensitivity() : reverseVelocity;
}

bool OLDataSource::GetChannelHoldFlag(unsigned channel) const { return readItem(channel).GetHoldFlag(); }
void OLDataSource::SetChannelHoldFlag(unsigned channel, bool flag) {
    if (auto* item = writeItem(channel)) {
        item->SetHoldFlag(flag);
    }
}

// ---- tip geometry: the copies that every item carries ------------------------------------

double OLDataSource::GetTipRadius(unsigned channel) const { return readItem(channel).GetTipRadius(); }
void OLDataSource::SetTipRadius(unsigned channel, double value) {
    if (auto* item = writeItem(channel)) {
        item->SetTipRadius(value);
    }
}
double OLDataSource::GetPoissonRatio(unsigned channel) const { return readItem(channel).GetSamplePoissonRatio(); }
void OLDataSource::SetPoissonRatio(unsigned channel, double value) {
    if (auto* item = writeItem(channel)) {
        item->SetSamplePoissonRatio(value);
    }
}
double OLDataSource::GetHalfAngle(unsigned channel) const { return readItem(channel).GetTipHalfAngle(); }
void OLDataSource::SetHalfAngle(unsigned channel, double value) {
    if (auto* item = writeItem(channel)) {
        item->SetTipHalfAngle(value);
    }
}

UValue OLDataSource::GetSecondScale(unsigned channel, bool scaled) const {
    return readItem(channel).GetSecondScale(scaled);
}
UValue OLDataSource::GetThirdScale(unsigned channel, bool scaled) const {
    return readItem(channel).GetThirdScale(scaled);
}
void OLDataSource::SetScaledRange(unsigned channel, UValue value, bool scaled) {
    if (auto* item = writeItem(channel)) {
        item->SetThirdScale(std::move(value), scaled);
    }
}
double OLDataSource::GetSecondScaleFactor(unsigned channel) const { return readItem(channel).GetSecondScaleFactor(); }
double OLDataSource::GetSecondScaleFraction(unsigned channel) const {
    return readItem(channel).GetSecondScaleFraction();
}

// ---- per-channel extras --------------------------------------------------------------------

std::uint32_t OLDataSource::GetHighSpeedSamples(unsigned channel) const {
    return readItem(channel).GetHighSpeedSamples();
}
std::string OLDataSource::GetHighSpeedDataType(unsigned channel) const {
    return readItem(channel).GetHighSpeedDataType();
}
double OLDataSource::GetHsdcRateValue(unsigned channel) const { return readItem(channel).GetHsdcRate(); }
std::string OLDataSource::GetEcFunction(unsigned channel) const { return readItem(channel).GetEcFunction(); }

// ---- item overrides and angles -----------------------------------------------------------

std::string OLDataSource::GetPlistName(unsigned channel) const { return readItem(channel).GetPlistName(); }
bool OLDataSource::HasRangeOverride(unsigned channel) const { return readItem(channel).HasRangeOverride(); }
void OLDataSource::SetOverrideMin(unsigned channel, float value) {
    if (auto* item = writeItem(channel)) {
        item->SetOverrideMin(value);
    }
}
// Metric overrides are in the unit of the channel's scaled data scale, the
// others in its hardware unit.
void OLDataSource::GetOverrideMin(unsigned channel, float* out, bool metric) const {
    const auto& item = readItem(channel);
    item.GetOverrideMin(out, metric ? item.GetDataScale(true).GetUnits()->GetName() : item.GetDataScaleName());
}
float OLDataSource::GetOverrideMinRaw(unsigned channel) const { return readItem(channel).GetOverrideMinRaw(); }
void OLDataSource::SetOverrideMax(unsigned channel, float value) {
    if (auto* item = writeItem(channel)) {
        item->SetOverrideMax(value);
    }
}
void OLDataSource::GetOverrideMax(unsigned channel, float* out, bool metric) const {
    const auto& item = readItem(channel);
    item.GetOverrideMax(out, metric ? item.GetDataScale(true).GetUnits()->GetName() : item.GetDataScaleName());
}
float OLDataSource::GetOverrideMaxRaw(unsigned channel) const { return readItem(channel).GetOverrideMaxRaw(); }
void OLDataSource::SetOverrideUnits(unsigned channel, std::string units) {
    if (auto* item = writeItem(channel)) {
        item->SetOverrideUnits(std::move(units));
    }
}
std::string OLDataSource::GetOverrideUnits(unsigned channel) const { return readItem(channel).GetOverrideUnits(); }
bool OLDataSource::GetItemFlag(unsigned channel) const { return readItem(channel).GetItemFlag(); }
void OLDataSource::SetItemFlag(unsigned channel, bool flag) {
    if (auto* item = writeItem(channel)) {
        item->SetItemFlag(flag);
    }
}
void OLDataSource::GetHalfAngles(unsigned channel, float& first, float& second) const {
    readItem(channel).GetHalfAngles(first, second);
}
void OLDataSource::SetHalfAngles(unsigned channel, float first, float second) {
    if (auto* item = writeItem(channel)) {
        item->SetHalfAngles(first, second);
    }
}
