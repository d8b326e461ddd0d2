#include "tools/dstool/ChannelImage.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/LibrarySession.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Dstool {

std::optional<ChannelImage> ChannelImage::Read(int channel, ImageUnits units)
{
    ChannelImage image;
    int size = 0;
    if (DataSourceDllGetNumberOfLines(channel, &image.lines) != 1 ||
        DataSourceDllGetSamplesPerLine(channel, &image.samples) != 1 ||
        DataSourceDllGetDataBufferSize(channel, &size) != 1 || size < 0)
        return std::nullopt;
    image.values.resize(static_cast<std::size_t>(size));
    int count = 0;
    int result = -1;
    switch (units) {
    case ImageUnits::Raw:
        result = DataSourceDllGetImageData(channel, image.values.data(), size, &count);
        break;
    case ImageUnits::Volts:
        result = DataSourceDllGetImageVoltsData(channel, image.values.data(), size, &count);
        image.unit = LibrarySession::TakeText(DataSourceDllGetVoltsDataScaleUnits(channel));
        break;
    case ImageUnits::Metric:
        result = DataSourceDllGetImageMetricData(channel, image.values.data(), size, &count);
        image.unit = LibrarySession::TakeText(DataSourceDllGetMetricDataScaleUnits(channel));
        break;
    }
    if (result != 1)
        return std::nullopt;
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
