#include "TestFiles.h"

#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/DataFile.h"
#include "Platform/DataCore/HarlenDataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "tools/samplekit/ContainerBuilder.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace Orx::DataCore;
using DataCoreTest::TempPath;
using SampleKit::ContainerBuilder;

namespace {

// A force volume: one image channel and two force channels, 16-bit samples
// behind a header of 0xA000 bytes.
ContainerBuilder ForceVolume() {
    ContainerBuilder b = ContainerBuilder::Quillon();
    b.Section("QuillonFileOverviewInfo")
        .Text("FileSubType", "FVOL")
        .Int("NumberOfDataPlists", 3)
        .Texts("DataPlistNames", {"Dulce image list", "Dulce force image list", "Dulce force image list#2"})
        .Section("File list")
        .Text("Start context", "OL2")
        .Int("Data length", 0xA000)
        .Section("Dulce image list")
        .Samples16(0xA000, 2, 2, {1, 2, 3, 4})
        .Section("Dulce force image list")
        .Text("Note", "approach")
        .Samples16(0xA000 + 8, 1, 4, {5, 6, 7, 8})
        .Section("Dulce force image list#2")
        .Samples16(0xA000 + 16, 1, 4, {9, 10, 11, 12})
        .Section("Dulce scan list")
        .Text("Tip Serial Number", "T-1");
    return b;
}

std::shared_ptr<QuillonDataFile> Reopen(const std::string& path) {
    auto file = std::dynamic_pointer_cast<QuillonDataFile>(DataFile::Open(path, 1, 0, "", nullptr));
    EXPECT_TRUE(file);
    return file;
}

std::string Text(const std::shared_ptr<DataFile>& file, const std::string& section, const std::string& key) {
    std::string value;
    ParameterRead(file->GetContainer({section}), key, value);
    return value;
}

TEST(QuillonDataFile, TypeTextAloneDecidesTheFamily) {
    std::string quillon = TempPath("family.hdf");  // the extension says nothing
    ContainerBuilder::Quillon().Section("QuillonFileOverviewInfo").Write(quillon);
    auto a = DataFile::Open(quillon, 1, 0, "", nullptr);
    EXPECT_TRUE(std::dynamic_pointer_cast<QuillonDataFile>(a));
    EXPECT_EQ(a->GetFileName(), quillon);

    std::string harlen = TempPath("family.qdf");
    ContainerBuilder::Harlen().Section("HarlenFileOverviewInfo").Write(harlen);
    auto b = DataFile::Open(harlen, 1, 0, "", nullptr);
    EXPECT_TRUE(std::dynamic_pointer_cast<HarlenDataFile>(b));
    EXPECT_EQ(b->GetFileType(), "Harlen Data File");

    std::string other = TempPath("family.other");
    ContainerBuilder("Quillon Data File ").Write(other);
    auto c = DataFile::Open(other, 1, 0, "", nullptr);
    ASSERT_TRUE(c);
    EXPECT_FALSE(std::dynamic_pointer_cast<QuillonDataFile>(c)) << "the whole text must match";
    EXPECT_EQ(c->GetFileType(), "Quillon Data File ");

    EXPECT_THROW(DataFile::Open(quillon, 3, 0, "", nullptr), Orx::Core::LogicError);
}

TEST(QuillonDataFile, SavedFileTakesOffsetsAsHeaderSizePlusEarlierLengths) {
    std::string source = TempPath("save_source.qdf");
    ForceVolume().Write(source);
    auto original = Reopen(source);
    for (std::uint64_t headerSize : {std::uint64_t{0xA000}, std::uint64_t{0x13C40}}) {
        std::string target = TempPath("save_target_" + std::to_string(headerSize) + ".qdf");
        auto saved = DataFile::Open(target, 2, 2, QuillonDataFile::FILE_TYPE, nullptr);
        ASSERT_TRUE(std::dynamic_pointer_cast<QuillonDataFile>(saved));
        ASSERT_TRUE(saved->IsOpen());
        saved->CopyFrom(*original);
        std::uint64_t offset = headerSize;
        for (const auto& name : saved->GetPlistNames()) {
            auto section = saved->GetContainer({name});
            std::int32_t length = 0;
            if (!section->GetValue("Data length", length) || !section->HasKey("Data offset")) {
                continue;
            }
            section->SetValue("Data offset", std::to_string(offset));
            offset += static_cast<std::uint64_t>(length);
        }
        saved->SetContentModified(true);
        saved->Close();

        auto reread = Reopen(target);
        EXPECT_EQ(Text(reread, "Dulce force image list#2", "Data offset"), std::to_string(headerSize + 16));
        auto samples = reread->GetContainer({"Dulce force image list#2"})->GetRawData("RawData");
        ASSERT_TRUE(samples);
        EXPECT_EQ((*samples)(0, 3), 12 * 65536);
        EXPECT_EQ(*Orx::Core::FileLength(target), headerSize + 24);
    }
    EXPECT_EQ((*original->GetContainer({"Dulce image list"})->GetRawData("RawData"))(1, 1), 4 * 65536)
        << "the copy took its own samples";
}

TEST(QuillonDataFile, NewFileWherePathCannotBeWrittenIsNotOpen) {
    auto file = DataFile::Open(TempPath("no_such_folder/x.qdf"), 2, 2, QuillonDataFile::FILE_TYPE, nullptr);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->IsOpen());
}

TEST(QuillonDataFile, FlushForceCurveFillsTheForceSectionsInOrder) {
    std::string path = TempPath("flush.qdf");
    ForceVolume().Write(path);
    auto file = Reopen(path);
    std::vector<std::int32_t> approach{1 << 16, -(2 << 16), 3 << 16, 4 << 16};
    std::vector<std::int32_t> retract{-(5 << 16), 6 << 16, 7 << 16, 0x12345678};
    file->FlushForceCurve({approach.data(), retract.data()}, {4, 4});
    EXPECT_TRUE(file->IsContentModified());
    file->Close();

    auto reread = Reopen(path);
    auto first = reread->GetContainer({"Dulce force image list"})->GetRawData("RawData");
    auto second = reread->GetContainer({"Dulce force image list#2"})->GetRawData("RawData");
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->size1(), 1u);
    EXPECT_EQ(std::vector<std::int32_t>(first->data().begin(), first->data().end()), approach);
    EXPECT_EQ((*second)(0, 0), -(5 << 16));
    EXPECT_EQ((*second)(0, 3), 0x12340000) << "two-byte samples keep the upper half";
    EXPECT_EQ((*reread->GetContainer({"Dulce image list"})->GetRawData("RawData"))(0, 0), 65536)
        << "the image channel is no force channel";
    EXPECT_EQ(Text(reread, "Dulce force image list", "Data offset"), std::to_string(0xA000 + 8));

    auto shortFile = Reopen(path);
    std::vector<std::int32_t> tooLong(5, 1 << 16);
    shortFile->FlushForceCurve({tooLong.data()}, {5});
    EXPECT_THROW(shortFile->Close(), Orx::DataCore::ContainerFormatError)
        << "a curve longer than the section's \"Data length\" cannot be written";
}

TEST(QuillonDataFile, CloneChannelKeepsTheListedChannelsAlone) {
    std::string sourcePath = TempPath("clone_source.qdf");
    ForceVolume().Write(sourcePath);
    auto source = Reopen(sourcePath);
    std::string path = TempPath("clone_target.qdf");
    auto clone = std::dynamic_pointer_cast<QuillonDataFile>(
        DataFile::Open(path, 2, 2, QuillonDataFile::FILE_TYPE, nullptr));
    clone->CloneChannel({2, 7}, source->GetRoot());
    clone->Close();

    auto reread = Reopen(path);
    EXPECT_EQ(reread->GetPlistNames(), (std::vector<std::string>{"QuillonFileOverviewInfo", "File list",
                                                                 "Dulce force image list#2", "Dulce scan list"}));
    std::vector<std::string> names;
    EXPECT_TRUE(reread->GetContainer({"QuillonFileOverviewInfo"})->GetValue("DataPlistNames", names));
    EXPECT_EQ(names, std::vector<std::string>{"Dulce force image list#2"});
    std::int32_t count = 0;
    EXPECT_TRUE(reread->GetContainer({"QuillonFileOverviewInfo"})->GetValue("NumberOfDataPlists", count));
    EXPECT_EQ(count, 1);
    EXPECT_EQ((*reread->GetContainer({"Dulce force image list#2"})->GetRawData("RawData"))(0, 1), 10 * 65536);
    EXPECT_EQ(Text(reread, "Dulce scan list", "Tip Serial Number"), "T-1");
    EXPECT_EQ(source->GetPlistNames().size(), 6u) << "the source keeps all its sections";
}

TEST(QuillonDataFile, RemovedSectionsAndKeysStayGone) {
    std::string path = TempPath("remove.qdf");
    ForceVolume().Write(path);
    auto file = Reopen(path);
    file->GetContainer({"Dulce force image list"})->RemoveKey("RawData");
    file->RemoveContainer({"Dulce force image list"});
    file->RemoveContainer({"No such section"});
    file->DeleteParm("Dulce scan list", "Tip Serial Number");
    EXPECT_FALSE(file->GetContainer({"Dulce force image list"}));
    file->Close();
    auto reread = Reopen(path);
    EXPECT_FALSE(reread->GetContainer({"Dulce force image list"}));
    EXPECT_TRUE(reread->GetPlistKeys("Dulce scan list").empty());
    EXPECT_TRUE(reread->GetPlistKeys("No such section").empty());
    EXPECT_EQ(reread->GetContainer({}), reread->GetRoot());
}

TEST(QuillonDataFile, CoefficientsWidenFromSixteenBitUnits) {
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(0), 0);
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(1), 65536);
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(-3), -196608);
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(32767), 2147418112);
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(32768), -2147483647 - 1) << "wraps to 32 bits";
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(65537), 65536);
    EXPECT_EQ(QuillonDataFile::Convert16BitTo32Bit(-2147483647 - 1), 0);
}

}  // namespace
