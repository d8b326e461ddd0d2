#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"

#include <gtest/gtest.h>

#include <string>

using namespace QlValueStrings;

namespace {

const std::string kZScale = "V [Sens. Zsens] (0.006713765 V/LSB) 440.0000 V";
const std::string kZSens = "V 12.5 nm/V";

std::string UnitName(const Value& v) {
    return v.GetUnits()->GetName();
}

}  // namespace

TEST(ValueStringsTest, BetweenTakesTheFirstCloseAfterTheOpen) {
    EXPECT_EQ(Between(kZScale, "[", "]"), "Sens. Zsens");
    EXPECT_EQ(Between("a)b(c)d)", "(", ")"), "c");
    EXPECT_EQ(Between("xx", "x", "x"), "");
    EXPECT_EQ(Between("<<a>", "<<", ">"), "a");
    EXPECT_EQ(Between("a)", ")", ")"), "");
    EXPECT_EQ(Between("(open", "(", ")"), "");
    EXPECT_EQ(Between("close)", "(", ")"), "");
    EXPECT_EQ(Between("", "(", ")"), "");
    EXPECT_EQ(Between("(a)", "", ")"), "");
    EXPECT_EQ(Between("(a)", "(", ""), "");
}

TEST(ValueStringsTest, CuttingAtDelimiters) {
    EXPECT_EQ(AfterLast("1000 1000 ~m", " "), "~m");
    EXPECT_EQ(AfterLast("trailing ", " "), "");
    EXPECT_EQ(AfterLast("none", " "), "");
    EXPECT_EQ(AfterLast("", " "), "");
    EXPECT_EQ(BeforeFirst("1000 1000 ~m", " "), "1000");
    EXPECT_EQ(BeforeFirst("none", " "), "");
    EXPECT_EQ(BeforeFirst(" lead", " "), "");
    EXPECT_EQ(AfterFirst("C [Z magnify] 2.5 x", "] "), "2.5 x");
    EXPECT_EQ(AfterFirst("none", "] "), "");
    EXPECT_EQ(AfterFirst("", "] "), "");
}

TEST(ValueStringsTest, NumbersReadDecimalFromTheStart) {
    double d = 7.0;
    EXPECT_TRUE(ReadNumber("  12.5abc", d));
    EXPECT_EQ(d, 12.5);
    EXPECT_TRUE(ReadNumber("-3e2", d));
    EXPECT_EQ(d, -300.0);
    std::int32_t i = 7;
    EXPECT_TRUE(ReadNumber("12.9", i));
    EXPECT_EQ(i, 12);
}

TEST(ValueStringsTest, UnreadableNumbersLeaveTheTarget) {
    double d = 7.0;
    std::int32_t i = 7;
    float f = 7.0f;
    for (const std::string text : {"", "abc", " ", "-", "1e400", "nan", "inf"}) {
        EXPECT_FALSE(ReadNumber(text, d)) << text;
        EXPECT_EQ(d, 7.0) << text;
    }
    EXPECT_FALSE(ReadNumber("99999999999", i));
    EXPECT_FALSE(ReadNumber("size 12", i));
    EXPECT_EQ(i, 7);
    EXPECT_FALSE(ReadNumber("1e39", f));
    EXPECT_EQ(f, 7.0f);
}

TEST(ValueStringsTest, ZeroXAnywhereSwitchesIntegersToHexadecimal) {
    std::int32_t i = 0;
    EXPECT_TRUE(ReadNumber("0x1F", i));
    EXPECT_EQ(i, 31);
    EXPECT_TRUE(ReadNumber("12 0x10", i));
    EXPECT_EQ(i, 0x12);
    EXPECT_TRUE(ReadNumber("abc0x", i));
    EXPECT_EQ(i, 0xabc0);  // the "0" of "0x" is a digit too
    i = 5;
    EXPECT_FALSE(ReadNumber("size 0x10", i));
    EXPECT_EQ(i, 5);
    // A floating read knows no base: it stops at the "x".
    double d = 5.0;
    EXPECT_TRUE(ReadNumber("0x1A", d));
    EXPECT_EQ(d, 0.0);
}

TEST(ValueStringsTest, SoftValueOfAScaledValueAndOfASensitivity) {
    const Value z = ParseSoftValue(kZScale, kScaledValue);
    EXPECT_DOUBLE_EQ(z.GetValue(), 440.0);
    EXPECT_EQ(UnitName(z), "Volts");

    const Value sens = ParseSoftValue(kZSens, kSensitivity);
    EXPECT_DOUBLE_EQ(sens.GetValue(), 12.5);
    EXPECT_EQ(UnitName(sens), "nm/V");

    const Value micron = ParseSoftValue("V [Sens. X] (0.1 V/LSB) 35.5 ~m", kScaledValue);
    EXPECT_DOUBLE_EQ(micron.GetValue(), 35.5);
    EXPECT_EQ(UnitName(micron), "\xB5m");
}

TEST(ValueStringsTest, SoftValueWithAnUnknownUnitHasNoUnit) {
    const Value v = ParseSoftValue("V [Sens. X] (0.1 V/LSB) 3.25 furlong", kScaledValue);
    EXPECT_DOUBLE_EQ(v.GetValue(), 3.25);
    EXPECT_EQ(UnitName(v), "");

    const Value wrongMode = ParseSoftValue(kZSens, kScaledValue);
    EXPECT_EQ(wrongMode.GetValue(), 0.0);
    const Value empty = ParseSoftValue("", kSensitivity);
    EXPECT_EQ(empty.GetValue(), 0.0);
    EXPECT_EQ(UnitName(empty), "");
}

TEST(ValueStringsTest, SoftFloatAndRatio) {
    EXPECT_FLOAT_EQ(ParseSoftFloat(kZScale), 440.0f);
    EXPECT_EQ(ParseSoftFloat(""), 1.0f);
    EXPECT_EQ(ParseSoftFloat("V [x] (1 V) abc V"), 1.0f);

    EXPECT_FLOAT_EQ(ParseRatio(kZScale), 440.0f / 0.006713765f);
    EXPECT_FLOAT_EQ(ParseRatio("V [x] (0 V) 5 V"), 5.0f);
    EXPECT_FLOAT_EQ(ParseRatio("V [x] (3) 6 V"), 6.0f);  // a hard text without a blank stays 1
    EXPECT_EQ(ParseRatio(""), 1.0f);
}

TEST(ValueStringsTest, HardValueInsideTheParentheses) {
    const Value hard = ParseHardValue(kZScale);
    EXPECT_DOUBLE_EQ(hard.GetValue(), 0.006713765);
    EXPECT_EQ(UnitName(hard), "");  // "V/LSB" is not a unit of the dictionary
    const Value nm = ParseHardValue("V [x] (2.5 nm) 1 V");
    EXPECT_DOUBLE_EQ(nm.GetValue(), 2.5);
    EXPECT_EQ(UnitName(nm), "nm");
    EXPECT_EQ(ParseHardValue("no parentheses").GetValue(), 0.0);
}

TEST(ValueStringsTest, PlainValueReadsAFloat) {
    const Value rate = ParsePlainValue("12.5 kHz");
    EXPECT_DOUBLE_EQ(rate.GetValue(), 12.5);
    EXPECT_EQ(UnitName(rate), "kHz");
    EXPECT_EQ(ParsePlainValue("0.1 Hz").GetValue(), static_cast<double>(0.1f));
    const Value unread = ParsePlainValue("abc kHz");
    EXPECT_EQ(unread.GetValue(), 0.0);
    EXPECT_EQ(UnitName(unread), "kHz");
    const Value bare = ParsePlainValue("1e3");
    EXPECT_EQ(bare.GetValue(), 1000.0);
    EXPECT_EQ(UnitName(bare), "");
    EXPECT_EQ(ParsePlainValue("").GetValue(), 0.0);
}

TEST(ValueStringsTest, NamesAndQuotedTexts) {
    const std::string imageData = "S [Height] \"Height Sensor\"";
    EXPECT_EQ(ParseBracketName(imageData), "Height");
    EXPECT_EQ(ParseBracketName(kZScale), "Sens. Zsens");
    EXPECT_EQ(ParseBracketName("no name"), "");
    EXPECT_EQ(ParseQuotedText(imageData), "Height Sensor");
    EXPECT_EQ(ParseQuotedText("bare text"), "bare text");
    EXPECT_EQ(ParseQuotedText("one \"quote"), "");
    EXPECT_EQ(ParseQuotedText(""), "");
}

TEST(ValueStringsTest, SensitivityNumberAndUnit) {
    EXPECT_FLOAT_EQ(ParseSensValue(kZSens), 12.5f);
    EXPECT_EQ(ParseSensValue(""), 1.0f);
    EXPECT_EQ(ParseSensValue("V abc nm/V"), 1.0f);

    EXPECT_EQ(ParseSensUnit(kZSens), "nm");
    EXPECT_EQ(ParseSensUnit("V 3 ~m/V"), "\xB5m");
    EXPECT_EQ(ParseSensUnit("V 0.5 nA*s/V"), "nA");
    EXPECT_EQ(ParseSensUnit("nm/V"), "");
    EXPECT_EQ(ParseSensUnit("V 12"), "");
    EXPECT_EQ(ParseSensUnit("V 2 furlong/V"), "");
    EXPECT_EQ(ParseSensUnit(""), "");
}

TEST(ValueStringsTest, MagnifyIsPositiveOrOne) {
    EXPECT_FLOAT_EQ(ParseMagnify("C [Z magnify] 2.5"), 2.5f);
    EXPECT_EQ(ParseMagnify("C [Z magnify] -2"), 1.0f);
    EXPECT_EQ(ParseMagnify("C [Z magnify] 0"), 1.0f);
    EXPECT_EQ(ParseMagnify("C [Z magnify]"), 1.0f);
    EXPECT_EQ(ParseMagnify(""), 1.0f);
}

TEST(ValueStringsTest, AspectRatioKeepsItsPowerOfTwo) {
    EXPECT_EQ(ParseAspectRatio("2:1"), 2.0f);
    EXPECT_EQ(ParseAspectRatio("1"), 2.0f);
    EXPECT_EQ(ParseAspectRatio("3"), 8.0f);
    EXPECT_EQ(ParseAspectRatio(""), 1.0f);
    EXPECT_EQ(ParseAspectRatio("x:1"), 0.0f);
    EXPECT_EQ(ParseAspectRatio("wide"), 1.0f);
}

TEST(ValueStringsTest, ScanSizeReadsTheWidthInItsUnit) {
    const Value size = ParseScanSize("1000 1000 ~m");
    EXPECT_EQ(size.GetValue(), 1000.0);
    EXPECT_EQ(UnitName(size), "\xB5m");
    EXPECT_EQ(ParseScanSize("12.7 4 nm").GetValue(), 12.0);
    EXPECT_EQ(ParseScanSize("0x10 0x10 nm").GetValue(), 16.0);
    const Value bare = ParseScanSize("5000");
    EXPECT_EQ(bare.GetValue(), 0.0);
    EXPECT_EQ(UnitName(bare), "");
}

TEST(ValueStringsTest, PlaneFitNeedsThreePieces) {
    const PlaneFit fit = ParsePlaneFit("0.1 0.2 0.3 2");
    EXPECT_EQ(fit.a, 0.1);
    EXPECT_EQ(fit.b, 0.2);
    EXPECT_EQ(fit.c, 0.3);
    EXPECT_EQ(fit.order, 2u);

    const PlaneFit spaced = ParsePlaneFit("   1   2  3  ");
    EXPECT_EQ(spaced.c, 3.0);
    EXPECT_EQ(spaced.order, 0u);

    const PlaneFit two = ParsePlaneFit("1 2");
    EXPECT_EQ(two.a, 0.0);
    const PlaneFit tabbed = ParsePlaneFit("1\t2 3");
    EXPECT_EQ(tabbed.a, 0.0);

    const PlaneFit words = ParsePlaneFit("a b c 9 10");
    EXPECT_EQ(words.a, 0.0);
    EXPECT_EQ(words.order, 9u);
    EXPECT_EQ(ParsePlaneFit("1 2 3 -1").order, 0xFFFFFFFFu);
}

TEST(ValueStringsTest, NormalizeUnitMapsFileSpellingsAndDropsTheRest) {
    EXPECT_EQ(NormalizeUnit("nm"), "nm");
    EXPECT_EQ(NormalizeUnit("Pa"), "Pa");
    EXPECT_EQ(NormalizeUnit("um"), "um");
    EXPECT_EQ(NormalizeUnit("~m"), "\xB5m");
    EXPECT_EQ(NormalizeUnit("~A"), "\xB5" "A");
    EXPECT_EQ(NormalizeUnit("\xBA"), "deg");
    EXPECT_EQ(NormalizeUnit("\xB0"), "deg");
    for (const std::string text : {"furlong", "~mm", "~m ", "KHz", "\xBA\xBA", "", "V/LSB"}) {
        EXPECT_EQ(NormalizeUnit(text), "") << text;
    }
}

TEST(ValueStringsTest, PlistNameClasses) {
    EXPECT_EQ(ClassifyPlistName("Ciao force image list"), 2);
    EXPECT_EQ(ClassifyPlistName("Ciao force image list #2"), 2);
    EXPECT_EQ(ClassifyPlistName("Ciao image list"), 1);
    EXPECT_EQ(ClassifyPlistName("Ciao image list #3"), 3);
    EXPECT_EQ(ClassifyPlistName("Ciao scan list"), 0);
    EXPECT_EQ(ClassifyPlistName(""), 0);
    EXPECT_TRUE(IsImageListName("Ciao force image list"));
    EXPECT_TRUE(IsImageListName("image list"));
    EXPECT_FALSE(IsImageListName("Image List"));
    EXPECT_FALSE(IsImageListName(""));
}

TEST(ValueStringsTest, HostileTextsYieldInitialValues) {
    const std::string embeddedNul("V [a\0b] (1\0 V) 2\0 V", 19);
    const std::string unterminated = "V [Sens. Zsens (0.1 V/LSB 440";
    const std::string onlyDelimiters = "[]()\"\" ] ) : ";
    const std::string highBytes = "\xFF\xB5\xBA \x80\x81 \xB0";
    const std::string longRun(100000, '9');
    for (const std::string& text : {embeddedNul, unterminated, onlyDelimiters, highBytes, longRun}) {
        EXPECT_NO_THROW({
            ParseSoftValue(text, kScaledValue);
            ParseSoftValue(text, kSensitivity);
            ParseHardValue(text);
            ParseRatio(text);
            ParsePlainValue(text);
            ParseQuotedText(text);
            ParseSensValue(text);
            ParseSensUnit(text);
            ParseMagnify(text);
            ParseAspectRatio(text);
            ParseScanSize(text);
            ParsePlaneFit(text);
        });
    }
    EXPECT_EQ(ParseBracketName(embeddedNul), std::string("a\0b", 3));
    EXPECT_EQ(ParseScanSize(longRun).GetValue(), 0.0);
    EXPECT_EQ(ParseMagnify(unterminated), 1.0f);
    EXPECT_EQ(ParseAspectRatio(onlyDelimiters), 0.0f);
}
