// The common frame of saving; each family writes its own half through the
// four saving templates.

#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "Platform/Logger.h"
#include "Platform/MemoryProbe.h"
#include "Platform/UserMessage.h"

#include <optional>
#include <tuple>

void OLDataSource::ProbeSaveMemory() const {
    std::vector<std::size_t> blocks;
    for (int c = 0; c < numberOfChannels && static_cast<std::size_t>(c) < items.size(); ++c) {
        blocks.push_back(static_cast<std::size_t>(items[static_cast<std::size_t>(c)].GetDataSize()) * 4 + 80960);
    }
    Orx::Core::ProbeMemory(blocks);
}

bool OLDataSource::RestoringOnFailure(const std::function<bool()>& save) {
    auto marks = [this] {
        return std::tie(linesChanged, samplesChanged, rotationChanged, channelLinesChanged, channelSamplesChanged);
    };
    struct Kept {
        std::vector<OLDataItem> items;
        std::uint32_t dataLength;
        std::tuple<bool, bool, bool, bool, bool> marks;
    };
    std::optional<Kept> kept;
    try {
        kept.emplace(Kept{items, dataLength, marks()});
        return save();
    } catch (...) {
        if (kept) {
            items = std::move(kept->items);
            dataLength = kept->dataLength;
            marks() = kept->marks;
        }
        throw;
    }
}

bool OLDataSource::SaveAs(const std::string& path, bool flag) {
    // A failed save leaves the source as it was. The copy that makes it so is
    // taken inside the guard, so that not even its memory can make SaveAs throw.
    try {
        return RestoringOnFailure([&] {
            ProbeSaveMemory();
            DataFilePtr file = CreateDataFile(path);
            if (!file) {
                Orx::Core::LogManager::Instance()
                    .GetLogger("DataAnalysis.OLDataSource")
                    ->Log(2, "OLDataSource::SaveAs DataFile::Open failed");
                return false;
            }
            if (!file->IsOpen()) {
                Orx::Core::ShowUserMessage("Unable to modify this file, please save to another name.");
                return false;
            }
            if (dataFile) {
                file->CopyFrom(*dataFile);
            }
            WriteDataFile(file, flag);
            file->Close();
            return true;
        });
    } catch (...) {
        Orx::Core::ShowUserMessage("Cannot save as another file, out of memory. ");
        return false;
    }
}

DataFilePtr OLDataSource::SaveToDataFile(const std::string& path, bool flag) {
    ProbeSaveMemory();
    DataFilePtr file = CreateDataFile(path);
    if (!file) {
        return file;
    }
    if (dataFile) {
        file->CopyFrom(*dataFile);
    }
    WriteDataFile(file, flag);
    return file;
}
