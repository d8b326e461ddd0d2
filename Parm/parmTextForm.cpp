// The text form of a parameter, its props line and its unit trimming.

#include "Parm/parm.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// The props line is looked for only this far into the cursor.
constexpr std::size_t kPropsWindow = 23;

bool IsCSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

bool IsCAlpha(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

void parm::MakeShortName() {
    if (name == nullptr || ownsName != 0) {
        return;
    }
    const char* colon = std::strchr(name, ':');
    if (colon == nullptr) {
        return;
    }
    const std::size_t length = static_cast<std::size_t>(colon - name);
    char* shortName = Allocate(length + 1);
    std::memcpy(shortName, name, length);
    shortName[length] = '\0';
    name = shortName;
    ownsName = 1;
}

bool parm::WriteText(std::string& cursor, bool useWriteAlways) {
    if (written == 0 && (!useWriteAlways || writeAlways == 0)) {
        return false;
    }
    changed = 0;
    if (packed != 0) {
        return true;
    }
    cursor += '\\';
    WritePrefix(cursor);
    MakeShortName();
    cursor += name != nullptr ? name : "";
    cursor += ": ";
    WriteValueText(cursor);
    cursor += "\r\n";
    return true;
}

// Reads " %s %ld" from the window, as the C library would, and takes the line
// only when its word is "props".
void parm::ParseProps(std::string_view& cursor) {
    char window[kPropsWindow + 1] = {};
    const std::size_t length = std::min(cursor.size(), kPropsWindow);
    std::memcpy(window, cursor.data(), length);

    std::size_t at = 0;
    while (IsCSpace(window[at])) {
        ++at;
    }
    const std::size_t wordStart = at;
    while (window[at] != '\0' && !IsCSpace(window[at])) {
        ++at;
    }
    const std::string_view word(window + wordStart, at - wordStart);
    if (word != "props") {
        return;
    }
    char* numberEnd = nullptr;
    const long number = std::strtol(window + at, &numberEnd, 10);
    if (numberEnd == window + at) {
        return;
    }
    props = static_cast<std::uint32_t>(number);
    hasProps = 1;
    cursor.remove_prefix(static_cast<std::size_t>(numberEnd - window));
}

void parm::TrimUnit(std::string& text) const {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsCAlpha(text[i])) {
            text.resize(i);
            return;
        }
    }
}
