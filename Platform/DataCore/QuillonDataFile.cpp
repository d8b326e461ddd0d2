#include "Platform/DataCore/QuillonDataFile.h"

#include <algorithm>
#include <set>

namespace Orx::DataCore {

const std::string QuillonDataFile::FILE_TYPE = "Quillon Data File";

namespace {

std::vector<std::string> plistNames(const DataContainerPtr& root) {
    std::vector<std::string> names;
    if (auto overview = root ? root->GetChild(QuillonDataFile::kOverviewSection) : nullptr) {
        overview->GetValue(QuillonDataFile::kPlistNamesKey, names);
    }
    return names;
}

}  // namespace

QuillonDataFile::QuillonDataFile(std::string path, DataContainerPtr root)
    : DataFile(std::move(path), FILE_TYPE, std::move(root)) {}

void QuillonDataFile::FlushForceCurve(const std::vector<std::int32_t*>& buffers,
                                      const std::vector<std::uint32_t>& lengths) {
    std::size_t count = std::min(buffers.size(), lengths.size());
    std::size_t k = 0;
    for (const auto& name : plistNames(GetRoot())) {
        if (k >= count) {
            break;
        }
        if (name.find("force image list") == std::string::npos) {
            continue;
        }
        auto section = GetRoot()->GetChild(name);
        if (section && buffers[k] != nullptr) {
            auto matrix = std::make_shared<IntMatrix>(1, lengths[k]);
            std::copy(buffers[k], buffers[k] + lengths[k], matrix->data().begin());
            section->SetRawData("RawData", matrix);
        }
        ++k;
    }
    MarkModified();
}

void QuillonDataFile::CloneChannel(const std::vector<unsigned>& channels, const DataContainerPtr& sourceRoot) {
    if (!sourceRoot || sourceRoot == GetRoot()) {
        return;
    }
    std::vector<std::string> names = plistNames(sourceRoot);
    std::set<std::string> channelSections(names.begin(), names.end());
    std::vector<std::string> kept;
    for (unsigned c : channels) {
        if (c < names.size() && std::find(kept.begin(), kept.end(), names[c]) == kept.end()) {
            kept.push_back(names[c]);
        }
    }
    auto root = GetRoot();
    root->Clear();
    for (const auto& [key, value] : sourceRoot->GetEntries()) {
        root->PutEntry(key, value.DeepCopy());
    }
    for (const auto& section : sourceRoot->GetChildren()) {
        const std::string& name = section->GetName();
        bool isChannel = channelSections.count(name) != 0;
        if (!isChannel || std::find(kept.begin(), kept.end(), name) != kept.end()) {
            root->AdoptChild(section->Clone());
        }
    }
    if (auto overview = root->GetChild(kOverviewSection)) {
        overview->SetValue(kPlistCountKey, static_cast<std::int32_t>(kept.size()));
        overview->SetValue(kPlistNamesKey, kept);
    }
    MarkModified();
}

int QuillonDataFile::Convert16BitTo32Bit(int value) {
    auto widened = static_cast<std::uint64_t>(static_cast<std::int64_t>(value) * 65536);
    return static_cast<int>(static_cast<std::uint32_t>(widened));
}

}  // namespace Orx::DataCore
