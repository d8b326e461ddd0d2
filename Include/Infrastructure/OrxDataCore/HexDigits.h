#pragma once

#include <cstdint>

// Hexadecimal digits of the byte escapes and forms of the data layer.
namespace Orx::DataCore::HexDigits {

// The digit's value, or -1 for a byte that is no hexadecimal digit.
inline int Value(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

// The upper-case digit of a value below 16.
inline char Digit(unsigned value) { return "0123456789ABCDEF"[value & 0xF]; }

}  // namespace Orx::DataCore::HexDigits
