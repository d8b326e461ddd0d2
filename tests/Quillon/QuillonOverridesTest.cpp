// Changes a client makes to a Quillon source besides its scales: new samples
// for a channel, the removal of channels, and the parameter texts it shows.

#include "Quillon/QuillonSaveSupport.h"

#include "Platform/DataCore/HarlenDataFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using namespace QuillonSave;

TEST(QuillonOverridesTest, NewSamplesGoIntoTheChannelsMatrixResizedOnlyForAnotherShape) {
    QuillonBuilder file("IMAGE");
    file.Remove(kImage2, "RawData");
    const auto source = QuillonTest::Load(file);
    const std::int32_t* matrix = source->GetData(0);

    std::vector<std::int32_t> same(16);
    std::iota(same.begin(), same.end(), -8);
    source->SetData(0, same.data(), 4, 4, 1234);
    EXPECT_EQ(source->GetData(0), matrix);
    EXPECT_EQ(SamplesOf(*source, 0), same);
    EXPECT_EQ(source->GetDataLength(0), 64u);
    EXPECT_EQ(source->GetDataItem(0)->GetDataOffset(), 1234u);

    // A client may hand back the channel's own samples in another shape.
    source->SetData(0, source->GetData(0), 2, 3, 0);
    EXPECT_EQ(SamplesOf(*source, 0), std::vector<std::int32_t>(same.begin(), same.begin() + 6));
    EXPECT_EQ(source->GetDataLength(0), 24u);
    const auto raw = source->GetDataFile()->GetContainer({kImage})->GetRawData("RawData");
    EXPECT_EQ(raw->size1(), 2u);
    EXPECT_EQ(raw->size2(), 3u);
    EXPECT_EQ(source->GetData(0), raw->data().data());

    // No matrix, no samples, no channel: nothing changes.
    const std::uint32_t length = source->GetDataLength(1);
    source->SetData(1, same.data(), 4, 4, 0);
    EXPECT_EQ(source->GetData(1), nullptr);
    EXPECT_EQ(source->GetDataLength(1), length);
    source->SetData(0, nullptr, 4, 4, 0);
    source->SetData(7, same.data(), 4, 4, 0);
    EXPECT_EQ(source->GetDataBufferSize(0), 6u);
    // More bytes than a file counts in 32 bits.
    source->SetData(0, same.data(), 65536, 16384, 0);
    EXPECT_EQ(source->GetDataBufferSize(0), 6u);
}

TEST(QuillonOverridesTest, RemovingEveryChannelEmptiesTheFilesListAndClosesTheSource) {
    QuillonBuilder file("IMAGE");
    const auto source = QuillonTest::Load(file);
    const std::vector<std::int32_t> second = SamplesOf(*source, 1);
    source->RemoveChannel(0);
    source->RemoveChannel(5);
    ASSERT_EQ(source->GetNumberOfChannels(), 1);
    EXPECT_TRUE(source->IsOpen());
    EXPECT_EQ(source->GetPlistName(0), kImage2);
    EXPECT_EQ(SamplesOf(*source, 0), second);
    EXPECT_EQ(source->GetDataFile()->GetContainer({kImage}), nullptr);
    const auto overview = source->GetDataFile()->GetContainer({"QuillonFileOverviewInfo"});
    std::vector<std::string> names;
    overview->GetValue("DataPlistNames", names);
    EXPECT_EQ(names, std::vector<std::string>{kImage2});

    source->RemoveChannel(0);
    EXPECT_FALSE(source->IsOpen());
    EXPECT_EQ(source->GetNumberOfChannels(), 0);
    overview->GetValue("DataPlistNames", names);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(TextOf(overview, "NumberOfDataPlists"), "0");
}

TEST(QuillonOverridesTest, PlistNamesAreTheSectionsOfAQuillonFileOnly) {
    QuillonBuilder file("IMAGE");
    const auto names = QuillonTest::Load(file)->GetDataPlistNames();
    for (const char* section : {"QuillonFileOverviewInfo", "Scanner list", kImage, kImage2}) {
        EXPECT_NE(std::find(names.begin(), names.end(), section), names.end()) << section;
    }
    Source harlen(Orx::DataCore::DataFile::Make("x.hdf", Orx::DataCore::HarlenDataFile::FILE_TYPE, file.Root()),
                  nullptr);
    EXPECT_TRUE(harlen.GetDataPlistNames().empty());
}

TEST(QuillonOverridesTest, ParameterTextsShowTheChannelAsTheClientLeftIt) {
    QuillonBuilder image("IMAGE");
    image.Text("Spare image list#7", "@Z magnify", "C [2:Z scale] 3.000000");
    const auto source = QuillonTest::Load(image);
    EXPECT_EQ(source->GetParameterListForItem("No such list", "Scan Rate"), "");
    EXPECT_EQ(source->GetParameterListForItem(QuillonBuilder::kScanList, "Scan Rate"), "0.9988");
    EXPECT_EQ(source->GetParameterListForItem(kImage, "Data Scale"), "5500 nm");
    source->SetChannelParameters(1, 2.0f);
    EXPECT_EQ(source->GetParameterListForItem(kImage2, "@2:Z scale"), source->GetDataItem(1)->GetZText());
    EXPECT_EQ(source->GetParameterListForItem(kImage2, "@Z magnify"), "2");
    EXPECT_EQ(source->GetParameterListForItem(kImage, "@Z magnify"), "1");
    // A section of a channel the source does not hold shows what the file says.
    EXPECT_EQ(source->GetParameterListForItem("Spare image list#7", "@Z magnify"), "C [2:Z scale] 3.000000");

    QuillonBuilder force("FORCE");
    const auto curves = QuillonTest::Load(force);
    EXPECT_EQ(curves->GetParameterListForItem(kForce, "@4:Ramp channel"), "Z");
    EXPECT_EQ(curves->GetParameterListForItem(kForce, "@4:Image Data"), "Deflection Error");
    // 40 V of ramp at 12.5 nm/V, 2 V of display at 45.5 nm/V.
    EXPECT_EQ(curves->GetParameterListForItem(kForce, "@4:Ramp size"), "500 nm");
    EXPECT_EQ(curves->GetParameterListForItem(kForce, "@4:Z display"), "91 nm");
}

TEST(QuillonOverridesTest, HardwareScaleOfNothingGivesNoOffset) {
    QuillonBuilder file("IMAGE");
    file.Text(kImage, "@2:Z scale", "V [Sens. Zsens] (0 V/LSB) 0 V")
        .Text(kImage, "@2:Z input offset", "V (1 V/LSB) 5 V");
    const std::vector<std::int32_t> stored = file.SamplesOf(0);
    const auto source = QuillonTest::Load(file);
    EXPECT_EQ(source->ZOffsetOfChannel(0), 0);
    EXPECT_EQ(SamplesOf(*source, 0), stored);
}
