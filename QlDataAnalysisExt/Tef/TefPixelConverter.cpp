#include "QlDataAnalysisExt/Tef/TefPixelConverter.h"

#include <algorithm>
#include <bit>
#include <compare>
#include <cstddef>
#include <cstring>
#include <iterator>

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

std::int32_t FromLow16(std::uint32_t bits)
{
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(bits + 0x8000u));
}

// A little-endian word; one load where the machine is little-endian too.
std::uint16_t Word(const std::uint8_t* at)
{
    if constexpr (std::endian::native == std::endian::little) {
        std::uint16_t word;
        std::memcpy(&word, at, sizeof word);
        return word;
    }
    return static_cast<std::uint16_t>(at[0] | (at[1] << 8));
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
    return FromLow16(static_cast<std::uint32_t>(truncated));
}

// The two kinds of 2-byte pixel that files mostly hold.
struct ExactWord {
    std::int32_t operator()(std::uint16_t word) const { return FromLow16(word); }
};
// From 2 to 15 bits in use, a word times 65535 / m truncates to the same
// integer as the word over m times 65535, which the pixel test holds for
// every word; the product stays below 2^31.
struct SpreadWord {
    double factor;
    std::int32_t operator()(std::uint16_t word) const
    {
        return FromLow16(static_cast<std::uint32_t>(static_cast<std::int32_t>(word * factor)));
    }
};

// The stored words of a row seen as their values, so that a vector can be
// extended by them directly: each value is written once, where it stays.
template <class Rule>
class ConvertedWords {
public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = std::int32_t;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = std::int32_t;

    ConvertedWords() = default;
    ConvertedWords(const std::uint8_t* at, Rule rule) : at_(at), rule_(rule) {}

    std::int32_t operator*() const { return rule_(Word(at_)); }
    std::int32_t operator[](difference_type k) const { return *(*this + k); }
    ConvertedWords& operator++() { return *this += 1; }
    ConvertedWords operator++(int) { ConvertedWords was = *this; *this += 1; return was; }
    ConvertedWords& operator--() { return *this -= 1; }
    ConvertedWords operator--(int) { ConvertedWords was = *this; *this -= 1; return was; }
    ConvertedWords& operator+=(difference_type k) { at_ += 2 * k; return *this; }
    ConvertedWords& operator-=(difference_type k) { at_ -= 2 * k; return *this; }
    friend ConvertedWords operator+(ConvertedWords a, difference_type k) { return a += k; }
    friend ConvertedWords operator+(difference_type k, ConvertedWords a) { return a += k; }
    friend ConvertedWords operator-(ConvertedWords a, difference_type k) { return a -= k; }
    friend difference_type operator-(const ConvertedWords& a, const ConvertedWords& b) { return (a.at_ - b.at_) / 2; }
    friend bool operator==(const ConvertedWords& a, const ConvertedWords& b) { return a.at_ == b.at_; }
    friend auto operator<=>(const ConvertedWords& a, const ConvertedWords& b) { return a.at_ <=> b.at_; }

private:
    const std::uint8_t* at_ = nullptr;
    Rule rule_{};
};

template <class Rule>
void WordsInto(const std::uint8_t* in, std::size_t width, Rule rule, std::int32_t* out)
{
    std::copy(ConvertedWords<Rule>(in, rule), ConvertedWords<Rule>(in + 2 * width, rule), out);
}

template <class Rule>
void AppendWords(const std::uint8_t* in, std::size_t width, Rule rule, std::vector<std::int32_t>& values)
{
    values.insert(values.end(), ConvertedWords<Rule>(in, rule), ConvertedWords<Rule>(in + 2 * width, rule));
}

// Their rows are converted with the widest vectors the processor offers,
// the vector's own appending drawn into each version. The results are the
// same on every processor: each step is exact or rounded as IEEE arithmetic
// rounds it, in vectors or not. The thread sanitizer's runtime cannot start
// a program whose functions are chosen at load time: it gets one version.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && !defined(__SANITIZE_THREAD__)
#define TEF_WIDEST_VECTORS __attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"), flatten))
#else
#define TEF_WIDEST_VECTORS
#endif

TEF_WIDEST_VECTORS void ExactWordRow(const std::uint8_t* in, std::size_t width, std::int32_t* out)
{
    WordsInto(in, width, ExactWord{}, out);
}

TEF_WIDEST_VECTORS void SpreadWordRow(const std::uint8_t* in, std::size_t width, double factor, std::int32_t* out)
{
    WordsInto(in, width, SpreadWord{factor}, out);
}

TEF_WIDEST_VECTORS void AppendExactWords(const std::uint8_t* in, std::size_t width, std::vector<std::int32_t>& values)
{
    AppendWords(in, width, ExactWord{}, values);
}

TEF_WIDEST_VECTORS void AppendSpreadWords(const std::uint8_t* in, std::size_t width, double factor,
                                          std::vector<std::int32_t>& values)
{
    AppendWords(in, width, SpreadWord{factor}, values);
}

constexpr std::size_t kTableWorthPixels = 16384;
constexpr int kFirstSpreadBits = 2;
constexpr int kLastSpreadBits = 15;

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

TefPixelConverter::RowRule TefPixelConverter::RuleFor(std::size_t pixels, unsigned bytesPerPixel, int bitsInUse)
{
    using Kind = RowRule::Kind;
    if (bytesPerPixel == 2 && bitsInUse == 16)
        return {Kind::Exact16, 2, 0.0, nullptr};
    const double m = FullSpan(bitsInUse);
    if (bytesPerPixel == 2 && bitsInUse >= kFirstSpreadBits && bitsInUse <= kLastSpreadBits)
        return {Kind::SpreadWords, 2, 65535.0 / m, nullptr};
    // A table pays for itself only over an image larger than it is.
    if (bytesPerPixel == 2 && pixels >= kTableWorthPixels)
        return {Kind::Table, 2, 0.0, WordTable(bitsInUse).data()};
    return {Kind::Scaled, bytesPerPixel, m, nullptr};
}

void TefPixelConverter::ConvertRow(const RowRule& rule, const std::uint8_t* in, std::size_t width, std::int32_t* out)
{
    using Kind = RowRule::Kind;
    switch (rule.kind) {
    case Kind::Exact16:
        ExactWordRow(in, width, out);
        break;
    case Kind::SpreadWords:
        SpreadWordRow(in, width, rule.factor, out);
        break;
    case Kind::Table:
        for (std::size_t x = 0; x < width; ++x)
            out[x] = rule.table[Word(in + 2 * x)];
        break;
    case Kind::Scaled:
        for (std::size_t x = 0; x < width; ++x)
            out[x] = Scaled(StoredPixel(in + rule.bytesPerPixel * x, rule.bytesPerPixel), rule.factor);
        break;
    }
}

bool TefPixelConverter::ConvertImage(std::span<const std::uint8_t> stored, std::size_t width, std::size_t height,
                                     unsigned bytesPerPixel, int bitsInUse, std::span<std::int32_t> values)
{
    if ((bytesPerPixel != 2 && bytesPerPixel != 4) || !FitsImage(stored.size(), width, height, bytesPerPixel) ||
        !FitsImage(values.size(), width, height, 1))
        return false;
    const RowRule rule = RuleFor(width * height, bytesPerPixel, bitsInUse);
    for (std::size_t row = 0; row < height; ++row)
        ConvertRow(rule, stored.data() + row * width * bytesPerPixel, width, values.data() + (height - 1 - row) * width);
    return true;
}

bool TefPixelConverter::AppendImage(std::span<const std::uint8_t> stored, std::size_t width, std::size_t height,
                                    unsigned bytesPerPixel, int bitsInUse, std::vector<std::int32_t>& values)
{
    if ((bytesPerPixel != 2 && bytesPerPixel != 4) || !FitsImage(stored.size(), width, height, bytesPerPixel))
        return false;
    if (width == 0 || height == 0)
        return true;
    // No value is first made a zero and then written again: the common
    // words are appended as they are converted, the rest by way of a buffer
    // of one row, which stays in the cache.
    const RowRule rule = RuleFor(width * height, bytesPerPixel, bitsInUse);
    row_.resize(rule.kind == RowRule::Kind::Exact16 || rule.kind == RowRule::Kind::SpreadWords ? 0 : width);
    for (std::size_t row = height; row-- > 0;) {
        const std::uint8_t* in = stored.data() + row * width * bytesPerPixel;
        if (rule.kind == RowRule::Kind::Exact16) {
            AppendExactWords(in, width, values);
        } else if (rule.kind == RowRule::Kind::SpreadWords) {
            AppendSpreadWords(in, width, rule.factor, values);
        } else {
            ConvertRow(rule, in, width, row_.data());
            values.insert(values.end(), row_.begin(), row_.end());
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
