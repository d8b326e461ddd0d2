// Any bytes at all, read as a container file and, where they read, opened as
// a Quillon file. Initialize never raises; what it opens names only units the
// dictionary knows, hands out samples that all lie in their buffers, and reads
// through the exports.

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

// Curves longer than this are not read through the exports: the caller's
// buffers would be the fuzzer's memory, not the file's.
constexpr std::uint32_t kMostPoints = 1u << 16;

volatile std::int64_t sink;

struct Colours : InterpolatingColorTableCallback {
    bool skip = false;
    bool SkipColorTables() override { return skip; }
};

void ReadEveryChannel(QlOLDataSource& source) {
    for (unsigned c = 0;; ++c) {
        OLDataItem* item = source.GetDataItem(c);
        if (!item) {
            break;
        }
        std::int64_t sum = 0;
        const std::int32_t* data = item->GetData();
        for (std::uint32_t i = 0; data && i < item->GetDataSize(); ++i) {
            sum += data[i];
        }
        sink = sum;
        // These look their units up by name and raise for a name the dictionary does not know.
        item->GetZRange(true);
        item->GetDataScale(true);
        source.GetRampSize(c, true);
        source.GetSecondScale(c, true);
        source.GetThirdScale(c, true);
        source.GetForceZOffset(c, true);
    }
    source.GetDateTime();
}

void ReadThroughTheExports(QlOLDataSource& source) {
    const int channels = static_cast<int>(source.GetNumberOfChannels());
    std::vector<double> first, second;
    for (int c = 0; c < channels && c < 8; ++c) {
        const auto channel = static_cast<unsigned>(c);
        const std::uint32_t size = source.GetDataBufferSize(channel);
        if (size <= kMostPoints) {
            std::vector<double> out(size + 1);
            int count = 0;
            DataSourceDllGetImageMetricData(c, out.data(), static_cast<int>(out.size()), &count);
            DataSourceDllGetHSDCForceCurveData(c, out.data(), static_cast<int>(out.size()), &count);
        }
        if (source.GetRetracePoints(channel) <= kMostPoints && source.GetTracePoints(channel) <= kMostPoints) {
            first.assign(source.GetRetracePoints(channel) + 1, 0.0);
            second.assign(source.GetTracePoints(channel) + 1, 0.0);
            DataSourceDllGetForceCurveMetricData(c, first.data(), second.data());
        }
    }
    const std::uint32_t trace = source.GetTracePoints(1);
    if (trace <= kMostPoints && source.GetNumberOfHoldPoints() >= 0 &&
        static_cast<std::uint32_t>(source.GetNumberOfHoldPoints()) <= kMostPoints) {
        first.assign(trace + 1, 0.0);
        second.assign(std::max<std::size_t>(trace, static_cast<std::size_t>(source.GetNumberOfHoldPoints())) + 1, 0.0);
        int firstCount = 0, secondCount = 0;
        DataSourceDllGetForceVolumeForceCurveData(0, first.data(), second.data(), &firstCount, &secondCount,
                                                  static_cast<int>(trace));
        DataSourceDllGetForceVolumeHoldData(1, 0, second.data());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::shared_ptr<Orx::DataCore::DataFile> file;
    try {
        file = Orx::DataCore::DataFile::OpenMemory(data, size);
    } catch (const Orx::DataCore::ContainerFormatError&) {
        return 0;
    }
    // Colour tables are read, but not from a file that names a favourite:
    // each would join the process-wide list of custom tables for good.
    static const std::string kFavourite = "New Favorite";
    static Colours colours;
    colours.skip = std::search(data, data + size, kFavourite.begin(), kFavourite.end()) != data + size;
    auto source = std::make_shared<QlOLDataSource>(file, &colours);
    source->Initialize();
    ReadEveryChannel(*source);
    if (source->IsOpen()) {
        DataSourceDllState::Install(source);
        ReadThroughTheExports(*source);
        DataSourceDllState::Release();
    }
    return 0;
}
