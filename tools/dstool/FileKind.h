#pragma once

#include <string>
#include <vector>

namespace Dstool {

// The family and kinds of the file the library has open, as the library
// tells them: the type text that chose its family, and the kinds as bits.
class FileKind {
public:
    // "Quillon", "Harlen", "tef", or the type text itself for another family.
    static std::string Family();
    // "Quillon Data File", "Harlen Data File", ".tef"; "UNKNOWN" with no file.
    static std::string TypeText();
    // Every kind the file is of, the most telling first: "script", "force
    // volume", "high-speed", "timed force", "timed", "electrochemistry
    // force", "electrochemistry AFM", "electrochemistry STM",
    // "electrochemistry", "image", "force".
    static std::vector<std::string> Kinds();
    // The first of Kinds(), or "unknown".
    static std::string OfOpenFile();
    // Whether the file is of the kind of that bit.
    static bool Is(int kindBit);
};

}  // namespace Dstool
