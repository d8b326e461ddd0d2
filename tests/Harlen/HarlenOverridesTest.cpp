// The operations a Harlen source answers in its own way: dates, changes of
// sensitivity and scale, and the parameters it lists.

#include <gtest/gtest.h>

#include "Harlen/HarlenTestSupport.h"
#include "support/MessageCapture.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"

using namespace HarlenTest;
using TestSupport::MessageCapture;

TEST(HarlenOverridesTest, DatesAreAlwaysInTheTwelfthMonth) {
    struct Case {
        const char* text;
        int hours, minutes, seconds, day, year;
    };
    const Case cases[] = {
        {"Mar/04/2021 10:11:12 PM", 22, 11, 12, 4, 121},
        {"Jan/31/1999 12:05:00 AM", 0, 5, 0, 31, 99},
        {"Dec/01/2000 12:00:59 pm", 12, 0, 59, 1, 100},
        {"Jul/15/2010 07:30:00", 7, 30, 0, 15, 110},
    };
    for (const Case& c : cases) {
        const auto date =
            Open(HarlenBuilder::Image(2, 2).Text("[Data Parameters]", "CreationTime", c.text))->GetDateTime();
        EXPECT_TRUE(date.valid) << c.text;
        EXPECT_EQ(date.month, 12) << c.text;
        EXPECT_EQ(date.hours, c.hours) << c.text;
        EXPECT_EQ(date.minutes, c.minutes) << c.text;
        EXPECT_EQ(date.seconds, c.seconds) << c.text;
        EXPECT_EQ(date.dayOfMonth, c.day) << c.text;
        EXPECT_EQ(date.year, c.year) << c.text;
        EXPECT_EQ(date.daylight, -1) << c.text;
    }
    const auto unreadable =
        Open(HarlenBuilder::Image(2, 2).Text("[Data Parameters]", "CreationTime", "2021-03-04"))->GetDateTime();
    EXPECT_FALSE(unreadable.valid);
    EXPECT_EQ(unreadable.month, 12);
}

TEST(HarlenOverridesTest, NewSensitivityRescalesTheSoftScaleOfAnImage) {
    const auto source = Open(HarlenBuilder::Image(4, 4));
    const float hard = source->GetZScaleInHwUnits(0);
    source->SetZSensitivity(0, 20.0, "nm", false);
    EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(0), hard * 20.0f);
    EXPECT_FLOAT_EQ(source->GetZScaleInHwUnits(0), hard);
    EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(0), 20.0);
    EXPECT_EQ(source->GetZSensitivityUnits(0), "nm");
    EXPECT_EQ(source->GetDataItem(0)->GetSensitivityText(), "V 20 nm");
    EXPECT_EQ(source->GetDataItem(0)->GetForceZOffset(true).GetUnits()->GetName(), "nm");
    EXPECT_TRUE(source->GetDataItem(0)->GetItemFlag2());
    EXPECT_EQ(source->GetZTransferUnit(), "nm/V");

    source->SetZSensitivity(0, 0.02, "\xB5m", false);
    EXPECT_EQ(source->GetZTransferUnit(), "\xB5m/V");
}

TEST(HarlenOverridesTest, DeflectionOfAForceSetTakesOnlyNanometres) {
    const auto source = Open(HarlenBuilder::Force(8));
    const unsigned defl = 0;
    const float hard = source->GetZScaleInHwUnits(defl);
    source->SetZSensitivity(defl, 50.0, "", false);  // no unit is nanometres
    EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(defl), 50.0);
    EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(defl), static_cast<float>(static_cast<double>(hard) * 50.0));
    EXPECT_FALSE(source->GetDataItem(defl)->GetItemFlag2());

    source->SetZSensitivity(defl, 60.0, "V", false);
    EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(defl), 50.0);
    source->SetZSensitivity(defl, 60.0, "pm", false);
    EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(defl), 50.0);
}

TEST(HarlenOverridesTest, DataScaleMovesTheMagnifyAndAssertsOnAnotherUnit) {
    const auto source = Open(HarlenBuilder::Image(4, 4));
    const double span = source->GetDataSpan();
    MessageCapture messages;
    UValue doubled(2.0 * span, UnitNamed("V"));
    source->SetDataScale(0, doubled, false);
    EXPECT_FLOAT_EQ(source->GetZMagnify(0), 2.0f);
    EXPECT_DOUBLE_EQ(source->GetDataScale(0, false).GetValue(), 2.0 * span);
    EXPECT_TRUE(messages.asserts.empty());

    UValue millivolts(span * 1000.0, UnitNamed("mV"));
    source->SetDataScale(0, millivolts, false);
    EXPECT_EQ(messages.asserts, std::vector<std::string>{"HarlenOLDataSource::SetDataScale: "
                                                         "dataScalecurrent.GetUnits()->GetName() == "
                                                         "dataScaleNew.GetUnits()->GetName()"});
}

TEST(HarlenOverridesTest, ChannelParametersDivideTheScalesByAFactor) {
    const auto source = Open(HarlenBuilder::Image(4, 4));
    const float soft = source->GetZScaleInSwUnits(0);
    const float hard = source->GetZScaleInHwUnits(0);
    const double range = source->GetDataRange().GetValue();

    source->SetChannelParameters(0, 0.0f);
    EXPECT_EQ(source->GetZScaleInSwUnits(0), soft);
    EXPECT_FALSE(source->GetDataItem(0)->GetItemFlag2());

    source->SetChannelParameters(0, 4.0f);
    EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(0), soft / 4.0f);
    EXPECT_FLOAT_EQ(source->GetZScaleInHwUnits(0), hard / 4.0f);
    EXPECT_DOUBLE_EQ(source->GetDataItem(0)->GetItemValue(), 4.0);
    EXPECT_TRUE(source->GetDataItem(0)->GetItemFlag2());
    EXPECT_DOUBLE_EQ(source->GetDataRange().GetValue(), range / 4.0);
    EXPECT_DOUBLE_EQ(source->GetDataScale(0, false).GetValue(), range / 4.0);
}

TEST(HarlenOverridesTest, ParametersAreListedFromTheFile) {
    const auto source = Open(HarlenBuilder::Image(4, 4));
    EXPECT_EQ(source->GetDataPlistNames(),
              (std::vector<std::string>{"HarlenFileOverviewInfo", "[Data Version]", "[Data Parameters]",
                                        "[PreProcessing]", "[System Info]", "[Data]"}));
    EXPECT_EQ(source->GetParameterListForItem("[Data Parameters]", "ScanningRate"), "1.5 Hz");
    EXPECT_EQ(source->GetParameterListForItem("[Data Parameters]", "NoSuchKey"), "");
    EXPECT_EQ(source->GetParameterListForItem("[No Such Section]", "ScanningRate"), "");

    // Nothing to remove from a file of one channel.
    source->RemoveChannel(0);
    EXPECT_EQ(source->GetNumberOfChannels(), 1);
    EXPECT_TRUE(source->IsOpen());
}
