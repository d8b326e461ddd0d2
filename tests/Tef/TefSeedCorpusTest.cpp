// The seed files of the walker's fuzz target, made by the builder. With
// DS_TEF_SEED_DIR set, the test also writes them there:
//   DS_TEF_SEED_DIR=fuzz/tef_walker/corpus build/<dir>/tests/test_Tef --gtest_filter='TefSeedCorpus*'

#include "Tef/TefTestSupport.h"

#include "Platform/FileSystem.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

using SampleKit::TefBuilder;

namespace {

struct Seed {
    const char* name;
    std::vector<std::uint8_t> bytes;
    bool walksToTheEnd;
};

std::vector<Seed> Seeds()
{
    std::vector<Seed> seeds;
    seeds.push_back({"one_channel_16bit", TefBuilder(1, 4, 3).Bytes(), true});
    seeds.push_back({"two_channels_32bit", TefBuilder(2, 3, 2, 4).Bytes(), true});

    TefBuilder mixed(3, 2, 2);
    mixed.channels[1] = TefBuilder::StandardChannel(1, 2, 2, 4);
    mixed.Set(11, TefBuilder::Word(12));
    mixed.Set(148, TefBuilder::Word(0));
    mixed.preview = {1, 2, 3, 4, 5, 6, 7, 8};
    seeds.push_back({"three_channels_mixed_bits", mixed.Bytes(), true});

    seeds.push_back({"no_channels", TefBuilder(0).Bytes(), true});
    seeds.push_back({"nine_channels", TefBuilder(9, 2, 1).Bytes(), true});
    seeds.push_back({"empty_images", TefBuilder(2, 0, 3).Bytes(), true});

    TefBuilder sparse(1, 512, 1);
    sparse.records = {{6, TefBuilder::Word(1), std::nullopt}, {100, TefBuilder::Text("lg(I[nA])"), std::nullopt}};
    sparse.note.clear();
    seeds.push_back({"sparse_records", sparse.Bytes(), true});

    TefBuilder odd(2, 3, 1);
    odd.InsertBefore(100, {30, {9, 9, 9}, std::nullopt});
    odd.InsertBefore(100, {200, {}, std::nullopt});
    odd.InsertBefore(100, {105, TefBuilder::Text("V"), std::nullopt});
    odd.records.push_back({100, TefBuilder::Text("mV"), std::nullopt});
    odd.Find(7)->size = 0;
    odd.channels[0].headerRest.assign(24, 0xAB);
    odd.trailer = {3, 0, 1, 2};
    seeds.push_back({"odd_records", odd.Bytes(), true});

    TefBuilder damaged(2, 2, 2);
    damaged.channels[1].imageTag = 41;
    seeds.push_back({"damaged_image_tag", damaged.Bytes(), false});
    TefBuilder miscounted(1, 2, 2);
    miscounted.parameterCount = 3;
    seeds.push_back({"damaged_parameter_count", miscounted.Bytes(), false});
    return seeds;
}

}  // namespace

TEST(TefSeedCorpusTest, SeedsAreSmallAndWalkAsIntended)
{
    const char* directory = std::getenv("DS_TEF_SEED_DIR");
    for (const Seed& seed : Seeds()) {
        EXPECT_LE(seed.bytes.size(), 4096u) << seed.name;
        TefDocument document;
        EXPECT_EQ(TefTest::RefusalOf(seed.bytes, document).empty(), seed.walksToTheEnd) << seed.name;
        if (directory && *directory) {
            const std::string path = std::string(directory) + "/" + seed.name + ".tef";
            Orx::Core::WriteFileAtomically(path, seed.bytes.data(), seed.bytes.size());
        }
    }
}
