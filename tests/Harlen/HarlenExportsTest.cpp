// Harlen files read end to end through the flat exports, as a host reads them.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "Harlen/HarlenTestSupport.h"
#include "support/TempFolder.h"

using namespace HarlenTest;
using TestSupport::TempFolder;

namespace {

// Installs the source on a file as the library's Open does, for one test.
class CurrentSource {
public:
    explicit CurrentSource(const std::string& path) {
        auto source = OpenPath(path);
        open_ = source->IsOpen();
        DataSourceDllState::Install(source);
    }
    ~CurrentSource() { DataSourceDllClose(); }
    CurrentSource(const CurrentSource&) = delete;
    CurrentSource& operator=(const CurrentSource&) = delete;
    bool IsOpen() const { return open_; }

private:
    bool open_ = false;
};

std::string textResult(char* text) {
    std::unique_ptr<char[]> owned(text);
    return owned ? std::string(owned.get()) : std::string();
}

}  // namespace

TEST(HarlenExportsTest, ImageReadsAsHeightsAroundTheirMiddle) {
    const auto path = (TempFolder("exports") / "image.hdf").string();
    HarlenBuilder::Image(12, 20).Write(path);
    const CurrentSource current(path);
    ASSERT_TRUE(current.IsOpen());

    int channels = 0, lines = 0, samples = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&channels), 1);
    EXPECT_EQ(channels, 1);
    EXPECT_EQ(DataSourceDllGetNumberOfLines(0, &lines), 1);
    EXPECT_EQ(DataSourceDllGetSamplesPerLine(0, &samples), 1);
    EXPECT_EQ(lines * samples, 240);
    double scanSize = 0.0;
    EXPECT_EQ(DataSourceDllGetScanSize(0, &scanSize), 1);
    EXPECT_DOUBLE_EQ(scanSize, HarlenBuilder::kScanRange);
    EXPECT_EQ(textResult(DataSourceDllGetDataTypeDesc(0)), "Topography");
    EXPECT_EQ(textResult(DataSourceDllGetScanLine(0)), "Main");
    char unit[32] = {};
    EXPECT_EQ(DataSourceDllGetZSensitivityUnits(0, unit), 1);
    EXPECT_STREQ(unit, "nm");

    // The exports leave the raw offset in: a count reads as its height less
    // the middle of the range.
    const auto heights = HarlenBuilder::FeatureHeights(12, 20);
    const auto [lo, hi] = std::minmax_element(heights.begin(), heights.end());
    const double middle = (*lo + *hi) / 2.0;
    std::vector<double> metric(240);
    int count = 0;
    EXPECT_EQ(DataSourceDllGetImageMetricData(0, metric.data(), 10, &count), -1);
    EXPECT_EQ(count, 240);
    ASSERT_EQ(DataSourceDllGetImageMetricData(0, metric.data(), 240, &count), 1);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        EXPECT_NEAR(metric[i], heights[i] - middle, (*hi - *lo) * 1e-6) << i;
    }
    std::vector<double> volts(240);
    ASSERT_EQ(DataSourceDllGetImageVoltsData(0, volts.data(), 240, &count), 1);
    EXPECT_NEAR(volts[0], metric[0] / 12.5, 1e-6);

    // An image has no force curves.
    std::vector<double> first(8), second(8);
    EXPECT_EQ(DataSourceDllGetForceCurveMetricData(0, first.data(), second.data()), -1);
}

TEST(HarlenExportsTest, ForceCurvesReadInEveryUnit) {
    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    const auto path = (TempFolder("exports") / "force.hdf").string();
    HarlenBuilder::Force(64).Write(path);
    const CurrentSource current(path);
    ASSERT_TRUE(current.IsOpen());

    int curves = 0, points = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfForceCurves(&curves), 1);
    EXPECT_EQ(curves, 3);
    EXPECT_EQ(DataSourceDllGetNumberOfPointsPerCurve(1, &points), 1);
    ASSERT_EQ(points, 64);
    std::vector<double> first(64), second(64);
    std::vector<float> z(64), deflection(64), retraceDeflection(64);
    const auto ramp = HarlenBuilder::RampCurves(64, 8);
    for (std::size_t c = 0; c < 64; ++c) {
        z[c] = ramp[c](0, 0);
        deflection[c] = ramp[c](1, 0);
        retraceDeflection[c] = ramp[c](3, 0);
    }

    // The Z item: the trace runs back from the end of the ramp.
    ASSERT_EQ(DataSourceDllGetForceCurveMetricData(1, first.data(), second.data()), 1);
    for (std::size_t i = 0; i < 64; ++i) {
        EXPECT_NEAR(first[i], z[63 - i], 1e-4) << i;
        EXPECT_NEAR(second[i], z[i], 1e-4) << i;
    }

    // The deflection item: volts, nanometres through 45.5 nm/V, and force
    // through a spring of 0.2 N/m.
    std::vector<double> volts(64), nanometres(64), force(64), retrace(64);
    ASSERT_EQ(DataSourceDllGetForceCurveVoltsData(0, volts.data(), retrace.data()), 1);
    ASSERT_EQ(DataSourceDllGetForceCurveMetricData(0, nanometres.data(), retrace.data()), 1);
    ASSERT_EQ(DataSourceDllGetForceCurveForceData(0, force.data(), retrace.data()), 1);
    for (std::size_t i = 0; i < 64; ++i) {
        EXPECT_NEAR(volts[i], deflection[63 - i], 1e-6) << i;
        EXPECT_NEAR(nanometres[i], deflection[63 - i] * 45.5, 1e-4) << i;
        EXPECT_NEAR(force[i], nanometres[i] * 0.2, 1e-9) << i;
        EXPECT_NEAR(retrace[i], retraceDeflection[i] * 45.5 * 0.2, 1e-4) << i;
    }
    EXPECT_EQ(textResult(DataSourceDllGetVoltsDataScaleUnits(0)), "V");
    double velocity = 0.0;
    EXPECT_EQ(DataSourceDllGetForwardRampVelocity(0, &velocity, false), 1);
    EXPECT_DOUBLE_EQ(velocity, 80.0);

    // A force set is no image.
    std::vector<double> image(256);
    int count = 0;
    EXPECT_EQ(DataSourceDllGetImageMetricData(0, image.data(), 256, &count), -1);
}
