// Ranges of an item's samples: raw and full extremes, the histogram rule that
// trims 1% at each end, the contrast around the centre, and the two displays.

#include "Core/ItemRecordBytes.h"

#include "Platform/Archive.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

// One value unit is 65537 counts (a scale of 65535 over 4294967295).
constexpr double kCountsPerUnit = 65537.0;

class ItemRangesTest : public ::testing::Test {
protected:
    std::vector<std::int32_t> samples;
    OLDataItem item;

    // An item over samples, with a second scale of `second` volts spread over
    // the full count range, and the first display in range mode `mode`.
    void Make(std::vector<std::int32_t> values, std::uint32_t mode = 0, std::int64_t offset = 0) {
        samples = std::move(values);
        OLDataItemLoadRecord record;
        record.softScale = 65535.0f;
        record.hardScale = 2 * 65535.0f;
        record.zOffset = offset;
        record.zRange = UValue(8.0, "V");
        record.softUnit = "V";
        record.sensitivity = 10.0;
        record.sensitivityUnit = "nm";
        record.displayFlag = mode == 0 ? 1 : 0;
        record.forceFlag = true;
        record.secondScale = ScaleGroup{UValue(6.0, "V"), 1.0, ""};
        record.secondScaleFactor = 4294967295.0;
        item = OLDataItem();
        item.SetFromLoadRecord(record);
        item.SetData(samples.data(), static_cast<std::uint32_t>(samples.size()));
    }

    // The percentile range in counts: the soft value times the counts of a unit.
    std::pair<double, double> PercentileCounts() {
        double lo = 0.0, hi = 0.0;
        item.GetPercentileRange(&lo, &hi, true);
        return {lo * kCountsPerUnit, hi * kCountsPerUnit};
    }
};

std::vector<std::int32_t> Repeated(std::initializer_list<std::pair<int, std::int32_t>> runs) {
    std::vector<std::int32_t> v;
    for (const auto& [count, value] : runs) {
        v.insert(v.end(), static_cast<std::size_t>(count), value);
    }
    return v;
}

}  // namespace

TEST_F(ItemRangesTest, ExtremesOfAnEmptyBufferAreTheValuesOfRawZero) {
    Make({}, 0, 2 * 65537);
    std::int32_t lo = 5, hi = 5;
    item.GetRawRange(&lo, &hi);
    EXPECT_EQ(lo, 0);
    EXPECT_EQ(hi, 0);
    double min = 1.0, max = 1.0;
    item.GetFullRange(&min, &max, true);
    EXPECT_EQ(min, -2.0);
    EXPECT_EQ(max, -2.0);
}

TEST_F(ItemRangesTest, FullRangeConvertsTheExtremesInTheAskedSense) {
    Make({65537, -3 * 65537, 2 * 65537});
    std::int32_t lo = 0, hi = 0;
    item.GetRawRange(&lo, &hi);
    EXPECT_EQ(lo, -3 * 65537);
    EXPECT_EQ(hi, 2 * 65537);
    double min = 0.0, max = 0.0;
    item.GetFullRange(&min, &max, true);
    EXPECT_EQ(min, -3.0);
    EXPECT_EQ(max, 2.0);
    item.GetFullRange(&min, &max, false);
    EXPECT_EQ(min, -6.0);
    EXPECT_EQ(max, 4.0);

    // One missing target: nothing is written.
    double untouched = 42.0;
    item.GetFullRange(&untouched, nullptr, true);
    item.GetPercentileRange(nullptr, &untouched, true);
    EXPECT_EQ(untouched, 42.0);
}

TEST_F(ItemRangesTest, OneSampleOrAllEqualGiveThatSampleWhateverTheContrast) {
    for (const auto& values : {std::vector<std::int32_t>{1000}, std::vector<std::int32_t>(50, 1000)}) {
        Make(values);
        const auto [lo, hi] = PercentileCounts();
        EXPECT_DOUBLE_EQ(lo, 1000.0);
        EXPECT_DOUBLE_EQ(hi, 1000.0);
    }
}

TEST_F(ItemRangesTest, SkewedSamplesLoseTheirOutlyingPercentAndWidenByTheContrast) {
    // 200 samples, so a bin must pass 2 to count; bins are 2 counts wide.
    // 0 -> bin 0, 10 -> bin 4, 1000 -> bin 499, 2047 -> bin 1023. From the top
    // the sum passes 2 at bin 499: hi = 998. From the bottom at bin 0: lo = 0.
    // Centre 499, half width 998 * 1.5 / 2 = 748.5: -249.5 and 1247.5, truncated.
    Make(Repeated({{100, 0}, {97, 10}, {2, 1000}, {1, 2047}}));
    auto [lo, hi] = PercentileCounts();
    EXPECT_DOUBLE_EQ(lo, -249.0);
    EXPECT_DOUBLE_EQ(hi, 1247.0);

    // Two low outliers of 200: bin 0 holds only 2, so lo climbs to bin 1023,
    // 1023 * 2 - 1024 = 1022, where the top walk stops at once.
    Make(Repeated({{2, -1024}, {198, 1023}}));
    std::tie(lo, hi) = PercentileCounts();
    EXPECT_DOUBLE_EQ(lo, 1022.0);
    EXPECT_DOUBLE_EQ(hi, 1022.0);

    // The top walk ends at bin 1 without passing 3 of 301: hi stays 100, and
    // 0..100 widens to -25..125.
    Make(Repeated({{300, 0}, {1, 100}}));
    std::tie(lo, hi) = PercentileCounts();
    EXPECT_DOUBLE_EQ(lo, -25.0);
    EXPECT_DOUBLE_EQ(hi, 125.0);
}

TEST_F(ItemRangesTest, HistogramCopesWithTheWidestSpan) {
    const auto lowest = std::numeric_limits<std::int32_t>::min();
    const auto highest = std::numeric_limits<std::int32_t>::max();
    Make(Repeated({{10, lowest}, {980, 0}, {10, highest}}));
    const auto [lo, hi] = PercentileCounts();
    // Bins are 4194304 counts wide; zero falls in bin 511.
    EXPECT_DOUBLE_EQ(lo, 511.0 * 4194304 + lowest);
    EXPECT_DOUBLE_EQ(hi, 511.0 * 4194304 + lowest);
}

TEST_F(ItemRangesTest, DisplayRangeFollowsTheModeUnlessSetByHand) {
    Make(Repeated({{100, 0}, {97, 10}, {2, 1000}, {1, 2047}}), 0);
    double min = 0.0, max = 0.0;
    EXPECT_FALSE(item.GetDisplayRange(&min, &max, true));
    EXPECT_DOUBLE_EQ(min * kCountsPerUnit, -249.0);
    EXPECT_DOUBLE_EQ(max * kCountsPerUnit, 1247.0);

    // By the data scale: half of 8 V times 10 nm/V either way of zero.
    item.SetDisplayRangeMode(3);
    item.GetDisplayRange(&min, &max, true);
    EXPECT_EQ(min, -40.0);
    EXPECT_EQ(max, 40.0);
    item.GetDisplayRange(&min, &max, false);
    EXPECT_EQ(max, 4.0);

    item.SetDisplayRange(true, -1.0, 7.0, true);
    EXPECT_TRUE(item.GetDisplayRange(&min, &max, true));
    EXPECT_EQ(min, -1.0);
    EXPECT_EQ(max, 7.0);

    // Back to computed: the setter recomputes at once.
    item.SetDisplayRange(false, 99.0, 99.0, false);
    EXPECT_EQ(item.FirstDisplay().displayMax, 4.0);
    EXPECT_FALSE(item.FirstDisplay().hasExplicitRange);
}

TEST_F(ItemRangesTest, SecondDisplayReadsTheFirstDisplaysMode) {
    Make(Repeated({{300, 0}, {1, 4294967}}), 1);
    double min = 0.0, max = 0.0;
    // Mode of the first display not 0: half of the second scale.
    EXPECT_FALSE(item.GetSecondDisplayRange(&min, &max, true));
    EXPECT_EQ(min, -3.0);
    EXPECT_EQ(max, 3.0);

    // Mode 0: percentiles of the item's buffer over the second scale. The
    // buffer's range 0..4294967 widens to -1073741..5368708 counts, and 6 V
    // span the full 4294967295 counts.
    item.SetDisplayRangeMode(0);
    item.GetSecondDisplayRange(&min, &max, true);
    EXPECT_DOUBLE_EQ(min, -1073741.0 / 4294967295.0 * 6.0);
    EXPECT_DOUBLE_EQ(max, 5368708.0 / 4294967295.0 * 6.0);

    item.SetSecondDisplayRange(true, 0.5, 1.5, true);
    EXPECT_TRUE(item.GetSecondDisplayRange(&min, &max, true));
    EXPECT_EQ(max, 1.5);
    // The first display is a separate setting.
    EXPECT_FALSE(item.FirstDisplay().hasExplicitRange);
}

TEST_F(ItemRangesTest, SecondScaleRangesOfAGivenBufferNeedTheForceFlag) {
    Make({});
    const std::vector<std::int32_t> buffer{-100, 0, 300};
    double min = 0.0, max = 0.0;
    item.GetSecondFullRange(buffer.data(), 3, &min, &max);
    EXPECT_DOUBLE_EQ(min, -100.0 / 4294967295.0 * 6.0);
    EXPECT_DOUBLE_EQ(max, 300.0 / 4294967295.0 * 6.0);

    OLDataItem plain;
    min = max = 42.0;
    plain.GetSecondFullRange(buffer.data(), 3, &min, &max);
    plain.GetSecondPercentileRange(buffer.data(), 3, &min, &max);
    EXPECT_EQ(min, 42.0);
    EXPECT_EQ(max, 42.0);
}

TEST_F(ItemRangesTest, HostileContrastFromARecordStaysDefined) {
    for (double contrast : {1e300, -1e300, std::nan("")}) {
        ItemRecordBytes::Emitter e(ItemRecordBytes::Form::read, 19, 2);
        e.reals["d1.contrast"] = contrast;
        e.integers["dataSize"] = 0;
        ItemRecordBytes::Record(e);
        Orx::Core::MemoryArchiveStream stream(e.bytes);
        Orx::Core::Archive ar(stream, Orx::Core::Archive::load);
        ar.SetObjectSchema(19);
        std::vector<std::int32_t> values{-5, 5};
        OLDataItem hostile;
        hostile.ReadRecord(ar);
        hostile.SetData(values.data(), 2);
        double min = 0.0, max = 0.0;
        hostile.GetPercentileRange(&min, &max, true);
        EXPECT_FALSE(std::isnan(min));
        EXPECT_FALSE(std::isnan(max));
    }
}
