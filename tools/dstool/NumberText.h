#pragma once

#include <string>

namespace Dstool {

// The shortest decimal text that reads back as the same double; "nan",
// "inf" and "-inf" for the values that have no decimal form.
std::string NumberText(double value);
// Six significant digits at most, for a person: 2.0000000000000004 is "2".
std::string ReadableNumber(double value);

}  // namespace Dstool
