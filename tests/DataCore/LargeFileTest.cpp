#include "TestFiles.h"

#include "Platform/DataCore/DataFile.h"
#include "tools/samplekit/ContainerBuilder.h"

#include <gtest/gtest.h>

using namespace Orx::DataCore;
using SampleKit::ContainerBuilder;

namespace {

// Channels beyond 4 GB: the writer skips the gap instead of writing it, so
// the file is sparse, and the reader finds the samples by 64-bit offsets.
TEST(LargeFile, ChannelsBeyondFourGigabytesReadBack) {
    const std::uint64_t first = (5ull << 30) + 12;
    const std::uint64_t second = first + (1ull << 32);
    std::string path = DataCoreTest::TempPath("sparse_beyond_4gb.qdf");
    ContainerBuilder::Quillon()
        .Section("QuillonFileOverviewInfo")
        .Texts("DataPlistNames", {"Dulce image list", "Dulce image list#2"})
        .Section("Dulce image list")
        .Samples16(first, 2, 2, {-1, 2, -3, 4})
        .Section("Dulce image list#2")
        .Samples32(second, 1, 3, {7, -8, 2147483647})
        .Section("[Data]")
        .FloatMatrix("Map", 1, 2, {0.5f, -0.5f})
        .Write(path);

    auto length = Orx::Core::FileLength(path);
    ASSERT_TRUE(length);
    EXPECT_GT(*length, second);

    auto file = DataFile::Open(path, 1, 0, "", nullptr);
    ASSERT_TRUE(file);
    std::string offsetText;
    EXPECT_TRUE(file->GetContainer({"Dulce image list#2"})->GetValue("Data offset", offsetText));
    EXPECT_EQ(offsetText, std::to_string(second));
    auto a = file->GetContainer({"Dulce image list"})->GetRawData("RawData");
    ASSERT_TRUE(a);
    EXPECT_EQ((*a)(0, 0), -65536);
    EXPECT_EQ((*a)(1, 1), 4 * 65536);
    auto b = file->GetContainer({"Dulce image list#2"})->GetRawData("RawData");
    ASSERT_TRUE(b);
    EXPECT_EQ((*b)(0, 1), -8);
    EXPECT_EQ((*b)(0, 2), 2147483647);
    auto map = file->GetContainer({"[Data]"})->GetFloatMatrix("Map");
    ASSERT_TRUE(map);
    EXPECT_EQ((*map)(0, 1), -0.5f) << "a matrix with its own offset lies behind the last channel";
    Orx::Core::RemoveFile(path);
}

}  // namespace
