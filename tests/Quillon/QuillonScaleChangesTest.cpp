// Changes of a channel's scales and sensitivity: the numbers, the value texts
// that carry them into a saved file, and what the saved file reads back as.

#include "Quillon/QuillonSaveSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

using namespace QuillonSave;

namespace {

const char* const kAssertion =
    "QlOLDataSource::SetDataScale: dataScalecurrent.GetUnits()->GetName() == dataScaleNew.GetUnits()->GetName()";

std::string Printed16(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%#.16g", value);
    return text;
}

}  // namespace

TEST(QuillonScaleChangesTest, ChannelParametersDivideTheScalesAndRewriteBothNumbersOfTheZText) {
    QuillonBuilder file("IMAGE");
    const FileOnDisk disk("channel_parameters", file);
    Source& s = *disk.source;
    const float range = s.GetScalingFactor(0);
    s.SetChannelParameters(0, 0.0f);
    s.SetChannelParameters(0, -1.0f);
    s.SetChannelParameters(0, NAN);
    EXPECT_EQ(s.GetZScaleInHwUnits(0), 440.0f);

    MessageCapture messages;
    s.SetChannelParameters(0, 2.0f);
    EXPECT_EQ(s.GetZScaleInHwUnits(0), 220.0f);
    EXPECT_EQ(s.GetZScaleInSwUnits(0), 2750.0f);
    EXPECT_EQ(s.GetScalingFactor(0), range / 2.0f);
    EXPECT_EQ(s.GetZMagnify(0), 2.0f);
    EXPECT_EQ(s.GetDataItem(0)->GetZText(),
              "V [Sens. Zsens] (" + Printed16(220.0 / 4294967295.0) + " V/LSB) 220.0000000000000 V");
    EXPECT_EQ(s.GetDataItem(0)->GetMagnifyText(), "C [2:Z scale] 2.000000000000000 ");
    // What is shown keeps its size: hardware scale times magnify.
    EXPECT_DOUBLE_EQ(s.GetDataScale(0, false).GetValue(), 440.0);
    EXPECT_TRUE(messages.asserts.empty());

    const auto again = disk.SaveAndReopen();
    EXPECT_EQ(again->GetZScaleInHwUnits(0), 220.0f);
    EXPECT_EQ(again->GetZScaleInSwUnits(0), 2750.0f);
    EXPECT_EQ(again->GetZMagnify(0), 2.0f);
    EXPECT_DOUBLE_EQ(again->GetDataScale(0, false).GetValue(), 440.0);
}

TEST(QuillonScaleChangesTest, NewDataScaleIsTakenUpByTheMagnify) {
    QuillonBuilder file("IMAGE");
    const FileOnDisk disk("data_scale", file);
    Source& s = *disk.source;
    ASSERT_DOUBLE_EQ(s.GetDataScale(0, true).GetValue(), 5500.0);
    MessageCapture messages;
    UValue half(2750.0, "nm");
    s.SetDataScale(0, half, true);
    EXPECT_DOUBLE_EQ(half.GetValue(), 2750.0);
    EXPECT_EQ(QuillonTest::UnitOf(half), "nm");
    EXPECT_DOUBLE_EQ(s.GetDataScale(0, false).GetValue(), 220.0);
    EXPECT_EQ(s.GetZMagnify(0), 2.0f);
    EXPECT_EQ(s.GetDataItem(0)->GetMagnifyText(), "C [2:Z scale] 2.000000000000000 ");
    EXPECT_TRUE(messages.asserts.empty());
    EXPECT_EQ(disk.SaveAndReopen()->GetZMagnify(0), 2.0f);

    // A scale in volts cannot be a channel's scale in nanometres.
    UValue volts(3.0, "V");
    s.SetDataScale(0, volts, true);
    EXPECT_EQ(messages.asserts, std::vector<std::string>{kAssertion});
    EXPECT_EQ(s.GetZMagnify(0), 2.0f);
    EXPECT_DOUBLE_EQ(s.GetDataScale(0, false).GetValue(), 220.0);
}

TEST(QuillonScaleChangesTest, SensitivityIsSharedWithTheChannelsThatNameItWhenAsked) {
    QuillonBuilder file("IMAGE");
    file.AddImageChannel("Dulce image list#3");
    const FileOnDisk disk("sensitivity", file);
    Source& s = *disk.source;
    s.SetZSensitivity(0, 20.0, "nm", false);
    EXPECT_EQ(s.GetZSensitivitySoftScale(0), 20.0);
    EXPECT_EQ(s.GetZScaleInSwUnits(0), 8800.0f);
    EXPECT_EQ(s.GetDataItem(0)->GetSensitivityText(), "V 20 nm/V");
    EXPECT_EQ(s.GetZSensitivitySoftScale(2), 12.5);

    s.SetZSensitivity(0, 30.0, "nm", true);
    for (unsigned c : {0u, 2u}) {
        EXPECT_EQ(s.GetZSensitivitySoftScale(c), 30.0) << c;
        EXPECT_EQ(s.GetZScaleInSwUnits(c), 13200.0f) << c;
        EXPECT_EQ(s.GetDataItem(c)->GetSensitivityText(), "V 30 nm/V") << c;
        EXPECT_EQ(s.GetDataItem(c)->GetForceZOffset(true).GetUnits()->GetName(), "nm") << c;
    }
    EXPECT_EQ(s.GetZSensitivitySoftScale(1), 45.5);

    // A sensitivity in millivolts per volt counts the volts of the hardware scale.
    s.SetZSensitivity(1, 500.0, "mV", false);
    EXPECT_FLOAT_EQ(s.GetZScaleInSwUnits(1), 0.5f * 24.576f);
    EXPECT_EQ(s.GetDataItem(1)->GetSensitivityText(), "V 500 mV/V");

    const auto again = disk.SaveAndReopen();
    EXPECT_EQ(TextOf(SectionOf(disk.Target("saved.spm"), "Scanner list"), "@Sens. Zsens"), "V 30 nm/V");
    for (unsigned c : {0u, 2u}) {
        EXPECT_EQ(again->GetZSensitivitySoftScale(c), 30.0) << c;
        EXPECT_EQ(again->GetZScaleInSwUnits(c), 13200.0f) << c;
    }
    EXPECT_EQ(again->GetZSensitivitySoftScale(1), 500.0);
}

TEST(QuillonScaleChangesTest, TextsWithoutTheirMarksKeepWhatTheyCannotPlace) {
    QuillonBuilder file("IMAGE");
    file.Text(kImage, "@2:Z scale", "440 V").Text(kImage, "@Z magnify", "2.5");
    file.Text("Scanner list", "@Sens. DeflSens", "V 3.5 nm");
    const FileOnDisk disk("marks", file);
    Source& s = *disk.source;
    s.SetChannelParameters(0, 2.0f);
    EXPECT_EQ(s.GetDataItem(0)->GetZText(), "440 V");
    EXPECT_EQ(s.GetDataItem(0)->GetMagnifyText(), "2.5");
    s.SetZSensitivity(0, 4.0, "nm", false);
    EXPECT_EQ(s.GetDataItem(0)->GetSensitivityText(), "V 4 nm");
    // A sensitivity that was not given per volt is not made one.
    s.SetZSensitivity(1, 4.25, "nm", false);
    EXPECT_EQ(s.GetDataItem(1)->GetSensitivityText(), "V 4.25 nm");
    disk.SaveAndReopen();
}
