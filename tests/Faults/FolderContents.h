#pragma once

// Every file under a folder with its bytes, so that a test can tell that a
// failed save left no partial target, no temporary file and no changed byte.

#include "Platform/FileSystem.h"
#include "support/FileBytes.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace Faults {

using FolderContents = std::map<std::string, std::vector<std::uint8_t>>;

using TestSupport::BytesOf;

// Files by their path under root; a folder is listed with a trailing slash
// and no bytes, so that an empty one counts too.
inline FolderContents ContentsOf(const std::filesystem::path& root) {
    FolderContents contents;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::string name = std::filesystem::relative(entry.path(), root).string();
        if (entry.is_directory()) {
            contents[name + "/"] = {};
        } else {
            contents[name] = BytesOf(entry.path());
        }
    }
    return contents;
}

// The names, with the sizes of the files, for a failure's report.
inline std::vector<std::string> Listing(const FolderContents& contents) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : contents) {
        names.push_back(name + " (" + std::to_string(bytes.size()) + " bytes)");
    }
    return names;
}

}  // namespace Faults
