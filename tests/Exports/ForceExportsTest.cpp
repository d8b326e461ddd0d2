// Force curves, force volumes, hold sections and high-speed data through the
// flat functions.

#include "Exports/ExportsTestSupport.h"

#include "DataSourceDll/DataSourceDllClass.h"

#include <vector>

namespace {

constexpr std::int32_t kInvalid = static_cast<std::int32_t>(0x80000000u);

OLDataItemLoadRecord Halves(std::uint32_t first, std::uint32_t second, float soft = 1.0f, float hard = 1.0f,
                            float scaling = 1.0f) {
    OLDataItemLoadRecord record = Scaled(soft, hard, scaling);
    record.retracePoints = first;
    record.tracePoints = second;
    return record;
}

class ForceExportsTest : public ExportsTest {
protected:
    // A force volume: channel 0 its image, channel 1 curves of `trace` points a
    // half with `hold` points behind each, `curves` of them on a line.
    MemoryDataSource& Volume(std::uint32_t trace, int hold, int curves, std::vector<std::int32_t> data) {
        auto& s = Current("FVOL");
        s.AddChannel({});
        s.AddChannel(Halves(trace, trace), std::move(data));
        s.holdPoints = hold;
        s.tracePoints = static_cast<int>(trace);
        s.forcesPerLine = curves;
        return s;
    }

    // Reads curve 0 of a volume of one curve of three points a half.
    std::pair<std::vector<double>, std::vector<double>> CaptureOf(std::vector<std::int32_t> curve, double sync,
                                                                  int samplePoints = 6) {
        auto& s = Volume(3, 0, 1, std::move(curve));
        s.captureState = "On";
        s.syncDistance = sync;
        s.samplePoints = samplePoints;
        std::vector<double> first(3, -1.0), second(3, -1.0);
        int firstCount = 0, secondCount = 0;
        EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(0, first.data(), second.data(), &firstCount,
                                                            &secondCount, 3),
                  1);
        return {first, second};
    }
};

using Doubles = std::vector<double>;

}  // namespace

TEST_F(ForceExportsTest, ForceFactorIsASinglePrecisionQuotientForEveryUnits) {
    auto& s = Current("FORCE");
    s.AddChannel(Halves(1, 1, 1.0f, 2.0f, 3.0f), {3, -6});
    OLDataItemLoadRecord spring = Halves(1, 1, 1.0f, 2.0f, 3.0f);
    spring.springConstant = 0.5;
    s.AddChannel(spring, {3, -6});
    double first = 0.0, second = 0.0;

    ASSERT_EQ(DataSourceDllGetForceCurveMetricData(0, &first, &second), 1);
    EXPECT_EQ(first, 3 * static_cast<double>(1.0f / 3.0f));
    EXPECT_EQ(second, -6 * static_cast<double>(1.0f / 3.0f));
    ASSERT_EQ(DataSourceDllGetForceCurveVoltsData(0, &first, &second), 1);
    EXPECT_EQ(first, 3 * static_cast<double>(2.0f / 3.0f));
    ASSERT_EQ(DataSourceDllGetForceCurveForceData(1, &first, &second), 1);
    EXPECT_EQ(first, 3 * (static_cast<double>(1.0f / 3.0f) * 0.5));
    ASSERT_EQ(DataSourceDllGetForceCurveData(1, &first, &second), 1);
    EXPECT_EQ(first, 3.0);
    for (int units : {4, -1, 77}) {
        ASSERT_EQ(DataSourceDll::GetForceCurveData(1, &first, &second, static_cast<ScanUnits>(units)), 1);
        EXPECT_EQ(second, -6.0) << units;
    }
}

TEST_F(ForceExportsTest, ScalingFactorOfZeroFallsBackToTheCountsOrTheSpringConstant) {
    OLDataItemLoadRecord record = Halves(1, 1, 7.0f, 9.0f, 0.0f);
    record.springConstant = 0.25;
    Current("FORCE").AddChannel(record, {8, -4});
    double first = 0.0, second = 0.0;
    ASSERT_EQ(DataSourceDllGetForceCurveMetricData(0, &first, &second), 1);
    EXPECT_EQ(first, 8.0);
    ASSERT_EQ(DataSourceDllGetForceCurveVoltsData(0, &first, &second), 1);
    EXPECT_EQ(second, -4.0);
    ASSERT_EQ(DataSourceDllGetForceCurveForceData(0, &first, &second), 1);
    EXPECT_EQ(first, 2.0);
}

TEST_F(ForceExportsTest, SecondHalfStartsAtItsOwnCount) {
    auto& s = Current("FORCE");
    s.AddChannel(Halves(3, 2), {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    s.AddChannel(Halves(3, 4), {0, 1, 2, 3, 4, 5, 6});
    Doubles first(3, -1.0), second(4, -1.0);
    ASSERT_EQ(DataSourceDllGetForceCurveData(0, first.data(), second.data()), 1);
    EXPECT_EQ(first, (Doubles{0, 1, 2}));
    EXPECT_EQ(second, (Doubles{2, 3, -1, -1}));
    // Twice the second half does not fit in seven samples.
    EXPECT_EQ(DataSourceDllGetForceCurveData(1, first.data(), second.data()), -1);
}

TEST_F(ForceExportsTest, VolumeImageCountsLinesTimesSamplesOfChannelZero) {
    auto& s = Current("FVOL");
    OLDataItemLoadRecord image = Scaled(1.0f, 2.0f, 4.0f);
    image.rows = 2;
    image.columns = 3;
    s.AddChannel(image, {4, 8, 12, 16, 20, 24});
    Doubles out(6, -1.0);
    int count = 0;
    EXPECT_EQ(DataSourceDllGetForceVolumeMetricImageData(out.data(), 5, &count), -1);
    EXPECT_EQ(count, 6);
    ASSERT_EQ(DataSourceDllGetForceVolumeMetricImageData(out.data(), 6, &count), 1);
    EXPECT_EQ(out, (Doubles{1, 2, 3, 4, 5, 6}));
    ASSERT_EQ(DataSourceDllGetForceVolumeVoltsImageData(out.data(), 6, &count), 1);
    EXPECT_EQ(out[5], 12.0);
    ASSERT_EQ(DataSourceDll::GetForceVolumeImageData(out.data(), 6, &count, ScanUnitsForce), 1);
    EXPECT_EQ(out[5], 24.0);
    ASSERT_EQ(DataSourceDllGetForceVolumeImageData(out.data(), 6, &count), 1);
    EXPECT_EQ(out[0], 4.0);
}

TEST_F(ForceExportsTest, VolumeImageWithoutSamplesWritesNothingAndOneTooShortIsRefused) {
    auto& s = Current("FVOL");
    OLDataItemLoadRecord image;
    image.rows = 2;
    image.columns = 3;
    s.AddChannel(image);
    Doubles out(6, -1.0);
    int count = 0;
    EXPECT_EQ(DataSourceDllGetForceVolumeImageData(out.data(), 6, &count), 1);
    EXPECT_EQ(out, Doubles(6, -1.0));

    s.Samples(0).assign(4, 1);
    s.GetDataItem(0)->SetData(s.Samples(0).data(), 4);
    EXPECT_EQ(DataSourceDllGetForceVolumeImageData(out.data(), 6, &count), -1);
    EXPECT_EQ(out, Doubles(6, -1.0));
}

TEST_F(ForceExportsTest, VolumeCurveReadsTheSecondChannelAtTheCurvesStride) {
    // Two curves of 3 + 3 points with 2 hold points each.
    Volume(3, 2, 2, {10, 11, 12, 20, 21, 22, 90, 91, 30, 31, 32, 40, 41, 42, 92, 93});
    Doubles first(3), second(3);
    int firstCount = 0, secondCount = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(1, first.data(), second.data(), &firstCount, &secondCount, 3),
              1);
    EXPECT_EQ(firstCount, 3);
    EXPECT_EQ(secondCount, 3);
    EXPECT_EQ(first, (Doubles{30, 31, 32}));
    EXPECT_EQ(second, (Doubles{40, 41, 42}));

    firstCount = secondCount = 0;
    EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(0, first.data(), second.data(), &firstCount, &secondCount, 2),
              -1);
    EXPECT_EQ(secondCount, 3);
    for (int curve : {2, -1, 1 << 30}) {
        EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(curve, first.data(), second.data(), &firstCount,
                                                            &secondCount, 3),
                  -1)
            << curve;
    }
}

TEST_F(ForceExportsTest, VolumeCurveOutsideTheBufferIsNothingOrRefused) {
    // Curve 1 would start at 8 of 10 samples and need 6.
    auto& s = Volume(3, 2, 3, {10, 11, 12, 20, 21, 22, 90, 91, 30, 31});
    Doubles first(3, -1.0), second(3, -1.0);
    int firstCount = 0, secondCount = 0;
    EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(1, first.data(), second.data(), &firstCount, &secondCount, 3),
              -1);
    // Curve 2 would start past the end: there is no curve, and nothing is written.
    EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(2, first.data(), second.data(), &firstCount, &secondCount, 3),
              1);
    EXPECT_EQ(first, Doubles(3, -1.0));
    s.captureState = "On";
    EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(2, first.data(), second.data(), &firstCount, &secondCount, 3),
              1);
    EXPECT_EQ(second, Doubles(3, -1.0));
}

TEST_F(ForceExportsTest, TrailingInvalidPointsAreCutFromTheFirstCount) {
    Volume(3, 0, 3, {10, kInvalid, kInvalid, 20, 21, 22, kInvalid, 11, kInvalid, 23, 24, 25, kInvalid, kInvalid,
                     kInvalid, 26, 27, 28});
    Doubles first(3, -1.0), second(3, -1.0);
    int firstCount = 0, secondCount = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(0, first.data(), second.data(), &firstCount, &secondCount, 3),
              1);
    EXPECT_EQ(firstCount, 1);
    EXPECT_EQ(secondCount, 3);
    EXPECT_EQ(first, (Doubles{10, -1, -1}));
    EXPECT_EQ(second, (Doubles{20, 21, 22}));

    ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(1, first.data(), second.data(), &firstCount, &secondCount, 3),
              1);
    EXPECT_EQ(firstCount, 2);
    EXPECT_EQ(first[0], -2147483648.0);

    // All invalid: the count stays.
    ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(2, first.data(), second.data(), &firstCount, &secondCount, 3),
              1);
    EXPECT_EQ(firstCount, 3);
}

TEST_F(ForceExportsTest, UnderCaptureTheFirstInvalidMarkIsRepairedOncePerRead) {
    // A shift of 2 on six points leaves the order as it is.
    auto [first, second] = CaptureOf({10, kInvalid, 12, 20, kInvalid, 30}, 2.0);
    EXPECT_EQ(first, (Doubles{10, 20, 12}));
    EXPECT_EQ(second, (Doubles{20, -2147483648.0, 30}));
    EXPECT_EQ(source->Samples(1), (std::vector<std::int32_t>{10, 20, 12, 20, kInvalid, 30}));

    // The next read repairs the next mark: (20 + 30) / 2.
    Doubles again(3), rest(3);
    int firstCount = 0, secondCount = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(0, again.data(), rest.data(), &firstCount, &secondCount, 3), 1);
    EXPECT_EQ(rest, (Doubles{20, 25, 30}));
    // Nothing is cut under capture.
    EXPECT_EQ(firstCount, 3);
}

TEST_F(ForceExportsTest, MarkWithoutALeftNeighbourTakesTheLastPointAndMeansTruncateTowardZero) {
    CaptureOf({kInvalid, 11, 12, 20, 21, 31}, 2.0);
    EXPECT_EQ(source->Samples(1)[0], 31);
    DataSourceDllState::Release();
    source = std::make_shared<MemoryDataSource>();
    CaptureOf({-5, kInvalid, 12, 20, 21, -2}, 2.0);
    EXPECT_EQ(source->Samples(1)[1], -3);
}

TEST_F(ForceExportsTest, CaptureRotatesTheCurveByTheSyncShift) {
    // w = first half reversed, then the second: 12 11 10 20 21 22. The start
    // is shift + 1 - 3, taken round the six points; the first half of the
    // result is then reversed again.
    auto [first, second] = CaptureOf({10, 11, 12, 20, 21, 22}, 4.0);  // start 2
    EXPECT_EQ(first, (Doubles{21, 20, 10}));
    EXPECT_EQ(second, (Doubles{22, 12, 11}));

    DataSourceDllState::Release();
    source = std::make_shared<MemoryDataSource>();
    std::tie(first, second) = CaptureOf({10, 11, 12, 20, 21, 22}, 0.0);  // start -2, that is 4
    EXPECT_EQ(first, (Doubles{12, 22, 21}));
    EXPECT_EQ(second, (Doubles{11, 10, 20}));

    // The sync distance is rescaled from the instrument's sample points to the
    // curve's six, and rounded: 7.2 * 6 / 12 = 3.6 gives 4.
    DataSourceDllState::Release();
    source = std::make_shared<MemoryDataSource>();
    std::tie(first, second) = CaptureOf({10, 11, 12, 20, 21, 22}, 7.2, 12);
    EXPECT_EQ(first, (Doubles{21, 20, 10}));

    DataSourceDllState::Release();
    source = std::make_shared<MemoryDataSource>();
    std::tie(first, second) = CaptureOf({10, 11, 12, 20, 21, 22}, 1e300);
    EXPECT_EQ(first.size(), 3u);
}

TEST_F(ForceExportsTest, CaptureIsOnForOnAndAllowOnly) {
    for (const auto& [state, on] : std::vector<std::pair<std::string, bool>>{
             {"On", true}, {"Allow", true}, {"on", false}, {"Off", false}, {"On ", false}, {"", false}}) {
        auto& s = Volume(3, 0, 1, {10, 11, kInvalid, 20, 21, 22});
        s.captureState = state;
        Doubles first(3), second(3);
        int firstCount = 0, secondCount = 0;
        ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(0, first.data(), second.data(), &firstCount, &secondCount,
                                                            3),
                  1);
        EXPECT_EQ(firstCount, on ? 3 : 2) << state;
        DataSourceDllState::Release();
        source = std::make_shared<MemoryDataSource>();
    }
}

TEST_F(ForceExportsTest, HoldSectionLiesBehindBothHalvesOfTheRecordsTracePoints) {
    auto& s = Volume(3, 2, 2, {10, 11, 12, 20, 21, 22, 90, 91, 30, 31, 32, 40, 41, 42, 92, 93});
    s.items[1].SetScalingFactor(2.0f);
    s.items[1].SetZScaleInSwUnits(1.0f);
    s.holdTime = 0.75;
    Doubles out(2, -1.0);
    ASSERT_EQ(DataSourceDllGetForceVolumeHoldData(1, 1, out.data()), 1);
    EXPECT_EQ(out, (Doubles{92, 93}));
    ASSERT_EQ(DataSourceDllGetForceVolumeMetricHoldData(1, 0, out.data()), 1);
    EXPECT_EQ(out, (Doubles{45, 45.5}));
    for (int curve : {2, -1}) {
        EXPECT_EQ(DataSourceDllGetForceVolumeHoldData(1, curve, out.data()), -1) << curve;
    }
    int points = 0;
    double time = 0.0;
    EXPECT_EQ(DataSourceDllGetNumberOfHoldPoints(5, &points), 1);
    EXPECT_EQ(points, 2);
    EXPECT_EQ(DataSourceDllGetForceHoldTime(5, &time), 1);
    EXPECT_EQ(time, 0.75);

    // A hold section that runs past the buffer is refused.
    s.holdPoints = 3;
    EXPECT_EQ(DataSourceDllGetForceVolumeHoldData(1, 1, out.data()), -1);
}

TEST_F(ForceExportsTest, ForceFileHoldIsCurveZeroAndNeedsAForceOnTheLine) {
    auto& s = Current("FORCE");
    s.AddChannel(Halves(2, 2), {1, 2, 3, 4, 50, 60});
    s.tracePoints = 2;
    s.holdPoints = 2;
    Doubles out(2, -1.0);
    EXPECT_EQ(DataSourceDllGetForceHoldData(0, out.data()), 1);
    EXPECT_EQ(out, Doubles(2, -1.0));  // no forces on a line: no curve
    s.forcesPerLine = 1;
    EXPECT_EQ(DataSourceDllGetForceVolumeHoldData(0, 9, out.data()), 1);
    EXPECT_EQ(out, (Doubles{50, 60}));
    EXPECT_EQ(DataSourceDllGetForceVoltsHoldData(0, out.data()), 1);

    s.kind = "IMAGE";
    EXPECT_EQ(DataSourceDllGetForceHoldData(0, out.data()), -1);
}

TEST_F(ForceExportsTest, HighSpeedCountIsTheByteLengthButOnlyHeldSamplesAreWritten) {
    auto& s = Current("HSDC");
    OLDataItemLoadRecord record = Scaled(1.0f, 3.0f, 2.0f);
    record.pointsPerCurve = 8;
    s.AddChannel(record, {2, 4, 6, 8, 10});
    Doubles out(8, -1.0);
    int count = 0;
    EXPECT_EQ(DataSourceDllGetHSDCForceCurveData(0, out.data(), 7, &count), -1);
    EXPECT_EQ(count, 8);
    ASSERT_EQ(DataSourceDllGetHSDCForceCurveData(0, out.data(), 8, &count), 1);
    EXPECT_EQ(out, (Doubles{2, 4, 6, 8, 10, -1, -1, -1}));
    ASSERT_EQ(DataSourceDllGetHSDCVoltsForceCurveData(0, out.data(), 8, &count), 1);
    EXPECT_EQ(out[1], 6.0);
    ASSERT_EQ(DataSourceDllGetHSDCMetricForceCurveData(0, out.data(), 8, &count), 1);
    EXPECT_EQ(out[1], 2.0);

    int points = 0;
    ASSERT_EQ(DataSourceDllGetNumberOfPointsPerCurve(0, &points), 1);
    EXPECT_EQ(points, 4);
}

TEST_F(ForceExportsTest, CurveCountsByFileKind) {
    int n = 99;
    EXPECT_EQ(DataSourceDllGetNumberOfPointsPerCurve(0, &n), -1);
    EXPECT_EQ(n, 0);

    auto& s = Current("IMAGE");
    s.AddChannel(Halves(5, 6));
    s.AddChannel(Halves(7, 8));
    s.forcesPerLine = 12;
    s.forceVolumeForcesPerLine = 13;
    n = 99;
    EXPECT_EQ(DataSourceDllGetNumberOfPointsPerCurve(1, &n), 1);
    EXPECT_EQ(n, 0);
    n = 99;
    EXPECT_EQ(DataSourceDllGetNumberOfForceCurves(&n), 1);
    EXPECT_EQ(n, 99);
    EXPECT_EQ(DataSourceDllGetForcesPerLine(&n), -1);

    for (const char* kind : {"FORCE", "FVOL", "TIMED"}) {
        s.kind = kind;
        EXPECT_EQ(DataSourceDllGetNumberOfPointsPerCurve(1, &n), 1);
        EXPECT_EQ(n, 8) << kind;
    }
    for (const char* kind : {"HSDC", "TIMED", "FORCE"}) {
        s.kind = kind;
        EXPECT_EQ(DataSourceDllGetNumberOfForceCurves(&n), 1);
        EXPECT_EQ(n, 2) << kind;
    }
    s.kind = "FVOL";
    ExpectAnswers<int>({
        {"NumberOfForceCurves", [](int, int* out) { return DataSourceDllGetNumberOfForceCurves(out); }, 0, 12},
        {"ForcesPerLine", [](int, int* out) { return DataSourceDllGetForcesPerLine(out); }, 0, 13},
    });
}

TEST_F(ForceExportsTest, HighSpeedRateDefaultsByChannelAndTheRecordsRate) {
    auto& s = Current("HSDC");
    OLDataItemLoadRecord record;
    s.AddChannel(record);
    s.AddChannel(record);
    s.AddChannel(record);
    record.hsdcRate = 1234.5;
    s.AddChannel(record);
    double rate = 0.0;
    ASSERT_EQ(DataSourceDllGetHsdcRate(3, &rate), 1);
    EXPECT_EQ(rate, 1234.5);
    ASSERT_EQ(DataSourceDllGetHsdcRate(2, &rate), 1);
    EXPECT_EQ(rate, 500000.0);
    for (const auto& [stored, expected] : std::vector<std::pair<double, double>>{
             {0.0, 50000000.0}, {0.49, 50000000.0}, {-0.5, 50000000.0}, {0.5, 6250000.0}, {1e300, 6250000.0}}) {
        s.hsdcRate = UValue(stored, "Hz");
        ASSERT_EQ(DataSourceDllGetHsdcRate(1, &rate), 1);
        EXPECT_EQ(rate, expected) << stored;
    }
    s.kind = "FORCE";
    EXPECT_EQ(DataSourceDllGetHsdcRate(0, &rate), -1);
}
