#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Binary streams of typed values. Numbers travel little-endian, whatever the
// machine, so that a form written here reads back anywhere.
namespace Orx::Core {

class DataOutputStream {
public:
    using Sink = std::function<void(const void* data, std::size_t size)>;

    // Appends to a buffer that the caller owns and keeps alive.
    explicit DataOutputStream(std::vector<std::uint8_t>& buffer);
    // Hands every write to a sink, for forms too large to build in memory first.
    explicit DataOutputStream(Sink sink);

    void WriteBytes(const void* data, std::size_t size);
    void WriteUInt32(std::uint32_t value);
    void WriteInt32(std::int32_t value);
    void WriteUInt64(std::uint64_t value);
    void WriteFloat(float value);
    void WriteDouble(double value);
    // A 4-byte length, then the bytes; raises LogicError for a text longer
    // than a length can say.
    void WriteString(const std::string& text);

    std::uint64_t BytesWritten() const { return written_; }

private:
    Sink sink_;
    std::uint64_t written_ = 0;
};

// Reads from bytes that the caller owns; never past their end: a read that
// would go beyond raises LogicError and consumes nothing.
class DataInputStream {
public:
    DataInputStream(const void* data, std::size_t size);

    void ReadBytes(void* out, std::size_t size);
    std::uint32_t ReadUInt32();
    std::int32_t ReadInt32();
    std::uint64_t ReadUInt64();
    float ReadFloat();
    double ReadDouble();
    std::string ReadString();
    // The next size bytes as a text, without a length in front.
    std::string ReadText(std::size_t size);

    std::size_t Remaining() const { return size_ - position_; }
    std::size_t Position() const { return position_; }

private:
    const std::uint8_t* Take(std::size_t size);

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};

}  // namespace Orx::Core
