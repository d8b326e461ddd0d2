#include "Tef/TefTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

using SampleKit::TefBuilder;
using TefTest::RefusalOf;

namespace {

using TefTest::Damage;

std::int32_t ParameterBytes(const TefBuilder& builder)
{
    std::size_t bytes = 0;
    for (const TefBuilder::Record& record : builder.records)
        bytes += 4 + record.value.size();
    return static_cast<std::int32_t>(bytes);
}

const std::vector<Damage>& Damages()
{
    static const std::vector<Damage> damages{
        {"documentTagWrong", [](TefBuilder& b) { b.documentTag = 2; },
         "Expecting document data, file misaligned"},
        {"noteEndMissing", [](TefBuilder& b) { b.noteEnd = false; }, "Expecting document data, file misaligned"},
        {"parameterCountOneShort",
         [](TefBuilder& b) { b.parameterCount = static_cast<std::uint16_t>(b.records.size() - 1); },
         "Expecting end of parameter data, file misaligned"},
        {"parameterLengthOneLong",
         [](TefBuilder& b) { b.parameterLength = ParameterBytes(b) + 1; },
         "Expecting end of parameter data, file misaligned"},
        {"recordCrossesParameterEnd", [](TefBuilder& b) { b.records.push_back({20, TefBuilder::Text("abc"), 40}); },
         "Expecting end of parameter data, file misaligned"},
        {"previewTagWrong", [](TefBuilder& b) { b.previewTag = 3; }, "Expecting preview data, file misaligned"},
        {"channelTagWrong", [](TefBuilder& b) { b.channels[1].tag = 2; }, "Expecting channel data, file misaligned"},
        {"previewLengthLong", [](TefBuilder& b) { b.previewLength = 2; }, "Expecting channel data, file misaligned"},
        {"processedData", [](TefBuilder& b) { b.channels[0].processingSteps = 2; },
         "Only files with one processing step (raw data) are supported."},
        {"imageTagWrong", [](TefBuilder& b) { b.channels[1].imageTag = 43; }, "Expecting image data, file misaligned"},
        {"headerLengthShort", [](TefBuilder& b) { b.channels[0].headerLength = 12; },
         "Expecting image data, file misaligned"},
        {"widthMismatched", [](TefBuilder& b) { b.Set(7, TefBuilder::Word(2)); },
         "There are two values in the file for Image Pixel Width."},
        {"widthRecordMissing", [](TefBuilder& b) { b.Remove(7); },
         "There are two values in the file for Image Pixel Width."},
        {"heightMismatched", [](TefBuilder& b) { b.channels[1].height = 1; },
         "There are two values in the file for Image Pixel Height."},
        {"threeBytePixels", [](TefBuilder& b) { b.channels[1].bytesPerPixel = 3; },
         "Only 16 Bit and 32 Bit pixel data are supported."},
        {"eightBytePixels", [](TefBuilder& b) { b.channels[0].bytesPerPixel = 8; },
         "Only 16 Bit and 32 Bit pixel data are supported."},
        {"channelCountRecordDiffers", [](TefBuilder& b) { b.Set(116, TefBuilder::Word(3)); },
         "Two different values in file for number of channels."},
        {"wordOfFourBytes", [](TefBuilder& b) { b.Set(11, TefBuilder::Dword(16)); },
         "Expecting WORD, wrong size for parameter."},
        {"channelWordOfOneByte", [](TefBuilder& b) { b.Set(147, {16}); }, "Expecting WORD, wrong size for parameter."},
        {"dwordOfTwoBytes", [](TefBuilder& b) { b.Set(145, TefBuilder::Word(1)); },
         "Expecting DWORD, wrong size for parameter."},
        {"doubleOfSizeZero", [](TefBuilder& b) { b.Find(2)->size = 0; }, "Expecting double, wrong size for parameter."},
        {"doubleOfFourBytes", [](TefBuilder& b) { b.Set(109, TefBuilder::Dword(1)); },
         "Expecting double, wrong size for parameter."},
        {"rotationOfSixteenBytes", [](TefBuilder& b) { b.Set(18, std::vector<std::uint8_t>(16)); },
         "Expecting double, wrong size for parameter."},
    };
    return damages;
}

std::vector<std::vector<std::uint8_t>> SmallFiles()
{
    TefBuilder twoWidths(2, 3, 2);
    twoWidths.channels[1] = TefBuilder::StandardChannel(1, 3, 2, 4);
    TefBuilder empty(1, 2, 1);
    empty.note.clear();
    return {TefBuilder(1, 2, 2).Bytes(), twoWidths.Bytes(), empty.Bytes(), TefBuilder(0).Bytes()};
}

}  // namespace

TEST(TefDamagedFilesTest, EachDamageIsRefusedWithItsText)
{
    // The damages are made to a file of two channels of 3 x 2 pixels.
    ASSERT_EQ(RefusalOf(TefBuilder(2, 3, 2)), "");
    for (const Damage& damage : Damages()) {
        TefBuilder builder(2, 3, 2);
        damage.apply(builder);
        EXPECT_EQ(RefusalOf(builder), damage.message) << damage.name;
    }
}

TEST(TefDamagedFilesTest, RefusedWalkKeepsWhatWasReadBeforeIt)
{
    TefBuilder builder(3, 3, 2);
    builder.channels[2].imageTag = 7;
    TefDocument d;
    ASSERT_EQ(RefusalOf(builder.Bytes(), d), "Expecting image data, file misaligned");
    EXPECT_EQ(d.note, "Sample note");
    EXPECT_EQ(d.channels.size(), 3u);
    EXPECT_EQ(d.channels[2].zRange, TefBuilder::kZRange + 2);
    EXPECT_EQ(d.kept145, TefBuilder::kKept145);
    ASSERT_EQ(d.sections.size(), 3u);
    EXPECT_TRUE(d.sections[1].complete);
    EXPECT_EQ(d.sections[1].pixels.size(), 6u);
    EXPECT_FALSE(d.sections[2].complete);
    EXPECT_EQ(d.sections[2].type, builder.channels[2].type);
    EXPECT_EQ(d.channelTable[2].type, builder.channels[2].type);
    EXPECT_FALSE(d.sections[2].hasPixels);

    // a refusal inside the parameters keeps the records before it
    TefBuilder early(2, 3, 2);
    early.Set(116, TefBuilder::Word(5));
    TefDocument e;
    ASSERT_EQ(RefusalOf(early.Bytes(), e), "Two different values in file for number of channels.");
    EXPECT_EQ(e.channels[1].zRange, TefBuilder::kZRange + 1);
    // behind the value of 108, the record of 109 and the head of 116
    EXPECT_EQ(e.offsets.channelCountOffset, e.offsets.zRangeOffset + 8 + (4 + 8) + 4);
    EXPECT_EQ(e.xOffset, std::nullopt);
    EXPECT_TRUE(e.sections.empty());
}

TEST(TefDamagedFilesTest, TruncationAtEveryOffsetIsRefusedInsideTheBuffer)
{
    for (const std::vector<std::uint8_t>& whole : SmallFiles()) {
        TefDocument full;
        ASSERT_EQ(RefusalOf(whole, full), "");
        for (std::size_t length = 0; length < whole.size(); ++length) {
            // a copy of exactly that length, so that the sanitizer sees any
            // read behind it
            const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            TefDocument d;
            const std::string refusal = RefusalOf(cut, d);
            // The last six bytes of the last pixels may be missing, as in a
            // file rewritten to its stated size; those read as zero bytes.
            // A cut that close to the end reaches the pixels or lands before them.
            if (whole.size() - length <= TefFormat::kRewriteLoss) {
                if (refusal.empty()) {
                    ASSERT_EQ(d.sections.size(), full.sections.size());
                    EXPECT_EQ(d.sections.back().pixels.size(), full.sections.back().pixels.size());
                }
            } else {
                EXPECT_NE(refusal, "") << "cut at " << length << " of " << whole.size();
            }
        }
    }
}

TEST(TefDamagedFilesTest, PixelsCutByTheRewritersLossReadAsZeroBytes)
{
    // One channel of 2 x 2 2-byte pixels, 16 bits in use: the last stored
    // row is the image's first, and its last pixel loses both bytes.
    TefBuilder builder(1, 2, 2);
    builder.channels[0].pixels = {0x1000, 0x2000, 0x3000, 0x4000};
    std::vector<std::uint8_t> bytes = builder.Bytes();
    bytes.resize(bytes.size() - 2);
    TefDocument d;
    ASSERT_EQ(RefusalOf(bytes, d), "");
    ASSERT_EQ(d.sections.size(), 1u);
    // rows top-down: the file's second row first; a zero word reads as -32768
    EXPECT_EQ(d.sections[0].pixels, (std::vector<std::int32_t>{0x3000 - 0x8000, -0x8000, 0x1000 - 0x8000, 0x2000 - 0x8000}));

    std::vector<std::uint8_t> tooShort = builder.Bytes();
    tooShort.resize(tooShort.size() - TefFormat::kRewriteLoss - 1);
    TefDocument refused;
    EXPECT_EQ(RefusalOf(tooShort, refused), "Unexpected end of file, file misaligned");
}

TEST(TefDamagedFilesTest, ReadsPastTheEndAreRefusedAsTheEndOfTheFile)
{
    const std::string end = "Unexpected end of file, file misaligned";
    std::vector<std::uint8_t> nothing;
    TefDocument d;
    EXPECT_EQ(RefusalOf(nothing, d), end);

    TefBuilder cut(1, 3, 2);
    cut.channels[0].pixels.resize(2);
    EXPECT_EQ(RefusalOf(cut), end);

    TefBuilder longText(1, 3, 2);
    longText.records.push_back({20, TefBuilder::Text("abc"), 60000});
    EXPECT_EQ(RefusalOf(longText), end);

    TefBuilder previewBeforeStart(1, 3, 2);
    previewBeforeStart.previewLength = -100000;
    EXPECT_EQ(RefusalOf(previewBeforeStart), end);

    TefBuilder previewPastEnd(1, 3, 2);
    previewPastEnd.previewLength = 0x7FFFFFFF;
    EXPECT_EQ(RefusalOf(previewPastEnd), end);

    TefBuilder headerPastEnd(1, 3, 2);
    headerPastEnd.channels[0].headerLength = -0x7FFFFFFF - 1;
    EXPECT_EQ(RefusalOf(headerPastEnd), end);
}

TEST(TefDamagedFilesTest, ImageLargerThanTheFileIsRefusedBeforeAllocation)
{
    TefBuilder builder(1, 2, 2, 4);
    builder.Set(7, TefBuilder::Word(65535));
    builder.Set(8, TefBuilder::Word(65535));
    builder.channels[0].width = 65535;
    builder.channels[0].height = 65535;
    TefDocument d;
    EXPECT_EQ(RefusalOf(builder.Bytes(), d), "Unexpected end of file, file misaligned");
    ASSERT_EQ(d.sections.size(), 1u);
    EXPECT_EQ(d.sections[0].dataSize, 65535ull * 65535ull * 4ull);
    EXPECT_TRUE(d.sections[0].pixels.empty());
}

TEST(TefDamagedFilesTest, HeaderLengthLeadingBackIsRefusedBeforeReadingPixelsAgainAndAgain)
{
    // Section 1 leads back to the image block of section 0, whose pixels end
    // where section 1 begins: every further channel would read the same
    // pixels again.
    TefBuilder builder(2, 4, 3);
    builder.channelCount = 60000;
    builder.Remove(116);
    const std::int32_t sectionSize = 6 + 16 + 32 + 4 * 3 * 2;
    builder.channels[1].headerLength = -(sectionSize - 6 - 16) - 6;
    TefDocument d;
    EXPECT_EQ(RefusalOf(builder.Bytes(), d), "Image data lies over other image data, file misaligned");
    EXPECT_GT(d.sections.size(), 3u);
    EXPECT_LT(d.sections.size(), 100u);
    EXPECT_EQ(d.sections[2].pixels, d.sections[0].pixels);
}

TEST(TefDamagedFilesTest, EveryRefusalTextIsOneOfTheKnown)
{
    // Bytes of a small file flipped one at a time, each to two values.
    std::set<std::string> known;
    for (const Damage& damage : Damages())
        known.insert(damage.message);
    known.insert("Unexpected end of file, file misaligned");
    known.insert("Image data lies over other image data, file misaligned");
    known.insert("");

    const std::vector<std::uint8_t> whole = TefBuilder(2, 2, 2).Bytes();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (std::uint8_t value : {std::uint8_t{0x00}, std::uint8_t{0xFF}}) {
            std::vector<std::uint8_t> bytes = whole;
            bytes[at] = value;
            TefDocument d;
            const std::string refusal = RefusalOf(bytes, d);
            EXPECT_TRUE(known.count(refusal)) << refusal << " at " << at;
        }
    }
}
