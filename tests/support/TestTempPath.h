#pragma once

// Where tests put the files they write: under the folder the test runner
// names, or a folder of their own under the system's temporary folder.

#include <cstdlib>
#include <filesystem>
#include <string>

inline std::string TestTempPath(const std::string& name) {
    const char* base = std::getenv("DS_TEST_TMP");
    const std::filesystem::path dir = base != nullptr && *base != '\0'
                                          ? std::filesystem::path(base)
                                          : std::filesystem::temp_directory_path() / "ds_core_tests";
    std::filesystem::create_directories(dir);
    return (dir / name).string();
}
