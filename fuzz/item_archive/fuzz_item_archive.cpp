// Any bytes at all, read as an item record through Serialize and as a
// checkpoint file through Load. A refusal is a normal answer; what was read
// before it must leave an item whose every answer stays inside its memory.

#include "Platform/Archive.h"
#include "QlDataAnalysisExt/Core/OLDataItemCheckpoint.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

// One checkpoint file per fuzzing process.
const std::string& CheckpointPath() {
    static const std::string path = [] {
        std::random_device random;
        const auto name = "fuzz_item_archive_" + std::to_string(random()) + ".chk";
        return (std::filesystem::temp_directory_path() / name).string();
    }();
    return path;
}

// Every question an item answers from its fields and its buffer.
void Exercise(OLDataItem& item) {
    std::int32_t lo = 0, hi = 0;
    item.GetRawRange(&lo, &hi);
    double min = 0.0, max = 0.0;
    for (bool soft : {false, true}) {
        item.GetFullRange(&min, &max, soft);
        item.GetPercentileRange(&min, &max, soft);
        item.RawToValue(lo, soft);
        item.ValueToRaw(min, soft);
        try {
            item.GetDisplayRange(&min, &max, soft);
            item.GetSecondDisplayRange(&min, &max, soft);
            item.GetZRange(soft);
        } catch (const std::exception&) {
            // a unit that will not convert is refused by the unit layer
        }
    }
    item.GetHoldDataPointer(item.GetNumberOfLines(), item.GetSamplesPerLine());
    OLDataItem copy(item);
    Orx::Core::MemoryArchiveStream out;
    Orx::Core::Archive ar(out, Orx::Core::Archive::store);
    copy.Serialize(ar);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::int32_t> samples{3, -1, 4, 1, -5, 9, 2, 6};

    OLDataItem item;
    item.SetData(samples.data(), 4);
    Orx::Core::MemoryArchiveStream stream(std::vector<std::uint8_t>(data, data + size));
    Orx::Core::Archive ar(stream, Orx::Core::Archive::load);
    try {
        item.Serialize(ar);
    } catch (const std::exception&) {
    }
    // A record that tells of another sample count gives the buffer up.
    if (item.GetData() != nullptr && item.GetDataSize() > 4) {
        __builtin_trap();
    }
    Exercise(item);

    // A plain write: the file is the harness's own, and needs no flush to disk.
    std::ofstream(CheckpointPath(), std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    OLDataItemCheckpoint checkpoint(item);
    if (checkpoint.Load(CheckpointPath())) {
        const std::uint32_t n = checkpoint.Item().GetDataSize();
        // The samples came from the file: never more than its bytes could hold.
        if (n > size / 4 || (n > 0) != (checkpoint.Samples() != nullptr)) {
            __builtin_trap();
        }
        OLDataItem target;
        target.SetData(samples.data(), static_cast<std::uint32_t>(samples.size()));
        checkpoint.Restore(&target);
        Exercise(target);
    }
    return 0;
}
