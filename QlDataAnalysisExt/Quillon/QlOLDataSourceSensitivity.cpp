// Sensitivities: a scaled value names its sensitivity in square brackets, and
// the sensitivity's own value string lies in the scan section or the scanner
// list under "@" and that name.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Parm/UnitVocabulary.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

namespace {
const char* const kZSensitivityName = "Sens. Zsens";
}  // namespace

std::string QlOLDataSource::FindSensSection(const std::string& name) const {
    if (dataFile) {
        const QlSectionReader scan(dataFile->GetContainer({"Dulce scan list"}));
        if (scan.Has("@" + name)) {
            return "Dulce scan list";
        }
    }
    return "Scanner list";
}

std::string QlOLDataSource::GetSensString(const std::string& name) const {
    // The Z sensitivity was read with the scanner list; a change to it since
    // then is what counts.
    if (name == kZSensitivityName) {
        return sensZSensText;
    }
    std::string text;
    if (dataFile) {
        QlSectionReader(dataFile->GetContainer({FindSensSection(name)})).Read("@" + name, text);
    }
    return text;
}

UValue QlOLDataSource::CombineScales(const UValue& a, const UValue& b) {
    double number = a.GetValue();
    if (!b.GetUnits()->GetAbbreviation().empty() && Orx::Core::IsVoltageUnit(a.GetUnits()->GetAbbreviation())) {
        try {
            number = a.ConvertedTo("Volts").GetValue();
        } catch (const std::exception&) {
            // a number that will not turn into volts is taken as it stands
        }
    }
    return UValue(number * b.GetValue(), a.GetUnits());
}

ScaleGroup QlOLDataSource::readScaleGroup(const std::string& text) const {
    ScaleGroup group;
    group.value = QlValueStrings::ParseSoftValue(text, QlValueStrings::kScaledValue);
    const std::string sensitivity = GetSensString(QlValueStrings::ParseBracketName(text));
    group.sensitivity = QlValueStrings::ParseSensValue(sensitivity);
    group.sensitivityUnits = QlValueStrings::ParseSensUnit(sensitivity);
    return group;
}

void QlOLDataSource::ReadablePressure(double& value, std::string& unit) {
    if (unit != "Pa") {
        return;
    }
    if (value > 999999999.0) {
        value /= 1e9;
        unit = "GPa";
    } else if (value > 999999.0) {
        value /= 1e6;
        unit = "MPa";
    }
}

UValue QlOLDataSource::ValueIn(double value, const std::string& unitName) {
    return UValue(value, Orx::Core::UnitDictionary::StandardUnits()->LookupUnit(unitName));
}
