#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <utility>

namespace {
std::unique_ptr<Orx::Core::FrameworkObject> createItem() { return std::make_unique<OLDataItem>(); }

struct RegisterItemClass {
    RegisterItemClass() { Orx::Core::RegisterRuntimeClass(&OLDataItem::runtimeClass); }
} registerItemClass;

// A setter that takes its text by value leaves the caller's moved string
// empty, and does nothing when handed the item's own field.
void takeText(std::string& field, std::string& text) {
    if (&field != &text) {
        field = std::move(text);
        text.clear();
    }
}
}  // namespace

const Orx::Core::RuntimeClass OLDataItem::runtimeClass{"OLDataItem", OLDataItem::kSchema, true, &createItem};

OLDataItem::OLDataItem(const OLDataItem& other) : IOLDataItem(other) { copyFrom(other); }

OLDataItem& OLDataItem::operator=(const OLDataItem& other) {
    if (this != &other) {
        copyFrom(other);
    }
    return *this;
}

void OLDataItem::copyFrom(const OLDataItem& other) {
    // Memberwise copy, then the one rule: a buffer is shared only when the
    // copied item says it has samples.
    numberOfLines = other.numberOfLines;
    scanLines = other.scanLines;
    samplesPerLine = other.samplesPerLine;
    dataSize = other.dataSize;
    scanSize = other.scanSize;
    scanSizeY = other.scanSizeY;
    aspectRatio = other.aspectRatio;
    zMagnify = other.zMagnify;
    zScaleSw = other.zScaleSw;
    zScaleHw = other.zScaleHw;
    scalingFactor = other.scalingFactor;
    inputOffset = other.inputOffset;
    hasInputOffset = other.hasInputOffset;
    zOffset = other.zOffset;
    rotateAngle = other.rotateAngle;
    scaleBits = other.scaleBits;
    bitsPerPixel = other.bitsPerPixel;
    zSensitivity = other.zSensitivity;
    zSensitivityUnits = other.zSensitivityUnits;
    zSensitivityName = other.zSensitivityName;
    zSensitivitySection = other.zSensitivitySection;
    magnifyText = other.magnifyText;
    sensitivityText = other.sensitivityText;
    zText = other.zText;
    dataScale = other.dataScale;
    dataScaleName = other.dataScaleName;
    dataName = other.dataName;
    lineDirection = other.lineDirection;
    frameDirection = other.frameDirection;
    captureStartLine = other.captureStartLine;
    scanLine = other.scanLine;
    data = other.dataSize != 0 ? other.data : nullptr;
    reservedText = other.reservedText;
    note = other.note;
    unitSystem = other.unitSystem;
    validStartX = other.validStartX;
    validStartY = other.validStartY;
    validLenX = other.validLenX;
    validLenY = other.validLenY;
    wasFlag = other.wasFlag;
    linesWereSet = other.linesWereSet;
    samplesWereSet = other.samplesWereSet;
    flag4 = other.flag4;
    planefit = other.planefit;
    hasPlanefitText = other.hasPlanefitText;
    planefitDesc = other.planefitDesc;
    value1 = other.value1;
    value2 = other.value2;
    forceZOffset = other.forceZOffset;
    rampBegin = other.rampBegin;
    rampEnd = other.rampEnd;
    rampSize = other.rampSize;
    zScanSize = other.zScanSize;
    pointsPerCurve = other.pointsPerCurve;
    forcePhaseOffset = other.forcePhaseOffset;
    avePoints = other.avePoints;
    effectiveBw = other.effectiveBw;
    springConstant = other.springConstant;
    retracePoints = other.retracePoints;
    tracePoints = other.tracePoints;
    invert = other.invert;
    forceDisplayMode = other.forceDisplayMode;
    xDataType = other.xDataType;
    dataTypeDesc = other.dataTypeDesc;
    dataLength = other.dataLength;
    dataOffset = other.dataOffset;
    tipRadius = other.tipRadius;
    tipHalfAngle = other.tipHalfAngle;
    samplePoissonRatio = other.samplePoissonRatio;
    hasSecondScale = other.hasSecondScale;
    secondScale = other.secondScale;
    secondScaleFactor = other.secondScaleFactor;
    thirdScale = other.thirdScale;
    highSpeedSamples = other.highSpeedSamples;
    highSpeedDataType = other.highSpeedDataType;
    hsdcRate = other.hsdcRate;
    highSpeedHardScale = other.highSpeedHardScale;
    highSpeedSoftScale = other.highSpeedSoftScale;
    ecFunction = other.ecFunction;
    plistName = other.plistName;
    hasRangeOverride = other.hasRangeOverride;
    overrideMin = other.overrideMin;
    overrideMax = other.overrideMax;
    overrideUnits = other.overrideUnits;
    itemFlag = other.itemFlag;
    halfAngle1 = other.halfAngle1;
    halfAngle2 = other.halfAngle2;
    itemValue = other.itemValue;
    itemFlag2 = other.itemFlag2;
    invalidFlag = other.invalidFlag;
    invalidFill = other.invalidFill;
    invalidPoints = other.invalidPoints;
    display1 = other.display1;
    display2 = other.display2;
    itemTag = other.itemTag;
    holdFlag = other.holdFlag;
}

const Orx::Core::RuntimeClass* OLDataItem::GetRuntimeClass() const { return &runtimeClass; }

void OLDataItem::AssertValid() const {}
void OLDataItem::Dump() const {}

std::uint32_t OLDataItem::GetNumberOfLines() const { return numberOfLines; }
std::uint32_t OLDataItem::GetSamplesPerLine() const { return samplesPerLine; }
std::uint32_t OLDataItem::GetDataSize() const { return dataSize; }
UValue OLDataItem::GetScanSize() const { return scanSize; }
float OLDataItem::GetAspectRatio() const { return aspectRatio; }
float OLDataItem::GetZMagnify() const { return zMagnify; }
void OLDataItem::SetZMagnify(float magnify) { zMagnify = magnify; }
std::int64_t OLDataItem::GetZOffset() const { return zOffset; }
void OLDataItem::SetZOffset(std::int64_t offset) { zOffset = offset; }
float OLDataItem::GetZScaleInSwUnits() const { return zScaleSw; }
float OLDataItem::GetZScaleInHwUnits() const { return zScaleHw; }
float OLDataItem::GetScalingFactor() const { return scalingFactor; }
double OLDataItem::GetZSensitivitySoftScale() const { return zSensitivity; }
std::string OLDataItem::GetZSensitivityUnits() const { return zSensitivityUnits; }
std::string OLDataItem::GetZSensitivityName() const { return zSensitivityName; }
std::string OLDataItem::GetZSensitivitySection() const { return zSensitivitySection; }
void OLDataItem::SetZSensitivitySoftScale(double value) { zSensitivity = value; }
void OLDataItem::SetZSensitivityUnits(std::string units) { takeText(zSensitivityUnits, units); }
void OLDataItem::SetZScaleInSwUnits(float scale) { zScaleSw = scale; }
void OLDataItem::SetZScaleInHwUnits(float scale) { zScaleHw = scale; }

std::string OLDataItem::GetMagnifyText() const { return magnifyText; }
void OLDataItem::SetMagnifyText(std::string text) { takeText(magnifyText, text); }
std::string OLDataItem::GetSensitivityText() const { return sensitivityText; }
void OLDataItem::SetSensitivityText(std::string text) { takeText(sensitivityText, text); }
std::string OLDataItem::GetDataScaleName() const { return dataScaleName; }
std::string OLDataItem::GetZText() const { return zText; }
void OLDataItem::SetZText(std::string text) { takeText(zText, text); }
std::string OLDataItem::GetDataTypeDesc() const { return dataTypeDesc; }
void OLDataItem::SetDataTypeDesc(std::string text) { takeText(dataTypeDesc, text); }
std::string OLDataItem::GetDataName() const { return dataName; }
std::string OLDataItem::GetLineDirection() const { return lineDirection; }
std::string OLDataItem::GetScanLine() const { return scanLine; }
std::string OLDataItem::GetReservedText() const { return reservedText; }
std::string OLDataItem::GetNote() const { return note; }
void OLDataItem::SetNote(std::string text) { takeText(note, text); }
void OLDataItem::SetDataName(std::string text) { takeText(dataName, text); }

void OLDataItem::SetFromLoadRecord(const OLDataItemLoadRecord& r) {
    numberOfLines = r.rows;
    scanLines = r.scanLines;
    samplesPerLine = r.columns;
    dataLength = r.dataLength;
    dataOffset = r.dataOffset;
    scaleBits = r.scaleBits;
    bitsPerPixel = r.bitsPerPixel;
    scanSize = r.scanSize;
    scanSizeY = r.hasScanSizeY ? r.scanSizeY : r.scanSize;
    aspectRatio = r.aspectRatio;
    rotateAngle = r.rotateAngle;

    zMagnify = r.magnify;
    zScaleSw = r.softScale;
    zScaleHw = r.hardScale;
    scalingFactor = r.range;
    inputOffset = r.inputOffset;
    hasInputOffset = r.hasInputOffset;
    zOffset = r.zOffset;
    zSensitivity = r.sensitivity;
    zSensitivityUnits = r.sensitivityUnit;
    zSensitivityName = r.sensitivityName;
    zSensitivitySection = r.sensitivitySection;
    zText = r.zText;
    magnifyText = r.magnifyText;
    sensitivityText = r.sensitivityText;
    dataScale = r.zRange;
    dataScaleName = r.softUnit;

    dataName = r.dataName;
    dataTypeDesc = r.dataTypeDesc;
    lineDirection = r.lineDirection;
    frameDirection = r.frameDirection;
    captureStartLine = r.captureStartLine;
    scanLine = r.scanLine;
    reservedText = r.reservedText;
    note = r.note;
    unitSystem = r.units;
    ecFunction = r.ecFunction;
    plistName = r.plistName;

    validStartX = r.validStartX;
    validStartY = r.validStartY;
    validLenX = r.validLenX;
    validLenY = r.validLenY;
    planefit = r.planefit;
    hasPlanefitText = r.hasPlanefitText;
    planefitDesc = r.planefitDesc;

    // The record's flag says "recompute by the data scale" when 0.
    display1.displayRangeMode = r.displayFlag == 0 ? 1u : 0u;
    const auto index = static_cast<std::uint32_t>(r.color.index);
    display1.colorTable = index;
    display2.colorTable = index;
    display1.colorValue1 = r.colorFlag1 ? 1u : 0u;
    display1.colorValue2 = r.colorFlag2 ? 1u : 0u;
    display1.hasColorTable = r.color.custom;
    display1.colorTableFlag = r.color.interpolation;
    display1.tableEntries = r.color.entries;
    display1.colorVectors = r.color.positions;
    display1.rangeVector = r.color.colorPoints;

    hasSecondScale = r.forceFlag;
    pointsPerCurve = r.pointsPerCurve;
    forcePhaseOffset = r.forcePhaseOffset;
    avePoints = r.avePoints;
    effectiveBw = r.effectiveBw;
    springConstant = r.springConstant;
    retracePoints = r.retracePoints;
    tracePoints = r.tracePoints;
    invert = r.invert;
    forceDisplayMode = r.forceDisplayMode;
    xDataType = r.xDataType;
    forceZOffset = r.forceZOffset;
    rampBegin = r.rampBegin;
    rampEnd = r.rampEnd;
    rampSize = r.rampSize;
    zScanSize = r.zScanSize;
    secondScale = r.secondScale;
    secondScaleFactor = r.secondScaleFactor;
    thirdScale = r.thirdScale;

    tipRadius = r.tipRadius;
    tipHalfAngle = r.tipHalfAngle;
    samplePoissonRatio = r.samplePoissonRatio;

    highSpeedSamples = r.highSpeedSamples;
    highSpeedDataType = r.highSpeedDataType;
    hsdcRate = r.hsdcRate;
    highSpeedHardScale = r.highSpeedHardScale;
    highSpeedSoftScale = r.highSpeedSoftScale;

    invalidFlag = r.invalidFlag;
    invalidFill = r.invalidFill;
}

void OLDataItem::SetData(std::int32_t* newData, std::uint32_t size) {
    data = newData;
    dataSize = size;
}

void OLDataItem::SetScanSize(UValue size) { scanSize = std::move(size); }

void OLDataItem::SetSamplesPerLine(std::uint32_t samples) {
    samplesPerLine = samples;
    samplesWereSet = true;
}

void OLDataItem::SetAspectRatio(float ratio) { aspectRatio = ratio; }

void OLDataItem::SetNumberOfLines(std::uint32_t lines) {
    numberOfLines = lines;
    linesWereSet = true;
}

std::int32_t* OLDataItem::GetData() const { return data; }
std::uint32_t OLDataItem::GetValidStartX() const { return validStartX; }
std::uint32_t OLDataItem::GetValidStartY() const { return validStartY; }
std::uint32_t OLDataItem::GetValidLenX() const { return validLenX; }
std::uint32_t OLDataItem::GetValidLenY() const { return validLenY; }

std::uint32_t OLDataItem::GetFileBytesPerPixel() const { return bitsPerPixel / 8; }
void OLDataItem::SetFileBytesPerPixel(std::uint32_t bytes) { bitsPerPixel = bytes * 8; }

void OLDataItem::SetBytesPerPixel(std::uint32_t bytes) {
    if (static_cast<std::int64_t>(bytes) == static_cast<std::int32_t>(scaleBits) / 8) {
        return;
    }
    scaleBits = bytes * 8;
    dataLength = GetSamplesPerLine() * GetNumberOfLines() * bytes;
}

PlaneFitSettings OLDataItem::GetPlanefitSettings() const { return planefit; }
std::string OLDataItem::GetPlanefitDesc() const { return planefitDesc; }
std::int64_t OLDataItem::GetValue1() const { return value1; }
void OLDataItem::SetValue1(std::int64_t value) { value1 = value; }
std::int64_t OLDataItem::GetValue2() const { return value2; }
void OLDataItem::SetValue2(std::int64_t value) { value2 = value; }

std::uint32_t OLDataItem::GetNumberOfPointsPerCurve() const { return pointsPerCurve; }
double OLDataItem::GetForcePhaseOffset() const { return forcePhaseOffset; }
void OLDataItem::SetForcePhaseOffset(double offset) { forcePhaseOffset = offset; }
std::uint32_t OLDataItem::GetAvePoints() const { return avePoints; }
void OLDataItem::SetAvePoints(std::uint32_t points) { avePoints = points; }
std::uint32_t OLDataItem::GetEffectiveBw() const { return effectiveBw; }
double OLDataItem::GetForceSpringConstant() const { return springConstant; }
void OLDataItem::SetForceSpringConstant(double value) { springConstant = value; }
std::uint32_t OLDataItem::GetRetracePoints() const { return retracePoints; }
std::uint32_t OLDataItem::GetTracePoints() const { return tracePoints; }
std::string OLDataItem::GetInvert() const { return invert; }
void OLDataItem::SetInvert(std::string text) { takeText(invert, text); }
std::string OLDataItem::GetForceDisplayMode() const { return forceDisplayMode; }
void OLDataItem::SetForceDisplayMode(std::string text) { takeText(forceDisplayMode, text); }
std::string OLDataItem::GetXDataType() const { return xDataType; }
void OLDataItem::SetXDataType(std::string text) { takeText(xDataType, text); }

std::int32_t* OLDataItem::GetHoldDataPointer(std::uint32_t curve, std::uint32_t half) const {
    if (!data) {
        return nullptr;
    }
    // The stride of one curve: its hold section and both halves.
    const std::uint64_t stride = static_cast<std::uint64_t>(half) + 2ull * retracePoints;
    const std::uint64_t offset = stride * curve;
    // Past the buffer there is no curve; a null tells the caller so.
    if (offset >= dataSize) {
        return nullptr;
    }
    return data + offset;
}

std::uint32_t OLDataItem::GetHighSpeedSamples() const { return highSpeedSamples; }
std::string OLDataItem::GetHighSpeedDataType() const { return highSpeedDataType; }
double OLDataItem::GetHsdcRate() const { return hsdcRate; }
std::string OLDataItem::GetEcFunction() const { return ecFunction; }
std::string OLDataItem::GetPlistName() const { return plistName; }

bool OLDataItem::HasRangeOverride() const { return hasRangeOverride; }
void OLDataItem::SetOverrideMin(float value) {
    overrideMin = value;
    hasRangeOverride = true;
}
float OLDataItem::GetOverrideMinRaw() const { return overrideMin; }
void OLDataItem::SetOverrideMax(float value) {
    overrideMax = value;
    hasRangeOverride = true;
}
float OLDataItem::GetOverrideMaxRaw() const { return overrideMax; }
void OLDataItem::SetOverrideUnits(std::string units) { takeText(overrideUnits, units); }
std::string OLDataItem::GetOverrideUnits() const { return overrideUnits; }

bool OLDataItem::GetItemFlag() const { return itemFlag; }
void OLDataItem::SetItemFlag(bool flag) { itemFlag = flag; }
void OLDataItem::GetHalfAngles(float& first, float& second) const {
    first = halfAngle1;
    second = halfAngle2;
}
void OLDataItem::SetHalfAngles(float first, float second) {
    halfAngle1 = first;
    halfAngle2 = second;
}
void OLDataItem::SetItemValue(double value) { itemValue = value; }
double OLDataItem::GetItemValue() const { return itemValue; }
void OLDataItem::SetItemFlag2(bool flag) { itemFlag2 = flag; }
bool OLDataItem::GetItemFlag2() const { return itemFlag2; }
