#include "QlDataAnalysisExt/Tef/TefByteReader.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <bit>
#include <cstring>
#include <stdexcept>

namespace {

[[noreturn]] void RefuseEnd()
{
    throw std::runtime_error(TefFormat::Message::kUnexpectedEnd);
}

}  // namespace

TefByteReader::TefByteReader(const std::uint8_t* data, std::size_t size)
    : data_(data), size_(data ? size : 0)
{
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
    const std::uint8_t* at = data_ + position_;
    position_ += count;
    return at;
}

std::optional<std::size_t> TefByteReader::Find(std::uint8_t value) const
{
    if (Remaining() == 0)
        return std::nullopt;
    const void* found = std::memchr(data_ + position_, value, Remaining());
    if (!found)
        return std::nullopt;
    return static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - data_);
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
    const std::uint8_t* at = Take(length);
    const void* zero = length ? std::memchr(at, 0, length) : nullptr;
    const std::size_t kept = zero ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(zero) - at) : length;
    return std::string(reinterpret_cast<const char*>(at), kept);
}
