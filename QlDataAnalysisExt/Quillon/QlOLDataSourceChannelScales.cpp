// The scales of a channel: the Z scale text with the sensitivity it names,
// the scale of files older than the prefixed keys, the input offset, and the
// two scales of a high-speed channel.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include <cmath>

namespace {

using QlValueStrings::NormalizeUnit;
using QlValueStrings::ReadNumber;

// What the dictionary knows of a unit name, or no unit.
std::string KnownUnitOrNone(const std::string& name) {
    return Orx::Core::UnitDictionary::StandardUnits()->IsUnitDefined(name) ? name : std::string();
}

}  // namespace

void QlOLDataSource::readHighSpeedChannel(const QlSectionReader& s, OLDataItemLoadRecord& r) {
    s.Read("Number of samples", r.highSpeedSamples);
    s.Read("High Speed Data Type", r.highSpeedDataType);
    s.Read("High Speed Data Channel Rate", r.hsdcRate);
    // Two bytes a sample.
    r.columns = r.dataLength / 2;
    r.magnify = 1.0f;
    s.Read("High Speed Data Hard Scale", r.highSpeedHardScale);
    s.Read("High Speed Data Soft Scale", r.highSpeedSoftScale);
    const UValue& hard = r.highSpeedHardScale;
    const std::string& softName = r.highSpeedSoftScale.GetUnits()->GetName();
    r.hardScale = static_cast<float>(hard.GetValue());
    r.softUnit = hard.GetUnits()->GetName();
    // A soft scale in the hard scale's own unit adds nothing.
    const double sensitivity = softName != r.softUnit ? r.highSpeedSoftScale.GetValue() : 1.0;
    r.softScale = static_cast<float>(sensitivity);
    r.range = static_cast<float>(kRawRange);
    r.sensitivity = sensitivity;
    if (softName.find('/') != std::string::npos) {
        // A soft scale per volt is a sensitivity: "nm/V" times the volts of the hard scale.
        r.sensitivityUnit = KnownUnitOrNone(QlValueStrings::BeforeFirst(softName, "/"));
        r.softScale = static_cast<float>(CombineScales(ValueIn(sensitivity, r.sensitivityUnit), hard).GetValue());
    }
    r.zRange = ValueIn(r.hardScale, r.softUnit);
    r.dataName = r.highSpeedDataType;
    r.dataTypeDesc = r.highSpeedDataType;
}

void QlOLDataSource::readZScale(const QlSectionReader& s, OLDataItemLoadRecord& r) {
    float value = 0.0f;
    bool found = false;
    std::string text = s.FirstExisting({"@2:Z scale", "@4:Z scale"}, &found);
    if (found) {
        value = QlValueStrings::ParseSoftFloat(text);
        r.softUnit = NormalizeUnit(QlValueStrings::AfterLast(text, " "));
    } else if (s.Text("Z scale", text)) {
        r.sensitivityUnit = "nm";
        r.softUnit = "V";
        value = readLegacyZScale(text, r);
    }
    r.hardScale = value;
    r.zText = text;

    if (r.softScale == 1.0f) {
        r.sensitivityName = QlValueStrings::ParseBracketName(text);
        r.sensitivitySection = FindSensSection(r.sensitivityName);
        r.sensitivityText = GetSensString(r.sensitivityName);
        double sensitivity = QlValueStrings::ParseSensValue(r.sensitivityText);
        std::string unit = QlValueStrings::ParseSensUnit(r.sensitivityText);
        ReadablePressure(sensitivity, unit);
        r.sensitivity = sensitivity;
        r.sensitivityUnit = unit;
        r.softScale = static_cast<float>(
            CombineScales(ValueIn(sensitivity, unit), ValueIn(r.hardScale, r.softUnit)).GetValue());
    }
    // The ratio of a 16-bit file counts 16-bit steps.
    r.range = QlValueStrings::ParseRatio(text) * (r.bitsPerPixel == 16 ? 65536.0f : 1.0f);
    r.zRange = ValueIn(static_cast<double>(r.hardScale) * r.magnify, r.softUnit);
    readInputOffset(s, r);

    r.lineDirection = s.FirstExisting({"Line Direction", "Line direction"});
    s.Read("Scan Line", r.scanLine);
    if (r.scanLine.empty()) {
        s.Read("Scan line", r.scanLine);
    }
    if (r.scanLine.empty()) {
        r.scanLine = "Main";
    }
}

// "Z scale" of the files before the prefixed keys: the scale follows from the
// controller's ranges, the microscope's sensitivities and the data name.
float QlOLDataSource::readLegacyZScale(const std::string& text, OLDataItemLoadRecord& r) const {
    const std::vector<std::string_view> pieces = QlValueStrings::BlankSeparatedPieces(text);
    double z = 0.0;
    if (pieces.size() == 4) {
        ReadNumber(pieces[1], z);
    }
    std::int32_t zMax = 220;
    std::int32_t in1Max = 10;
    const QlSectionReader controller(dataFile->GetContainer({"Controller list"}));
    controller.Read("Z max", zMax);
    controller.Read("In1 max", in1Max);
    double inSensitivity = 1.0;
    const QlSectionReader microscopeSection(dataFile->GetContainer({"Microscope list"}));
    std::string number;
    if (microscopeSection.Read("Z sensitivity", number)) {
        ReadNumber(number, r.sensitivity);
    }
    if (microscopeSection.Read("In sensitivity", number)) {
        ReadNumber(number, inSensitivity);
    }

    double value = 0.0;
    if (z == 0.0) {
        ReadNumber(QlValueStrings::BeforeFirst(text, " "), value);
        r.sensitivityUnit = NormalizeUnit(QlValueStrings::Between(text, " ", " ("));
        r.softScale = static_cast<float>(value);
        r.softUnit = "V";
        return static_cast<float>(value);
    }
    const int n = static_cast<int>(r.scaleBits);
    double soft = r.softScale;
    if (r.dataName == "Height") {
        value = z * zAttenuation / std::ldexp(1.0, n) * zMax / std::ldexp(1.0, n - 1);
        soft = value * r.sensitivity;
    } else if (r.dataName == "Deflection") {
        value = in1Max * z / std::ldexp(1.0, n - 1);
        // Without a detector sensitivity there is no deflection to scale.
        soft = detectSensitivity != 0.0 ? value * inSensitivity / detectSensitivity : 0.0;
    } else if (r.dataName == "Aux") {
        value = z * 2.0 * in1Max / std::ldexp(1.0, n);
        soft = value;
        r.sensitivityUnit = "V";
    }
    if (std::fabs(soft) + 0.5 >= 1000.0) {
        // The units change by the division's name, not by its direction: "V"
        // becomes "mV" where a conversion would say the opposite, as files expect.
        if (r.sensitivityUnit == "nm") {
            r.sensitivityUnit = "um";
        }
        if (r.softUnit == "V") {
            r.softUnit = "mV";
        }
        soft /= 1000.0;
        value /= 1000.0;
    }
    r.softScale = static_cast<float>(soft);
    return static_cast<float>(value);
}

void QlOLDataSource::readInputOffset(const QlSectionReader& s, OLDataItemLoadRecord& r) {
    std::string text;
    if (!s.Text("@2:Z input offset", text)) {
        return;
    }
    r.hasInputOffset = true;
    std::string unit = NormalizeUnit(QlValueStrings::AfterLast(text, " "));
    if (unit.empty()) {
        // A bare number is in the channel's own unit.
        unit = r.softUnit;
        text += " " + unit;
    }
    float offset = 0.0f;
    ReadNumber(QlValueStrings::Between(text, ") ", " " + unit), offset);
    r.inputOffset = offset;
}
