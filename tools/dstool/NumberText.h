#pragma once

#include <string>

namespace Dstool {

// The shortest decimal text that reads back as the same double; "nan",
// "inf" and "-inf" for the values that have no decimal form.
std::string NumberText(double value);

}  // namespace Dstool
