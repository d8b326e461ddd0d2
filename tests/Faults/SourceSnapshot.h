#pragma once

// What a client holds of a source, taken as named entries: the file-wide
// record, the dirty marks a save rewrites, and for every channel its archive
// record, its place in the file and its samples. Two snapshots that agree
// are the same source to every client.

#include "Platform/Archive.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"
#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace Faults {

using SnapshotEntries = std::vector<std::pair<std::string, std::string>>;

inline std::string UnitizedText(const UValue& value) {
    std::ostringstream text;
    text.precision(17);
    text << value.GetValue() << ' ' << value.GetUnits()->GetName();
    return text.str();
}

template <class T>
std::string NumberText(T value) {
    std::ostringstream text;
    text.precision(17);
    text << value;
    return text.str();
}

// A family's source with the parts of its record that only a save changes
// open to the snapshot.
template <class Family>
class Watched : public Family {
public:
    using Family::Family;

    SnapshotEntries Snapshot() {
        SnapshotEntries entries;
        auto add = [&entries](std::string name, std::string value) {
            entries.emplace_back(std::move(name), std::move(value));
        };
        add("path", this->GetFilePath());
        add("title", this->GetFileTitle());
        add("open", NumberText(this->IsOpen()));
        add("channels", NumberText(this->GetNumberOfChannels()));
        add("display channels", NumberText(this->GetNumberOfDisplayChannels()));
        add("image lines", NumberText(this->GetImageLines()));
        add("image samples", NumberText(this->GetImageSamplesPerLine()));
        add("scan size", UnitizedText(this->GetScanSize()));
        add("scan rate", UnitizedText(this->GetScanRate()));
        add("x offset", UnitizedText(this->GetXOffset()));
        add("y offset", UnitizedText(this->GetYOffset()));
        add("aspect ratio", NumberText(this->GetAspectRatio()));
        add("units", this->GetUnits());
        add("date", this->GetDate());
        add("force samples", NumberText(this->GetForceSamplesPerLine()));
        add("hold points", NumberText(this->GetNumberOfHoldPoints()));
        add("forces per line", NumberText(this->GetForcesPerLine()));
        add("data length", NumberText(this->dataLength));
        add("data offset", NumberText(this->dataOffset));
        add("marks", NumberText(this->linesChanged) + NumberText(this->samplesChanged) +
                         NumberText(this->rotationChanged) + NumberText(this->channelLinesChanged) +
                         NumberText(this->channelSamplesChanged));
        add("start context", this->startContext);
        for (unsigned c = 0; c < static_cast<unsigned>(this->GetNumberOfChannels()); ++c) {
            const std::string channel = "channel " + std::to_string(c) + " ";
            OLDataItem* item = this->GetDataItem(c);
            if (item == nullptr) {
                add(channel + "item", "none");
                continue;
            }
            Orx::Core::MemoryArchiveStream stream;
            Orx::Core::Archive archive(stream, Orx::Core::Archive::store);
            item->WriteRecord(archive);
            add(channel + "record", std::string(stream.Bytes().begin(), stream.Bytes().end()));
            add(channel + "section", item->GetPlistName());
            add(channel + "file offset", NumberText(item->GetDataOffset()));
            add(channel + "file length", NumberText(this->GetDataLength(c)));
            // The samples stay where the client was given them.
            const std::int32_t* samples = this->GetData(c);
            add(channel + "samples at", NumberText(reinterpret_cast<std::uintptr_t>(samples)));
            std::string bytes(static_cast<std::size_t>(this->GetDataBufferSize(c)) * sizeof(std::int32_t), '\0');
            if (samples != nullptr && !bytes.empty()) {
                std::memcpy(bytes.data(), samples, bytes.size());
            }
            add(channel + "samples", bytes);
        }
        return entries;
    }
};

// Fails with the names of the entries that differ, not their bytes.
inline void ExpectSameSnapshot(const SnapshotEntries& before, const SnapshotEntries& after) {
    std::vector<std::string> differing;
    for (std::size_t i = 0; i < before.size() || i < after.size(); ++i) {
        if (i >= before.size() || i >= after.size()) {
            differing.push_back(i < before.size() ? before[i].first + " (gone)" : after[i].first + " (new)");
        } else if (before[i] != after[i]) {
            differing.push_back(before[i].first);
        }
    }
    EXPECT_TRUE(differing.empty()) << "changed by the failed save: " << ::testing::PrintToString(differing);
}

}  // namespace Faults
