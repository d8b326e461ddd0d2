#include "Parm/parmStrenum.h"

#include <boost/format.hpp>

#include <utility>

namespace {

// Enumerations step one entry per this many fine steps.
constexpr std::uint16_t kEnumerationStep = 100;

}  // namespace

parmStrenum::parmStrenum(std::uint64_t owner) : parm(owner) {
    step = kEnumerationStep;
    ParmStrenumCommon::owner = this;
}

const char* parmStrenum::CurrentText() const {
    return IsInList(index) ? texts[index] : nullptr;
}

void parmStrenum::GetValueString(std::string* buffer) {
    const char* text = CurrentText();
    if (buffer == nullptr || text == nullptr) {
        return;
    }
    *buffer = boost::str(boost::format("%-17s%10s        ") % (title != nullptr ? title : "") % text);
}

void parmStrenum::WriteValueText(std::string& cursor) {
    if (isSet != 0) {
        ReadIndex();
    }
    if (const char* text = CurrentText()) {
        cursor += text;
    }
}

void parmStrenum::ParseProps(std::string_view& cursor) {
    isSet = 0;
    const std::size_t blanks = cursor.find_first_not_of(" \t");
    cursor.remove_prefix(blanks == std::string_view::npos ? cursor.size() : blanks);
    std::size_t length = 0;
    const int match = ParseIndex(cursor, &length);
    if (match >= 0) {
        index = match;
        cursor.remove_prefix(length);
    }
    written = 1;
}

void parmStrenum::GetLimits(std::string* name, int, std::string* value, std::string* unit) {
    if (name != nullptr) {
        MakeShortName();
        *name = parm::name != nullptr ? parm::name : "";
    }
    if (value != nullptr) {
        CopyText(value);
    }
    if (unit != nullptr) {
        unit->clear();
    }
}

void parmStrenum::GetLimitsTrial(std::string* name, int which, std::string* value, std::string* unit) {
    std::swap(index, trialIndex);
    GetLimits(name, which, value, unit);
    std::swap(index, trialIndex);
}
