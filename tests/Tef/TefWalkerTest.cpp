#include "Tef/TefTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <tuple>

using SampleKit::TefBuilder;
using TefTest::Walk;

namespace {

// Where the value of the first record of an identifier lies in a built file,
// counted from the description alone.
std::uint32_t ValueOffset(const TefBuilder& builder, std::uint16_t id)
{
    std::size_t at = builder.note.size() + (builder.noteEnd ? 1 : 0) + 14;
    for (const TefBuilder::Record& record : builder.records) {
        if (record.id == id)
            return static_cast<std::uint32_t>(at + 4);
        at += 4 + record.value.size();
    }
    return 0;
}

std::uint16_t WordAt(const std::vector<std::uint8_t>& bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(bytes.at(at) | (bytes.at(at + 1) << 8));
}

double DoubleAt(const std::vector<std::uint8_t>& bytes, std::size_t at)
{
    double value = 0;
    if (at + 8 <= bytes.size())
        std::memcpy(&value, bytes.data() + at, 8);
    return value;
}

}  // namespace

TEST(TefWalkerTest, StandardFileGivesEveryValue)
{
    const TefBuilder builder(2, 4, 3);
    const TefDocument d = Walk(builder);

    EXPECT_EQ(d.note, "Sample note");
    EXPECT_TRUE(d.hasNoteEnd);
    EXPECT_EQ(d.noteEndOffset, 11u);
    EXPECT_EQ(d.fileVersion, "1.0");
    EXPECT_EQ(d.parameterCount, static_cast<std::int32_t>(builder.records.size()));
    EXPECT_EQ(d.fileChannelCount, 2);

    EXPECT_EQ(d.scanSizeX, TefBuilder::kScanSizeX);
    EXPECT_EQ(d.scanSizeY, TefBuilder::kScanSizeY);
    EXPECT_EQ(d.width, 4);
    EXPECT_EQ(d.height, 3);
    EXPECT_EQ(d.feedbackMode, "Tapping");
    EXPECT_EQ(d.scanRate, TefBuilder::kScanRate);
    EXPECT_EQ(d.tipSerialNumber, TefBuilder::kTipSerialNumber);
    EXPECT_EQ(d.dateTime, TefBuilder::kDateTime);
    EXPECT_EQ(d.rotation, static_cast<float>(TefBuilder::kRotation));
    EXPECT_EQ(d.value19, TefBuilder::kValue19);
    EXPECT_EQ(d.drive, TefBuilder::kDrive);
    EXPECT_EQ(d.setpoint, TefBuilder::kSetpoint);
    EXPECT_EQ(d.xOffset, TefBuilder::kXOffset);
    EXPECT_EQ(d.yOffset, TefBuilder::kYOffset);
    EXPECT_EQ(d.bitsInUse, 16);
    EXPECT_EQ(d.kept12, 12.5);
    EXPECT_EQ(d.kept13, 13.5);
    EXPECT_EQ(d.kept20, "kept twenty");
    EXPECT_EQ(d.kept21, "kept twenty-one");
    EXPECT_EQ(d.kept25, 25.5);
    EXPECT_EQ(d.kept26, 26.5);
    EXPECT_EQ(d.kept27, 27.5);
    EXPECT_EQ(d.kept119, 119.5);
    EXPECT_EQ(d.kept120, 120.5);
    EXPECT_EQ(d.kept145, TefBuilder::kKept145);

    ASSERT_EQ(d.channels.size(), 2u);
    ASSERT_EQ(d.channelTable.size(), 2u);
    ASSERT_EQ(d.sections.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        SCOPED_TRACE(i);
        const double n = static_cast<double>(i);
        const TefChannelSettings settings{.unit = "nm", .zRange = TefBuilder::kZRange + n, .zRangeUnit = "nm",
                                          .scanSizeX = TefBuilder::kScanSizeX, .scanSizeY = TefBuilder::kScanSizeY,
                                          .width = 4, .height = 3, .rotation = static_cast<float>(TefBuilder::kRotation),
                                          .value19 = TefBuilder::kValue19};
        EXPECT_EQ(d.channels[i], settings);
        const TefChannelInfo row{builder.channels[i].subtype, builder.channels[i].type, "Stored " + std::to_string(i),
                                 TefBuilder::kRangeOrigin - n, TefBuilder::kAuxiliary * (n + 1)};
        EXPECT_EQ(d.channelTable[i], row);
        const TefChannelSection& s = d.sections[i];
        EXPECT_TRUE(s.complete && s.hasPixels);
        EXPECT_EQ(std::tuple(s.width, s.height, s.bytesPerPixel), std::tuple(4, 3, 2));
        EXPECT_EQ(s.dataSize, 24u);
        EXPECT_EQ(s.pixels.size(), 12u);
    }
    EXPECT_EQ(d.sections[0].displayName, "Topography");
    EXPECT_EQ(d.sections[1].displayName, "Phase");
    EXPECT_EQ(d.sections[0].lineDirection, "Forward");
    EXPECT_EQ(d.sections[1].lineDirection, "Backward");
    EXPECT_TRUE(d.is16Bit);
}

TEST(TefWalkerTest, OffsetsPointAtTheValuesTheWritersPatch)
{
    const TefBuilder builder(3, 5, 2);
    const std::vector<std::uint8_t> bytes = builder.Bytes();
    const TefOffsets o = Walk(bytes).offsets;

    EXPECT_EQ(o.documentLengthOffset, builder.note.size() + 1 + 2);
    EXPECT_EQ(o.scanSizeXOffset, ValueOffset(builder, 2));
    EXPECT_EQ(o.scanSizeYOffset, ValueOffset(builder, 3));
    EXPECT_EQ(o.widthOffset, ValueOffset(builder, 7));
    EXPECT_EQ(o.heightOffset, ValueOffset(builder, 8));
    EXPECT_EQ(o.bitsInUseOffset, ValueOffset(builder, 11));
    EXPECT_EQ(o.unitsOffset, ValueOffset(builder, 100));
    EXPECT_EQ(o.zRangeOffset, ValueOffset(builder, 108));
    EXPECT_EQ(o.channelCountOffset, ValueOffset(builder, 116));
    EXPECT_EQ(o.channelBitsOffset, ValueOffset(builder, 146));
    // behind the records and the preview head: 6 bytes
    const std::size_t sectionBytes = 3 * (6 + 16 + 32 + 5 * 2 * 2);
    EXPECT_EQ(o.firstChannelOffset, bytes.size() - sectionBytes);

    EXPECT_EQ(DoubleAt(bytes, o.scanSizeXOffset), TefBuilder::kScanSizeX);
    EXPECT_EQ(WordAt(bytes, o.widthOffset), 5);
    EXPECT_EQ(WordAt(bytes, o.heightOffset), 2);
    EXPECT_EQ(WordAt(bytes, o.channelCountOffset), 3);
    EXPECT_EQ(WordAt(bytes, o.firstChannelOffset), 3);  // the section's tag
    EXPECT_EQ(WordAt(bytes, o.channelBitsOffset - 4), 146);
}

TEST(TefWalkerTest, RecordsNotInTheFileLeaveTheirOffsetsAndDefaults)
{
    TefBuilder builder(1, 512, 1);
    for (std::uint16_t id : {2, 3, 6, 7, 8, 9, 10, 11, 16, 23, 24, 100, 108, 116, 117, 118, 146})
        builder.Remove(id);
    const TefDocument d = Walk(builder);

    EXPECT_EQ(d.offsets.scanSizeXOffset, 0u);
    EXPECT_EQ(d.offsets.widthOffset, 0u);
    EXPECT_EQ(d.offsets.unitsOffset, 0u);
    EXPECT_EQ(d.offsets.zRangeOffset, 0u);
    EXPECT_EQ(d.offsets.channelCountOffset, 0u);
    EXPECT_EQ(d.offsets.channelBitsOffset, 0u);
    EXPECT_EQ(d.offsets.bitsInUseOffset, 0u);
    EXPECT_EQ(d.feedbackMode, "");
    EXPECT_FALSE(d.scanRate || d.tipSerialNumber || d.dateTime || d.drive || d.setpoint || d.xOffset || d.yOffset ||
                 d.bitsInUse);
    // an item's own size of 512 x 1 is what a section is held against
    EXPECT_EQ(d.channels[0].width, 512);
    EXPECT_EQ(d.channels[0].height, 1);
    EXPECT_EQ(d.channels[0].bitsInUse, 16);
    EXPECT_EQ(d.channels[0].unit, "");
    EXPECT_FALSE(d.channels[0].zRange);
    EXPECT_TRUE(d.sections[0].complete);
}

TEST(TefWalkerTest, PixelsAreHeldTopRowFirst)
{
    TefBuilder builder(1, 3, 2);
    builder.channels[0].pixels = {0, 1, 2, 65533, 65534, 65535};
    const TefDocument d = Walk(builder);
    EXPECT_EQ(d.sections[0].pixels, (std::vector<std::int32_t>{32765, 32766, 32767, -32768, -32767, -32766}));
}

TEST(TefWalkerTest, BitsInUseOfTheRecordReadLastConvertEachChannel)
{
    TefBuilder builder(3, 2, 1);
    for (auto& channel : builder.channels)
        channel.pixels = {0, 4095};
    builder.Set(147, TefBuilder::Word(12));
    builder.Set(148, TefBuilder::Word(0));
    const TefDocument d = Walk(builder);
    EXPECT_EQ(d.channels[0].bitsInUse, 16);
    EXPECT_EQ(d.channels[1].bitsInUse, 12);
    EXPECT_EQ(d.channels[2].bitsInUse, 0);
    EXPECT_EQ(d.sections[0].pixels, (std::vector<std::int32_t>{-32768, 4095 - 32768}));
    EXPECT_EQ(d.sections[1].pixels, (std::vector<std::int32_t>{-32768, 32767}));
    EXPECT_EQ(d.sections[2].pixels, (std::vector<std::int32_t>{-32768, -32768}));

    // identifier 11 read after the group sets all channels again
    builder.records.push_back({11, TefBuilder::Word(12), std::nullopt});
    const TefDocument later = Walk(builder);
    for (const TefChannelSettings& c : later.channels)
        EXPECT_EQ(c.bitsInUse, 12);
    EXPECT_EQ(later.bitsInUse, 12);
}

TEST(TefWalkerTest, ZRangeKeepsTheUnitReadBeforeIt)
{
    TefBuilder builder(3, 2, 2);
    // channel 0: unit, range, then another unit; channel 1: range first;
    // channel 2: the standard order
    builder.records.push_back({100, TefBuilder::Text("V"), std::nullopt});
    builder.Remove(101);
    builder.InsertBefore(137, {101, TefBuilder::Text("deg"), std::nullopt});
    const TefDocument d = Walk(builder);

    EXPECT_EQ(d.channels[0].unit, "V");
    EXPECT_EQ(d.channels[0].zRangeUnit, "nm");
    EXPECT_TRUE(d.channels[0].unitReadAfterZRange);
    EXPECT_EQ(d.channels[1].unit, "deg");
    EXPECT_EQ(d.channels[1].zRangeUnit, "");
    EXPECT_TRUE(d.channels[1].unitReadAfterZRange);
    EXPECT_EQ(d.channels[1].zRange, TefBuilder::kZRange + 1);
    EXPECT_EQ(d.channels[2].zRangeUnit, "nm");
    EXPECT_FALSE(d.channels[2].unitReadAfterZRange);
}

TEST(TefWalkerTest, OldLogUnitIsSpelledAnewInAnyCase)
{
    TefBuilder builder(4, 2, 2);
    builder.Set(100, TefBuilder::Text("lg(I[nA])"));
    builder.Set(101, TefBuilder::Text("LG(i[NA])"));
    builder.Set(102, TefBuilder::Text(std::string("lg(I[nA])\0rest", 14)));
    builder.Set(103, TefBuilder::Text("lg(I[nA]) "));
    const TefDocument d = Walk(builder);
    EXPECT_EQ(d.channels[0].unit, "log(nA)");
    EXPECT_EQ(d.channels[0].zRangeUnit, "log(nA)");
    EXPECT_EQ(d.channels[1].unit, "log(nA)");
    EXPECT_EQ(d.channels[2].unit, "log(nA)");
    EXPECT_EQ(d.channels[3].unit, "lg(I[nA]) ");
}

TEST(TefWalkerTest, TextValuesEndAtTheirFirstZeroByte)
{
    TefBuilder builder(1, 2, 2);
    builder.note = std::string("first\0second", 12);
    builder.Set(10, TefBuilder::Text(std::string("AB\0CD", 5)));
    builder.Set(137, TefBuilder::Text(std::string("\0hidden", 7)));
    builder.channels[0].type = 15;  // no name in the table: the stored one shows
    const TefDocument d = Walk(builder);
    EXPECT_EQ(d.note, "first");
    EXPECT_EQ(d.noteEndOffset, 12u);
    EXPECT_EQ(d.tipSerialNumber, "AB");
    EXPECT_EQ(d.channelTable[0].name, "");
    EXPECT_EQ(d.sections[0].displayName, "");
}

TEST(TefWalkerTest, FeedbackModeOneIsContactAndAnyOtherTapping)
{
    for (const auto& [value, mode] : {std::pair{1, "Contact"}, {0, "Tapping"}, {2, "Tapping"}, {257, "Tapping"}}) {
        TefBuilder builder(1, 2, 2);
        builder.Set(6, TefBuilder::Word(static_cast<std::uint16_t>(value)));
        EXPECT_EQ(Walk(builder).feedbackMode, mode) << value;
    }
}

TEST(TefWalkerTest, RecordsForChannelsBeyondTheCountAreConsumedWithoutEffect)
{
    TefBuilder builder(2, 2, 2);
    const TefDocument before = Walk(builder);
    // channel 5 of a file of two; sizes that would be wrong for their type
    // are consumed as well
    for (std::uint16_t id : {105, 113, 126, 134, 142, 151})
        builder.InsertBefore(145, {id, TefBuilder::Text("xyz"), std::nullopt});
    builder.InsertBefore(145, {107, TefBuilder::Text("mV"), std::nullopt});
    const TefDocument after = Walk(builder);
    EXPECT_EQ(after.channels, before.channels);
    EXPECT_EQ(after.channelTable, before.channelTable);
    EXPECT_EQ(after.offsets.unitsOffset, before.offsets.unitsOffset);
    EXPECT_EQ(after.offsets.zRangeOffset, before.offsets.zRangeOffset);
}

TEST(TefWalkerTest, UnknownIdentifiersArePassedOverBySize)
{
    TefBuilder builder(1, 2, 2);
    const TefDocument before = Walk(builder);
    for (std::uint16_t id : {0, 1, 4, 5, 14, 15, 17, 22, 28, 29, 30, 64, 99, 154, 1000, 65535}) {
        builder.InsertBefore(100, {id, std::vector<std::uint8_t>(id % 11, 0x1A), std::nullopt});
        builder.records.push_back({id, TefBuilder::Double(1.0), std::nullopt});
    }
    const TefDocument after = Walk(builder);
    EXPECT_EQ(after.channels, before.channels);
    EXPECT_EQ(after.sections[0].pixels, before.sections[0].pixels);
    EXPECT_EQ(after.note, before.note);
}

TEST(TefWalkerTest, WordAndDwordOfSizeZeroReadTheirValueAllTheSame)
{
    TefBuilder builder(1, 3, 2);
    builder.Find(7)->size = 0;
    builder.Find(145)->size = 0;
    builder.Find(116)->size = 0;
    const TefDocument d = Walk(builder);
    EXPECT_EQ(d.width, 3);
    EXPECT_EQ(d.kept145, TefBuilder::kKept145);
    EXPECT_EQ(d.offsets.widthOffset, ValueOffset(builder, 7));
    EXPECT_TRUE(d.sections[0].complete);
}

TEST(TefWalkerTest, ParameterCountAboveTheRecordsIsHarmless)
{
    TefBuilder builder(1, 2, 2);
    builder.parameterCount = static_cast<std::uint16_t>(builder.records.size() + 7);
    const TefDocument d = Walk(builder);
    EXPECT_EQ(d.parameterCount, static_cast<std::int32_t>(builder.records.size() + 7));
    EXPECT_TRUE(d.sections[0].complete);
}

TEST(TefWalkerTest, ChannelCountZeroNeedsOnlyThePreview)
{
    TefBuilder builder(0);
    builder.records.push_back({100, TefBuilder::Text("nm"), std::nullopt});
    builder.preview = {1, 2, 3, 4, 5};
    const std::vector<std::uint8_t> bytes = builder.Bytes();
    const TefDocument d = Walk(bytes);
    EXPECT_EQ(d.fileChannelCount, 0);
    EXPECT_TRUE(d.channels.empty());
    EXPECT_TRUE(d.channelTable.empty());
    EXPECT_TRUE(d.sections.empty());
    EXPECT_FALSE(d.is16Bit);
    EXPECT_EQ(d.offsets.firstChannelOffset, bytes.size());
    // a record seen is remembered even where it has no channel to go to
    EXPECT_EQ(d.offsets.unitsOffset, ValueOffset(builder, 100));
}

TEST(TefWalkerTest, EmptyNoteAndNoteWithoutEndMark)
{
    TefBuilder empty(1, 2, 2);
    empty.note.clear();
    const TefDocument d = Walk(empty);
    EXPECT_EQ(d.note, "");
    EXPECT_TRUE(d.hasNoteEnd);
    EXPECT_EQ(d.noteEndOffset, 0u);
    EXPECT_TRUE(d.sections[0].complete);

    // Without a 0x1A the head is looked for at byte 1, which here holds it.
    TefBuilder unmarked(0);
    unmarked.note = "X";
    unmarked.noteEnd = false;
    unmarked.records = {{6, TefBuilder::Word(1), std::nullopt}};
    const std::vector<std::uint8_t> bytes = unmarked.Bytes();
    ASSERT_EQ(std::count(bytes.begin(), bytes.end(), 0x1A), 0);
    const TefDocument u = Walk(bytes);
    EXPECT_EQ(u.note, "");
    EXPECT_FALSE(u.hasNoteEnd);
    EXPECT_EQ(u.feedbackMode, "Contact");
}

TEST(TefWalkerTest, VersionIsShownAsItStands)
{
    TefBuilder builder(1, 2, 2);
    builder.majorVersion = 9;
    builder.minorVersion = 99;
    EXPECT_EQ(Walk(builder).fileVersion, "9.99");
    builder.majorVersion = 65535;
    builder.minorVersion = 0;
    EXPECT_EQ(Walk(builder).fileVersion, "65535.0");
}

TEST(TefWalkerTest, HeaderLengthPlacesTheImageBlock)
{
    TefBuilder builder(2, 2, 2);
    // a longer header whose opaque bytes look like an image tag
    builder.channels[0].headerRest = {42, 0, 42, 0, 3, 0, 1, 0, 42, 0, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9};
    // fields with no opaque rest behind them
    builder.channels[1].headerRest.clear();
    // what lies behind the last section is not looked at
    builder.trailer = {3, 0, 0xFF, 0xFF, 0xFF, 0xFF, 1};
    const TefDocument d = Walk(builder);
    ASSERT_EQ(d.sections.size(), 2u);
    EXPECT_TRUE(d.sections[1].complete);
    EXPECT_EQ(d.sections[1].pixels.size(), 4u);
}

TEST(TefWalkerTest, EmptyImagesHaveNoPixelStores)
{
    for (const auto& [width, height] : {std::pair{0, 0}, {0, 5}, {7, 0}}) {
        const TefDocument d = Walk(TefBuilder(3, static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)));
        ASSERT_EQ(d.sections.size(), 3u);
        for (const TefChannelSection& s : d.sections) {
            EXPECT_TRUE(s.complete);
            EXPECT_FALSE(s.hasPixels);
            EXPECT_TRUE(s.pixels.empty());
            EXPECT_EQ(s.dataSize, 0u);
        }
    }
}

TEST(TefWalkerTest, PixelWidthOfTheLastChannelTellsIs16Bit)
{
    TefBuilder builder(2, 2, 2);
    builder.channels[1] = TefBuilder::StandardChannel(1, 2, 2, 4);
    TefDocument d = Walk(builder);
    EXPECT_FALSE(d.is16Bit);
    EXPECT_EQ(d.sections[0].dataSize, 8u);
    EXPECT_EQ(d.sections[1].dataSize, 16u);

    std::swap(builder.channels[0], builder.channels[1]);
    d = Walk(builder);
    EXPECT_TRUE(d.is16Bit);
}

TEST(TefWalkerTest, ChannelsBeyondTheEighthHaveSettingsButNoGroupRecords)
{
    const TefDocument d = Walk(TefBuilder(9, 2, 1));
    ASSERT_EQ(d.sections.size(), 9u);
    EXPECT_EQ(d.channels[8].unit, "");
    EXPECT_FALSE(d.channels[8].zRange);
    EXPECT_EQ(d.channels[8].width, 2);
    EXPECT_EQ(d.channelTable[8].name, "");
    EXPECT_EQ(d.channelTable[8].type, 1);
    EXPECT_EQ(d.sections[8].displayName, "Topography");
}
