// A ".tef" file walked through a window that is fetched piece by piece must
// come out as the same file walked whole in memory, and its pixels, which
// are converted band by band, as the same image converted at once.

#include "Tef/TefTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefPixelConverter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

using namespace TefTest;
using SampleKit::TefBuilder;

namespace {

struct ReadOutsideTheFile : std::logic_error {
    ReadOutsideTheFile() : std::logic_error("a read outside the file") {}
};

// Fetches from the bytes, keeping the largest piece asked for.
struct FileOverBytes {
    const std::vector<std::uint8_t>& bytes;
    std::size_t largest = 0;

    TefByteReader::Fetch Fetch()
    {
        return [this](std::uint64_t offset, void* buffer, std::size_t size) {
            if (offset > bytes.size() || size > bytes.size() - offset)
                throw ReadOutsideTheFile();
            std::memcpy(buffer, bytes.data() + offset, size);
            largest = std::max(largest, size);
        };
    }
};

std::string WalkWindowed(const std::vector<std::uint8_t>& bytes, TefDocument& document, std::size_t* largest = nullptr)
{
    FileOverBytes file{bytes};
    std::string refusal;
    try {
        TefWalker::Walk(bytes.size(), file.Fetch(), document);
    } catch (const std::runtime_error& error) {
        refusal = error.what();
    }
    if (largest)
        *largest = file.largest;
    return refusal;
}

void ExpectSameDocument(const TefDocument& a, const TefDocument& b)
{
    EXPECT_EQ(a.note, b.note);
    EXPECT_EQ(a.noteEndOffset, b.noteEndOffset);
    EXPECT_EQ(a.fileVersion, b.fileVersion);
    EXPECT_EQ(a.offsets.firstChannelOffset, b.offsets.firstChannelOffset);
    EXPECT_EQ(a.offsets.zRangeOffset, b.offsets.zRangeOffset);
    EXPECT_EQ(a.channels, b.channels);
    EXPECT_EQ(a.tipSerialNumber, b.tipSerialNumber);
    EXPECT_EQ(a.is16Bit, b.is16Bit);
    ASSERT_EQ(a.sections.size(), b.sections.size());
    for (std::size_t i = 0; i < a.sections.size(); ++i) {
        EXPECT_EQ(a.sections[i].complete, b.sections[i].complete) << i;
        EXPECT_EQ(a.sections[i].hasPixels, b.sections[i].hasPixels) << i;
        EXPECT_EQ(a.sections[i].displayName, b.sections[i].displayName) << i;
        EXPECT_TRUE(a.sections[i].pixels == b.sections[i].pixels) << "pixels of channel " << i;
    }
}

// Channels of several bands each, of both pixel widths and of bits in use
// that take each way of converting.
TefBuilder LargeFile(std::uint16_t bytesPerPixel, std::uint16_t bitsInUse)
{
    TefBuilder file(3, 700, 450, bytesPerPixel);
    file.Set(11, TefBuilder::Word(bitsInUse));
    file.note.assign(70000, 'n');  // a note longer than a window
    return file;
}

}  // namespace

TEST(TefWindowedReadTest, WindowedWalkMatchesTheWalkInMemory)
{
    for (const std::uint16_t bytesPerPixel : {std::uint16_t{2}, std::uint16_t{4}}) {
        for (const std::uint16_t bits : {std::uint16_t{16}, std::uint16_t{12}, std::uint16_t{1}, std::uint16_t{20}}) {
            const std::vector<std::uint8_t> bytes = LargeFile(bytesPerPixel, bits).Bytes();
            TefDocument whole, windowed;
            ASSERT_EQ(RefusalOf(bytes, whole), "");
            std::size_t largest = 0;
            ASSERT_EQ(WalkWindowed(bytes, windowed, &largest), "") << bytesPerPixel << " bytes, " << bits << " bits";
            ExpectSameDocument(windowed, whole);
            // Pixels come in bands of rows: no read holds a channel's pixels whole.
            EXPECT_LT(largest, std::size_t{700} * 450 * bytesPerPixel / 2);
        }
    }
    TefDocument whole, windowed;
    const std::vector<std::uint8_t> small = TefBuilder(2).Bytes();
    ASSERT_EQ(RefusalOf(small, whole), "");
    ASSERT_EQ(WalkWindowed(small, windowed), "");
    ExpectSameDocument(windowed, whole);
}

TEST(TefWindowedReadTest, CutFileIsRefusedAsInMemoryWithoutReadingOutsideIt)
{
    const std::vector<std::uint8_t> bytes = TefBuilder(2, 40, 30).Bytes();
    for (std::size_t size = 0; size < bytes.size(); size += size < 600 ? 1 : 97) {
        const std::vector<std::uint8_t> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        TefDocument whole, windowed;
        const std::string expected = RefusalOf(cut, whole);
        ASSERT_EQ(WalkWindowed(cut, windowed), expected) << "cut at " << size;
        ExpectSameDocument(windowed, whole);
    }
}

TEST(TefWindowedReadTest, FailedReadReachesTheCallerAndKeepsTheChannelsReadBefore)
{
    const std::vector<std::uint8_t> bytes = TefBuilder(3, 300, 300).Bytes();
    TefDocument whole;
    ASSERT_EQ(RefusalOf(bytes, whole), "");
    // The pixels of the last channel cannot be read.
    const std::size_t unreadable = bytes.size() - 300 * 300 * 2;
    auto fetch = [&](std::uint64_t offset, void* buffer, std::size_t size) {
        if (offset >= unreadable)
            throw ReadOutsideTheFile();
        std::memcpy(buffer, bytes.data() + offset, std::min(size, bytes.size() - offset));
    };
    TefDocument document;
    EXPECT_THROW(TefWalker::Walk(bytes.size(), fetch, document), ReadOutsideTheFile);
    ASSERT_EQ(document.sections.size(), 3u);
    EXPECT_TRUE(document.sections[1].complete);
    EXPECT_TRUE(document.sections[1].pixels == whole.sections[1].pixels);
    EXPECT_FALSE(document.sections[2].complete);
}

TEST(TefWindowedReadTest, ImageAppendedBandByBandIsTheImageConvertedAtOnce)
{
    // 300 rows of 250 pixels of every kind of word, appended in bands of
    // uneven heights, the last stored band first.
    std::vector<std::uint8_t> stored;
    for (std::uint32_t i = 0; i < 300u * 250u; ++i) {
        const std::uint32_t raw = (i * 2654435761u) >> 7;
        for (int b = 0; b < 4; ++b)
            stored.push_back(static_cast<std::uint8_t>(raw >> (8 * b)));
    }
    TefPixelConverter converter;
    for (const unsigned bytesPerPixel : {2u, 4u}) {
        for (const int bits : {16, 15, 12, 2, 1, 0, -3, 17, 32}) {
            const std::size_t rowBytes = 250 * bytesPerPixel;
            std::vector<std::int32_t> atOnce(300 * 250);
            ASSERT_TRUE(converter.ConvertImage({stored.data(), 300 * rowBytes}, 250, 300, bytesPerPixel, bits, atOnce));
            std::vector<std::int32_t> banded;
            for (std::size_t last = 300, band = 1; last > 0; band = band * 3 % 97 + 1) {
                const std::size_t first = last > band ? last - band : 0;
                ASSERT_TRUE(converter.AppendImage({stored.data() + first * rowBytes, (last - first) * rowBytes}, 250,
                                                  last - first, bytesPerPixel, bits, banded));
                last = first;
            }
            EXPECT_TRUE(banded == atOnce) << bytesPerPixel << " bytes, " << bits << " bits";
        }
    }
    std::vector<std::int32_t> untouched{7};
    EXPECT_FALSE(converter.AppendImage({stored.data(), 10}, 4, 2, 2, 16, untouched));
    EXPECT_FALSE(converter.AppendImage({stored.data(), 16}, 4, 2, 3, 16, untouched));
    EXPECT_EQ(untouched, std::vector<std::int32_t>{7});
}
