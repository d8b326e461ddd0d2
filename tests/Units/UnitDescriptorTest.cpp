#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <gtest/gtest.h>

using Orx::Core::UnitDescriptor;
using Orx::Core::UnitDictionary;

namespace {

const UnitDescriptor& Unit(const std::string& text) {
    return *UnitDictionary::StandardUnits()->LookupUnit(text);
}

}  // namespace

TEST(UnitDescriptorTest, UnitlessMeansNeitherDimensionNorScale) {
    EXPECT_TRUE(UnitDescriptor("", "").IsUnitless());
    EXPECT_TRUE(Unit("Arb").IsUnitless());
    EXPECT_TRUE(Unit("V/V").IsUnitless());
    EXPECT_FALSE(Unit("%").IsUnitless());
    EXPECT_FALSE(Unit("nm").IsUnitless());
}

TEST(UnitDescriptorTest, EqualityIsPhysicalNotTextual) {
    EXPECT_EQ(Unit("Ang"), Unit("ang"));
    EXPECT_EQ(Unit("nN/nm"), Unit("N/m"));
    EXPECT_NE(Unit("nm"), Unit("pm"));
    EXPECT_NE(Unit("nm"), Unit("nN"));
    EXPECT_NE(Unit("log(nA)"), Unit("log(\xB5" "A)"));
    EXPECT_FALSE(Unit("Hz/s").RequiresConversion(Unit("Hz^")));
    EXPECT_TRUE(Unit("nm").RequiresConversion(Unit("Meters")));
}

TEST(UnitDescriptorTest, ProductsAndQuotientsComposeTextDimensionAndFactor) {
    const UnitDescriptor stiffness = Unit("nN") / Unit("nm");
    EXPECT_EQ(stiffness.GetName(), "nN/nm");
    EXPECT_EQ(stiffness, Unit("N/m"));

    const UnitDescriptor charge = Unit("mA") * Unit("s");
    EXPECT_EQ(charge.GetName(), "mA*s");
    EXPECT_EQ(charge, Unit("mC"));

    UnitDescriptor none("", "");
    EXPECT_EQ((none * Unit("nm")).GetName(), "nm");
    EXPECT_EQ((none / Unit("nm")).GetName(), "/nm");
    EXPECT_DOUBLE_EQ((none / Unit("nm")).GetFactor(), Unit("/nm").GetFactor());
    none *= Unit("V");
    EXPECT_EQ(none.GetName(), "Volts");
    EXPECT_EQ(none.GetAbbreviation(), "V");

    EXPECT_EQ((Unit("deg C") / Unit("s")).GetOffset(), 0.0);
}

