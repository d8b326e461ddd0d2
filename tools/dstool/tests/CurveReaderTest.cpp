// Curves read from files of each kind through the library: the halves of a
// force curve by what the readers wrote, script segments split by their
// samples, high-speed data by its samples rather than its bytes, the
// capture's Z as the axis where the capture is on, and a refusal for what a
// file does not have.

#include "tools/dstool/CurveReader.h"
#include "tools/dstool/LibrarySession.h"

#include "LibraryFiles.h"

#include <gtest/gtest.h>

#include <numeric>
#include <stdexcept>

namespace {

using Dstool::CurveReader;
using Dstool::CurveRequest;
using Dstool::DataUnits;
using Dstool::LibrarySession;
using SampleKit::QuillonBuilder;

CurveReader::Curve ReadFrom(const std::string& path, CurveRequest request = {})
{
    LibrarySession session;
    EXPECT_TRUE(session.Open(path)) << path;
    return CurveReader::Read(request);
}

std::vector<double> Range(double from, double to)  // from, from + 1, ... to
{
    std::vector<double> v;
    for (double x = from; x <= to; x += 1.0)
        v.push_back(x);
    return v;
}

TEST(CurveReaderTest, ForceHalvesAreCountedByWhatTheReaderWrote)
{
    // A first half of 6 points and a second of 8: the second starts at its own count.
    QuillonBuilder file("FORCE");
    std::vector<std::int32_t> samples(20);
    std::iota(samples.begin(), samples.end(), 0);
    file.Text(file.ChannelName(0), "Samps/line", "6 8").Samples32(0, 1, 20, samples);
    const auto curve = ReadFrom(WrittenQuillon(std::move(file), "halves.qdf"), {.units = DataUnits::Raw});
    ASSERT_EQ(curve.series.size(), 2u);
    EXPECT_EQ(curve.series[0].y, Range(0.0, 5.0));
    EXPECT_EQ(curve.series[1].y, Range(8.0, 15.0));
    // the retract runs the ramp back: drawn from its last point on
    EXPECT_EQ(curve.series[0].x, Range(0.0, 5.0));
    EXPECT_EQ(curve.series[1].x, std::vector<double>({7, 6, 5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(curve.xLabel, "ramp point");
    EXPECT_EQ(curve.yLabel, "Deflection Error (counts)");
}

TEST(CurveReaderTest, ForceUnitsScaleByTheSpringConstant)
{
    const std::string path = WrittenQuillon("FORCE");
    const auto metric = ReadFrom(path, {.channel = 1});
    const auto force = ReadFrom(path, {.channel = 1, .units = DataUnits::Force});
    ASSERT_EQ(metric.series[1].y.size(), force.series[1].y.size());
    for (std::size_t i = 0; i < metric.series[1].y.size(); ++i)
        EXPECT_NEAR(force.series[1].y[i], metric.series[1].y[i] * QuillonBuilder::kSpringConstant, 1e-9);
    EXPECT_EQ(force.yLabel, "Height Sensor (nN)");
}

TEST(CurveReaderTest, ForceVolumeCurvesByIndexAndOnlyFromTheirChannel)
{
    const std::string path = WrittenQuillon("FVOL");
    const auto last = ReadFrom(path, {.index = int(QuillonBuilder::kForceCurves) - 1});
    EXPECT_EQ(last.series[0].y.size(), QuillonBuilder::kCurveHalf);
    EXPECT_EQ(last.what, "force volume curve 3");
    EXPECT_THROW(ReadFrom(path, {.index = int(QuillonBuilder::kForceCurves)}), std::runtime_error);
    EXPECT_THROW(ReadFrom(path, {.channel = 2}), std::runtime_error);
    EXPECT_NO_THROW(ReadFrom(path, {.channel = 1}));
}

TEST(CurveReaderTest, CaptureOnDrawsAgainstTheCapturesZ)
{
    QuillonBuilder file("FVOL");
    file.Text(QuillonBuilder::kScanList, "Crestload Capture", "On");
    const auto curve = ReadFrom(WrittenQuillon(std::move(file), "capture.qdf"));
    EXPECT_EQ(curve.xLabel, "capture Z (nm)");
    // the synthetic Z of one cycle of a sine: the first half falls from its top
    const auto& z = curve.series[0].x;
    ASSERT_EQ(z.size(), QuillonBuilder::kCurveHalf);
    EXPECT_GT(z.front(), z.back());
    for (double v : z)
        EXPECT_GE(v, -1e-9);
}

TEST(CurveReaderTest, ScriptSegmentsAreSplitBySamplesAndTimed)
{
    const std::string path = WrittenQuillon("SCRIPT");
    const auto all = ReadFrom(path);
    ASSERT_EQ(all.series.size(), 3u);
    EXPECT_EQ(all.series[0].label, "0 Extend Z");
    EXPECT_EQ(all.series[1].label, "1 Retract Z");
    EXPECT_EQ(all.series[2].label, "2 Hold Z");
    EXPECT_EQ(all.series[2].y.size(), QuillonBuilder::kHoldPoints);
    EXPECT_EQ(all.xLabel, "time (s)");
    EXPECT_DOUBLE_EQ(all.series[0].x[2] - all.series[0].x[1], 0.5 / QuillonBuilder::kCurveHalf);
    // time runs on across the segments
    EXPECT_GT(all.series[1].x.front(), all.series[0].x.back());

    const auto hold = ReadFrom(path, {.index = 2});
    ASSERT_EQ(hold.series.size(), 1u);
    EXPECT_EQ(hold.series[0].y, all.series[2].y);
    EXPECT_THROW(ReadFrom(path, {.index = 3}), std::runtime_error);
    EXPECT_THROW(ReadFrom(path, {.units = DataUnits::Force}), std::runtime_error);
}

TEST(CurveReaderTest, HighSpeedDataIsItsSamplesInTime)
{
    const auto curve = ReadFrom(WrittenQuillon("HSDC"), {.channel = 1});
    ASSERT_EQ(curve.series.size(), 2u);
    // 2-byte samples: the reader's count is of bytes, only the samples are data
    EXPECT_EQ(curve.series[0].y.size() + curve.series[1].y.size(), QuillonBuilder::kHighSpeedSamples);
    EXPECT_EQ(curve.xLabel, "time (\xB5s)");
    EXPECT_NEAR(curve.series[0].x[1], 1e6 / 6.25e6, 1e-12);
    EXPECT_THROW(ReadFrom(WrittenQuillon("HSDC"), {.index = 1}), std::runtime_error);
}

TEST(CurveReaderTest, CurvesAndSegmentsBeyondTheDataAreNotMadeUp)
{
    QuillonBuilder volume("FVOL");
    volume.Int(QuillonBuilder::kForceList, "force/line", 1000);
    EXPECT_THROW(ReadFrom(WrittenQuillon(std::move(volume), "beyond.qdf"), {.index = 999}), std::runtime_error);

    // three segments of 8 samples over a channel of 20: the last has only 4
    QuillonBuilder script("SCRIPT");
    script.Text(QuillonBuilder::kForceList, "Segment Size", "8,8,8").Text(QuillonBuilder::kForceList, "Segment Samples", "8,8,8");
    const auto curve = ReadFrom(WrittenQuillon(std::move(script), "long_script.qdf"));
    ASSERT_EQ(curve.series.size(), 3u);
    EXPECT_EQ(curve.series[2].y.size(), 4u);
}

TEST(CurveReaderTest, FilesWithoutCurvesAreRefused)
{
    for (const char* subtype : {"IMAGE", "TIMED", "ECAFM"})
        EXPECT_THROW(ReadFrom(WrittenQuillon(subtype)), std::runtime_error) << subtype;
    EXPECT_THROW(CurveReader::Read({}), std::runtime_error);  // no file open at all
}

}  // namespace
