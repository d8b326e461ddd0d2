#pragma once

#include "Platform/DataCore/DataContainer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace Orx::DataCore {

// Reads a container file: the header, then every matrix block it names. All
// the file's promises are checked against its length before anything of
// their size is allocated; a broken promise raises ContainerFormatError.
class ContainerReader {
public:
    // Reads exactly size bytes at offset, or raises.
    using ReadAt = std::function<void(std::uint64_t offset, void* buffer, std::size_t size)>;

    struct Contents {
        std::string fileType;
        DataContainerPtr root;
        std::uint64_t headerSize = 0;
    };

    static constexpr const char* kMagic = "OrxDataContainer";
    static constexpr const char* kEndOfHeader = "end-of-header";
    static constexpr std::uint64_t kMaxHeaderBytes = 16ull << 20;
    static constexpr std::size_t kMaxSectionDepth = 64;

    static Contents Read(std::uint64_t length, const ReadAt& readAt);
    static Contents ReadMemory(const void* data, std::size_t size);
};

}  // namespace Orx::DataCore
