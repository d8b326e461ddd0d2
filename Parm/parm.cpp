#include "Parm/parm.h"

#include "Parm/UnitVocabulary.h"

#include <algorithm>
#include <cstring>

namespace {

const char* UnitTextOfCode(std::uint32_t code) {
    return code < static_cast<std::uint32_t>(Orx::Core::kUnitCodeCount)
               ? Orx::Core::UnitTableText(static_cast<int>(code))
               : "";
}

void ClearGiven(std::initializer_list<std::string*> buffers) {
    for (std::string* buffer : buffers) {
        if (buffer != nullptr) {
            buffer->clear();
        }
    }
}

}  // namespace

parm::parm(std::uint64_t owner) : owner(owner) {}

parm::~parm() {
    if (ownsName != 0) {
        delete[] name;
        name = nullptr;
        ownsName = 0;
    }
}

void parm::SetOwner(std::uint64_t newOwner) {
    owner = newOwner;
}

void parm::WritePrefix(std::string&) {}

void parm::OnPack() {}

char* parm::Allocate(std::size_t size) {
    return new char[size]();
}

int parm::PrepareValue() {
    return 0;
}

int parm::ValueKind() const {
    return 0;
}

void parm::CommitValue() {}

void parm::GetValueText(std::string*) {}

std::uint32_t parm::GetId() const {
    return id;
}

int parm::ResetValue() {
    return 0;
}

void parm::BeginEdit() {}

void parm::EndEdit() {}

std::uint32_t parm::GetUnit(std::uint32_t which) const {
    switch (which) {
        case 2:
            return unitIndex2;
        case 3:
            return unitIndex3;
        default:
            return which;
    }
}

std::uint32_t parm::GetDisplayUnit(std::uint32_t, int) const {
    return 0;
}

void parm::CopyUnitName(std::string* buffer, std::uint32_t which, int detail) const {
    if (buffer != nullptr) {
        *buffer = UnitTextOfCode(GetDisplayUnit(which, detail));
    }
}

void parm::CopyDisplayUnitName(std::string* buffer, std::uint32_t which) const {
    if (buffer != nullptr) {
        *buffer = UnitTextOfCode(GetUnit(which));
    }
}

void parm::SetUnit(std::uint32_t unit, std::uint32_t which) {
    if (which == 2) {
        unitIndex2 = unit;
    } else if (which == 3) {
        unitIndex3 = unit;
    }
}

void parm::set_units() {
    throw "Illegal call parm::set_units";
}

bool parm::IsEnabled() const {
    return true;
}

void parm::GetTitle(std::string* buffer) const {
    if (buffer != nullptr) {
        *buffer = title != nullptr ? title : "";
    }
}

std::uint32_t parm::GetFlags() const {
    return 0;
}

void parm::WriteValueText(std::string&) {}

void parm::PackAndNotify(std::vector<std::uint8_t>& cursor) {
    changed = 0;
    OnPack();
    PackBinary(cursor);
}

void parm::Reset() {}

void parm::GetLimits(std::string* name, int, std::string* value, std::string* unit) {
    ClearGiven({name, value, unit});
}

int parm::Clamp() {
    return 0;
}

void parm::GetLimitsTrial(std::string* name, int which, std::string* value, std::string* unit) {
    parm::GetLimits(name, which, value, unit);
}

void parm::EndTrial(const std::string*) {
    trial = 0;
}

void parm::GetValueString(std::string* buffer) {
    ClearGiven({buffer});
}

bool parm::Step(std::string* name, int, std::int16_t, std::string* value, std::string* unit) {
    ClearGiven({name, value, unit});
    return false;
}

void parm::SetTrial(bool flag) {
    trial = flag ? 1 : 0;
}

void parm::SetTitle(std::string_view text) {
    const std::size_t length = std::min(text.size(), kTitleCapacity - 1);
    std::memcpy(inlineTitle, text.data(), length);
    inlineTitle[length] = '\0';
    title = inlineTitle;
}
