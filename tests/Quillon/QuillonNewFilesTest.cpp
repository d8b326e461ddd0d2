// Files made from part of a source: the force curves at one position of a
// force volume as a force file, and one channel as a file of its own.

#include "Quillon/QuillonSaveSupport.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

using namespace QuillonSave;

namespace {

// Each curve of the builder's force volume: both halves and the hold section.
constexpr std::size_t kCurve = 2 * QuillonBuilder::kCurveHalf + QuillonBuilder::kHoldPoints;

}  // namespace

TEST(QuillonNewFilesTest, ForceVolumeCurvesAtOnePositionReopenAsAForceFile) {
    QuillonBuilder file("FVOL");
    const FileOnDisk disk("force_set", file);
    Source& volume = *disk.source;
    ASSERT_TRUE(volume.SaveForceCurveSet(2, disk.Target("curves.spm").string()));

    const auto curves = OpenPath(disk.Target("curves.spm"));
    ASSERT_TRUE(curves->IsOpen());
    EXPECT_TRUE(curves->IsForceFile());
    EXPECT_EQ(curves->GetStartContext(), "FOL");
    ASSERT_EQ(curves->GetNumberOfChannels(), 2);
    for (unsigned c = 0; c < 2; ++c) {
        SCOPED_TRACE(c);
        EXPECT_EQ(curves->GetPlistName(c), c == 0 ? kForce : kForce2);
        EXPECT_EQ(curves->GetNumberOfLines(c), 1u);
        EXPECT_EQ(curves->GetSamplesPerLine(c), kCurve);
        const std::vector<std::int32_t> all = SamplesOf(volume, c + 1);
        EXPECT_EQ(SamplesOf(*curves, c), std::vector<std::int32_t>(all.begin() + 2 * kCurve, all.begin() + 3 * kCurve));
        EXPECT_EQ(TextOf(SectionOf(disk.Target("curves.spm"), curves->GetPlistName(c)), "Note"), "<none>");
    }
    EXPECT_EQ(TextOf(SectionOf(disk.Target("curves.spm"), QuillonBuilder::kScanList), "Tip Serial Number"), "<none>");
    // The large header, then the image's 16 samples of 4 bytes, then the curves.
    EXPECT_EQ(TextOf(SectionOf(disk.Target("curves.spm"), kForce), "Data offset"), std::to_string(0x13C40 + 64));

    // There is no fifth position in a volume of four curves.
    EXPECT_FALSE(volume.SaveForceCurveSet(4, disk.Target("none.spm").string()));
    EXPECT_FALSE(fs::exists(disk.Target("none.spm")));
}

TEST(QuillonNewFilesTest, FileThatCannotBeMadeIsLoggedAndLeftAlone) {
    QuillonBuilder file("FVOL");
    const FileOnDisk disk("force_set_locked", file);
    const fs::path nowhere = disk.folder / "missing folder" / "curves.spm";
    TestSupport::LogCapture log;
    EXPECT_FALSE(disk.source->SaveForceCurveSet(0, nowhere.string()));
    EXPECT_FALSE(disk.source->SaveChannelAs(0, nowhere.string(), false));
    ASSERT_EQ(log.lines.size(), 2u);
    for (const auto& line : log.lines) {
        EXPECT_EQ(line.logger, "DataAnalysis.OLDataSource");
        EXPECT_EQ(line.severity, 2);
        EXPECT_EQ(line.text, "OLDataSource::SaveAs DataFile::Open failed");
    }
    EXPECT_FALSE(fs::exists(nowhere));
}

TEST(QuillonNewFilesTest, ChannelSavedAsItsOwnFileKeepsItsSamplesAsTheFileHadThem) {
    QuillonBuilder file("IMAGE");
    file.Text(kImage2, "@2:Z input offset", "V (1 V/LSB) 3.0000 V");
    const std::vector<std::int32_t> stored = file.SamplesOf(1);
    const FileOnDisk disk("channel_copy", file);
    Source& s = *disk.source;
    const std::vector<std::int32_t> shown = SamplesOf(s, 1);
    ASSERT_NE(shown, stored);

    ASSERT_TRUE(s.SaveChannelAs(1, disk.Target("second.spm").string(), false));
    EXPECT_EQ(SamplesOf(s, 1), shown);
    EXPECT_EQ(FileSamplesOf(disk.Target("second.spm"), kImage2), stored);
    const auto second = OpenPath(disk.Target("second.spm"));
    ASSERT_EQ(second->GetNumberOfChannels(), 1);
    EXPECT_EQ(second->GetPlistName(0), kImage2);
    EXPECT_EQ(SamplesOf(*second, 0), shown);
    EXPECT_EQ(second->GetStartContext(), "OL1");

    // The result of a transform names itself in the copy.
    s.SetDataName(0, "FFT of Height");
    ASSERT_TRUE(s.SaveChannelAs(0, disk.Target("fft.spm").string(), false));
    EXPECT_EQ(TextOf(SectionOf(disk.Target("fft.spm"), kImage), "@2:Image Data"),
              "S [FFT of Height] \"FFT of Height\"");
    EXPECT_EQ(OpenPath(disk.Target("fft.spm"))->GetDataName(0), "FFT of Height");

    EXPECT_FALSE(s.SaveChannelAs(2, disk.Target("third.spm").string(), false));
    EXPECT_FALSE(fs::exists(disk.Target("third.spm")));
}
