// Axis ranges and ticks: round steps that hold the data, for every range a
// file can give, the hostile ones too.

#include "tools/dstool/AxisScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Dstool::AxisScale;

TEST(AxisScaleTest, TicksAreRoundStepsThatHoldTheData)
{
    struct Case {
        double low, high;
        double step;
    } cases[] = {
        {0.0, 511.0, 100.0},      // points of a curve
        {-9.7, 61.2, 10.0},       // a deflection in nm
        {0.0, 2.5, 0.5},          // seconds of a script
        {-3e-9, 4e-9, 1e-9},      // a tiny scale
        {1e5, 1.0004e5, 5.0},     // a narrow range far from zero
    };
    for (const Case& c : cases) {
        const AxisScale axis(c.low, c.high, 6);
        EXPECT_LE(axis.Low(), c.low) << c.low;
        EXPECT_GE(axis.High(), c.high) << c.high;
        ASSERT_GE(axis.Ticks().size(), 2u);
        EXPECT_NEAR(axis.Ticks()[1] - axis.Ticks()[0], c.step, c.step * 1e-9) << c.low << ".." << c.high;
        EXPECT_NEAR(axis.Ticks().front(), axis.Low(), c.step * 1e-9);
        EXPECT_NEAR(axis.Ticks().back(), axis.High(), c.step * 1e-9);
        EXPECT_LE(axis.Ticks().size(), 12u);
    }
}

TEST(AxisScaleTest, RangesWithoutWidthOrWithoutNumbersStillMakeAnAxis)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const double max = std::numeric_limits<double>::max();
    const double ranges[][2] = {{0.0, 0.0}, {42.0, 42.0}, {nan, nan}, {-inf, inf}, {-max, max}, {5.0, -5.0},
                                {inf, -inf}, {1e-310, 1e-310}};
    for (const auto& r : ranges) {
        const AxisScale axis(r[0], r[1], 6);
        EXPECT_TRUE(std::isfinite(axis.Low()) && std::isfinite(axis.High())) << r[0] << " " << r[1];
        EXPECT_LT(axis.Low(), axis.High()) << r[0] << " " << r[1];
        EXPECT_GE(axis.Ticks().size(), 2u) << r[0] << " " << r[1];
        EXPECT_LE(axis.Ticks().size(), 64u);
        EXPECT_TRUE(std::isfinite(axis.Fraction(axis.Ticks().front())));
    }
}

TEST(AxisScaleTest, LabelsShowAsManyDecimalsAsTheStepNeeds)
{
    const AxisScale points(0.0, 511.0, 6);
    EXPECT_EQ(points.Label(300.0), "300");
    const AxisScale seconds(0.0, 2.5, 6);
    EXPECT_EQ(seconds.Label(1.5), "1.5");
    EXPECT_EQ(seconds.Label(2.0), "2.0");
    const AxisScale small(-0.003, 0.004, 6);
    EXPECT_EQ(small.Label(-0.002), "-0.002");
    // a tick at zero reached by adding steps is no "-0"
    EXPECT_EQ(small.Label(-1e-19), "0.000");
    const AxisScale huge(0.0, 5e9, 6);
    EXPECT_EQ(huge.Label(2e9), "2e+09");
}

TEST(AxisScaleTest, FractionRunsFromLowToHigh)
{
    const AxisScale axis(-10.0, 70.0, 8);
    EXPECT_DOUBLE_EQ(axis.Fraction(axis.Low()), 0.0);
    EXPECT_DOUBLE_EQ(axis.Fraction(axis.High()), 1.0);
    EXPECT_GT(axis.Fraction(30.0), axis.Fraction(20.0));
}

}  // namespace
