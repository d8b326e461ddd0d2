// What a ".tef" source holds after Initialize, beyond what the exports show:
// the record of the base, the values kept for the writers, the load records,
// and what stays of a file refused part way.

#include "Tef/TefSourceTestSupport.h"
#include "Tef/TefTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include <gtest/gtest.h>

#include <memory>

using SampleKit::TefBuilder;

namespace {

class TefSourceRecordTest : public TefTest::TefSourceTest {
protected:
    std::unique_ptr<TefOLDataSource> Load(const TefBuilder& builder, const std::string& name = "record.tef")
    {
        path = TestTempPath(name);
        TefTest::WriteBytes(path, builder.Bytes());
        auto source = std::make_unique<TefOLDataSource>(path);
        source->Initialize();
        return source;
    }
};

}  // namespace

TEST_F(TefSourceRecordTest, KeepsTheFileWideValues)
{
    TefBuilder builder(2, 3, 2);
    builder.majorVersion = 9;
    builder.minorVersion = 99;
    const auto source = Load(builder);
    ASSERT_TRUE(source->IsOpen());

    EXPECT_EQ(source->GetFileTitle(), "record.tef");
    EXPECT_EQ(source->GetFilePath(), path);
    EXPECT_EQ(source->GetFileVersion(), "9.99");
    EXPECT_EQ(source->GetParameterCount(), static_cast<int>(builder.records.size()));
    EXPECT_EQ(source->GetFileChannelCount(), 2);
    EXPECT_EQ(source->GetNumberOfDisplayChannels(), 2);
    EXPECT_EQ(source->GetFileSubType(), "IMAGE");
    EXPECT_TRUE(source->IsMetric());
    EXPECT_EQ(source->GetFeedbackMode(), "Tapping");

    EXPECT_EQ(source->GetDate(), TefBuilder::kDateTime);
    EXPECT_EQ(source->GetTipSerialNumber(), TefBuilder::kTipSerialNumber);
    EXPECT_EQ(source->GetScanRate().GetValue(), TefBuilder::kScanRate);
    EXPECT_EQ(source->GetScanRate().GetUnits()->GetName(), "Hz");
    EXPECT_EQ(source->GetXOffset().GetValue(), TefBuilder::kXOffset);
    EXPECT_EQ(source->GetYOffset().GetValue(), TefBuilder::kYOffset);
    EXPECT_EQ(source->GetYOffset().GetUnits()->GetName(), "nm");
    EXPECT_EQ(source->GetCantDrive(), TefBuilder::kDrive);
    EXPECT_EQ(source->GetForceDigitalSetPointValue(), TefBuilder::kSetpoint);
    EXPECT_EQ(source->GetScanSizeY().GetValue(), TefBuilder::kScanSizeY);

    EXPECT_EQ(source->GetKept12(), 12.5);
    EXPECT_EQ(source->GetKept13(), 13.5);
    EXPECT_EQ(source->GetKept20(), "kept twenty");
    EXPECT_EQ(source->GetKept21(), "kept twenty-one");
    EXPECT_EQ(source->GetKept25(), 25.5);
    EXPECT_EQ(source->GetKept26(), 26.5);
    EXPECT_EQ(source->GetKept27(), 27.5);
    EXPECT_EQ(source->GetKept119(), 119.5);
    EXPECT_EQ(source->GetKept120(), 120.5);
    EXPECT_EQ(source->GetKept145(), TefBuilder::kKept145);

    // the writers patch the file where the walker found the records
    const TefDocument walked = TefTest::Walk(builder);
    EXPECT_EQ(source->GetOffsets(), walked.offsets);
    EXPECT_EQ(source->GetChannelTable(), walked.channelTable);
    EXPECT_NE(source->GetOffsets().zRangeOffset, 0u);
}

TEST_F(TefSourceRecordTest, EachChannelHasALoadRecordItsPixelsAndItsItem)
{
    TefBuilder builder(2, 3, 2);
    builder.channels[1] = TefBuilder::StandardChannel(1, 3, 2, 4);
    builder.Set(19, TefBuilder::Double(0.875));
    builder.Set(18, TefBuilder::Double(12.5));
    const auto source = Load(builder);
    ASSERT_TRUE(source->IsOpen());
    ASSERT_EQ(source->GetChannelRecords().size(), 2u);
    ASSERT_EQ(source->GetChannelPixels().size(), 2u);

    for (unsigned c = 0; c < 2; ++c) {
        const OLDataItemLoadRecord& record = source->GetChannelRecords()[c];
        EXPECT_EQ(record.channelIndex, c);
        EXPECT_EQ(record.dataLength, 3u * 2u * (c == 0 ? 2u : 4u));
        EXPECT_EQ(record.frameWidth, 3u);
        EXPECT_EQ(record.frameHeight, 2u);
        EXPECT_EQ(record.note, "Sample note");
        EXPECT_EQ(record.units, "Metric");

        OLDataItem* item = source->GetDataItem(c);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->GetData(), source->GetChannelPixels()[c].data());
        EXPECT_EQ(item->GetDataSize(), 6u);
        EXPECT_EQ(item->GetNote(), "Sample note");
        EXPECT_EQ(item->GetItemValue(), 0.875);
        EXPECT_EQ(source->GetChannelRotateAngle(c), 12.5f);
        EXPECT_EQ(source->GetDataName(c), c == 0 ? "Topography" : "Phase");
    }
    EXPECT_FALSE(source->Is16Bit());  // the last channel decides
}

TEST_F(TefSourceRecordTest, ScanSizeWithoutItsRecordHasNoUnit)
{
    TefBuilder builder(1, 2, 2);
    builder.Remove(2);
    const auto source = Load(builder);
    ASSERT_TRUE(source->IsOpen());
    EXPECT_EQ(source->GetScanSize().GetValue(), 0.0);
    EXPECT_EQ(source->GetScanSize().GetUnits()->GetName(), "");
    EXPECT_EQ(source->GetScanSizeY().GetUnits()->GetName(), "nm");
}

TEST_F(TefSourceRecordTest, RefusedFileKeepsWhatWasReadBeforeTheRefusal)
{
    TefBuilder builder(3, 3, 2);
    builder.channels[2].imageTag = 7;
    const auto source = Load(builder);
    EXPECT_FALSE(source->IsOpen());
    EXPECT_EQ(messages, std::vector<std::string>{"Expecting image data, file misaligned"});
    EXPECT_EQ(source->GetNumberOfChannels(), 3);
    EXPECT_EQ(source->GetChannelRecords().size(), 2u);
    EXPECT_EQ(source->GetChannelPixels().size(), 2u);
    EXPECT_NE(source->GetDataItem(1), nullptr);
    EXPECT_EQ(source->GetDataItem(2), nullptr);
    EXPECT_EQ(source->GetFileSubType(), "");
}

TEST_F(TefSourceRecordTest, HeadClaimingMoreChannelsThanTheFileHoldsMakesNoMoreItems)
{
    TefBuilder many(2, 3, 2);
    many.channelCount = 65535;
    many.Remove(116);
    auto source = Load(many);
    EXPECT_FALSE(source->IsOpen());
    EXPECT_EQ(messages, std::vector<std::string>{"Unexpected end of file, file misaligned"});
    EXPECT_EQ(source->GetChannelRecords().size(), 2u);
    EXPECT_EQ(source->GetDataItem(2), nullptr);

    // An empty image block in the preview, and a section whose header block
    // leads back onto it: every claimed channel would read the same bytes.
    TefBuilder looping(1, 0, 0);
    looping.channelCount = 65535;
    looping.Remove(116);
    looping.preview = {42, 0, 26, 0, 0, 0};
    looping.preview.resize(6 + 16 + 4);  // image head, width and height 0
    looping.preview.insert(looping.preview.end(), {2, 0, 0, 0, 0, 0});
    looping.channels[0].headerLength = -38;
    messages.clear();
    source = Load(looping);
    EXPECT_FALSE(source->IsOpen());
    EXPECT_EQ(messages, std::vector<std::string>{"Image data lies over other image data, file misaligned"});
    EXPECT_GT(source->GetChannelRecords().size(), 1u);
    EXPECT_LE(source->GetChannelRecords().size(), looping.Bytes().size() / 38);
}
