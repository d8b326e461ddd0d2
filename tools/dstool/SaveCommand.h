#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool save FILE OUT: a file of any family written again under a new name.
Command SaveCommand();

}  // namespace Dstool
