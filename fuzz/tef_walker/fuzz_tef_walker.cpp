// Any bytes at all, walked as a ".tef" file: a refusal is a normal answer,
// anything else that escapes is a fault.

#include "QlDataAnalysisExt/Tef/TefWalker.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TefDocument document;
    try {
        TefWalker::Walk(data, size, document);
    } catch (const std::runtime_error&) {
        // What was read before a refusal is kept and must be whole.
    }
    // Pixels held are never more than the file's pixel bytes could give.
    std::size_t pixels = 0;
    for (const TefChannelSection& section : document.sections)
        pixels += section.pixels.size();
    if (pixels > size / 2)
        __builtin_trap();
    return 0;
}
