// The 20-byte binary form of a parameter: five little-endian u32 words.

#include "Parm/parm.h"

namespace {

void PutWord(std::vector<std::uint8_t>& out, std::uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) {
        out.push_back(static_cast<std::uint8_t>(word >> shift));
    }
}

std::uint32_t WordAt(std::span<const std::uint8_t> bytes, std::size_t index) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        word |= static_cast<std::uint32_t>(bytes[index * 4 + i]) << (8 * i);
    }
    return word;
}

}  // namespace

void parm::PackBinary(std::vector<std::uint8_t>& cursor) const {
    PutWord(cursor, GetId());
    PutWord(cursor, isSet);
    PutWord(cursor, written);
    PutWord(cursor, link != nullptr ? isLinked : 0);
    PutWord(cursor, packed);
}

bool parm::UnpackBinary(std::span<const std::uint8_t>& cursor) {
    if (cursor.size() < kBinarySize) {
        return false;
    }
    id = WordAt(cursor, 0);
    isSet = WordAt(cursor, 1) != 0 ? 1 : 0;
    written = WordAt(cursor, 2) != 0 ? 1 : 0;
    isLinked = WordAt(cursor, 3) != 0 ? 1 : 0;
    packed = WordAt(cursor, 4) != 0 ? 1 : 0;
    cursor = cursor.subspan(kBinarySize);
    return true;
}
