#include "tools/dstool/Latin1Text.h"

namespace Dstool {

std::string Utf8FromLatin1(const std::string& text)
{
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            out += c;
        } else {
            out += static_cast<char>(0xC0 | (byte >> 6));
            out += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return out;
}

}  // namespace Dstool
