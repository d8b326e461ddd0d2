// Reading an image in physical units, and the display range by percentiles,
// over a channel held in memory.

#include "BenchCases.h"
#include "BenchPairs.h"
#include "SampleFiles.h"

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "support/MemoryDataSource.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr std::size_t kSide = 4096;
constexpr float kZScale = 1250.0f;

// One image channel of kSide x kSide samples over most of the 32-bit span.
std::shared_ptr<MemoryDataSource> MakeImage()
{
    auto source = std::make_shared<MemoryDataSource>();
    source->kind = "IMAGE";
    OLDataItemLoadRecord record;
    record.rows = kSide;
    record.columns = kSide;
    record.softScale = kZScale;
    record.hardScale = kZScale / 40.0f;
    record.zRange = UValue(kZScale, "nm");
    record.softUnit = "nm";
    source->AddChannel(record, SampleFiles::Surface(kSide, kSide, -2000000000, 2000000000, 3));
    return source;
}

// Made once: installing a source is cheap, making its samples is not.
const std::shared_ptr<MemoryDataSource>& Image()
{
    static const std::shared_ptr<MemoryDataSource> source = MakeImage();
    return source;
}

void ReadMetricImage(benchmark::State& state)
{
    DataSourceDllState::Install(Image());
    std::vector<double> out(kSide * kSide);
    int count = 0;
    for (auto _ : state) {
        if (DataSourceDllGetImageMetricData(0, out.data(), static_cast<int>(out.size()), &count) != 1 ||
            count != static_cast<int>(out.size())) {
            state.SkipWithError("the image was not read whole");
            break;
        }
        benchmark::ClobberMemory();
    }
    DataSourceDllState::Release();
}

void ScaleIntoDoubles(benchmark::State& state)
{
    const std::vector<std::int32_t>& samples = Image()->Samples(0);
    std::vector<double> out(samples.size());
    const double factor = static_cast<double>(kZScale) / 4294967295.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(factor);
        for (std::size_t i = 0; i < samples.size(); ++i)
            out[i] = static_cast<double>(samples[i]) * factor;
        benchmark::ClobberMemory();
    }
}

void ContrastRange(benchmark::State& state)
{
    IOLDataSource& source = *Image();
    for (auto _ : state) {
        double min = 0.0, max = 0.0;
        source.GetContrastRange(0, &min, &max);
        benchmark::DoNotOptimize(min);
        benchmark::DoNotOptimize(max);
    }
}

void MinMaxPass(benchmark::State& state)
{
    const std::vector<std::int32_t>& samples = Image()->Samples(0);
    for (auto _ : state) {
        std::int32_t lo = samples[0], hi = samples[0];
        for (const std::int32_t s : samples) {
            lo = std::min(lo, s);
            hi = std::max(hi, s);
        }
        benchmark::DoNotOptimize(lo);
        benchmark::DoNotOptimize(hi);
    }
}

}  // namespace

void RegisterImageCases()
{
    BenchPairs::Add({"image metric data", "scale an int32 array into doubles", 1.2, false}, ReadMetricImage,
                    ScaleIntoDoubles);
    BenchPairs::Add({"percentile range", "one min/max pass", 3.0, false}, ContrastRange, MinMaxPass);
}
