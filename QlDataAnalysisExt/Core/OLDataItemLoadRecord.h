#pragma once

// What a file family fills for one channel before the item exists. The names
// follow the families' words; OLDataItem::SetFromLoadRecord maps them onto the
// item's fields.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cstdint>
#include <string>
#include <vector>

struct OLDataItemColorSettings {
    std::int32_t index = 12;
    bool custom = false;
    bool interpolation = false;
    ColorEntries entries{};
    // positions of the red, green and blue edit points, then the colour points
    std::array<std::vector<std::uint32_t>, 3> positions;
    std::vector<std::uint32_t> colorPoints;
};

struct OLDataItemLoadRecord {
    // geometry
    std::uint32_t rows = 1;
    std::uint32_t scanLines = 1;
    std::uint32_t columns = 512;
    std::uint32_t dataLength = 0;  // bytes in the file
    std::uint64_t dataOffset = 0;
    std::uint32_t scaleBits = 32;
    std::uint32_t bitsPerPixel = 16;
    std::uint32_t channelIndex = 0;
    std::uint32_t frameLeft = 0, frameTop = 0, frameWidth = 0, frameHeight = 0;
    UValue scanSize;
    UValue scanSizeY;
    bool hasScanSizeY = false;  // otherwise the second axis copies the first
    float aspectRatio = 1.0f;
    float rotateAngle = 0.0f;

    // scales
    float magnify = 1.0f;
    float softScale = 1.0f;  // what GetZScaleInSwUnits returns
    float hardScale = 1.0f;  // what GetZScaleInHwUnits returns
    float range = 1.0f;      // the scaling factor
    float inputOffset = 0.0f;
    bool hasInputOffset = false;
    std::int64_t zOffset = 0;
    double sensitivity = 1.0;
    std::string sensitivityUnit;
    std::string sensitivityName;
    std::string sensitivitySection;
    std::string zText;
    std::string magnifyText;
    std::string sensitivityText;
    UValue zRange;         // the item's data scale
    std::string softUnit;  // the item's data scale name

    // texts
    std::string dataName;
    std::string dataTypeDesc;
    std::string lineDirection;
    std::string frameDirection;
    std::uint32_t captureStartLine = 0;
    std::string scanLine;
    std::string reservedText;
    std::string note;
    std::string units;  // the source's unit system text
    std::string ecFunction;
    std::string plistName;
    std::string leveling;
    bool preprocessed = false;

    // valid window
    std::uint32_t validStartX = 0, validStartY = 0, validLenX = 0, validLenY = 0;

    PlaneFitSettings planefit;
    bool hasPlanefitText = false;
    std::string planefitDesc;

    // display: the flag defaults to 1, so a new item recomputes by percentiles
    std::uint32_t displayFlag = 1;
    OLDataItemColorSettings color;
    bool colorFlag1 = false;
    bool colorFlag2 = false;

    // force block
    bool forceFlag = false;  // the item shows its buffer in the second scale
    std::uint32_t pointsPerCurve = 1024;
    double forcePhaseOffset = 0.0;
    std::uint32_t avePoints = 1;
    std::uint32_t effectiveBw = 1;
    double springConstant = 0.0;
    std::uint32_t retracePoints = 512;
    std::uint32_t tracePoints = 512;
    std::string invert, forceDisplayMode, xDataType;
    ScaleGroup forceZOffset, rampBegin, rampEnd, rampSize, zScanSize;
    ScaleGroup secondScale;
    double secondScaleFactor = 1.0;
    ScaleGroup thirdScale;

    double tipRadius = 0.0, tipHalfAngle = 0.0, samplePoissonRatio = 0.0;

    // high speed block
    std::uint32_t highSpeedSamples = 512;
    std::string highSpeedDataType;
    double hsdcRate = 0.0;
    UValue highSpeedHardScale, highSpeedSoftScale;

    // invalid samples
    std::uint32_t invalidFlag = 0;
    std::string invalidFill;
};
