// Every sample of the table read back through the library as a host reads
// it: it opens as the family and kind its name says, and what it shows is
// the physics it was made from.

#include "tools/samplegen/SampleTable.h"

#include "LibraryReads.h"
#include "support/TestTempPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <numeric>

namespace {

// Writes every sample once, for all tests of this file.
class SamplesTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        folder_ = TestTempPath("samplegen_samples");
        std::filesystem::create_directories(folder_);
        for (const SampleGen::Sample& sample : SampleGen::Samples())
            sample.write(Path(sample.fileName));
    }
    static std::string Path(const std::string& name) { return folder_ + "/" + name; }

    static std::string folder_;
};

std::string SamplesTest::folder_;

std::string TypeText()
{
    char* text = DataSourceDllGetFileTypeText();
    std::string out = text ? text : "";
    DataSourceDllFreeString(text);
    return out;
}

TEST_F(SamplesTest, EverySampleOpensAsTheFamilyAndKindItsNameSays)
{
    const std::map<std::string, int> kinds = {
        {"grating", DATASOURCEDLL_KIND_IMAGE},
        {"quillon_image", DATASOURCEDLL_KIND_IMAGE},
        {"quillon_force", DATASOURCEDLL_KIND_FORCE},
        {"quillon_fvol", DATASOURCEDLL_KIND_FORCE_VOLUME},
        {"quillon_script", DATASOURCEDLL_KIND_SCRIPT},
        {"quillon_hsdc", DATASOURCEDLL_KIND_HIGH_SPEED},
        {"quillon_timed", DATASOURCEDLL_KIND_TIMED},
        {"quillon_ecafm", DATASOURCEDLL_KIND_EC_AFM},
        {"harlen_image", DATASOURCEDLL_KIND_IMAGE | DATASOURCEDLL_KIND_HARLEN},
        {"harlen_force", DATASOURCEDLL_KIND_FORCE | DATASOURCEDLL_KIND_HARLEN},
    };
    std::set<std::string> names;
    for (const SampleGen::Sample& sample : SampleGen::Samples()) {
        EXPECT_TRUE(names.insert(sample.fileName).second) << sample.fileName;
        const OpenedFile opened(Path(sample.fileName));
        ASSERT_TRUE(opened.Opened()) << sample.fileName;
        const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const auto& k) {
            return sample.fileName.rfind(k.first, 0) == 0;
        });
        ASSERT_NE(kind, kinds.end()) << sample.fileName << " has no kind to be checked";
        int bits = 0;
        EXPECT_EQ(DataSourceDllGetFileKinds(&bits), 1);
        EXPECT_EQ(bits & kind->second, kind->second) << sample.fileName;
        const std::string family = sample.fileName.substr(0, sample.fileName.find('_'));
        const std::string type = TypeText();
        EXPECT_EQ(type, family == "quillon" ? "Quillon Data File" : family == "harlen" ? "Harlen Data File" : ".tef")
            << sample.fileName;
    }
}

TEST_F(SamplesTest, TheForceCurveGoesIntoASoftPolymerAndPullsOffWithAdhesion)
{
    const OpenedFile opened(Path("quillon_force.qdf"));
    int points = 0, hold = 0;
    ASSERT_EQ(DataSourceDllGetNumberOfPointsPerCurve(0, &points), 1);
    ASSERT_EQ(points, 512);
    std::vector<double> approach(1280), retract(1280), holding(256);
    ASSERT_EQ(DataSourceDllGetForceCurveMetricData(0, approach.data(), retract.data()), 1);
    approach.resize(512);
    retract.resize(512);
    // flat far away, about 60 nm of deflection at the end of the ramp
    EXPECT_NEAR(std::accumulate(approach.begin(), approach.begin() + 200, 0.0) / 200.0, 0.0, 0.1);
    EXPECT_NEAR(approach.back(), 60.0, 5.0);
    // the retract starts where the hold ended and pulls off at 4 nN on a 0.4 N/m lever
    EXPECT_NEAR(*std::min_element(retract.begin(), retract.end()), -10.0, 1.0);
    EXPECT_NEAR(retract.back(), 0.0, 1.0);
    ASSERT_EQ(DataSourceDllGetNumberOfHoldPoints(0, &hold), 1);
    EXPECT_EQ(hold, 256);
    ASSERT_EQ(DataSourceDllGetForceMetricHoldData(0, holding.data()), 1);
    // the polymer relaxes under the tip during the hold
    EXPECT_NEAR(holding.front(), approach.back(), 1.5);
    EXPECT_LT(holding.back(), holding.front() - 2.0);
    EXPECT_NEAR(retract.front(), holding.back(), 1.5);
}

TEST_F(SamplesTest, TheForceVolumeShowsItsStiffDomains)
{
    const OpenedFile opened(Path("quillon_fvol.qdf"));
    std::vector<double> heights(256);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeMetricImageData(heights.data(), 256, &count), 1);
    const auto highest = std::max_element(heights.begin(), heights.end()) - heights.begin();
    const auto lowest = std::min_element(heights.begin(), heights.end()) - heights.begin();
    EXPECT_NEAR(heights[static_cast<std::size_t>(highest)] - heights[static_cast<std::size_t>(lowest)], 7.0, 2.0);
    const auto curve = [](long index) {
        std::vector<double> first(128), second(128);
        int firstCount = 0, secondCount = 0;
        EXPECT_EQ(DataSourceDllGetForceVolumeMetricForceCurveData(static_cast<int>(index), first.data(), second.data(),
                                                                  &firstCount, &secondCount, 128),
                  1);
        return std::pair{first, second};
    };
    const auto [domainIn, domainOut] = curve(highest);
    const auto [matrixIn, matrixOut] = curve(lowest);
    // the stiff domain bends the lever further and sticks less
    EXPECT_GT(domainIn.back(), matrixIn.back() + 5.0);
    EXPECT_GT(*std::min_element(domainOut.begin(), domainOut.end()),
              *std::min_element(matrixOut.begin(), matrixOut.end()) + 5.0);
}

TEST_F(SamplesTest, TheCaptureCurvesTouchDownWhereTheCapturesZReachesTheSurface)
{
    const OpenedFile opened(Path("quillon_fvol_capture.qdf"));
    std::vector<double> first(128), second(128), firstZ(128), secondZ(128);
    int firstCount = 0, secondCount = 0;
    ASSERT_EQ(DataSourceDllGetForceVolumeMetricForceCurveData(9, first.data(), second.data(), &firstCount,
                                                              &secondCount, 128),
              1);
    ASSERT_EQ(DataSourceDllGetCrestloadCaptureZData(firstZ.data(), secondZ.data(), firstCount, secondCount), 1);
    for (const auto& [z, deflection] : {std::pair{&firstZ, &first}, std::pair{&secondZ, &second}}) {
        for (std::size_t i = 0; i < 128; ++i) {
            // the surface stands at 220 nm of the capture's Z
            if ((*z)[i] < 190.0) {
                EXPECT_NEAR((*deflection)[i], 0.0, 1.0) << "Z " << (*z)[i];
            } else if ((*z)[i] > 260.0) {
                EXPECT_GT((*deflection)[i], 10.0) << "Z " << (*z)[i];
            }
        }
    }
}

TEST_F(SamplesTest, TheScriptExtendsHoldsAndRetracts)
{
    const OpenedFile opened(Path("quillon_script.qdf"));
    int samples[3] = {}, types[3] = {};
    float durations[3] = {};
    ASSERT_EQ(DataSourceDllGetScriptSegmentInfo(3, samples, types, durations), 1);
    EXPECT_EQ(std::vector<int>(samples, samples + 3), (std::vector<int>{400, 200, 400}));
    EXPECT_EQ(std::vector<int>(types, types + 3), (std::vector<int>{1, 6, 3}));
    EXPECT_EQ(std::vector<float>(durations, durations + 3), (std::vector<float>{1.0f, 0.5f, 1.0f}));
    std::vector<double> time(200), hold(200);
    ASSERT_EQ(DataSourceDllGetScriptMetricSegmentData(0, 1, 200, time.data(), hold.data()), 1);
    // holding Z while the polymer relaxes: the deflection falls
    EXPECT_GT(hold.front(), hold.back() + 2.0);
    EXPECT_NEAR(time.back() - time.front(), 0.5 * 199.0 / 200.0, 1e-6);
}

TEST_F(SamplesTest, TheHighSpeedCaptureIsOneTappingCycle)
{
    const OpenedFile opened(Path("quillon_hsdc.qdf"));
    std::vector<double> deflection(8000, -1e9);
    int count = 0;
    ASSERT_EQ(DataSourceDllGetHSDCMetricForceCurveData(0, deflection.data(), 8000, &count), 1);
    EXPECT_EQ(count, 8000);  // the bytes of 4000 samples of 2 bytes
    EXPECT_EQ(deflection[4000], -1e9);
    const auto peak = std::max_element(deflection.begin(), deflection.begin() + 4000) - deflection.begin();
    EXPECT_NEAR(static_cast<double>(peak), 2000.0, 150.0);
    EXPECT_GT(deflection[static_cast<std::size_t>(peak)], 15.0);
    double rate = 0.0;
    EXPECT_EQ(DataSourceDllGetHsdcRate(1, &rate), 1);
    EXPECT_EQ(rate, 6.25e6);
}

TEST_F(SamplesTest, BothImageWidthsShowTheSameSurface)
{
    std::vector<double> narrow, wide;
    {
        const OpenedFile opened(Path("quillon_image.qdf"));
        narrow = MetricImage(0);
    }
    {
        const OpenedFile opened(Path("quillon_image_32bit.qdf"));
        wide = MetricImage(0);
    }
    ASSERT_EQ(narrow.size(), 256u * 256u);
    ASSERT_EQ(wide.size(), narrow.size());
    double difference = 0.0;
    for (std::size_t i = 0; i < wide.size(); ++i)
        difference += std::abs(wide[i] - narrow[i]);
    // only the noise differs between the two scans
    EXPECT_LT(difference / static_cast<double>(wide.size()), 0.5);
    EXPECT_GT(*std::max_element(wide.begin(), wide.end()), 20.0);  // the tallest particle
}

}  // namespace
