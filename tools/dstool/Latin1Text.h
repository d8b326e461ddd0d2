#pragma once

#include <string>

namespace Dstool {

// The library's texts are single bytes of the Latin alphabet (the micro
// sign is 0xB5); a terminal and a CSV reader want UTF-8.
std::string Utf8FromLatin1(const std::string& text);

}  // namespace Dstool
