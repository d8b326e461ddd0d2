#pragma once

#include "tools/dstool/Command.h"

namespace Dstool {

// dstool set-note FILE TEXT OUT: FILE written again at OUT with a new note.
Command SetNoteCommand();

}  // namespace Dstool
