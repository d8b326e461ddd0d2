// The image of a Harlen file: its parameters, and the float matrix rescaled
// into 32-bit raw counts with a raw offset, so that the full range of the
// counts spans the image.

#include <algorithm>
#include <cmath>
#include <limits>

#include "Platform/AssertFailed.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Harlen/HarlenNumbers.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "QlDataAnalysisExt/Harlen/HarlenValueTexts.h"

using Orx::DataCore::ParameterRead;
using namespace HarlenValueTexts;
using HarlenNumbers::NarrowToFloat;

namespace {

bool isNone(const std::string& leveling) { return leveling == "None" || leveling == "none"; }

std::string textOf(const DataContainerPtr& container, const std::string& key) {
    std::string text;
    ParameterRead(container, key, text);
    return text;
}

// The number of y in the unit of x, where the units allow it.
double numberInUnitOf(const UValue& y, const UValue& x) {
    const std::string& from = y.GetUnits()->GetName();
    const std::string& to = x.GetUnits()->GetName();
    if (from.empty() || to.empty()) {
        return y.GetValue();
    }
    try {
        return y.ConvertedTo(to).GetValue();
    } catch (const Orx::Core::LogicError&) {
        return y.GetValue();
    }
}

}  // namespace

bool HarlenOLDataSource::readDataParameters(OLDataItemLoadRecord& record, ImageTexts& texts) {
    const auto parameters = section("[Data Parameters]");
    if (!parameters) {
        logFailure(2, "HarlenOLDataSource::Initialize failed to open get [Data Parameters]");
        return false;
    }
    ParameterRead(parameters, "CreationTime", date);
    ParameterRead(parameters, "DataName", record.dataTypeDesc);
    UValue rangeX, rangeY;
    parameters->GetValue("ScanRangeX", rangeX);
    parameters->GetValue("ScanRangeY", rangeY);
    parameters->GetValue("ResolutionX", texts.resolutionX);
    parameters->GetValue("ResolutionY", texts.resolutionY);
    feedbackText = "Unknown";

    const float x = NarrowToFloat(rangeX.GetValue());
    const float y = NarrowToFloat(numberInUnitOf(rangeY, rangeX));
    float ratio = 1.0f;
    if (x != 0.0f && y != 0.0f) {
        ratio = x / y;
    } else if (texts.resolutionX != 0 && texts.resolutionY != 0) {
        ratio = static_cast<float>(texts.resolutionX) / static_cast<float>(texts.resolutionY);
    }
    aspectRatio = ratio;
    record.aspectRatio = ratio;

    // A range the instrument did not measure is counted in pixels.
    if (rangeX.GetValue() == 0.0 && texts.resolutionX != 0) {
        rangeX = UValue(texts.resolutionX, "Arb");
    }
    if (rangeY.GetValue() == 0.0 && texts.resolutionY != 0) {
        rangeY = UValue(texts.resolutionY, "Arb");
    }
    scanSize = rangeX;
    scanSizeY = rangeY;
    record.scanSize = rangeX;
    record.scanSizeY = rangeY;
    record.hasScanSizeY = true;

    record.rotateAngle = NarrowToFloat(NumberOf(TextBefore(textOf(parameters, "Rotation"), "\xB0")));
    readOffset(parameters, "DataOffset");
    record.dataOffset = dataOffset;
    record.bitsPerPixel = 0;

    const std::string rate = textOf(parameters, "ScanningRate");
    if (rate.find(' ') != std::string::npos) {
        scanRate = UValue(NumberOf(TextBefore(rate, " ")), QlValueStrings::NormalizeUnit(TextBehind(rate, " ")));
    } else {
        scanRate = UValue(NumberOf(rate));
    }

    record.scanLine = "Main";
    ParameterRead(parameters, "ScanDirection", record.lineDirection);
    ParameterRead(parameters, "ZTransferCoefficient", texts.zTransferCoefficient);
    if (parameters->HasKey("ZUnit")) {
        ParameterRead(parameters, "ZUnit", texts.zUnit);
    }
    ParameterRead(parameters, "Leveling", texts.leveling);

    readColorSettings(parameters, record);
    readPreProcessing(texts, record);
    readSystemInfo();
    return true;
}

void HarlenOLDataSource::readColorSettings(const DataContainerPtr& parameters, OLDataItemLoadRecord& record) {
    if (!colorTableCallback) {
        return;
    }
    record.color.index = colorTableCallback->DefaultColorTableIndex();
    if (parameters->HasKey("Color Table Index") && !colorTableCallback->SkipColorTables()) {
        parameters->GetValue("Color Table Index", record.color.index);
    }
    const auto custom = section("[Custom Color Table]");
    if (custom && !colorTableCallback->SkipColorTables()) {
        ReadColorTable(custom, record.color);
    }
}

void HarlenOLDataSource::readPreProcessing(const ImageTexts& texts, OLDataItemLoadRecord& record) {
    record.leveling = "None";
    record.preprocessed = false;
    const auto preProcessing = section("[PreProcessing]");
    // The processing step's leveling applies only where the scan's own is none.
    if (preProcessing && isNone(texts.leveling)) {
        preProcessing->GetValue("Leveling", record.leveling);
        record.preprocessed = !isNone(record.leveling);
    }
}

void HarlenOLDataSource::readSystemInfo() {
    integralGain = 0.0;
    proportionalGain = 0.0;
    const auto info = section("[System Info]");
    if (!info) {
        return;
    }
    const std::string setpoint = textOf(info, "SetPoint");
    if (!setpoint.empty()) {
        // The setpoint is written in volts and kept in millivolts.
        setpointHard = UValue(NumberOf(TextBefore(setpoint, "V")) * 1000.0);
    }
    const std::string gain = textOf(info, "GainI");
    if (!gain.empty()) {
        // The file gives one gain for both terms.
        integralGain = NumberOf(TextBefore(gain, "("));
        proportionalGain = integralGain;
    }
}

bool HarlenOLDataSource::makeImageItem(OLDataItemLoadRecord& record, const ImageTexts& texts) {
    const auto data = section("[Data]");
    if (!data) {
        logFailure(2, "HarlenOLDataSource::Initialize failed to open get [Data]");
        return false;
    }
    auto heights = data->GetFloatMatrix("RawData");
    if (!heights) {
        heights = std::make_shared<Orx::DataCore::FloatMatrix>(0, 0);
    }
    const auto& values = heights->data();

    // Samples that are not numbers take no part in the range.
    double lowest = 0.0, highest = 0.0;
    bool any = false;
    for (const float v : values) {
        if (std::isnan(v)) {
            continue;
        }
        lowest = any ? std::min<double>(lowest, v) : v;
        highest = any ? std::max<double>(highest, v) : v;
        any = true;
    }
    double span = highest - lowest;
    if (!(span > 0.0)) {
        span = 10.0;
    }
    const double scale = kRawRange / span;
    const double offset = -2147483648.0 - lowest * scale;
    record.zOffset = TruncateToInt64(offset);
    dataSpan = span;
    record.range = NarrowToFloat(scale);

    constexpr double largestFloat = 3.4028234663852886e38;
    if (span > largestFloat) {
        logFailure(3, "HarlenOLDataSource::Initialize: data is beyond max range");
        return false;
    }

    // The item's rows and columns are the matrix's: a header that disagrees
    // with its own data must not send a reader past the samples.
    const std::size_t rows = heights->size1();
    const std::size_t columns = heights->size2();
    const bool headerFits =
        static_cast<long long>(texts.resolutionX) * texts.resolutionY == static_cast<long long>(values.size()) &&
        static_cast<std::size_t>(std::max(texts.resolutionY, 0)) == rows;
    record.rows = headerFits ? static_cast<std::uint32_t>(texts.resolutionY) : static_cast<std::uint32_t>(rows);
    record.columns = headerFits ? static_cast<std::uint32_t>(texts.resolutionX) : static_cast<std::uint32_t>(columns);

    imageMatrix = std::make_shared<Orx::DataCore::IntMatrix>(rows, columns);
    auto& counts = imageMatrix->data();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double raw = std::clamp(values[i] * scale + offset, -2147483648.0, 2147483647.0);
        counts[i] = TruncateToInt32(static_cast<float>(raw));
    }

    record.softScale = NarrowToFloat(span);
    record.hardScale = NarrowToFloat(HarlenNumbers::Quotient(span, record.sensitivity));
    if (!(dataSpan <= largestFloat)) {
        Orx::Core::AssertFailed("dataScaleValue <= 3.402823466e+38F", "HarlenOLDataSource::Initialize");
    }
    record.zRange = UValue(span, record.softUnit);
    dataRange = record.zRange;

    OLDataItem item;
    item.SetData(counts.data(), static_cast<std::uint32_t>(counts.size()));
    item.SetFromLoadRecord(record);
    appendItem(item);
    opened = true;
    return true;
}
