// Z offsets: a channel with "@2:Z input offset" is shown with the offset
// contained in its samples, and saved without it.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "QlDataAnalysisExt/Core/UnitHelpers.h"

#include <cstdint>

std::int64_t QlOLDataSource::ZOffsetOfChannel(unsigned channel) const {
    const OLDataItem& item = readItem(channel);
    if (!item.HasInputOffset()) {
        return 0;
    }
    // The value of one count in the hardware unit.
    const double perCount = item.GetZScaleInHwUnits() / (GetRawRange(channel) + 1.0);
    if (perCount == 0.0) {
        return 0;
    }
    return TruncateToInt64(item.GetInputOffset() / perCount);
}

void QlOLDataSource::ApplyZOffsets(bool takeOff) {
    for (std::size_t channel = 0; channel < items.size(); ++channel) {
        const std::int64_t offset = ZOffsetOfChannel(static_cast<unsigned>(channel));
        OLDataItem& item = items[channel];
        std::int32_t* data = item.GetData();
        if (offset == 0 || !data) {
            continue;
        }
        // Samples wrap as 32-bit counts do, so that taking the offset off
        // restores every sample exactly.
        const auto delta = static_cast<std::uint32_t>(offset);
        const std::uint32_t step = takeOff ? 0u - delta : delta;
        for (std::uint32_t i = 0; i < item.GetDataSize(); ++i) {
            data[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(data[i]) + step);
        }
    }
}
