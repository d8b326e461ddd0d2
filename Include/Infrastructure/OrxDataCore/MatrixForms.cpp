#include "Infrastructure/OrxDataCore/MatrixForms.h"

#include "Platform/AlertInfo.h"

#include <boost/lexical_cast.hpp>

#include <array>
#include <bit>
#include <limits>
#include <type_traits>
#include <vector>

namespace Orx::DataCore::MatrixForms {

namespace {

[[noreturn]] void refuse(const std::string& why) {
    throw Orx::Core::LogicError("Matrix form: " + why, "Orx.DataCore.Matrix", ORX_CODE_CONTEXT);
}

template <class E>
std::uint32_t elementBits(E value) {
    if constexpr (std::is_same_v<E, float>) {
        return std::bit_cast<std::uint32_t>(value);
    } else {
        return static_cast<std::uint32_t>(value);
    }
}

template <class E>
E elementFromBits(std::uint32_t bits) {
    if constexpr (std::is_same_v<E, float>) {
        return std::bit_cast<float>(bits);
    } else {
        return static_cast<E>(bits);
    }
}

constexpr std::size_t kChunkElements = 16384;

}  // namespace

template <class M>
std::uint64_t WriteBinary(Orx::Core::DataOutputStream& stream, const M& m) {
    using E = typename M::value_type;
    static_assert(sizeof(E) == 4);
    constexpr auto limit = std::numeric_limits<std::uint32_t>::max();
    if (m.size1() > limit || m.size2() > limit) {
        refuse("a size beyond 4 bytes cannot be written");
    }
    stream.WriteUInt32(static_cast<std::uint32_t>(m.size1()));
    stream.WriteUInt32(static_cast<std::uint32_t>(m.size2()));
    const auto& storage = m.data();
    std::size_t count = storage.size();
    std::vector<std::uint8_t> chunk;
    chunk.reserve(std::min(count, kChunkElements) * 4);
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t bits = elementBits<E>(storage[i]);
        for (int b = 0; b < 4; ++b) {
            chunk.push_back(static_cast<std::uint8_t>(bits >> (8 * b)));
        }
        if (chunk.size() == kChunkElements * 4 || i + 1 == count) {
            stream.WriteBytes(chunk.data(), chunk.size());
            chunk.clear();
        }
    }
    return 8 + 4 * static_cast<std::uint64_t>(count);
}

template <class M>
std::uint64_t ReadBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream, M& m) {
    using E = typename M::value_type;
    if (numberOfBytes < 8) {
        refuse("fewer than 8 bytes cannot hold the sizes");
    }
    std::uint64_t size1 = stream.ReadUInt32();
    std::uint64_t size2 = stream.ReadUInt32();
    std::uint64_t available = std::min<std::uint64_t>(numberOfBytes - 8, stream.Remaining());
    std::uint64_t count = size1 * size2;  // both below 2^32: no overflow
    if (count > available / 4) {
        refuse("sizes " + std::to_string(size1) + " x " + std::to_string(size2) + " promise more elements than " +
               std::to_string(available) + " bytes hold");
    }
    if (m.size1() != size1 || m.size2() != size2) {
        m.resize(static_cast<std::size_t>(size1), static_cast<std::size_t>(size2), false);
    }
    auto& storage = m.data();
    std::array<std::uint8_t, kChunkElements * 4> chunk{};
    for (std::uint64_t done = 0; done < count;) {
        std::size_t n = static_cast<std::size_t>(std::min<std::uint64_t>(kChunkElements, count - done));
        stream.ReadBytes(chunk.data(), n * 4);
        for (std::size_t i = 0; i < n; ++i) {
            std::uint32_t bits = static_cast<std::uint32_t>(chunk[4 * i]) |
                                 static_cast<std::uint32_t>(chunk[4 * i + 1]) << 8 |
                                 static_cast<std::uint32_t>(chunk[4 * i + 2]) << 16 |
                                 static_cast<std::uint32_t>(chunk[4 * i + 3]) << 24;
            storage[static_cast<std::size_t>(done) + i] = elementFromBits<E>(bits);
        }
        done += n;
    }
    return 8 + 4 * count;
}

template <class M>
std::uint64_t BinarySize(const M& m) {
    return 8 + 4 * static_cast<std::uint64_t>(m.data().size());
}

template <class M>
std::string PlainText(const M& m) {
    const auto& storage = m.data();
    std::string text;
    for (std::size_t i = 0; i < storage.size(); ++i) {
        if (i > 0) {
            text.push_back(i % m.size1() == 0 ? '\n' : ' ');
        }
        text += boost::lexical_cast<std::string>(storage[i]);
    }
    return text;
}

template <class M>
void FromPlainText(const std::string& text, std::uint64_t size1, std::uint64_t size2, M& m) {
    using E = typename M::value_type;
    static const char* const space = " \t\r\n";
    std::vector<E> values;
    std::string::size_type pos = text.find_first_not_of(space);
    while (pos != std::string::npos) {
        auto end = text.find_first_of(space, pos);
        std::string token = text.substr(pos, end == std::string::npos ? std::string::npos : end - pos);
        try {
            values.push_back(boost::lexical_cast<E>(token));
        } catch (const boost::bad_lexical_cast&) {
            refuse("\"" + token + "\" is no number of the matrix's type");
        }
        pos = end == std::string::npos ? end : text.find_first_not_of(space, end);
    }
    // Sizes come from attributes and are checked against the numbers given
    // before anything of that size is allocated.
    if (size2 != 0 && size1 > std::numeric_limits<std::uint64_t>::max() / size2) {
        refuse("sizes overflow");
    }
    if (size1 * size2 != values.size()) {
        refuse("sizes " + std::to_string(size1) + " x " + std::to_string(size2) + " but " +
               std::to_string(values.size()) + " numbers");
    }
    m.resize(static_cast<std::size_t>(size1), static_cast<std::size_t>(size2), false);
    std::copy(values.begin(), values.end(), m.data().begin());
}

template std::uint64_t WriteBinary<IntMatrix>(Orx::Core::DataOutputStream&, const IntMatrix&);
template std::uint64_t WriteBinary<FloatMatrix>(Orx::Core::DataOutputStream&, const FloatMatrix&);
template std::uint64_t ReadBinary<IntMatrix>(std::uint64_t, Orx::Core::DataInputStream&, IntMatrix&);
template std::uint64_t ReadBinary<FloatMatrix>(std::uint64_t, Orx::Core::DataInputStream&, FloatMatrix&);
template std::uint64_t BinarySize<IntMatrix>(const IntMatrix&);
template std::uint64_t BinarySize<FloatMatrix>(const FloatMatrix&);
template std::string PlainText<IntMatrix>(const IntMatrix&);
template std::string PlainText<FloatMatrix>(const FloatMatrix&);
template void FromPlainText<IntMatrix>(const std::string&, std::uint64_t, std::uint64_t, IntMatrix&);
template void FromPlainText<FloatMatrix>(const std::string&, std::uint64_t, std::uint64_t, FloatMatrix&);

}  // namespace Orx::DataCore::MatrixForms
