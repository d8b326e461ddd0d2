// SaveChannelAs and RewriteChannels: files whose parameters from the channel
// units on are rebuilt for the channels that remain.

#include "Tef/TefSaveTestSupport.h"

#include "DataSourceDll/DataSourceDllState.h"
#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

#include <filesystem>

using SampleKit::TefBuilder;
using TefTest::FileBytes;
using TefTest::Image;
using TefTest::TefSaveTest;
using TefTest::Text;

namespace {

// Channel 1 of a file of two, as a file of its own is to hold it: the values
// of its groups, and section 0's opaque bytes under its own type, subtype and
// direction.
TefBuilder SecondChannelAlone(const std::vector<std::uint16_t>& missing)
{
    TefBuilder alone(1, 3, 2);
    alone.Set(108, TefBuilder::Double(TefBuilder::kZRange + 1));
    alone.Set(121, TefBuilder::Double(TefBuilder::kRangeOrigin - 1));
    alone.Set(129, TefBuilder::Double(TefBuilder::kAuxiliary * 2));
    alone.Set(137, TefBuilder::Text("Stored 1"));
    const TefBuilder::Channel second = TefBuilder::StandardChannel(1, 3, 2, 2);
    alone.channels[0].type = second.type;
    alone.channels[0].subtype = second.subtype;
    alone.channels[0].direction = second.direction;
    for (std::uint16_t id : missing)
        alone.Remove(id);
    return alone;
}

TefBuilder TwoChannelsWithout(const std::vector<std::uint16_t>& missing)
{
    TefBuilder builder(2, 3, 2);
    for (std::uint16_t id : missing) {
        builder.Remove(id);
        if (id == 146)
            builder.Remove(147);
    }
    return builder;
}

}  // namespace

TEST_F(TefSaveTest, SavedChannelOpensAsTheOnlyChannelOfItsFile)
{
    TefBuilder builder(3, 4, 3);
    builder.Remove(116);
    builder.Set(101, TefBuilder::Text("deg"));
    for (std::uint32_t& pixel : builder.channels[1].pixels)
        pixel = (pixel * 7 + 3) & 0xFFFF;
    path = Fresh("three.tef");
    builder.Save(path);
    ASSERT_EQ(OpenPath(path), 1);
    const std::vector<double> raw = Image(DataSourceDllGetImageData, 1);
    ASSERT_EQ(raw.size(), 12u);

    IOLDataSource* source = DataSourceDllState::Current();
    source->SetNoteOfAll("not in the file");
    const std::string single = Fresh("single.tef");
    ASSERT_TRUE(source->SaveChannelAs(1, single, false));
    EXPECT_EQ(source->GetFilePath(), path);
    EXPECT_EQ(source->GetNumberOfChannels(), 3);

    ASSERT_EQ(OpenPath(single), 1);
    int channels = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&channels), 1);
    EXPECT_EQ(channels, 1);
    EXPECT_EQ(Text(DataSourceDllGetDataTypeDesc(0)), "Phase");
    EXPECT_EQ(Text(DataSourceDllGetMetricDataScaleUnits(0)), "deg");
    EXPECT_EQ(Text(DataSourceDllGetLineDirection(0)), "Backward");
    double zScale = 0.0;
    EXPECT_EQ(DataSourceDllGetZScaleInSwUnits(0, &zScale), 1);
    EXPECT_EQ(zScale, TefBuilder::kZRange + 1);
    EXPECT_EQ(Image(DataSourceDllGetImageData, 0), raw);
    // the channel comes from the file on disk, not from the source's changes
    EXPECT_EQ(Reload(single)->GetNote(0), "Sample note");
    EXPECT_TRUE(messages.empty());
}

TEST_F(TefSaveTest, RebuiltFileHasItsStatedSizeCutOrPadded)
{
    // With the channel count record and the group of bits in use the content
    // outruns the size by the preview head: the last 6 bytes of pixels are
    // not written, and the file reads with them as zero bytes.
    {
        const auto source = Load(TefBuilder(2, 3, 2), "cut.tef");
        const std::string single = Fresh("cut-single.tef");
        ASSERT_TRUE(source->SaveChannelAs(1, single, false));
        std::vector<std::uint8_t> expected = SecondChannelAlone({}).Bytes();
        expected.resize(expected.size() - 6);
        EXPECT_EQ(FileBytes(single), expected);
        const auto reloaded = Reload(single);
        ASSERT_TRUE(reloaded->IsOpen());
        EXPECT_TRUE(messages.empty());
        // every pixel but the three whose bytes were lost, which read as a zero word
        const std::vector<std::int32_t> kept(source->GetData(1), source->GetData(1) + 6);
        const std::vector<std::int32_t> read(reloaded->GetData(0), reloaded->GetData(0) + 6);
        EXPECT_EQ(std::vector<std::int32_t>(read.begin() + 3, read.end()), std::vector<std::int32_t>(kept.begin() + 3, kept.end()));
        EXPECT_EQ(std::vector<std::int32_t>(read.begin(), read.begin() + 3), std::vector<std::int32_t>(3, -32768));
    }
    // Without both the size outruns the content, and zeros fill the end.
    messages.clear();
    {
        const auto source = Load(TwoChannelsWithout({116, 146}), "padded.tef");
        const std::string single = Fresh("padded-single.tef");
        ASSERT_TRUE(source->SaveChannelAs(1, single, false));
        std::vector<std::uint8_t> expected = SecondChannelAlone({116, 146}).Bytes();
        expected.resize(expected.size() + 6, 0);
        EXPECT_EQ(FileBytes(single), expected);
        EXPECT_TRUE(Reload(single)->IsOpen());
        EXPECT_TRUE(messages.empty());
    }
}

TEST_F(TefSaveTest, RewrittenSourceStandsForTheNewFile)
{
    // Without the channel count record a rebuilt file of all channels is
    // exactly the file it was made from.
    const TefBuilder builder = TwoChannelsWithout({116});
    const auto source = Load(builder, "before.tef");
    const std::string before = path;
    const std::string after = Fresh("after.tef");
    ASSERT_TRUE(source->RewriteChannels(after));
    EXPECT_EQ(FileBytes(after), builder.Bytes());
    EXPECT_EQ(source->GetFilePath(), after);
    EXPECT_EQ(source->GetFileTitle(), "after.tef");

    // later saves read and write the new file
    std::filesystem::remove(before);
    source->SetNoteOfAll("Next");
    const std::string copy = Fresh("after-copy.tef");
    ASSERT_TRUE(source->SaveAs(copy, false));
    EXPECT_EQ(Reload(copy)->GetNote(0), "Next");
    ASSERT_TRUE(source->Save(false));
    EXPECT_EQ(Reload(after)->GetNote(0), "Next");
    EXPECT_FALSE(std::filesystem::exists(before));
}

TEST_F(TefSaveTest, ChannelBeyondTheFileIsRefusedAfterTheWholeFileWasSaved)
{
    const TefBuilder builder(2, 3, 2);
    const auto source = Load(builder);
    const std::string single = Fresh("beyond.tef");
    EXPECT_FALSE(source->SaveChannelAs(2, single, false));
    EXPECT_EQ(messages, std::vector<std::string>{TefFormat::Message::kNoChannelData});
    // the channel is looked for only once the file was saved there whole
    EXPECT_EQ(FileBytes(single), builder.Bytes());
}
