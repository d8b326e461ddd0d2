#include "QlDataAnalysisExt/Tef/TefByteReader.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace {

// Small reads (heads, records, texts) are fetched a window of this size at
// a time; larger ones exactly as large as they are.
constexpr std::size_t kWindowBytes = 64 * 1024;

[[noreturn]] void RefuseEnd()
{
    throw std::runtime_error(TefFormat::Message::kUnexpectedEnd);
}

}  // namespace

TefByteReader::TefByteReader(const std::uint8_t* data, std::size_t size)
    : window_(data), windowSize_(data ? size : 0), size_(data ? size : 0)
{
}

TefByteReader::TefByteReader(std::size_t size, Fetch fetch)
    : window_(nullptr), windowSize_(0), size_(size), fetch_(std::move(fetch))
{
}

const std::uint8_t* TefByteReader::Window(std::size_t count)
{
    if (position_ >= windowStart_ && count <= windowSize_ - std::min(windowSize_, position_ - windowStart_))
        return window_ + (position_ - windowStart_);
    const std::size_t n = std::max(count, std::min(kWindowBytes, Remaining()));
    if (fetched_.size() < n)
        fetched_.resize(n);
    // A failed fetch leaves no window behind.
    window_ = nullptr;
    windowSize_ = 0;
    fetch_(position_, fetched_.data(), n);
    window_ = fetched_.data();
    windowStart_ = position_;
    windowSize_ = n;
    return window_;
}

void TefByteReader::Seek(std::int64_t position)
{
    if (position < 0 || static_cast<std::uint64_t>(position) > size_)
        RefuseEnd();
    position_ = static_cast<std::size_t>(position);
}

void TefByteReader::Skip(std::int64_t count)
{
    // Both terms are far from the ends of 64 bits: a size of memory and a
    // count that came from at most 32 bits of a file.
    Seek(static_cast<std::int64_t>(position_) + count);
}

const std::uint8_t* TefByteReader::Take(std::size_t count)
{
    if (count > Remaining())
        RefuseEnd();
    const std::uint8_t* at = count ? Window(count) : nullptr;
    position_ += count;
    return at;
}

std::optional<std::size_t> TefByteReader::Find(std::uint8_t value)
{
    for (std::size_t from = position_; from < size_;) {
        const std::size_t kept = position_;
        position_ = from;
        const std::size_t n = std::min(kWindowBytes, size_ - from);
        const std::uint8_t* bytes = Window(n);
        position_ = kept;
        if (const void* found = std::memchr(bytes, value, n))
            return from + static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - bytes);
        from += n;
    }
    return std::nullopt;
}

std::uint16_t TefByteReader::Word()
{
    const std::uint8_t* at = Take(2);
    return static_cast<std::uint16_t>(at[0] | (at[1] << 8));
}

std::uint32_t TefByteReader::Dword()
{
    const std::uint8_t* at = Take(4);
    return static_cast<std::uint32_t>(at[0]) | (static_cast<std::uint32_t>(at[1]) << 8) |
           (static_cast<std::uint32_t>(at[2]) << 16) | (static_cast<std::uint32_t>(at[3]) << 24);
}

std::int32_t TefByteReader::Length()
{
    return static_cast<std::int32_t>(Dword());
}

double TefByteReader::Double()
{
    const std::uint8_t* at = Take(8);
    std::uint64_t bits = 0;
    for (int i = 7; i >= 0; --i)
        bits = (bits << 8) | at[i];
    return std::bit_cast<double>(bits);
}

std::string TefByteReader::Text(std::size_t length)
{
    if (length == 0)
        return {};
    const std::uint8_t* at = Take(length);
    const void* zero = std::memchr(at, 0, length);
    const std::size_t kept = zero ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(zero) - at) : length;
    return std::string(reinterpret_cast<const char*>(at), kept);
}
