#include "Platform/DataCore/ContainerText.h"

#include "Infrastructure/OrxDataCore/HexDigits.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace Orx::DataCore::ContainerText {

namespace {

bool needsEscape(unsigned char c) { return c < 0x20 || c == 0x7F || c == '"' || c == '\\'; }

template <class T>
std::optional<T> parseWhole(const std::string& text) {
    if (text.empty()) {
        return std::nullopt;
    }
    T value{};
    const char* first = text.data();
    const char* last = first + text.size();
    std::from_chars_result result;
    if constexpr (std::is_floating_point_v<T>) {
        result = std::from_chars(first, last, value, std::chars_format::general);
    } else {
        result = std::from_chars(first, last, value, 10);
    }
    if (result.ec != std::errc() || result.ptr != last) {
        return std::nullopt;
    }
    return value;
}

template <class T>
std::string formatShortest(T value) {
    if (std::isnan(value)) {
        return std::signbit(value) ? "-nan" : "nan";
    }
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

}  // namespace

std::string Quote(const std::string& bytes) {
    std::string out;
    out.reserve(bytes.size() + 2);
    out.push_back('"');
    for (char ch : bytes) {
        auto c = static_cast<unsigned char>(ch);
        if (!needsEscape(c)) {
            out.push_back(ch);
        } else if (c == '"' || c == '\\') {
            out.push_back('\\');
            out.push_back(ch);
        } else {
            out += "\\x";
            out.push_back(HexDigits::Digit(c >> 4));
            out.push_back(HexDigits::Digit(c));
        }
    }
    out.push_back('"');
    return out;
}

std::string TypeToken(const std::string& typeName) {
    if (typeName.empty()) {
        return Quote(typeName);
    }
    for (char ch : typeName) {
        auto c = static_cast<unsigned char>(ch);
        if (c == ' ' || needsEscape(c)) {
            return Quote(typeName);
        }
    }
    return typeName;
}

std::string FormatFloat(float value) { return formatShortest(value); }

std::string FormatDouble(double value) { return formatShortest(value); }

std::optional<std::int32_t> ParseInt32(const std::string& text) { return parseWhole<std::int32_t>(text); }

std::optional<std::uint32_t> ParseUInt32(const std::string& text) { return parseWhole<std::uint32_t>(text); }

std::optional<std::uint64_t> ParseUInt64(const std::string& text) { return parseWhole<std::uint64_t>(text); }

std::optional<float> ParseFloat(const std::string& text) { return parseWhole<float>(text); }

std::optional<double> ParseDouble(const std::string& text) { return parseWhole<double>(text); }

std::string TrimBlanks(const std::string& text) {
    auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos) {
        return {};
    }
    auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

}  // namespace Orx::DataCore::ContainerText
