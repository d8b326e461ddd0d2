#include "Quillon/QuillonTestSupport.h"

#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <span>

using namespace QuillonTest;

namespace {

constexpr std::int32_t kInvalid = -32768;

struct Image {
    std::vector<std::int32_t> samples;
    std::vector<std::uint32_t> repaired;
};

// The rule as it reads: the list of repaired indices is searched for every neighbour.
// A list given beforehand is searched too; a buffer shorter than the image
// is repaired within its samples.
Image QuadraticRepair(std::vector<std::int32_t> d, std::size_t width, std::size_t height, std::int32_t invalid,
                      std::vector<std::uint32_t> list = {}) {
    const std::size_t count = std::min(width * height, d.size());
    std::int64_t sum = 0;
    std::int64_t valid = 0;
    int unrepaired = 0;
    auto counts = [&](std::size_t i) {
        return d[i] != invalid && std::find(list.begin(), list.end(), i) == list.end();
    };
    for (std::size_t i = 0; i < count; ++i) {
        if (d[i] != invalid) {
            sum += d[i];
            ++valid;
            continue;
        }
        list.push_back(static_cast<std::uint32_t>(i));
        const std::size_t row = i / width, column = i % width;
        std::int64_t near = 0;
        int n = 0;
        for (const auto& [ok, j] : {std::pair{row > 0, i - width}, std::pair{i + width < count, i + width},
                                    std::pair{column > 0, i - 1}, std::pair{column + 1 < width && i + 1 < count, i + 1}}) {
            if (ok && counts(j)) {
                near += d[j];
                ++n;
            }
        }
        if (n > 0) {
            d[i] = static_cast<std::int32_t>(static_cast<double>(near) / n + 0.5);
        } else {
            ++unrepaired;
        }
    }
    if (unrepaired > 0) {
        for (auto& v : std::span(d).first(count)) {
            if (v == invalid) {
                v = valid == 0 ? 0 : static_cast<std::int32_t>(sum / valid);
            }
        }
    }
    return {d, list};
}

Image FastRepair(std::vector<std::int32_t> d, std::size_t width, std::size_t height, std::int32_t invalid,
                 std::vector<std::uint32_t> list = {}) {
    OLDataItemLoadRecord record;
    record.columns = static_cast<std::uint32_t>(width);
    record.rows = static_cast<std::uint32_t>(height);
    record.invalidFlag = static_cast<std::uint32_t>(invalid);
    OLDataItem item;
    item.SetFromLoadRecord(record);
    item.SetData(d.data(), static_cast<std::uint32_t>(d.size()));
    item.InvalidPoints() = std::move(list);
    QlOLDataSource::RepairInvalidSamples(item);
    return {d, item.InvalidPoints()};
}

}  // namespace

TEST(QuillonRepairTest, AllInvalidBecomesZero) {
    const Image repaired = FastRepair(std::vector<std::int32_t>(12, kInvalid), 4, 3, kInvalid);
    EXPECT_EQ(repaired.samples, std::vector<std::int32_t>(12, 0));
    EXPECT_EQ(repaired.repaired.size(), 12u);
}

TEST(QuillonRepairTest, IsolatedSampleTakesTheRoundedMeanOfItsNeighbours) {
    // 3 x 3: the centre's neighbours 10, 20, 31, 40 have the mean 25.25.
    std::vector<std::int32_t> d = {0, 10, 0, 20, kInvalid, 31, 0, 40, 0};
    EXPECT_EQ(FastRepair(d, 3, 3, kInvalid).samples[4], 25);
    d = {0, 10, 0, 21, kInvalid, 31, 0, 40, 0};  // 25.5 rounds up
    EXPECT_EQ(FastRepair(d, 3, 3, kInvalid).samples[4], 26);
    d = {kInvalid, -3, 0, -4, 0, 0, 0, 0, 0};  // -3.5 + 0.5 truncates toward zero
    EXPECT_EQ(FastRepair(d, 3, 3, kInvalid).samples[0], -3);
}

TEST(QuillonRepairTest, SampleWhoseNeighboursAreAllInvalidTakesTheImageMean) {
    // 5 x 5 of 100 with an invalid cross: the arms are repaired from the
    // outside, the centre sees only arms that were invalid when met.
    std::vector<std::int32_t> d(25, 100);
    d[3] = 103;
    for (std::size_t i : {7u, 11u, 12u, 13u, 17u}) {
        d[i] = kInvalid;
    }
    const Image repaired = FastRepair(d, 5, 5, kInvalid);
    EXPECT_EQ(repaired.samples[12], (100 * 19 + 103) / 20);
    EXPECT_EQ(repaired.samples[7], 100);
    EXPECT_EQ(repaired.samples[11], 100);
    EXPECT_EQ(repaired.repaired, (std::vector<std::uint32_t>{7, 11, 12, 13, 17}));
}

TEST(QuillonRepairTest, FastRepairMatchesTheRuleOnRandomImages) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 300; ++round) {
        const std::size_t width = 1 + random() % 24;
        const std::size_t height = 1 + random() % 24;
        const double density = (random() % 100) / 100.0;
        const std::int32_t invalid = round % 3 == 0 ? 0 : kInvalid;
        std::uniform_int_distribution<std::int32_t> value(-2000000000, 2000000000);
        std::bernoulli_distribution isInvalid(density);
        std::vector<std::int32_t> d(width * height);
        for (auto& v : d) {
            v = isInvalid(random) ? invalid : value(random);
        }
        const Image expected = QuadraticRepair(d, width, height, invalid);
        const Image actual = FastRepair(d, width, height, invalid);
        ASSERT_EQ(actual.samples, expected.samples) << width << " x " << height << " at " << density;
        ASSERT_EQ(actual.repaired, expected.repaired);
    }
}

TEST(QuillonRepairTest, ListedIndicesAndShortBuffersMatchTheRule) {
    // Indices already on the list (some beyond the image) never count as
    // neighbours; rows may be cut short by the buffer; and blocks of invalid
    // samples leave their insides to the image mean.
    std::mt19937 random(77);
    for (int round = 0; round < 300; ++round) {
        const std::size_t width = 1 + random() % 30;
        const std::size_t height = 1 + random() % 30;
        std::vector<std::int32_t> d(width * height - random() % (width * height));
        for (auto& v : d) {
            v = static_cast<std::int32_t>(random() % 2001) - 1000;
        }
        const std::size_t side = 1 + random() % 8;
        const std::size_t top = random() % height, left = random() % width;
        for (std::size_t y = top; y < std::min(height, top + side); ++y) {
            for (std::size_t x = left; x < std::min(width, left + side); ++x) {
                if (y * width + x < d.size()) {
                    d[y * width + x] = kInvalid;
                }
            }
        }
        for (auto& v : d) {
            v = random() % 10 == 0 ? kInvalid : v;
        }
        std::vector<std::uint32_t> listed;
        for (std::size_t k = random() % 4 == 0 ? random() % 20 : 0; k > 0; --k) {
            listed.push_back(static_cast<std::uint32_t>(random() % (width * height + 5)));
        }
        const Image expected = QuadraticRepair(d, width, height, kInvalid, listed);
        const Image actual = FastRepair(d, width, height, kInvalid, listed);
        ASSERT_EQ(actual.samples, expected.samples) << width << " x " << height << " round " << round;
        ASSERT_EQ(actual.repaired, expected.repaired) << width << " x " << height << " round " << round;
    }
}

TEST(QuillonRepairTest, ShortBufferIsRepairedWithinItsSamples) {
    // Lines and samples promise more than the buffer holds.
    std::vector<std::int32_t> d = {kInvalid, 4, kInvalid, 8, kInvalid};
    const Image repaired = FastRepair(d, 3, 3, kInvalid);
    EXPECT_EQ(repaired.samples, (std::vector<std::int32_t>{6, 4, 4, 8, 6}));
}

TEST(QuillonRepairTest, FileChannelsWithAnInvalidFlagAreRepairedOnLoading) {
    QuillonBuilder file("IMAGE");
    std::vector<std::int32_t> samples(16, 500);
    samples[5] = -7;
    samples[10] = -7;
    file.Samples32(0, 4, 4, samples)
        .Text("Dulce image list", "Invalid Data Flag", "-7")
        .Text("Dulce image list", "Invalid Data Fill", "Red")
        .Samples32(1, 4, 4, samples)
        .Text("Dulce image list#2", "Invalid Data Flag", "None");
    auto s = Load(file);
    ASSERT_TRUE(s->IsOpen());
    EXPECT_EQ(s->GetData(0)[5], 500);
    EXPECT_EQ(s->GetData(0)[10], 500);
    EXPECT_EQ(s->GetInvalidFlag(0), static_cast<std::uint32_t>(-7));
    EXPECT_EQ(s->GetInvalidFill(0), "Red");
    EXPECT_EQ(*s->GetInvalidPointList(0), (std::vector<std::uint32_t>{5, 10}));
    // "None" marks a channel without invalid samples.
    EXPECT_EQ(s->GetData(1)[5], -7);
    EXPECT_FALSE(s->HasInvalidPoints(1));
    EXPECT_EQ(s->GetInvalidFill(1), "None");

    QuillonBuilder noFill("IMAGE");
    noFill.Text("Dulce image list", "Invalid Data Flag", "12345");
    EXPECT_EQ(Load(noFill)->GetInvalidFill(0), "Fill");
}
