#pragma once

// One channel of an opened file: its size, scales, units, texts, two display
// settings and a borrowed buffer of 32-bit samples. The same class serves image,
// force and high-speed channels; the family fills the fields its kind needs.
//
// Sources: OLDataItem.cpp (record, texts, plain accessors), OLDataItemScale.cpp
// (conversions, scales, ranges), OLDataItemDisplay.cpp (display and colour
// settings), OLDataItemArchive.cpp (the archive record).

#include "QlDataAnalysisExt/Core/IOLDataItem.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

class OLDataItem : public IOLDataItem {
public:
    static const Orx::Core::RuntimeClass runtimeClass;  // "OLDataItem", schema 19
    static constexpr std::uint32_t kSchema = 19;

    OLDataItem() = default;
    // Copies every field; the sample buffer is shared only when dataSize is not 0.
    OLDataItem(const OLDataItem& other);
    OLDataItem& operator=(const OLDataItem& other);

    ~OLDataItem() override = default;
    const Orx::Core::RuntimeClass* GetRuntimeClass() const override;
    void Serialize(Orx::Core::Archive& archive) override;
    void AssertValid() const override;
    void Dump() const override;
    void ReadRecord(Orx::Core::Archive& archive) override;
    void WriteRecord(Orx::Core::Archive& archive) const override;
    std::uint32_t GetNumberOfLines() const override;
    std::uint32_t GetSamplesPerLine() const override;
    std::uint32_t GetDataSize() const override;
    UValue GetScanSize() const override;
    float GetAspectRatio() const override;
    float GetZMagnify() const override;
    void SetZMagnify(float magnify) override;
    UValue GetZRange(bool soft) const override;
    double RawToValue(std::int64_t raw, bool soft) const override;
    std::int64_t ValueToRaw(double value, bool soft) const override;
    std::int64_t GetZOffset() const override;
    void SetZOffset(std::int64_t offset) override;
    float GetZScaleInSwUnits() const override;
    float GetZScaleInHwUnits() const override;
    float GetScalingFactor() const override;
    double GetZSensitivitySoftScale() const override;
    std::string GetZSensitivityUnits() const override;
    std::string GetZSensitivityName() const override;
    std::string GetZSensitivitySection() const override;
    void SetZSensitivitySoftScale(double value) override;
    void SetZSensitivityUnits(std::string units) override;
    void SetZScaleInSwUnits(float scale) override;
    void SetZScaleInHwUnits(float scale) override;
    UValue GetDataScale(bool soft) const override;
    void SetDataScale(UValue value, bool soft) override;
    std::uint32_t GetDisplayRangeMode() const override;
    void SetDisplayRangeMode(std::uint32_t mode) override;
    void GetColorTableSettings(std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const override;
    void SetColorTableSettings(std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) override;
    void SetHasColorTable(bool has) override;
    bool HasColorTable() const override;
    ColorTableObject GetColorTable() const override;
    void SetColorTable(const ColorTableObject& table) override;
    void SetColorEntries(const ColorEntries& entries) override;
    ColorEntry* GetColorEntries() override;
    void SetColorRanges(std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) override;
    void GetColorRanges(std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const override;
    void SetDisplayRange(bool isExplicit, double min, double max, bool soft) override;
    bool GetDisplayRange(double* min, double* max, bool soft) override;
    void SetDisplayFlag(bool flag) override;
    bool GetDisplayFlag() const override;
    void GetPercentileRange(double* min, double* max, bool soft) const override;
    void GetFullRange(double* min, double* max, bool soft) const override;
    void GetRawRange(std::int32_t* min, std::int32_t* max) const override;
    void SetSecondDisplayRange(bool isExplicit, double min, double max, bool soft) override;
    bool GetSecondDisplayRange(double* min, double* max, bool soft) override;
    void GetSecondPercentileRange(const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const override;
    void GetSecondFullRange(const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const override;
    void GetSecondColorTableSettings(std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const override;
    void SetSecondColorTableSettings(std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) override;
    void SetHasSecondColorTable(bool has) override;
    bool HasSecondColorTable() const override;
    ColorTableObject GetSecondColorTable() const override;
    void SetSecondColorTable(const ColorTableObject& table) override;
    void SetSecondColorEntries(const ColorEntries& entries) override;
    ColorEntry* GetSecondColorEntries() override;
    void SetSecondColorRanges(std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) override;
    void GetSecondColorRanges(std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const override;
    std::string GetMagnifyText() const override;
    void SetMagnifyText(std::string text) override;
    std::string GetSensitivityText() const override;
    void SetSensitivityText(std::string text) override;
    std::string GetDataScaleName() const override;
    std::string GetZText() const override;
    void SetZText(std::string text) override;
    std::string GetDataTypeDesc() const override;
    void SetDataTypeDesc(std::string text) override;
    std::string GetDataName() const override;
    std::string GetLineDirection() const override;
    std::string GetScanLine() const override;
    std::string GetReservedText() const override;
    std::string GetNote() const override;
    void SetNote(std::string text) override;
    void SetDataName(std::string text) override;
    void SetFromLoadRecord(const OLDataItemLoadRecord& record) override;
    void SetData(std::int32_t* data, std::uint32_t size) override;
    void SetScanSize(UValue size) override;
    void SetSamplesPerLine(std::uint32_t samples) override;
    void SetAspectRatio(float ratio) override;
    void SetNumberOfLines(std::uint32_t lines) override;
    std::int32_t* GetData() const override;
    std::uint32_t GetValidStartX() const override;
    std::uint32_t GetValidStartY() const override;
    std::uint32_t GetValidLenX() const override;
    std::uint32_t GetValidLenY() const override;
    std::uint32_t GetFileBytesPerPixel() const override;
    void SetFileBytesPerPixel(std::uint32_t bytes) override;
    void SetBytesPerPixel(std::uint32_t bytes) override;
    PlaneFitSettings GetPlanefitSettings() const override;
    std::string GetPlanefitDesc() const override;
    std::int64_t GetValue1() const override;
    void SetValue1(std::int64_t value) override;
    std::int64_t GetValue2() const override;
    void SetValue2(std::int64_t value) override;
    UValue GetForceZOffset(bool scaled) const override;
    void ResetForceZOffsetSensitivity() override;
    UValue GetRampBegin(bool scaled) const override;
    UValue GetRampEnd(bool scaled) const override;
    UValue GetRampSize(bool scaled) const override;
    double GetRampSensitivity() const override;
    std::uint32_t GetNumberOfPointsPerCurve() const override;
    double GetForcePhaseOffset() const override;
    void SetForcePhaseOffset(double offset) override;
    std::uint32_t GetAvePoints() const override;
    void SetAvePoints(std::uint32_t points) override;
    std::uint32_t GetEffectiveBw() const override;
    double GetForceSpringConstant() const override;
    void SetForceSpringConstant(double value) override;
    std::uint32_t GetRetracePoints() const override;
    std::uint32_t GetTracePoints() const override;
    std::string GetInvert() const override;
    void SetInvert(std::string text) override;
    std::string GetForceDisplayMode() const override;
    void SetForceDisplayMode(std::string text) override;
    std::string GetXDataType() const override;
    void SetXDataType(std::string text) override;
    std::int32_t* GetHoldDataPointer(std::uint32_t curve, std::uint32_t half) const override;
    UValue GetSecondScale(bool scaled) const override;
    UValue GetThirdScale(bool scaled) const override;
    void SetThirdScale(UValue value, bool scaled) override;
    double GetSecondScaleFactor() const override;
    double GetSecondScaleFraction() const override;
    std::uint32_t GetHighSpeedSamples() const override;
    std::string GetHighSpeedDataType() const override;
    double GetHsdcRate() const override;
    std::string GetEcFunction() const override;
    std::string GetPlistName() const override;
    bool HasRangeOverride() const override;
    void SetOverrideMin(float value) override;
    void GetOverrideMin(float* out, const std::string& units) const override;
    float GetOverrideMinRaw() const override;
    void SetOverrideMax(float value) override;
    void GetOverrideMax(float* out, const std::string& units) const override;
    float GetOverrideMaxRaw() const override;
    void SetOverrideUnits(std::string units) override;
    std::string GetOverrideUnits() const override;
    bool GetItemFlag() const override;
    void SetItemFlag(bool flag) override;
    void GetHalfAngles(float& first, float& second) const override;
    void SetHalfAngles(float first, float second) override;
    void SetItemValue(double value) override;
    double GetItemValue() const override;
    void SetItemFlag2(bool flag) override;
    bool GetItemFlag2() const override;
    // Non-virtual accessors beside the table.
    UValue GetScanSizeY() const { return scanSizeY; }
    void SetScanSizeY(UValue size) { scanSizeY = std::move(size); }
    float GetInputOffset() const { return inputOffset; }
    bool HasInputOffset() const { return hasInputOffset; }
    void SetInputOffset(float offset) { inputOffset = offset; }
    std::uint32_t GetDataLength() const { return dataLength; }
    void SetDataLength(std::uint32_t length) { dataLength = length; }
    std::uint64_t GetDataOffset() const { return dataOffset; }
    void SetDataOffset(std::uint64_t offset) { dataOffset = offset; }
    bool GetWasFlag() const { return wasFlag; }
    void SetWasFlag(bool flag) { wasFlag = flag; }
    bool GetLinesWereSet() const { return linesWereSet; }
    void SetLinesWereSet(bool flag) { linesWereSet = flag; }
    bool GetSamplesWereSet() const { return samplesWereSet; }
    void SetSamplesWereSet(bool flag) { samplesWereSet = flag; }
    bool GetFlag4() const { return flag4; }
    void SetFlag4(bool flag) { flag4 = flag; }
    UValue GetZScanSize(bool scaled) const;
    std::uint32_t GetScaleBits() const { return scaleBits; }
    float GetRotateAngle() const { return rotateAngle; }
    void SetRotateAngle(float angle) { rotateAngle = angle; }
    void SetScalingFactor(float factor) { scalingFactor = factor; }
    bool HasSecondScale() const { return hasSecondScale; }
    void SetZSensitivityName(std::string name) { zSensitivityName = std::move(name); }
    void SetLineDirection(std::string text) { lineDirection = std::move(text); }
    std::string GetFrameDirection() const { return frameDirection; }
    std::uint32_t GetCaptureStartLine() const { return captureStartLine; }
    std::string GetUnitSystem() const { return unitSystem; }
    const ScaleGroup& GetRampSizeGroup() const { return rampSize; }
    void SetValidLenX(std::uint32_t length) { validLenX = length; }
    void SetValidLenY(std::uint32_t length) { validLenY = length; }
    double GetTipRadius() const { return tipRadius; }
    void SetTipRadius(double value) { tipRadius = value; }
    double GetTipHalfAngle() const { return tipHalfAngle; }
    void SetTipHalfAngle(double value) { tipHalfAngle = value; }
    double GetSamplePoissonRatio() const { return samplePoissonRatio; }
    void SetSamplePoissonRatio(double value) { samplePoissonRatio = value; }
    bool GetHoldFlag() const { return holdFlag; }
    void SetHoldFlag(bool flag) { holdFlag = flag; }
    std::uint32_t GetItemTag() const { return itemTag; }
    void SetItemTag(std::uint32_t tag) { itemTag = tag; }

    // Invalid samples: the marking value, the fill text and the indices that a
    // repair replaced.
    std::uint32_t GetInvalidFlag() const { return invalidFlag; }
    void SetInvalidFlag(std::uint32_t flag) { invalidFlag = flag; }
    std::string GetInvalidFill() const { return invalidFill; }
    void SetInvalidFill(std::string fill) { invalidFill = std::move(fill); }
    std::vector<std::uint32_t>& InvalidPoints() { return invalidPoints; }
    const std::vector<std::uint32_t>& InvalidPoints() const { return invalidPoints; }

    // (value, sensitivity, unit) scaled as the scale groups are: multiplied by
    // the sensitivity when asked for and the group has a unit.
    static UValue ScaledGroupValue(const ScaleGroup& group, bool scaled);
    static UValue MultiplyBySensitivity(const UValue& value, const UValue& sensitivity);

    // Display settings; the item keeps two.
    struct DisplaySettings {
        double displayMin = 0.0;
        double displayMax = 1.0;
        bool hasExplicitRange = false;
        std::uint32_t displayRangeMode = 0;  // first display only
        bool displayFlag = false;            // first display only
        double contrast = 1.5;               // first display only
        std::uint32_t colorTable = 12;
        std::uint32_t colorValue1 = 0;
        std::uint32_t colorValue2 = 0;
        bool colorFlag = false;
        bool hasColorTable = false;
        bool colorTableFlag = false;
        ColorEntries tableEntries{};
        std::array<std::vector<std::uint32_t>, 3> colorVectors;
        ColorEntries colorEntries{};
        std::vector<std::uint32_t> rangeVector;
        std::uint32_t rangeCount = 0;
        std::array<std::vector<std::uint32_t>, 3> rangeVectors;
    };
    const DisplaySettings& FirstDisplay() const { return display1; }
    const DisplaySettings& SecondDisplay() const { return display2; }

private:
    void copyFrom(const OLDataItem& other);
    // The histogram rule: narrows lo and hi to the 1% ends of the samples.
    static void histogramNarrow(const std::int32_t* data, std::uint32_t n, std::int32_t& lo, std::int32_t& hi);
    static void rawExtremes(const std::int32_t* data, std::uint32_t n, std::int32_t& lo, std::int32_t& hi);
    void recomputeDisplay(bool soft);
    void recomputeSecondDisplay(bool soft);

    std::uint32_t numberOfLines = 1;
    std::uint32_t scanLines = 1;
    std::uint32_t samplesPerLine = 512;
    std::uint32_t dataSize = 0;
    UValue scanSize;
    UValue scanSizeY;
    float aspectRatio = 1.0f;
    float zMagnify = 1.0f;
    float zScaleSw = 1.0f;
    float zScaleHw = 1.0f;
    float scalingFactor = 1.0f;
    float inputOffset = 0.0f;
    bool hasInputOffset = false;
    std::int64_t zOffset = 0;
    float rotateAngle = 0.0f;
    std::uint32_t scaleBits = 32;
    std::uint32_t bitsPerPixel = 16;
    double zSensitivity = 1.0;
    std::string zSensitivityUnits;
    std::string zSensitivityName;
    std::string zSensitivitySection;
    std::string magnifyText;
    std::string sensitivityText;
    std::string zText;
    UValue dataScale;
    std::string dataScaleName;
    std::string dataName;
    std::string lineDirection;
    std::string frameDirection;
    std::uint32_t captureStartLine = 0;
    std::string scanLine;
    std::int32_t* data = nullptr;
    std::string reservedText;
    std::string note;
    std::string unitSystem;
    std::uint32_t validStartX = 0, validStartY = 0, validLenX = 0, validLenY = 0;
    bool wasFlag = false, linesWereSet = false, samplesWereSet = false, flag4 = false;
    PlaneFitSettings planefit;
    bool hasPlanefitText = false;
    std::string planefitDesc;
    std::int64_t value1 = 0, value2 = 0;
    ScaleGroup forceZOffset, rampBegin, rampEnd, rampSize;
    ScaleGroup zScanSize;
    std::uint32_t pointsPerCurve = 1024;
    double forcePhaseOffset = 0.0;
    std::uint32_t avePoints = 1, effectiveBw = 1;
    double springConstant = 0.0;
    std::uint32_t retracePoints = 512, tracePoints = 512;
    std::string invert, forceDisplayMode, xDataType;
    std::string dataTypeDesc;
    std::uint32_t dataLength = 0;
    std::uint64_t dataOffset = 0;
    double tipRadius = 0.0, tipHalfAngle = 0.0, samplePoissonRatio = 0.0;
    bool hasSecondScale = false;
    ScaleGroup secondScale;
    double secondScaleFactor = 1.0;
    ScaleGroup thirdScale;
    std::uint32_t highSpeedSamples = 512;
    std::string highSpeedDataType;
    double hsdcRate = 0.0;
    UValue highSpeedHardScale, highSpeedSoftScale;
    std::string ecFunction;
    std::string plistName;
    bool hasRangeOverride = false;
    float overrideMin = 0.0f, overrideMax = 0.0f;
    std::string overrideUnits;
    bool itemFlag = false;
    float halfAngle1 = 90.0f, halfAngle2 = 90.0f;
    double itemValue = 1.0;
    bool itemFlag2 = false;
    std::uint32_t invalidFlag = 0;
    std::string invalidFill;
    std::vector<std::uint32_t> invalidPoints;
    DisplaySettings display1;
    DisplaySettings display2;
    std::uint32_t itemTag = 0xFFFFFFFFu;
    bool holdFlag = false;
};
