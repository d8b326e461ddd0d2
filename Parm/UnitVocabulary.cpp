#include "Parm/UnitVocabulary.h"

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Orx::Core {

namespace {

// clang-format off
const std::array<const char*, kUnitCodeCount> kUnitTable = {
    "", "", "", "", "",
    "\xB5m", "nm", "pm", "fm", "ang", "m", "log", "nN", "pN", "nN/s",                        // 5
    "nN/Arb", "pN/Arb", "\xB5N/Arb", "fA", "pA", "nA", "\xB5" "A", "mA", "A", "log(\xB5" "A)", // 15
    "\xB5" "A/cm^", "log(\xB5" "A/cm^)", "mC", "mC/cm^", "V", "mV", "\xB5V", "V/V", "V/nm", "V/s", // 25
    "\xB5" "A/s", "mV/s", "\xBA", "\xBA/s", "rad", "s", "\xB5s", "pm/V", "nm/V", "nm/V^",    // 35
    "nm/V", "nm/V^", "nm/log(nA)", "V/lsb", "\xB5s/lsb", "nA/V", "pA/V", "Hz", "Hz/s", "KHz/s", // 45
    "Hz^", "mV/nA", "cm^", "1/V", "1", "nm/V`", "pm/V`", "MHz", "kHz", "mHz",                // 55
    "pm/s", "nm/s", "\xB5m/s", "nm/min", "nm^", "\xB5m^", "/nm", "/\xB5m", "/nm^", "/\xB5m^", // 65
    "/ang", "ang^", "/ang^", "V^", "/V^", "N/m", "\xB5m`", "nm`", "ang`", "%",                // 75
    "mm", "ms", "%/100V", "Ohm", "kOhm", "MOhm", "dB", "um4", "nm4", "\xBA C",               // 85
    "Arb", "log(Arb)", "Pa", "Pa/Arb", "log(Pa)", "log(nA)", "log(Pa)/log(Arb)", "eV", "N", "MPa", // 95
    "MPa/Arb", "GPa", "GPa/Arb", "\xB5" "Arb", "mArb", "\xB5" "eV", "meV", "\xB5log(Arb)", "mlog(Arb)", "Pa\xB1", // 105
    "log(Pa)\xB1", "eV\xB1", "MPa\xB1", "GPa\xB1", "nm\xB1", "m\xB1", "nm\xB1/V", "\xB5N", "log(Ohm)", "pN/nm", // 115
    "\xB5m`/n", "nm`/n", "keV",                                                              // 125
};
// clang-format on

struct Alias {
    const char* text;
    int code;
};

// Spellings that the files use, tried before the table. "log(nA)" names
// code 101 here, not its own row 100: the instruments' vocabulary has it so.
const Alias kAliases[] = {
    {"nm", 6},          {"\xB5m", 5},      {"um", 5},          {"~m", 5},      {"m", 10},
    {"Meter", 10},      {"V", 29},         {"deg", 37},        {"\xBA", 37},   {"\xB0", 37},
    {"um/s", 67},       {"nm/s", 66},      {"nm/V", 43},       {"pm/s", 65},   {"N/m", 80},
    {"Ang", 9},         {"Count", 59},     {"MPa", 104},       {"GPa", 106},   {"Pa\xB1", 114},
    {"MPa\xB1", 117},   {"GPa\xB1", 118},  {"log(Pa)\xB1", 115}, {"log(nA)", 101}, {"eV\xB1", 116},
    {"nm\xB1", 119},    {"m\xB1", 120},    {"nm\xB1/V", 121},  {"uN", 122},    {"\xB5N", 122},
    {"nN", 12},         {"log(Ohm)", 123},
};

// Codes whose text the dictionary knows under another spelling.
const Alias kDictionarySpellings[] = {
    {"Meter", 10}, {"nm", 6}, {"\xB5m", 5}, {"V", 29}, {"deg", 37},
};

// Prefixes as products, so that every factor carries the same rounding.
constexpr double kMicro = 1e-6;
constexpr double kMilli = 0.001;
constexpr double kNano = kMilli * kMicro;
constexpr double kPico = kMilli * kNano;
constexpr double kAngstrom = 0.1 * kNano;
constexpr double kKilo = 1000.0;
constexpr double kMega = 1e6;
constexpr double kGiga = kKilo * kMega;

struct BaseUnit {
    int code;
    const char* text;
    double factor;
};

const BaseUnit kBaseUnits[] = {
    {5, "m", kMicro},           {6, "m", kNano},           {9, "m", kAngstrom},       {10, "m", 1.0},
    {12, "N", kNano},           {13, "N", kPico},          {19, "A", kPico},          {20, "A", kNano},
    {21, "A", kMicro},          {22, "A", kMilli},         {29, "V", 1.0},            {30, "V", kMilli},
    {31, "V", kMicro},          {37, "\xB0", 1.0},         {52, "Hz", 1.0},           {59, "Count", 1.0},
    {62, "Hz", kMega},          {63, "Hz", kKilo},         {80, "N/m", 1.0},          {88, "Ohm", 1.0},
    {89, "Ohm", kKilo},         {90, "Ohm", kMega},        {95, "Arb", 1.0},          {96, "log(Arb)", 1.0},
    {97, "Pa", 1.0},            {99, "log(Pa)", 1.0},      {101, "log(nA)", 1.0},     {102, "eV", 1.0},
    {103, "N", 1.0},            {104, "Pa", kMega},        {106, "Pa", kGiga},        {108, "Arb", kMicro},
    {109, "Arb", kMilli},       {110, "eV", kMicro},       {111, "eV", kMilli},       {112, "log(Arb)", kMicro},
    {113, "log(Arb)", kMilli},  {114, "Pa\xB1", 1.0},      {115, "log(Pa)\xB1", 1.0}, {116, "eV\xB1", 1.0},
    {117, "Pa\xB1", kMega},     {118, "Pa\xB1", kGiga},    {119, "m\xB1", kNano},     {122, "N", kMicro},
    {123, "log(Ohm)", 1.0},     {127, "eV", kKilo},
};

constexpr int kFirstUsedCode = 5;

bool IsTableCode(int code) {
    return code >= 0 && code < kUnitCodeCount;
}

bool IsDefined(const std::string& text) {
    return UnitDictionary::StandardUnits()->IsUnitDefined(text);
}

// The degree sign in either Latin byte, spelt as the dictionary spells it.
std::string SpellDegreesAsDeg(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\xBA' || c == '\xB0') {
            result += "deg";
        } else {
            result += c;
        }
    }
    return result;
}

}  // namespace

const char* UnitTableText(int code) {
    return IsTableCode(code) ? kUnitTable[static_cast<std::size_t>(code)] : "";
}

int UnitCodeOfText(const std::string& text) {
    for (const Alias& alias : kAliases) {
        if (text == alias.text) {
            return alias.code;
        }
    }
    if (text.empty()) {
        return 0;
    }
    for (int code = kFirstUsedCode; code < kUnitCodeCount; ++code) {
        if (text == kUnitTable[static_cast<std::size_t>(code)]) {
            return code;
        }
    }
    return 0;
}

std::string TextOfUnitCode(int code) {
    for (const Alias& spelling : kDictionarySpellings) {
        if (spelling.code == code) {
            return spelling.text;
        }
    }
    std::string text = UnitTableText(code);
    if (IsDefined(text)) {
        return text;
    }
    const std::string respelt = text == "~m" ? std::string("\xB5m") : SpellDegreesAsDeg(text);
    return IsDefined(respelt) ? respelt : text;
}

double BaseUnitOfCode(int code, std::string& baseUnit) {
    if (code < kFirstUsedCode || code >= kUnitCodeCount) {
        return 1.0;
    }
    const auto found = std::find_if(std::begin(kBaseUnits), std::end(kBaseUnits),
                                    [code](const BaseUnit& row) { return row.code == code; });
    if (found == std::end(kBaseUnits)) {
        baseUnit = "UNIT";
        return 1.0;
    }
    baseUnit = found->text;
    return found->factor;
}

bool IsLengthUnit(const std::string& text) {
    switch (UnitCodeOfText(text)) {
        case 5: case 6: case 10: case 43: case 66: case 67: case 85:
            return true;
        default:
            return false;
    }
}

bool IsVoltageUnit(const std::string& text) {
    const int code = UnitCodeOfText(text);
    return code >= 29 && code <= 31;
}

}  // namespace Orx::Core
