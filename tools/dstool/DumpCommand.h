#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool dump FILE: the sections and keys of a section-and-key file.
Command DumpCommand();

}  // namespace Dstool
