#pragma once

// The value texts of the Harlen file family: numbers with a unit behind a
// blank ("45.5 nm", "1.0 um/s", "12.5 nm/V"), label lists and dates. Free
// functions in namespace HarlenValueTexts; each takes any bytes, never throws
// and never reads outside its text.

#include <string>
#include <string_view>
#include <vector>

#include "QlDataAnalysisExt/Core/OLTypes.h"

namespace HarlenValueTexts {

// The part of a text before the first delimiter; the whole text when the
// delimiter is not in it.
std::string TextBefore(std::string_view text, std::string_view delimiter);
// The part of a text behind the first delimiter; "" when it is not in it.
std::string TextBehind(std::string_view text, std::string_view delimiter);

// A number from the start of a text into target, which keeps its value when
// nothing reads. A text that holds "0x" anywhere is read as a hexadecimal
// integer.
bool ReadNumber(std::string_view text, double& target);
// ReadNumber from 0.
double NumberOf(std::string_view text);

// The number before the first blank; 1.0 for an empty text, for one without
// a blank at position 1 or later, and for one that does not read.
double LeadingNumber(std::string_view text);

// A ramp rate such as "1.0 um/s": the number, and of the unit only what
// stands before "/". A length is taken in "nm" and then per 12.5 nm/V, so the
// result is in volts per second; any other unit leaves the number as it is.
double RateValue(std::string_view text);

// The parts of a text between commas, empty ones included.
std::vector<std::string> SplitAtCommas(std::string_view text);

// The broken-down time of a date text "Mon/dd/yyyy hh:mm:ss AM". The month
// is always 12: the instrument's software never found its month names, and
// readers of these files have come to rely on that.
OLDateTime ParseDateTime(const std::string& text);

// The name of the standard unit of a unit's kind ("nm" gives "Meters"); the
// text itself when it names no unit.
std::string StandardUnitName(const std::string& unit);

}  // namespace HarlenValueTexts
