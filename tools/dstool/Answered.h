#pragma once

#include <optional>

namespace Dstool {

// The value that a reader of the library writes, when it answers 1:
//   Answered<int>([](int* n) { return DataSourceDllGetForcesPerLine(n); })
template <class T, class Reader>
std::optional<T> Answered(Reader reader)
{
    T value{};
    if (reader(&value) == 1)
        return value;
    return std::nullopt;
}

// The same of a reader that takes a channel first.
template <class T>
std::optional<T> OfChannel(int (*reader)(int, T*), int channel)
{
    return Answered<T>([reader, channel](T* v) { return reader(channel, v); });
}

}  // namespace Dstool
