#pragma once

// The value strings of a Quillon file rewritten after a change of scale, so
// that what a save writes reads back as the values the source holds:
//   "V [Sens. Zsens] (1.024455e-07 V/LSB) 440.0000 V"   soft value behind ") ", hard value inside " (" ") "
//   "C [2:Z scale] 1.000000"                            a magnify behind "] "
//   "V 12.5 nm/V"                                       a sensitivity behind "V "
// Free functions in namespace QlScaleTexts. Each takes any bytes and never
// reads outside its text; a text without the place a rewrite needs is
// answered as it stands, unless a function says otherwise.

#include <string>
#include <string_view>

namespace QlScaleTexts {

// Sixteen significant digits with a decimal point always shown, so that a
// float written into a text reads back as the very same float.
std::string PrintedNumber(double value);
// Seventeen significant digits: a double that reads back as itself.
std::string ExactNumber(double value);
// A value as a person reads it: "%g" and, when it has one, a blank and the unit.
std::string DisplayedValue(double value, const std::string& unit);
// Two whole numbers as "%d %d" writes them: samples and lines, pixel ranges.
std::string PairText(long long first, long long second);

// Up to and including the first ") " stays, then the value, a blank and the
// unit behind the last blank of the text.
std::string WithSoftValue(std::string_view text, double value);
// The number between " (" and ") ", before its first blank, replaced by the value.
std::string WithHardValue(std::string_view text, double value);
// Up to and including the first "] " stays, then the magnify and one blank.
std::string WithMagnify(std::string_view text, double magnify);
// What stands before "V " stays, then "V ", the value, a blank and the unit,
// with "/V" behind it when the old unit had that tail. A text without "V "
// becomes the new sensitivity alone.
std::string WithSensitivity(std::string_view text, float value, const std::string& unit);
// Every digit behind the first ")" turned into 0: an offset of nothing in
// the form of the scale it belongs to.
std::string WithZeroedDigits(std::string_view text);
// An input offset text ("... ) 5.000 nm") with its number replaced where it
// no longer reads as the offset; a text without its own unit is read, and
// then written, in the channel's unit, as the reader of offsets does.
std::string WithInputOffset(std::string_view text, float offset, const std::string& channelUnit);

}  // namespace QlScaleTexts
