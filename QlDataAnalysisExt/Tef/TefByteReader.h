#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// A moving position over a whole file. Every read and jump is bounded by the
// file: one that would leave it raises std::runtime_error and leaves the
// position where it was.
//
// The file is either held in memory as a whole, or read a window at a time
// through a fetch function, so that the file's bytes never need to be in
// memory all at once beside what is made of them.
class TefByteReader {
public:
    // Reads exactly size bytes at offset into buffer, or raises.
    using Fetch = std::function<void(std::uint64_t offset, void* buffer, std::size_t size)>;

    TefByteReader(const std::uint8_t* data, std::size_t size);
    TefByteReader(std::size_t size, Fetch fetch);

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
    std::optional<std::size_t> Find(std::uint8_t value);
    // The next count bytes, passed over. They stay readable until the next
    // read of the reader.
    const std::uint8_t* Take(std::size_t count);

private:
    // The bytes from the position on, at least count of them (count is
    // within the file).
    const std::uint8_t* Window(std::size_t count);

    const std::uint8_t* window_;
    std::size_t windowStart_ = 0;  // file offset of window_[0]
    std::size_t windowSize_;
    std::size_t size_;
    std::size_t position_ = 0;
    Fetch fetch_;
    std::vector<std::uint8_t> fetched_;
};
