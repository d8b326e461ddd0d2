#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool info FILE [--json]: what the file holds, channel by channel.
Command InfoCommand();

}  // namespace Dstool
