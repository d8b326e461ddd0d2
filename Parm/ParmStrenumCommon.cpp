#include "Parm/ParmStrenumCommon.h"

#include "Parm/parm.h"

#include <cstring>

ParmStrenumCommon::~ParmStrenumCommon() = default;

int ParmStrenumCommon::Count() const {
    if (texts == nullptr) {
        return 0;
    }
    int count = 0;
    while (texts[count] != nullptr && texts[count][0] != '\0') {
        ++count;
    }
    return count;
}

const char* ParmStrenumCommon::GetTextAtIndexOfLink() const {
    const int i = GetIndex();
    return i >= 0 ? GetText(i) : nullptr;
}

int ParmStrenumCommon::GetIndex() const {
    if (owner != nullptr && owner->link != nullptr && owner->isLinked != 0) {
        return owner->link->ReadLinkedInteger(1);
    }
    return index;
}

void ParmStrenumCommon::ReadIndex() {
    index = GetIndex();
}

int ParmStrenumCommon::ParseIndex(std::string_view text, std::size_t* length) const {
    int best = -1;
    std::size_t bestLength = 0;
    for (int i = Count() - 1; i >= 0; --i) {
        const std::string_view candidate(texts[i]);
        if (candidate.size() > bestLength && text.starts_with(candidate)) {
            best = i;
            bestLength = candidate.size();
        }
    }
    if (length != nullptr) {
        *length = bestLength;
    }
    return best;
}

bool ParmStrenumCommon::SetIndexChecked(int i) {
    if (!IsInList(i)) {
        return false;
    }
    index = i;
    return true;
}

int ParmStrenumCommon::CopyText(std::string* buffer) const {
    const int i = GetIndex();
    const char* text = IsInList(i) ? texts[i] : nullptr;
    if (buffer != nullptr) {
        buffer->assign(text != nullptr ? std::string_view(text) : std::string_view(" "));
    }
    return text != nullptr ? i : 0;
}

// The index itself is trusted by the instruments; here an index outside the
// list answers null rather than reading past it.
const char* ParmStrenumCommon::GetText(int i) const {
    const int at = i < 0 ? index : i;
    return IsInList(at) ? texts[at] : nullptr;
}

void ParmStrenumCommon::OnModuleNotification() {}
