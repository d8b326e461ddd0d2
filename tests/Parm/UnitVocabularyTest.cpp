#include "Parm/UnitVocabulary.h"

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace Orx::Core;

TEST(UnitVocabularyTest, EveryCodeSurvivesTheTripThroughTheDictionaryText) {
    // The quirks of the vocabulary: repeated rows answer with the first one,
    // "log(nA)" is spelt as code 101, and the degree rows come back as texts
    // that only the dictionary knows.
    const std::map<int, int> quirks = {{45, 43}, {46, 44}, {100, 101}, {38, 0}, {94, 0}};
    for (int code = 5; code < kUnitCodeCount; ++code) {
        const std::string text = TextOfUnitCode(code);
        EXPECT_TRUE(UnitDictionary::StandardUnits()->IsUnitDefined(text)) << code << " " << text;
        const auto quirk = quirks.find(code);
        EXPECT_EQ(UnitCodeOfText(text), quirk == quirks.end() ? code : quirk->second) << code << " " << text;
    }
}

TEST(UnitVocabularyTest, TextsTheDictionarySpellsDifferently) {
    EXPECT_EQ(TextOfUnitCode(10), "Meter");
    EXPECT_EQ(TextOfUnitCode(6), "nm");
    EXPECT_EQ(TextOfUnitCode(5), "\xB5m");
    EXPECT_EQ(TextOfUnitCode(29), "V");
    EXPECT_EQ(TextOfUnitCode(37), "deg");
    EXPECT_EQ(TextOfUnitCode(38), "deg/s");
    EXPECT_EQ(TextOfUnitCode(94), "deg C");
    EXPECT_EQ(TextOfUnitCode(97), "Pa");
    EXPECT_EQ(UnitTableText(38), std::string("\xBA/s"));
}

TEST(UnitVocabularyTest, CodesOutsideTheVocabularyHaveNoText) {
    for (const int code : {-1, 0, 4, 128, 100000}) {
        EXPECT_EQ(TextOfUnitCode(code), "") << code;
        EXPECT_STREQ(UnitTableText(code), "") << code;
    }
}

TEST(UnitVocabularyTest, FileSpellingsComeBeforeTheTable) {
    EXPECT_EQ(UnitCodeOfText("nm"), 6);
    EXPECT_EQ(UnitCodeOfText("um"), 5);
    EXPECT_EQ(UnitCodeOfText("~m"), 5);
    EXPECT_EQ(UnitCodeOfText("Meter"), 10);
    EXPECT_EQ(UnitCodeOfText("\xBA"), 37);
    EXPECT_EQ(UnitCodeOfText("\xB0"), 37);
    EXPECT_EQ(UnitCodeOfText("um/s"), 67);
    EXPECT_EQ(UnitCodeOfText("Ang"), 9);
    EXPECT_EQ(UnitCodeOfText("Count"), 59);
    EXPECT_EQ(UnitCodeOfText("uN"), 122);
    EXPECT_EQ(UnitCodeOfText("log(nA)"), 101);
    EXPECT_EQ(UnitCodeOfText("mV"), 30);
    EXPECT_EQ(UnitCodeOfText("pm"), 7);
    EXPECT_EQ(UnitCodeOfText("\xBA/s"), 38);
    EXPECT_EQ(UnitCodeOfText("nm/V^"), 44);
}

TEST(UnitVocabularyTest, UnknownTextsHaveCodeZero) {
    for (const std::string text : {"", "Meters", "Volts", "NM", "nm ", "KHz", "furlong", "\xB5"}) {
        EXPECT_EQ(UnitCodeOfText(text), 0) << text;
        EXPECT_FALSE(IsLengthUnit(text)) << text;
        EXPECT_FALSE(IsVoltageUnit(text)) << text;
    }
}

TEST(UnitVocabularyTest, LengthAndVoltagePredicates) {
    for (const std::string text : {"\xB5m", "um", "~m", "nm", "m", "Meter", "nm/V", "nm/s", "um/s", "\xB5m/s", "mm"}) {
        EXPECT_TRUE(IsLengthUnit(text)) << text;
    }
    for (const std::string text : {"pm", "ang", "Ang", "fm", "V"}) {
        EXPECT_FALSE(IsLengthUnit(text)) << text;
    }
    for (const std::string text : {"V", "mV", "\xB5V"}) {
        EXPECT_TRUE(IsVoltageUnit(text)) << text;
    }
    for (const std::string text : {"V/V", "V/s", "mV/s", "nV", "nm"}) {
        EXPECT_FALSE(IsVoltageUnit(text)) << text;
    }
}

TEST(UnitVocabularyTest, BaseUnitsAndTheirFactors) {
    struct Row {
        int code;
        const char* base;
        double factor;
    };
    const Row rows[] = {
        {5, "m", 1e-6},        {6, "m", 1e-9},          {9, "m", 1e-10},     {10, "m", 1},
        {12, "N", 1e-9},       {13, "N", 1e-12},        {19, "A", 1e-12},    {22, "A", 1e-3},
        {31, "V", 1e-6},       {37, "\xB0", 1},         {59, "Count", 1},    {62, "Hz", 1e6},
        {63, "Hz", 1000},      {90, "Ohm", 1e6},        {101, "log(nA)", 1}, {106, "Pa", 1e9},
        {113, "log(Arb)", 1e-3}, {118, "Pa\xB1", 1e9},  {119, "m\xB1", 1e-9}, {122, "N", 1e-6},
        {127, "eV", 1000},     {11, "UNIT", 1},         {100, "UNIT", 1},    {45, "UNIT", 1},
    };
    for (const Row& row : rows) {
        std::string base = "unchanged";
        EXPECT_DOUBLE_EQ(BaseUnitOfCode(row.code, base), row.factor) << row.code;
        EXPECT_EQ(base, row.base) << row.code;
    }
}

TEST(UnitVocabularyTest, FactorsAreProductsOfThePrefixes) {
    std::string base;
    EXPECT_EQ(BaseUnitOfCode(6, base), 0.001 * 1e-6);
    EXPECT_EQ(BaseUnitOfCode(13, base), 0.001 * (0.001 * 1e-6));
    EXPECT_NE(BaseUnitOfCode(13, base), 1e-12);  // the product's last digit, as the instruments have it
    EXPECT_EQ(BaseUnitOfCode(106, base), 1000.0 * 1e6);
}

TEST(UnitVocabularyTest, CodesOutsideTheTableLeaveTheBaseUnit) {
    for (const int code : {-5, 0, 4, 128, 1 << 30}) {
        std::string base = "kept";
        EXPECT_EQ(BaseUnitOfCode(code, base), 1.0) << code;
        EXPECT_EQ(base, "kept") << code;
    }
}
