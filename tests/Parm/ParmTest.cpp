#include "Parm/parm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

// A parameter with a value, as the family's concrete classes have one.
class ScanRateParm : public parm {
public:
    void WritePrefix(std::string& cursor) override { cursor += "@"; }
    void WriteValueText(std::string& cursor) override { cursor += "1.5"; }
};

std::uint32_t Word(const std::vector<std::uint8_t>& bytes, std::size_t i) {
    return bytes[4 * i] | bytes[4 * i + 1] << 8 | bytes[4 * i + 2] << 16 | static_cast<std::uint32_t>(bytes[4 * i + 3]) << 24;
}

}  // namespace

TEST(ParmTest, UnitIndicesByWhich) {
    parm p;
    p.SetUnit(6, 2);
    p.SetUnit(30, 3);
    p.SetUnit(99, 4);
    EXPECT_EQ(p.GetUnit(2), 6u);
    EXPECT_EQ(p.GetUnit(3), 30u);
    EXPECT_EQ(p.GetUnit(7), 7u);

    std::string text;
    p.CopyDisplayUnitName(&text, 2);
    EXPECT_EQ(text, "nm");
    p.CopyDisplayUnitName(&text, 3);
    EXPECT_EQ(text, "mV");
    p.CopyDisplayUnitName(&text, 37);
    EXPECT_EQ(text, "\xBA");
    p.CopyDisplayUnitName(&text, 128);
    EXPECT_EQ(text, "");
    p.CopyDisplayUnitName(&text, 0xFFFFFFFFu);
    EXPECT_EQ(text, "");
    text = "x";
    p.CopyUnitName(&text, 2, 0);  // no display unit in the base
    EXPECT_EQ(text, "");
    p.CopyDisplayUnitName(nullptr, 2);
}

TEST(ParmTest, SetUnitsIsRefusedWithItsText) {
    parm p;
    try {
        p.set_units();
        FAIL() << "set_units returned";
    } catch (const char* text) {
        EXPECT_STREQ(text, "Illegal call parm::set_units");
    }
}

TEST(ParmTest, TitleIsCopiedAndCut) {
    parm p;
    p.SetTitle(std::string(300, 'T'));
    std::string title;
    p.GetTitle(&title);
    EXPECT_EQ(title, std::string(127, 'T'));
    p.title = nullptr;
    p.GetTitle(&title);
    EXPECT_EQ(title, "");
    p.GetTitle(nullptr);
}

TEST(ParmTest, TextFormOnlyForWrittenParameters) {
    ScanRateParm p;
    p.name = "Scan Rate";
    std::string out = "before|";
    EXPECT_FALSE(p.WriteText(out, false));
    p.writeAlways = 1;
    EXPECT_FALSE(p.WriteText(out, false));
    EXPECT_EQ(out, "before|");

    p.changed = 1;
    EXPECT_TRUE(p.WriteText(out, true));
    EXPECT_EQ(out, "before|\\@Scan Rate: 1.5\r\n");
    EXPECT_EQ(p.changed, 0);

    p.writeAlways = 0;
    p.written = 1;
    out.clear();
    EXPECT_TRUE(p.WriteText(out, false));
    EXPECT_EQ(out, "\\@Scan Rate: 1.5\r\n");

    p.packed = 1;
    out.clear();
    EXPECT_TRUE(p.WriteText(out, false));
    EXPECT_EQ(out, "");
}

TEST(ParmTest, TextFormCutsTheNameAtItsColonOnce) {
    parm p;
    const char* fullName = "Samps/line:2";
    p.name = fullName;
    p.written = 1;
    std::string out;
    p.WriteText(out, false);
    EXPECT_EQ(out, "\\Samps/line: \r\n");
    EXPECT_EQ(p.ownsName, 1);
    const char* shortName = p.name;
    EXPECT_NE(shortName, fullName);
    p.MakeShortName();
    EXPECT_EQ(p.name, shortName);

    parm plain;
    plain.name = "Lines";
    plain.MakeShortName();
    EXPECT_STREQ(plain.name, "Lines");
    EXPECT_EQ(plain.ownsName, 0);

    parm unnamed;
    unnamed.written = 1;
    out.clear();
    unnamed.WriteText(out, false);
    EXPECT_EQ(out, "\\: \r\n");
}

TEST(ParmTest, PropsLineSetsPropsAndAdvancesPastTheNumber) {
    parm p;
    std::string_view cursor = " props 12 and more";
    p.ParseProps(cursor);
    EXPECT_EQ(p.hasProps, 1);
    EXPECT_EQ(p.props, 12u);
    EXPECT_EQ(cursor, " and more");

    parm q;
    for (const std::string_view line : {" prop 12 x", " propsy 12", " props", " props x", "", "\tprops-", " Props 3"}) {
        std::string_view c = line;
        q.ParseProps(c);
        EXPECT_EQ(c, line);
        EXPECT_EQ(q.hasProps, 0) << line;
        EXPECT_EQ(q.props, 0u) << line;
    }
}

TEST(ParmTest, PropsLineIsReadInItsFirst23Characters) {
    parm p;
    std::string_view cursor = " props 1234567890123456789";
    p.ParseProps(cursor);
    EXPECT_EQ(p.props, static_cast<std::uint32_t>(1234567890123456L));
    EXPECT_EQ(cursor, "789");

    parm q;
    std::string_view late = "                    props 5";
    q.ParseProps(late);
    EXPECT_EQ(q.hasProps, 0);
}

TEST(ParmTest, BinaryFormHasFiveWordsAndNoLinkFlagWithoutALink) {
    parm p;
    p.id = 14706;
    p.isSet = 1;
    p.written = 1;
    p.isLinked = 1;
    p.packed = 1;
    std::vector<std::uint8_t> out;
    p.PackBinary(out);
    ASSERT_EQ(out.size(), 20u);
    EXPECT_EQ(Word(out, 0), 14706u);
    EXPECT_EQ(Word(out, 1), 1u);
    EXPECT_EQ(Word(out, 2), 1u);
    EXPECT_EQ(Word(out, 3), 0u);
    EXPECT_EQ(Word(out, 4), 1u);

    parm target;
    p.link = &target;
    out.clear();
    p.PackBinary(out);
    EXPECT_EQ(Word(out, 3), 1u);
}

TEST(ParmTest, BinaryFormComesBackAsFlags) {
    const std::vector<std::uint8_t> bytes = {
        0x72, 0x39, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 2, 0, 0xEE,
    };
    parm p;
    p.written = 1;
    std::span<const std::uint8_t> cursor(bytes);
    ASSERT_TRUE(p.UnpackBinary(cursor));
    EXPECT_EQ(p.id, 0x3972u);
    EXPECT_EQ(p.isSet, 1);
    EXPECT_EQ(p.written, 0);
    EXPECT_EQ(p.isLinked, 1);
    EXPECT_EQ(p.packed, 1);
    EXPECT_EQ(cursor.size(), 1u);
}

TEST(ParmTest, TruncatedBinaryFormIsNotTaken) {
    const std::vector<std::uint8_t> bytes(19, 0xFF);
    parm p;
    std::span<const std::uint8_t> cursor(bytes);
    EXPECT_FALSE(p.UnpackBinary(cursor));
    EXPECT_EQ(cursor.size(), 19u);
    EXPECT_EQ(p.id, 0u);
    EXPECT_EQ(p.isSet, 0);
}

TEST(ParmTest, TrimUnitCutsAtTheFirstAsciiLetter) {
    parm p;
    const std::pair<std::string, std::string> cases[] = {
        {"12.5nm", "12.5"}, {"", ""}, {"440 V", "440 "}, {"1e5", "1"}, {"3\xB5m", "3\xB5"}, {"42", "42"},
    };
    for (const auto& [text, trimmed] : cases) {
        std::string t = text;
        p.TrimUnit(t);
        EXPECT_EQ(t, trimmed) << text;
    }
}

TEST(ParmTest, LinkedIntegerByKind) {
    parm p;
    for (int kind = -1; kind <= 10; ++kind) {
        EXPECT_EQ(p.ReadLinkedInteger(kind), 0) << "no links, kind " << kind;
    }
    std::int16_t s = -12;
    float f = 7.9f;
    std::uint8_t b = 1;
    const char* text = "  -42 volts";
    std::int32_t i = 123456;
    double d = -3.99;
    p.shortLink = &s;
    p.floatLink = &f;
    p.boolLink = &b;
    p.textLink = text;
    p.intLink = &i;
    p.doubleLink = &d;
    const int expected[] = {0, -12, 7, 1, -42, -42, 7, 1, 123456, -3, 0};
    for (int kind = 0; kind <= 10; ++kind) {
        EXPECT_EQ(p.ReadLinkedInteger(kind), expected[kind]) << kind;
    }
    EXPECT_EQ(p.ReadLinkedInteger(), 0);  // a base parameter has no kind
}

TEST(ParmTest, LinkedNumbersAnIntCannotHoldGiveZero) {
    parm p;
    float f = std::numeric_limits<float>::quiet_NaN();
    double d = 3e10;
    const char* text = "99999999999999999999";
    p.floatLink = &f;
    p.doubleLink = &d;
    p.textLink = text;
    EXPECT_EQ(p.ReadLinkedInteger(2), 0);
    EXPECT_EQ(p.ReadLinkedInteger(9), 0);
    EXPECT_EQ(p.ReadLinkedInteger(4), 0);
    f = -std::numeric_limits<float>::infinity();
    EXPECT_EQ(p.ReadLinkedInteger(6), 0);
    d = -2147483648.5;
    EXPECT_EQ(p.ReadLinkedInteger(9), -2147483647 - 1);
}

