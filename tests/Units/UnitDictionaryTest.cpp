#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Orx::Core::UnitDescriptor;
using Orx::Core::UnitDescriptorPtr;
using Orx::Core::UnitDictionary;

namespace {

std::shared_ptr<UnitDictionary> Standard() {
    return UnitDictionary::StandardUnits();
}

std::string NameOf(const std::string& text) {
    const UnitDescriptorPtr unit = Standard()->LookupUnit(text);
    return unit ? unit->GetName() : "<none>";
}

std::string StandardOf(const std::string& text) {
    const UnitDescriptorPtr unit = Standard()->LookupDimensionallyEquivalentUnit(text);
    return unit ? unit->GetName() : "<none>";
}

// Texts that the data sources and the file families pass around.
const std::vector<std::string> kKnownTexts = {
    "Meters", "Volts", "Pascal", "MPa", "GPa", "kPa", "N", "mN", "\xB5N", "nN", "pN", "N/m", "nN/nm",
    "Hz", "kHz", "MHz", "mHz", "s", "ms", "\xB5s", "ns", "min", "A", "mA", "\xB5" "A", "nA", "pA", "fA",
    "V", "mV", "\xB5V", "nV", "m", "mm", "\xB5m", "nm", "pm", "fm", "ang", "Ang", "rad", "mrad",
    "log(Arb)", "log(Pa)", "log(nA)", "log(\xB5" "A)", "nm/V", "\xB5m/V", "pm/V", "V/V", "nm/s", "\xB5m/s",
    "um/s", "Ohm", "kOhm", "MOhm", "C", "mC", "eV", "keV", "meV", "\xB5" "eV", "%", "dB", "Arb", "mArb",
    "\xB5" "Arb", "deg", "deg/s", "deg C", "Count", "1", "um", "Meter",
};

}  // namespace

TEST(UnitDictionaryTest, WordNamedUnitsAnswerToEverySpelling) {
    EXPECT_EQ(NameOf("m"), "Meters");
    EXPECT_EQ(NameOf("Meter"), "Meters");
    EXPECT_EQ(NameOf("Meters"), "Meters");
    EXPECT_EQ(Standard()->LookupUnit("m")->GetAbbreviation(), "m");
    EXPECT_EQ(NameOf("V"), "Volts");
    EXPECT_EQ(NameOf("Pa"), "Pascal");
    EXPECT_EQ(Standard()->LookupUnit("Pascal")->GetAbbreviation(), "Pa");
    EXPECT_EQ(Standard()->LookupUnit("Meter"), Standard()->LookupUnit("m"));
}

TEST(UnitDictionaryTest, FurtherSpellingsNameTheSameUnit) {
    EXPECT_EQ(NameOf("um"), "\xB5m");
    EXPECT_EQ(NameOf("um/s"), "\xB5m/s");
    EXPECT_EQ(NameOf("Ang"), "ang");
    EXPECT_EQ(NameOf("kHz"), "kHz");
    EXPECT_EQ(Standard()->LookupUnit("nm")->GetAbbreviation(), "nm");
}

TEST(UnitDictionaryTest, SpellingsLeftToTheNormaliserAreUnknown) {
    for (const std::string text : {"KHz", "\xBA", "\xB0", "~m", "~A", "", "meters", "nm ", " nm", "NM", "uN"}) {
        EXPECT_FALSE(Standard()->IsUnitDefined(text)) << text;
        EXPECT_EQ(Standard()->LookupUnit(text), nullptr) << text;
        EXPECT_EQ(Standard()->LookupDimensionallyEquivalentUnit(text), nullptr) << text;
    }
}

TEST(UnitDictionaryTest, StandardUnitOfEachDimension) {
    EXPECT_EQ(StandardOf("nm"), "Meters");
    EXPECT_EQ(StandardOf("\xB5m"), "Meters");
    EXPECT_EQ(StandardOf("mV"), "Volts");
    EXPECT_EQ(StandardOf("GPa"), "Pascal");
    EXPECT_EQ(StandardOf("kHz"), "Hz");
    EXPECT_EQ(StandardOf("pN"), "N");
    EXPECT_EQ(StandardOf("nN/nm"), "N/m");
    EXPECT_EQ(StandardOf("keV"), "J");
    EXPECT_EQ(StandardOf("deg"), "rad");
    EXPECT_EQ(StandardOf("deg C"), "K");
    EXPECT_EQ(StandardOf("%"), "1");
    EXPECT_EQ(StandardOf("Arb"), "1");
}

TEST(UnitDictionaryTest, DimensionWithoutAStandardUnitGetsItsBaseSymbols) {
    const UnitDescriptorPtr perVolt = Standard()->LookupDimensionallyEquivalentUnit("nm/V");
    ASSERT_NE(perVolt, nullptr);
    EXPECT_EQ(perVolt->GetName(), "m^-1*kg^-1*s^3*A");
    EXPECT_EQ(perVolt->GetFactor(), 1.0);
    EXPECT_EQ(StandardOf("log(nA)"), "log(A)");
    EXPECT_EQ(StandardOf("nm/log(nA)"), "m*log(A)^-1");
}

TEST(UnitDictionaryTest, KnowsEveryTextTheFamiliesUseWithAStandardUnit) {
    for (const std::string& text : kKnownTexts) {
        const UnitDescriptorPtr unit = Standard()->LookupUnit(text);
        ASSERT_NE(unit, nullptr) << text;
        EXPECT_TRUE(Standard()->IsUnitDefined(text)) << text;
        const UnitDescriptorPtr standard = Standard()->LookupDimensionallyEquivalentUnit(text);
        ASSERT_NE(standard, nullptr) << text;
        EXPECT_TRUE(standard->IsDimensionallyEquivalent(*unit)) << text;
        EXPECT_EQ(standard->GetFactor(), 1.0) << text;
        EXPECT_EQ(standard->GetOffset(), 0.0) << text;
    }
}

TEST(UnitDictionaryTest, LogarithmsAreKindsOfTheirOwn) {
    const UnitDescriptorPtr logCurrent = Standard()->LookupUnit("log(nA)");
    EXPECT_FALSE(logCurrent->IsDimensionallyEquivalent(*Standard()->LookupUnit("nA")));
    EXPECT_FALSE(logCurrent->IsDimensionallyEquivalent(*Standard()->LookupUnit("log(Arb)")));
    EXPECT_TRUE(logCurrent->IsDimensionallyEquivalent(*Standard()->LookupUnit("log(\xB5" "A)")));
    EXPECT_FALSE(Standard()->LookupUnit("Arb")->IsDimensionallyEquivalent(*Standard()->LookupUnit("log(Arb)")));
}

TEST(UnitDictionaryTest, AddedUnitsKeepTheFirstOwnerOfAText) {
    UnitDictionary dictionary;
    const Orx::Core::UnitDimension length{1};
    dictionary.Add(std::make_shared<const UnitDescriptor>("furlong", "fur", length, 201.168), {"furlongs"});
    dictionary.Add(std::make_shared<const UnitDescriptor>("fathom", "fur", length, 1.8288));
    dictionary.Add(std::make_shared<const UnitDescriptor>("", ""));
    dictionary.Add(nullptr);
    EXPECT_EQ(dictionary.LookupUnit("fur")->GetName(), "furlong");
    EXPECT_EQ(dictionary.LookupUnit("furlongs")->GetName(), "furlong");
    EXPECT_EQ(dictionary.LookupUnit("fathom")->GetName(), "fathom");
    EXPECT_FALSE(dictionary.IsUnitDefined(""));
    EXPECT_FALSE(dictionary.IsUnitDefined("nm"));
}
