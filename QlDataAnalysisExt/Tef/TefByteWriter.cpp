#include "QlDataAnalysisExt/Tef/TefByteWriter.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace {

template <class Unsigned>
std::array<std::uint8_t, sizeof(Unsigned)> LittleEndian(Unsigned value)
{
    std::array<std::uint8_t, sizeof(Unsigned)> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
    return bytes;
}

}  // namespace

TefByteWriter::TefByteWriter(std::span<std::uint8_t> buffer, Overflow overflow)
    : buffer_(buffer), overflow_(overflow)
{
}

std::size_t TefByteWriter::Within(std::uint64_t offset, std::uint64_t count) const
{
    if (offset >= buffer_.size())
        return 0;
    return static_cast<std::size_t>(std::min<std::uint64_t>(count, buffer_.size() - offset));
}

void TefByteWriter::Advance(std::uint64_t count)
{
    // Saturates: a position at the far end only ever meets refused or
    // dropped writes.
    const std::uint64_t limit = std::numeric_limits<std::uint64_t>::max();
    position_ = count > limit - position_ ? limit : position_ + count;
}

void TefByteWriter::Put(std::uint64_t offset, const std::uint8_t* bytes, std::size_t count, bool whole)
{
    const std::size_t fits = Within(offset, count);
    if (fits < count && whole)
        throw std::runtime_error(TefFormat::Message::kBeyondNewFile);
    if (fits > 0)
        std::memcpy(buffer_.data() + offset, bytes, fits);
}

void TefByteWriter::Skip(std::uint64_t count)
{
    if (overflow_ == Overflow::Refuse && Within(position_, count) < count)
        throw std::runtime_error(TefFormat::Message::kBeyondNewFile);
    Advance(count);
}

void TefByteWriter::Word(std::uint16_t value)
{
    Bytes(LittleEndian(value));
}

void TefByteWriter::Dword(std::uint32_t value)
{
    Bytes(LittleEndian(value));
}

void TefByteWriter::Double(double value)
{
    Bytes(LittleEndian(std::bit_cast<std::uint64_t>(value)));
}

void TefByteWriter::Bytes(std::span<const std::uint8_t> bytes)
{
    Put(position_, bytes.data(), bytes.size(), overflow_ == Overflow::Refuse);
    Advance(bytes.size());
}

std::span<std::uint8_t> TefByteWriter::Room(std::uint64_t count)
{
    const std::size_t fits = Within(position_, count);
    if (fits < count && overflow_ == Overflow::Refuse)
        throw std::runtime_error(TefFormat::Message::kBeyondNewFile);
    const std::span<std::uint8_t> room =
        fits > 0 ? buffer_.subspan(static_cast<std::size_t>(position_), fits) : std::span<std::uint8_t>{};
    Advance(count);
    return room;
}

void TefByteWriter::PatchWord(std::uint64_t offset, std::uint16_t value)
{
    PatchBytes(offset, LittleEndian(value));
}

void TefByteWriter::PatchDword(std::uint64_t offset, std::uint32_t value)
{
    PatchBytes(offset, LittleEndian(value));
}

void TefByteWriter::PatchDouble(std::uint64_t offset, double value)
{
    PatchBytes(offset, LittleEndian(std::bit_cast<std::uint64_t>(value)));
}

void TefByteWriter::PatchBytes(std::uint64_t offset, std::span<const std::uint8_t> bytes)
{
    Put(offset, bytes.data(), bytes.size(), true);
}
