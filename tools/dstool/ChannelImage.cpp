#include "tools/dstool/ChannelImage.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/FileKind.h"
#include "tools/dstool/LibrarySession.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Dstool {

namespace {

// More values than an image of any instrument has are not believed.
constexpr int kMostValues = 1 << 28;

}  // namespace

std::optional<ChannelImage> ChannelImage::Read(int channel, DataUnits units)
{
    if (units == DataUnits::Force)
        return std::nullopt;
    ChannelImage image;
    int size = 0;
    if (DataSourceDllGetNumberOfLines(channel, &image.lines) != 1 ||
        DataSourceDllGetSamplesPerLine(channel, &image.samples) != 1 ||
        DataSourceDllGetDataBufferSize(channel, &size) != 1 || size < 0 || size > kMostValues)
        return std::nullopt;
    using ImageReader = int (*)(int, double*, int, int*);
    using VolumeReader = int (*)(double*, int, int*);
    static constexpr ImageReader kImages[] = {DataSourceDllGetImageData, DataSourceDllGetImageVoltsData,
                                              DataSourceDllGetImageMetricData};
    static constexpr VolumeReader kVolumes[] = {DataSourceDllGetForceVolumeImageData,
                                                DataSourceDllGetForceVolumeVoltsImageData,
                                                DataSourceDllGetForceVolumeMetricImageData};
    const auto u = static_cast<std::size_t>(units);
    const bool volume = channel == 0 && FileKind::Is(DATASOURCEDLL_KIND_FORCE_VOLUME);
    int count = 0;
    const auto read = [&](int capacity) {
        image.values.assign(static_cast<std::size_t>(capacity), 0.0);
        return volume ? kVolumes[u](image.values.data(), capacity, &count)
                      : kImages[u](channel, image.values.data(), capacity, &count);
    };
    int result = read(size);
    // The reader tells the size it needs when the channel's buffer is not it.
    if (result != 1 && count > size && count <= kMostValues)
        result = read(count);
    if (result != 1 || count < 0 || count > static_cast<int>(image.values.size()))
        return std::nullopt;
    if (units == DataUnits::Volts)
        image.unit = LibrarySession::TakeText(DataSourceDllGetVoltsDataScaleUnits(channel));
    else if (units == DataUnits::Metric)
        image.unit = LibrarySession::TakeText(DataSourceDllGetMetricDataScaleUnits(channel));
    // A buffer that does not fill lines x samples is shown as far as it goes.
    image.values.resize(static_cast<std::size_t>(count));
    const auto cells = static_cast<std::size_t>(std::max(image.lines, 0)) * static_cast<std::size_t>(std::max(image.samples, 0));
    if (cells != image.values.size()) {
        image.lines = image.samples > 0 ? static_cast<int>(image.values.size() / static_cast<std::size_t>(image.samples)) : 0;
        image.values.resize(static_cast<std::size_t>(image.lines) * static_cast<std::size_t>(std::max(image.samples, 0)));
    }
    return image;
}

std::pair<double, double> ChannelImage::PercentileRange(double low, double high) const
{
    std::vector<double> sorted;
    sorted.reserve(values.size());
    std::copy_if(values.begin(), values.end(), std::back_inserter(sorted), [](double v) { return std::isfinite(v); });
    if (sorted.empty())
        return {0.0, 0.0};
    std::sort(sorted.begin(), sorted.end());
    const auto at = [&](double fraction) {
        const double position = std::clamp(fraction, 0.0, 1.0) * static_cast<double>(sorted.size() - 1);
        return sorted[static_cast<std::size_t>(position)];
    };
    return {at(low), at(high)};
}

}  // namespace Dstool
