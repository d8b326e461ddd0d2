#include "Quillon/QuillonTestSupport.h"

#include <gtest/gtest.h>

using namespace QuillonTest;

namespace {

const char* const kForce = "Dulce force list";

}  // namespace

TEST(QuillonForceParametersTest, SamplesPerLinePairAndRetraceOverride) {
    struct Case {
        const char* pair;  // null: no key
        const char* retrace;
        int samples;
        int trace;
    };
    const Case cases[] = {
        {"512 256", nullptr, 512, 256}, {"512 256", "300", 300, 256}, {nullptr, nullptr, 512, 512}, {"64", nullptr, 64, 512}};
    for (const Case& c : cases) {
        QuillonBuilder file("FORCE");
        c.pair ? file.Text(kForce, "Samps/line", c.pair) : file.Remove(kForce, "Samps/line");
        if (c.retrace) {
            file.Int(kForce, "Samps/line, retrace", std::atoi(c.retrace));
        }
        auto s = Load(file);
        EXPECT_EQ(s->GetForceSamplesPerLine(), c.samples) << (c.pair ? c.pair : "none");
        EXPECT_EQ(s->GetNumberOfTracePoints(), c.trace);
    }
}

TEST(QuillonForceParametersTest, ListValuesHoldAndSegments) {
    QuillonBuilder file("SCRIPT");
    file.Remove(kForce, "Scan rate").Double(kForce, "Scan Rate", 3.0).Text(kForce, "Hold Time", "1.25s");
    auto s = Load(file);
    EXPECT_EQ(s->GetUnitDisplay(), "Metric");
    EXPECT_EQ(s->GetDisplayMode(), "Extend");
    EXPECT_EQ(s->scanRateValue, 3.0);
    EXPECT_EQ(s->GetNumberOfHoldPoints(), 4);
    EXPECT_EQ(s->GetForceHoldTime(), 1.25);
    EXPECT_EQ(s->GetSegmentCount(), 3);
    EXPECT_EQ(s->GetSegmentSizeList(), "8,8,4");
    EXPECT_EQ(s->GetSegmentDurationList(), "0.5,0.5,0.25");
    EXPECT_EQ(s->GetSegmentRampSizeList(), "40,-40,0");
    EXPECT_EQ(s->GetSegmentTypeList(), "1,3,6");
    EXPECT_EQ(s->GetForcesPerLine(), 1);
    EXPECT_EQ(s->GetZDirection(), "Retract");
    EXPECT_EQ(s->GetRampChannel(), "Z");

    QuillonBuilder fallback("FORCE");
    fallback.Text(kForce, "@4:Ramp Channel", "").Text(kForce, "@4:Ramp channel", "S [x] \"Height\"");
    EXPECT_EQ(Load(fallback)->GetRampChannel(), "Height");
    QuillonBuilder first("FORCE");
    first.Text(kForce, "@4:Ramp Channel", "S [x] \"Drive\"").Text(kForce, "Samps/line", "no numbers");
    EXPECT_EQ(Load(first)->GetRampChannel(), "Drive");
    EXPECT_EQ(Load(first)->GetNumberOfTracePoints(), 512);
}

TEST(QuillonForceParametersTest, TriggerGroupSetsTheForceSetpointOfVolumes) {
    struct Case {
        const char* holdType;
        const char* triggerMode;
        double setpoint;
    };
    const Case cases[] = {{"Trigger Force", "Relative", 0.1}, {"Trigger Force", "Absolute", 0.0},
                          {"Defined Force", "Absolute", 0.25}, {"Defined force", "Relative", 0.0}};
    for (const Case& c : cases) {
        QuillonBuilder file("FVOL");
        file.Text(kForce, "Hold Type", c.holdType).Text(kForce, "Trigger mode", c.triggerMode);
        // The setpoint is read in single precision.
        EXPECT_EQ(Load(file)->GetHoldForceDeflection(), static_cast<float>(c.setpoint)) << c.holdType << " " << c.triggerMode;
    }
    QuillonBuilder force("FORCE");
    force.Text(kForce, "Hold Type", "Defined Force").Text(kForce, "@4:Hold Force Deflection", "V (1 V/LSB) 3 V");
    EXPECT_EQ(Load(force)->GetHoldForceDeflection(), 0.0);
}

TEST(QuillonForceParametersTest, BaselineMethodByItsDefaultChain) {
    struct Case {
        const char* fit;     // null: no key
        const char* centre;  // null: no key
        const char* method;
    };
    const Case cases[] = {{"Zero Line", "Enabled", "Zero Line"},
                          {nullptr, "Enabled", "Offset Retract"},
                          {nullptr, "Disabled", "None"},
                          {nullptr, nullptr, "Line Extend"}};
    for (const Case& c : cases) {
        QuillonBuilder file("FORCE");
        file.Remove(kForce, "Baseline Start").Remove(kForce, "Baseline Stop");
        c.fit ? file.Text(kForce, "Deflection Baseline Fit", c.fit) : file.Remove(kForce, "Deflection Baseline Fit");
        if (c.centre) {
            file.Text(kForce, "Center plot", c.centre);
        }
        auto s = Load(file);
        EXPECT_EQ(s->GetDeflectionBaselineFit(), c.method);
        EXPECT_EQ(s->GetBaselineStart(), 0.0);
        EXPECT_EQ(s->GetBaselineStop(), 20.0);
    }
    QuillonBuilder bounds("FORCE");
    bounds.Text(kForce, "Baseline Start", "5.5").Text(kForce, "Baseline Stop", "x");
    EXPECT_EQ(Load(bounds)->GetBaselineStart(), 5.5);
    EXPECT_EQ(Load(bounds)->GetBaselineStop(), 0.0);  // atof of a word
}

TEST(QuillonForceParametersTest, SweepBoundsByKeyOrder) {
    const char* const start = "@4:Sweep Start ";
    QuillonBuilder file("FORCE");
    file.Text(kForce, "@4:Sweep Type", "S [x] \"Amplitude2\"")
        .Text(kForce, std::string(start) + "CantFrequency", "V (1 V/LSB) 30 kHz")
        .Text(kForce, std::string(start) + "DriveFrequency2Ramp", "V (1 V/LSB) 20 KHz")
        .Text(kForce, std::string(start) + "Amplitude2", "V (1 V/LSB) 10 kHz")
        .Text(kForce, "@4:Sweep End DriveFrequency3NonSoftLyrant", "V (1 V/LSB) 90 kHz")
        .Text(kForce, "@4:Sweep End CantFrequency", "V (1 V/LSB) 80 kHz");
    auto s = Load(file);
    EXPECT_EQ(s->GetForceSweepChannel(), "Amplitude2");
    EXPECT_EQ(s->GetForceSweepStart().GetValue(), 10.0);
    EXPECT_EQ(s->GetForceSweepEnd().GetValue(), 80.0);

    // Without the channel's key the drive frequency comes first, "KHz" read as "kHz".
    file.Remove(kForce, std::string(start) + "Amplitude2");
    EXPECT_EQ(Load(file)->GetForceSweepStart().GetValue(), 20.0);
    EXPECT_EQ(UnitOf(Load(file)->GetForceSweepStart()), "kHz");
    // A key that is found with no text ends the search with no bound.
    file.Text(kForce, std::string(start) + "DriveFrequency2Ramp", "");
    EXPECT_EQ(Load(file)->GetForceSweepStart().GetValue(), 0.0);
    // The older key names the channel when the newer is empty.
    QuillonBuilder older("FORCE");
    older.Text(kForce, "@4:Sweep Type", "").Text(kForce, "@4:Sweep channel", "S [y] \"Drive\"");
    EXPECT_EQ(Load(older)->GetForceSweepChannel(), "Drive");
    QuillonBuilder none("FORCE");
    EXPECT_FALSE(Load(none)->IsForceSweep());
}

TEST(QuillonForceParametersTest, HighSpeedAndElectrochemistryLists) {
    QuillonBuilder hsdc("HSDC");
    auto h = Load(hsdc);
    EXPECT_EQ(h->GetHsdcDelay(), 0.001);
    EXPECT_EQ(h->GetHsdcDuration(), 0.01);
    EXPECT_EQ(h->GetHsdcXPosition(), 12);

    QuillonBuilder stm("ECSTM");
    stm.Text("Scanner list", "@Sens. EC Pot", "V 2000000 Pa/V").Remove("EC Potentio STM list", "@2:EC Bias");
    auto s = Load(stm);
    // The hard number of the text times the sensitivity it names, in the sensitivity's unit.
    EXPECT_NEAR(s->GetEcCurrentInput().GetValue(), 0.0003 * 10.0, 1e-12);
    EXPECT_EQ(UnitOf(s->GetEcCurrentInput()), "nA");
    // Pressures read as MPa above a million pascal.
    EXPECT_NEAR(s->GetEcPotInput().GetValue(), 0.0003 * 2.0, 1e-12);
    EXPECT_EQ(UnitOf(s->GetEcPotInput()), "MPa");
    EXPECT_EQ(s->GetEcPotOutput().GetValue(), 0.0003);
    EXPECT_EQ(UnitOf(s->GetEcPotOutput()), "Volts");
    EXPECT_EQ(s->GetEcBias().GetValue(), 1.0);  // missing
    EXPECT_EQ(s->GetTipReference(), "Ag/AgCl");
    EXPECT_EQ(s->GetTipCurrent(), 1e-9);
    EXPECT_EQ(s->GetPotentiostatElectrodeArea(), 0.25);
    EXPECT_EQ(s->GetVoltamVoltMin(), -0.4);

    QuillonBuilder afm("ECAFM");
    auto a = Load(afm);
    EXPECT_EQ(a->GetTipReference(), "");  // only the tunnelling list has it
    EXPECT_EQ(a->GetTemporalCurrentRange(), 0.0001);
    EXPECT_EQ(a->GetVoltamCurrentRange(), 0.0002);
    EXPECT_EQ(a->GetEcFunction(2), "Linear");
    EXPECT_EQ(a->GetTemporalTimeEnd(), 10.0);
}
