// Samples that an instrument marked invalid are replaced by the mean of their
// valid neighbours. A neighbour repaired earlier in the pass does not count,
// so the result depends on the order of the pass, which stays row by row.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include <algorithm>
#include <cstdint>
#include <vector>

void QlOLDataSource::RepairInvalidSamples(OLDataItem& item) {
    std::int32_t* data = item.GetData();
    const std::uint64_t width = item.GetSamplesPerLine();
    const std::uint64_t height = item.GetNumberOfLines();
    // The image is never taken beyond the samples the item holds.
    const std::uint64_t count = std::min<std::uint64_t>(width * height, item.GetDataSize());
    if (!data || width == 0 || count == 0) {
        return;
    }
    const auto invalid = static_cast<std::int32_t>(item.GetInvalidFlag());
    std::vector<std::uint32_t>& repaired = item.InvalidPoints();
    // The list of repaired indices, as a mark per sample: the list itself
    // would be searched once for every neighbour.
    std::vector<bool> listed(count, false);
    for (const std::uint32_t index : repaired) {
        if (index < count) {
            listed[index] = true;
        }
    }

    std::int64_t validSum = 0;
    std::uint64_t validCount = 0;
    std::uint64_t unrepaired = 0;
    auto counts = [&](std::uint64_t index) { return data[index] != invalid && !listed[index]; };
    for (std::uint64_t index = 0; index < count; ++index) {
        if (data[index] != invalid) {
            validSum += data[index];
            ++validCount;
            continue;
        }
        repaired.push_back(static_cast<std::uint32_t>(index));
        listed[index] = true;
        const std::uint64_t column = index % width;
        std::int64_t sum = 0;
        int neighbours = 0;
        auto consider = [&](std::uint64_t neighbour) {
            if (counts(neighbour)) {
                sum += data[neighbour];
                ++neighbours;
            }
        };
        if (index >= width) {
            consider(index - width);
        }
        if (index + width < count) {
            consider(index + width);
        }
        if (column > 0) {
            consider(index - 1);
        }
        if (column + 1 < width && index + 1 < count) {
            consider(index + 1);
        }
        if (neighbours > 0) {
            data[index] = static_cast<std::int32_t>(static_cast<double>(sum) / neighbours + 0.5);
        } else {
            ++unrepaired;
        }
    }
    if (unrepaired == 0) {
        return;
    }
    const std::int32_t fill =
        validCount == 0 ? 0 : static_cast<std::int32_t>(validSum / static_cast<std::int64_t>(validCount));
    for (std::uint64_t index = 0; index < count; ++index) {
        if (data[index] == invalid) {
            data[index] = fill;
        }
    }
}
