// Script segments, the synthetic capture Z, tapping and sweep frequencies,
// and segment descriptions through the flat functions.

#include "Exports/ExportsTestSupport.h"

#include "DataSourceDll/DataSourceReaders.h"

#include <cmath>
#include <vector>

namespace {

class ScriptExportsTest : public ExportsTest {
protected:
    // Three segments of 4, 3 and 5 recorded points, of which 2, 3 and 1 are
    // kept, over the samples 0 to 11.
    MemoryDataSource& Script() {
        auto& s = Current("SCRIPT");
        s.AddChannel(Scaled(1.0f, 3.0f, 2.0f), {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110});
        s.segmentCount = 3;
        s.segmentSizeList = "4,3,5";
        s.segmentSamplesList = "2,3,1";
        s.segmentDurationList = "0.4,0.3,1.0";
        s.segmentTypeList = "1,5,3";
        return s;
    }

    // A capture of `firstCount` + `secondCount` points whose phase comes out 0.
    MemoryDataSource& Capture(double amplitude, double sync) {
        auto& s = Current("FVOL");
        s.AddChannel({});
        s.captureState = "Allow";
        s.samplePoints = 4;
        s.syncDistance = sync;
        s.crestloadAmplitudeValue = amplitude;
        s.crestloadAmplitudeScale = 1.0;
        return s;
    }
};

using Doubles = std::vector<double>;

// The time steps of segments, as the reader forms them: a float quotient.
const double kStep0 = 0.4f / 4.0f;
const double kStep1 = 0.3f / 3.0f;

}  // namespace

TEST_F(ScriptExportsTest, AllSegmentsKeepTheirSamplesFromTheStartOfEachWholeBlock) {
    Script();
    Doubles time(6, -1.0), out(6, -1.0);
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 6, time.data(), out.data()), 1);
    EXPECT_EQ(out, (Doubles{0, 10, 40, 50, 60, 70}));
    // Each point's step is that of the segment of the point before it.
    EXPECT_EQ(time, (Doubles{0.0, kStep0, kStep0 + kStep0, kStep0 + kStep0 + kStep1, kStep0 + kStep0 + kStep1 + kStep1,
                             kStep0 + kStep0 + kStep1 + kStep1 + kStep1}));

    ASSERT_EQ(DataSourceDllGetScriptVoltsSegmentData(0, -1, 6, time.data(), out.data()), 1);
    EXPECT_EQ(out[1], 10 * static_cast<double>(3.0f / 2.0f));
    ASSERT_EQ(DataSourceDllGetScriptMetricSegmentData(0, -1, 6, time.data(), out.data()), 1);
    EXPECT_EQ(out[1], 5.0);
}

TEST_F(ScriptExportsTest, OneSegmentStartsBehindTheWholeSizesBeforeIt) {
    Script();
    Doubles time(3, -1.0), out(3, -1.0);
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, 1, 3, time.data(), out.data()), 1);
    EXPECT_EQ(out, (Doubles{40, 50, 60}));
    EXPECT_EQ(time, (Doubles{0.0, kStep1, kStep1 + kStep1}));
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, 2, 1, time.data(), out.data()), 1);
    EXPECT_EQ(out[0], 70.0);
}

TEST_F(ScriptExportsTest, WrongPointsOrSegmentWriteNothing) {
    Script();
    Doubles time(8, -1.0), out(8, -1.0);
    for (const auto& [segment, points] : std::vector<std::pair<int, int>>{{-1, 5}, {-1, 7}, {0, 3}, {3, 1}, {1, 0}}) {
        EXPECT_EQ(DataSourceDllGetScriptSegmentData(0, segment, points, time.data(), out.data()), -1)
            << segment << " " << points;
    }
    EXPECT_EQ(out, Doubles(8, -1.0));
    EXPECT_EQ(time, Doubles(8, -1.0));
}

TEST_F(ScriptExportsTest, ShortListsLeaveMissingSegmentsEmpty) {
    auto& s = Script();
    s.segmentSamplesList = "2,3";  // the third segment keeps nothing
    Doubles time(5, -1.0), out(5, -1.0);
    EXPECT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 6, time.data(), out.data()), -1);
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 5, time.data(), out.data()), 1);
    EXPECT_EQ(out, (Doubles{0, 10, 40, 50, 60}));

    // A count from the file far beyond its lists costs nothing more.
    s.segmentCount = 2000000000;
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 5, time.data(), out.data()), 1);
    EXPECT_EQ(out, (Doubles{0, 10, 40, 50, 60}));
    EXPECT_EQ(DataSourceDllGetScriptSegmentData(0, 1999999999, 0, time.data(), out.data()), 1);
}

TEST_F(ScriptExportsTest, SegmentsPastTheSamplesStopAtTheBuffersEnd) {
    auto& s = Script();
    s.segmentSizeList = "4,3,50";
    s.segmentSamplesList = "2,3,40";
    Doubles time(45, -1.0), out(45, -1.0);
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 45, time.data(), out.data()), 1);
    EXPECT_EQ(out[9], 110.0);
    EXPECT_EQ(out[10], -1.0);
}

TEST_F(ScriptExportsTest, SegmentInfoGivesTheTimeOfTheKeptSamples) {
    auto& s = Script();
    std::vector<int> samples(3, -1), type(3, -1);
    std::vector<float> duration(3, -1.0f);
    ASSERT_EQ(DataSourceDllGetScriptSegmentInfo(3, samples.data(), type.data(), duration.data()), 1);
    EXPECT_EQ(samples, (std::vector<int>{2, 3, 1}));
    EXPECT_EQ(type, (std::vector<int>{1, 5, 3}));
    EXPECT_EQ(duration, (std::vector<float>{2.0f * (0.4f / 4.0f), 3.0f * (0.3f / 3.0f), 1.0f * (1.0f / 5.0f)}));

    int count = 0;
    EXPECT_EQ(DataSourceDllGetScriptSegmentCount(&count), 1);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(DataSourceDllGetScriptSegmentInfo(2, samples.data(), type.data(), duration.data()), -1);
    EXPECT_EQ(DataSourceDllGetScriptSegmentInfo(3, samples.data(), nullptr, duration.data()), -1);

    // Lists shorter than the count keep the caller's entries; a size of 0
    // gives no time.
    s.segmentSamplesList = "4";
    s.segmentTypeList = "2,,";
    s.segmentSizeList = "0,3";
    samples.assign(3, 7);
    type.assign(3, 9);
    ASSERT_EQ(DataSourceDllGetScriptSegmentInfo(3, samples.data(), type.data(), duration.data()), 1);
    EXPECT_EQ(samples, (std::vector<int>{4, 7, 7}));
    EXPECT_EQ(type, (std::vector<int>{2, 0, 9}));
    EXPECT_EQ(duration, (std::vector<float>{0.0f, 7.0f * (0.3f / 3.0f), 0.0f}));
}

TEST_F(ScriptExportsTest, OriginalInfoNeedsOnePointerAndFillsOnlyThoseGiven) {
    auto& s = Script();
    std::vector<int> sizes(3, -1);
    std::vector<float> duration(3, -1.0f);
    EXPECT_EQ(DataSourceReaders::GetOriginalScriptSegmentInfo(s, 3, nullptr, nullptr, nullptr, nullptr), -1);
    ASSERT_EQ(DataSourceReaders::GetOriginalScriptSegmentInfo(s, 3, nullptr, sizes.data(), nullptr, duration.data()), 1);
    EXPECT_EQ(sizes, (std::vector<int>{4, 3, 5}));
    EXPECT_EQ(duration, (std::vector<float>{0.4f, 0.3f, 1.0f}));
    s.segmentCount = 0;
    EXPECT_EQ(DataSourceReaders::GetOriginalScriptSegmentInfo(s, 0, nullptr, sizes.data(), nullptr, duration.data()), -1);
}

TEST_F(ScriptExportsTest, ScriptReadersServeScriptFilesOnly) {
    Script().kind = "FORCE";
    int count = 0;
    Doubles time(6), out(6);
    std::vector<int> samples(3), type(3);
    std::vector<float> duration(3);
    EXPECT_EQ(DataSourceDllGetScriptSegmentCount(&count), -1);
    EXPECT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 6, time.data(), out.data()), -1);
    EXPECT_EQ(DataSourceDllGetScriptSegmentInfo(3, samples.data(), type.data(), duration.data()), -1);
}

TEST_F(ScriptExportsTest, CaptureZIsASineOverTheCurveWithTheFirstPartBackwards) {
    // n = 4, sync 1 over 4 sample points: phase 1.570796327 - (1 - 1 + 1) * 2pi / 4 = 0.
    Capture(2.0, 1.0);
    Doubles first(2), second(2);
    ASSERT_EQ(DataSourceDllGetCrestloadCaptureZData(first.data(), second.data(), 2, 2), 1);
    EXPECT_NEAR(first[1], 2.0, 1e-6);   // sin 0
    EXPECT_NEAR(first[0], 4.0, 1e-6);   // sin pi/2
    EXPECT_NEAR(second[0], 2.0, 1e-6);  // sin pi
    EXPECT_NEAR(second[1], 0.0, 1e-6);  // sin 3pi/2
    EXPECT_EQ(first[0], static_cast<double>(static_cast<float>(first[0])));
}

TEST_F(ScriptExportsTest, CaptureValuesSurviveCloseAndASyncDistanceOfZeroKeepsThem) {
    Capture(2.0, 1.0);
    Doubles first(2), second(2);
    ASSERT_EQ(DataSourceDllGetCrestloadCaptureZData(first.data(), second.data(), 2, 2), 1);
    EXPECT_EQ(DataSourceDllClose(), 1);
    EXPECT_EQ(DataSourceDllGetCrestloadCaptureZData(first.data(), second.data(), 2, 2), -1);

    // A new source whose sync distance is exactly 0: the earlier phase and
    // amplitude are still in force, not its own amplitude of 5.
    source = std::make_shared<MemoryDataSource>();
    Capture(5.0, 0.0);
    Doubles again(2), rest(2);
    ASSERT_EQ(DataSourceDllGetCrestloadCaptureZData(again.data(), rest.data(), 2, 2), 1);
    EXPECT_EQ(again, first);
    EXPECT_EQ(rest, second);
}

TEST_F(ScriptExportsTest, CaptureZNeedsCaptureAndPositiveCounts) {
    auto& s = Capture(2.0, 1.0);
    Doubles first(2, -1.0), second(2, -1.0);
    for (const auto& [a, b] : std::vector<std::pair<int, int>>{{0, 0}, {-1, 1}, {1, -3}, {INT32_MAX, 1}}) {
        EXPECT_EQ(DataSourceDllGetCrestloadCaptureZData(first.data(), second.data(), a, b), -1) << a << " " << b;
    }
    EXPECT_EQ(DataSourceDllGetCrestloadCaptureZData(nullptr, second.data(), 1, 1), -1);
    s.captureState = "Off";
    EXPECT_EQ(DataSourceDllGetCrestloadCaptureZData(first.data(), second.data(), 2, 2), -1);
    EXPECT_EQ(first, Doubles(2, -1.0));
}

TEST_F(ScriptExportsTest, TappingAndSweepFrequenciesAreInTheBaseUnit) {
    auto& s = Capture(2.0, 1.0);
    s.crestloadTappingFreq = UValue(2.0, "kHz");
    double hz = 0.0;
    ASSERT_EQ(DataSourceDllGetCrestloadTappingFreq(&hz), 1);
    EXPECT_EQ(hz, 2000.0);

    double low = -1.0, high = -1.0;
    EXPECT_EQ(DataSourceDllGetForceSweepFreqRange(0, &low, nullptr), -1);
    s.sweepChannel = "UNKNOWN";
    EXPECT_EQ(DataSourceDllGetForceSweepFreqRange(0, &low, &high), -1);
    EXPECT_EQ(low, 0.0);
    EXPECT_EQ(high, 0.0);
    s.sweepChannel = "Amplitude";
    s.sweepStart = UValue(1.5, "MHz");
    s.sweepEnd = UValue(3.0, "nm");  // not a frequency: 0
    ASSERT_EQ(DataSourceDllGetForceSweepFreqRange(0, &low, &high), 1);
    EXPECT_EQ(low, 1500000.0);
    EXPECT_EQ(high, 0.0);
    EXPECT_EQ(Taken(DataSourceDllGetForceSweepChannel(3)), "Amplitude");

    s.captureState = "";
    EXPECT_EQ(DataSourceDllGetCrestloadTappingFreq(&hz), -1);
}

TEST_F(ScriptExportsTest, SegmentDescriptionsNeedNoSource) {
    for (bool withSource : {false, true}) {
        if (withSource) {
            Script();
        }
        EXPECT_EQ(Taken(DataSourceDllGetSegmentDescription(3)), "Retract Z");
        EXPECT_EQ(Taken(DataSourceDllGetSegmentDescription(6)), "Hold Z");
        EXPECT_EQ(Taken(DataSourceDllGetSegmentDescription(7)), "Unknown");
        EXPECT_EQ(Taken(DataSourceDllGetSegmentDescription(1000)), "Unknown");
        EXPECT_EQ(Taken(DataSourceDllGetSegmentDescription(-1)), "Unknown Segment");
    }
}
