// The seed files of the Harlen fuzz target, made by the builder. With
// DS_HARLEN_SEED_DIR set, the test also writes them there:
//   DS_HARLEN_SEED_DIR=fuzz/harlen_file/corpus build/<dir>/tests/test_Harlen --gtest_filter='HarlenSeedCorpus*'

#include <gtest/gtest.h>

#include <cstdlib>

#include "Harlen/HarlenTestSupport.h"
#include "Platform/FileSystem.h"

using namespace HarlenTest;

namespace {

struct Seed {
    const char* name;
    HarlenBuilder builder;
    bool opens;
};

std::vector<Seed> Seeds() {
    std::vector<Seed> seeds;
    seeds.push_back({"image_4x6", HarlenBuilder::Image(4, 6), true});
    seeds.push_back({"image_custom_colours", HarlenBuilder::Image(2, 3).CustomColorTable(), true});
    seeds.push_back({"image_pixel_ranges",
                     HarlenBuilder::Image(3, 3)
                         .Unitized("[Data Parameters]", "ScanRangeX", 0.0, "nm")
                         .Remove("[Data Parameters]", "ZUnit"),
                     true});
    seeds.push_back(
        {"image_other_program", HarlenBuilder::Image(2, 2).Text("[Data Version]", "Program", "Other"), false});
    seeds.push_back({"no_overview", HarlenBuilder::Image(2, 2).RemoveSection("HarlenFileOverviewInfo"), true});
    seeds.push_back({"force_8_labels", HarlenBuilder::Force(6), true});
    seeds.push_back({"force_16_labels", HarlenBuilder::Force(5, 16), true});
    seeds.push_back({"force_two_points",
                     HarlenBuilder::Force(3)
                         .Int("HarlenFileOverviewInfo", "NumberOfDataPlists", 4)
                         .Curves(HarlenBuilder::RampCurves(3, 16)),
                     true});
    seeds.push_back({"force_drive_ramp",
                     HarlenBuilder::Force(4)
                         .Remove("[Point Spectroscopy Data]", "Z Start")
                         .Remove("[Point Spectroscopy Data]", "Z End")
                         .Unitized("[Point Spectroscopy Data]", "Drive Start", 1.0, "\xB5m")
                         .Unitized("[Point Spectroscopy Data]", "Drive End", 2.0, "\xB5m"),
                     true});
    seeds.push_back(
        {"force_12_labels",
         HarlenBuilder::Force(2).Text("HarlenFileOverviewInfo", "ForceCurveDataLabels", "a,b,c,d,e,f,g,h,i,j,k,l"),
         false});
    return seeds;
}

}  // namespace

TEST(HarlenSeedCorpusTest, SeedsAreSmallAndOpenAsIntended) {
    const char* directory = std::getenv("DS_HARLEN_SEED_DIR");
    for (const Seed& seed : Seeds()) {
        const auto bytes = seed.builder.Bytes();
        EXPECT_LE(bytes.size(), 4096u) << seed.name;
        EXPECT_EQ(Open(seed.builder)->IsOpen(), seed.opens) << seed.name;
        if (directory && *directory) {
            const std::string path = std::string(directory) + "/" + seed.name + ".odc";
            Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
        }
    }
}
