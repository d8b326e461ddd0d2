// The item record in an archive: every schema read over an item that held
// another record, the one-byte flags of the written form, the class header
// probe, and damaged archives.

#include "Core/ItemRecordBytes.h"

#include "Platform/Archive.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Orx::Core::Archive;
using Orx::Core::ArchiveException;
using Orx::Core::MemoryArchiveStream;
using namespace ItemRecordBytes;

namespace {

constexpr int kOlder = 1;
constexpr int kNewer = 2;

void ReadInto(OLDataItem& item, const std::vector<std::uint8_t>& bytes, std::uint32_t schema) {
    MemoryArchiveStream stream(bytes);
    Archive ar(stream, Archive::load);
    ar.SetObjectSchema(schema);
    item.ReadRecord(ar);
}

void SerializeFrom(OLDataItem& item, const std::vector<std::uint8_t>& bytes) {
    MemoryArchiveStream stream(bytes);
    Archive ar(stream, Archive::load);
    item.Serialize(ar);
}

std::vector<std::uint8_t> Written(const OLDataItem& item) {
    MemoryArchiveStream stream;
    Archive ar(stream, Archive::store);
    item.WriteRecord(ar);
    return stream.Bytes();
}

// The cause of the archive error that a call raises; 0 when it raises none.
template <class Call>
int CauseOf(Call call) {
    try {
        call();
    } catch (const ArchiveException& e) {
        return e.GetCause();
    }
    return 0;
}

// An item that holds the record of the older seed.
OLDataItem OlderItem() {
    OLDataItem item;
    ReadInto(item, ReadForm(19, kOlder), 19);
    return item;
}

// Names the first field where two written records part.
std::string FirstDifference(const std::vector<std::uint8_t>& actual, std::uint32_t schema, int seed, int older) {
    Emitter e(Form::written, schema, seed, older);
    Record(e);
    const auto& expected = e.bytes;
    std::size_t at = 0;
    while (at < actual.size() && at < expected.size() && actual[at] == expected[at]) {
        ++at;
    }
    if (at == actual.size() && at == expected.size()) {
        return {};
    }
    std::string field = "?";
    std::size_t start = 0;
    for (const auto& [name, offset] : e.offsets) {
        if (offset <= at && offset >= start) {
            field = name;
            start = offset;
        }
    }
    return "bytes part at " + std::to_string(at) + ", in field " + field;
}

class ItemArchiveSchemaTest : public ::testing::TestWithParam<std::uint32_t> {};

}  // namespace

// A record of each schema sets the fields it holds and leaves the rest as the
// item had them; the item then writes the full record of schema 19.
TEST_P(ItemArchiveSchemaTest, ReadsTheFieldsOfItsSchemaAndKeepsTheRest) {
    const std::uint32_t schema = GetParam();
    OLDataItem item = OlderItem();
    ReadInto(item, ReadForm(schema, kNewer), schema);
    EXPECT_EQ(FirstDifference(Written(item), schema, kNewer, kOlder), "");
}

INSTANTIATE_TEST_SUITE_P(EverySchema, ItemArchiveSchemaTest, ::testing::Range<std::uint32_t>(0, 20));

TEST(ItemArchiveTest, SchemaOneCopiesTheScanSizeAndLeavesLaterFieldsAlone) {
    OLDataItem item = OlderItem();
    const OLDataItem before = item;
    ReadInto(item, ReadForm(1, kNewer), 1);
    EXPECT_EQ(item.GetScanSizeY().GetValue(), item.GetScanSize().GetValue());
    EXPECT_EQ(item.GetScanSizeY().GetUnits()->GetName(), item.GetScanSize().GetUnits()->GetName());
    EXPECT_NE(item.GetScanSize().GetValue(), before.GetScanSize().GetValue());
    EXPECT_EQ(item.FirstDisplay().contrast, before.FirstDisplay().contrast);
    EXPECT_EQ(item.FirstDisplay().colorTable, before.FirstDisplay().colorTable);
    EXPECT_EQ(item.SecondDisplay().hasColorTable, before.SecondDisplay().hasColorTable);
    EXPECT_EQ(item.GetPlistName(), before.GetPlistName());
    EXPECT_EQ(item.GetEcFunction(), before.GetEcFunction());
    EXPECT_EQ(item.GetZOffset(), before.GetZOffset());
    EXPECT_EQ(item.GetUnitSystem(), before.GetUnitSystem());
    EXPECT_EQ(item.GetCaptureStartLine(), before.GetCaptureStartLine());
    EXPECT_EQ(item.GetTipRadius(), before.GetTipRadius());
}

// WriteRecord writes the seven int-flags as one byte where ReadRecord takes
// four: widening exactly those seven makes the written record readable again.
TEST(ItemArchiveTest, WrittenRecordDiffersFromTheReadFormAtTheSevenIntFlags) {
    OLDataItem item;
    ReadInto(item, ReadForm(19, kNewer), 19);
    const auto written = Written(item);

    Emitter layout(Form::written, 19, kNewer, 0);
    Record(layout);
    ASSERT_EQ(layout.intFlagOffsets.size(), 7u);
    std::vector<std::uint8_t> widened;
    std::size_t from = 0;
    for (std::size_t at : layout.intFlagOffsets) {
        widened.insert(widened.end(), written.begin() + static_cast<std::ptrdiff_t>(from),
                       written.begin() + static_cast<std::ptrdiff_t>(at) + 1);
        widened.insert(widened.end(), {0, 0, 0});
        from = at + 1;
    }
    widened.insert(widened.end(), written.begin() + static_cast<std::ptrdiff_t>(from), written.end());
    EXPECT_EQ(widened, ReadForm(19, kNewer));

    OLDataItem again;
    ReadInto(again, widened, 19);
    EXPECT_EQ(Written(again), written);

    // Read as it stands, the record goes astray from the first flag on.
    OLDataItem astray;
    try {
        ReadInto(astray, written, 19);
    } catch (const std::exception&) {
    }
    EXPECT_NE(Written(astray), written);
}

TEST(ItemArchiveTest, IntFlagsAreTrueOnlyForOneAndBoolsForAnyNonZero) {
    for (const auto& [flagValue, boolValue, expectFlag] :
         std::vector<std::tuple<std::uint64_t, std::uint64_t, bool>>{{1, 2, true}, {2, 255, false}, {0x101, 7, false}}) {
        Emitter e(Form::read, 19, kNewer);
        e.integers["itemFlag"] = flagValue;
        e.integers["d1.hasExplicitRange"] = boolValue;
        Record(e);
        OLDataItem item;
        ReadInto(item, e.bytes, 19);
        EXPECT_EQ(item.GetItemFlag(), expectFlag) << flagValue;
        EXPECT_TRUE(item.FirstDisplay().hasExplicitRange) << boolValue;
    }
}

TEST(ItemArchiveTest, StringCountIsOnlyAskedWhetherAStringFollows) {
    Emitter e(Form::read, 19, kNewer);
    Record(e);
    auto bytes = e.bytes;
    // The note's count says 1, its framework string holds more.
    const std::size_t at = e.offsets.at("note");
    const std::string note(bytes.begin() + static_cast<std::ptrdiff_t>(at) + 5,
                           bytes.begin() + static_cast<std::ptrdiff_t>(at) + 5 + bytes[at + 4]);
    ASSERT_GT(note.size(), 1u);
    bytes[at] = 1;
    OLDataItem item;
    ReadInto(item, bytes, 19);
    EXPECT_EQ(item.GetNote(), note);
}

TEST(ItemArchiveTest, VectorCountsOfZeroOrBelowLeaveTheVectorAsItWas) {
    for (std::uint64_t count : {0ull, 0xFFFFFFFFull, 0x80000000ull}) {
        // A record whose first colour vector is announced by count and holds
        // no words: everything after it moves up by the words of the seeded vector.
        Emitter full(Form::read, 19, kNewer);
        Record(full);
        const std::size_t at = full.offsets.at("d1.colorVectors0");
        const std::size_t next = full.offsets.at("d1.colorVectors1");
        std::vector<std::uint8_t> bytes(full.bytes.begin(), full.bytes.begin() + static_cast<std::ptrdiff_t>(at));
        for (int i = 0; i < 4; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(count >> (8 * i)));
        }
        bytes.insert(bytes.end(), full.bytes.begin() + static_cast<std::ptrdiff_t>(next), full.bytes.end());

        OLDataItem item = OlderItem();
        const auto kept = item.FirstDisplay().colorVectors[0];
        ReadInto(item, bytes, 19);
        EXPECT_EQ(item.FirstDisplay().colorVectors[0], kept) << count;
        // and the rest of the record is read in step
        OLDataItem reference;
        ReadInto(reference, full.bytes, 19);
        EXPECT_EQ(item.GetCaptureStartLine(), reference.GetCaptureStartLine()) << count;
    }
}

// ---- the class header probe -------------------------------------------------

TEST(ItemArchiveTest, SerializeStoresTheClassHeaderAndTheRecord) {
    OLDataItem item;
    ReadInto(item, ReadForm(19, kNewer), 19);
    MemoryArchiveStream stream;
    Archive ar(stream, Archive::store);
    item.Serialize(ar);
    EXPECT_EQ(stream.Bytes(), Joined(ClassHeader(19), Written(item)));
}

TEST(ItemArchiveTest, ProbeFindsTheClassNameAtByteSixAndTakesTheHeadersSchema) {
    for (std::uint32_t schema : {5u, 11u, 19u}) {
        OLDataItem item = OlderItem();
        SerializeFrom(item, Joined(ClassHeader(static_cast<std::uint16_t>(schema)), ReadForm(schema, kNewer)));
        EXPECT_EQ(FirstDifference(Written(item), schema, kNewer, kOlder), "") << schema;
    }
}

TEST(ItemArchiveTest, WithoutTheClassNameTheRecordIsReadAsSchemaOne) {
    OLDataItem item = OlderItem();
    SerializeFrom(item, ReadForm(1, kNewer));
    EXPECT_EQ(FirstDifference(Written(item), 1, kNewer, kOlder), "");

    // A header that names another class is no header: its bytes are the
    // record's first fields, and the record then runs out.
    OLDataItem other = OlderItem();
    auto bytes = Joined(ClassHeader(19, "OLDataIten"), ReadForm(19, kNewer));
    EXPECT_THROW(SerializeFrom(other, bytes), std::exception);
    EXPECT_EQ(other.GetNumberOfLines(), 0x8013FFFFu);
    EXPECT_EQ(other.GetSamplesPerLine(), 0x4C4F000Au);  // the name's length, then "OL"
}

TEST(ItemArchiveTest, ProbeOfAFileShorterThanTheNameIsNoHeader) {
    for (std::size_t size : {0u, 3u, 15u}) {
        const auto bytes = Joined(ClassHeader(19), ReadForm(19, kNewer));
        OLDataItem item;
        const std::vector<std::uint8_t> head(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(CauseOf([&] { SerializeFrom(item, head); }), ArchiveException::endOfFile) << size;
    }
}

// ---- archive errors ---------------------------------------------------------

TEST(ItemArchiveTest, WrongDirectionsRaiseKindsFourAndTwo) {
    OLDataItem item;
    MemoryArchiveStream stream;
    Archive storing(stream, Archive::store);
    EXPECT_EQ(CauseOf([&] { item.ReadRecord(storing); }), 4);
    MemoryArchiveStream input(ReadForm(19, kNewer));
    Archive loading(input, Archive::load);
    EXPECT_EQ(CauseOf([&] { item.WriteRecord(loading); }), 2);
}

TEST(ItemArchiveTest, ShortStringRaisesKindThreeAndKeepsTheFieldsReadSoFar) {
    Emitter e(Form::read, 19, kNewer);
    Record(e);
    const std::size_t at = e.offsets.at("note");
    // The note announces 200 bytes and the file ends after 10 of them.
    std::vector<std::uint8_t> bytes(e.bytes.begin(), e.bytes.begin() + static_cast<std::ptrdiff_t>(at));
    bytes.insert(bytes.end(), {1, 0, 0, 0, 200});
    bytes.insert(bytes.end(), 10, 'n');
    OLDataItem item = OlderItem();
    const std::string olderNote = item.GetNote();
    EXPECT_EQ(CauseOf([&] { ReadInto(item, bytes, 19); }), 3);
    OLDataItem reference;
    ReadInto(reference, e.bytes, 19);
    EXPECT_EQ(item.GetNumberOfLines(), reference.GetNumberOfLines());
    EXPECT_EQ(item.GetDataName(), reference.GetDataName());
    EXPECT_EQ(item.GetNote(), olderNote);
}

TEST(ItemArchiveTest, WideStringLengthBeyondAWideBufferEndsWithTheOverflowCode) {
    Emitter e(Form::read, 19, kNewer);
    Record(e);
    std::vector<std::uint8_t> bytes(e.bytes.begin(), e.bytes.begin() + static_cast<std::ptrdiff_t>(e.offsets.at("note")));
    // count, wide announcement (255, 0xFFFE), then a 32-bit length of 2^31 characters
    bytes.insert(bytes.end(), {1, 0, 0, 0, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80});
    OLDataItem item;
    EXPECT_THROW(ReadInto(item, bytes, 19), Orx::Core::ArchiveOverflow);
    EXPECT_EQ(Orx::Core::ArchiveOverflow::kCode, 0x80070216u);
}

TEST(ItemArchiveTest, WideStringIsNarrowedToBytes) {
    Emitter e(Form::read, 19, kNewer);
    Record(e);
    const std::size_t at = e.offsets.at("note");
    const std::size_t next = e.offsets.at("validStartX");
    std::vector<std::uint8_t> bytes(e.bytes.begin(), e.bytes.begin() + static_cast<std::ptrdiff_t>(at));
    bytes.insert(bytes.end(), {1, 0, 0, 0, 0xFF, 0xFE, 0xFF, 3, 'a', 0, 0xB5, 0, 'z', 0});
    bytes.insert(bytes.end(), e.bytes.begin() + static_cast<std::ptrdiff_t>(next), e.bytes.end());
    OLDataItem item;
    ReadInto(item, bytes, 19);
    EXPECT_EQ(item.GetNote(), "a\xB5z");
}

TEST(ItemArchiveTest, EveryTruncationIsRefusedWithEndOfFile) {
    const auto whole = Joined(ClassHeader(19), ReadForm(19, kNewer));
    const std::size_t header = ClassHeader(19).size();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        OLDataItem item;
        const std::vector<std::uint8_t> bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        if (size < header) {
            // no header to be found: the bytes are a record of schema 1
            EXPECT_THROW(SerializeFrom(item, bytes), std::exception) << size;
            continue;
        }
        EXPECT_EQ(CauseOf([&] { SerializeFrom(item, bytes); }), ArchiveException::endOfFile) << size;
    }
}
