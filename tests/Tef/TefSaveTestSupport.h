#pragma once

// Saving ".tef" sources loaded from built files, and reading back what was
// written.

#include "Tef/TefSourceTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace TefTest {

inline std::vector<std::uint8_t> FileBytes(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    Orx::Core::ReadWholeFile(path, bytes);
    return bytes;
}

// The offsets at which two files differ, up to the shorter one's end.
inline std::vector<std::size_t> DifferingOffsets(const std::vector<std::uint8_t>& a,
                                                 const std::vector<std::uint8_t>& b)
{
    std::vector<std::size_t> out;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
        if (a[i] != b[i])
            out.push_back(i);
    }
    return out;
}

class TefSaveTest : public TefSourceTest {
protected:
    // A source loaded from the builder's bytes written at name.
    std::unique_ptr<TefOLDataSource> Load(const SampleKit::TefBuilder& builder, const std::string& name = "saved.tef")
    {
        return LoadBytes(builder.Bytes(), name);
    }

    std::unique_ptr<TefOLDataSource> LoadBytes(const std::vector<std::uint8_t>& bytes,
                                               const std::string& name = "saved.tef")
    {
        path = Fresh(name);
        WriteBytes(path, bytes);
        return Reload(path);
    }

    static std::unique_ptr<TefOLDataSource> Reload(const std::string& at)
    {
        auto source = std::make_unique<TefOLDataSource>(at);
        source->Initialize();
        return source;
    }

    // A path with nothing at it, in a folder of the running test's own, so
    // that tests run side by side never meet in their files.
    static std::string Fresh(const std::string& name)
    {
        const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
        const std::filesystem::path folder = std::filesystem::path(TestTempPath("tef-saves")) /
                                             (std::string(test->test_suite_name()) + "." + test->name());
        std::filesystem::create_directories(folder);
        const std::filesystem::path at = folder / name;
        std::filesystem::remove_all(at);
        return at.string();
    }
};

}  // namespace TefTest
