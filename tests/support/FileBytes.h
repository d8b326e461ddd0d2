#pragma once

// The bytes of a file, for tests that compare what is on disk.

#include "Platform/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace TestSupport {

inline std::vector<std::uint8_t> BytesOf(const std::filesystem::path& path) {
    std::vector<std::uint8_t> bytes;
    Orx::Core::ReadWholeFile(path.string(), bytes);
    return bytes;
}

}  // namespace TestSupport
