// The item record: copies and the borrowed buffer, the load record's special
// cases, byte widths, the two colour settings and the pointer into curves.

#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace {

OLDataItem ItemFrom(const OLDataItemLoadRecord& record) {
    OLDataItem item;
    item.SetFromLoadRecord(record);
    return item;
}

}  // namespace

TEST(ItemRecordTest, CopySharesTheBufferOnlyWhenItHoldsSamples) {
    std::array<std::int32_t, 4> samples{1, 2, 3, 4};
    OLDataItem item;
    item.SetData(samples.data(), 0);
    EXPECT_EQ(OLDataItem(item).GetData(), nullptr);
    OLDataItem assigned;
    assigned = item;
    EXPECT_EQ(assigned.GetData(), nullptr);

    item.SetData(samples.data(), 4);
    const OLDataItem copy(item);
    EXPECT_EQ(copy.GetData(), samples.data());
    EXPECT_EQ(copy.GetDataSize(), 4u);
}

TEST(ItemRecordTest, CopyKeepsBothDisplaysAndTheFieldsThatAreNotArchived) {
    OLDataItemLoadRecord record;
    record.hasInputOffset = true;
    record.color.index = 3;
    record.color.positions[1] = {7, 8};
    OLDataItem item = ItemFrom(record);
    item.SetItemTag(42);
    item.SetSecondColorTableSettings(9, 1, 2, true);
    item.SetDisplayRange(true, -1.0, 2.0, true);

    const OLDataItem copy(item);
    EXPECT_TRUE(copy.HasInputOffset());
    EXPECT_EQ(copy.GetItemTag(), 42u);
    EXPECT_EQ(copy.FirstDisplay().colorVectors[1], (std::vector<std::uint32_t>{7, 8}));
    EXPECT_EQ(copy.SecondDisplay().colorTable, 9u);
    EXPECT_TRUE(copy.SecondDisplay().colorFlag);
    EXPECT_EQ(copy.FirstDisplay().displayMax, 2.0);
}

TEST(ItemRecordTest, SetBytesPerPixelRecomputesTheLengthOnlyForANewWidth) {
    OLDataItem item;
    item.SetBytesPerPixel(4);
    EXPECT_EQ(item.GetScaleBits(), 32u);
    EXPECT_EQ(item.GetDataLength(), 0u);

    item.SetNumberOfLines(3);
    item.SetBytesPerPixel(2);
    EXPECT_EQ(item.GetScaleBits(), 16u);
    EXPECT_EQ(item.GetDataLength(), 3u * 512u * 2u);

    // The file's width is a field of its own and recomputes nothing.
    item.SetFileBytesPerPixel(3);
    EXPECT_EQ(item.GetFileBytesPerPixel(), 3u);
    EXPECT_EQ(item.GetDataLength(), 3u * 512u * 2u);
}

TEST(ItemRecordTest, SettersOfLinesAndSamplesMarkThemSet) {
    OLDataItem item;
    EXPECT_FALSE(item.GetLinesWereSet());
    EXPECT_FALSE(item.GetSamplesWereSet());
    item.SetNumberOfLines(8);
    item.SetSamplesPerLine(16);
    EXPECT_TRUE(item.GetLinesWereSet());
    EXPECT_TRUE(item.GetSamplesWereSet());
    EXPECT_EQ(item.GetNumberOfLines(), 8u);
    EXPECT_EQ(item.GetSamplesPerLine(), 16u);
}

TEST(ItemRecordTest, LoadRecordDisplayFlagTurnsIntoTheRangeMode) {
    OLDataItemLoadRecord record;
    EXPECT_EQ(ItemFrom(record).GetDisplayRangeMode(), 0u);
    record.displayFlag = 0;
    EXPECT_EQ(ItemFrom(record).GetDisplayRangeMode(), 1u);
    record.displayFlag = 7;
    EXPECT_EQ(ItemFrom(record).GetDisplayRangeMode(), 0u);
}

TEST(ItemRecordTest, LoadRecordColourGoesToBothTableNumbersAndTheRestToTheFirstDisplay) {
    OLDataItemLoadRecord record;
    record.color.index = 21;
    record.color.custom = true;
    record.color.interpolation = true;
    record.color.entries[5] = {1, 2, 3, 0};
    record.color.positions = {std::vector<std::uint32_t>{1}, std::vector<std::uint32_t>{2}, std::vector<std::uint32_t>{3}};
    record.color.colorPoints = {4, 5};
    record.colorFlag1 = true;
    const OLDataItem item = ItemFrom(record);

    const auto& first = item.FirstDisplay();
    const auto& second = item.SecondDisplay();
    EXPECT_EQ(first.colorTable, 21u);
    EXPECT_EQ(second.colorTable, 21u);
    EXPECT_TRUE(first.hasColorTable);
    EXPECT_TRUE(first.colorTableFlag);
    EXPECT_EQ(first.tableEntries[5], (ColorEntry{1, 2, 3, 0}));
    EXPECT_EQ(first.colorVectors[2], std::vector<std::uint32_t>{3});
    EXPECT_EQ(first.rangeVector, (std::vector<std::uint32_t>{4, 5}));
    EXPECT_EQ(first.colorValue1, 1u);
    EXPECT_EQ(first.colorValue2, 0u);
    EXPECT_FALSE(second.hasColorTable);
    EXPECT_EQ(second.tableEntries[5], ColorEntry{});
    EXPECT_TRUE(second.colorVectors[2].empty());
    EXPECT_TRUE(second.rangeVector.empty());
}

TEST(ItemRecordTest, LoadRecordWithoutASecondAxisCopiesTheScanSize) {
    OLDataItemLoadRecord record;
    record.scanSize = UValue(5.0, "nm");
    record.scanSizeY = UValue(7.0, "nm");
    EXPECT_EQ(ItemFrom(record).GetScanSizeY().GetValue(), 5.0);
    record.hasScanSizeY = true;
    EXPECT_EQ(ItemFrom(record).GetScanSizeY().GetValue(), 7.0);
}

TEST(ItemRecordTest, LoadRecordLeavesTheBufferAlone) {
    std::array<std::int32_t, 2> samples{};
    OLDataItem item;
    item.SetData(samples.data(), 2);
    item.SetFromLoadRecord(OLDataItemLoadRecord{});
    EXPECT_EQ(item.GetData(), samples.data());
    EXPECT_EQ(item.GetDataSize(), 2u);
}

TEST(ItemRecordTest, FirstColourSettingsClearTheCustomTableOnANewNumberAndTheSecondNever) {
    OLDataItem item;
    item.SetHasColorTable(true);
    item.SetColorTableSettings(12, 1, 2, true);
    EXPECT_TRUE(item.HasColorTable());
    item.SetColorTableSettings(13, 1, 2, true);
    EXPECT_FALSE(item.HasColorTable());

    item.SetHasSecondColorTable(true);
    item.SetSecondColorTableSettings(40, 0, 0, false);
    EXPECT_TRUE(item.HasSecondColorTable());

    std::int32_t table = 0;
    std::uint32_t v1 = 0, v2 = 0;
    bool flag = false;
    item.GetColorTableSettings(table, v1, v2, flag);
    EXPECT_EQ(table, 13);
    EXPECT_EQ(v1, 1u);
    EXPECT_EQ(v2, 2u);
    EXPECT_TRUE(flag);
    item.GetSecondColorTableSettings(table, v1, v2, flag);
    EXPECT_EQ(table, 40);
}

TEST(ItemRecordTest, StoringATableObjectMarksItStoredAndReadsBack) {
    OLDataItem item;
    ColorTableObject table;
    table.interpolation = true;
    table.entries[255] = {9, 8, 7, 0};
    table.positions[0] = {0, 255};
    table.colorPoints = {3};
    item.SetSecondColorTable(table);
    EXPECT_TRUE(item.HasSecondColorTable());
    EXPECT_FALSE(item.HasColorTable());
    EXPECT_EQ(item.GetSecondColorTable(), table);
    EXPECT_EQ(item.GetColorTable(), ColorTableObject{});
}

TEST(ItemRecordTest, HoldPointerStridesByHoldAndTwiceTheFirstHalf) {
    OLDataItemLoadRecord record;
    record.retracePoints = 3;
    record.tracePoints = 5;  // not the stride's count
    OLDataItem item = ItemFrom(record);
    EXPECT_EQ(item.GetHoldDataPointer(0, 2), nullptr);  // no buffer yet

    std::array<std::int32_t, 24> samples{};
    item.SetData(samples.data(), 24);
    EXPECT_EQ(item.GetHoldDataPointer(0, 2), samples.data());
    EXPECT_EQ(item.GetHoldDataPointer(2, 2), samples.data() + 16);
    // A curve that would begin past the buffer is not there.
    EXPECT_EQ(item.GetHoldDataPointer(3, 2), nullptr);
    EXPECT_EQ(item.GetHoldDataPointer(0xFFFFFFFFu, 0xFFFFFFFFu), nullptr);
}
