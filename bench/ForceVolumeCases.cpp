// Every curve of a force volume, read one by one as a host reads them.

#include "BenchCases.h"
#include "BenchPairs.h"
#include "SampleFiles.h"

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int kCurves = static_cast<int>(SampleFiles::kVolumeSide * SampleFiles::kVolumeSide);
constexpr std::size_t kHalf = SampleFiles::kVolumeCurveHalf;
constexpr std::size_t kStride = 2 * kHalf + SampleFiles::kVolumeHoldPoints;

// The volume is made the current file before the timed loop: other cases
// open files of their own in between. It must answer with every curve it
// was made with, each of its full length, or the loops would time less.
bool OpenVolume(benchmark::State& state)
{
    std::string path = SampleFiles::Get().ForceVolume();
    if (DataSourceDllOpen(path.data()) != 1) {
        state.SkipWithError("the force volume did not open");
        return false;
    }
    int curves = 0, points = 0;
    if (DataSourceDllGetForcesPerLine(&curves) != 1 || curves != kCurves ||
        DataSourceDllGetNumberOfPointsPerCurve(1, &points) != 1 || points != static_cast<int>(kHalf)) {
        state.SkipWithError("the force volume holds fewer or shorter curves");
        DataSourceDllClose();
        return false;
    }
    return true;
}

void ReadCurves(benchmark::State& state)
{
    if (!OpenVolume(state))
        return;
    std::vector<double> first(kHalf), second(kHalf);
    for (auto _ : state) {
        for (int curve = 0; curve < kCurves; ++curve) {
            int firstCount = 0, secondCount = 0;
            if (DataSourceDllGetForceVolumeForceCurveData(curve, first.data(), second.data(), &firstCount,
                                                          &secondCount, static_cast<int>(kHalf)) != 1) {
                state.SkipWithError("a curve was not read");
                break;
            }
            benchmark::ClobberMemory();
        }
    }
    DataSourceDllClose();
}

// Both halves of each curve copied as they lie, into buffers of the same
// use as the reader's.
void CopyCurves(benchmark::State& state)
{
    if (!OpenVolume(state))
        return;
    const std::int32_t* samples = DataSourceDllState::Current()->GetData(1);
    if (!samples || DataSourceDllState::Current()->GetDataBufferSize(1) < kCurves * kStride) {
        state.SkipWithError("the force volume holds fewer curves");
        DataSourceDllClose();
        return;
    }
    std::vector<std::int32_t> first(kHalf), second(kHalf);
    for (auto _ : state) {
        for (std::size_t curve = 0; curve < static_cast<std::size_t>(kCurves); ++curve) {
            const std::int32_t* d = samples + curve * kStride;
            std::memcpy(first.data(), d, kHalf * sizeof(std::int32_t));
            std::memcpy(second.data(), d + kHalf, kHalf * sizeof(std::int32_t));
            benchmark::ClobberMemory();
        }
    }
    DataSourceDllClose();
}

}  // namespace

void RegisterForceVolumeCases()
{
    BenchPairs::Add({"force volume curves", "copy the same bytes", 2.0, false}, ReadCurves, CopyCurves);
}
