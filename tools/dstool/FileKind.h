#pragma once

#include <string>

namespace Dstool {

// The family and kind of a file. The library has no export that names
// them, so they are found the way the library itself tells them apart: the
// family by the ".tef" extension or else by the type line at the head of a
// container file, the kind by which readers answer for the open file.
class FileKind {
public:
    // "tef", "Quillon", "Harlen", the container's own type text, or "unknown".
    static std::string Family(const std::string& path);
    // "script", "force volume", "high-speed", "image", "force" or "unknown".
    static std::string OfOpenFile();
};

}  // namespace Dstool
