#pragma once

#include <cstdint>

// Where the writers patch a file again. Each offset is from the start of the
// file; 0 means the record was not in the file. All but two point at the
// value of a parameter record, behind its identifier and size.
struct TefOffsets {
    std::uint32_t firstChannelOffset = 0;    // tag of the first channel section
    std::uint32_t bitsInUseOffset = 0;       // 11
    std::uint32_t channelBitsOffset = 0;     // 146
    std::uint32_t scanSizeXOffset = 0;       // 2
    std::uint32_t scanSizeYOffset = 0;       // 3
    std::uint32_t widthOffset = 0;           // 7
    std::uint32_t heightOffset = 0;          // 8
    std::uint32_t documentLengthOffset = 0;  // parameter length field of the document head
    std::uint32_t unitsOffset = 0;           // 100
    std::uint32_t zRangeOffset = 0;          // 108
    std::uint32_t channelCountOffset = 0;    // 116

    bool operator==(const TefOffsets&) const = default;
};
