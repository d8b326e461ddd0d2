#pragma once

// A fresh, empty folder for one test, under the folder the test runner
// names; a test run by hand without one uses the system's temporary folder.

#include <cstdlib>
#include <filesystem>
#include <string>

namespace TestSupport {

inline std::filesystem::path TempFolder(const std::string& name) {
    const char* base = std::getenv("DS_TEST_TMP");
    const std::filesystem::path root = base != nullptr && *base != '\0'
                                           ? std::filesystem::path(base)
                                           : std::filesystem::temp_directory_path() / "ds_tests";
    const auto folder = root / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

}  // namespace TestSupport
