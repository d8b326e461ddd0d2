#include "QlDataAnalysisExt/Tef/TefPixelConverter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

// The rule written out a second way: 2^b from the library, the rest as the
// format states it.
std::int32_t Expected(std::uint32_t raw, int bits, unsigned bytesPerPixel)
{
    if (bytesPerPixel == 2 && bits == 16)
        return static_cast<std::int32_t>(raw) - 32768;
    const double m = std::ldexp(1.0, bits) - 1.0;
    const double q = m == 0.0 ? 0.0 : raw / m;
    const auto t = static_cast<long long>(std::trunc(q * 65535.0));
    const auto low = static_cast<std::uint16_t>((static_cast<unsigned long long>(t) + 0x8000ull) & 0xFFFFull);
    return low >= 0x8000 ? static_cast<std::int32_t>(low) - 65536 : low;
}

std::vector<std::uint8_t> AllWords()
{
    std::vector<std::uint8_t> bytes;
    for (std::uint32_t raw = 0; raw < 65536; ++raw) {
        bytes.push_back(static_cast<std::uint8_t>(raw));
        bytes.push_back(static_cast<std::uint8_t>(raw >> 8));
    }
    return bytes;
}

std::vector<std::uint8_t> Dwords(const std::vector<std::uint32_t>& values)
{
    std::vector<std::uint8_t> bytes;
    for (std::uint32_t v : values)
        for (int i = 0; i < 4; ++i)
            bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    return bytes;
}

}  // namespace

TEST(TefPixelTest, TwoBytePixelsSpreadTheirBitsOverSixteen)
{
    EXPECT_EQ(TefPixelConverter::Convert(0, 16, 2), -32768);
    EXPECT_EQ(TefPixelConverter::Convert(32768, 16, 2), 0);
    EXPECT_EQ(TefPixelConverter::Convert(65535, 16, 2), 32767);
    EXPECT_EQ(TefPixelConverter::Convert(4095, 12, 2), 32767);
    EXPECT_EQ(TefPixelConverter::Convert(0, 12, 2), -32768);
    EXPECT_EQ(TefPixelConverter::Convert(2048, 12, 2), Expected(2048, 12, 2));
    // bits the span does not cover wrap round in 16 bits
    EXPECT_EQ(TefPixelConverter::Convert(8190, 12, 2), 32766);
    for (std::uint32_t raw : {0u, 1u, 40000u, 65535u})
        EXPECT_EQ(TefPixelConverter::Convert(raw, 0, 2), -32768) << raw;
}

TEST(TefPixelTest, FourBytePixelsAlwaysGoThroughTheScaling)
{
    EXPECT_EQ(TefPixelConverter::Convert(0, 16, 4), -32768);
    EXPECT_EQ(TefPixelConverter::Convert(65535, 16, 4), 32767);
    EXPECT_EQ(TefPixelConverter::Convert(131070, 16, 4), 32766);
    EXPECT_EQ(TefPixelConverter::Convert(0xFFFFFFFFu, 32, 4), 32767);
    // just above half of the span, so one step below the middle after the shift
    EXPECT_EQ(TefPixelConverter::Convert(0x80000000u, 32, 4), -1);
    EXPECT_EQ(TefPixelConverter::Convert(0xFFFFFFFFu, 0, 4), -32768);
    for (int bits : {-40, -1, 0, 1, 8, 16, 24, 31, 32, 33, 64, 1023, 1024, 65535}) {
        for (std::uint32_t raw : {0u, 1u, 255u, 65535u, 65536u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
            EXPECT_EQ(TefPixelConverter::Convert(raw, bits, 4), Expected(raw, bits, 4)) << raw << " at " << bits;
        }
    }
}

TEST(TefPixelTest, ImageOfEveryWordMatchesTheRuleAtEachBitsInUse)
{
    // 256 rows of 256: the image holds every 2-byte pixel once.
    const std::vector<std::uint8_t> stored = AllWords();
    TefPixelConverter converter;
    std::vector<std::int32_t> values(65536);
    std::vector<int> bitsInUse{-1, -2, -17, 33, 40, 52, 53, 64, 1023, 1024, 1100, 65535};
    for (int bits = 0; bits <= 32; ++bits)
        bitsInUse.push_back(bits);
    for (int bits : bitsInUse) {
        ASSERT_TRUE(converter.ConvertImage(stored, 256, 256, 2, bits, values));
        int mismatches = 0;
        for (std::uint32_t raw = 0; raw < 65536; ++raw) {
            const std::size_t row = 255 - raw / 256;
            const std::int32_t got = values[row * 256 + raw % 256];
            if (got != Expected(raw, bits, 2) || got != TefPixelConverter::Convert(raw, bits, 2))
                ++mismatches;
        }
        EXPECT_EQ(mismatches, 0) << "bits in use " << bits;

        // a small image goes pixel by pixel instead: the first 32 rows
        std::vector<std::int32_t> small(32 * 256);
        ASSERT_TRUE(converter.ConvertImage(std::span(stored).first(small.size() * 2), 256, 32, 2, bits, small));
        EXPECT_TRUE(std::equal(small.begin(), small.end(), values.end() - static_cast<std::ptrdiff_t>(small.size())))
            << "bits in use " << bits;
    }
}

TEST(TefPixelTest, FourByteImageIsConvertedAndFlipped)
{
    const std::vector<std::uint32_t> raw{0, 0xFFFFFFFFu, 12345678u, 0x80000000u, 1, 77u << 20};
    TefPixelConverter converter;
    std::vector<std::int32_t> values(6);
    ASSERT_TRUE(converter.ConvertImage(Dwords(raw), 2, 3, 4, 32, values));
    const std::vector<std::size_t> fileIndexOf{4, 5, 2, 3, 0, 1};
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(values[i], Expected(raw[fileIndexOf[i]], 32, 4)) << i;
}

TEST(TefPixelTest, WritingBackGivesSixteenBitWordsBottomRowFirst)
{
    EXPECT_EQ(TefPixelConverter::ToWord(-32768), 0);
    EXPECT_EQ(TefPixelConverter::ToWord(0), 32768);
    EXPECT_EQ(TefPixelConverter::ToWord(32767), 65535);
    // only the low 16 bits of a value count
    EXPECT_EQ(TefPixelConverter::ToWord(0x12340000), 32768);
    EXPECT_EQ(TefPixelConverter::ToWord(-1), 32767);

    // read at 16 bits in use and written back, every word is itself again
    const std::vector<std::uint8_t> stored = AllWords();
    TefPixelConverter converter;
    std::vector<std::int32_t> values(65536);
    ASSERT_TRUE(converter.ConvertImage(stored, 512, 128, 2, 16, values));
    std::vector<std::uint8_t> written(stored.size(), 0xEE);
    ASSERT_TRUE(TefPixelConverter::WriteImage(values, 512, 128, written));
    EXPECT_EQ(written, stored);
}

TEST(TefPixelTest, ShortBuffersAndOddPixelWidthsAreRefusedUntouched)
{
    TefPixelConverter converter;
    const std::vector<std::uint8_t> stored(24, 0x11);
    std::vector<std::int32_t> values(12, 7);
    EXPECT_FALSE(converter.ConvertImage(stored, 4, 4, 2, 16, values));
    EXPECT_FALSE(converter.ConvertImage(stored, 4, 3, 4, 16, values));
    EXPECT_FALSE(converter.ConvertImage(stored, 4, 3, 3, 16, values));
    EXPECT_FALSE(converter.ConvertImage(stored, 4, 3, 2, 16, std::span<std::int32_t>(values).first(11)));
    EXPECT_FALSE(converter.ConvertImage(stored, SIZE_MAX / 2, 3, 2, 16, values));
    EXPECT_EQ(values, std::vector<std::int32_t>(12, 7));
    EXPECT_TRUE(converter.ConvertImage(stored, 0, 3, 2, 16, values));

    std::vector<std::uint8_t> out(23, 0x22);
    EXPECT_FALSE(TefPixelConverter::WriteImage(values, 4, 3, out));
    std::vector<std::uint8_t> roomy(32);
    EXPECT_FALSE(TefPixelConverter::WriteImage(values, 4, 4, roomy));
    EXPECT_EQ(out, std::vector<std::uint8_t>(23, 0x22));
}
