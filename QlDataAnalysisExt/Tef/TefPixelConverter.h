#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

// Pixels of a ".tef" image to the signed 16-bit values held in memory, and
// back. The span of a pixel's bits in use is spread over the full signed
// 16-bit span; in memory each value is widened to 32 bits.
class TefPixelConverter {
public:
    // The one rule for a single pixel, of 2 or 4 bytes in the file.
    static std::int32_t Convert(std::uint32_t raw, int bitsInUse, unsigned bytesPerPixel);
    // Back to a file WORD, which then has 16 bits in use.
    static std::uint16_t ToWord(std::int32_t value);

    // The values of all 65536 two-byte pixels at that many bits in use, made
    // once per converter by the rule above.
    const std::vector<std::int16_t>& WordTable(int bitsInUse);

    // Converts an image of width x height pixels stored bottom row first
    // into values top row first. False, with nothing written, when either
    // buffer is shorter than the image or the pixel width is not 2 or 4.
    bool ConvertImage(std::span<const std::uint8_t> stored, std::size_t width, std::size_t height,
                      unsigned bytesPerPixel, int bitsInUse, std::span<std::int32_t> values);
    // The same, with the values appended to values (which has room reserved
    // by the caller where it matters): an image may so be converted band by
    // band, the last stored band first, and no value is written twice.
    bool AppendImage(std::span<const std::uint8_t> stored, std::size_t width, std::size_t height,
                     unsigned bytesPerPixel, int bitsInUse, std::vector<std::int32_t>& values);

    // Writes values (top row first) as 2-byte pixels, bottom row first. False,
    // with nothing written, when either buffer is shorter than the image.
    static bool WriteImage(std::span<const std::int32_t> values, std::size_t width, std::size_t height,
                           std::span<std::uint8_t> stored);

private:
    // How the pixels of one image are converted, chosen once for the image.
    struct RowRule {
        enum class Kind { Exact16, SpreadWords, Table, Scaled } kind;
        unsigned bytesPerPixel;
        double factor;  // the full span (Scaled) or 65535 over it (SpreadWords)
        const std::int16_t* table;
    };
    RowRule RuleFor(std::size_t pixels, unsigned bytesPerPixel, int bitsInUse);
    static void ConvertRow(const RowRule& rule, const std::uint8_t* in, std::size_t width, std::int32_t* out);

    std::map<int, std::vector<std::int16_t>> wordTables_;
    std::vector<std::int32_t> row_;
};
