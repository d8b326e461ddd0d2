#pragma once

#include "Platform/DataCore/DataFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Orx::DataCore {

// A file of the Quillon family.
class QuillonDataFile : public DataFile {
public:
    static const std::string FILE_TYPE;
    static constexpr const char* kOverviewSection = "QuillonFileOverviewInfo";
    static constexpr const char* kPlistNamesKey = "DataPlistNames";
    static constexpr const char* kPlistCountKey = "NumberOfDataPlists";

    QuillonDataFile(std::string path, DataContainerPtr root);

    // The k-th buffer, of lengths[k] 32-bit samples, becomes the one-row
    // "RawData" of the k-th channel section whose name holds "force image
    // list". Offsets and lengths of the sections stay as they stand.
    void FlushForceCurve(const std::vector<std::int32_t*>& buffers, const std::vector<std::uint32_t>& lengths);
    // Replaces this file's tree by the source's sections that are no channel
    // sections, and the sections, with samples, of the listed channels
    // (indices into the source's "DataPlistNames"); the overview then lists
    // those channels alone.
    void CloneChannel(const std::vector<unsigned>& channels, const DataContainerPtr& sourceRoot);
    // A coefficient in 16-bit sample units in 32-bit sample units: times
    // 65536, computed in 64 bits and wrapped to 32.
    static int Convert16BitTo32Bit(int value);
};

}  // namespace Orx::DataCore
