#include "TestFiles.h"

#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/DataFile.h"
#include "tools/samplekit/ContainerBuilder.h"

#include <gtest/gtest.h>

using namespace Orx::DataCore;
using DataCoreTest::AsBytes;
using DataCoreTest::AsText;
using SampleKit::ContainerBuilder;

namespace {

// Small, but with every kind of block: 16- and 32-bit channels, a float
// matrix and a vector of them, the last block ending the file.
std::vector<std::uint8_t> SmallFile() {
    FloatMatrixVector curves(2, FloatMatrix(2, 1, 1.5f));
    return ContainerBuilder::Quillon()
        .Section("QuillonFileOverviewInfo")
        .Texts("DataPlistNames", {"Dulce image list", "Dulce image list#2"})
        .Section("Dulce image list")
        .Samples16(1024, 2, 2, {1, 2, 3, 4})
        .Section("Dulce image list#2")
        .Samples32(1032, 1, 2, {5, 6})
        .Section("[Data]")
        .FloatMatrix("Image", 1, 2, {0.5f, 0.25f})
        .FloatMatrices("Curves", curves)
        .Bytes();
}

std::string Replace(std::string text, const std::string& from, const std::string& to) {
    auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at != std::string::npos) {
        text.replace(at, from.size(), to);
    }
    return text;
}

void ExpectRefused(const std::string& image, const std::string& why) {
    EXPECT_THROW(DataFile::OpenMemory(image.data(), image.size()), ContainerFormatError) << why;
}

std::string Header(const std::string& body) {
    return "OrxDataContainer 1\ntype \"Quillon Data File\"\n" + body + "end-of-header\n";
}

TEST(ContainerDamage, EveryTruncationIsRefusedWithoutACrash) {
    auto bytes = SmallFile();
    ASSERT_NO_THROW(DataFile::OpenMemory(bytes.data(), bytes.size()));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        std::vector<std::uint8_t> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_THROW(DataFile::OpenMemory(cut.data(), cut.size()), ContainerFormatError) << "cut at " << size;
    }
}

TEST(ContainerDamage, TruncatedFileOnDiskIsRefused) {
    auto bytes = SmallFile();
    std::string path = DataCoreTest::TempPath("truncated.qdf");
    for (std::size_t size : {std::size_t{0}, std::size_t{40}, bytes.size() / 2, bytes.size() - 1}) {
        DataCoreTest::WriteBytes(path, std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + size));
        EXPECT_THROW(DataFile::Open(path, 1, 0, "", nullptr), ContainerFormatError) << "cut at " << size;
    }
    EXPECT_EQ(DataFile::Open(DataCoreTest::TempPath("never_written.qdf"), 1, 0, "", nullptr), nullptr);
}

// One damage each: a text of the small file's header and what replaces it.
struct Edit {
    const char* damage;
    const char* from;
    std::string to;
};

TEST(ContainerDamage, BlocksThatLieOutsideTheFileOrEachOther) {
    const Edit edits[] = {
        {"OverlappingChannelBlocks", "\"Data offset\" AsciiString \"1032\"", "\"Data offset\" AsciiString \"1030\""},
        {"ChannelBlockInsideTheHeader", "\"Data offset\" AsciiString \"1024\"", "\"Data offset\" AsciiString \"10\""},
        {"ChannelOffsetAtTheEndOfTheNumbers", "\"Data offset\" AsciiString \"1024\"",
         "\"Data offset\" AsciiString \"18446744073709551615\""},
        {"DataLengthShorterThanTheShape", "\"Data length\" int 8", "\"Data length\" int 6"},
        {"NegativeDataLength", "\"Data length\" int 8", "\"Data length\" int -8"},
        {"DataLengthBeyondTheFile", "\"Data length\" int 8", "\"Data length\" int 2000000000"},
        {"ThreeBytesPerSample", "\"Bytes/pixel\" int 2", "\"Bytes/pixel\" int 3"},
        {"ChannelBlockWithAnOffsetOfItsOwn", "Matrix long 2x2 in-section", "Matrix long 2x2 at 1024"},
        {"ShapeBeyondTheDataLength", "Matrix long 2x2 in-section", "Matrix long 65536x65536 in-section"},
        {"MatrixShapeLargerThanTheFile", "Matrix float 1x2 at", "Matrix float 4294967295x4294967295 at"},
        {"BlockShapeDiffersFromTheHeader", "Matrix float 1x2 at", "Matrix float 2x1 at"},
        {"MatrixCountLargerThanTheFile", "vector<float> 2 of", "vector<float> 4294967295 of"},
        {"EmptyMatricesOverAFullBlock", "vector<float> 2 of 2x1", "vector<float> 2 of 0x0"},
        {"FloatMatrixInSection", "Matrix float 1x2 at", "Matrix float 1x2 in-section"},
        {"UnknownSyntaxVersion", "OrxDataContainer 1", "OrxDataContainer 2"},
        {"WrongMark", "OrxDataContainer", "XrxDataContainer"},
        {"NulByteInHeader", "key \"Bytes/pixel\"", std::string("key \"Bytes\0pixel\"", 17)},
    };
    std::string image = AsText(SmallFile());
    for (const auto& edit : edits) {
        ExpectRefused(Replace(image, edit.from, edit.to), edit.damage);
    }
}

TEST(ContainerDamage, BrokenHeaderSyntax) {
    // Damaged lines inside a section "A" of an otherwise sound header.
    const std::pair<const char*, std::string> lines[] = {
        {"DuplicateKey", "key \"k\" int 1\nkey \"k\" int 2"},
        {"IntegerWithLetters", "key \"k\" int 12x"},
        {"IntegerOutOfRange", "key \"k\" int 2147483648"},
        {"FloatOutOfRange", "key \"k\" float 1e60"},
        {"TextWithoutQuotes", "key \"k\" AsciiString bare"},
        {"TextFollowedByMore", "key \"k\" AsciiString \"a\" \"b\""},
        {"ListShorterThanItsCount", "key \"k\" vector<string> 3 \"a\""},
        {"ListCountBeyondTheLine", "key \"k\" vector<string> 99999999999999 \"a\""},
        {"UnitWithoutQuotes", "key \"k\" TUnitized 3 nm"},
        {"MatrixOfUnknownElements", "key \"k\" Matrix double 1x1 at 0"},
        {"ShapeWithoutX", "key \"k\" Matrix float 1by1 at 0"},
        {"UnknownPlacement", "key \"k\" Matrix float 1x1 somewhere"},
        {"ChannelBlockWithoutDataOffset", "key \"RawData\" Matrix long 1x1 in-section"},
        {"KeyWithoutQuotes", "key k int 1"},
        {"KeyWithoutType", "key \"k\""},
    };
    for (const auto& [damage, line] : lines) {
        ExpectRefused(Header("section \"A\"\n" + line + "\nend\n"), damage);
    }

    std::string deep;
    for (int i = 0; i < 100; ++i) {
        deep = "section \"s\"\n" + deep + "end\n";
    }
    const std::pair<const char*, std::string> headers[] = {
        {"HeaderWithoutTerminator",
         "OrxDataContainer 1\ntype \"Quillon Data File\"\nsection \"A\"\nend\nend-of-heaver\n"},
        {"TypeLineMissing", "OrxDataContainer 1\nsection \"A\"\nend\nend-of-header\n"},
        {"EmptyFile", ""},
        {"DuplicateSection", Header("section \"A\"\nend\nsection \"A\"\nend\n")},
        {"UnclosedSection", Header("section \"A\"\n")},
        {"EndWithoutSection", Header("end\n")},
        {"UnclosedQuote", Header("section \"A\nend\n")},
        {"UnknownEscape", Header("section \"A\\q\"\nend\n")},
        {"ShortHexEscape", Header("section \"A\\x4\"\nend\n")},
        {"RawControlByteInQuotes", Header("section \"A\x01\"\nend\n")},
        {"TextGluedToAQuote", Header("section \"A\"x\nend\n")},
        {"UnknownKeyword", Header("sector \"A\"\nend\n")},
        {"SecondTypeLine", Header("type \"Another\"\n")},
        {"SectionsNestedTooDeep", Header(deep)},
    };
    for (const auto& [damage, header] : headers) {
        ExpectRefused(header, damage);
    }
}

TEST(ContainerDamage, WriterRefusesWhatTheSyntaxCannotCarry) {
    auto tooEarly = ContainerBuilder::Quillon().Section("Dulce image list").Samples16(64, 1, 1, {1});
    EXPECT_THROW(tooEarly.Bytes(), ContainerFormatError) << "the header does not fit before the samples";

    auto overlap = ContainerBuilder::Quillon()
                       .Section("Dulce image list")
                       .Samples16(4096, 2, 2, {1, 2, 3, 4})
                       .Section("Dulce image list#2")
                       .Samples16(4100, 2, 2, {1, 2, 3, 4});
    EXPECT_THROW(overlap.Bytes(), ContainerFormatError);

    auto shortLength = ContainerBuilder::Quillon().Section("Dulce image list").Samples32(4096, 2, 2, {1, 2, 3, 4});
    shortLength.Root()->GetChild("Dulce image list")->SetValue("Data length", 8);
    EXPECT_THROW(shortLength.Bytes(), ContainerFormatError);

    FloatMatrixVector ragged{FloatMatrix(2, 1), FloatMatrix(3, 1)};
    auto mixed = ContainerBuilder::Harlen().Section("[Data]").FloatMatrices("RawData", ragged);
    EXPECT_THROW(mixed.Bytes(), ContainerFormatError);

    std::string path = DataCoreTest::TempPath("refused_write.qdf");
    Orx::Core::RemoveFile(path);
    auto file = DataFile::Make(path, "Quillon Data File", tooEarly.Root());
    file->SetContentModified(true);
    EXPECT_THROW(file->Close(), ContainerFormatError);
    EXPECT_FALSE(Orx::Core::PathExists(path)) << "a refused write leaves no file behind";
}

TEST(ContainerDamage, OddButValidShapesPass) {
    std::string image = Header(
        "section \"A\"\n"
        "key \"Data offset\" long 4096\n"
        "key \"Data length\" AsciiString \" 0 \"\n"
        "key \"RawData\" Matrix long 0x0 in-section\n"
        "key \"Empty\" Matrix vector<float> 0 of 0x0 at 4096\n"
        "end\n");
    image.resize(4100, '\0');
    auto file = DataFile::OpenMemory(image.data(), image.size());
    auto section = file->GetContainer({"A"});
    ASSERT_TRUE(section->GetRawData("RawData"));
    EXPECT_EQ(section->GetRawData("RawData")->size1(), 0u);
    ASSERT_TRUE(section->GetFloatMatrices("Empty"));
    EXPECT_TRUE(section->GetFloatMatrices("Empty")->empty());
}

}  // namespace
