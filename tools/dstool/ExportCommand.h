#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool export FILE --channel N (--png OUT | --csv OUT) [--raw | --volts | --metric]
Command ExportCommand();

}  // namespace Dstool
