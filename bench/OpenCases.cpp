// Opening files: the library's Open and Close against reading the bytes and
// doing the least that the samples in memory need.

#include "BenchCases.h"
#include "BenchPairs.h"
#include "FileBytes.h"
#include "SampleFiles.h"

#include "DataSourceDll/DataSourceDll.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

// Once, untimed: the file opens with the channels it was made with, each
// of its full size, so that the timed opens are known to read all of it.
bool OpensWhole(std::string& path, int channels, int samplesPerChannel)
{
    if (DataSourceDllOpen(path.data()) != 1)
        return false;
    int count = 0;
    bool whole = DataSourceDllGetNumberOfChannels(&count) == 1 && count == channels;
    for (int c = 0; whole && c < channels; ++c) {
        int size = 0;
        whole = DataSourceDllGetDataBufferSize(c, &size) == 1 && size == samplesPerChannel;
    }
    DataSourceDllClose();
    return whole;
}

void OpenAndClose(benchmark::State& state, const std::string& path, std::size_t channels, std::size_t side)
{
    std::string name = path;
    if (!OpensWhole(name, static_cast<int>(channels), static_cast<int>(side * side))) {
        state.SkipWithError("the file did not open with all its samples");
        return;
    }
    for (auto _ : state) {
        if (DataSourceDllOpen(name.data()) != 1) {
            state.SkipWithError("the file did not open");
            break;
        }
        DataSourceDllClose();
    }
}

// The file read, then each channel's 2-byte pixels widened into an array of
// 32-bit values of its own. The pixels fill nearly all of the file's end, each
// channel's behind a section head of a few dozen bytes; the stretch of the
// same size at the end is widened instead, which is the same work without a
// walk of the sections.
void ReadAndWiden(benchmark::State& state, const std::string& path)
{
    constexpr std::size_t kPixels = std::size_t{SampleFiles::kTefSide} * SampleFiles::kTefSide;
    constexpr std::size_t kChannelBytes = 2 * kPixels;
    for (auto _ : state) {
        const FileBytes file(path);
        const std::uint8_t* stored = file.Data() + file.Size() - SampleFiles::kTefChannels * kChannelBytes;
        std::vector<std::unique_ptr<std::int32_t[]>> channels;
        for (std::size_t c = 0; c < SampleFiles::kTefChannels; ++c) {
            auto values = std::make_unique_for_overwrite<std::int32_t[]>(kPixels);
            const std::uint8_t* in = stored + c * kChannelBytes;
            for (std::size_t i = 0; i < kPixels; ++i) {
                std::uint16_t word;
                std::memcpy(&word, in + 2 * i, 2);
                values[i] = static_cast<std::int16_t>(word ^ 0x8000u);
            }
            benchmark::DoNotOptimize(values.get());
            channels.push_back(std::move(values));
        }
        benchmark::ClobberMemory();
    }
}

void ReadOnly(benchmark::State& state, const std::string& path)
{
    for (auto _ : state) {
        const FileBytes file(path);
        benchmark::DoNotOptimize(file.Data());
        benchmark::ClobberMemory();
    }
}

}  // namespace

void RegisterOpenCases()
{
    for (const std::uint16_t bits : {std::uint16_t{16}, std::uint16_t{12}}) {
        const std::string name = "tef open, " + std::to_string(bits) + " bits";
        BenchPairs::Add(
            {name, "read the file, widen its pixels to 32 bits", 1.5, false},
            [bits](benchmark::State& state) {
                OpenAndClose(state, SampleFiles::Get().Tef(bits), SampleFiles::kTefChannels, SampleFiles::kTefSide);
            },
            [bits](benchmark::State& state) { ReadAndWiden(state, SampleFiles::Get().Tef(bits)); });
    }
    BenchPairs::Add({"quillon image open", "read the file", 1.5, false},
                    [](benchmark::State& state) {
                        OpenAndClose(state, SampleFiles::Get().QuillonImage(), SampleFiles::kQuillonChannels,
                                     SampleFiles::kQuillonSide);
                    },
                    [](benchmark::State& state) { ReadOnly(state, SampleFiles::Get().QuillonImage()); });
}
