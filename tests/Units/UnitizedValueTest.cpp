#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <gtest/gtest.h>

#include <string>

using Orx::Core::LogicError;
using Orx::Core::UnitDescriptor;
using Orx::Core::UnitDictionary;
using Value = Orx::Core::UnitizedValue<double>;

namespace {

// The message and category of the alert that fn raises as E.
template <class E, class Fn>
std::pair<std::string, std::string> AlertOf(Fn fn) {
    try {
        fn();
    } catch (const E& e) {
        return {e.GetMessage(), e.GetCategory()};
    }
    return {"<nothing raised>", ""};
}

}  // namespace

TEST(UnitizedValueTest, LengthsConvertDownToMeters) {
    Value v(1500.0, "nm");
    v.ConvertTo("\xB5m");
    EXPECT_DOUBLE_EQ(v.GetValue(), 1.5);
    EXPECT_EQ(v.GetUnits()->GetName(), "\xB5m");
    v.ConvertTo("m");
    EXPECT_DOUBLE_EQ(v.GetValue(), 1.5e-6);
    EXPECT_EQ(v.GetUnits()->GetName(), "Meters");
    v.ConvertTo("um");
    EXPECT_DOUBLE_EQ(v.GetValue(), 1.5);
}

TEST(UnitizedValueTest, PrefixedUnitsConvertToTheirWordNamedUnit) {
    EXPECT_DOUBLE_EQ(Value(250.0, "mV").ConvertedTo("Volts").GetValue(), 0.25);
    EXPECT_DOUBLE_EQ(Value(2.5, "kHz").ConvertedTo("Hz").GetValue(), 2500.0);
    const Value modulus = Value(3.0, "GPa").ConvertedTo("Pa");
    EXPECT_DOUBLE_EQ(modulus.GetValue(), 3e9);
    EXPECT_EQ(modulus.GetUnits()->GetName(), "Pascal");
    EXPECT_DOUBLE_EQ(Value(0.5, "Volts").ConvertedTo("mV").GetValue(), 500.0);
}

TEST(UnitizedValueTest, ConvertedToLeavesTheOriginal) {
    const Value v(1.0, "nm");
    const Value w = v.ConvertedTo("pm");
    EXPECT_DOUBLE_EQ(w.GetValue(), 1000.0);
    EXPECT_DOUBLE_EQ(v.GetValue(), 1.0);
    EXPECT_EQ(v.GetUnits()->GetName(), "nm");
}

TEST(UnitizedValueTest, OffsetUnitsConvertThroughTheirZero) {
    EXPECT_DOUBLE_EQ(Value(25.0, "deg C").ConvertedTo("K").GetValue(), 298.15);
    EXPECT_DOUBLE_EQ(Value(0.0, "log(nA)").ConvertedTo("log(\xB5" "A)").GetValue(), -3.0);
    EXPECT_DOUBLE_EQ(Value(180.0, "deg").ConvertedTo("rad").GetValue(), 3.14159265358979323846);
}

TEST(UnitizedValueTest, SameScaleNeedsNoArithmetic) {
    const double x = 0.1 + 0.2;
    EXPECT_EQ(Value(x, "Hz/s").ConvertedTo("Hz^").GetValue(), x);
    EXPECT_EQ(Value(x, "Ang").ConvertedTo("ang").GetValue(), x);
}

TEST(UnitizedValueTest, ConversionAcrossDimensionsIsRefused) {
    Value v(2.0, "nm");
    const auto alert = AlertOf<Value::XNoUnitConversion>([&] { v.ConvertTo("V"); });
    EXPECT_EQ(alert.first, "Illegal unit conversion from \"nm\" to \"Volts\"");
    EXPECT_EQ(alert.second, "Orx.Core.UnitizedValue");
    EXPECT_DOUBLE_EQ(v.GetValue(), 2.0);
    EXPECT_EQ(v.GetUnits()->GetName(), "nm");
    EXPECT_THROW(Value(1.0, "log(nA)").ConvertTo("nA"), LogicError);
}

TEST(UnitizedValueTest, UnknownUnitsAreRefusedByName) {
    auto alert = AlertOf<Value::XUnitNotFound>([] { Value(1.0, "KHz"); });
    EXPECT_EQ(alert.first, "KHz unit not found in the unit dictionary");
    EXPECT_EQ(alert.second, "Orx.Core.UnitizedValue");

    Value v(1.0, "nm");
    alert = AlertOf<Value::XUnitNotFound>([&] { v.ConvertTo("~m"); });
    EXPECT_EQ(alert.first, "~m unit not found in the unit dictionary");
    EXPECT_EQ(v.GetUnits()->GetName(), "nm");

    // A percent sign in the text is data, not format.
    alert = AlertOf<Value::XUnitNotFound>([] { Value(1.0, "%1% %s"); });
    EXPECT_EQ(alert.first, "%1% %s unit not found in the unit dictionary");
}

TEST(UnitizedValueTest, ValueWithoutUnitCannotBeConverted) {
    Value v(4.0);
    const auto alert = AlertOf<Value::XUnitNotFound>([&] { v.ConvertTo("nm"); });
    EXPECT_EQ(alert.first, " unit not found in the unit dictionary");
    EXPECT_DOUBLE_EQ(v.GetValue(), 4.0);
}

TEST(UnitizedValueTest, ValuesWithoutUnitShareOneDescriptor) {
    const Value a;
    const Value b(3.0);
    const Value c(5.0, "");
    const Value d(6.0, Orx::Core::UnitDescriptorPtr());
    EXPECT_EQ(a.GetValue(), 0.0);
    EXPECT_EQ(a.GetUnits()->GetName(), "");
    EXPECT_EQ(a.GetUnits()->GetAbbreviation(), "");
    EXPECT_TRUE(a.GetUnits()->IsUnitless());
    EXPECT_EQ(a.GetUnits().get(), b.GetUnits().get());
    EXPECT_EQ(a.GetUnits().get(), c.GetUnits().get());
    EXPECT_EQ(a.GetUnits().get(), d.GetUnits().get());
}

TEST(UnitizedValueTest, StaticConversionTakesAnyDescriptors) {
    const UnitDescriptor inch("inch", "in", Orx::Core::UnitDimension{1}, 0.0254);
    const auto& cm = *UnitDictionary::StandardUnits()->LookupUnit("mm");
    EXPECT_DOUBLE_EQ(Value::convertUnits(2.0, inch, cm), 50.8);
}

TEST(UnitizedValueTest, GlobalDictionaryCanBeReplaced) {
    auto custom = std::make_shared<UnitDictionary>();
    custom->Add(std::make_shared<const UnitDescriptor>("furlong", "fur", Orx::Core::UnitDimension{1}, 201.168));
    custom->Add(std::make_shared<const UnitDescriptor>("chain", "ch", Orx::Core::UnitDimension{1}, 20.1168));
    Value::SetGlobalDictionary(custom);
    EXPECT_EQ(Value::GetGlobalDictionary(), custom);
    EXPECT_DOUBLE_EQ(Value(1.0, "fur").ConvertedTo("ch").GetValue(), 10.0);
    EXPECT_THROW(Value(1.0, "nm"), Value::XUnitNotFound);
    Value::SetGlobalDictionary(nullptr);
    EXPECT_EQ(Value::GetGlobalDictionary(), UnitDictionary::StandardUnits());
    EXPECT_NO_THROW(Value(1.0, "nm"));
}
