#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The textual pieces of a container header: quoted byte strings and numbers
// in the one form that reads back to the same value.
namespace Orx::DataCore::ContainerText {

// Between double quotes; a backslash and a double quote are written as \\ and
// \", a byte below 0x20 and 0x7F as \xHH; every other byte, Latin-1 ones
// included, stands as it is.
std::string Quote(const std::string& bytes);

// A type name stands bare unless it is empty or holds a blank, a quote, a
// backslash or a control byte; then it is quoted.
std::string TypeToken(const std::string& typeName);

// The shortest decimal text that reads back to the same number; "nan",
// "inf" and "-inf" for the special values.
std::string FormatFloat(float value);
std::string FormatDouble(double value);

// Strict readers: the whole text must be the number, in range; no blanks,
// no sign "+", no hexadecimal.
std::optional<std::int32_t> ParseInt32(const std::string& text);
std::optional<std::uint32_t> ParseUInt32(const std::string& text);
std::optional<std::uint64_t> ParseUInt64(const std::string& text);
std::optional<float> ParseFloat(const std::string& text);
std::optional<double> ParseDouble(const std::string& text);

// The text without blanks and tabs at either end.
std::string TrimBlanks(const std::string& text);

}  // namespace Orx::DataCore::ContainerText
