#include "Platform/DataCore/ChannelBlock.h"

#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/ContainerText.h"
#include "Platform/DataCore/DataContainer.h"

#include <limits>

namespace Orx::DataCore {

namespace {

const char* const kOffsetKey = "Data offset";
const char* const kLengthKey = "Data length";
const char* const kBytesKey = "Bytes/pixel";

std::uint64_t readCount(const DataContainer& section, const char* key) {
    auto entry = section.GetEntry(key);
    if (!entry) {
        throw ContainerFormatError("Section \"" + section.GetName() + "\" holds \"RawData\" but no \"" + key + "\"",
                                   ORX_CODE_CONTEXT);
    }
    auto text = entry->TextForm();
    auto value = text ? ContainerText::ParseUInt64(ContainerText::TrimBlanks(*text)) : std::nullopt;
    if (!value) {
        throw ContainerFormatError("\"" + std::string(key) + "\" of section \"" + section.GetName() +
                                       "\" is no byte count: \"" + entry->DisplayText() + "\"",
                                   ORX_CODE_CONTEXT);
    }
    return *value;
}

}  // namespace

bool ChannelBlock::Applies(const DataContainer& section, const std::string& key, ContainerValue::Kind kind) {
    return key == kDataKey && kind == ContainerValue::Kind::IntMatrix && section.HasKey(kOffsetKey);
}

ChannelBlock ChannelBlock::Of(const DataContainer& section) {
    ChannelBlock block;
    block.offset = readCount(section, kOffsetKey);
    block.length = readCount(section, kLengthKey);
    std::uint64_t bytes = section.HasKey(kBytesKey) ? readCount(section, kBytesKey) : 2;
    if (bytes != 2 && bytes != 4) {
        throw ContainerFormatError("\"Bytes/pixel\" of section \"" + section.GetName() + "\" is " +
                                       std::to_string(bytes) + "; samples are 2 or 4 bytes",
                                   ORX_CODE_CONTEXT);
    }
    block.bytesPerSample = static_cast<unsigned>(bytes);
    if (block.offset > std::numeric_limits<std::uint64_t>::max() - block.length) {
        throw ContainerFormatError("The samples of section \"" + section.GetName() + "\" end beyond any file",
                                   ORX_CODE_CONTEXT);
    }
    return block;
}

std::uint64_t ChannelBlock::SampleBytes(std::uint64_t rows, std::uint64_t columns, const std::string& section) const {
    // rows and columns stay below 2^32, so their product cannot overflow.
    std::uint64_t count = rows * columns;
    if (count > length / bytesPerSample) {
        throw ContainerFormatError("Section \"" + section + "\": " + std::to_string(rows) + " x " +
                                       std::to_string(columns) + " samples of " + std::to_string(bytesPerSample) +
                                       " bytes exceed its \"Data length\" of " + std::to_string(length),
                                   ORX_CODE_CONTEXT);
    }
    return count * bytesPerSample;
}

void ChannelBlock::Decode(const std::uint8_t* bytes, std::size_t count, unsigned bytesPerSample, std::int32_t* out) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* p = bytes + i * bytesPerSample;
        std::uint32_t bits;
        if (bytesPerSample == 2) {
            bits = (static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8) << 16;
        } else {
            bits = static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
                   static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
        }
        out[i] = static_cast<std::int32_t>(bits);
    }
}

void ChannelBlock::Encode(const std::int32_t* samples, std::size_t count, unsigned bytesPerSample, std::uint8_t* out) {
    for (std::size_t i = 0; i < count; ++i) {
        // Two-byte samples keep the upper half: an arithmetic shift by 16.
        std::uint32_t bits = bytesPerSample == 2 ? static_cast<std::uint32_t>(samples[i] >> 16)
                                                 : static_cast<std::uint32_t>(samples[i]);
        for (unsigned b = 0; b < bytesPerSample; ++b) {
            out[i * bytesPerSample + b] = static_cast<std::uint8_t>(bits >> (8 * b));
        }
    }
}

}  // namespace Orx::DataCore
