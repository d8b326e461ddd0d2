#include "Platform/DataStreams.h"

#include "Platform/AlertInfo.h"

#include <bit>
#include <cstring>
#include <limits>

namespace Orx::Core {

namespace {

template <class U>
void storeLittleEndian(U value, std::uint8_t* out) {
    for (std::size_t i = 0; i < sizeof(U); ++i) {
        out[i] = static_cast<std::uint8_t>(value >> (8 * i));
    }
}

template <class U>
U loadLittleEndian(const std::uint8_t* in) {
    U value = 0;
    for (std::size_t i = 0; i < sizeof(U); ++i) {
        value |= static_cast<U>(static_cast<U>(in[i]) << (8 * i));
    }
    return value;
}

}  // namespace

DataOutputStream::DataOutputStream(std::vector<std::uint8_t>& buffer)
    : sink_([&buffer](const void* data, std::size_t size) {
          const auto* p = static_cast<const std::uint8_t*>(data);
          buffer.insert(buffer.end(), p, p + size);
      }) {}

DataOutputStream::DataOutputStream(Sink sink) : sink_(std::move(sink)) {}

void DataOutputStream::WriteBytes(const void* data, std::size_t size) {
    if (size == 0) {
        return;
    }
    sink_(data, size);
    written_ += size;
}

void DataOutputStream::WriteUInt32(std::uint32_t value) {
    std::uint8_t bytes[4];
    storeLittleEndian(value, bytes);
    WriteBytes(bytes, sizeof bytes);
}

void DataOutputStream::WriteInt32(std::int32_t value) { WriteUInt32(static_cast<std::uint32_t>(value)); }

void DataOutputStream::WriteUInt64(std::uint64_t value) {
    std::uint8_t bytes[8];
    storeLittleEndian(value, bytes);
    WriteBytes(bytes, sizeof bytes);
}

void DataOutputStream::WriteFloat(float value) { WriteUInt32(std::bit_cast<std::uint32_t>(value)); }

void DataOutputStream::WriteDouble(double value) { WriteUInt64(std::bit_cast<std::uint64_t>(value)); }

void DataOutputStream::WriteString(const std::string& text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw LogicError("A text of " + std::to_string(text.size()) + " bytes is too long for a data stream",
                         "Orx.Core.DataStream", ORX_CODE_CONTEXT);
    }
    WriteUInt32(static_cast<std::uint32_t>(text.size()));
    WriteBytes(text.data(), text.size());
}

DataInputStream::DataInputStream(const void* data, std::size_t size)
    : data_(static_cast<const std::uint8_t*>(data)), size_(data == nullptr ? 0 : size) {}

const std::uint8_t* DataInputStream::Take(std::size_t size) {
    if (size > Remaining()) {
        throw LogicError("Read of " + std::to_string(size) + " bytes beyond the end of a data stream (" +
                             std::to_string(Remaining()) + " left)",
                         "Orx.Core.DataStream", ORX_CODE_CONTEXT);
    }
    const std::uint8_t* p = data_ + position_;
    position_ += size;
    return p;
}

void DataInputStream::ReadBytes(void* out, std::size_t size) {
    const std::uint8_t* p = Take(size);
    if (size > 0) {
        std::memcpy(out, p, size);
    }
}

std::uint32_t DataInputStream::ReadUInt32() { return loadLittleEndian<std::uint32_t>(Take(4)); }

std::int32_t DataInputStream::ReadInt32() { return static_cast<std::int32_t>(ReadUInt32()); }

std::uint64_t DataInputStream::ReadUInt64() { return loadLittleEndian<std::uint64_t>(Take(8)); }

float DataInputStream::ReadFloat() { return std::bit_cast<float>(ReadUInt32()); }

double DataInputStream::ReadDouble() { return std::bit_cast<double>(ReadUInt64()); }

std::string DataInputStream::ReadString() {
    std::size_t start = position_;
    std::uint32_t length = ReadUInt32();
    if (length > Remaining()) {
        position_ = start;
        throw LogicError("A string of " + std::to_string(length) + " bytes runs beyond the end of a data stream",
                         "Orx.Core.DataStream", ORX_CODE_CONTEXT);
    }
    return ReadText(length);
}

std::string DataInputStream::ReadText(std::size_t size) {
    const std::uint8_t* p = Take(size);
    return std::string(reinterpret_cast<const char*>(p), size);
}

}  // namespace Orx::Core
