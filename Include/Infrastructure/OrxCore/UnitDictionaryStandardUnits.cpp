// The standard units: every unit text that the file families and the numbered
// unit vocabulary use. Text is single-byte Latin-1; 0xB5 is the micro sign,
// 0xB1 the plus-minus sign. A "^" or "`" at the end of a length or a voltage
// is its square or cube, as the instruments spell them; "um4"/"nm4" are fourth
// powers.

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include "Include/Infrastructure/OrxCore/UnitDimensions.h"

#include <numbers>

namespace Orx::Core {

namespace {

constexpr UnitDimension Dim(int m, int kg, int s, int a = 0, int k = 0, int rad = 0) {
    UnitDimension d{};
    d[static_cast<std::size_t>(UnitBase::Length)] = static_cast<std::int8_t>(m);
    d[static_cast<std::size_t>(UnitBase::Mass)] = static_cast<std::int8_t>(kg);
    d[static_cast<std::size_t>(UnitBase::Time)] = static_cast<std::int8_t>(s);
    d[static_cast<std::size_t>(UnitBase::Current)] = static_cast<std::int8_t>(a);
    d[static_cast<std::size_t>(UnitBase::Temperature)] = static_cast<std::int8_t>(k);
    d[static_cast<std::size_t>(UnitBase::Angle)] = static_cast<std::int8_t>(rad);
    return d;
}

constexpr UnitDimension Of(UnitBase base) {
    UnitDimension d{};
    d[static_cast<std::size_t>(base)] = 1;
    return d;
}

// Short names, so that the table reads like one.
constexpr auto Pow = DimensionPower;
constexpr auto Times = DimensionProduct;
constexpr auto Per = DimensionQuotient;

constexpr UnitDimension kNone{};
constexpr UnitDimension kLength = Dim(1, 0, 0);
constexpr UnitDimension kTime = Dim(0, 0, 1);
constexpr UnitDimension kCurrent = Dim(0, 0, 0, 1);
constexpr UnitDimension kTemperature = Dim(0, 0, 0, 0, 1);
constexpr UnitDimension kAngle = Dim(0, 0, 0, 0, 0, 1);
constexpr UnitDimension kForce = Dim(1, 1, -2);
constexpr UnitDimension kPressure = Dim(-1, 1, -2);
constexpr UnitDimension kEnergy = Dim(2, 1, -2);
constexpr UnitDimension kVoltage = Dim(2, 1, -3, -1);
constexpr UnitDimension kResistance = Per(kVoltage, kCurrent);
constexpr UnitDimension kCharge = Times(kCurrent, kTime);
constexpr UnitDimension kFrequency = Pow(kTime, -1);
constexpr UnitDimension kArea = Pow(kLength, 2);
constexpr UnitDimension kVolume = Pow(kLength, 3);
constexpr UnitDimension kLogArb = Of(UnitBase::LogArb);
constexpr UnitDimension kLogPressure = Of(UnitBase::LogPressure);
constexpr UnitDimension kLogCurrent = Of(UnitBase::LogCurrent);

constexpr double kElectronVolt = 1.602176634e-19;
constexpr double kDegree = std::numbers::pi / 180.0;

struct StandardUnit {
    const char* name;
    UnitDimension dimension;
    double factor;
    double offset = 0.0;
    const char* abbreviation = nullptr;  // null: the name
    const char* spelling = nullptr;      // a further spelling, if any
};

// The first unit of a dimension with factor 1 is that dimension's standard
// unit, so the standards come first.
const StandardUnit kStandardUnits[] = {
    {"Meters", kLength, 1.0, 0.0, "m", "Meter"},
    {"Volts", kVoltage, 1.0, 0.0, "V"},
    {"Pascal", kPressure, 1.0, 0.0, "Pa"},
    {"1", kNone, 1.0},
    {"N", kForce, 1.0},
    {"Hz", kFrequency, 1.0},
    {"s", kTime, 1.0},
    {"A", kCurrent, 1.0},
    {"Ohm", kResistance, 1.0},
    {"C", kCharge, 1.0},
    {"J", kEnergy, 1.0},
    {"K", kTemperature, 1.0},
    {"rad", kAngle, 1.0},
    {"N/m", Per(kForce, kLength), 1.0},

    // length
    {"mm", kLength, 1e-3},
    {"\xB5m", kLength, 1e-6, 0.0, nullptr, "um"},
    {"nm", kLength, 1e-9},
    {"pm", kLength, 1e-12},
    {"fm", kLength, 1e-15},
    {"ang", kLength, 1e-10, 0.0, nullptr, "Ang"},
    {"m\xB1", kLength, 1.0},
    {"nm\xB1", kLength, 1e-9},
    {"cm^", kArea, 1e-4},
    {"nm^", kArea, 1e-18},
    {"\xB5m^", kArea, 1e-12},
    {"ang^", kArea, 1e-20},
    {"/nm", Pow(kLength, -1), 1e9},
    {"/\xB5m", Pow(kLength, -1), 1e6},
    {"/ang", Pow(kLength, -1), 1e10},
    {"/nm^", Pow(kLength, -2), 1e18},
    {"/\xB5m^", Pow(kLength, -2), 1e12},
    {"/ang^", Pow(kLength, -2), 1e20},
    {"\xB5m`", kVolume, 1e-18},
    {"nm`", kVolume, 1e-27},
    {"ang`", kVolume, 1e-30},
    {"\xB5m`/n", kVolume, 1e-18},  // per count
    {"nm`/n", kVolume, 1e-27},
    {"um4", Pow(kLength, 4), 1e-24},
    {"nm4", Pow(kLength, 4), 1e-36},

    // velocity
    {"pm/s", Per(kLength, kTime), 1e-12},
    {"nm/s", Per(kLength, kTime), 1e-9},
    {"\xB5m/s", Per(kLength, kTime), 1e-6, 0.0, nullptr, "um/s"},
    {"nm/min", Per(kLength, kTime), 1e-9 / 60.0},

    // force, stiffness
    {"mN", kForce, 1e-3},
    {"\xB5N", kForce, 1e-6},
    {"nN", kForce, 1e-9},
    {"pN", kForce, 1e-12},
    {"nN/Arb", kForce, 1e-9},
    {"pN/Arb", kForce, 1e-12},
    {"\xB5N/Arb", kForce, 1e-6},
    {"nN/s", Per(kForce, kTime), 1e-9},
    {"nN/nm", Per(kForce, kLength), 1.0},
    {"pN/nm", Per(kForce, kLength), 1e-3},

    // current, charge
    {"mA", kCurrent, 1e-3},
    {"\xB5" "A", kCurrent, 1e-6},
    {"nA", kCurrent, 1e-9},
    {"pA", kCurrent, 1e-12},
    {"fA", kCurrent, 1e-15},
    {"\xB5" "A/s", Per(kCurrent, kTime), 1e-6},
    {"\xB5" "A/cm^", Per(kCurrent, kArea), 1e-2},
    {"nA/V", Per(kCurrent, kVoltage), 1e-9},
    {"pA/V", Per(kCurrent, kVoltage), 1e-12},
    {"mC", kCharge, 1e-3},
    {"mC/cm^", Per(kCharge, kArea), 10.0},

    // logarithms: log10 of the value in the unit named inside, so a prefix is
    // an offset against the base
    {"log", Of(UnitBase::Log), 1.0},
    {"dB", Of(UnitBase::Log), 0.1},
    {"log(Arb)", kLogArb, 1.0},
    {"mlog(Arb)", kLogArb, 1e-3},
    {"\xB5log(Arb)", kLogArb, 1e-6},
    {"log(Pa)", kLogPressure, 1.0},
    {"log(Pa)\xB1", kLogPressure, 1.0},
    {"log(Pa)/log(Arb)", Per(kLogPressure, kLogArb), 1.0},
    {"log(nA)", kLogCurrent, 1.0, -9.0},
    {"log(\xB5" "A)", kLogCurrent, 1.0, -6.0},
    {"log(\xB5" "A/cm^)", Of(UnitBase::LogCurrentDensity), 1.0, -2.0},
    {"log(Ohm)", Of(UnitBase::LogResistance), 1.0},
    {"nm/log(nA)", Per(kLength, kLogCurrent), 1e-9},

    // voltage
    {"mV", kVoltage, 1e-3},
    {"\xB5V", kVoltage, 1e-6},
    {"nV", kVoltage, 1e-9},
    {"V/lsb", kVoltage, 1.0},
    {"V/s", Per(kVoltage, kTime), 1.0},
    {"mV/s", Per(kVoltage, kTime), 1e-3},
    {"V/nm", Per(kVoltage, kLength), 1e9},
    {"V^", Pow(kVoltage, 2), 1.0},
    {"/V^", Pow(kVoltage, -2), 1.0},
    {"1/V", Pow(kVoltage, -1), 1.0},
    {"%/100V", Pow(kVoltage, -1), 1e-4},
    {"mV/nA", kResistance, 1e6},
    {"nm/V", Per(kLength, kVoltage), 1e-9},
    {"\xB5m/V", Per(kLength, kVoltage), 1e-6},
    {"pm/V", Per(kLength, kVoltage), 1e-12},
    {"nm\xB1/V", Per(kLength, kVoltage), 1e-9},
    {"nm/V^", Per(kLength, Pow(kVoltage, 2)), 1e-9},
    {"nm/V`", Per(kLength, Pow(kVoltage, 3)), 1e-9},
    {"pm/V`", Per(kLength, Pow(kVoltage, 3)), 1e-12},

    // resistance
    {"kOhm", kResistance, 1e3},
    {"MOhm", kResistance, 1e6},

    // time, frequency
    {"ms", kTime, 1e-3},
    {"\xB5s", kTime, 1e-6},
    {"ns", kTime, 1e-9},
    {"min", kTime, 60.0},
    {"\xB5s/lsb", kTime, 1e-6},
    {"kHz", kFrequency, 1e3},
    {"MHz", kFrequency, 1e6},
    {"mHz", kFrequency, 1e-3},
    {"Hz/s", Pow(kFrequency, 2), 1.0},
    {"KHz/s", Pow(kFrequency, 2), 1e3},
    {"Hz^", Pow(kFrequency, 2), 1.0},

    // angle, temperature
    {"mrad", kAngle, 1e-3},
    {"deg", kAngle, kDegree},
    {"deg/s", Per(kAngle, kTime), kDegree},
    {"deg C", kTemperature, 1.0, 273.15},

    // pressure
    {"kPa", kPressure, 1e3},
    {"MPa", kPressure, 1e6},
    {"GPa", kPressure, 1e9},
    {"Pa/Arb", kPressure, 1.0},
    {"MPa/Arb", kPressure, 1e6},
    {"GPa/Arb", kPressure, 1e9},
    {"Pa\xB1", kPressure, 1.0},
    {"MPa\xB1", kPressure, 1e6},
    {"GPa\xB1", kPressure, 1e9},

    // energy
    {"eV", kEnergy, kElectronVolt},
    {"eV\xB1", kEnergy, kElectronVolt},
    {"keV", kEnergy, kElectronVolt * 1e3},
    {"meV", kEnergy, kElectronVolt * 1e-3},
    {"\xB5" "eV", kEnergy, kElectronVolt * 1e-6},

    // numbers
    {"Count", kNone, 1.0},
    {"Arb", kNone, 1.0},
    {"mArb", kNone, 1e-3},
    {"\xB5" "Arb", kNone, 1e-6},
    {"V/V", kNone, 1.0},
    {"%", kNone, 1e-2},
};

std::shared_ptr<UnitDictionary> BuildStandardUnits() {
    auto dictionary = std::make_shared<UnitDictionary>();
    for (const StandardUnit& row : kStandardUnits) {
        auto unit = std::make_shared<const UnitDescriptor>(
            row.name, row.abbreviation != nullptr ? row.abbreviation : row.name, row.dimension, row.factor,
            row.offset);
        dictionary->Add(unit, {row.spelling});
    }
    return dictionary;
}

}  // namespace

std::shared_ptr<UnitDictionary> UnitDictionary::StandardUnits() {
    static const std::shared_ptr<UnitDictionary> standard = BuildStandardUnits();
    return standard;
}

}  // namespace Orx::Core
