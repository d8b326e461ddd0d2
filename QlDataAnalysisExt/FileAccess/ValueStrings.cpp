#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <locale>
#include <sstream>
#include <vector>

namespace QlValueStrings {

namespace {

bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

template <class Number>
bool ReadByStream(std::string_view text, Number& target) {
    std::istringstream in{std::string(text)};
    in.imbue(std::locale::classic());
    if (Holds(text, "0x")) {
        in >> std::hex;
    }
    Number number{};
    if (!(in >> number)) {
        return false;
    }
    target = number;
    return true;
}

// A value in a unit that NormalizeUnit has spelt: known to the standard
// dictionary, or empty for a value without a unit.
Value MakeValue(double number, const std::string& normalizedUnit) {
    return Value(number, Orx::Core::UnitDictionary::StandardUnits()->LookupUnit(normalizedUnit));
}

// The number text of a scaled value or sensitivity and its unit text.
struct SoftParts {
    std::string number;
    std::string unit;
};

SoftParts SplitSoft(std::string_view text, int mode) {
    SoftParts parts;
    parts.unit = AfterLast(text, " ");
    parts.number = Between(text, mode == kSensitivity ? "V " : ") ", " " + parts.unit);
    return parts;
}

}  // namespace

std::vector<std::string_view> BlankSeparatedPieces(std::string_view text) {
    std::vector<std::string_view> pieces;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t start = text.find_first_not_of(' ', at);
        if (start == std::string_view::npos) {
            break;
        }
        const std::size_t end = std::min(text.find(' ', start), text.size());
        pieces.push_back(text.substr(start, end - start));
        at = end;
    }
    return pieces;
}

std::string Between(std::string_view text, std::string_view open, std::string_view close) {
    if (text.empty() || open.empty() || close.empty()) {
        return {};
    }
    const std::size_t openAt = text.find(open);
    if (openAt == std::string_view::npos) {
        return {};
    }
    const std::size_t start = openAt + open.size();
    const std::size_t closeAt = text.find(close, start);
    if (closeAt == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(start, closeAt - start));
}

std::string AfterLast(std::string_view text, std::string_view delimiter) {
    const std::size_t at = text.rfind(delimiter);
    if (text.empty() || delimiter.empty() || at == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(at + delimiter.size()));
}

std::string BeforeFirst(std::string_view text, std::string_view delimiter) {
    const std::size_t at = text.find(delimiter);
    if (delimiter.empty() || at == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(0, at));
}

std::string AfterFirst(std::string_view text, std::string_view delimiter) {
    const std::size_t at = text.find(delimiter);
    if (delimiter.empty() || at == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(at + delimiter.size()));
}

bool ReadNumber(std::string_view text, double& target) {
    return ReadByStream(text, target);
}

bool ReadNumber(std::string_view text, float& target) {
    return ReadByStream(text, target);
}

bool ReadNumber(std::string_view text, std::int32_t& target) {
    return ReadByStream(text, target);
}

Value ParseSoftValue(std::string_view text, int mode) {
    const SoftParts parts = SplitSoft(text, mode);
    double number = 0.0;
    ReadNumber(parts.number, number);
    return MakeValue(number, NormalizeUnit(parts.unit));
}

float ParseSoftFloat(std::string_view text) {
    float number = 1.0f;
    ReadNumber(SplitSoft(text, kScaledValue).number, number);
    return number;
}

Value ParseHardValue(std::string_view text) {
    const std::string inner = Between(text, "(", ")");
    double number = 0.0;
    ReadNumber(BeforeFirst(inner, " "), number);
    return MakeValue(number, NormalizeUnit(AfterLast(inner, " ")));
}

float ParseRatio(std::string_view text) {
    const float soft = ParseSoftFloat(text);
    float hard = 1.0f;
    ReadNumber(BeforeFirst(Between(text, " (", ") "), " "), hard);
    return hard != 0.0f ? soft / hard : soft;
}

Value ParsePlainValue(std::string_view text) {
    const std::string terminated(text);
    float number = 0.0f;
    if (std::sscanf(terminated.c_str(), "%f", &number) != 1) {
        number = 0.0f;
    }
    return MakeValue(number, NormalizeUnit(AfterLast(text, " ")));
}

std::string ParseBracketName(std::string_view text) {
    return Between(text, "[", "]");
}

std::string ParseQuotedText(std::string_view text) {
    return Holds(text, "\"") ? Between(text, "\"", "\"") : std::string(text);
}

float ParseSensValue(std::string_view text) {
    float number = 1.0f;
    ReadNumber(Between(text, "V ", " "), number);
    return number;
}

std::string ParseSensUnit(std::string_view text) {
    const std::size_t lastBlank = text.rfind(' ');
    if (lastBlank == std::string_view::npos) {
        return NormalizeUnit("");
    }
    const std::string_view tail = text.substr(lastBlank);
    std::string unit;
    if (Holds(tail, "*")) {
        unit = Between(tail, " ", "*");
    } else if (Holds(tail, "/")) {
        unit = Between(tail, " ", "/");
    }
    return NormalizeUnit(unit);
}

float ParseMagnify(std::string_view text) {
    float magnify = 1.0f;
    ReadNumber(AfterFirst(text, "] "), magnify);
    return magnify > 0.0f ? magnify : 1.0f;
}

float ParseAspectRatio(std::string_view text) {
    float number = 0.0f;
    if (Holds(text, ":")) {
        ReadNumber(BeforeFirst(text, ":"), number);
        return number;
    }
    ReadNumber(text, number);
    return std::pow(2.0f, number);
}

Value ParseScanSize(std::string_view text) {
    std::int32_t size = 0;
    ReadNumber(BeforeFirst(text, " "), size);
    return MakeValue(size, NormalizeUnit(AfterLast(text, " ")));
}

PlaneFit ParsePlaneFit(std::string_view text) {
    PlaneFit fit;
    const std::vector<std::string_view> pieces = BlankSeparatedPieces(text);
    if (pieces.size() >= 3) {
        ReadNumber(pieces[0], fit.a);
        ReadNumber(pieces[1], fit.b);
        ReadNumber(pieces[2], fit.c);
    }
    if (pieces.size() >= 4) {
        std::int32_t order = 0;
        ReadNumber(pieces[3], order);
        fit.order = static_cast<std::uint32_t>(order);
    }
    return fit;
}

std::string NormalizeUnit(std::string_view unit) {
    const std::string text(unit);
    if (Orx::Core::UnitDictionary::StandardUnits()->IsUnitDefined(text)) {
        return text;
    }
    if (text == "~m") {
        return "\xB5m";
    }
    if (text == "\xBA" || text == "\xB0") {
        return "deg";
    }
    if (text == "Pa") {
        return "Pascal";
    }
    if (text == "~A") {
        return "\xB5" "A";
    }
    return {};
}

int ClassifyPlistName(std::string_view name) {
    if (Holds(name, "force image list")) {
        return 2;
    }
    if (Holds(name, "image list")) {
        return Holds(name, "#") ? 3 : 1;
    }
    return 0;
}

bool IsImageListName(std::string_view name) {
    return !name.empty() && Holds(name, "image list");
}

}  // namespace QlValueStrings
