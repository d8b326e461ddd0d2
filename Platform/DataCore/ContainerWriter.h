#pragma once

#include "Platform/DataCore/DataContainer.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Orx::DataCore {

// Writes a container file: the header, then every matrix block. Channel
// samples go where their sections' keys say, and the header must fit before
// the first of them; other matrices follow the last channel block, or the
// header when there is none. Content the syntax cannot carry raises
// ContainerFormatError before a byte is written.
class ContainerWriter {
public:
    class Sink {
    public:
        virtual ~Sink() = default;
        virtual void Write(const void* data, std::size_t size) = 0;
        // Bytes that read as zeros.
        virtual void Skip(std::uint64_t count) = 0;
    };

    static void Write(const std::string& fileType, const DataContainer& root, Sink& sink);
    static std::vector<std::uint8_t> WriteMemory(const std::string& fileType, const DataContainer& root);
};

}  // namespace Orx::DataCore
