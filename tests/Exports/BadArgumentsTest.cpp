// Every export given what a careless host gives: no source, null pointers,
// channels and curves that do not exist, buffers of no size. Each answers -1
// (or the one documented exception) on every kind of file, and nothing breaks.

#include "Exports/ExportsTestSupport.h"

#include <climits>
#include <functional>
#include <vector>

namespace {

const char* const kKinds[] = {"IMAGE", "FORCE", "FVOL", "HSDC", "SCRIPT", "TIMED", ""};
const int kBadChannels[] = {2, 3, 1 << 30, INT_MAX, -1, INT_MIN};

// Outputs large enough for any call on the sources below.
struct Outputs {
    std::vector<double> a = std::vector<double>(64), b = std::vector<double>(64);
    std::vector<int> i = std::vector<int>(64), j = std::vector<int>(64);
    std::vector<float> f = std::vector<float>(64);
    char text[64] = {};
    double d = 0.0, e = 0.0, g = 0.0;
    int n = 0, m = 0;
};

enum class ChannelRule {
    checked,  // a channel outside the table gives -1
    ignored,  // the channel is accepted and has no effect: 1
};

struct Call {
    const char* name;
    ChannelRule rule;
    std::function<int(int, Outputs&)> run;
};

std::vector<Call> ChannelCalls() {
    const auto checked = ChannelRule::checked;
    const auto ignored = ChannelRule::ignored;
    return {
        {"NumberOfLines", checked, [](int c, Outputs& o) { return DataSourceDllGetNumberOfLines(c, &o.n); }},
        {"SamplesPerLine", checked, [](int c, Outputs& o) { return DataSourceDllGetSamplesPerLine(c, &o.n); }},
        {"DataBufferSize", checked, [](int c, Outputs& o) { return DataSourceDllGetDataBufferSize(c, &o.n); }},
        {"ImageData", checked, [](int c, Outputs& o) { return DataSourceDllGetImageData(c, o.a.data(), 64, &o.n); }},
        {"ImageMetricData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetImageMetricData(c, o.a.data(), 64, &o.n); }},
        {"ImageVoltsData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetImageVoltsData(c, o.a.data(), 64, &o.n); }},
        {"ExportScalingFactor", checked,
         [](int c, Outputs& o) { return DataSourceDllGetExportScalingFactor(c, &o.d, true); }},
        {"ScalingFactor", checked, [](int c, Outputs& o) { return DataSourceDllGetScalingFactor(c, &o.d, false); }},
        {"ZScaleInSwUnits", checked, [](int c, Outputs& o) { return DataSourceDllGetZScaleInSwUnits(c, &o.d); }},
        {"ZScaleInHwUnits", checked, [](int c, Outputs& o) { return DataSourceDllGetZScaleInHwUnits(c, &o.d); }},
        {"ZSensitivitySoftScale", checked,
         [](int c, Outputs& o) { return DataSourceDllGetZSensitivitySoftScale(c, &o.d); }},
        {"ZSensitivityUnits", checked, [](int c, Outputs& o) { return DataSourceDllGetZSensitivityUnits(c, o.text); }},
        {"ZSensitivityUnitsSafe", checked,
         [](int c, Outputs& o) { return DataSourceDllGetZSensitivityUnitsSafe(c, o.text, 64); }},
        {"ForceSpringConstant", checked, [](int c, Outputs& o) { return DataSourceDllGetForceSpringConstant(c, &o.d); }},
        {"RampSize", checked, [](int c, Outputs& o) { return DataSourceDllGetRampSize(c, &o.d, true); }},
        {"ForwardRampVelocity", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForwardRampVelocity(c, &o.d, true); }},
        {"ReverseRampVelocity", checked,
         [](int c, Outputs& o) { return DataSourceDllGetReverseRampVelocity(c, &o.d, false); }},
        {"PlanefitSettings", checked,
         [](int c, Outputs& o) { return DataSourceDllGetPlanefitSettings(c, &o.d, &o.e, &o.g, &o.n); }},
        {"NumberOfPointsPerCurve", checked,
         [](int c, Outputs& o) { return DataSourceDllGetNumberOfPointsPerCurve(c, &o.n); }},
        {"ForceCurveData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceCurveData(c, o.a.data(), o.b.data()); }},
        {"ForceCurveMetricData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceCurveMetricData(c, o.a.data(), o.b.data()); }},
        {"ForceCurveForceData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceCurveForceData(c, o.a.data(), o.b.data()); }},
        {"ForceCurveVoltsData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceCurveVoltsData(c, o.a.data(), o.b.data()); }},
        {"ForceHoldData", checked, [](int c, Outputs& o) { return DataSourceDllGetForceHoldData(c, o.a.data()); }},
        {"ForceMetricHoldData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceMetricHoldData(c, o.a.data()); }},
        {"ForceVoltsHoldData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceVoltsHoldData(c, o.a.data()); }},
        {"ForceVolumeHoldData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceVolumeHoldData(c, 0, o.a.data()); }},
        {"ForceVolumeMetricHoldData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceVolumeMetricHoldData(c, 1, o.a.data()); }},
        {"ForceVolumeVoltsHoldData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetForceVolumeVoltsHoldData(c, 0, o.a.data()); }},
        {"HSDCForceCurveData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetHSDCForceCurveData(c, o.a.data(), 64, &o.n); }},
        {"HSDCMetricForceCurveData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetHSDCMetricForceCurveData(c, o.a.data(), 64, &o.n); }},
        {"HSDCVoltsForceCurveData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetHSDCVoltsForceCurveData(c, o.a.data(), 64, &o.n); }},
        {"HsdcRate", checked, [](int c, Outputs& o) { return DataSourceDllGetHsdcRate(c, &o.d); }},
        {"ScriptSegmentData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetScriptSegmentData(c, -1, 2, o.a.data(), o.b.data()); }},
        {"ScriptMetricSegmentData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetScriptMetricSegmentData(c, 0, 2, o.a.data(), o.b.data()); }},
        {"ScriptVoltsSegmentData", checked,
         [](int c, Outputs& o) { return DataSourceDllGetScriptVoltsSegmentData(c, -1, 2, o.a.data(), o.b.data()); }},
        {"ForceSamplesPerLine", ignored, [](int c, Outputs& o) { return DataSourceDllGetForceSamplesPerLine(c, &o.n); }},
        {"NumberOfTracePoints", ignored, [](int c, Outputs& o) { return DataSourceDllGetNumberOfTracePoints(c, &o.n); }},
        {"ScanSize", ignored, [](int c, Outputs& o) { return DataSourceDllGetScanSize(c, &o.d); }},
        {"NumberOfHoldPoints", ignored, [](int c, Outputs& o) { return DataSourceDllGetNumberOfHoldPoints(c, &o.n); }},
        {"ForceHoldTime", ignored, [](int c, Outputs& o) { return DataSourceDllGetForceHoldTime(c, &o.d); }},
        {"ForceSweepFreqRange", ignored,
         [](int c, Outputs& o) { return DataSourceDllGetForceSweepFreqRange(c, &o.d, &o.e); }},
    };
}

struct TextCall {
    const char* name;
    ChannelRule rule;
    std::function<char*(int)> run;
};

std::vector<TextCall> TextCalls() {
    const auto checked = ChannelRule::checked;
    const auto ignored = ChannelRule::ignored;
    return {
        {"MetricDataScaleUnits", checked, [](int c) { return DataSourceDllGetMetricDataScaleUnits(c); }},
        {"VoltsDataScaleUnits", checked, [](int c) { return DataSourceDllGetVoltsDataScaleUnits(c); }},
        {"DataTypeDesc", checked, [](int c) { return DataSourceDllGetDataTypeDesc(c); }},
        {"LineDirection", checked, [](int c) { return DataSourceDllGetLineDirection(c); }},
        {"ScanLine", checked, [](int c) { return DataSourceDllGetScanLine(c); }},
        {"RampUnits", checked, [](int c) { return DataSourceDllGetRampUnits(c, true); }},
        {"ScanSizeUnit", ignored, [](int c) { return DataSourceDllGetScanSizeUnit(c); }},
        {"ForceSweepChannel", ignored, [](int c) { return DataSourceDllGetForceSweepChannel(c); }},
    };
}

// Calls that give -1 for one null pointer among valid arguments.
std::vector<std::pair<const char*, std::function<int(Outputs&)>>> NullCalls() {
    return {
        {"NumberOfChannels", [](Outputs&) { return DataSourceDllGetNumberOfChannels(nullptr); }},
        {"NumberOfLines", [](Outputs&) { return DataSourceDllGetNumberOfLines(0, nullptr); }},
        {"SamplesPerLine", [](Outputs&) { return DataSourceDllGetSamplesPerLine(0, nullptr); }},
        {"DataBufferSize", [](Outputs&) { return DataSourceDllGetDataBufferSize(0, nullptr); }},
        {"ImageData out", [](Outputs& o) { return DataSourceDllGetImageData(0, nullptr, 64, &o.n); }},
        {"ImageData count", [](Outputs& o) { return DataSourceDllGetImageData(0, o.a.data(), 64, nullptr); }},
        {"ImageMetricData", [](Outputs& o) { return DataSourceDllGetImageMetricData(0, nullptr, 64, &o.n); }},
        {"ImageVoltsData", [](Outputs& o) { return DataSourceDllGetImageVoltsData(0, o.a.data(), 64, nullptr); }},
        {"ExportScalingFactor", [](Outputs&) { return DataSourceDllGetExportScalingFactor(0, nullptr, true); }},
        {"ScalingFactor", [](Outputs&) { return DataSourceDllGetScalingFactor(0, nullptr, true); }},
        {"ZScaleInSwUnits", [](Outputs&) { return DataSourceDllGetZScaleInSwUnits(0, nullptr); }},
        {"ZScaleInHwUnits", [](Outputs&) { return DataSourceDllGetZScaleInHwUnits(0, nullptr); }},
        {"ZSensitivitySoftScale", [](Outputs&) { return DataSourceDllGetZSensitivitySoftScale(0, nullptr); }},
        {"ZSensitivityUnits", [](Outputs&) { return DataSourceDllGetZSensitivityUnits(0, nullptr); }},
        {"ZSensitivityUnitsSafe", [](Outputs&) { return DataSourceDllGetZSensitivityUnitsSafe(0, nullptr, 64); }},
        {"ZSensitivityUnitsSafe size", [](Outputs& o) { return DataSourceDllGetZSensitivityUnitsSafe(0, o.text, -1); }},
        {"PoissonRatio", [](Outputs&) { return DataSourceDllGetPoissonRatio(nullptr); }},
        {"TipRadius", [](Outputs&) { return DataSourceDllGetTipRadius(nullptr); }},
        {"HalfAngle", [](Outputs&) { return DataSourceDllGetHalfAngle(nullptr); }},
        {"ForceSpringConstant", [](Outputs&) { return DataSourceDllGetForceSpringConstant(0, nullptr); }},
        {"ScanSize", [](Outputs&) { return DataSourceDllGetScanSize(0, nullptr); }},
        {"ImageAspectRatio", [](Outputs&) { return DataSourceDllGetImageAspectRatio(0, nullptr); }},
        {"PlanefitSettings a", [](Outputs& o) { return DataSourceDllGetPlanefitSettings(0, nullptr, &o.e, &o.g, &o.n); }},
        {"PlanefitSettings b", [](Outputs& o) { return DataSourceDllGetPlanefitSettings(0, &o.d, nullptr, &o.g, &o.n); }},
        {"PlanefitSettings c", [](Outputs& o) { return DataSourceDllGetPlanefitSettings(0, &o.d, &o.e, nullptr, &o.n); }},
        {"PlanefitSettings order",
         [](Outputs& o) { return DataSourceDllGetPlanefitSettings(0, &o.d, &o.e, &o.g, nullptr); }},
        {"RampSize", [](Outputs&) { return DataSourceDllGetRampSize(0, nullptr, true); }},
        {"ForwardRampVelocity", [](Outputs&) { return DataSourceDllGetForwardRampVelocity(0, nullptr, true); }},
        {"ReverseRampVelocity", [](Outputs&) { return DataSourceDllGetReverseRampVelocity(0, nullptr, true); }},
        {"ForceSamplesPerLine", [](Outputs&) { return DataSourceDllGetForceSamplesPerLine(0, nullptr); }},
        {"NumberOfTracePoints", [](Outputs&) { return DataSourceDllGetNumberOfTracePoints(0, nullptr); }},
        {"NumberOfPointsPerCurve", [](Outputs&) { return DataSourceDllGetNumberOfPointsPerCurve(0, nullptr); }},
        {"NumberOfForceCurves", [](Outputs&) { return DataSourceDllGetNumberOfForceCurves(nullptr); }},
        {"ForcesPerLine", [](Outputs&) { return DataSourceDllGetForcesPerLine(nullptr); }},
        {"ForceCurveData first", [](Outputs& o) { return DataSourceDllGetForceCurveData(0, nullptr, o.b.data()); }},
        {"ForceCurveForceData second",
         [](Outputs& o) { return DataSourceDllGetForceCurveForceData(0, o.a.data(), nullptr); }},
        {"ForceVolumeImageData out", [](Outputs& o) { return DataSourceDllGetForceVolumeImageData(nullptr, 64, &o.n); }},
        {"ForceVolumeMetricImageData count",
         [](Outputs& o) { return DataSourceDllGetForceVolumeMetricImageData(o.a.data(), 64, nullptr); }},
        {"ForceVolumeForceCurveData first",
         [](Outputs& o) {
             return DataSourceDllGetForceVolumeForceCurveData(0, nullptr, o.b.data(), &o.n, &o.m, 64);
         }},
        {"ForceVolumeMetricForceCurveData second",
         [](Outputs& o) {
             return DataSourceDllGetForceVolumeMetricForceCurveData(0, o.a.data(), nullptr, &o.n, &o.m, 64);
         }},
        {"ForceVolumeForceForceCurveData firstCount",
         [](Outputs& o) {
             return DataSourceDllGetForceVolumeForceForceCurveData(0, o.a.data(), o.b.data(), nullptr, &o.m, 64);
         }},
        {"ForceVolumeVoltsForceCurveData secondCount",
         [](Outputs& o) {
             return DataSourceDllGetForceVolumeVoltsForceCurveData(0, o.a.data(), o.b.data(), &o.n, nullptr, 64);
         }},
        {"NumberOfHoldPoints", [](Outputs&) { return DataSourceDllGetNumberOfHoldPoints(0, nullptr); }},
        {"ForceHoldTime", [](Outputs&) { return DataSourceDllGetForceHoldTime(0, nullptr); }},
        {"ForceHoldData", [](Outputs&) { return DataSourceDllGetForceHoldData(0, nullptr); }},
        {"ForceVolumeHoldData", [](Outputs&) { return DataSourceDllGetForceVolumeHoldData(1, 0, nullptr); }},
        {"HSDCForceCurveData out", [](Outputs& o) { return DataSourceDllGetHSDCForceCurveData(0, nullptr, 64, &o.n); }},
        {"HSDCForceCurveData count",
         [](Outputs& o) { return DataSourceDllGetHSDCForceCurveData(0, o.a.data(), 64, nullptr); }},
        {"HsdcRate", [](Outputs&) { return DataSourceDllGetHsdcRate(0, nullptr); }},
        {"ScriptSegmentCount", [](Outputs&) { return DataSourceDllGetScriptSegmentCount(nullptr); }},
        {"ScriptSegmentInfo samples",
         [](Outputs& o) { return DataSourceDllGetScriptSegmentInfo(1, nullptr, o.i.data(), o.f.data()); }},
        {"ScriptSegmentInfo type",
         [](Outputs& o) { return DataSourceDllGetScriptSegmentInfo(1, o.i.data(), nullptr, o.f.data()); }},
        {"ScriptSegmentInfo duration",
         [](Outputs& o) { return DataSourceDllGetScriptSegmentInfo(1, o.i.data(), o.j.data(), nullptr); }},
        {"ScriptSegmentData time",
         [](Outputs& o) { return DataSourceDllGetScriptSegmentData(0, -1, 2, nullptr, o.b.data()); }},
        {"ScriptSegmentData out",
         [](Outputs& o) { return DataSourceDllGetScriptSegmentData(0, -1, 2, o.a.data(), nullptr); }},
        {"CrestloadCaptureZData first",
         [](Outputs& o) { return DataSourceDllGetCrestloadCaptureZData(nullptr, o.b.data(), 2, 2); }},
        {"CrestloadCaptureZData second",
         [](Outputs& o) { return DataSourceDllGetCrestloadCaptureZData(o.a.data(), nullptr, 2, 2); }},
        {"CrestloadTappingFreq", [](Outputs&) { return DataSourceDllGetCrestloadTappingFreq(nullptr); }},
        {"ForceSweepFreqRange low", [](Outputs& o) { return DataSourceDllGetForceSweepFreqRange(0, nullptr, &o.e); }},
        {"ForceSweepFreqRange high", [](Outputs& o) { return DataSourceDllGetForceSweepFreqRange(0, &o.d, nullptr); }},
    };
}

class BadArgumentsTest : public ExportsTest {
protected:
    // Two channels of 16 samples, readable as every kind of file.
    void Make(const char* kind) {
        source = std::make_shared<MemoryDataSource>();
        auto& s = Current(kind);
        OLDataItemLoadRecord record;
        record.rows = 2;
        record.columns = 2;
        record.retracePoints = 2;
        record.tracePoints = 2;
        record.pointsPerCurve = 4;
        record.sensitivityUnit = "nm";
        for (int c = 0; c < 2; ++c) {
            s.AddChannel(record, std::vector<std::int32_t>(16, 5));
        }
        s.holdPoints = 1;
        s.tracePoints = 2;
        s.forcesPerLine = 2;
        s.segmentCount = 1;
        s.segmentSizeList = "2";
        s.segmentSamplesList = "2";
        s.captureState = "On";
        s.sweepChannel = "Amplitude";
        s.sweepStart = UValue(1.0, "Hz");
    }
};

}  // namespace

TEST_F(BadArgumentsTest, WithoutASourceEveryExportRefuses) {
    Outputs o;
    for (const auto& call : ChannelCalls()) {
        EXPECT_EQ(call.run(0, o), -1) << call.name;
    }
    for (const auto& call : NullCalls()) {
        EXPECT_EQ(call.second(o), -1) << call.first;
    }
    for (const auto& call : TextCalls()) {
        EXPECT_EQ(Taken(call.run(0)), "UNKNOWN") << call.name;
    }
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&o.n), -1);
    EXPECT_EQ(DataSourceDllGetImageAspectRatio(0, &o.d), -1);
    EXPECT_EQ(DataSourceDllGetScriptSegmentInfo(1, o.i.data(), o.j.data(), o.f.data()), -1);
    EXPECT_EQ(DataSourceDllGetCrestloadTappingFreq(&o.d), -1);
    EXPECT_EQ(DataSourceDllClose(), 1);
}

TEST_F(BadArgumentsTest, NullPointersAreRefusedOnEveryKind) {
    for (const char* kind : kKinds) {
        Make(kind);
        Outputs o;
        for (const auto& call : NullCalls()) {
            EXPECT_EQ(call.second(o), -1) << kind << " " << call.first;
        }
    }
}

TEST_F(BadArgumentsTest, ChannelsOutsideTheTableAreRefusedOnEveryKind) {
    for (const char* kind : kKinds) {
        Make(kind);
        for (int channel : kBadChannels) {
            Outputs o;
            for (const auto& call : ChannelCalls()) {
                const int expected = call.rule == ChannelRule::checked ? -1 : 1;
                EXPECT_EQ(call.run(channel, o), expected) << kind << " " << call.name << " " << channel;
            }
            for (const auto& call : TextCalls()) {
                const std::string text = Taken(call.run(channel));
                EXPECT_EQ(text == "UNKNOWN", call.rule == ChannelRule::checked) << kind << " " << call.name;
            }
            o.d = 0.0;
            const bool image = std::string(kind) == "IMAGE";
            EXPECT_EQ(DataSourceDllGetImageAspectRatio(channel, &o.d), image ? 1 : -1) << kind << " " << channel;
            EXPECT_EQ(o.d, image ? 1.0 : 0.0);
        }
    }
}

TEST_F(BadArgumentsTest, BuffersOfNoSizeAreRefusedWithTheirCountsWritten) {
    for (int size : {0, -1, INT_MIN}) {
        Outputs o;
        Make("IMAGE");
        EXPECT_EQ(DataSourceDllGetImageData(0, o.a.data(), size, &o.n), -1);
        EXPECT_EQ(o.n, 16);
        Make("FVOL");
        o.n = 0;
        EXPECT_EQ(DataSourceDllGetForceVolumeImageData(o.a.data(), size, &o.n), -1);
        EXPECT_EQ(o.n, 4);
        o.n = o.m = 0;
        EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(0, o.a.data(), o.b.data(), &o.n, &o.m, size), -1);
        EXPECT_EQ(o.m, 2);
        Make("HSDC");
        o.n = 0;
        EXPECT_EQ(DataSourceDllGetHSDCForceCurveData(0, o.a.data(), size, &o.n), -1);
        EXPECT_EQ(o.n, 4);
        EXPECT_EQ(DataSourceDllGetZSensitivityUnitsSafe(0, o.text, size), -1);
    }
}

TEST_F(BadArgumentsTest, CurveIndicesOutsideTheLineAreRefused) {
    Make("FVOL");
    Outputs o;
    for (int curve : {-1, INT_MIN, 2, INT_MAX}) {
        EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(curve, o.a.data(), o.b.data(), &o.n, &o.m, 64), -1)
            << curve;
        EXPECT_EQ(DataSourceDllGetForceVolumeHoldData(1, curve, o.a.data()), -1) << curve;
        EXPECT_EQ(DataSourceDllGetForceVolumeMetricHoldData(0, curve, o.a.data()), -1) << curve;
    }
    // A single force curve has only curve 0, whatever the caller asks.
    Make("FORCE");
    EXPECT_EQ(DataSourceDllGetForceVolumeHoldData(0, -7, o.a.data()), 1);
}

TEST_F(BadArgumentsTest, FailedOpensLeaveNoSource) {
    Make("IMAGE");
    Outputs o;
    EXPECT_EQ(DataSourceDllOpen(nullptr), -1);
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&o.n), -1);
    Make("IMAGE");
    char missing[] = "/nonexistent/folder/file.TEF";
    EXPECT_EQ(DataSourceDllOpen(missing), -1);
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&o.n), -1);
    EXPECT_EQ(DataSourceDllClose(), 1);
}
