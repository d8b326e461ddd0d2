#include "tools/dstool/NumberText.h"

#include <charconv>

namespace Dstool {

std::string NumberText(double value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

}  // namespace Dstool
