#pragma once

// Numbers with units. The dictionary (UnitDictionary.cpp) knows every unit text
// the file families use; a value shares its descriptor by reference count.

#include "Platform/AlertInfo.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace Orx::Core {

// Exponents of the base dimensions. Logarithmic quantities are kinds of their
// own, so they never convert into their linear counterparts.
enum class UnitBase : std::size_t {
    Length, Mass, Time, Current, Temperature, Angle,
    LogArb, LogPressure, LogCurrent, LogCurrentDensity, LogResistance, Log,
    Count_  // number of bases, not a base
};
using UnitDimension = std::array<std::int8_t, static_cast<std::size_t>(UnitBase::Count_)>;

class UnitDescriptor {
public:
    UnitDescriptor(std::string name, std::string abbreviation);
    UnitDescriptor(std::string name, std::string abbreviation, UnitDimension dimension, double factor);
    // For units whose zero is not the zero of their base (degrees Celsius,
    // logarithms of a prefixed unit): base value = x * factor + offset.
    UnitDescriptor(std::string name, std::string abbreviation, UnitDimension dimension, double factor,
                   double offset);
    virtual ~UnitDescriptor() = default;

    virtual std::shared_ptr<UnitDescriptor> MakeCopy() const;
    virtual const std::string& GetName() const { return name_; }
    virtual void SetName(const std::string& name) { name_ = name; }
    virtual const std::string& GetAbbreviation() const { return abbreviation_; }
    virtual void SetAbbreviation(const std::string& abbreviation) { abbreviation_ = abbreviation; }
    // Base units are the SI units of each dimension.
    virtual double ConvertToBaseUnits(double x) const;
    virtual double ConvertFromBaseUnits(double x) const;
    // No dimension, no scaling: "", "1", "Arb", "Count", "V/V"; "%" is not.
    virtual bool IsUnitless() const;

    // Equality is physical: same dimension, factor and offset, whatever the
    // spelling. Products and quotients compose the texts with "*" and "/" and
    // drop any offset.

    bool operator==(const UnitDescriptor& other) const;
    bool operator!=(const UnitDescriptor& other) const { return !(*this == other); }
    UnitDescriptor operator*(const UnitDescriptor& other) const;
    UnitDescriptor operator/(const UnitDescriptor& other) const;
    UnitDescriptor& operator*=(const UnitDescriptor& other);
    UnitDescriptor& operator/=(const UnitDescriptor& other);

    virtual bool IsDimensionallyEquivalent(const UnitDescriptor& other) const;
    // Only meaningful between dimensionally equivalent units.
    virtual bool RequiresConversion(const UnitDescriptor& other) const;

    const UnitDimension& GetDimension() const { return dimension_; }
    double GetFactor() const { return factor_; }
    double GetOffset() const { return offset_; }

private:
    std::string name_;
    std::string abbreviation_;
    UnitDimension dimension_{};
    double factor_ = 1.0;  // value in base units of one of this unit
    double offset_ = 0.0;
};

using UnitDescriptorPtr = std::shared_ptr<const UnitDescriptor>;

class UnitDictionary {
public:
    // The shared dictionary of standard units.
    static std::shared_ptr<UnitDictionary> StandardUnits();

    // Known by name, abbreviation or one of its further spellings.
    bool IsUnitDefined(const std::string& text) const;
    // Null when the text names no unit.
    UnitDescriptorPtr LookupUnit(const std::string& text) const;
    // The standard unit of the dimension of the named unit ("nm" gives "Meters"):
    // the first unit added with that dimension, factor 1 and no offset, or else
    // one named by SI base symbols ("m*s^-1"); null when the text names no unit.
    UnitDescriptorPtr LookupDimensionallyEquivalentUnit(const std::string& text) const;

    // A text already known keeps its first unit; empty texts are never known.
    void Add(UnitDescriptorPtr unit, std::initializer_list<const char*> furtherSpellings = {});

    UnitDictionary();
    ~UnitDictionary();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

class UnitizedValueBase {
public:
    // The dictionary set last, or the standard units when none was set.
    static std::shared_ptr<UnitDictionary> GetGlobalDictionary();
    static void SetGlobalDictionary(std::shared_ptr<UnitDictionary> dictionary);

protected:
    std::uint32_t baseWord_ = 0;
};

template <class T>
class UnitizedValue : public UnitizedValueBase {
public:
    // "%1% unit not found in the unit dictionary"
    class XUnitNotFound : public LogicError {
    public:
        XUnitNotFound(const std::string& unitText, CodeContext context);
    };
    // "Illegal unit conversion from "%1%" to "%2%""
    class XNoUnitConversion : public LogicError {
    public:
        XNoUnitConversion(const std::string& from, const std::string& to, CodeContext context);
    };

    UnitizedValue();
    explicit UnitizedValue(T value);
    // Raises XUnitNotFound for a text the global dictionary does not know; an
    // empty text makes a value without a unit, as the default does.
    UnitizedValue(T value, const std::string& unitText);
    // A null unit makes a value without a unit.
    UnitizedValue(T value, UnitDescriptorPtr unit);
    virtual ~UnitizedValue() = default;
    UnitizedValue(const UnitizedValue&) = default;
    UnitizedValue& operator=(const UnitizedValue&) = default;

    T GetValue() const { return value_; }
    void SetValue(T value) { value_ = value; }
    const UnitDescriptorPtr& GetUnits() const { return unit_; }

    // Converts in place; raises XUnitNotFound or XNoUnitConversion. The
    // value's own unit is looked up by its name, so a value without a unit
    // cannot be converted.
    void ConvertTo(const std::string& unitText);
    // A converted copy.
    UnitizedValue ConvertedTo(const std::string& unitText) const;

    static T convertUnits(T x, const UnitDescriptor& from, const UnitDescriptor& to);

private:
    T value_;
    UnitDescriptorPtr unit_;
};

extern template class UnitizedValue<double>;

}  // namespace Orx::Core
