#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// A moving position over the buffer of a file being written, little-endian.
//
// Nothing is ever written outside the buffer. A write at the position either
// lands whole or, where it would reach past the end, raises
// std::runtime_error; or, for a stream that the file's stated size cuts
// short, lands as far as the buffer reaches, with the rest dropped and the
// position moved on all the same. A patch at a remembered offset always
// lands whole or raises, and leaves the position where it was.
class TefByteWriter {
public:
    enum class Overflow { Refuse, Cut };

    TefByteWriter(std::span<std::uint8_t> buffer, Overflow overflow);

    std::uint64_t Position() const { return position_; }
    std::uint64_t Size() const { return buffer_.size(); }
    // Any position may be taken; only a write there is tested.
    void Seek(std::uint64_t position) { position_ = position; }
    void Skip(std::uint64_t count);

    void Word(std::uint16_t value);
    void Dword(std::uint32_t value);
    void Double(double value);
    void Bytes(std::span<const std::uint8_t> bytes);
    // The bytes from the position on, count of them, to be filled by the
    // caller; the position moves past them. With Cut the span ends at the end
    // of the buffer, and may be empty.
    std::span<std::uint8_t> Room(std::uint64_t count);

    void PatchWord(std::uint64_t offset, std::uint16_t value);
    void PatchDword(std::uint64_t offset, std::uint32_t value);
    void PatchDouble(std::uint64_t offset, double value);
    void PatchBytes(std::uint64_t offset, std::span<const std::uint8_t> bytes);

private:
    // Puts bytes at offset; whole or raise when whole is true, else as many
    // as fit.
    void Put(std::uint64_t offset, const std::uint8_t* bytes, std::size_t count, bool whole);
    // How many of count bytes at offset lie within the buffer.
    std::size_t Within(std::uint64_t offset, std::uint64_t count) const;
    void Advance(std::uint64_t count);

    std::span<std::uint8_t> buffer_;
    Overflow overflow_;
    std::uint64_t position_ = 0;
};
