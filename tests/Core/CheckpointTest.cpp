// Checkpoints of a channel: the private copy of the samples, putting a channel
// back into its own buffer, and checkpoint files.

#include "Core/ForeignItem.h"
#include "Core/ItemRecordBytes.h"
#include "support/FileBytes.h"
#include "support/MemoryDataSource.h"
#include "support/TestTempPath.h"

#include "Platform/Archive.h"
#include "Platform/FileSystem.h"
#include "QlDataAnalysisExt/Core/OLDataItemCheckpoint.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace ItemRecordBytes;

namespace {

OLDataItem NamedItem(const std::string& note, std::int32_t* data, std::uint32_t size) {
    OLDataItemLoadRecord record;
    record.note = note;
    record.rows = 2;
    record.columns = size / 2;
    OLDataItem item;
    item.SetFromLoadRecord(record);
    item.SetData(data, size);
    return item;
}

std::vector<std::uint8_t> Words(const std::vector<std::int32_t>& words) {
    std::vector<std::uint8_t> bytes;
    for (std::int32_t w : words) {
        for (int i = 0; i < 4; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(w) >> (8 * i)));
        }
    }
    return bytes;
}

// A checkpoint file in the form that Load reads: class header, record of
// schema 19 with four-byte flags, then the samples.
std::vector<std::uint8_t> ReadableFile(int seed, const std::vector<std::int32_t>& samples,
                                       std::uint64_t announced) {
    Emitter e(Form::read, 19, seed);
    e.integers["dataSize"] = announced;
    Record(e);
    return Joined(Joined(ClassHeader(19), e.bytes), Words(samples));
}

void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
}

std::vector<std::uint8_t> ReadFile(const std::string& path) { return TestSupport::BytesOf(path); }

}  // namespace

TEST(CheckpointTest, KeepsAPrivateCopyOfTheSamples) {
    std::vector<std::int32_t> buffer{1, 2, 3, 4};
    OLDataItemCheckpoint checkpoint(NamedItem("kept", buffer.data(), 4));
    buffer.assign({9, 9, 9, 9});
    ASSERT_NE(checkpoint.Samples(), nullptr);
    EXPECT_EQ(std::vector<std::int32_t>(checkpoint.Samples(), checkpoint.Samples() + 4),
              (std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(OLDataItemCheckpoint(NamedItem("none", nullptr, 4)).Samples(), nullptr);
    EXPECT_EQ(OLDataItemCheckpoint(NamedItem("none", buffer.data(), 0)).Samples(), nullptr);
}

TEST(CheckpointTest, RestorePutsFieldsAndSamplesIntoTheTargetsOwnBuffer) {
    std::vector<std::int32_t> original{1, 2, 3, 4};
    OLDataItemCheckpoint checkpoint(NamedItem("before", original.data(), 4));

    std::vector<std::int32_t> target(6, 0);
    OLDataItem item = NamedItem("after", target.data(), 6);
    checkpoint.Restore(&item);
    EXPECT_EQ(item.GetNote(), "before");
    EXPECT_EQ(item.GetData(), target.data());
    EXPECT_EQ(item.GetDataSize(), 4u);
    EXPECT_EQ(target, (std::vector<std::int32_t>{1, 2, 3, 4, 0, 0}));
}

TEST(CheckpointTest, RestoreWithSamplesLeavesATargetWithTooSmallOrNoBufferAlone) {
    std::vector<std::int32_t> original{1, 2, 3, 4};
    OLDataItemCheckpoint checkpoint(NamedItem("before", original.data(), 4));

    std::vector<std::int32_t> small{7, 7, 7};
    OLDataItem item = NamedItem("after", small.data(), 3);
    checkpoint.Restore(&item);
    EXPECT_EQ(item.GetNote(), "after");
    EXPECT_EQ(item.GetDataSize(), 3u);
    EXPECT_EQ(small, (std::vector<std::int32_t>{7, 7, 7}));

    OLDataItem empty = NamedItem("after", nullptr, 0);
    checkpoint.Restore(&empty);
    EXPECT_EQ(empty.GetNote(), "after");
    EXPECT_EQ(empty.GetData(), nullptr);
}

TEST(CheckpointTest, RestoreWithoutSamplesPutsBackTheFieldsOnly) {
    OLDataItemCheckpoint checkpoint(NamedItem("fields", nullptr, 0));
    std::vector<std::int32_t> target{5, 6};
    OLDataItem item = NamedItem("mine", target.data(), 2);
    checkpoint.Restore(&item);
    EXPECT_EQ(item.GetNote(), "fields");
    EXPECT_EQ(item.GetData(), target.data());
    EXPECT_EQ(item.GetDataSize(), 2u);
    EXPECT_EQ(target, (std::vector<std::int32_t>{5, 6}));
}

TEST(CheckpointTest, RestoreIntoNothingOrAForeignItemDoesNothing) {
    std::vector<std::int32_t> original{1, 2};
    OLDataItemCheckpoint checkpoint(NamedItem("before", original.data(), 2));
    checkpoint.Restore(nullptr);
    ForeignItem foreign;
    checkpoint.Restore(&foreign);
    EXPECT_EQ(foreign.GetNote(), "");
    EXPECT_EQ(foreign.GetData(), nullptr);
}

TEST(CheckpointTest, SaveWritesTheSerializedItemThenTheSamples) {
    std::vector<std::int32_t> buffer{-1, 0, 0x12345678};
    const OLDataItem item = NamedItem("saved", buffer.data(), 3);
    OLDataItemCheckpoint checkpoint(item);
    const std::string path = TestTempPath("checkpoint_save.chk");
    Orx::Core::RemoveFile(path);
    checkpoint.Save(path);

    Orx::Core::MemoryArchiveStream stream;
    Orx::Core::Archive ar(stream, Orx::Core::Archive::store);
    OLDataItem(item).Serialize(ar);
    EXPECT_EQ(ReadFile(path), Joined(stream.Bytes(), Words(buffer)));

    checkpoint.Save("");  // nowhere to go: nothing happens
}

// Load reads what Save wrote through ReadRecord, so the one-byte flags of the
// written record are taken as four-byte ones: the file is not read back.
TEST(CheckpointTest, SavedFileIsNotLoadedBackAsTheFlagsDiffer) {
    std::vector<std::int32_t> buffer{10, 20, 30, 40};
    OLDataItemCheckpoint saved(NamedItem("saved", buffer.data(), 4));
    const std::string path = TestTempPath("checkpoint_round_trip.chk");
    saved.Save(path);
    OLDataItemCheckpoint loaded(NamedItem("other", nullptr, 0));
    EXPECT_FALSE(loaded.Load(path));
}

TEST(CheckpointTest, LoadsAFileOfTheReadFormAndRestoresFromIt) {
    const std::vector<std::int32_t> samples{3, 1, 4, 1, 5};
    const std::string path = TestTempPath("checkpoint_readable.chk");
    WriteFile(path, ReadableFile(2, samples, samples.size()));

    std::vector<std::int32_t> old{9};
    OLDataItemCheckpoint checkpoint(NamedItem("old", old.data(), 1));
    ASSERT_TRUE(checkpoint.Load(path));
    ASSERT_NE(checkpoint.Samples(), nullptr);
    EXPECT_EQ(checkpoint.Item().GetDataSize(), 5u);
    // The loaded record does not claim the buffer of the item it was made from.
    EXPECT_EQ(checkpoint.Item().GetData(), nullptr);

    OLDataItem reference;
    {
        Emitter e(Form::read, 19, 2);
        Record(e);
        Orx::Core::MemoryArchiveStream stream(e.bytes);
        Orx::Core::Archive ar(stream, Orx::Core::Archive::load);
        ar.SetObjectSchema(19);
        reference.ReadRecord(ar);
    }
    std::vector<std::int32_t> target(5, 0);
    OLDataItem item = NamedItem("target", target.data(), 5);
    checkpoint.Restore(&item);
    EXPECT_EQ(target, samples);
    EXPECT_EQ(item.GetNote(), reference.GetNote());
    EXPECT_EQ(item.GetZText(), reference.GetZText());
    EXPECT_EQ(item.GetData(), target.data());
}

TEST(CheckpointTest, LoadRefusesMoreSamplesThanTheFileHolds) {
    const std::string path = TestTempPath("checkpoint_short.chk");
    for (std::uint64_t announced : {6ull, 0x7FFFFFFFull, 0xFFFFFFFFull}) {
        WriteFile(path, ReadableFile(2, {1, 2, 3, 4, 5}, announced));
        OLDataItemCheckpoint checkpoint(NamedItem("old", nullptr, 0));
        EXPECT_FALSE(checkpoint.Load(path)) << announced;
        EXPECT_EQ(checkpoint.Samples(), nullptr) << announced;
    }
}

TEST(CheckpointTest, LoadRefusesNoPathNoFileAndEveryTruncation) {
    OLDataItemCheckpoint checkpoint(NamedItem("old", nullptr, 0));
    EXPECT_FALSE(checkpoint.Load(""));
    EXPECT_FALSE(checkpoint.Load(TestTempPath("no_such_checkpoint.chk")));

    const auto whole = ReadableFile(3, {1, 2, 3}, 3);
    const std::string path = TestTempPath("checkpoint_truncated.chk");
    for (std::size_t size = 0; size < whole.size(); size += 7) {
        WriteFile(path, std::vector<std::uint8_t>(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        EXPECT_FALSE(checkpoint.Load(path)) << size;
    }
    WriteFile(path, whole);
    EXPECT_TRUE(checkpoint.Load(path));
}

TEST(CheckpointTest, SourceMakesRestoresAndDeletesCheckpointsOfItsChannels) {
    MemoryDataSource source;
    OLDataItemLoadRecord record;
    record.note = "first";
    source.AddChannel(record, {1, 2, 3});
    EXPECT_EQ(source.CreateCheckpoint(1), nullptr);

    std::unique_ptr<IOLDataItemCheckpoint> checkpoint(source.CreateNamedCheckpoint(0, "mark"));
    ASSERT_NE(checkpoint, nullptr);
    EXPECT_EQ(static_cast<OLDataItemCheckpoint&>(*checkpoint).GetName(), "mark");

    source.SetNoteOfAll("changed");
    source.Samples(0).assign({7, 8, 9});
    source.RestoreCheckpoint(5, checkpoint.get());
    EXPECT_EQ(source.GetNote(0), "changed");
    source.RestoreCheckpoint(0, checkpoint.get());
    EXPECT_EQ(source.GetNote(0), "first");
    EXPECT_EQ(source.Samples(0), (std::vector<std::int32_t>{1, 2, 3}));

    source.DeleteCheckpoint(checkpoint.release());
    source.DeleteCheckpoint(nullptr);
}
