#pragma once

// Where tests put the files they write: under the folder the test runner
// names, or a folder of their own under the system's temporary folder. Each
// test writes into a folder named after it, and a suite's shared files go
// into one named after the suite and the process: the runner starts tests
// side by side, and two of them must never meet in one file.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

inline std::string TestTempFolderName() {
    const ::testing::UnitTest* unit = ::testing::UnitTest::GetInstance();
    std::string name;
    if (const ::testing::TestInfo* test = unit->current_test_info()) {
        name = std::string(test->test_suite_name()) + "." + test->name();
    } else if (const ::testing::TestSuite* suite = unit->current_test_suite()) {
        name = std::string(suite->name()) + "." + std::to_string(::getpid());
    } else {
        name = "process." + std::to_string(::getpid());
    }
    // Parameterised tests carry slashes in their names.
    std::replace(name.begin(), name.end(), '/', '_');
    return name;
}

inline std::string TestTempPath(const std::string& name) {
    const char* base = std::getenv("DS_TEST_TMP");
    const std::filesystem::path root = base != nullptr && *base != '\0'
                                           ? std::filesystem::path(base)
                                           : std::filesystem::temp_directory_path() / "ds_core_tests";
    const std::filesystem::path dir = root / TestTempFolderName();
    std::filesystem::create_directories(dir);
    return (dir / name).string();
}
