#include "Parm/parmStrenum.h"
#include "Parm/segment_type_force.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What the script segment export answers for a type number.
std::string Describe(int type) {
    const char* text = segment_type_force().GetText(type);
    return text != nullptr ? text : "Unknown";
}

const char* const kHoldTexts[] = {"Hold", "Hold Force", "Hold Z", "Hold", nullptr};

class HoldParm : public parmStrenum {
public:
    HoldParm() { texts = kHoldTexts; }
};

}  // namespace

TEST(SegmentTypeForceTest, IsTheSegmentTypeParameter) {
    segment_type_force p;
    EXPECT_EQ(p.GetId(), 14706u);
    EXPECT_STREQ(p.name, "Segment Type");
    std::string title;
    p.GetTitle(&title);
    EXPECT_EQ(title, "Segment Type");
    EXPECT_EQ(p.isSet, 1);
    EXPECT_EQ(p.step, 100);
    EXPECT_EQ(p.ParmStrenumCommon::owner, static_cast<parm*>(&p));
    EXPECT_EQ(p.Count(), 7);
}

TEST(SegmentTypeForceTest, DescribesSegmentTypes) {
    EXPECT_EQ(Describe(0), "Unknown Segment");
    EXPECT_EQ(Describe(1), "Extend Z");
    EXPECT_EQ(Describe(3), "Retract Z");
    EXPECT_EQ(Describe(6), "Hold Z");
    EXPECT_EQ(Describe(7), "Unknown");
    EXPECT_EQ(Describe(1000000), "Unknown");
    EXPECT_EQ(Describe(-1), "Unknown Segment");
    EXPECT_EQ(Describe(-2147483647 - 1), "Unknown Segment");
}

TEST(ParmStrenumTest, NegativeIndexAsksTheCurrentIndexWithinTheList) {
    segment_type_force p;
    p.index = 5;
    EXPECT_STREQ(p.GetText(-3), "Hold Force");
    p.index = 7;
    EXPECT_EQ(p.GetText(-1), nullptr);
    p.index = -4;
    EXPECT_EQ(p.GetText(-1), nullptr);
}

TEST(ParmStrenumTest, ListsEndAtNullOrEmptyText) {
    const char* const withEmpty[] = {"A", "B", "", "C", nullptr};
    parmStrenum p;
    EXPECT_EQ(p.Count(), 0);
    EXPECT_EQ(p.GetText(0), nullptr);
    p.texts = withEmpty;
    EXPECT_EQ(p.Count(), 2);
    EXPECT_EQ(p.GetText(3), nullptr);
}

TEST(ParmStrenumTest, ParsingPrefersTheLongestTextThenTheHigherIndex) {
    HoldParm p;
    p.isSet = 1;
    std::string_view cursor = " \tHold Forced";
    p.ParseProps(cursor);
    EXPECT_EQ(p.index, 1);
    EXPECT_EQ(cursor, "d");
    EXPECT_EQ(p.isSet, 0);
    EXPECT_EQ(p.written, 1);

    cursor = "Hold Y";
    p.ParseProps(cursor);
    EXPECT_EQ(p.index, 3);  // "Hold" stands twice; the walk from the end finds the higher first
    EXPECT_EQ(cursor, " Y");
}

TEST(ParmStrenumTest, UnknownTextLeavesTheIndexButSkipsBlanks) {
    segment_type_force p;
    p.index = 4;
    std::string_view cursor = "  \t Retract";
    p.ParseProps(cursor);
    EXPECT_EQ(p.index, 4);
    EXPECT_EQ(cursor, "Retract");
    EXPECT_EQ(p.written, 1);
    EXPECT_EQ(p.hasProps, 0);

    std::string_view blanks = " \t ";
    p.ParseProps(blanks);
    EXPECT_EQ(blanks, "");
}

TEST(ParmStrenumTest, ValueStringPadsTitleAndText) {
    segment_type_force p;
    p.index = 3;
    std::string out;
    p.GetValueString(&out);
    EXPECT_EQ(out, "Segment Type      Retract Z        ");
    p.index = 0;
    p.GetValueString(&out);
    EXPECT_EQ(out, "Segment Type     Unknown Segment        ");
    out = "kept";
    p.index = 7;
    p.GetValueString(&out);
    EXPECT_EQ(out, "kept");
    p.GetValueString(nullptr);
}

TEST(ParmStrenumTest, TextFormWritesTheCurrentText) {
    segment_type_force p;
    p.index = 1;
    p.written = 1;
    std::string out;
    EXPECT_TRUE(p.WriteText(out, false));
    EXPECT_EQ(out, "\\Segment Type: Extend Z\r\n");
    p.index = 12;
    out.clear();
    p.WriteText(out, false);
    EXPECT_EQ(out, "\\Segment Type: \r\n");
}

TEST(ParmStrenumTest, LinkedParameterTakesItsIndexFromTheLink) {
    segment_type_force p;
    parm source;
    std::int16_t linked = 4;
    source.shortLink = &linked;
    p.link = &source;
    EXPECT_EQ(p.GetIndex(), 0);  // not following the link yet
    p.isLinked = 1;
    EXPECT_EQ(p.GetIndex(), 4);
    EXPECT_STREQ(p.GetTextAtIndexOfLink(), "Trigger Up");
    std::string out;
    p.WriteValueText(out);
    EXPECT_EQ(out, "Trigger Up");
    EXPECT_EQ(p.index, 4);

    linked = 40;
    std::string text;
    EXPECT_EQ(p.CopyText(&text), 0);
    EXPECT_EQ(text, " ");
    EXPECT_EQ(p.GetTextAtIndexOfLink(), nullptr);
    linked = -1;
    EXPECT_EQ(p.GetTextAtIndexOfLink(), nullptr);
}

TEST(ParmStrenumTest, CopyTextAnswersTheIndex) {
    segment_type_force p;
    p.index = 6;
    std::string text;
    EXPECT_EQ(p.CopyText(&text), 6);
    EXPECT_EQ(text, "Hold Z");
    EXPECT_TRUE(p.SetIndexChecked(2));
    EXPECT_FALSE(p.SetIndexChecked(7));
    EXPECT_FALSE(p.SetIndexChecked(-1));
    EXPECT_EQ(p.index, 2);
}

TEST(ParmStrenumTest, StepIndexWrapsBothWays) {
    segment_type_force p;
    p.index = 4;
    p.StepIndex(2);  // the trial starts from the current index
    EXPECT_EQ(p.trialIndex, 6);
    p.trial = 0;
    p.index = 0;
    p.StepIndex(-1);
    EXPECT_EQ(p.trial, 1);
    EXPECT_EQ(p.trialIndex, 6);
    EXPECT_EQ(p.index, 0);
    p.StepIndex(1);
    EXPECT_EQ(p.trialIndex, 0);
    EXPECT_EQ(p.StepIndex(-15), 0);
    EXPECT_EQ(p.trialIndex, 6);
    p.trialIndex = 3;
    EXPECT_EQ(p.StepIndex(10), 3);
    EXPECT_EQ(p.trialIndex, 6);
    p.StepIndex(-32768);
    EXPECT_GE(p.trialIndex, 0);
    EXPECT_LT(p.trialIndex, 7);

    parmStrenum empty;
    EXPECT_EQ(empty.StepIndex(5), 0);
    EXPECT_EQ(empty.trialIndex, 0);
}

TEST(ParmStrenumTest, StepByModeOne) {
    segment_type_force p;
    p.index = 2;
    std::string name, value, unit = "u";
    EXPECT_TRUE(p.Step(&name, 1, -3, &value, &unit));
    EXPECT_EQ(p.trialIndex, 6);
    EXPECT_EQ(name, "Segment Type");
    EXPECT_EQ(value, "Trigger Down");  // the limits show the committed value
    EXPECT_EQ(unit, "");
    EXPECT_FALSE(p.Step(&name, 1, 0, &value, &unit));
    EXPECT_FALSE(p.Step(&name, 2, 1, &value, &unit));
    EXPECT_EQ(p.trialIndex, 6);
}

TEST(ParmStrenumTest, StepByModeZeroGathersFineSteps) {
    segment_type_force p;
    EXPECT_FALSE(p.Step(nullptr, 0, 60, nullptr, nullptr));
    EXPECT_EQ(p.stepAccumulator, 60);
    EXPECT_EQ(p.trial, 0);
    EXPECT_TRUE(p.Step(nullptr, 0, 150, nullptr, nullptr));  // 210 = 2 * 101 + 8
    EXPECT_EQ(p.stepAccumulator, 8);
    EXPECT_EQ(p.trialIndex, 2);
    EXPECT_TRUE(p.Step(nullptr, 0, -120, nullptr, nullptr));  // -112 = -(1 * 101) - 11
    EXPECT_EQ(p.stepAccumulator, -11);
    EXPECT_EQ(p.trialIndex, 1);

    p.step = 0;
    EXPECT_TRUE(p.Step(nullptr, 0, 3, nullptr, nullptr));
    EXPECT_EQ(p.stepAccumulator, 0);
    EXPECT_EQ(p.trialIndex, 4);
}

TEST(ParmStrenumTest, TrialBeginsAtTheLowestIndex) {
    segment_type_force p;
    p.index = 4;
    p.SetTrial(true);
    EXPECT_EQ(p.trial, 1);
    EXPECT_EQ(p.trialIndex, 0);
    p.trialIndex = 3;
    p.SetTrial(true);
    EXPECT_EQ(p.trialIndex, 3);
    p.SetTrial(false);
    EXPECT_EQ(p.trial, 0);

    parmStrenum empty;
    empty.SetTrial(true);
    EXPECT_EQ(empty.trial, 1);
}

TEST(ParmStrenumTest, EndTrialKeepsTheTrialOrTakesAText) {
    segment_type_force p;
    p.StepIndex(3);
    p.EndTrial(nullptr);
    EXPECT_EQ(p.index, 3);
    EXPECT_EQ(p.trial, 0);

    p.trialIndex = 6;
    p.EndTrial(nullptr);  // no trial under way
    EXPECT_EQ(p.index, 3);

    p.trialIndex = 50;
    p.trial = 1;
    p.EndTrial(nullptr);  // a trial index outside the list is not taken
    EXPECT_EQ(p.index, 3);

    const std::string hold = "Hold Z";
    p.trial = 1;
    p.EndTrial(&hold);
    EXPECT_EQ(p.index, 6);
    EXPECT_EQ(p.trial, 0);
    const std::string unknown = "Hold";
    p.EndTrial(&unknown);
    EXPECT_EQ(p.index, 6);

    HoldParm twice;
    twice.EndTrial(&unknown);
    EXPECT_EQ(twice.index, 0);
}

TEST(ParmStrenumTest, TrialLimitsShowTheTrialAndRestoreTheIndex) {
    segment_type_force p;
    p.index = 1;
    p.StepIndex(4);
    std::string name, value;
    p.GetLimitsTrial(&name, 2, &value, nullptr);
    EXPECT_EQ(value, "Hold Force");
    EXPECT_EQ(p.index, 1);
    EXPECT_EQ(p.trialIndex, 5);
    p.GetLimits(nullptr, 2, &value, nullptr);
    EXPECT_EQ(value, "Extend Z");
}
