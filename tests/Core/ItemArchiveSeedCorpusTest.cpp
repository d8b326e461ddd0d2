// The seed files of the item archive's fuzz target: item records as Serialize
// stores them, checkpoint files as Save writes them, and records in the form
// that the reader takes, so that the fuzzer starts from both. With
// DS_ITEM_ARCHIVE_SEED_DIR set, the test also writes them there:
//   DS_ITEM_ARCHIVE_SEED_DIR=fuzz/item_archive/corpus build/<dir>/tests/test_Core --gtest_filter='ItemArchiveSeed*'

#include "Core/ItemRecordBytes.h"
#include "support/TestTempPath.h"

#include "Platform/Archive.h"
#include "Platform/FileSystem.h"
#include "QlDataAnalysisExt/Core/OLDataItemCheckpoint.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

using namespace ItemRecordBytes;

namespace {

struct Seed {
    std::string name;
    std::vector<std::uint8_t> bytes;
    bool loads;  // read back whole as a checkpoint
};

std::vector<std::uint8_t> Stored(OLDataItem item) {
    Orx::Core::MemoryArchiveStream stream;
    Orx::Core::Archive ar(stream, Orx::Core::Archive::store);
    item.Serialize(ar);
    return stream.Bytes();
}

std::vector<std::uint8_t> Saved(const OLDataItem& item) {
    const std::string path = TestTempPath("seed_checkpoint.chk");
    OLDataItemCheckpoint(item).Save(path);
    std::vector<std::uint8_t> bytes;
    Orx::Core::ReadWholeFile(path, bytes);
    return bytes;
}

OLDataItem FilledItem(std::vector<std::int32_t>& samples) {
    OLDataItemLoadRecord record;
    record.rows = 2;
    record.columns = 3;
    record.scanSize = UValue(5.0, "\xB5m");
    record.zRange = UValue(0.5, "V");
    record.softUnit = "V";
    record.sensitivity = 20.0;
    record.sensitivityUnit = "nm";
    record.dataName = "Height";
    record.note = std::string(300, 'n');
    record.color.custom = true;
    record.color.entries[7] = {1, 2, 3, 0};
    record.color.positions[0] = {0, 128, 255};
    record.rampSize = ScaleGroup{UValue(2.0, "V"), 25.0, "nm"};
    OLDataItem item;
    item.SetFromLoadRecord(record);
    item.SetItemFlag(true);
    item.SetData(samples.data(), static_cast<std::uint32_t>(samples.size()));
    return item;
}

std::vector<Seed> Seeds() {
    std::vector<std::int32_t> samples{1, -2, 3, -4, 5, 0x7FFFFFFF};
    const OLDataItem filled = FilledItem(samples);
    std::vector<Seed> seeds;
    seeds.push_back({"stored_default_item", Stored(OLDataItem()), false});
    seeds.push_back({"stored_filled_item", Stored(filled), false});
    seeds.push_back({"saved_checkpoint", Saved(filled), false});
    Emitter full(Form::read, 19, 2);
    full.integers["dataSize"] = 3;
    Record(full);
    seeds.push_back({"read_form_schema_19", Joined(Joined(ClassHeader(19), full.bytes), std::vector<std::uint8_t>(12, 0x81)), true});
    Emitter few(Form::read, 11, 3);
    few.integers["dataSize"] = 2;
    Record(few);
    seeds.push_back({"read_form_schema_11", Joined(Joined(ClassHeader(11), few.bytes), {1, 0, 0, 0, 2, 0, 0, 0}), true});
    Emitter old(Form::read, 1, 4);
    old.integers["dataSize"] = 0;
    Record(old);
    seeds.push_back({"read_form_without_header", old.bytes, true});
    return seeds;
}

}  // namespace

TEST(ItemArchiveSeedCorpusTest, SeedsAreSmallAndLoadAsIntended) {
    const char* directory = std::getenv("DS_ITEM_ARCHIVE_SEED_DIR");
    const std::string path = TestTempPath("seed_load.chk");
    for (const Seed& seed : Seeds()) {
        EXPECT_LE(seed.bytes.size(), 12288u) << seed.name;
        Orx::Core::WriteFileAtomically(path, seed.bytes.data(), seed.bytes.size());
        OLDataItemCheckpoint checkpoint{OLDataItem()};
        EXPECT_EQ(checkpoint.Load(path), seed.loads) << seed.name;
        if (directory && *directory) {
            const std::string target = std::string(directory) + "/" + seed.name;
            Orx::Core::WriteFileAtomically(target, seed.bytes.data(), seed.bytes.size());
        }
    }
}
