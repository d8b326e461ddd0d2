// Builder files of every subtype on disk, opened as a host's open does, and
// read through the flat exports.

#include "Quillon/QuillonTestSupport.h"
#include "support/TestTempPath.h"

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace QuillonTest;

namespace {

class QuillonEndToEndTest : public ::testing::Test {
protected:
    // Writes the file, opens it and makes its source the current one.
    std::vector<std::int32_t> Install(const std::string& subtype, QuillonBuilder& file, std::size_t samplesOf = 0) {
        const std::string path = TestTempPath("end_to_end_" + subtype + ".spm");
        file.Write(path);
        auto source = std::make_shared<QlOLDataSource>(Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr), nullptr);
        source->Initialize();
        EXPECT_TRUE(source->IsOpen());
        DataSourceDllState::Install(source);
        return file.SamplesOf(samplesOf);
    }
    void TearDown() override { DataSourceDllState::CloseCurrent(); }

    static int Count(int (*get)(int*)) {
        int n = -1;
        EXPECT_EQ(get(&n), 1);
        return n;
    }
    static std::string Text(char* text) {
        const std::string copy = text ? text : "";
        DataSourceDllFreeString(text);
        return copy;
    }
};

}  // namespace

TEST_F(QuillonEndToEndTest, ImageReadsAsCountsVoltsAndMetres) {
    QuillonBuilder file("IMAGE");
    const std::vector<std::int32_t> samples = Install("IMAGE", file);
    EXPECT_EQ(Count(DataSourceDllGetNumberOfChannels), 2);
    // Samples lie behind a header of 0xA000 bytes, channel after channel.
    EXPECT_EQ(DataSourceDllState::Current()->GetDataItem(0)->GetDataOffset(), 0xA000u);
    EXPECT_EQ(DataSourceDllState::Current()->GetDataItem(1)->GetDataOffset(), 0xA000u + 16 * 4);
    std::vector<double> out(16);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetImageData(0, out.data(), 16, &count), 1);
    EXPECT_EQ(count, 16);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(out[i], samples[i]);
    }
    ASSERT_EQ(DataSourceDllGetImageMetricData(0, out.data(), 16, &count), 1);
    EXPECT_DOUBLE_EQ(out[3], samples[3] * 5500.0 / 4294967295.0);
    ASSERT_EQ(DataSourceDllGetImageVoltsData(0, out.data(), 16, &count), 1);
    EXPECT_DOUBLE_EQ(out[3], samples[3] * 440.0 / 4294967295.0);
    EXPECT_EQ(DataSourceDllGetImageData(0, out.data(), 15, &count), -1);

    double value = 0.0;
    ASSERT_EQ(DataSourceDllGetScanSize(0, &value), 1);
    EXPECT_EQ(value, 1000.0);
    EXPECT_EQ(Text(DataSourceDllGetScanSizeUnit(0)), "nm");
    EXPECT_EQ(Text(DataSourceDllGetDataTypeDesc(1)), "Deflection Error");
    EXPECT_EQ(Text(DataSourceDllGetLineDirection(0)), "Retrace");
    ASSERT_EQ(DataSourceDllGetZSensitivitySoftScale(0, &value), 1);
    EXPECT_EQ(value, 12.5);
}

TEST_F(QuillonEndToEndTest, ForceCurveWithItsHoldSection) {
    QuillonBuilder file("FORCE");
    const std::vector<std::int32_t> d = Install("FORCE", file);
    std::vector<double> first(8), second(8), hold(4);
    ASSERT_EQ(DataSourceDllGetForceCurveData(0, first.data(), second.data()), 1);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(first[i], d[i]);
        EXPECT_EQ(second[i], d[8 + i]);
    }
    ASSERT_EQ(DataSourceDllGetForceHoldData(0, hold.data()), 1);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(hold[i], d[16 + i]);
    }
    ASSERT_EQ(DataSourceDllGetForceCurveForceData(0, first.data(), second.data()), 1);
    IOLDataSource* source = DataSourceDllState::Current();
    const double factor = static_cast<double>(source->GetZScaleInSwUnits(0) / source->GetScalingFactor(0)) * 0.4;
    EXPECT_NEAR(first[1], d[1] * factor, std::abs(d[1] * factor) * 1e-6);
    int points = 0;
    ASSERT_EQ(DataSourceDllGetNumberOfPointsPerCurve(0, &points), 1);
    EXPECT_EQ(points, 8);
    EXPECT_EQ(Count(DataSourceDllGetNumberOfForceCurves), 2);
    double spring = 0.0;
    ASSERT_EQ(DataSourceDllGetForceSpringConstant(1, &spring), 1);
    EXPECT_EQ(spring, QuillonBuilder::kSpringConstant);
}

TEST_F(QuillonEndToEndTest, ForceVolumeImageCurvesAndHold) {
    QuillonBuilder file("FVOL");
    const std::vector<std::int32_t> image = Install("FVOL", file, 0);
    const std::vector<std::int32_t> curves = file.SamplesOf(1);
    std::vector<double> out(16);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeImageData(out.data(), 16, &count), 1);
    EXPECT_EQ(count, 16);
    EXPECT_EQ(out[9], image[9]);
    EXPECT_EQ(Count(DataSourceDllGetForcesPerLine), 4);

    std::vector<double> first(8), second(8), hold(4);
    int firstCount = 0, secondCount = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeForceCurveData(2, first.data(), second.data(), &firstCount, &secondCount, 8), 1);
    EXPECT_EQ(firstCount, 8);
    EXPECT_EQ(secondCount, 8);
    const std::size_t start = 2 * 20;  // two curves of both halves and the hold before
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(first[i], curves[start + i]);
        EXPECT_EQ(second[i], curves[start + 8 + i]);
    }
    ASSERT_EQ(DataSourceDllGetForceVolumeHoldData(1, 2, hold.data()), 1);
    EXPECT_EQ(hold[3], curves[start + 16 + 3]);
    EXPECT_EQ(DataSourceDllGetForceVolumeForceCurveData(4, first.data(), second.data(), &firstCount, &secondCount, 8), -1);
}

TEST_F(QuillonEndToEndTest, HighSpeedData) {
    QuillonBuilder file("HSDC");
    const std::vector<std::int32_t> d = Install("HSDC", file, 1);
    std::vector<double> out(64, -1.0);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetHSDCForceCurveData(1, out.data(), 64, &count), 1);
    EXPECT_EQ(count, 32);  // the channel's bytes
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(out[i], d[i]);
    }
    ASSERT_EQ(DataSourceDllGetHSDCMetricForceCurveData(1, out.data(), 64, &count), 1);
    EXPECT_DOUBLE_EQ(out[2], d[2] * 910.0 / static_cast<float>(4294967295.0));
    int points = 0;
    ASSERT_EQ(DataSourceDllGetNumberOfPointsPerCurve(0, &points), 1);
    EXPECT_EQ(points, 16);
    double rate = 0.0;
    ASSERT_EQ(DataSourceDllGetHsdcRate(0, &rate), 1);
    EXPECT_EQ(rate, 6.25e6);
}

TEST_F(QuillonEndToEndTest, ScriptSegments) {
    QuillonBuilder file("SCRIPT");
    const std::vector<std::int32_t> d = Install("SCRIPT", file);
    EXPECT_EQ(Count(DataSourceDllGetScriptSegmentCount), 3);
    int samples[3] = {}, type[3] = {};
    float duration[3] = {};
    ASSERT_EQ(DataSourceDllGetScriptSegmentInfo(3, samples, type, duration), 1);
    EXPECT_EQ(std::vector<int>(samples, samples + 3), (std::vector<int>{8, 8, 4}));
    EXPECT_EQ(std::vector<int>(type, type + 3), (std::vector<int>{1, 3, 6}));
    EXPECT_FLOAT_EQ(duration[2], 0.25f);
    std::vector<double> time(20), out(20);
    ASSERT_EQ(DataSourceDllGetScriptSegmentData(0, -1, 20, time.data(), out.data()), 1);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(out[i], d[i]);
    }
    EXPECT_EQ(Text(DataSourceDllGetSegmentDescription(type[2])), "Hold Z");
}

TEST_F(QuillonEndToEndTest, EverySubtypeOpensWithItsChannels) {
    const std::pair<const char*, int> cases[] = {{"TIMED", 1}, {"TIMED_FORCE", 2}, {"ECAFM", 4},
                                                 {"ECSTM", 4}, {"EC", 3},          {"ECFORCE", 2}};
    for (const auto& [subtype, channels] : cases) {
        QuillonBuilder file(subtype);
        Install(subtype, file);
        EXPECT_EQ(Count(DataSourceDllGetNumberOfChannels), channels) << subtype;
        int lines = 0;
        ASSERT_EQ(DataSourceDllGetNumberOfLines(0, &lines), 1);
        EXPECT_GE(lines, 1);
        int size = 0;
        ASSERT_EQ(DataSourceDllGetDataBufferSize(0, &size), 1);
        EXPECT_GT(size, 0) << subtype;
    }
    // A timed file counts its channels as curves.
    QuillonBuilder timed("TIMED");
    Install("TIMED", timed);
    EXPECT_EQ(Count(DataSourceDllGetNumberOfForceCurves), 1);
}

TEST_F(QuillonEndToEndTest, OpenChoosesTheQuillonSourceByTheFileType) {
    QuillonBuilder file("FVOL");
    std::string path = TestTempPath("end_to_end_open.spm");
    file.Write(path);
    ASSERT_EQ(DataSourceDllOpen(path.data()), 1);
    EXPECT_EQ(Count(DataSourceDllGetForcesPerLine), 4);
    // A file that Initialize refuses leaves no source behind.
    file.RemoveSection("Dulce force list").Write(path);
    LogCapture log;
    EXPECT_EQ(DataSourceDllOpen(path.data()), -1);
    int channels = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&channels), -1);
    EXPECT_EQ(log.messages, std::vector<std::string>{"QlOLDataSource::Initialize failed to open get Dulce force list"});
}
