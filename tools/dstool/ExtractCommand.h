#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool extract FILE --channel N OUT: one channel of FILE as a file of its own.
Command ExtractCommand();

}  // namespace Dstool
