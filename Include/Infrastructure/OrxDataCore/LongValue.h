#pragma once

#include <cstdint>
#include <istream>
#include <ostream>

namespace Orx::DataCore {

// The "long" of the file families is 32 bits wide on every platform, unlike
// the C++ long of this one; a type of its own keeps the two encodings "int"
// and "long" apart.
struct LongValue {
    std::int32_t value = 0;

    friend bool operator==(const LongValue&, const LongValue&) = default;
    friend std::ostream& operator<<(std::ostream& out, const LongValue& v) { return out << v.value; }
    friend std::istream& operator>>(std::istream& in, LongValue& v) { return in >> v.value; }
};

}  // namespace Orx::DataCore
