// Z offsets: a channel with "@2:Z input offset" is shown with the offset
// contained in its samples, and saved without it. Samples that a repair
// replaced are saved with their invalid mark, so that the file keeps what the
// instrument wrote. Beside these: new samples for a channel, the removal of a
// channel, and the parameter texts a client displays.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlScaleTexts.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

// The samples of a repaired item that the invalid fill covers.
std::uint64_t FillBound(const OLDataItem& item) {
    const std::uint64_t image = static_cast<std::uint64_t>(item.GetNumberOfLines()) * item.GetSamplesPerLine();
    return std::min<std::uint64_t>(image, item.GetDataSize());
}

bool TakesInvalidFill(const OLDataItem& item) {
    return item.GetData() && !item.InvalidPoints().empty() && item.GetInvalidFlag() != 0;
}

}  // namespace

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

bool QlOLDataSource::ApplyInvalidFill() {
    bool changed = false;
    for (OLDataItem& item : items) {
        if (!TakesInvalidFill(item)) {
            continue;
        }
        const auto mark = static_cast<std::int32_t>(item.GetInvalidFlag());
        const std::uint64_t bound = FillBound(item);
        std::int32_t* data = item.GetData();
        for (const std::uint32_t index : item.InvalidPoints()) {
            if (index < bound && data[index] != mark) {
                data[index] = mark;
                changed = true;
            }
        }
    }
    return changed;
}

bool QlOLDataSource::withFileSamples(const std::function<bool()>& work) {
    // The repaired samples as the client sees them, channel by channel in the
    // order of their lists.
    std::vector<std::vector<std::int32_t>> repaired(items.size());
    for (std::size_t c = 0; c < items.size(); ++c) {
        const OLDataItem& item = items[c];
        if (!TakesInvalidFill(item)) {
            continue;
        }
        const std::uint64_t bound = FillBound(item);
        for (const std::uint32_t index : item.InvalidPoints()) {
            repaired[c].push_back(index < bound ? item.GetData()[index] : 0);
        }
    }
    // Put back whatever happens in between, exceptions included.
    struct Restore {
        QlOLDataSource& source;
        const std::vector<std::vector<std::int32_t>>& kept;
        ~Restore() {
            source.ApplyZOffsets(false);
            for (std::size_t c = 0; c < kept.size() && c < source.items.size(); ++c) {
                OLDataItem& item = source.items[c];
                if (kept[c].empty() || !item.GetData()) {
                    continue;
                }
                const std::uint64_t bound = FillBound(item);
                const auto& indices = item.InvalidPoints();
                for (std::size_t k = 0; k < indices.size() && k < kept[c].size(); ++k) {
                    if (indices[k] < bound) {
                        item.GetData()[indices[k]] = kept[c][k];
                    }
                }
            }
        }
    } restore{*this, repaired};
    ApplyZOffsets(true);
    ApplyInvalidFill();
    return work();
}

// The team keeps the source a client holds as it was before the save: the
// file gets raw samples, and the offsets and the repaired samples go back on
// afterwards, so that a client that goes on working sees no difference.
bool QlOLDataSource::SaveAs(const std::string& path, bool flag) {
    return withFileSamples([&] { return OLDataSource::SaveAs(path, flag); });
}

// The file handed out holds its own copy of the samples, taken while they
// are as the file keeps them.
DataFilePtr QlOLDataSource::SaveToDataFile(const std::string& path, bool flag) {
    DataFilePtr file;
    withFileSamples([&] {
        file = OLDataSource::SaveToDataFile(path, flag);
        return file != nullptr;
    });
    return file;
}

void QlOLDataSource::SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns,
                             std::uint64_t fileOffset) {
    OLDataItem* item = writeItem(channel);
    const DataContainerPtr section = item && dataFile ? dataFile->GetContainer({item->GetPlistName()}) : nullptr;
    const auto matrix = section ? section->GetRawData("RawData") : nullptr;
    if (!matrix) {
        return;
    }
    const std::uint64_t count = static_cast<std::uint64_t>(rows) * columns;
    const std::uint64_t length = item->GetScaleBits() / 8 * count;
    // An item counts its samples, and a file its bytes, in 32 bits.
    if (length > std::numeric_limits<std::uint32_t>::max() || (count != 0 && !samples)) {
        return;
    }
    if (matrix->size1() != rows || matrix->size2() != columns) {
        // Copied before the old storage goes, which may be where the samples are.
        Orx::DataCore::IntMatrix resized(rows, columns);
        std::copy_n(samples, count, resized.data().begin());
        matrix->swap(resized);
    } else if (count != 0) {
        std::memmove(matrix->data().data(), samples, count * sizeof(std::int32_t));
    }
    item->SetData(matrix->data().data(), static_cast<std::uint32_t>(count));
    item->SetDataLength(static_cast<std::uint32_t>(length));
    item->SetDataOffset(fileOffset);
}

void QlOLDataSource::RemoveChannel(unsigned channel) {
    if (channel >= items.size()) {
        return;
    }
    const std::string name = items[channel].GetPlistName();
    if (dataFile) {
        if (const DataContainerPtr section = dataFile->GetContainer({name})) {
            section->RemoveKey("RawData");
        }
        dataFile->RemoveContainer({name});
    }
    items.erase(items.begin() + channel);
    const auto listed = std::find(dataListNames.begin(), dataListNames.end(), name);
    if (listed != dataListNames.end()) {
        dataListNames.erase(listed);
    }
    if (channel < hadInvalidDataFlag.size()) {
        hadInvalidDataFlag.erase(hadInvalidDataFlag.begin() + channel);
    }
    // The counts follow, so that a saved file lists exactly the channels it holds.
    numberOfChannels = static_cast<int>(items.size());
    numberOfDisplayChannels = std::min(numberOfDisplayChannels, numberOfChannels);
    if (const DataContainerPtr overview = dataFile ? dataFile->GetContainer({"QuillonFileOverviewInfo"}) : nullptr) {
        overview->SetValue("DataPlistNames", dataListNames);
        overview->SetValue("NumberOfDataPlists", static_cast<std::int32_t>(dataListNames.size()));
    }
}

std::vector<std::string> QlOLDataSource::GetDataPlistNames() {
    return IsQuillonFile(dataFile) ? dataFile->GetPlistNames() : std::vector<std::string>();
}

std::string QlOLDataSource::GetParameterListForItem(const std::string& sectionName, const std::string& key) {
    const DataContainerPtr section = dataFile ? dataFile->GetContainer({sectionName}) : nullptr;
    if (!section) {
        return {};
    }
    // "... list#2" is the second channel; a name without a number the first.
    const std::size_t hash = sectionName.find('#');
    const long long channel =
        hash == std::string::npos ? 0 : static_cast<long long>(QlSectionReader::AtoI(sectionName.substr(hash + 1))) - 1;
    std::string result;
    if (IsQuillonFile(dataFile)) {
        result = dataFile->GetFormattedValueString(section, key);
    }
    // A channel the source does not hold has no state to show: the file's text stands.
    if (channel < 0 || static_cast<std::uint64_t>(channel) >= items.size()) {
        return result;
    }
    const OLDataItem& item = items[static_cast<std::size_t>(channel)];
    auto shown = [](const UValue& value) {
        return QlScaleTexts::DisplayedValue(value.GetValue(), value.GetUnits()->GetName());
    };
    // What a client sees after its changes, in place of what the file says.
    if (key == "@4:Image Data") {
        result = item.GetDataName();
    } else if (key == "@4:Ramp Channel" || key == "@4:Ramp channel") {
        result = rampChannel;
    } else if (key == "@4:Z scale" || key == "@2:Z scale" || key == "Z scale") {
        result = item.GetZText();
    } else if (key == "@4:Ramp Size" || key == "@4:Ramp size") {
        result = shown(item.GetRampSize(true));
    } else if (key == "@Z scan size") {
        result = shown(item.GetZScanSize(true));
    } else if (key == "@4:Ramp Begin") {
        result = shown(item.GetRampBegin(true));
    } else if (key == "@4:Ramp End") {
        result = shown(item.GetRampEnd(true));
    } else if (key == "@4:Z offset") {
        result = shown(item.GetForceZOffset(true));
    } else if (key == "@4:FV scale") {
        result = shown(item.GetSecondScale(true));
    } else if (key == "@4:Z Display" || key == "@4:Z display") {
        result = shown(item.GetThirdScale(true));
    } else if (key == "@Z magnify") {
        result = QlScaleTexts::DisplayedValue(QlValueStrings::ParseMagnify(item.GetMagnifyText()), {});
    } else if (key == "Data Scale") {
        result = shown(item.GetDataScale(true));
    }
    return result;
}
