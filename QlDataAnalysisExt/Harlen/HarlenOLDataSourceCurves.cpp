// The force curves of a Harlen file. "RawData" holds one matrix for each
// position of the ramp, with one sample of each labelled row in column 0, so
// that the curve of a row runs through the vector. Each curve item holds the
// trace half, reversed, then the retrace half, as 32-bit counts scaled so
// that the largest sample of its two rows reaches the top of the count range.

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <optional>

#include "Parm/UnitVocabulary.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Harlen/HarlenNumbers.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "QlDataAnalysisExt/Harlen/HarlenValueTexts.h"

using Orx::DataCore::FloatMatrix;
using Orx::DataCore::FloatMatrixVector;
using Orx::DataCore::ParameterRead;
using namespace HarlenValueTexts;
using HarlenNumbers::NarrowToFloat;

namespace {

// The first deflection row that the process reads decides the unit system of
// its source; later sources keep what their files say. Process-wide, and so
// atomic: sources of several handles may be opened by two threads at once,
// and exactly one of them takes the first row.
std::atomic<bool> firstDeflectionRow{true};

std::optional<float> sampleAt(const FloatMatrix& curve, int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= curve.size1() || curve.size2() == 0) {
        return std::nullopt;
    }
    return curve(static_cast<std::size_t>(row), 0);
}

// Points per curve for a count of curves: a power of 2 below 512, else a
// multiple of 512; never fewer than the count.
std::uint32_t pointsFor(std::size_t count) {
    if (count < 512) {
        std::uint32_t points = 1;
        while (points < count) {
            points <<= 1;
        }
        return points;
    }
    auto points = static_cast<std::uint32_t>(std::trunc(static_cast<double>(count) / 512.0 + 0.1)) * 512u;
    if (points < count) {
        points += 512u;
    }
    return points;
}

// The distance between the two ends of the ramp, in the unit of its start.
UValue rampDistance(const UValue& start, const UValue& end) {
    const auto& unit = start.GetUnits()->GetName().empty() ? end.GetUnits() : start.GetUnits();
    double endNumber = end.GetValue();
    if (!start.GetUnits()->GetName().empty() && !end.GetUnits()->GetName().empty()) {
        try {
            endNumber = end.ConvertedTo(start.GetUnits()->GetName()).GetValue();
        } catch (const Orx::Core::LogicError&) {
            // ends in units that do not convert keep their numbers
        }
    }
    return UValue(std::fabs(endNumber - start.GetValue()), unit);
}

double factorOfUnit(const std::string& unit, std::string& base) {
    return Orx::Core::BaseUnitOfCode(Orx::Core::UnitCodeOfText(unit), base);
}

}  // namespace

void HarlenOLDataSource::ResetFirstDeflectionRowForTesting() { firstDeflectionRow = true; }

std::string HarlenOLDataSource::label(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < forceLabels.size()
               ? forceLabels[static_cast<std::size_t>(index)]
               : std::string();
}

std::string HarlenOLDataSource::LabelText(int c, int p, int k) const {
    if (k < 0) {
        return "Time";
    }
    std::string text;
    if (c != 0) {
        text += "Ch " + std::to_string(c) + ": ";
    }
    if (p != 0) {
        text += "Point " + std::to_string(p) + ": ";
    }
    std::string name = label(2 * k);
    const auto trace = name.find("Trace ");
    if (trace != std::string::npos) {
        name.erase(trace, 6);
    }
    return text + name;
}

void HarlenOLDataSource::readSpectroscopy(OLDataItemLoadRecord& record) {
    deflectionSensitivity = 1.0;
    springConstant = 1.0;
    deflectionUnit.clear();
    if (const auto spectroscopy = section("[Point Spectroscopy Data]")) {
        std::string text;
        ParameterRead(spectroscopy, "Approach Rate", text);
        forwardVelocity = RateValue(text);
        ParameterRead(spectroscopy, "Retreat Rate", text);
        reverseVelocity = RateValue(text);

        // Older files name the ramp after the drive. Their end is looked for
        // only where their start is there.
        UValue start, end;
        const bool driveStart = spectroscopy->HasKey("Drive Start");
        spectroscopy->GetValue(spectroscopy->HasKey("Z Start") ? "Z Start" : "Drive Start", start);
        if (spectroscopy->HasKey("Z End")) {
            spectroscopy->GetValue("Z End", end);
        } else if (driveStart) {
            spectroscopy->GetValue("Drive End", end);
        }

        if (spectroscopy->HasKey("Deflection Sensitivity")) {
            ParameterRead(spectroscopy, "Deflection Sensitivity", text);
            deflectionSensitivity = LeadingNumber(text);
            if (deflectionSensitivity == 0.0) {
                deflectionSensitivity = 1.0;
            }
            if (deflectionSensitivity != 1.0) {
                deflectionUnit = TextBehind(text, " ");
                if (deflectionUnit == "um" || deflectionUnit == "\xB5m") {
                    deflectionSensitivity *= 1000.0;
                    deflectionUnit = "nm";
                }
            }
        }
        if (spectroscopy->HasKey("Spring Constant")) {
            ParameterRead(spectroscopy, "Spring Constant", text);
            springConstant = LeadingNumber(text);
            if (springConstant == 0.0) {
                springConstant = 1.0;
            }
        }

        const UValue size = rampDistance(start, end);
        scanSize = size;
        record.rampSize.value = size;
        record.rampSize.sensitivity = 1.0;
        record.rampSize.sensitivityUnits.clear();
        if (Orx::Core::IsLengthUnit(size.GetUnits()->GetAbbreviation())) {
            try {
                record.rampSize.value = size.ConvertedTo("nm");
            } catch (const Orx::Core::LogicError&) {
                // a unit of the length list that is no length stays as it is
            }
        }
        record.rampBegin.value = start;
        record.rampEnd.value = end;
    }
    forceDefault = 1.02796;
    axisName = "Z";
    setUnitSystem("Metric");
}

bool HarlenOLDataSource::makeCurveItems(OLDataItemLoadRecord& record) {
    const auto data = section("[Data]");
    if (!data) {
        return false;
    }
    auto curves = data->GetFloatMatrices("RawData");
    if (!curves) {
        curves = std::make_shared<FloatMatrixVector>();
    }
    const std::size_t count = curves->size();
    const std::uint32_t points = pointsFor(count);
    record.sensitivityName = "Sensitivity";
    record.dataLength = points * 4u;
    record.columns = points;
    record.retracePoints = static_cast<std::uint32_t>(count);
    record.tracePoints = static_cast<std::uint32_t>(count);
    record.dataOffset = dataOffset;

    if (hasSixteenLabels) {
        addForceCurveItem(record, *curves, 0, 1, 0, 3);
        addForceCurveItem(record, *curves, 0, 3, 0, 3);
        addForceCurveItem(record, *curves, 0, 0, -1, -1);
        addForceCurveItem(record, *curves, 0, 1, 3, 2);
    } else {
        // The channel count of such a file counts pairs of rows; each point
        // of the file has four rows in every matrix.
        std::size_t rows = 0;
        for (const auto& curve : *curves) {
            rows = std::max(rows, curve.size1());
        }
        const int points = numberOfChannels / 2;
        for (int i = 0; i < points; ++i) {
            // A point whose rows no matrix holds would give items of nothing
            // but zeros, and a hostile count would give them without end.
            if (i > 0 && 4 * static_cast<std::size_t>(i) >= rows) {
                break;
            }
            const int q = points == 1 ? 0 : i + 1;
            addForceCurveItem(record, *curves, q, 1, -1, -1);
            addForceCurveItem(record, *curves, q, 0, -1, -1);
            addForceCurveItem(record, *curves, q, 1, 0, 3 * i + 2);
        }
    }
    numberOfChannels = static_cast<int>(items.size());
    numberOfDisplayChannels = numberOfChannels;
    opened = true;
    return true;
}

void HarlenOLDataSource::addForceCurveItem(OLDataItemLoadRecord& record, const FloatMatrixVector& curves, int p, int k,
                                           int m, int a) {
    const int trace = hasSixteenLabels || p == 0 ? k : k - 4 + 4 * p;
    const int retrace = hasSixteenLabels ? k + 4 : trace + 2;

    float lowest = std::numeric_limits<float>::max();
    float highest = std::numeric_limits<float>::min();
    for (const auto& curve : curves) {
        for (const int row : {trace, retrace}) {
            if (const auto v = sampleAt(curve, row)) {
                lowest = std::min(lowest, *v);
                highest = std::max(highest, *v);
            }
        }
    }
    const double largest = std::max(std::fabs(lowest), std::fabs(highest));
    // Curves of zeros leave the largest at the smallest float, where the
    // scale would overflow: they are counted one to one.
    double scale = largest != 0.0 ? 2147483647.0 / largest : 1.0;
    if (scale == 0.0 || !(scale <= std::numeric_limits<float>::max())) {
        scale = 1.0;
    }

    const std::string rowUnit = label(2 * k + 1);
    const std::string unit = QlValueStrings::NormalizeUnit(rowUnit);
    record.softScale = NarrowToFloat(1.0 / scale);
    record.hardScale = record.softScale;
    record.softUnit = unit;
    record.dataName = LabelText(0, p, k);
    record.dataTypeDesc = record.dataName;
    record.xDataType = LabelText(a, p, m);
    record.zRange = UValue(record.softScale, unit);

    std::string base;
    const double factor = factorOfUnit(rowUnit, base);
    const bool deflection = record.dataName.find("Defl") != std::string::npos && deflectionSensitivity != 1.0 &&
                            deflectionSensitivity != 0.0 && (base == "m" || base == "V" || base == "N");
    if (!deflection) {
        record.sensitivity = 1.0;
        record.sensitivityUnit.clear();
        record.springConstant = 1.0;
    } else {
        // A deflection row is shown in volts of the detector, and through its
        // sensitivity in the row's own unit.
        record.softUnit = "V";
        record.sensitivity = deflectionSensitivity;
        record.sensitivityUnit = QlValueStrings::NormalizeUnit(deflectionUnit);
        std::string sensitivityBase;
        double sensitivityFactor = factorOfUnit(deflectionUnit, sensitivityBase);
        if (sensitivityFactor == 0.0) {
            sensitivityFactor = 1.0;
        }
        double hard = factor / scale;
        if (base == "m") {
            hard = factor / sensitivityFactor / (deflectionSensitivity * scale);
        } else if (base == "N") {
            if (springConstant == 0.0) {
                springConstant = 1.0;
            }
            hard = factor / (deflectionSensitivity * scale * springConstant * sensitivityFactor);
        }
        record.springConstant = springConstant;
        record.hardScale = NarrowToFloat(hard);
        record.softScale = NarrowToFloat(hard * deflectionSensitivity);
        record.zRange = UValue(hard, "V");
        if (firstDeflectionRow.exchange(false)) {
            setUnitSystem(Orx::Core::IsLengthUnit(rowUnit)    ? "Metric"
                          : Orx::Core::IsVoltageUnit(rowUnit) ? "Volt"
                                                              : "Force");
        }
    }

    // The trace runs backwards through the vector into the first half, the
    // retrace forwards into the second.
    auto counts = std::make_shared<Orx::DataCore::IntMatrix>(1, 2 * static_cast<std::size_t>(record.columns));
    const std::size_t points = record.columns;
    const std::size_t count = std::min(curves.size(), points);
    for (std::size_t c = 0; c < count; ++c) {
        (*counts)(0, count - c - 1) = TruncateToInt32(sampleAt(curves[c], trace).value_or(0.0f) * scale);
        (*counts)(0, points + c) = TruncateToInt32(sampleAt(curves[c], retrace).value_or(0.0f) * scale);
    }

    OLDataItem item;
    item.SetData(counts->data().data(), static_cast<std::uint32_t>(counts->data().size()));
    item.SetFromLoadRecord(record);
    appendItem(item);
    curveMatrices.push_back(std::move(counts));
}
