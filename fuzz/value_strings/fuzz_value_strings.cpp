// Every value-string parser over arbitrary bytes, with the promises they make
// checked: no exception, results within the text, units known or absent.

#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool KnownOrEmpty(const std::string& unit) {
    return unit.empty() || Orx::Core::UnitDictionary::StandardUnits()->IsUnitDefined(unit);
}

void RequireUnitOk(const QlValueStrings::Value& value) {
    const std::string& name = value.GetUnits()->GetName();
    Require(KnownOrEmpty(name));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace QlValueStrings;
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    RequireUnitOk(ParseSoftValue(text, kScaledValue));
    RequireUnitOk(ParseSoftValue(text, kSensitivity));
    RequireUnitOk(ParseHardValue(text));
    RequireUnitOk(ParsePlainValue(text));
    RequireUnitOk(ParseScanSize(text));
    ParseSoftFloat(text);
    ParseRatio(text);
    ParseSensValue(text);
    ParseAspectRatio(text);
    ParsePlaneFit(text);
    Require(ParseMagnify(text) > 0.0f);
    Require(KnownOrEmpty(ParseSensUnit(text)));
    Require(KnownOrEmpty(NormalizeUnit(text)));
    Require(ParseBracketName(text).size() <= size);
    Require(ParseQuotedText(text).size() <= size);
    const int kind = ClassifyPlistName(text);
    Require(kind >= 0 && kind <= 3);
    Require(IsImageListName(text) == (kind != 0));

    // The primitives with delimiters taken from the input itself.
    if (size >= 2) {
        const std::string_view open = text.substr(0, 1);
        const std::string_view close = text.substr(1, 1);
        const std::string_view rest = text.substr(2);
        Require(Between(rest, open, close).size() <= rest.size());
        Require(AfterLast(rest, open).size() <= rest.size());
        Require(BeforeFirst(rest, close).size() <= rest.size());
        Require(AfterFirst(rest, open).size() <= rest.size());
    }
    return 0;
}
