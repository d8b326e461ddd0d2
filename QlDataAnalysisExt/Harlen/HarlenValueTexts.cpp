#include "QlDataAnalysisExt/Harlen/HarlenValueTexts.h"

#include <cctype>
#include <cstdint>
#include <cstdio>

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"
#include "Parm/UnitVocabulary.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"

namespace HarlenValueTexts {

std::string TextBefore(std::string_view text, std::string_view delimiter) {
    return std::string(text.substr(0, text.find(delimiter)));
}

std::string TextBehind(std::string_view text, std::string_view delimiter) {
    const auto at = text.find(delimiter);
    return at == std::string_view::npos ? std::string() : std::string(text.substr(at + delimiter.size()));
}

bool ReadNumber(std::string_view text, double& target) {
    // A stream reads no hexadecimal floating numbers: the digits are an integer.
    if (text.find("0x") != std::string_view::npos) {
        std::int32_t value = 0;
        if (!QlValueStrings::ReadNumber(text, value)) {
            return false;
        }
        target = value;
        return true;
    }
    return QlValueStrings::ReadNumber(text, target);
}

double NumberOf(std::string_view text) {
    double value = 0.0;
    ReadNumber(text, value);
    return value;
}

double LeadingNumber(std::string_view text) {
    const auto blank = text.find(' ');
    double value = 1.0;
    if (blank != std::string_view::npos && blank >= 1) {
        ReadNumber(text.substr(0, blank), value);
    }
    return value;
}

double RateValue(std::string_view text) {
    const double number = NumberOf(TextBefore(text, " "));
    const std::string unit = QlValueStrings::NormalizeUnit(TextBefore(TextBehind(text, " "), "/"));
    if (!Orx::Core::IsLengthUnit(unit)) {
        return number;
    }
    // Rates are kept in volts of the Z drive per second; the drive moves 12.5 nm per volt.
    constexpr double kNanometresPerVolt = 12.5;
    try {
        return Orx::Core::UnitizedValue<double>(number, unit).ConvertedTo("nm").GetValue() / kNanometresPerVolt;
    } catch (const Orx::Core::LogicError&) {
        return number;
    }
}

std::vector<std::string> SplitAtCommas(std::string_view text) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (;;) {
        const auto comma = text.find(',', start);
        parts.emplace_back(
            text.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start));
        if (comma == std::string_view::npos) {
            return parts;
        }
        start = comma + 1;
    }
}

OLDateTime ParseDateTime(const std::string& text) {
    char month[4] = {};
    char mark[3] = {};
    int day = 0, year = 0, hour = 0, minute = 0, second = 0;
    const int read =
        std::sscanf(text.c_str(), "%3s/%d/%d %d:%d:%d %2s", month, &day, &year, &hour, &minute, &second, mark);
    OLDateTime result;
    result.seconds = second;
    result.minutes = minute;
    result.hours = hour == 12 ? 0 : hour;
    if (std::tolower(static_cast<unsigned char>(mark[0])) == 'p') {
        result.hours += 12;
    }
    result.dayOfMonth = day;
    result.month = 12;
    result.year = year - 1900;
    result.daylight = -1;
    result.valid = read >= 6;
    return result;
}

std::string StandardUnitName(const std::string& unit) {
    const auto standard = Orx::Core::UnitDictionary::StandardUnits()->LookupDimensionallyEquivalentUnit(unit);
    return standard ? standard->GetName() : unit;
}

}  // namespace HarlenValueTexts
