// The repair of samples that an instrument marked invalid, for the two
// patterns that instruments leave: single samples scattered over the image,
// and a block where the scan lost the surface.

#include "BenchCases.h"
#include "BenchPairs.h"
#include "SampleFiles.h"
#include "ThreadCpuClock.h"

#include "QlDataAnalysisExt/Core/OLDataItem.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include <algorithm>
#include <functional>
#include <random>
#include <vector>

namespace {

constexpr std::size_t kSide = 1024;
constexpr std::int32_t kInvalid = -32768;

std::vector<std::int32_t> Scattered()
{
    std::vector<std::int32_t> image = SampleFiles::Surface(kSide, kSide, -30000, 30000, 5);
    std::mt19937 random(17);
    std::bernoulli_distribution marked(0.1);
    for (std::int32_t& sample : image) {
        if (marked(random))
            sample = kInvalid;
    }
    return image;
}

std::vector<std::int32_t> Block()
{
    std::vector<std::int32_t> image = SampleFiles::Surface(kSide, kSide, -30000, 30000, 6);
    for (std::size_t y = kSide / 4; y < kSide / 4 + kSide / 2; ++y)
        std::fill_n(image.begin() + static_cast<std::ptrdiff_t>(y * kSide + kSide / 4), kSide / 2, kInvalid);
    return image;
}

// Each iteration starts from the damaged image again; only the work on it
// is timed. prepare runs untimed on the fresh copy, work is timed.
void Timed(benchmark::State& state, const std::vector<std::int32_t>& damaged,
           const std::function<void(std::vector<std::int32_t>&)>& prepare, const std::function<void()>& work)
{
    std::vector<std::int32_t> image;
    for (auto _ : state) {
        image = damaged;
        prepare(image);
        const double start = ThreadCpuClock::Seconds();
        work();
        state.SetIterationTime(ThreadCpuClock::Seconds() - start);
        benchmark::ClobberMemory();
    }
}

void Repair(benchmark::State& state, const std::vector<std::int32_t>& damaged)
{
    OLDataItemLoadRecord record;
    record.rows = kSide;
    record.columns = kSide;
    record.invalidFlag = static_cast<std::uint32_t>(kInvalid);
    OLDataItem item;
    item.SetFromLoadRecord(record);
    auto prepare = [&item](std::vector<std::int32_t>& image) {
        item.SetData(image.data(), static_cast<std::uint32_t>(image.size()));
        item.InvalidPoints().clear();
    };
    // Once, untimed: every invalid sample is listed as repaired and none is
    // left, so that the timed repairs are known to do the whole work.
    std::vector<std::int32_t> once = damaged;
    prepare(once);
    QlOLDataSource::RepairInvalidSamples(item);
    const auto marked = std::count(damaged.begin(), damaged.end(), kInvalid);
    if (item.InvalidPoints().size() != static_cast<std::size_t>(marked) ||
        std::find(once.begin(), once.end(), kInvalid) != once.end()) {
        state.SkipWithError("the repair left invalid samples");
        return;
    }
    Timed(state, damaged, prepare, [&item] { QlOLDataSource::RepairInvalidSamples(item); });
}

// What any repair must do: look at every sample, adding up the valid ones.
void OnePass(benchmark::State& state, const std::vector<std::int32_t>& damaged)
{
    const std::vector<std::int32_t>* current = nullptr;
    auto prepare = [&current](std::vector<std::int32_t>& image) { current = &image; };
    Timed(state, damaged, prepare, [&current] {
        std::int64_t sum = 0;
        std::uint64_t invalid = 0;
        for (const std::int32_t sample : *current) {
            const bool marked = sample == kInvalid;
            sum += marked ? 0 : sample;
            invalid += marked;
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(invalid);
    });
}

}  // namespace

void RegisterRepairCases()
{
    static const std::vector<std::int32_t> scattered = Scattered();
    static const std::vector<std::int32_t> block = Block();
    BenchPairs::Add({"repair, 10% scattered", "one pass over the image", 5.0, true},
                    [](benchmark::State& state) { Repair(state, scattered); },
                    [](benchmark::State& state) { OnePass(state, scattered); });
    BenchPairs::Add({"repair, 512x512 block", "one pass over the image", 5.0, true},
                    [](benchmark::State& state) { Repair(state, block); },
                    [](benchmark::State& state) { OnePass(state, block); });
}
