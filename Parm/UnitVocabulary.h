#pragma once

// The numbered unit vocabulary of parameters and the older file families: a
// unit code from 0 to 127 indexes a fixed table of unit texts (single-byte
// Latin-1: 0xB5 micro, 0xBA degree, 0xB1 plus-minus). Codes 0 to 4 are empty.
// Free functions in namespace Orx::Core, beside the named units they bridge to.

#include <string>

namespace Orx::Core {

constexpr int kUnitCodeCount = 128;

// The table's own text of a code; "" for codes 0 to 4 and outside the table.
const char* UnitTableText(int code);

// The code of a unit text, or 0 when it is unknown. Spellings of the files
// come first ("nm", "um", "~m", "deg", the degree bytes, ...); then the table,
// the lowest code of a repeated text winning.
int UnitCodeOfText(const std::string& text);

// The text of a code as the unit dictionary knows it: "Meter", "deg" and the
// micron spelled with 0xB5, and degree bytes inside a text spelt "deg". A
// text the dictionary does not know stays as the table has it; "" outside.
std::string TextOfUnitCode(int code);

// The factor that turns a value of the code into its base unit, whose text
// goes to baseUnit ("UNIT" for codes without one). Outside 5 to 127 the factor
// is 1 and baseUnit is left as it was.
double BaseUnitOfCode(int code, std::string& baseUnit);

// Codes 5, 6, 10, 43, 66, 67, 85.
bool IsLengthUnit(const std::string& text);
// Codes 29, 30, 31: "V", "mV", "\xB5V".
bool IsVoltageUnit(const std::string& text);

}  // namespace Orx::Core
