#pragma once

// Opening built ".tef" files through the exports, with the messages meant
// for the user caught instead of shown.

#include "DataSourceDll/DataSourceDll.h"
#include "Platform/FileSystem.h"
#include "Platform/UserMessage.h"
#include "support/TestTempPath.h"
#include "tools/samplekit/TefBuilder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace TefTest {

inline void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes)
{
    Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
}

// A text result of the exports, released.
inline std::string Text(char* text)
{
    std::string out = text ? text : "(null)";
    DataSourceDllFreeString(text);
    return out;
}

using ImageReader = int (*)(int channel, double* out, int bufferSize, int* count);

// The image of a channel through one of the image readers; empty when refused.
inline std::vector<double> Image(ImageReader reader, int channel)
{
    int count = 0;
    int size = 0;
    if (DataSourceDllGetDataBufferSize(channel, &size) != 1 || size < 0)
        return {};
    std::vector<double> out(static_cast<std::size_t>(size));
    if (reader(channel, out.data(), size, &count) != 1)
        return {};
    out.resize(static_cast<std::size_t>(count));
    return out;
}

// Each test starts with no file open and catches what reaches the user.
class TefSourceTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        DataSourceDllClose();
        Orx::Core::SetUserMessageHandler([this](const std::string& text) { messages.push_back(text); });
    }

    void TearDown() override
    {
        DataSourceDllClose();
        Orx::Core::SetUserMessageHandler(nullptr);
    }

    int OpenBytes(const std::vector<std::uint8_t>& bytes, const std::string& name = "file.tef")
    {
        path = TestTempPath(name);
        WriteBytes(path, bytes);
        return OpenPath(path);
    }

    int Open(const SampleKit::TefBuilder& builder, const std::string& name = "file.tef")
    {
        return OpenBytes(builder.Bytes(), name);
    }

    static int OpenPath(std::string path) { return DataSourceDllOpen(path.data()); }

    std::string path;
    std::vector<std::string> messages;
};

}  // namespace TefTest
