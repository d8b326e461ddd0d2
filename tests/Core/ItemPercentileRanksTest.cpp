// Large buffers find the ends of their percentile range from the samples at
// the two 1% ranks instead of a histogram of every sample. The ends must be
// those of the histogram rule, whatever the buffer holds: ties on the cuts,
// outliers, few values, the widest span, and patterns that mislead a probe.

#include "QlDataAnalysisExt/Core/OLDataItem.h"
#include "QlDataAnalysisExt/Core/PercentileRankEnds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr std::size_t kLarge = 1u << 17;

// The rule as it reads: extremes, 1024 bins, and a walk from each end.
std::pair<std::int32_t, std::int32_t> HistogramRule(const std::vector<std::int32_t>& s)
{
    std::int32_t lo = *std::min_element(s.begin(), s.end());
    std::int32_t hi = *std::max_element(s.begin(), s.end());
    const double start = lo;
    const double width = (static_cast<double>(hi) - lo + 1.0) / 1024.0;
    std::array<std::uint64_t, 1024> bins{};
    for (const std::int32_t v : s) {
        const auto bin = static_cast<std::int32_t>(static_cast<std::int64_t>((v - start) / width - 0.5));
        ++bins[static_cast<std::size_t>(std::clamp(bin, 0, 1023))];
    }
    const auto threshold = static_cast<std::uint64_t>(static_cast<float>(s.size()) / 100.0f);
    std::uint64_t sum = 0;
    std::int32_t low = lo;
    for (int b = 0; b < 1024; ++b) {
        if ((sum += bins[static_cast<std::size_t>(b)]) > threshold) {
            low = static_cast<std::int32_t>(b * width + start);
            break;
        }
    }
    sum = 0;
    for (int b = 1023; b >= 1; --b) {
        if ((sum += bins[static_cast<std::size_t>(b)]) > threshold) {
            hi = static_cast<std::int32_t>(b * width + start);
            break;
        }
    }
    return {low, hi};
}

class ItemPercentileRanksTest : public ::testing::Test {
protected:
    // The item's percentile range against the rule's ends, widened by the
    // item's contrast as the item widens them.
    void ExpectTheRule(std::vector<std::int32_t> values, const std::string& what)
    {
        samples = std::move(values);
        OLDataItemLoadRecord record;
        record.softScale = 1000.0f;
        OLDataItem item;
        item.SetFromLoadRecord(record);
        item.SetData(samples.data(), static_cast<std::uint32_t>(samples.size()));
        double min = 0.0, max = 0.0;
        item.GetPercentileRange(&min, &max, true);

        const auto [lo, hi] = HistogramRule(samples);
        const double r = static_cast<double>(hi) - lo;
        const double c = lo + r * 0.5;
        const double h = r * item.FirstDisplay().contrast * 0.5;
        EXPECT_EQ(min, item.RawToValue(static_cast<std::int64_t>(c - h), true)) << what;
        EXPECT_EQ(max, item.RawToValue(static_cast<std::int64_t>(c + h), true)) << what;
    }

    std::vector<std::int32_t> samples;
};

// A tilted, rippled surface with noise, over low to high.
std::vector<std::int32_t> Surface(std::size_t n, double low, double high, unsigned seed, double noise = 0.04)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> jitter(-0.5, 0.5);
    std::vector<std::int32_t> s(n);
    const std::size_t width = 512;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = static_cast<double>(i % width) / width, y = static_cast<double>(i / width) / (n / width);
        const double t = std::clamp(0.25 + 0.3 * x + 0.2 * y + 0.2 * std::sin(40 * x) * std::cos(30 * y) +
                                        noise * jitter(random),
                                    0.0, 1.0);
        s[i] = static_cast<std::int32_t>(low + t * (high - low));
    }
    return s;
}

}  // namespace

TEST_F(ItemPercentileRanksTest, SurfacesOfEverySpanAndSize)
{
    ExpectTheRule(Surface(kLarge, -2.0e9, 2.0e9, 1), "wide");
    ExpectTheRule(Surface(kLarge, -32768, 32767, 2), "16-bit");
    ExpectTheRule(Surface(kLarge, 100, 140, 3), "a few dozen values");
    ExpectTheRule(Surface(kLarge, 0, 4095, 4, 0.0), "without noise");
    // sizes around the least that takes the ranks, tails of any length
    for (const std::size_t n : {65535u, 65536u, 65537u, 65551u, 100003u, 4000037u})
        ExpectTheRule(Surface(n, -1.0e6, 3.0e6, static_cast<unsigned>(n)), "size " + std::to_string(n));
}

TEST_F(ItemPercentileRanksTest, TiesOnTheCutsAndSaturatedEnds)
{
    // 30% on the lowest value and 20% on the highest, as a saturated scan
    std::vector<std::int32_t> s = Surface(kLarge, -5000, 5000, 5);
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (i % 10 < 3)
            s[i] = -5000;
        else if (i % 10 >= 8)
            s[i] = 5000;
    }
    ExpectTheRule(s, "saturated");
    // two values, three values, one value
    std::vector<std::int32_t> two(kLarge, 7);
    std::fill(two.begin(), two.begin() + kLarge / 100, -7);
    ExpectTheRule(two, "1% low");
    std::fill(two.begin(), two.begin() + kLarge / 100 + 1, -7);
    ExpectTheRule(two, "just over 1% low");
    std::vector<std::int32_t> three(kLarge, 0);
    for (std::size_t i = 0; i < three.size(); i += 37)
        three[i] = i % 2 ? 1000 : -1000;
    ExpectTheRule(three, "three values");
    ExpectTheRule(std::vector<std::int32_t>(kLarge, -12345), "one value");
}

TEST_F(ItemPercentileRanksTest, OutliersAndTheWidestSpan)
{
    std::vector<std::int32_t> s = Surface(kLarge, 0, 65535, 6);
    s[100] = std::numeric_limits<std::int32_t>::min();
    s[200] = std::numeric_limits<std::int32_t>::max();
    ExpectTheRule(s, "two extreme outliers");
    for (std::size_t i = 0; i < 2000; ++i)
        s[i * 61] = i % 2 ? 2000000000 : -2000000000;
    ExpectTheRule(s, "a sprinkle of outliers");
    std::mt19937 random(7);
    for (auto& v : s)
        v = static_cast<std::int32_t>(random());
    ExpectTheRule(s, "uniform over all 32 bits");
}

TEST_F(ItemPercentileRanksTest, PatternsThatMisleadAProbe)
{
    // high wherever a probe of evenly spread places might look, low elsewhere
    std::vector<std::int32_t> s(kLarge);
    for (std::size_t i = 0; i < s.size(); ++i)
        s[i] = i % 32 == 0 ? 1000000 + static_cast<std::int32_t>(i) : -static_cast<std::int32_t>(i % 977);
    ExpectTheRule(s, "strided peaks");
    // sorted, and sorted the other way
    std::vector<std::int32_t> sorted = Surface(kLarge, -1.0e8, 1.0e8, 8);
    std::sort(sorted.begin(), sorted.end());
    ExpectTheRule(sorted, "ascending");
    std::reverse(sorted.begin(), sorted.end());
    ExpectTheRule(sorted, "descending");
    // the first half of the buffer all at one end
    std::vector<std::int32_t> half = Surface(kLarge, -1000, 1000, 9);
    std::fill(half.begin(), half.begin() + kLarge / 2, -1000000);
    ExpectTheRule(half, "half at the low end");
}

TEST(PercentileRankEndsTest, AnyCutsGiveTheRulesEndsOrNone)
{
    // Cuts that a probe could have chosen, right and wrong: every answer
    // given must be the rule's, and cuts that hold the ranks must answer.
    std::vector<std::int32_t> s = Surface(1u << 14, -3000, 3000, 10);
    for (std::size_t i = 0; i < s.size(); i += 5)
        s[i] = 250;  // many samples on one value
    std::vector<std::int32_t> sorted = s;
    std::sort(sorted.begin(), sorted.end());
    const auto rank = static_cast<std::size_t>(static_cast<float>(s.size()) / 100.0f);
    const auto rule = HistogramRule(s);
    const std::int32_t atLow = sorted[rank], atHigh = sorted[sorted.size() - 1 - rank];
    int answered = 0;
    for (const std::int32_t cutLow : {std::numeric_limits<std::int32_t>::min(), -3001, atLow - 1, atLow, atLow + 1,
                                       sorted[rank * 3], 250, 3000, std::numeric_limits<std::int32_t>::max()}) {
        for (const std::int32_t cutHigh : {std::numeric_limits<std::int32_t>::min(), -3000, 250, sorted[sorted.size() - 1 - rank * 3],
                                            atHigh - 1, atHigh, atHigh + 1, 3001, std::numeric_limits<std::int32_t>::max()}) {
            std::int32_t lo = 0, hi = 0;
            if (!PercentileRankEnds::NarrowWithCuts(s.data(), static_cast<std::uint32_t>(s.size()), cutLow, cutHigh,
                                                    lo, hi))
                continue;
            ++answered;
            EXPECT_EQ(lo, rule.first) << cutLow << " " << cutHigh;
            EXPECT_EQ(hi, rule.second) << cutLow << " " << cutHigh;
        }
    }
    EXPECT_GE(answered, 4);
    std::int32_t lo = 0, hi = 0;
    EXPECT_TRUE(PercentileRankEnds::NarrowWithCuts(s.data(), static_cast<std::uint32_t>(s.size()), atLow + 1,
                                                   atHigh - 1, lo, hi));
    // cuts so loose that the samples kept aside would grow without end
    EXPECT_FALSE(PercentileRankEnds::NarrowWithCuts(s.data(), static_cast<std::uint32_t>(s.size()),
                                                    std::numeric_limits<std::int32_t>::max(),
                                                    std::numeric_limits<std::int32_t>::min(), lo, hi));
    // below the size worth it, and without samples, the rule decides
    EXPECT_FALSE(PercentileRankEnds::Narrow(s.data(), static_cast<std::uint32_t>(s.size()), lo, hi));
    EXPECT_FALSE(PercentileRankEnds::Narrow(nullptr, 1u << 20, lo, hi));
}
