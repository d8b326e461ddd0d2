#include "QlDataAnalysisExt/Tef/TefPixelConverter.h"

namespace {

double PowerOfTwo(unsigned long long exponent)
{
    double power = 1.0;
    double base = 2.0;
    for (; exponent != 0; exponent >>= 1) {
        if (exponent & 1)
            power *= base;
        base *= base;
    }
    return power;
}

// 2 to the power b, minus 1, by repeated squaring, as the values in files
// were made.
double FullSpan(int b)
{
    if (b < 0)
        return 1.0 / PowerOfTwo(0ULL - static_cast<unsigned long long>(static_cast<long long>(b))) - 1.0;
    return PowerOfTwo(static_cast<unsigned long long>(b)) - 1.0;
}

std::int32_t FromLow16(std::uint64_t bits)
{
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(bits + 0x8000u));
}

std::uint32_t StoredPixel(const std::uint8_t* at, unsigned bytesPerPixel)
{
    std::uint32_t raw = static_cast<std::uint32_t>(at[0]) | (static_cast<std::uint32_t>(at[1]) << 8);
    if (bytesPerPixel == 4)
        raw |= (static_cast<std::uint32_t>(at[2]) << 16) | (static_cast<std::uint32_t>(at[3]) << 24);
    return raw;
}

// A pixel scaled by the full span m of its bits in use.
std::int32_t Scaled(std::uint32_t raw, double m)
{
    const double q = m == 0.0 ? 0.0 : static_cast<double>(raw) / m;
    // |m| is at least 0.5 unless it is 0 (b below 0 gives m in [-1, -0.5]),
    // so |q x 65535| stays below 2^50 and the truncation is always defined.
    const auto truncated = static_cast<std::int64_t>(q * 65535.0);
    return FromLow16(static_cast<std::uint64_t>(truncated));
}

constexpr std::size_t kTableWorthPixels = 16384;

bool FitsImage(std::size_t available, std::size_t width, std::size_t height, std::size_t bytesEach)
{
    if (width == 0 || height == 0)
        return true;
    return height <= available / width && bytesEach <= available / (width * height);
}

}  // namespace

std::int32_t TefPixelConverter::Convert(std::uint32_t raw, int bitsInUse, unsigned bytesPerPixel)
{
    if (bytesPerPixel == 2 && bitsInUse == 16)
        return FromLow16(raw & 0xFFFFu);
    return Scaled(raw, FullSpan(bitsInUse));
}

std::uint16_t TefPixelConverter::ToWord(std::int32_t value)
{
    return static_cast<std::uint16_t>(static_cast<std::uint16_t>(value) + 0x8000u);
}

const std::vector<std::int16_t>& TefPixelConverter::WordTable(int bitsInUse)
{
    auto found = wordTables_.find(bitsInUse);
    if (found != wordTables_.end())
        return found->second;
    std::vector<std::int16_t> table(65536);
    for (std::uint32_t raw = 0; raw < 65536; ++raw)
        table[raw] = static_cast<std::int16_t>(Convert(raw, bitsInUse, 2));
    return wordTables_.emplace(bitsInUse, std::move(table)).first->second;
}

bool TefPixelConverter::ConvertImage(std::span<const std::uint8_t> stored, std::size_t width, std::size_t height,
                                     unsigned bytesPerPixel, int bitsInUse, std::span<std::int32_t> values)
{
    if ((bytesPerPixel != 2 && bytesPerPixel != 4) || !FitsImage(stored.size(), width, height, bytesPerPixel) ||
        !FitsImage(values.size(), width, height, 1))
        return false;
    const std::size_t rowBytes = width * bytesPerPixel;
    const double m = FullSpan(bitsInUse);
    // A table pays for itself only over an image larger than it is.
    const bool tabled = bytesPerPixel == 2 && bitsInUse != 16 && width * height >= kTableWorthPixels;
    const std::vector<std::int16_t>* table = tabled ? &WordTable(bitsInUse) : nullptr;
    for (std::size_t row = 0; row < height; ++row) {
        const std::uint8_t* in = stored.data() + row * rowBytes;
        std::int32_t* out = values.data() + (height - 1 - row) * width;
        if (table) {
            for (std::size_t x = 0; x < width; ++x)
                out[x] = (*table)[StoredPixel(in + 2 * x, 2)];
        } else if (bytesPerPixel == 2 && bitsInUse == 16) {
            for (std::size_t x = 0; x < width; ++x)
                out[x] = FromLow16(StoredPixel(in + 2 * x, 2));
        } else {
            for (std::size_t x = 0; x < width; ++x)
                out[x] = Scaled(StoredPixel(in + bytesPerPixel * x, bytesPerPixel), m);
        }
    }
    return true;
}

bool TefPixelConverter::WriteImage(std::span<const std::int32_t> values, std::size_t width, std::size_t height,
                                   std::span<std::uint8_t> stored)
{
    if (!FitsImage(values.size(), width, height, 1) || !FitsImage(stored.size(), width, height, 2))
        return false;
    for (std::size_t row = 0; row < height; ++row) {
        const std::int32_t* in = values.data() + (height - 1 - row) * width;
        std::uint8_t* out = stored.data() + row * width * 2;
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint16_t word = ToWord(in[x]);
            out[2 * x] = static_cast<std::uint8_t>(word & 0xFFu);
            out[2 * x + 1] = static_cast<std::uint8_t>(word >> 8);
        }
    }
    return true;
}
