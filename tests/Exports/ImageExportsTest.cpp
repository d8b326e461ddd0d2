// Images and the descriptive values of channels through the flat functions.

#include "Exports/ExportsTestSupport.h"

#include "DataSourceDll/DataSourceDllClass.h"

#include <cstring>
#include <limits>
#include <vector>

namespace {

const std::vector<std::int32_t> kExtremes{1, -2, std::numeric_limits<std::int32_t>::max(),
                                          std::numeric_limits<std::int32_t>::min()};

}  // namespace

TEST_F(ExportsTest, ImageFactorIsTheWidenedScaleOverTheFullRangeInSixtyFourBits) {
    Current("IMAGE").AddChannel(Scaled(3.0f, 0.1f), kExtremes);
    std::vector<double> out(4);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetImageMetricData(0, out.data(), 4, &count), 1);
    EXPECT_EQ(count, 4);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(out[i], kExtremes[i] * (3.0 / 4294967295.0)) << i;
    }
    ASSERT_EQ(DataSourceDllGetImageVoltsData(0, out.data(), 4, &count), 1);
    EXPECT_EQ(out[2], 2147483647 * (static_cast<double>(0.1f) / 4294967295.0));

    double factor = 0.0;
    ASSERT_EQ(DataSourceDllGetExportScalingFactor(0, &factor, true), 1);
    EXPECT_EQ(factor, 3.0 / 4294967295.0);
    ASSERT_EQ(DataSourceDllGetExportScalingFactor(0, &factor, false), 1);
    EXPECT_EQ(factor, static_cast<double>(0.1f) / 4294967295.0);
}

TEST_F(ExportsTest, ImageWithForceRawOrUnknownUnitsGivesTheCountsAsTheyAre) {
    Current("IMAGE").AddChannel(Scaled(3.0f, 0.1f), kExtremes);
    std::vector<double> out(4);
    int count = 0;
    for (int units : {2, 3, 4, -1, 1000}) {
        ASSERT_EQ(DataSourceDll::GetImageData(0, out.data(), 4, &count, static_cast<ScanUnits>(units)), 1);
        EXPECT_EQ(out[3], -2147483648.0) << units;
    }
    ASSERT_EQ(DataSourceDllGetImageData(0, out.data(), 4, &count), 1);
    EXPECT_EQ(out[2], 2147483647.0);
}

TEST_F(ExportsTest, ImageCountIsWrittenBeforeAShortBufferIsRefused) {
    Current("IMAGE").AddChannel(Scaled(1.0f, 1.0f), kExtremes);
    std::vector<double> out(4, 7.0);
    int count = 0;
    EXPECT_EQ(DataSourceDllGetImageMetricData(0, out.data(), 3, &count), -1);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(out, std::vector<double>(4, 7.0));
    count = 0;
    EXPECT_EQ(DataSourceDllGetImageData(0, out.data(), 0, &count), -1);
    EXPECT_EQ(count, 4);
}

TEST_F(ExportsTest, ImagesAreServedForImageFilesOnly) {
    Current("FORCE").AddChannel(Scaled(1.0f, 1.0f), kExtremes);
    std::vector<double> out(4);
    int count = -5;
    EXPECT_EQ(DataSourceDllGetImageMetricData(0, out.data(), 4, &count), -1);
    EXPECT_EQ(DataSourceDllGetImageData(0, out.data(), 4, &count), -1);
    EXPECT_EQ(count, -5);
    double ratio = 0.0;
    EXPECT_EQ(DataSourceDllGetImageAspectRatio(0, &ratio), -1);
}

TEST_F(ExportsTest, ZeroHardScaleReadsAsZeros) {
    Current("IMAGE").AddChannel(Scaled(1.0f, 0.0f), kExtremes);
    std::vector<double> out(4, 7.0);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetImageVoltsData(0, out.data(), 4, &count), 1);
    for (double v : out) {
        EXPECT_EQ(v, 0.0);
    }
}

TEST_F(ExportsTest, ScalingFactorIsTheScaleOverTheChannelsFactorInSinglePrecision) {
    auto& s = Current("FORCE");
    s.AddChannel(Scaled(1.0f, 2.0f, 3.0f));
    s.AddChannel(Scaled(1.0f, 2.0f, 0.0f));
    double factor = 0.0;
    ASSERT_EQ(DataSourceDllGetScalingFactor(0, &factor, true), 1);
    EXPECT_EQ(factor, static_cast<double>(1.0f / 3.0f));
    EXPECT_NE(factor, 1.0 / 3.0);
    ASSERT_EQ(DataSourceDllGetScalingFactor(0, &factor, false), 1);
    EXPECT_EQ(factor, static_cast<double>(2.0f / 3.0f));

    factor = 42.0;
    EXPECT_EQ(DataSourceDllGetScalingFactor(1, &factor, true), -1);
    EXPECT_EQ(factor, 42.0);
}

TEST_F(ExportsTest, AspectRatioIsOneForAChannelBeyondTheCount) {
    OLDataItemLoadRecord record;
    record.aspectRatio = 2.5f;
    Current("IMAGE").AddChannel(record);
    double ratio = 0.0;
    ASSERT_EQ(DataSourceDllGetImageAspectRatio(0, &ratio), 1);
    EXPECT_EQ(ratio, 2.5);
    for (int channel : {1, 1000, -1}) {
        ratio = 0.0;
        EXPECT_EQ(DataSourceDllGetImageAspectRatio(channel, &ratio), 1) << channel;
        EXPECT_EQ(ratio, 1.0) << channel;
    }
}

TEST_F(ExportsTest, ChannelValuesComeFromTheItemAndRecordValuesFromTheSource) {
    auto& s = Current("IMAGE");
    OLDataItemLoadRecord record = Scaled(5.0f, 0.5f);
    record.rows = 3;
    record.columns = 7;
    record.sensitivity = 12.5;
    record.sensitivityUnit = "nm";
    record.springConstant = 0.4;
    record.planefit = PlaneFitSettings{1.5, -2.5, 3.5, 2};
    record.rampSize = ScaleGroup{UValue(2.0, "V"), 25.0, "nm"};
    s.AddChannel(record, std::vector<std::int32_t>(21));
    s.scanSize = UValue(4.0, "\xB5m");
    s.forceSamples = 256;
    s.tracePoints = 128;
    s.forwardVelocity = 3.0;
    s.reverseVelocity = 5.0;

    // The channel argument of record values has no effect.
    ExpectAnswers<int>({
        {"NumberOfChannels", [](int, int* out) { return DataSourceDllGetNumberOfChannels(out); }, 0, 1},
        {"NumberOfLines", DataSourceDllGetNumberOfLines, 0, 3},
        {"SamplesPerLine", DataSourceDllGetSamplesPerLine, 0, 7},
        {"DataBufferSize", DataSourceDllGetDataBufferSize, 0, 21},
        {"ForceSamplesPerLine", DataSourceDllGetForceSamplesPerLine, 99, 256},
        {"NumberOfTracePoints", DataSourceDllGetNumberOfTracePoints, -4, 128},
    });
    ExpectAnswers<double>({
        {"ZScaleInSwUnits", DataSourceDllGetZScaleInSwUnits, 0, 5.0},
        {"ZScaleInHwUnits", DataSourceDllGetZScaleInHwUnits, 0, 0.5},
        {"ZSensitivitySoftScale", DataSourceDllGetZSensitivitySoftScale, 0, 12.5},
        {"ForceSpringConstant", DataSourceDllGetForceSpringConstant, 0, 0.4},
        {"ScanSize", DataSourceDllGetScanSize, 77, 4.0},
        {"RampSize", [](int c, double* out) { return DataSourceDllGetRampSize(c, out, false); }, 0, 2.0},
        {"RampSize scaled", [](int c, double* out) { return DataSourceDllGetRampSize(c, out, true); }, 0, 50.0},
        {"ForwardRampVelocity", [](int c, double* out) { return DataSourceDllGetForwardRampVelocity(c, out, false); },
         0, 3.0},
        {"ForwardRampVelocity scaled",
         [](int c, double* out) { return DataSourceDllGetForwardRampVelocity(c, out, true); }, 0, 75.0},
        {"ReverseRampVelocity scaled",
         [](int c, double* out) { return DataSourceDllGetReverseRampVelocity(c, out, true); }, 0, 125.0},
    });

    double a = 0.0, b = 0.0, c = 0.0;
    int order = 0;
    ASSERT_EQ(DataSourceDllGetPlanefitSettings(0, &a, &b, &c, &order), 1);
    EXPECT_EQ(a, 1.5);
    EXPECT_EQ(b, -2.5);
    EXPECT_EQ(c, 3.5);
    EXPECT_EQ(order, 2);
    EXPECT_EQ(DataSourceDllGetPlanefitSettings(0, &a, &b, nullptr, &order), -1);
}

TEST_F(ExportsTest, TipValuesAreReadThroughChannelZero) {
    OLDataItemLoadRecord record;
    record.tipRadius = 8e-9;
    record.tipHalfAngle = 0.3;
    record.samplePoissonRatio = 0.25;
    Current("IMAGE").AddChannel(record);
    ExpectAnswers<double>({
        {"TipRadius", [](int, double* out) { return DataSourceDllGetTipRadius(out); }, 0, 8e-9},
        {"HalfAngle", [](int, double* out) { return DataSourceDllGetHalfAngle(out); }, 0, 0.3},
        {"PoissonRatio", [](int, double* out) { return DataSourceDllGetPoissonRatio(out); }, 0, 0.25},
    });
}

TEST_F(ExportsTest, TextsOfAChannelAreFreshCopies) {
    auto& s = Current("IMAGE");
    OLDataItemLoadRecord record;
    record.zRange = UValue(500.0, "mV");
    record.softUnit = "mV";
    record.sensitivity = 20.0;
    record.sensitivityUnit = "nm";
    record.dataTypeDesc = "Height Sensor";
    record.lineDirection = "Retrace";
    record.scanLine = "Main";
    record.rampSize = ScaleGroup{UValue(2.0, "V"), 25.0, "nm"};
    s.AddChannel(record);
    s.scanSize = UValue(4.0, "\xB5m");

    // The metric unit is the product's, named through its descriptor.
    EXPECT_EQ(Taken(DataSourceDllGetMetricDataScaleUnits(0)), "nm");
    EXPECT_EQ(Taken(DataSourceDllGetVoltsDataScaleUnits(0)), "mV");
    EXPECT_EQ(Taken(DataSourceDllGetDataTypeDesc(0)), "Height Sensor");
    EXPECT_EQ(Taken(DataSourceDllGetLineDirection(0)), "Retrace");
    EXPECT_EQ(Taken(DataSourceDllGetScanLine(0)), "Main");
    EXPECT_EQ(Taken(DataSourceDllGetScanSizeUnit(9)), "\xB5m");
    EXPECT_EQ(Taken(DataSourceDllGetRampUnits(0, false)), "Volts");
    EXPECT_EQ(Taken(DataSourceDllGetRampUnits(0, true)), "nm");

    char units[16];
    std::memset(units, 'x', sizeof units);
    ASSERT_EQ(DataSourceDllGetZSensitivityUnits(0, units), 1);
    EXPECT_STREQ(units, "nm");
    EXPECT_EQ(DataSourceDllGetZSensitivityUnitsSafe(0, units, 2), -1);
    EXPECT_EQ(DataSourceDllGetZSensitivityUnitsSafe(0, units, 3), 1);
}

TEST_F(ExportsTest, WithoutASourceTextsAreAFreshUnknownAndForceUnitsAStaticText) {
    char* first = DataSourceDllGetDataTypeDesc(0);
    char* second = DataSourceDllGetDataTypeDesc(0);
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(Taken(first), "UNKNOWN");
    EXPECT_EQ(Taken(second), "UNKNOWN");
    for (char* text : {DataSourceDllGetMetricDataScaleUnits(0), DataSourceDllGetVoltsDataScaleUnits(0),
                       DataSourceDllGetLineDirection(0), DataSourceDllGetScanLine(0), DataSourceDllGetScanSizeUnit(0),
                       DataSourceDllGetRampUnits(0, true), DataSourceDllGetForceSweepChannel(0)}) {
        EXPECT_EQ(Taken(text), "UNKNOWN");
    }
    const char* force = DataSourceDllGetForceDataScaleUnits();
    EXPECT_STREQ(force, "nN");
    EXPECT_EQ(force, DataSourceDllGetForceDataScaleUnits());
}

TEST_F(ExportsTest, TextOfAChannelOutsideTheTableIsUnknown) {
    Current("IMAGE").AddChannel({});
    EXPECT_EQ(Taken(DataSourceDllGetDataTypeDesc(1)), "UNKNOWN");
    EXPECT_EQ(Taken(DataSourceDllGetMetricDataScaleUnits(-1)), "UNKNOWN");
    EXPECT_EQ(Taken(DataSourceDllGetScanLine(0)), "");
}

TEST_F(ExportsTest, AUnitTheDictionaryDoesNotKnowGivesUnknownAndNoException) {
    OLDataItemLoadRecord record;
    record.softUnit = "V";
    record.sensitivityUnit = "furlongs";
    Current("IMAGE").AddChannel(record);
    EXPECT_EQ(Taken(DataSourceDllGetMetricDataScaleUnits(0)), "UNKNOWN");
    EXPECT_EQ(Taken(DataSourceDllGetVoltsDataScaleUnits(0)), "V");
}
