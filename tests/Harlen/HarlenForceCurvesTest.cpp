// Opening Harlen force sets: labels, the curve items in their order, the
// layout and scale of their counts, the deflection rows, and the ramp.

#include <gtest/gtest.h>

#include <cmath>

#include "Harlen/HarlenTestSupport.h"
#include "support/LogCapture.h"

using namespace HarlenTest;
using TestSupport::LogCapture;
using Orx::DataCore::FloatMatrix;
using Orx::DataCore::FloatMatrixVector;

namespace {

std::vector<std::string> namesOf(const HarlenOLDataSource& source) {
    std::vector<std::string> names;
    for (int c = 0; c < source.GetNumberOfChannels(); ++c) {
        names.push_back(source.GetDataTypeDesc(static_cast<unsigned>(c)));
    }
    return names;
}

std::vector<std::string> axesOf(const HarlenOLDataSource& source) {
    std::vector<std::string> axes;
    for (int c = 0; c < source.GetNumberOfChannels(); ++c) {
        axes.push_back(source.GetXDataType(static_cast<unsigned>(c)));
    }
    return axes;
}

// Rows of count positions, each row holding first + row + position * step.
FloatMatrixVector linearCurves(std::size_t count, std::size_t rows, float step) {
    FloatMatrixVector curves;
    for (std::size_t c = 0; c < count; ++c) {
        FloatMatrix m(rows, 1);
        for (std::size_t r = 0; r < rows; ++r) {
            m(r, 0) = static_cast<float>(r) + static_cast<float>(c) * step;
        }
        curves.push_back(m);
    }
    return curves;
}

}  // namespace

TEST(HarlenForceCurvesTest, LabelsOtherThanEightOrSixteenAreRefused) {
    for (const char* labels : {"a,b,c,d,e,f,g,h,i,j,k,l", ""}) {
        LogCapture log;
        EXPECT_FALSE(
            Open(HarlenBuilder::Force(4).Text("HarlenFileOverviewInfo", "ForceCurveDataLabels", labels))->IsOpen());
        ASSERT_EQ(log.lines.size(), 1u) << labels;
        EXPECT_EQ(log.lines[0].severity, 2);
        EXPECT_EQ(log.lines[0].text, "HarlenOLDataSource::Initialize failed to open get [Data Version]");
    }
}

TEST(HarlenForceCurvesTest, EightLabelsGiveThreeItemsForEachPoint) {
    const auto one = Open(HarlenBuilder::Force(8));
    ASSERT_TRUE(one->IsOpen());
    EXPECT_TRUE(one->IsForceFile());
    EXPECT_FALSE(one->HasSixteenLabels());
    EXPECT_EQ(namesOf(*one), (std::vector<std::string>{"Defl", "Z", "Defl"}));
    EXPECT_EQ(axesOf(*one), (std::vector<std::string>{"Time", "Time", "Ch 2: Z"}));
    EXPECT_EQ(one->GetNumberOfDisplayChannels(), 3);

    // Two points: four rows each, numbered from 1.
    const auto two = Open(HarlenBuilder::Force(8)
                              .Int("HarlenFileOverviewInfo", "NumberOfDataPlists", 4)
                              .Curves(linearCurves(8, 8, 1.0f)));
    ASSERT_TRUE(two->IsOpen());
    EXPECT_EQ(namesOf(*two), (std::vector<std::string>{"Point 1: Defl", "Point 1: Z", "Point 1: Defl", "Point 2: Defl",
                                                       "Point 2: Z", "Point 2: Defl"}));
    EXPECT_EQ(axesOf(*two)[2], "Ch 2: Point 1: Z");
    EXPECT_EQ(axesOf(*two)[5], "Ch 5: Point 2: Z");
    // The second point's Z item reads rows 4 and 6, whose largest sample is
    // 6 + 7; its first trace count is row 4 of the last position.
    EXPECT_EQ(two->GetData(4)[0], static_cast<std::int32_t>(std::trunc(11.0 * (2147483647.0 / 13.0))));
}

TEST(HarlenForceCurvesTest, SixteenLabelsGiveFourItemsInTheirOrder) {
    const auto source = Open(HarlenBuilder::Force(8, 16));
    ASSERT_TRUE(source->IsOpen());
    EXPECT_TRUE(source->HasSixteenLabels());
    EXPECT_EQ(namesOf(*source), (std::vector<std::string>{"Defl", "Lateral", "Z", "Defl"}));
    EXPECT_EQ(axesOf(*source), (std::vector<std::string>{"Ch 3: Z", "Ch 3: Z", "Time", "Ch 2: Lateral"}));
}

TEST(HarlenForceCurvesTest, TraceRunsBackwardsAndRetraceForwardsAtFullScale) {
    // 5 positions fill 8 points; rows 0 and 2 make the Z item.
    const auto source = Open(HarlenBuilder::Force(5).Curves(linearCurves(5, 4, 1.0f)));
    ASSERT_TRUE(source->IsOpen());
    const unsigned z = 1;
    EXPECT_EQ(source->GetDataBufferSize(z), 16u);
    EXPECT_EQ(source->GetTracePoints(z), 5u);
    EXPECT_EQ(source->GetRetracePoints(z), 5u);
    EXPECT_EQ(source->GetSamplesPerLine(z), 8u);
    EXPECT_EQ(source->GetDataLength(z), 32u);
    // The largest sample of both rows, 2 + 4, reaches the top count.
    const double scale = 2147483647.0 / 6.0;
    EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(z), static_cast<float>(1.0 / scale));
    EXPECT_FLOAT_EQ(source->GetZScaleInHwUnits(z), static_cast<float>(1.0 / scale));
    const std::int32_t* counts = source->GetData(z);
    for (int c = 0; c < 5; ++c) {
        EXPECT_EQ(counts[4 - c], static_cast<std::int32_t>(std::trunc(c * scale))) << c;
        EXPECT_EQ(counts[8 + c], static_cast<std::int32_t>(std::trunc((2.0 + c) * scale))) << c;
    }
    for (int i : {5, 6, 7, 13, 14, 15}) {
        EXPECT_EQ(counts[i], 0) << i;
    }
}

TEST(HarlenForceCurvesTest, CurvesOfZerosAreCountedOneToOne) {
    const auto source = Open(HarlenBuilder::Force(4).Curves(FloatMatrixVector(4, FloatMatrix(4, 1, 0.0f))));
    ASSERT_TRUE(source->IsOpen());
    for (unsigned c = 0; c < 3; ++c) {
        EXPECT_FLOAT_EQ(source->GetZScaleInHwUnits(c), 1.0f) << c;
        for (std::uint32_t i = 0; i < source->GetDataBufferSize(c); ++i) {
            EXPECT_EQ(source->GetData(c)[i], 0);
        }
    }
}

TEST(HarlenForceCurvesTest, DeflectionRowsAreShownInVoltsThroughTheirSensitivity) {
    struct Case {
        const char* unit;       // of the deflection rows
        double hardTimesScale;  // the hardware scale times the item's count scale
    };
    // 45.5 nm per volt; a spring of 0.2 N/m.
    const Case cases[] = {{"V", 1.0}, {"nm", 1.0 / 45.5}, {"nN", 1.0 / (45.5 * 0.2)}};
    for (const Case& c : cases) {
        const std::string u = c.unit;
        const auto source = Open(HarlenBuilder::Force(6)
                                     .Text("HarlenFileOverviewInfo", "ForceCurveDataLabels",
                                           "Trace Z,nm,Trace Defl," + u + ",Retrace Z,nm,Retrace Defl," + u)
                                     .Curves(linearCurves(6, 4, 0.5f)));
        ASSERT_TRUE(source->IsOpen()) << u;
        const unsigned defl = 0;
        const double scale = 2147483647.0 / (3.0 + 5 * 0.5);  // rows 1 and 3
        EXPECT_EQ(source->GetDataScaleName(defl), "V") << u;
        EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(defl), 45.5) << u;
        EXPECT_EQ(source->GetZSensitivityUnits(defl), "nm") << u;
        EXPECT_DOUBLE_EQ(source->GetForceSpringConstant(defl), 0.2) << u;
        EXPECT_FLOAT_EQ(source->GetZScaleInHwUnits(defl), static_cast<float>(c.hardTimesScale / scale)) << u;
        EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(defl), static_cast<float>(c.hardTimesScale / scale * 45.5)) << u;
        EXPECT_NEAR(source->GetDataScale(defl, false).GetValue(), c.hardTimesScale / scale, 1e-15) << u;
        // The Z row takes no sensitivity.
        EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(1), 1.0);
        EXPECT_EQ(source->GetZSensitivityUnits(1), "");
        EXPECT_DOUBLE_EQ(source->GetForceSpringConstant(1), 1.0);
    }
}

TEST(HarlenForceCurvesTest, DeflectionSensitivityReadsItsNumberAndUnit) {
    const std::tuple<const char*, double, const char*> cases[] = {
        {"0.0455 um", 45.5, "nm"},  // micrometres are taken in nanometres
        {"0.0455 \xB5m", 45.5, "nm"},
        {"0 nm", 1.0, ""},  // no sensitivity
        {"1 nm", 1.0, ""},
        {"nm", 1.0, ""},  // no number before a blank
        {"0x20 nm", 32.0, "nm"},
    };
    for (const auto& [text, value, unit] : cases) {
        const auto source =
            Open(HarlenBuilder::Force(4).Text("[Point Spectroscopy Data]", "Deflection Sensitivity", text));
        EXPECT_DOUBLE_EQ(source->GetDeflectionSensitivity(), value) << text;
        EXPECT_EQ(source->GetDeflectionUnit(), unit) << text;
    }
    // With a sensitivity of 1 a deflection row keeps no sensitivity at all.
    const auto plain =
        Open(HarlenBuilder::Force(4).Text("[Point Spectroscopy Data]", "Deflection Sensitivity", "1 nm"));
    EXPECT_EQ(plain->GetDataScaleName(0), "V");
    EXPECT_DOUBLE_EQ(plain->GetZSensitivitySoftScale(0), 1.0);
    EXPECT_EQ(plain->GetZSensitivityUnits(0), "");
}

TEST(HarlenForceCurvesTest, FirstDeflectionRowOfTheProcessDecidesTheUnitSystem) {
    const auto labelled = [](const std::string& unit) {
        return HarlenBuilder::Force(4).Text("HarlenFileOverviewInfo", "ForceCurveDataLabels",
                                            "Trace Z,nm,Trace Defl," + unit + ",Retrace Z,nm,Retrace Defl," + unit);
    };
    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    const auto first = Open(labelled("nN"));
    EXPECT_EQ(first->GetUnits(), "Force");
    EXPECT_EQ(first->GetUnitDisplay(), "Force");
    // Once decided, later sources keep the metric system of their files.
    EXPECT_EQ(Open(labelled("nN"))->GetUnits(), "Metric");
    EXPECT_EQ(Open(labelled("V"))->GetUnits(), "Metric");

    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    EXPECT_EQ(Open(labelled("mV"))->GetUnits(), "Volt");
    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    EXPECT_EQ(Open(labelled("nm"))->GetUnits(), "Metric");
}

TEST(HarlenForceCurvesTest, RampRatesAndRange) {
    const auto source = Open(HarlenBuilder::Force(4).Text("[Point Spectroscopy Data]", "Retreat Rate", "3.5 V/s"));
    // 1 um/s is 1000 nm/s, at 12.5 nm per volt.
    EXPECT_DOUBLE_EQ(source->GetForwardRampVelocity(0, false), 80.0);
    EXPECT_DOUBLE_EQ(source->GetReverseRampVelocity(0, false), 3.5);
    EXPECT_DOUBLE_EQ(source->GetScanSize().GetValue(), 800.0);
    EXPECT_DOUBLE_EQ(source->GetRampSize(0, false).GetValue(), 800.0);
    EXPECT_EQ(source->GetRampSize(0, false).GetUnits()->GetName(), "nm");
    EXPECT_DOUBLE_EQ(source->GetRampBegin(0, false).GetValue(), HarlenBuilder::kRampStart);
    EXPECT_DOUBLE_EQ(source->GetForceDefault(), 1.02796);
    EXPECT_EQ(source->GetAxisName(), "Z");

    // A ramp in micrometres: the source keeps it, the items take nanometres.
    const auto micro = Open(HarlenBuilder::Force(4)
                                .Unitized("[Point Spectroscopy Data]", "Z Start", 0.0, "\xB5m")
                                .Unitized("[Point Spectroscopy Data]", "Z End", 1.5, "\xB5m"));
    EXPECT_DOUBLE_EQ(micro->GetScanSize().GetValue(), 1.5);
    EXPECT_DOUBLE_EQ(micro->GetRampSize(0, false).GetValue(), 1500.0);
}

TEST(HarlenForceCurvesTest, DriveEndIsReadOnlyBesideADriveStart) {
    const auto drive = Open(HarlenBuilder::Force(4)
                                .Remove("[Point Spectroscopy Data]", "Z Start")
                                .Remove("[Point Spectroscopy Data]", "Z End")
                                .Unitized("[Point Spectroscopy Data]", "Drive Start", 10.0, "nm")
                                .Unitized("[Point Spectroscopy Data]", "Drive End", 110.0, "nm"));
    EXPECT_DOUBLE_EQ(drive->GetScanSize().GetValue(), 100.0);

    const auto lone = Open(HarlenBuilder::Force(4)
                               .Remove("[Point Spectroscopy Data]", "Z End")
                               .Unitized("[Point Spectroscopy Data]", "Drive End", 110.0, "nm"));
    EXPECT_DOUBLE_EQ(lone->GetScanSize().GetValue(), -HarlenBuilder::kRampStart);
}

TEST(HarlenForceCurvesTest, MissingDataLeavesTheSourceClosedWithoutAWord) {
    LogCapture log;
    EXPECT_FALSE(Open(HarlenBuilder::Force(4).RemoveSection("[Data]"))->IsOpen());
    EXPECT_TRUE(log.lines.empty());
}
