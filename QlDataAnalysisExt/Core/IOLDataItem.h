#pragma once

// The interface of one channel of an opened file. Every operation is abstract;
// OLDataItem is the one implementation.

#include "Platform/FrameworkObject.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Orx::Core {
class Archive;
}

class IOLDataItem : public Orx::Core::FrameworkObject {
public:
    const Orx::Core::RuntimeClass* GetRuntimeClass() const override = 0;
    ~IOLDataItem() override = default;
    virtual void Serialize(Orx::Core::Archive& archive) = 0;
    virtual void AssertValid() const = 0;
    virtual void Dump() const = 0;
    virtual void ReadRecord(Orx::Core::Archive& archive) = 0;
    virtual void WriteRecord(Orx::Core::Archive& archive) const = 0;
    virtual std::uint32_t GetNumberOfLines() const = 0;
    virtual std::uint32_t GetSamplesPerLine() const = 0;
    virtual std::uint32_t GetDataSize() const = 0;
    virtual UValue GetScanSize() const = 0;
    virtual float GetAspectRatio() const = 0;
    virtual float GetZMagnify() const = 0;
    virtual void SetZMagnify(float magnify) = 0;
    virtual UValue GetZRange(bool soft) const = 0;
    virtual double RawToValue(std::int64_t raw, bool soft) const = 0;
    virtual std::int64_t ValueToRaw(double value, bool soft) const = 0;
    virtual std::int64_t GetZOffset() const = 0;
    virtual void SetZOffset(std::int64_t offset) = 0;
    virtual float GetZScaleInSwUnits() const = 0;
    virtual float GetZScaleInHwUnits() const = 0;
    virtual float GetScalingFactor() const = 0;
    virtual double GetZSensitivitySoftScale() const = 0;
    virtual std::string GetZSensitivityUnits() const = 0;
    virtual std::string GetZSensitivityName() const = 0;
    virtual std::string GetZSensitivitySection() const = 0;
    virtual void SetZSensitivitySoftScale(double value) = 0;
    virtual void SetZSensitivityUnits(std::string units) = 0;
    virtual void SetZScaleInSwUnits(float scale) = 0;
    virtual void SetZScaleInHwUnits(float scale) = 0;
    virtual UValue GetDataScale(bool soft) const = 0;
    virtual void SetDataScale(UValue value, bool soft) = 0;
    virtual std::uint32_t GetDisplayRangeMode() const = 0;
    virtual void SetDisplayRangeMode(std::uint32_t mode) = 0;
    virtual void GetColorTableSettings(std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const = 0;
    virtual void SetColorTableSettings(std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) = 0;
    virtual void SetHasColorTable(bool has) = 0;
    virtual bool HasColorTable() const = 0;
    virtual ColorTableObject GetColorTable() const = 0;
    virtual void SetColorTable(const ColorTableObject& table) = 0;
    virtual void SetColorEntries(const ColorEntries& entries) = 0;
    virtual ColorEntry* GetColorEntries() = 0;
    virtual void SetColorRanges(std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) = 0;
    virtual void GetColorRanges(std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const = 0;
    virtual void SetDisplayRange(bool isExplicit, double min, double max, bool soft) = 0;
    virtual bool GetDisplayRange(double* min, double* max, bool soft) = 0;
    virtual void SetDisplayFlag(bool flag) = 0;
    virtual bool GetDisplayFlag() const = 0;
    virtual void GetPercentileRange(double* min, double* max, bool soft) const = 0;
    virtual void GetFullRange(double* min, double* max, bool soft) const = 0;
    virtual void GetRawRange(std::int32_t* min, std::int32_t* max) const = 0;
    virtual void SetSecondDisplayRange(bool isExplicit, double min, double max, bool soft) = 0;
    virtual bool GetSecondDisplayRange(double* min, double* max, bool soft) = 0;
    virtual void GetSecondPercentileRange(const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const = 0;
    virtual void GetSecondFullRange(const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const = 0;
    virtual void GetSecondColorTableSettings(std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const = 0;
    virtual void SetSecondColorTableSettings(std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) = 0;
    virtual void SetHasSecondColorTable(bool has) = 0;
    virtual bool HasSecondColorTable() const = 0;
    virtual ColorTableObject GetSecondColorTable() const = 0;
    virtual void SetSecondColorTable(const ColorTableObject& table) = 0;
    virtual void SetSecondColorEntries(const ColorEntries& entries) = 0;
    virtual ColorEntry* GetSecondColorEntries() = 0;
    virtual void SetSecondColorRanges(std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) = 0;
    virtual void GetSecondColorRanges(std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const = 0;
    virtual std::string GetMagnifyText() const = 0;
    virtual void SetMagnifyText(std::string text) = 0;
    virtual std::string GetSensitivityText() const = 0;
    virtual void SetSensitivityText(std::string text) = 0;
    virtual std::string GetDataScaleName() const = 0;
    virtual std::string GetZText() const = 0;
    virtual void SetZText(std::string text) = 0;
    virtual std::string GetDataTypeDesc() const = 0;
    virtual void SetDataTypeDesc(std::string text) = 0;
    virtual std::string GetDataName() const = 0;
    virtual std::string GetLineDirection() const = 0;
    virtual std::string GetScanLine() const = 0;
    virtual std::string GetReservedText() const = 0;
    virtual std::string GetNote() const = 0;
    virtual void SetNote(std::string text) = 0;
    virtual void SetDataName(std::string text) = 0;
    virtual void SetFromLoadRecord(const OLDataItemLoadRecord& record) = 0;
    virtual void SetData(std::int32_t* data, std::uint32_t size) = 0;
    virtual void SetScanSize(UValue size) = 0;
    virtual void SetSamplesPerLine(std::uint32_t samples) = 0;
    virtual void SetAspectRatio(float ratio) = 0;
    virtual void SetNumberOfLines(std::uint32_t lines) = 0;
    virtual std::int32_t* GetData() const = 0;
    virtual std::uint32_t GetValidStartX() const = 0;
    virtual std::uint32_t GetValidStartY() const = 0;
    virtual std::uint32_t GetValidLenX() const = 0;
    virtual std::uint32_t GetValidLenY() const = 0;
    virtual std::uint32_t GetFileBytesPerPixel() const = 0;
    virtual void SetFileBytesPerPixel(std::uint32_t bytes) = 0;
    virtual void SetBytesPerPixel(std::uint32_t bytes) = 0;
    virtual PlaneFitSettings GetPlanefitSettings() const = 0;
    virtual std::string GetPlanefitDesc() const = 0;
    virtual std::int64_t GetValue1() const = 0;
    virtual void SetValue1(std::int64_t value) = 0;
    virtual std::int64_t GetValue2() const = 0;
    virtual void SetValue2(std::int64_t value) = 0;
    virtual UValue GetForceZOffset(bool scaled) const = 0;
    virtual void ResetForceZOffsetSensitivity() = 0;
    virtual UValue GetRampBegin(bool scaled) const = 0;
    virtual UValue GetRampEnd(bool scaled) const = 0;
    virtual UValue GetRampSize(bool scaled) const = 0;
    virtual double GetRampSensitivity() const = 0;
    virtual std::uint32_t GetNumberOfPointsPerCurve() const = 0;
    virtual double GetForcePhaseOffset() const = 0;
    virtual void SetForcePhaseOffset(double offset) = 0;
    virtual std::uint32_t GetAvePoints() const = 0;
    virtual void SetAvePoints(std::uint32_t points) = 0;
    virtual std::uint32_t GetEffectiveBw() const = 0;
    virtual double GetForceSpringConstant() const = 0;
    virtual void SetForceSpringConstant(double value) = 0;
    virtual std::uint32_t GetRetracePoints() const = 0;
    virtual std::uint32_t GetTracePoints() const = 0;
    virtual std::string GetInvert() const = 0;
    virtual void SetInvert(std::string text) = 0;
    virtual std::string GetForceDisplayMode() const = 0;
    virtual void SetForceDisplayMode(std::string text) = 0;
    virtual std::string GetXDataType() const = 0;
    virtual void SetXDataType(std::string text) = 0;
    virtual std::int32_t* GetHoldDataPointer(std::uint32_t curve, std::uint32_t half) const = 0;
    virtual UValue GetSecondScale(bool scaled) const = 0;
    virtual UValue GetThirdScale(bool scaled) const = 0;
    virtual void SetThirdScale(UValue value, bool scaled) = 0;
    virtual double GetSecondScaleFactor() const = 0;
    virtual double GetSecondScaleFraction() const = 0;
    virtual std::uint32_t GetHighSpeedSamples() const = 0;
    virtual std::string GetHighSpeedDataType() const = 0;
    virtual double GetHsdcRate() const = 0;
    virtual std::string GetEcFunction() const = 0;
    virtual std::string GetPlistName() const = 0;
    virtual bool HasRangeOverride() const = 0;
    virtual void SetOverrideMin(float value) = 0;
    virtual void GetOverrideMin(float* out, const std::string& units) const = 0;
    virtual float GetOverrideMinRaw() const = 0;
    virtual void SetOverrideMax(float value) = 0;
    virtual void GetOverrideMax(float* out, const std::string& units) const = 0;
    virtual float GetOverrideMaxRaw() const = 0;
    virtual void SetOverrideUnits(std::string units) = 0;
    virtual std::string GetOverrideUnits() const = 0;
    virtual bool GetItemFlag() const = 0;
    virtual void SetItemFlag(bool flag) = 0;
    virtual void GetHalfAngles(float& first, float& second) const = 0;
    virtual void SetHalfAngles(float first, float second) = 0;
    virtual void SetItemValue(double value) = 0;
    virtual double GetItemValue() const = 0;
    virtual void SetItemFlag2(bool flag) = 0;
    virtual bool GetItemFlag2() const = 0;};
