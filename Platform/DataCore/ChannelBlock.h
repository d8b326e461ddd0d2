#pragma once

#include "Platform/DataCore/ContainerValue.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace Orx::DataCore {

class DataContainer;

// The samples of a channel section: "RawData", a matrix of 32-bit integers,
// lies where the section's "Data offset" says, within its "Data length"
// bytes, one sample of "Bytes/pixel" bytes after another. Two-byte samples
// are signed and stand for their value times 65536.
struct ChannelBlock {
    static constexpr const char* kDataKey = "RawData";

    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    unsigned bytesPerSample = 2;

    // Whether a value under that key of that section is placed by the section's keys.
    static bool Applies(const DataContainer& section, const std::string& key, ContainerValue::Kind kind);
    // Reads the three keys; raises ContainerFormatError where one is missing or
    // unreadable (no "Bytes/pixel" means 2).
    static ChannelBlock Of(const DataContainer& section);

    // Bytes that rows x columns samples take; ContainerFormatError when they
    // exceed the block.
    std::uint64_t SampleBytes(std::uint64_t rows, std::uint64_t columns, const std::string& section) const;

    static void Decode(const std::uint8_t* bytes, std::size_t count, unsigned bytesPerSample, std::int32_t* out);
    static void Encode(const std::int32_t* samples, std::size_t count, unsigned bytesPerSample, std::uint8_t* out);
};

}  // namespace Orx::DataCore
