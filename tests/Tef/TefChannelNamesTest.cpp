#include "QlDataAnalysisExt/Tef/TefChannelNames.h"

#include <gtest/gtest.h>

TEST(TefChannelNamesTest, PairsOfTheTableGiveTheirNames)
{
    EXPECT_EQ(TefChannelNames::Lookup(1, 1), "Topography");
    EXPECT_EQ(TefChannelNames::Lookup(1, 2), "ZSensor");
    EXPECT_EQ(TefChannelNames::Lookup(3, 3), "Error (Interferometer)");
    EXPECT_EQ(TefChannelNames::Lookup(14, 23), "Elasticity (Frequency)");
    // kept as files have them: two types with one name, and the frequency
    // subtypes that differ between Lift and Elasticity
    EXPECT_EQ(TefChannelNames::Lookup(5, 8), "Friction (LOC Amplitude)");
    EXPECT_EQ(TefChannelNames::Lookup(11, 8), "Friction (LOC Amplitude)");
    EXPECT_EQ(TefChannelNames::Lookup(2, 22), "Lift (Frequency)");
    EXPECT_EQ(TefChannelNames::Lookup(2, 23), std::nullopt);
    EXPECT_EQ(TefChannelNames::Lookup(14, 22), std::nullopt);
}

TEST(TefChannelNamesTest, StoredNameStandsWhereTheTableHasNone)
{
    const std::vector<TefChannelInfo> table{
        {.subtype = 16, .type = 4, .name = "Stored A"},   // marked to keep its stored name
        {.subtype = 16, .type = 13, .name = "Stored B"},  // the same
        {.subtype = 15, .type = 1, .name = "Stored C"},   // a type of the table, a subtype it lacks
        {.subtype = 1, .type = 15, .name = "Stored D"},   // a type beyond the table
        {},                                               // a row no record has named
        {.subtype = 6, .type = 6, .name = "Stored F"},
    };
    EXPECT_EQ(TefChannelNames::Resolve(table, 0), "Stored A");
    EXPECT_EQ(TefChannelNames::Resolve(table, 1), "Stored B");
    EXPECT_EQ(TefChannelNames::Resolve(table, 2), "Stored C");
    EXPECT_EQ(TefChannelNames::Resolve(table, 3), "Stored D");
    EXPECT_EQ(TefChannelNames::Resolve(table, 4), "");
    EXPECT_EQ(TefChannelNames::Resolve(table, 5), "Phase");
    EXPECT_EQ(TefChannelNames::Resolve(table, 6), "");
    EXPECT_EQ(TefChannelNames::Resolve({}, 0), "");
}
