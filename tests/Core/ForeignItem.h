#pragma once

// An item of the interface that is not an OLDataItem: every operation answers
// a default and changes nothing. Operations that take an item must refuse it.

#include "QlDataAnalysisExt/Core/IOLDataItem.h"

class ForeignItem final : public IOLDataItem {
public:
    const Orx::Core::RuntimeClass* GetRuntimeClass() const override {
        static const Orx::Core::RuntimeClass runtimeClass{"ForeignItem", 1, false, nullptr};
        return &runtimeClass;
    }
    void Serialize(Orx::Core::Archive&) override {}
    void AssertValid() const override {}
    void Dump() const override {}
    void ReadRecord(Orx::Core::Archive&) override {}
    void WriteRecord(Orx::Core::Archive&) const override {}
    std::uint32_t GetNumberOfLines() const override { return {}; }
    std::uint32_t GetSamplesPerLine() const override { return {}; }
    std::uint32_t GetDataSize() const override { return {}; }
    UValue GetScanSize() const override { return {}; }
    float GetAspectRatio() const override { return {}; }
    float GetZMagnify() const override { return {}; }
    void SetZMagnify(float) override {}
    UValue GetZRange(bool) const override { return {}; }
    double RawToValue(std::int64_t, bool) const override { return {}; }
    std::int64_t ValueToRaw(double, bool) const override { return {}; }
    std::int64_t GetZOffset() const override { return {}; }
    void SetZOffset(std::int64_t) override {}
    float GetZScaleInSwUnits() const override { return {}; }
    float GetZScaleInHwUnits() const override { return {}; }
    float GetScalingFactor() const override { return {}; }
    double GetZSensitivitySoftScale() const override { return {}; }
    std::string GetZSensitivityUnits() const override { return {}; }
    std::string GetZSensitivityName() const override { return {}; }
    std::string GetZSensitivitySection() const override { return {}; }
    void SetZSensitivitySoftScale(double) override {}
    void SetZSensitivityUnits(std::string) override {}
    void SetZScaleInSwUnits(float) override {}
    void SetZScaleInHwUnits(float) override {}
    UValue GetDataScale(bool) const override { return {}; }
    void SetDataScale(UValue, bool) override {}
    std::uint32_t GetDisplayRangeMode() const override { return {}; }
    void SetDisplayRangeMode(std::uint32_t) override {}
    void GetColorTableSettings(std::int32_t&, std::uint32_t&, std::uint32_t&, bool&) const override {}
    void SetColorTableSettings(std::int32_t, std::uint32_t, std::uint32_t, bool) override {}
    void SetHasColorTable(bool) override {}
    bool HasColorTable() const override { return {}; }
    ColorTableObject GetColorTable() const override { return {}; }
    void SetColorTable(const ColorTableObject&) override {}
    void SetColorEntries(const ColorEntries&) override {}
    ColorEntry* GetColorEntries() override { return {}; }
    void SetColorRanges(std::uint32_t, const std::vector<std::uint32_t>&, const std::vector<std::uint32_t>&, const std::vector<std::uint32_t>&) override {}
    void GetColorRanges(std::uint32_t&, std::vector<std::uint32_t>&, std::vector<std::uint32_t>&, std::vector<std::uint32_t>&) const override {}
    void SetDisplayRange(bool, double, double, bool) override {}
    bool GetDisplayRange(double*, double*, bool) override { return {}; }
    void SetDisplayFlag(bool) override {}
    bool GetDisplayFlag() const override { return {}; }
    void GetPercentileRange(double*, double*, bool) const override {}
    void GetFullRange(double*, double*, bool) const override {}
    void GetRawRange(std::int32_t*, std::int32_t*) const override {}
    void SetSecondDisplayRange(bool, double, double, bool) override {}
    bool GetSecondDisplayRange(double*, double*, bool) override { return {}; }
    void GetSecondPercentileRange(const std::int32_t*, std::uint32_t, double*, double*) const override {}
    void GetSecondFullRange(const std::int32_t*, std::uint32_t, double*, double*) const override {}
    void GetSecondColorTableSettings(std::int32_t&, std::uint32_t&, std::uint32_t&, bool&) const override {}
    void SetSecondColorTableSettings(std::int32_t, std::uint32_t, std::uint32_t, bool) override {}
    void SetHasSecondColorTable(bool) override {}
    bool HasSecondColorTable() const override { return {}; }
    ColorTableObject GetSecondColorTable() const override { return {}; }
    void SetSecondColorTable(const ColorTableObject&) override {}
    void SetSecondColorEntries(const ColorEntries&) override {}
    ColorEntry* GetSecondColorEntries() override { return {}; }
    void SetSecondColorRanges(std::uint32_t, const std::vector<std::uint32_t>&, const std::vector<std::uint32_t>&, const std::vector<std::uint32_t>&) override {}
    void GetSecondColorRanges(std::uint32_t&, std::vector<std::uint32_t>&, std::vector<std::uint32_t>&, std::vector<std::uint32_t>&) const override {}
    std::string GetMagnifyText() const override { return {}; }
    void SetMagnifyText(std::string) override {}
    std::string GetSensitivityText() const override { return {}; }
    void SetSensitivityText(std::string) override {}
    std::string GetDataScaleName() const override { return {}; }
    std::string GetZText() const override { return {}; }
    void SetZText(std::string) override {}
    std::string GetDataTypeDesc() const override { return {}; }
    void SetDataTypeDesc(std::string) override {}
    std::string GetDataName() const override { return {}; }
    std::string GetLineDirection() const override { return {}; }
    std::string GetScanLine() const override { return {}; }
    std::string GetReservedText() const override { return {}; }
    std::string GetNote() const override { return {}; }
    void SetNote(std::string) override {}
    void SetDataName(std::string) override {}
    void SetFromLoadRecord(const OLDataItemLoadRecord&) override {}
    void SetData(std::int32_t*, std::uint32_t) override {}
    void SetScanSize(UValue) override {}
    void SetSamplesPerLine(std::uint32_t) override {}
    void SetAspectRatio(float) override {}
    void SetNumberOfLines(std::uint32_t) override {}
    std::int32_t* GetData() const override { return {}; }
    std::uint32_t GetValidStartX() const override { return {}; }
    std::uint32_t GetValidStartY() const override { return {}; }
    std::uint32_t GetValidLenX() const override { return {}; }
    std::uint32_t GetValidLenY() const override { return {}; }
    std::uint32_t GetFileBytesPerPixel() const override { return {}; }
    void SetFileBytesPerPixel(std::uint32_t) override {}
    void SetBytesPerPixel(std::uint32_t) override {}
    PlaneFitSettings GetPlanefitSettings() const override { return {}; }
    std::string GetPlanefitDesc() const override { return {}; }
    std::int64_t GetValue1() const override { return {}; }
    void SetValue1(std::int64_t) override {}
    std::int64_t GetValue2() const override { return {}; }
    void SetValue2(std::int64_t) override {}
    UValue GetForceZOffset(bool) const override { return {}; }
    void ResetForceZOffsetSensitivity() override {}
    UValue GetRampBegin(bool) const override { return {}; }
    UValue GetRampEnd(bool) const override { return {}; }
    UValue GetRampSize(bool) const override { return {}; }
    double GetRampSensitivity() const override { return {}; }
    std::uint32_t GetNumberOfPointsPerCurve() const override { return {}; }
    double GetForcePhaseOffset() const override { return {}; }
    void SetForcePhaseOffset(double) override {}
    std::uint32_t GetAvePoints() const override { return {}; }
    void SetAvePoints(std::uint32_t) override {}
    std::uint32_t GetEffectiveBw() const override { return {}; }
    double GetForceSpringConstant() const override { return {}; }
    void SetForceSpringConstant(double) override {}
    std::uint32_t GetRetracePoints() const override { return {}; }
    std::uint32_t GetTracePoints() const override { return {}; }
    std::string GetInvert() const override { return {}; }
    void SetInvert(std::string) override {}
    std::string GetForceDisplayMode() const override { return {}; }
    void SetForceDisplayMode(std::string) override {}
    std::string GetXDataType() const override { return {}; }
    void SetXDataType(std::string) override {}
    std::int32_t* GetHoldDataPointer(std::uint32_t, std::uint32_t) const override { return {}; }
    UValue GetSecondScale(bool) const override { return {}; }
    UValue GetThirdScale(bool) const override { return {}; }
    void SetThirdScale(UValue, bool) override {}
    double GetSecondScaleFactor() const override { return {}; }
    double GetSecondScaleFraction() const override { return {}; }
    std::uint32_t GetHighSpeedSamples() const override { return {}; }
    std::string GetHighSpeedDataType() const override { return {}; }
    double GetHsdcRate() const override { return {}; }
    std::string GetEcFunction() const override { return {}; }
    std::string GetPlistName() const override { return {}; }
    bool HasRangeOverride() const override { return {}; }
    void SetOverrideMin(float) override {}
    void GetOverrideMin(float*, const std::string&) const override {}
    float GetOverrideMinRaw() const override { return {}; }
    void SetOverrideMax(float) override {}
    void GetOverrideMax(float*, const std::string&) const override {}
    float GetOverrideMaxRaw() const override { return {}; }
    void SetOverrideUnits(std::string) override {}
    std::string GetOverrideUnits() const override { return {}; }
    bool GetItemFlag() const override { return {}; }
    void SetItemFlag(bool) override {}
    void GetHalfAngles(float&, float&) const override {}
    void SetHalfAngles(float, float) override {}
    void SetItemValue(double) override {}
    double GetItemValue() const override { return {}; }
    void SetItemFlag2(bool) override {}
    bool GetItemFlag2() const override { return {}; }
};
