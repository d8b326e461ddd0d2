// The seed files of the container fuzz target, made by the builder. With
// DS_CONTAINER_SEED_DIR set, the test also writes them there:
//   DS_CONTAINER_SEED_DIR=fuzz/container_header/corpus
//       build/<dir>/tests/test_DataCore --gtest_filter='ContainerSeedCorpus*'

#include "TestFiles.h"

#include "Platform/DataCore/DataFile.h"
#include "tools/samplekit/ContainerBuilder.h"

#include <gtest/gtest.h>

using namespace Orx::DataCore;
using SampleKit::ContainerBuilder;

namespace {

struct Seed {
    const char* name;
    std::vector<std::uint8_t> bytes;
};

std::vector<Seed> Seeds() {
    std::vector<Seed> seeds;
    seeds.push_back({"quillon_two_channels", ContainerBuilder::Quillon()
                                                 .Section("QuillonFileOverviewInfo")
                                                 .Text("FileSubType", "IMAGE")
                                                 .Int("NumberOfDataPlists", 2)
                                                 .Texts("DataPlistNames", {"Dulce image list", "Dulce image list#2"})
                                                 .Section("Dulce image list")
                                                 .Text("@2:Z scale", "V [Sens. Zsens] (0.006713765 V/LSB) 11.0 V")
                                                 .Samples16(1024, 2, 3, {1, -2, 3, -4, 5, -6})
                                                 .Section("Dulce image list#2")
                                                 .Samples32(1036, 2, 2, {7, -8, 9, -10}, 20)
                                                 .Bytes()});
    seeds.push_back({"harlen_image", ContainerBuilder::Harlen()
                                         .Section("HarlenFileOverviewInfo")
                                         .Text("FileSubType", "IMAGE")
                                         .Section("[Data Parameters]")
                                         .Unitized("ScanRangeX", 5.0, "\xB5m")
                                         .Int("ResolutionX", 2)
                                         .Section("[Data]")
                                         .FloatMatrix("RawData", 2, 2, {0.5f, -1.0f, 2.25f, 3.0f})
                                         .Bytes()});
    FloatMatrixVector curves(3, FloatMatrix(8, 1, 0.25f));
    seeds.push_back({"harlen_force", ContainerBuilder::Harlen()
                                         .Section("HarlenFileOverviewInfo")
                                         .Text("FileSubType", "FORCE")
                                         .Text("ForceCurveDataLabels", "Trace Z,nm,Defl,V,Retrace Z,nm,Defl,V")
                                         .Section("[Data]")
                                         .FloatMatrices("RawData", curves)
                                         .Bytes()});
    seeds.push_back({"every_type", ContainerBuilder("Some Data File")
                                       .Section("Types")
                                       .Int("int", -1)
                                       .Long("long", 2)
                                       .UInt("unsigned", 3)
                                       .Float("float", 0.5f)
                                       .Double("double", 1e-300)
                                       .Text("Capture mode ", "a\"b\\c\x01\xB5")
                                       .Texts("list", {"x", "", "y z"})
                                       .Unitized("unitized", 2.5, "nm")
                                       .Typed("future", "mystery<1>", " raw  text")
                                       .Bytes()});
    std::string handwritten =
        "OrxDataContainer 1\r\n"
        "# comment\n"
        "type \"Quillon Data File\"\n"
        "section \"Outer\"\n"
        "\tkey \"@4:Ramp Size\" AsciiString \"V [Sens. Zscan] (0.1 V/LSB) 2.0 V\"\n"
        "\tsection \"Inner\"\n"
        "\t\tkey \"n\" \"unsigned int\" 007\n"
        "\tend\n"
        "end\n"
        "end-of-header\n";
    seeds.push_back({"handwritten_nested", DataCoreTest::AsBytes(handwritten)});
    return seeds;
}

TEST(ContainerSeedCorpus, SeedsReadAndMatchTheCommittedFiles) {
    const char* dir = std::getenv("DS_CONTAINER_SEED_DIR");
    for (const auto& seed : Seeds()) {
        EXPECT_NO_THROW(DataFile::OpenMemory(seed.bytes.data(), seed.bytes.size())) << seed.name;
        EXPECT_LE(seed.bytes.size(), 4096u) << seed.name;
        std::string name = std::string(seed.name) + ".odc";
        if (dir != nullptr && *dir != '\0') {
            DataCoreTest::WriteBytes(std::string(dir) + "/" + name, seed.bytes);
        }
        EXPECT_EQ(DataCoreTest::ReadBytes(std::string(DS_SOURCE_DIR) + "/fuzz/container_header/corpus/" + name),
                  seed.bytes)
            << seed.name << ": the committed seed differs from what the builder makes";
    }
}

}  // namespace
