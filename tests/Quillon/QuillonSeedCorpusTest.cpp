// The seed files of the Quillon fuzz target, made by the builder with the
// smallest header that holds their keys. With DS_QUILLON_SEED_DIR set, the
// test also writes them there:
//   DS_QUILLON_SEED_DIR=fuzz/quillon_file/corpus build/<dir>/tests/test_Quillon --gtest_filter='QuillonSeedCorpus*'

#include "Quillon/QuillonTestSupport.h"

#include "Platform/FileSystem.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using QuillonTest::QuillonBuilder;

struct Seed {
    std::string name;
    QuillonBuilder file;
    bool opens;
};

std::vector<Seed> Seeds() {
    std::vector<Seed> seeds;
    for (const char* subtype :
         {"IMAGE", "FORCE", "SCRIPT", "FVOL", "TIMED", "TIMED_FORCE", "HSDC", "ECAFM", "ECSTM", "ECFORCE", "EC"}) {
        seeds.push_back({subtype, QuillonBuilder(subtype), true});
    }
    QuillonBuilder legacy("IMAGE");
    legacy.Text("File list", "Version", "0x04230000")
        .Remove("Dulce image list", "@2:Z scale")
        .Text("Dulce image list", "Z scale", "V 65536000 (0.006713867 V/LSB)")
        .Samples16(0, 4, 4, {1, -2, 3, -4, 5, -6, 7, -8, 9, -10, 11, -12, 13, -14, 15, -16})
        .Text("Controller list", "Z max", "440")
        .Text("Microscope list", "Z sensitivity", "200")
        .Text("Dulce image list", "Plane fit", "1.5 -2 3 1");
    seeds.push_back({"legacy_z_scale", std::move(legacy), true});

    QuillonBuilder repaired("IMAGE");
    repaired.Samples32(0, 4, 4, {7, 7, -1, 7, -1, -1, -1, 7, 7, -1, 7, 7, 7, 7, 7, -1})
        .Text("Dulce image list", "Invalid Data Flag", "-1")
        .Text("Dulce image list", "@2:Z input offset", "V (1 V/LSB) 0.25 V")
        .Text("Dulce image list", "Custom Color Table", "Yes")
        .Text("Dulce image list", "Number of Red Edit Points", "2")
        .Text("Dulce image list", "Red Edit Point0", "0 0")
        .Text("Dulce image list", "Red Edit Point1", "255 255");
    seeds.push_back({"invalid_offset_colour", std::move(repaired), true});

    QuillonBuilder sweep("FORCE");
    sweep.Text("Dulce force list", "@4:Sweep Type", "S [x] \"Amplitude2\"")
        .Text("Dulce force list", "@4:Sweep Start Amplitude2", "V (1 V/LSB) 10 KHz")
        .Text("Dulce scan list", "Crestload Capture", "On");
    seeds.push_back({"force_sweep_capture", std::move(sweep), true});

    QuillonBuilder noScan("FVOL");
    noScan.RemoveSection("Dulce scan list");
    seeds.push_back({"no_scan_section", std::move(noScan), false});
    QuillonBuilder shortNames("ECSTM");
    shortNames.Int("QuillonFileOverviewInfo", "NumberOfDataPlists", 9);
    seeds.push_back({"more_channels_than_names", std::move(shortNames), false});
    return seeds;
}

}  // namespace

TEST(QuillonSeedCorpusTest, SeedsAreSmallAndOpenAsIntended) {
    const char* directory = std::getenv("DS_QUILLON_SEED_DIR");
    QuillonTest::LogCapture log;
    for (Seed& seed : Seeds()) {
        const std::vector<std::uint8_t> bytes = seed.file.HeaderSize(0).Bytes();
        EXPECT_LE(bytes.size(), 12288u) << seed.name;
        auto source = std::make_shared<QlOLDataSource>(Orx::DataCore::DataFile::OpenMemory(bytes.data(), bytes.size()),
                                                       nullptr);
        source->Initialize();
        EXPECT_EQ(source->IsOpen(), seed.opens) << seed.name;
        if (directory && *directory) {
            Orx::Core::WriteFileAtomically(std::string(directory) + "/" + seed.name + ".odc", bytes.data(), bytes.size());
        }
    }
}
