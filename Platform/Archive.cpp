#include "Platform/Archive.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Orx::Core {

ArchiveException::ArchiveException(int cause) : cause_(cause) {}

const char* ArchiveException::what() const noexcept {
    switch (cause_) {
        case readOnly: return "Archive: write on a loading archive";
        case endOfFile: return "Archive: end of file";
        case writeOnly: return "Archive: read on a storing archive";
        case badClass: return "Archive: bad class";
        case badSchema: return "Archive: bad schema";
        default: return "Archive: failure";
    }
}

void MemoryArchiveStream::Seek(std::uint64_t position) { position_ = std::min<std::uint64_t>(position, bytes_.size()); }

std::size_t MemoryArchiveStream::Read(void* buffer, std::size_t size) {
    std::size_t n = static_cast<std::size_t>(std::min<std::uint64_t>(size, bytes_.size() - position_));
    if (n > 0) {
        std::memcpy(buffer, bytes_.data() + position_, n);
    }
    position_ += n;
    return n;
}

void MemoryArchiveStream::Write(const void* buffer, std::size_t size) {
    if (size == 0) {
        return;
    }
    std::size_t end = static_cast<std::size_t>(position_) + size;
    if (end > bytes_.size()) {
        bytes_.resize(end);
    }
    std::memcpy(bytes_.data() + position_, buffer, size);
    position_ = end;
}

Archive::Archive(ArchiveStream& stream, Mode mode) : stream_(stream), mode_(mode) {}

void Archive::requireLoading() const {
    if (mode_ != load) {
        throw ArchiveException(ArchiveException::writeOnly);
    }
}

void Archive::requireStoring() const {
    if (mode_ != store) {
        throw ArchiveException(ArchiveException::readOnly);
    }
}

std::uint64_t Archive::Remaining() const {
    std::uint64_t len = stream_.GetLength();
    std::uint64_t pos = stream_.GetPosition();
    return pos < len ? len - pos : 0;
}

void Archive::WriteBytes(const void* data, std::size_t size) {
    requireStoring();
    stream_.Write(data, size);
}

void Archive::ReadBytes(void* data, std::size_t size) {
    requireLoading();
    if (size > Remaining() || stream_.Read(data, size) != size) {
        throw ArchiveException(ArchiveException::endOfFile);
    }
}

namespace {
template <class T>
void putLE(Archive& ar, T v) {
    std::uint8_t b[sizeof(T)];
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        b[i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(v) >> (8 * i));
    }
    ar.WriteBytes(b, sizeof(T));
}
template <class T>
T getLE(Archive& ar) {
    std::uint8_t b[sizeof(T)];
    ar.ReadBytes(b, sizeof(T));
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        v |= static_cast<std::uint64_t>(b[i]) << (8 * i);
    }
    return static_cast<T>(v);
}
}  // namespace

void Archive::WriteU8(std::uint8_t v) { putLE(*this, v); }
void Archive::WriteU16(std::uint16_t v) { putLE(*this, v); }
void Archive::WriteU32(std::uint32_t v) { putLE(*this, v); }
void Archive::WriteU64(std::uint64_t v) { putLE(*this, v); }
void Archive::WriteF32(float v) {
    std::uint32_t bits;
    std::memcpy(&bits, &v, 4);
    WriteU32(bits);
}
void Archive::WriteF64(double v) {
    std::uint64_t bits;
    std::memcpy(&bits, &v, 8);
    WriteU64(bits);
}

std::uint8_t Archive::ReadU8() { return getLE<std::uint8_t>(*this); }
std::uint16_t Archive::ReadU16() { return getLE<std::uint16_t>(*this); }
std::uint32_t Archive::ReadU32() { return getLE<std::uint32_t>(*this); }
std::uint64_t Archive::ReadU64() { return getLE<std::uint64_t>(*this); }
float Archive::ReadF32() {
    std::uint32_t bits = ReadU32();
    float v;
    std::memcpy(&v, &bits, 4);
    return v;
}
double Archive::ReadF64() {
    std::uint64_t bits = ReadU64();
    double v;
    std::memcpy(&v, &bits, 8);
    return v;
}

void Archive::WriteFrameworkString(const std::string& text) {
    std::size_t n = text.size();
    if (n < 255) {
        WriteU8(static_cast<std::uint8_t>(n));
    } else if (n < 0xFFFE) {
        WriteU8(255);
        WriteU16(static_cast<std::uint16_t>(n));
    } else {
        WriteU8(255);
        WriteU16(0xFFFF);
        WriteU32(static_cast<std::uint32_t>(n));
    }
    WriteBytes(text.data(), n);
}

std::uint32_t Archive::readLength() {
    std::uint8_t b = ReadU8();
    if (b < 255) {
        return b;
    }
    std::uint16_t w = ReadU16();
    if (w < 0xFFFE) {
        return w;
    }
    if (w == 0xFFFF) {
        return ReadU32();
    }
    return 0xFFFFFFFEu;  // the wide announcement, resolved by the caller
}

std::string Archive::ReadFrameworkString() {
    std::uint32_t len = readLength();
    bool wide = false;
    if (len == 0xFFFFFFFEu) {
        wide = true;
        len = readLength();
        if (len == 0xFFFFFFFEu) {
            throw ArchiveException(ArchiveException::generic);
        }
    }
    if (wide) {
        // The length counts UTF-16 units; its byte count must fit a 32-bit buffer size.
        if (len > std::numeric_limits<std::uint32_t>::max() / 2) {
            throw ArchiveOverflow();
        }
        std::uint64_t bytes = static_cast<std::uint64_t>(len) * 2;
        if (bytes > Remaining()) {
            throw ArchiveException(ArchiveException::endOfFile);
        }
        std::string out;
        out.reserve(len);
        for (std::uint32_t i = 0; i < len; ++i) {
            std::uint16_t unit = ReadU16();
            out.push_back(unit <= 0xFF ? static_cast<char>(unit) : '?');
        }
        return out;
    }
    if (len > Remaining()) {
        throw ArchiveException(ArchiveException::endOfFile);
    }
    std::string out(len, '\0');
    ReadBytes(out.data(), len);
    return out;
}

void Archive::WriteClass(const RuntimeClass& runtimeClass) {
    WriteU16(0xFFFF);
    std::uint16_t schema = static_cast<std::uint16_t>(runtimeClass.schema & 0x7FFF);
    if (runtimeClass.versionable) {
        schema |= 0x8000;
    }
    WriteU16(schema);
    std::string name = runtimeClass.className;
    WriteU16(static_cast<std::uint16_t>(name.size()));
    WriteBytes(name.data(), name.size());
}

std::string Archive::ReadClass() {
    if (ReadU16() != 0xFFFF) {
        throw ArchiveException(ArchiveException::badClass);
    }
    std::uint16_t schema = ReadU16();
    std::uint16_t len = ReadU16();
    std::string name(len, '\0');
    ReadBytes(name.data(), len);
    schema_ = schema & 0x7FFF;
    return name;
}

}  // namespace Orx::Core
