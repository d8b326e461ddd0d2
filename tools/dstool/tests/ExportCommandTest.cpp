// The export command in a batch: a file that fails is told and the others
// are written, names of files from different folders do not overwrite each
// other, and the exit status tells of any failure.

#include "tools/dstool/Command.h"
#include "tools/dstool/CommandLine.h"

#include "LibraryFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

int Export(const std::vector<std::string>& words) { return Dstool::FindCommand("export")->run(words); }

class ExportCommandTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        // a folder of each test's own: tests may run side by side
        root_ = TestTempPath(std::string("dstool_export_") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(root_);
        fs::create_directories(root_ / "a");
        fs::create_directories(root_ / "b");
        SampleKit::QuillonBuilder("IMAGE").Write((root_ / "a" / "scan.qdf").string());
        SampleKit::QuillonBuilder("IMAGE").Write((root_ / "b" / "scan.qdf").string());
        std::ofstream((root_ / "damaged.qdf").string()) << "not a container";
    }
    std::string In(const std::string& name) const { return (root_ / name).string(); }

    fs::path root_;
};

TEST_F(ExportCommandTest, ABatchGoesOnPastADamagedFileAndFailsAtTheEnd)
{
    const std::string out = In("out");
    EXPECT_EQ(Export({In("a/scan.qdf"), In("damaged.qdf"), In("b/scan.qdf"), "--all-channels", "--out", out}),
              Dstool::kExitFailed);
    // both channels of both files, the second file's under names of their own
    for (const char* name : {"scan_ch0.png", "scan_ch1.png", "scan_ch0_2.png", "scan_ch1_2.png"})
        EXPECT_TRUE(fs::is_regular_file(fs::path(out) / name)) << name;
    EXPECT_EQ(std::distance(fs::directory_iterator(out), fs::directory_iterator()), 4);
}

TEST_F(ExportCommandTest, ABatchOfGoodFilesIsDoneAndWritesTheFormatAskedFor)
{
    const std::string out = In("values");
    EXPECT_EQ(Export({In("a/scan.qdf"), "--channel", "1", "--out", out, "--format", "csv", "--raw"}), Dstool::kExitDone);
    EXPECT_TRUE(fs::is_regular_file(fs::path(out) / "scan_ch1.csv"));
    EXPECT_FALSE(fs::exists(fs::path(out) / "scan_ch0.csv"));
}

TEST_F(ExportCommandTest, AChannelWithoutAnImageFailsTheFile)
{
    const std::string force = TestTempPath("dstool_export_force.qdf");
    SampleKit::QuillonBuilder("FORCE").Write(force);
    EXPECT_EQ(Export({force, "--all-channels", "--out", In("none")}), Dstool::kExitFailed);
    EXPECT_EQ(Export({In("a/scan.qdf"), "--channel", "5", "--png", In("x.png")}), Dstool::kExitFailed);
    EXPECT_FALSE(fs::exists(In("x.png")));
}

TEST_F(ExportCommandTest, WhatABatchNeedsIsAskedFor)
{
    const std::vector<std::vector<std::string>> mistakes = {
        {In("a/scan.qdf"), In("b/scan.qdf"), "--channel", "0", "--png", In("x.png")},  // many files, one output
        {In("a/scan.qdf"), "--all-channels", "--csv", In("x.csv")},
        {In("a/scan.qdf"), "--channel", "0", "--out", In("o"), "--png", In("x.png")},
        {In("a/scan.qdf"), "--channel", "0", "--out", In("o"), "--format", "tiff"},
        {In("a/scan.qdf"), "--channel", "0", "--format", "csv", "--csv", In("x.csv")},
        {In("a/scan.qdf"), "--channel", "0", "--all-channels", "--out", In("o")},
        {In("a/scan.qdf"), "--out", In("o")},
    };
    for (const auto& words : mistakes)
        EXPECT_THROW(Export(words), Dstool::UsageError) << words[1] << " " << words[2];
}

}  // namespace
