// An item's conversions between raw counts and values, its Z range, its scale
// groups with their sensitivities, and the overrides in other units.

#include "Platform/Archive.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

// 65535 is 4294967295 / 65537: a scale of it makes one value unit 65537
// counts, which a divisor of 2^32 would not give.
constexpr float kScale = 65535.0f;
constexpr double kCountsPerUnit = 65537.0;

OLDataItem ScaledItem(float soft, float hard, std::int64_t offset) {
    OLDataItemLoadRecord record;
    record.softScale = soft;
    record.hardScale = hard;
    record.zOffset = offset;
    OLDataItem item;
    item.SetFromLoadRecord(record);
    return item;
}

// Whether the item's archived record holds the text anywhere.
bool RecordHolds(const OLDataItem& item, const std::string& text) {
    Orx::Core::MemoryArchiveStream stream;
    Orx::Core::Archive ar(stream, Orx::Core::Archive::store);
    item.WriteRecord(ar);
    const auto& bytes = stream.Bytes();
    return std::search(bytes.begin(), bytes.end(), text.begin(), text.end()) != bytes.end();
}

ScaleGroup Group(double value, const std::string& unit, double sensitivity, const std::string& sensitivityUnit) {
    return ScaleGroup{UValue(value, unit), sensitivity, sensitivityUnit};
}

}  // namespace

TEST(ItemScaleTest, RawCountsAreScaledOverTheFullRangeAfterTheOffset) {
    const OLDataItem item = ScaledItem(kScale, 2 * kScale, 1000);
    EXPECT_EQ(item.RawToValue(1000 + 3 * 65537, true), 3.0);
    EXPECT_EQ(item.RawToValue(1000 + 3 * 65537, false), 6.0);
    EXPECT_EQ(item.RawToValue(1000 - 65537, true), -1.0);
    EXPECT_EQ(item.RawToValue(1000, true), 0.0);
    EXPECT_EQ(item.ValueToRaw(0.0, true), 1000);
    EXPECT_EQ(item.ValueToRaw(0.0, false), 1000);
}

TEST(ItemScaleTest, ValueToRawTruncatesTowardZero) {
    const OLDataItem item = ScaledItem(kScale, kScale, 0);
    EXPECT_EQ(item.ValueToRaw(2.5 / kCountsPerUnit, true), 2);
    EXPECT_EQ(item.ValueToRaw(-2.5 / kCountsPerUnit, true), -2);
    EXPECT_EQ(item.ValueToRaw(3.0, false), 3 * 65537);
}

TEST(ItemScaleTest, ExtremeOffsetsAndScalesStayDefined) {
    const auto lowest = std::numeric_limits<std::int64_t>::min();
    const auto highest = std::numeric_limits<std::int64_t>::max();
    const OLDataItem item = ScaledItem(kScale, kScale, lowest);
    EXPECT_GT(item.RawToValue(highest, true), 0.0);
    EXPECT_EQ(item.ValueToRaw(1e300, true), highest);
    EXPECT_EQ(item.ValueToRaw(-1e300, true), lowest);

    // A scale of 0 makes every count the value 0.
    const OLDataItem flat = ScaledItem(0.0f, 0.0f, 0);
    EXPECT_EQ(flat.RawToValue(123456, true), 0.0);
    EXPECT_EQ(flat.RawToValue(-5, false), 0.0);
}

TEST(ItemScaleTest, ZRangeIsTheHardScaleInTheDataUnitUnlessASensitivityUnitNamesTheSoftOne) {
    OLDataItemLoadRecord record;
    record.hardScale = 10.0f;
    record.softScale = 200.0f;
    record.softUnit = "V";
    OLDataItem item;
    item.SetFromLoadRecord(record);
    for (bool soft : {false, true}) {
        const UValue range = item.GetZRange(soft);
        EXPECT_EQ(range.GetValue(), 10.0);
        EXPECT_EQ(range.GetUnits()->GetName(), "Volts");
    }
    item.SetZSensitivityUnits("nm");
    EXPECT_EQ(item.GetZRange(false).GetValue(), 10.0);
    EXPECT_EQ(item.GetZRange(true).GetValue(), 200.0);
    EXPECT_EQ(item.GetZRange(true).GetUnits()->GetName(), "nm");
}

TEST(ItemScaleTest, GroupsAreMultipliedBySensitivityOnlyWhenAskedAndTheGroupHasAUnit) {
    OLDataItemLoadRecord record;
    record.forceZOffset = Group(2.0, "V", 10.0, "nm");
    record.rampBegin = Group(3.0, "mV", 10.0, "nm");
    record.rampEnd = Group(4.0, "V", 10.0, "");
    record.rampSize = Group(5.0, "V", 20.0, "Meters");
    record.secondScale = Group(6.0, "V", 0.5, "nN");
    record.thirdScale = Group(7.0, "", 3.0, "Hz");
    record.zScanSize = Group(8.0, "V", 2.0, "nm");
    OLDataItem item;
    item.SetFromLoadRecord(record);

    EXPECT_EQ(item.GetForceZOffset(false).GetValue(), 2.0);
    EXPECT_EQ(item.GetForceZOffset(true).GetValue(), 20.0);
    EXPECT_EQ(item.GetForceZOffset(true).GetUnits()->GetName(), "nm");
    EXPECT_DOUBLE_EQ(item.GetRampBegin(true).GetValue(), 0.03);  // millivolts become volts first
    EXPECT_EQ(item.GetRampEnd(true).GetValue(), 4.0);
    EXPECT_EQ(item.GetRampEnd(true).GetUnits()->GetName(), "Volts");
    EXPECT_EQ(item.GetRampSize(true).GetValue(), 100.0);
    EXPECT_EQ(item.GetRampSize(true).GetUnits()->GetName(), "Meters");
    EXPECT_EQ(item.GetRampSensitivity(), 20.0);
    EXPECT_EQ(item.GetSecondScale(true).GetValue(), 3.0);
    EXPECT_EQ(item.GetThirdScale(true).GetValue(), 21.0);
    EXPECT_EQ(item.GetThirdScale(true).GetUnits()->GetName(), "Hz");
    EXPECT_EQ(item.GetZScanSize(true).GetValue(), 16.0);
}

TEST(ItemScaleTest, ThirdScaleSetterReversesTheScaledRead) {
    OLDataItemLoadRecord record;
    record.thirdScale = Group(0.25, "V", 40.0, "nm");
    OLDataItem item;
    item.SetFromLoadRecord(record);
    const UValue scaled = item.GetThirdScale(true);
    ASSERT_EQ(scaled.GetValue(), 10.0);

    item.SetThirdScale(UValue(0.03, "Meters"), true);  // 3e7 nm at 40 nm/V
    EXPECT_DOUBLE_EQ(item.GetThirdScale(false).GetValue(), 750000.0);
    EXPECT_EQ(item.GetThirdScale(false).GetUnits()->GetName(), "Volts");

    item.SetThirdScale(UValue(500.0, "mV"), false);
    EXPECT_DOUBLE_EQ(item.GetThirdScale(false).GetValue(), 0.5);
}

TEST(ItemScaleTest, ResettingTheForceOffsetSensitivityTakesTheItemsWithMetersSpelledOut) {
    for (const auto& [unit, expected] : std::vector<std::pair<std::string, std::string>>{
             {"m", "Meters"}, {"nm", "nm"}, {"", ""}, {"mm", "mm"}}) {
        OLDataItemLoadRecord record;
        record.sensitivity = 12.5;
        record.sensitivityUnit = unit;
        record.forceZOffset = Group(1.0, "V", 1.0, "Hz");
        OLDataItem item;
        item.SetFromLoadRecord(record);
        item.ResetForceZOffsetSensitivity();
        EXPECT_EQ(RecordHolds(item, "Meters"), expected == "Meters") << unit;
        // The group reads as its new sensitivity says.
        const UValue scaled = item.GetForceZOffset(true);
        if (expected.empty()) {
            EXPECT_EQ(scaled.GetValue(), 1.0);
            EXPECT_EQ(scaled.GetUnits()->GetName(), "Volts");
        } else {
            EXPECT_EQ(scaled.GetValue(), 12.5) << unit;
            EXPECT_EQ(scaled.GetUnits()->GetName(), UValue(0.0, expected).GetUnits()->GetName()) << unit;
        }
    }
}

TEST(ItemScaleTest, OverridesAreConvertedToTheAskedUnitAndNarrowed) {
    OLDataItem item;
    EXPECT_FALSE(item.HasRangeOverride());
    item.SetOverrideMin(1.5f);
    EXPECT_TRUE(item.HasRangeOverride());
    item.SetOverrideMax(250.0f);
    item.SetOverrideUnits("nm");
    float out = 0.0f;
    item.GetOverrideMin(&out, "nm");
    EXPECT_EQ(out, 1.5f);
    item.GetOverrideMax(&out, "\xB5m");
    EXPECT_EQ(out, 0.25f);
    EXPECT_EQ(item.GetOverrideMaxRaw(), 250.0f);
    item.GetOverrideMin(nullptr, "nm");  // no target, no answer
    EXPECT_THROW(item.GetOverrideMin(&out, "V"), std::exception);
}

TEST(ItemScaleTest, SecondScaleFractionIsTheFactorOverTheFullRange) {
    OLDataItemLoadRecord record;
    record.secondScaleFactor = 4294967295.0 / 4;
    OLDataItem item;
    item.SetFromLoadRecord(record);
    EXPECT_EQ(item.GetSecondScaleFraction(), 0.25);
    EXPECT_EQ(OLDataItem().GetSecondScaleFraction(), 1.0 / 4294967295.0);
}
