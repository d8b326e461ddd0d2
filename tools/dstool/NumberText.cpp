#include "tools/dstool/NumberText.h"

#include <charconv>
#include <cstdio>

namespace Dstool {

std::string NumberText(double value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string ReadableNumber(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.6g", value);
    return buffer;
}

}  // namespace Dstool
