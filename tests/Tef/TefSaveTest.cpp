// SaveAs of ".tef" sources: the old file read again and patched, or with its
// sections rebuilt when its pixels had 4 bytes, and written whole.

#include "Tef/TefSaveTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <filesystem>

using SampleKit::TefBuilder;
using TefTest::DifferingOffsets;
using TefTest::FileBytes;
using TefTest::TefSaveTest;

namespace {

std::vector<std::int32_t> Pixels(const TefOLDataSource& source, unsigned channel)
{
    return source.GetChannelPixels().at(channel);
}

double DoubleAt(const std::vector<std::uint8_t>& bytes, std::size_t offset)
{
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < 8; ++i)
        bits |= std::uint64_t{bytes.at(offset + i)} << (8 * i);
    return std::bit_cast<double>(bits);
}

bool InRange(std::size_t offset, std::size_t first, std::size_t end) { return offset >= first && offset < end; }

bool NothingIsLeftBeside(const std::string& path)
{
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(path).parent_path())) {
        if (entry.path().filename().string().rfind(".dstmp-", 0) == 0)
            return false;
    }
    return true;
}

}  // namespace

TEST_F(TefSaveTest, UnchangedTwoByteFileIsWrittenByteForByte)
{
    TefBuilder builder(3, 4, 3);
    builder.preview = {0xDE, 0xAD, 0xBE, 0xEF};
    builder.trailer = {9, 8, 7};
    builder.channels[1].reserved = {1, 2, 3, 4};
    builder.InsertBefore(116, {60, TefBuilder::Text("unknown to the reader"), std::nullopt});
    const auto source = Load(builder);
    ASSERT_TRUE(source->IsOpen());

    const std::string copy = Fresh("copy.tef");
    EXPECT_TRUE(source->SaveAs(copy, false));
    EXPECT_EQ(FileBytes(copy), builder.Bytes());
    // saving over the file itself gives the same bytes again
    EXPECT_TRUE(source->Save(false));
    EXPECT_EQ(FileBytes(path), builder.Bytes());
    EXPECT_TRUE(messages.empty());
}

TEST_F(TefSaveTest, NewNoteAndZScaleChangeOnlyTheirOwnBytes)
{
    const TefBuilder builder(2, 4, 3);
    const auto source = Load(builder);
    source->SetNoteOfAll("Changed");
    source->SetChannelParameters(1, 2.0f);

    const std::string copy = Fresh("changed.tef");
    ASSERT_TRUE(source->SaveAs(copy, false));
    const std::vector<std::uint8_t> before = builder.Bytes();
    const std::vector<std::uint8_t> after = FileBytes(copy);
    ASSERT_EQ(after.size(), before.size());
    // the note area is the 11 bytes of "Sample note"; channel 1's Z range
    // follows channel 0's and the record head of its own
    const std::size_t zRange1 = source->GetOffsets().zRangeOffset + 8 + 4;
    const std::vector<std::size_t> changed = DifferingOffsets(before, after);
    EXPECT_FALSE(changed.empty());
    for (std::size_t offset : changed)
        EXPECT_TRUE(InRange(offset, 0, 10) || InRange(offset, zRange1, zRange1 + 8)) << offset;
    EXPECT_EQ(DoubleAt(after, zRange1), 125.5);

    const auto saved = Reload(copy);
    ASSERT_TRUE(saved->IsOpen());
    EXPECT_EQ(saved->GetNote(0), "Changed");
    EXPECT_EQ(saved->GetZScaleInSwUnits(0), 250.0f);
    EXPECT_EQ(saved->GetZScaleInSwUnits(1), 125.5f);
    EXPECT_EQ(Pixels(*saved, 1), Pixels(*source, 1));
}

TEST_F(TefSaveTest, NoteAreaKeepsItsSize)
{
    struct Case {
        const char* note;
        const char* read;
    };
    // "Sample note" leaves 10 bytes for a note; the 11th keeps its "e".
    const Case cases[] = {
        {"A much longer note", "A much lone"},
        {"", ""},
        {"Tiny", "Tiny"},
        {"ab\x1A" "cd", "ab"},  // a note's own end mark would end the area early
    };
    const TefBuilder builder(1, 2, 2);
    for (const Case& c : cases) {
        const auto source = Load(builder);
        source->SetNoteOfAll(c.note);
        const std::string copy = Fresh("note.tef");
        ASSERT_TRUE(source->SaveAs(copy, false)) << c.note;
        const std::vector<std::uint8_t> after = FileBytes(copy);
        EXPECT_EQ(after.at(10), 'e') << c.note;
        EXPECT_EQ(after.at(11), TefFormat::kNoteEnd) << c.note;
        const auto saved = Reload(copy);
        ASSERT_TRUE(saved->IsOpen()) << c.note;
        EXPECT_EQ(saved->GetNote(0), c.read);
    }

    // a file without room for a note keeps its bytes
    for (const char* note : {"", "x"}) {
        TefBuilder small(1, 2, 2);
        small.note = note;
        const auto source = Load(small);
        source->SetNoteOfAll("No room");
        const std::string copy = Fresh("no-room.tef");
        ASSERT_TRUE(source->SaveAs(copy, false));
        EXPECT_EQ(FileBytes(copy), small.Bytes()) << note;
    }
}

TEST_F(TefSaveTest, OffsetOfARecordMissingFromTheFileIsPatchedIntoTheNote)
{
    TefBuilder builder(2, 3, 2);
    builder.Remove(11);
    const auto source = Load(builder);
    ASSERT_EQ(source->GetOffsets().bitsInUseOffset, 0u);

    const std::string copy = Fresh("patched-note.tef");
    ASSERT_TRUE(source->SaveAs(copy, false));
    const std::vector<std::uint8_t> after = FileBytes(copy);
    EXPECT_EQ(DifferingOffsets(builder.Bytes(), after), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(after[0], 16);
    EXPECT_EQ(after[1], 0);
    const auto saved = Reload(copy);
    EXPECT_TRUE(saved->IsOpen());
    EXPECT_EQ(saved->GetNote(0), "\x10");
    EXPECT_TRUE(messages.empty());
}

TEST_F(TefSaveTest, PixelsGoBackAsSixteenBitWordsWithTheBitsInUseSaid)
{
    // Without the per-channel group only the shared record says the bits.
    TefBuilder builder(2, 3, 2);
    builder.Set(11, TefBuilder::Word(12));
    for (std::uint16_t id = 146; id < 148; ++id)
        builder.Remove(id);
    for (auto& channel : builder.channels)
        std::transform(channel.pixels.begin(), channel.pixels.end(), channel.pixels.begin(),
                       [](std::uint32_t p) { return p & 0x0FFF; });
    const auto source = Load(builder);
    const std::string copy = Fresh("bits.tef");
    ASSERT_TRUE(source->SaveAs(copy, false));

    const std::vector<std::uint8_t> after = FileBytes(copy);
    EXPECT_EQ(after.at(source->GetOffsets().bitsInUseOffset), 16);
    const auto saved = Reload(copy);
    ASSERT_TRUE(saved->IsOpen());
    for (unsigned c = 0; c < 2; ++c)
        EXPECT_EQ(Pixels(*saved, c), Pixels(*source, c)) << c;
}

TEST_F(TefSaveTest, FourByteFileShrinksByTwoBytesAPixelAndKeepsItsValues)
{
    TefBuilder builder(2, 4, 3, 4);
    builder.Set(11, TefBuilder::Word(12));
    builder.Set(146, TefBuilder::Word(12));
    builder.Set(147, TefBuilder::Word(12));
    builder.preview = {5, 6};
    builder.trailer = {1, 2, 3, 4};
    builder.channels[0].reserved = {0xAA, 0xBB, 0xCC, 0xDD};
    const auto source = Load(builder);
    ASSERT_TRUE(source->IsOpen());
    ASSERT_FALSE(source->Is16Bit());

    const std::string copy = Fresh("four-byte.tef");
    ASSERT_TRUE(source->SaveAs(copy, false));
    const std::vector<std::uint8_t> before = builder.Bytes();
    const std::vector<std::uint8_t> after = FileBytes(copy);
    ASSERT_EQ(after.size(), before.size() - 2 * 2 * 4 * 3);

    const auto saved = Reload(copy);
    ASSERT_TRUE(saved->IsOpen());
    EXPECT_TRUE(saved->Is16Bit());
    for (unsigned c = 0; c < 2; ++c) {
        EXPECT_EQ(Pixels(*saved, c), Pixels(*source, c)) << c;
        EXPECT_EQ(saved->GetDataTypeDesc(c), source->GetDataTypeDesc(c));
        EXPECT_EQ(saved->GetLineDirection(c), source->GetLineDirection(c));
    }
    // the parameters and the preview stand as they were, but for the bits
    const TefOffsets& offsets = source->GetOffsets();
    const std::size_t first = offsets.firstChannelOffset;
    for (std::size_t offset : DifferingOffsets(before, after)) {
        if (offset < first) {
            EXPECT_TRUE(offset == offsets.bitsInUseOffset || offset == offsets.channelBitsOffset ||
                        offset == offsets.channelBitsOffset + 6)
                << offset;
        }
    }
    // the header block and image head are kept, the image length counts
    // words, and the reserved bytes are zero
    const auto at = [](const std::vector<std::uint8_t>& bytes, std::size_t offset) {
        return bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    };
    const std::size_t imageTag = first + 6 + 16;
    const std::size_t head = imageTag + 6;
    EXPECT_TRUE(std::equal(at(after, first), at(after, imageTag + 2), at(before, first)));
    EXPECT_EQ(std::vector<std::uint8_t>(at(after, imageTag + 2), at(after, head)),
              (std::vector<std::uint8_t>{26 + 24, 0, 0, 0}));
    EXPECT_TRUE(std::equal(at(after, head), at(after, head + 16), at(before, head)));
    EXPECT_EQ(std::vector<std::uint8_t>(at(after, head + 16), at(after, head + 22)),
              (std::vector<std::uint8_t>{4, 0, 3, 0, 2, 0}));
    EXPECT_EQ(std::vector<std::uint8_t>(at(after, head + 22), at(after, head + 26)), std::vector<std::uint8_t>(4, 0));
    // what lay behind the last channel is zeros now
    EXPECT_EQ(std::vector<std::uint8_t>(after.end() - 4, after.end()), std::vector<std::uint8_t>(4, 0));
}

TEST_F(TefSaveTest, SaveAsLeavesTheSourceOnItsOwnFile)
{
    const TefBuilder builder(1, 2, 2);
    const auto source = Load(builder, "own.tef");
    const std::string own = path;
    const std::string other = Fresh("other.tef");
    ASSERT_TRUE(source->SaveAs(other, false));
    EXPECT_EQ(source->GetFilePath(), own);
    EXPECT_EQ(source->GetFileTitle(), "own.tef");

    source->SetNoteOfAll("Later");
    ASSERT_TRUE(source->Save(false));
    EXPECT_EQ(Reload(own)->GetNote(0), "Later");
    EXPECT_EQ(FileBytes(other), builder.Bytes());
}

TEST_F(TefSaveTest, SaveNeedsTheOldFileAtItsPath)
{
    const auto source = Load(TefBuilder(1, 2, 2));
    std::filesystem::remove(path);
    const std::string copy = Fresh("never.tef");
    EXPECT_FALSE(source->SaveAs(copy, false));
    EXPECT_FALSE(std::filesystem::exists(copy));
    EXPECT_TRUE(messages.empty());
    std::vector<std::uint8_t> contents;
    EXPECT_EQ(source->ReadOriginal(contents), 0u);
}

TEST_F(TefSaveTest, FailedWriteLeavesTargetAndSourceAsTheyWere)
{
    const TefBuilder builder(2, 3, 2);
    const auto source = Load(builder);
    const std::string own = path;
    source->SetNoteOfAll("Not written");

    // a folder that does not exist: nothing can be created there
    const std::string nowhere = Fresh("missing-folder") + "/file.tef";
    EXPECT_FALSE(source->SaveAs(nowhere, false));
    EXPECT_FALSE(source->RewriteChannels(nowhere));
    EXPECT_FALSE(std::filesystem::exists(nowhere));
    EXPECT_TRUE(messages.empty());

    // a folder where the file would go: the write fails at the end, is told,
    // and the folder stays
    const std::string folder = Fresh("folder.tef");
    std::filesystem::create_directories(folder + "/inside");
    EXPECT_FALSE(source->SaveAs(folder, false));
    EXPECT_FALSE(source->RewriteChannels(folder));
    EXPECT_TRUE(std::filesystem::is_directory(folder + "/inside"));
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_NE(messages[0].find(folder), std::string::npos) << messages[0];
    EXPECT_TRUE(NothingIsLeftBeside(folder));

    EXPECT_EQ(source->GetFilePath(), own);
    EXPECT_EQ(source->GetNote(0), "Not written");
    EXPECT_EQ(FileBytes(own), builder.Bytes());
}
