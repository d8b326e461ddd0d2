// What the core source does beyond forwarding: curves of a force volume,
// channel finders, invalid samples by index, notes of all channels, the ramp
// text, the scale rules through the source, and channels outside the table.

#include "support/MemoryDataSource.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

std::vector<std::int32_t> Counting(std::size_t n) {
    std::vector<std::int32_t> v(n);
    std::iota(v.begin(), v.end(), 0);
    return v;
}

OLDataItemLoadRecord Curves(std::uint32_t retrace, std::uint32_t trace) {
    OLDataItemLoadRecord record;
    record.retracePoints = retrace;
    record.tracePoints = trace;
    return record;
}

// 500 mV of data scale at 20 nm a volt.
OLDataItemLoadRecord Millivolts() {
    OLDataItemLoadRecord record;
    record.zRange = UValue(500.0, "mV");
    record.softUnit = "mV";
    record.sensitivity = 20.0;
    record.sensitivityUnit = "nm";
    return record;
}

OLDataItemLoadRecord Named(const std::string& name) {
    OLDataItemLoadRecord record;
    record.dataName = name;
    return record;
}

}  // namespace

TEST(SourceReadingTest, ForceVolumeCurvesLieAtTheirStrideAndNotPastTheBuffer) {
    MemoryDataSource source;
    source.kind = "FVOL";
    source.AddChannel(Curves(3, 2), Counting(30));
    source.holdPoints = 4;
    source.forcesPerLine = 3;
    const std::int32_t* d = source.GetData(0);

    // Stride: hold points and twice the first half, 4 + 6.
    EXPECT_EQ(source.GetForceVolumeCurveData(0, 0), d);
    EXPECT_EQ(source.GetForceVolumeCurveData(0, 2), d + 20);
    EXPECT_EQ(source.GetForceVolumeCurveData(0, 3), nullptr);
    EXPECT_EQ(source.GetForceVolumeCurveData(0, -1), nullptr);
    source.forcesPerLine = 4;
    EXPECT_EQ(source.GetForceVolumeCurveData(0, 3), nullptr);  // would begin at 30

    // The hold section of a curve: behind twice the second half, 4 + 4 per curve.
    source.forcesPerLine = 3;
    EXPECT_EQ(source.GetForceVolumeRawCurve(0, 0), d + 4);
    EXPECT_EQ(source.GetForceVolumeRawCurve(0, 2), d + 20);
    EXPECT_EQ(source.GetForceVolumeRawCurve(0, 3), nullptr);
    EXPECT_EQ(source.GetForceVolumeRawCurve(0, -2), nullptr);
    source.holdPoints = 100;
    EXPECT_EQ(source.GetForceVolumeRawCurve(0, 1), nullptr);
    EXPECT_EQ(source.GetForceVolumeCurveData(7, 0), nullptr);
}

TEST(SourceReadingTest, FindersSearchTheUsedChannelsOfAForceVolumeOnly) {
    MemoryDataSource source;
    source.AddChannel(Named("Height Sensor"));  // no samples: not used
    source.AddChannel(Named("Amplitude"), {1});
    source.AddChannel(Named("Height Sensor"), {1});
    source.AddChannel(Named("Height Sensor "), {1});
    source.AddChannel(Named("Amplitude"));
    EXPECT_EQ(source.FindLastChannel(), -1);
    EXPECT_EQ(source.FindHeightSensorChannel(), -1);
    EXPECT_EQ(source.FindAmplitudeChannel(), -1);

    source.kind = "FVOL";
    EXPECT_EQ(source.FindLastChannel(), 3);
    EXPECT_EQ(source.FindHeightSensorChannel(), 2);
    EXPECT_EQ(source.FindAmplitudeChannel(), 1);
    // Channels beyond the count are not searched.
    source.numberOfChannels = 2;
    EXPECT_EQ(source.FindLastChannel(), 1);
    EXPECT_EQ(source.FindHeightSensorChannel(), -1);
    source.numberOfChannels = 0;
    EXPECT_EQ(source.FindAmplitudeChannel(), -1);
}

TEST(SourceReadingTest, InvalidSampleOperationsCheckTheChannelCount) {
    MemoryDataSource source;
    source.AddChannel({});
    source.AddChannel({});
    source.numberOfChannels = 1;  // the second item lies beyond the count

    source.SetInvalidPointList(0, {4, 9});
    source.SetInvalidFlag(0, 0x80000000u);
    source.SetInvalidFill(0, "Zero");
    ASSERT_NE(source.GetInvalidPointList(0), nullptr);
    EXPECT_EQ(*source.GetInvalidPointList(0), (std::vector<std::uint32_t>{4, 9}));
    EXPECT_TRUE(source.HasInvalidPoints(0));
    EXPECT_EQ(source.GetInvalidFlag(0), 0x80000000u);
    EXPECT_EQ(source.GetInvalidFill(0), "Zero");

    for (unsigned bad : {1u, 2u, 0xFFFFFFFFu}) {
        source.SetInvalidPointList(bad, {1});
        source.SetInvalidFlag(bad, 7);
        source.SetInvalidFill(bad, "Mean");
        source.ClearInvalidPointList(bad);
        EXPECT_EQ(source.GetInvalidPointList(bad), nullptr) << bad;
        EXPECT_FALSE(source.HasInvalidPoints(bad)) << bad;
        EXPECT_EQ(source.GetInvalidFlag(bad), 0u) << bad;
        EXPECT_EQ(source.GetInvalidFill(bad), "") << bad;
    }
    EXPECT_TRUE(source.items[1].InvalidPoints().empty());
    EXPECT_EQ(source.items[1].GetInvalidFill(), "");

    const std::size_t capacity = source.GetInvalidPointList(0)->capacity();
    source.ClearInvalidPointList(0);
    EXPECT_FALSE(source.HasInvalidPoints(0));
    EXPECT_EQ(source.GetInvalidPointList(0)->capacity(), capacity);
}

TEST(SourceReadingTest, NoteOfAllReachesEveryChannelUpToTheCount) {
    MemoryDataSource source;
    for (int i = 0; i < 3; ++i) {
        source.AddChannel({});
    }
    source.numberOfChannels = 2;
    source.SetNoteOfAll("shared");
    EXPECT_EQ(source.GetNote(0), "shared");
    EXPECT_EQ(source.GetNote(1), "shared");
    EXPECT_EQ(source.items[2].GetNote(), "");
}

TEST(SourceReadingTest, RampSizeForwardsAndTheRampTextTakesANewNumberInItsForm) {
    MemoryDataSource source;
    OLDataItemLoadRecord record;
    record.rampSize = ScaleGroup{UValue(2.0, "V"), 25.0, "nm"};
    source.AddChannel(record);
    EXPECT_EQ(source.GetRampSize(0, false).GetValue(), 2.0);
    EXPECT_EQ(source.GetRampSize(0, true).GetValue(), 50.0);
    EXPECT_EQ(source.GetRampSize(0, true).GetUnits()->GetName(), "nm");

    source.rampSizeText = "V [Sens. Zsens] (0.006103516 V/LSB) 400 nm";
    source.SetRampAxisText(250.5);
    EXPECT_EQ(source.rampSizeText, "V [Sens. Zsens] (0.006103516 V/LSB) 250.5 nm");
    source.rampSizeText = "";
    source.SetRampAxisText(3);
    EXPECT_EQ(source.rampSizeText, "3");
}

TEST(SourceReadingTest, RawConversionsPickTheScaleByTheUnitsTextAndRoundTripWithTheOffset) {
    MemoryDataSource source;
    OLDataItemLoadRecord record;
    record.softScale = 65535.0f;  // one unit is 65537 counts
    record.hardScale = 2 * 65535.0f;
    record.zOffset = -70000;
    source.AddChannel(record);

    ASSERT_TRUE(source.IsMetric());
    EXPECT_EQ(source.PhysicalValueOfRaw(0, -70000 + 2 * 65537), 2.0);
    EXPECT_EQ(source.RawOfPhysicalValue(0, 2.0), -70000 + 2 * 65537);
    EXPECT_EQ(source.GetDisplayZScale(0), 65535.0f);
    source.units = "Volts";
    EXPECT_EQ(source.PhysicalValueOfRaw(0, -70000 + 2 * 65537), 4.0);
    EXPECT_EQ(source.RawOfPhysicalValue(0, 4.0), -70000 + 2 * 65537);
    EXPECT_EQ(source.GetDisplayZScale(0), 2 * 65535.0f);
    // Counts a whole number of units away from the offset come back exactly.
    for (const char* unitsText : {"Metric", "Volts"}) {
        source.units = unitsText;
        for (std::int64_t units : {0, 1, -3, 30000, -32768}) {
            const std::int64_t raw = -70000 + units * 65537;
            EXPECT_EQ(source.RawOfPhysicalValue(0, source.PhysicalValueOfRaw(0, raw)), raw) << unitsText << units;
        }
    }
    EXPECT_EQ(source.RawToValue(0, -70000, true), 0.0);
    EXPECT_EQ(source.RawToValue(0, -70000, false), 0.0);
}

TEST(SourceReadingTest, ZRangeSpellsMetersOutAndKeepsOtherUnits) {
    MemoryDataSource source;
    OLDataItemLoadRecord record;
    record.hardScale = 10.0f;
    record.softScale = 400.0f;
    record.softUnit = "V";
    record.sensitivityUnit = "m";
    source.AddChannel(record);
    record.sensitivityUnit = "nm";
    source.AddChannel(record);
    EXPECT_EQ(source.GetZRange(0, true).GetValue(), 400.0);
    EXPECT_EQ(source.GetZRange(0, true).GetUnits()->GetName(), "Meters");
    EXPECT_EQ(source.GetZRange(1, true).GetUnits()->GetName(), "nm");
    EXPECT_EQ(source.GetZRange(1, false).GetValue(), 10.0);
    EXPECT_EQ(source.GetZRange(1, false).GetUnits()->GetName(), "Volts");
}

TEST(SourceReadingTest, DataScaleTurnsMillivoltsIntoVoltsBeforeTheSensitivity) {
    MemoryDataSource source;
    OLDataItemLoadRecord record = Millivolts();
    source.AddChannel(record);
    EXPECT_EQ(source.GetDataScale(0, false).GetValue(), 500.0);
    const UValue scaled = source.GetDataScale(0, true);
    EXPECT_EQ(scaled.GetValue(), 10.0);
    EXPECT_EQ(scaled.GetUnits()->GetName(), "nm");

    // No data scale name: no product.
    record.softUnit = "";
    source.AddChannel(record);
    EXPECT_EQ(source.GetDataScale(1, true).GetValue(), 500.0);
    // A sensitivity without a unit leaves the value as it is.
    record.softUnit = "mV";
    record.sensitivityUnit = "";
    source.AddChannel(record);
    EXPECT_EQ(source.GetDataScale(2, true).GetValue(), 500.0);
    EXPECT_EQ(source.GetDataScale(2, true).GetUnits()->GetName(), "mV");
}

TEST(SourceReadingTest, SetDataScaleReversesTheScaledRead) {
    MemoryDataSource source;
    source.AddChannel(Millivolts());

    UValue scaled = source.GetDataScale(0, true);
    source.SetDataScale(0, scaled, true);
    EXPECT_DOUBLE_EQ(source.GetDataScale(0, false).GetValue(), 500.0);
    EXPECT_EQ(source.GetDataScale(0, false).GetUnits()->GetName(), "mV");

    UValue wider(0.03, "\xB5m");  // 30 nm at 20 nm/V: 1.5 V
    source.SetDataScale(0, wider, true);
    EXPECT_DOUBLE_EQ(source.GetDataScale(0, false).GetValue(), 1500.0);
    EXPECT_DOUBLE_EQ(source.GetDataScale(0, true).GetValue(), 30.0);

    UValue hard(0.25, "Volts");
    source.SetDataScale(0, hard, false);
    EXPECT_DOUBLE_EQ(source.GetDataScale(0, false).GetValue(), 250.0);
}

TEST(SourceReadingTest, ChannelsOutsideTheTableReadADefaultItemAndWriteNothing) {
    MemoryDataSource source;
    source.AddChannel({});
    const unsigned outside = 5;
    EXPECT_EQ(source.GetDataItem(outside), nullptr);
    EXPECT_EQ(source.GetData(outside), nullptr);
    EXPECT_EQ(source.GetDataBufferSize(outside), 0u);
    EXPECT_EQ(source.GetZScaleInSwUnits(outside), 1.0f);
    EXPECT_EQ(source.GetScalingFactor(outside), 1.0f);
    EXPECT_EQ(source.GetTracePoints(outside), 512u);
    source.SetZOffset(outside, 99);
    source.SetNoteOfAll("n");
    source.SetDataName(outside, "x");
    source.SetChannelLines(outside, 3);
    EXPECT_EQ(source.GetZOffset(outside), 0);
    EXPECT_EQ(source.GetDataName(outside), "");
    EXPECT_EQ(source.GetNumberOfLines(outside), 1u);
    double min = 1.0, max = 1.0;
    EXPECT_FALSE(source.GetDisplayRange(outside, &min, &max));
    EXPECT_EQ(min, 1.0);
    EXPECT_EQ(source.GetColorEntries(outside), nullptr);
}
