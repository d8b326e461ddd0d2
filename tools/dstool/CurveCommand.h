#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool curve FILE [--index N] [--channel C] (--png OUT | --csv OUT) [--raw | --volts | --metric | --force]
Command CurveCommand();

}  // namespace Dstool
