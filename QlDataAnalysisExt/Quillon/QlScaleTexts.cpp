#include "QlDataAnalysisExt/Quillon/QlScaleTexts.h"

#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"

#include <boost/format.hpp>

#include <cctype>
#include <locale>
#include <string>

namespace QlScaleTexts {

namespace {

// Numbers in files are written the same whatever locale the host set.
std::string Formatted(const char* format, double value) {
    return (boost::format(format, std::locale::classic()) % value).str();
}

}  // namespace

std::string PrintedNumber(double value) { return Formatted("%#.16g", value); }

std::string ExactNumber(double value) { return Formatted("%.17g", value); }

std::string PairText(long long first, long long second) {
    return std::to_string(first) + " " + std::to_string(second);
}

std::string DisplayedValue(double value, const std::string& unit) {
    const std::string number = Formatted("%g", value);
    return unit.empty() ? number : number + " " + unit;
}

std::string WithSoftValue(std::string_view text, double value) {
    const std::size_t close = text.find(") ");
    if (close == std::string_view::npos) {
        return std::string(text);
    }
    return std::string(text.substr(0, close + 2)) + PrintedNumber(value) + " " + QlValueStrings::AfterLast(text, " ");
}

std::string WithHardValue(std::string_view text, double value) {
    const std::size_t open = text.find(" (");
    if (open == std::string_view::npos) {
        return std::string(text);
    }
    const std::size_t start = open + 2;
    const std::size_t close = text.find(") ", start);
    if (close == std::string_view::npos) {
        return std::string(text);
    }
    // The hard unit follows the number behind the first blank.
    const std::string_view inner = text.substr(start, close - start);
    const std::size_t blank = inner.find(' ');
    const std::string_view unit = blank == std::string_view::npos ? std::string_view() : inner.substr(blank + 1);
    return std::string(text.substr(0, start)) + PrintedNumber(value) + " " + std::string(unit) +
           std::string(text.substr(close));
}

std::string WithMagnify(std::string_view text, double magnify) {
    const std::size_t close = text.find("] ");
    if (close == std::string_view::npos) {
        return std::string(text);
    }
    return std::string(text.substr(0, close + 2)) + PrintedNumber(magnify) + " ";
}

std::string WithSensitivity(std::string_view text, float value, const std::string& unit) {
    const std::size_t numberAt = text.find("V ");
    std::string result = numberAt == std::string_view::npos ? std::string() : std::string(text.substr(0, numberAt));
    // Nine digits carry a float whole.
    result += "V " + Formatted("%.9g", value) + " " + unit;
    const std::string oldUnit = QlValueStrings::AfterLast(text, " ");
    if (oldUnit.size() >= 2 && oldUnit.compare(oldUnit.size() - 2, 2, "/V") == 0) {
        result += "/V";
    }
    return result;
}

std::string WithZeroedDigits(std::string_view text) {
    std::string result(text);
    const std::size_t close = result.find(')');
    if (close == std::string::npos) {
        return result;
    }
    for (std::size_t i = close + 1; i < result.size(); ++i) {
        if (std::isdigit(static_cast<unsigned char>(result[i]))) {
            result[i] = '0';
        }
    }
    return result;
}

std::string WithInputOffset(std::string_view text, float offset, const std::string& channelUnit) {
    std::string full(text);
    std::string unit = QlValueStrings::NormalizeUnit(QlValueStrings::AfterLast(text, " "));
    if (unit.empty()) {
        unit = channelUnit;
        full += " " + unit;
    }
    const std::size_t open = full.find(") ");
    if (open == std::string::npos) {
        return std::string(text);
    }
    const std::size_t start = open + 2;
    const std::size_t end = full.find(" " + unit, start);
    if (end == std::string::npos) {
        return std::string(text);
    }
    float standing = 0.0f;
    QlValueStrings::ReadNumber(std::string_view(full).substr(start, end - start), standing);
    // An unchanged offset keeps the text the file gave, digit for digit.
    if (standing == offset) {
        return std::string(text);
    }
    return full.substr(0, start) + PrintedNumber(offset) + full.substr(end);
}

}  // namespace QlScaleTexts
