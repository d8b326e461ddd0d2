#pragma once

// A fresh, empty folder for one test, in the test's own folder (see
// TestTempPath).

#include "support/TestTempPath.h"

#include <filesystem>
#include <string>

namespace TestSupport {

inline std::filesystem::path TempFolder(const std::string& name) {
    const std::filesystem::path folder = TestTempPath(name);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

}  // namespace TestSupport
