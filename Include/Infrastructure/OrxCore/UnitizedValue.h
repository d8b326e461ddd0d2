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
    virtual ~UnitDescriptor() = default;

    virtual std::shared_ptr<UnitDescriptor> MakeCopy() const;
    virtual const std::string& GetName() const { return name_; }
    virtual void SetName(const std::string& name) { name_ = name; }
    virtual const std::string& GetAbbreviation() const { return abbreviation_; }
    virtual void SetAbbreviation(const std::string& abbreviation) { abbreviation_ = abbreviation; }
    // Base units are the SI units of each dimension.
    virtual double ConvertToBaseUnits(double x) const;
    virtual double ConvertFromBaseUnits(double x) const;
    virtual bool IsUnitless() const;

    bool operator==(const UnitDescriptor& other) const;
    bool operator!=(const UnitDescriptor& other) const { return !(*this == other); }
    UnitDescriptor operator*(const UnitDescriptor& other) const;
    UnitDescriptor operator/(const UnitDescriptor& other) const;
    UnitDescriptor& operator*=(const UnitDescriptor& other);
    UnitDescriptor& operator/=(const UnitDescriptor& other);

    virtual bool IsDimensionallyEquivalent(const UnitDescriptor& other) const;
    virtual bool RequiresConversion(const UnitDescriptor& other) const;

    const UnitDimension& GetDimension() const { return dimension_; }
    double GetFactor() const { return factor_; }

private:
    std::string name_;
    std::string abbreviation_;
    UnitDimension dimension_{};
    double factor_ = 1.0;  // value in base units of one of this unit
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
    // The standard unit of the dimension of the named unit ("nm" gives "Meters");
    // null when the text names no unit.
    UnitDescriptorPtr LookupDimensionallyEquivalentUnit(const std::string& text) const;

    void Add(UnitDescriptorPtr unit, std::initializer_list<const char*> furtherSpellings = {});

    UnitDictionary();
    ~UnitDictionary();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

class UnitizedValueBase {
public:
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
    UnitizedValue(T value, const std::string& unitText);  // raises XUnitNotFound
    UnitizedValue(T value, UnitDescriptorPtr unit);
    virtual ~UnitizedValue() = default;
    UnitizedValue(const UnitizedValue&) = default;
    UnitizedValue& operator=(const UnitizedValue&) = default;

    T GetValue() const { return value_; }
    void SetValue(T value) { value_ = value; }
    const UnitDescriptorPtr& GetUnits() const { return unit_; }

    // Converts in place; raises XUnitNotFound or XNoUnitConversion.
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
