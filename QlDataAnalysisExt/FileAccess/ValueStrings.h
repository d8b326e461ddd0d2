#pragma once

// The formatted value strings of the Quillon file family: one text carries a
// parameter's number, scale and units, such as
//   "V [Sens. Zsens] (0.006713765 V/LSB) 440.0000 V"   a scaled value
//   "V 12.5 nm/V"                                       a sensitivity
//   "S [Height] \"Height\""                             a text value
//   "1000 1000 ~m"                                      a scan size
// Free functions in namespace QlValueStrings. Every parser takes any bytes,
// never throws and never reads outside its text: what it cannot read leaves
// its initial value. Units go through NormalizeUnit, so a unit the standard
// dictionary does not know makes a value without a unit.

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace QlValueStrings {

using Value = Orx::Core::UnitizedValue<double>;

// The coefficients and order of a "Plane fit" text.
struct PlaneFit {
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    std::uint32_t order = 0;
};

// What lies between the first open and the first close after it; "" when
// text, open or close is empty or either is missing.
std::string Between(std::string_view text, std::string_view open, std::string_view close);
// What follows the last delimiter; "" when there is none.
std::string AfterLast(std::string_view text, std::string_view delimiter);
// What precedes the first delimiter; "" when there is none.
std::string BeforeFirst(std::string_view text, std::string_view delimiter);
// What follows the first delimiter; "" when there is none.
std::string AfterFirst(std::string_view text, std::string_view delimiter);

// A number read from the start of the text by a C-locale stream, in decimal,
// or in hexadecimal when the text holds "0x" anywhere. A text that does not
// read leaves target as it was and answers false.
bool ReadNumber(std::string_view text, double& target);
bool ReadNumber(std::string_view text, float& target);
bool ReadNumber(std::string_view text, std::int32_t& target);

// Modes of ParseSoftValue: a scaled value's soft part follows ") "; a
// sensitivity (the "@Sens." keys) follows "V ".
constexpr int kScaledValue = 0;
constexpr int kSensitivity = 1;

// The number before the last word, in the unit of the last word.
Value ParseSoftValue(std::string_view text, int mode);
// ParseSoftValue's number of a scaled value alone; 1.0 when it does not read.
float ParseSoftFloat(std::string_view text);
// The number and unit inside the parentheses.
Value ParseHardValue(std::string_view text);
// Soft over hard number; the soft number alone where the hard one is 0.
float ParseRatio(std::string_view text);
// A number (read as by "%f") and the unit of the last word; 0 when unread.
Value ParsePlainValue(std::string_view text);
// The name inside the square brackets.
std::string ParseBracketName(std::string_view text);
// The text inside the first pair of double quotes, or the whole text.
std::string ParseQuotedText(std::string_view text);
// The number after "V " of a sensitivity; 1.0 when it does not read.
float ParseSensValue(std::string_view text);
// The unit over which a sensitivity is given ("nm" of "V 12.5 nm/V").
std::string ParseSensUnit(std::string_view text);
// The number after "] "; 1.0 when it does not read or is not above 0.
float ParseMagnify(std::string_view text);
// "w:h" gives w; a lone number n gives 2 to the n ("1" gives 2, "" gives 1).
float ParseAspectRatio(std::string_view text);
// The first integer in the unit of the last word; the height is not read.
Value ParseScanSize(std::string_view text);
// The pieces of a text between blanks, empty pieces dropped.
std::vector<std::string_view> BlankSeparatedPieces(std::string_view text);
// Three coefficients and an order from blank-separated pieces; all 0 unless
// at least three pieces stand there.
PlaneFit ParsePlaneFit(std::string_view text);

// A unit spelling of the files as the standard dictionary names it: known
// texts stand, "~m" and "~A" take the micro sign, a lone degree byte (0xBA or
// 0xB0) becomes "deg", "Pa" becomes "Pascal", anything else becomes "".
std::string NormalizeUnit(std::string_view unit);

// 2 for a force image list, 3 for an image list with a "#", 1 for another
// image list, 0 for anything else.
int ClassifyPlistName(std::string_view name);
bool IsImageListName(std::string_view name);

}  // namespace QlValueStrings
