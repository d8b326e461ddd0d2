#pragma once

#include "tools/dstool/FileDescription.h"

namespace Dstool {

// The description of a file on standard output, as lines for a person or as
// one JSON document. Both show the same values; a part that the file's kind
// does not have is left out.
class InfoReport {
public:
    static void Text(const FileDescription& file);
    static void Json(const FileDescription& file);
};

}  // namespace Dstool
