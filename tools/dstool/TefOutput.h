#pragma once

#include "tools/dstool/LibrarySession.h"

#include <string>

namespace Dstool {

// For the commands that write ".tef" files, which the library can write
// again byte by byte: opens path in the session and makes sure it is such a
// file. Answers kExitDone when it is; else tells why on standard error and
// answers the exit status of that failure.
int OpenTefFile(LibrarySession& session, const std::string& command, const std::string& path);

}  // namespace Dstool
