#pragma once

// A replacement of the desktop framework's archive: a loading or storing view
// over a byte stream, with the framework's primitive forms (little-endian
// numbers and length-prefixed strings) and a class header that names the
// object's class and schema.

#include "Platform/FrameworkObject.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace Orx::Core {

class ArchiveException : public std::exception {
public:
    // The framework's causes that this system raises.
    enum Cause : int { none = 0, generic = 1, readOnly = 2, endOfFile = 3, writeOnly = 4, badClass = 6, badSchema = 7 };
    explicit ArchiveException(int cause);
    int GetCause() const { return cause_; }
    const char* what() const noexcept override;

private:
    int cause_;
};

// A string whose length overflows a wide buffer ends with this code.
class ArchiveOverflow : public std::exception {
public:
    static constexpr std::uint32_t kCode = 0x80070216u;
    const char* what() const noexcept override { return "Archive string length overflow (0x80070216)"; }
};

// The byte stream under an archive.
class ArchiveStream {
public:
    virtual ~ArchiveStream() = default;
    virtual std::uint64_t GetLength() const = 0;
    virtual std::uint64_t GetPosition() const = 0;
    virtual void Seek(std::uint64_t position) = 0;
    // Returns the bytes read, fewer at the end.
    virtual std::size_t Read(void* buffer, std::size_t size) = 0;
    virtual void Write(const void* buffer, std::size_t size) = 0;
};

class MemoryArchiveStream : public ArchiveStream {
public:
    MemoryArchiveStream() = default;
    explicit MemoryArchiveStream(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}
    std::uint64_t GetLength() const override { return bytes_.size(); }
    std::uint64_t GetPosition() const override { return position_; }
    void Seek(std::uint64_t position) override;
    std::size_t Read(void* buffer, std::size_t size) override;
    void Write(const void* buffer, std::size_t size) override;
    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

private:
    std::vector<std::uint8_t> bytes_;
    std::uint64_t position_ = 0;
};

class Archive {
public:
    enum Mode { load, store };
    Archive(ArchiveStream& stream, Mode mode);

    bool IsLoading() const { return mode_ == load; }
    bool IsStoring() const { return mode_ == store; }
    ArchiveStream& GetFile() { return stream_; }

    std::uint32_t GetObjectSchema() const { return schema_; }
    void SetObjectSchema(std::uint32_t schema) { schema_ = schema; }

    // Class header: WORD 0xFFFF, WORD schema (0x8000 marks a versionable
    // schema), WORD length of the class name, the name. The name thus starts
    // at byte 6.
    void WriteClass(const RuntimeClass& runtimeClass);
    // Reads a class header and takes its schema as the object schema; returns the class name.
    std::string ReadClass();

    void WriteU8(std::uint8_t v);
    void WriteU16(std::uint16_t v);
    void WriteU32(std::uint32_t v);
    void WriteI32(std::int32_t v) { WriteU32(static_cast<std::uint32_t>(v)); }
    void WriteU64(std::uint64_t v);
    void WriteF32(float v);
    void WriteF64(double v);
    void WriteBool(bool v) { WriteU8(v ? 1 : 0); }
    // The framework string: the length prefix, then the bytes (always narrow).
    void WriteFrameworkString(const std::string& text);
    void WriteBytes(const void* data, std::size_t size);

    std::uint8_t ReadU8();
    std::uint16_t ReadU16();
    std::uint32_t ReadU32();
    std::int32_t ReadI32() { return static_cast<std::int32_t>(ReadU32()); }
    std::uint64_t ReadU64();
    float ReadF32();
    double ReadF64();
    bool ReadBool() { return ReadU8() != 0; }
    // Reads a framework string; a UTF-16 one is narrowed to single bytes.
    std::string ReadFrameworkString();
    void ReadBytes(void* data, std::size_t size);

    // Bytes left before the end of the stream.
    std::uint64_t Remaining() const;

private:
    void requireLoading() const;
    void requireStoring() const;
    std::uint32_t readLength();

    ArchiveStream& stream_;
    Mode mode_;
    std::uint32_t schema_ = 0xFFFFFFFFu;
};

}  // namespace Orx::Core
