#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

// A moving position over a whole file in memory. Every read and jump is
// bounded by the buffer: one that would leave it raises std::runtime_error
// and leaves the position where it was.
class TefByteReader {
public:
    TefByteReader(const std::uint8_t* data, std::size_t size);

    std::size_t Position() const { return position_; }
    std::size_t Size() const { return size_; }
    std::size_t Remaining() const { return size_ - position_; }

    // Positions may be anywhere from 0 to the size, both included.
    void Seek(std::int64_t position);
    void Skip(std::int64_t count);

    std::uint16_t Word();
    std::uint32_t Dword();
    // Block lengths are signed.
    std::int32_t Length();
    double Double();
    // A text value of the given length, which ends at its first zero byte.
    std::string Text(std::size_t length);
    // Where the first byte of that value lies, from the position on.
    std::optional<std::size_t> Find(std::uint8_t value) const;
    // The next count bytes, passed over.
    const std::uint8_t* Take(std::size_t count);

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};
