#pragma once

// Walking built files in the tests of the ".tef" walker.

#include "QlDataAnalysisExt/Tef/TefWalker.h"
#include "tools/samplekit/TefBuilder.h"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace TefTest {

// A damage done to a built file, and the refusal it must meet.
struct Damage {
    const char* name;
    std::function<void(SampleKit::TefBuilder&)> apply;
    const char* message;
};

inline TefDocument Walk(const std::vector<std::uint8_t>& bytes)
{
    TefDocument document;
    TefWalker::Walk(bytes.data(), bytes.size(), document);
    return document;
}

inline TefDocument Walk(const SampleKit::TefBuilder& builder)
{
    return Walk(builder.Bytes());
}

// The text of the refusal, or "" when the file is walked to its end.
inline std::string RefusalOf(const std::vector<std::uint8_t>& bytes, TefDocument& document)
{
    try {
        TefWalker::Walk(bytes.data(), bytes.size(), document);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

inline std::string RefusalOf(const SampleKit::TefBuilder& builder)
{
    TefDocument document;
    return RefusalOf(builder.Bytes(), document);
}

// Pixels of a file, top row first, as the walker is to hold them.
inline std::vector<std::uint32_t> TopDown(const std::vector<std::uint32_t>& fileOrder, std::size_t width)
{
    std::vector<std::uint32_t> out;
    for (std::size_t end = fileOrder.size(); end >= width && width > 0; end -= width)
        out.insert(out.end(), fileOrder.begin() + static_cast<std::ptrdiff_t>(end - width),
                   fileOrder.begin() + static_cast<std::ptrdiff_t>(end));
    return out;
}

}  // namespace TefTest
