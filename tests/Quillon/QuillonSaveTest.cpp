// Saving Quillon files: what a save writes back, that a saved file reopens as
// the source that saved it, and that a failed save changes nothing.

#include "Quillon/QuillonSaveSupport.h"

#include "Platform/FileSystem.h"
#include "support/FileBytes.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"

#include <gtest/gtest.h>

#include <climits>

using namespace QuillonSave;

namespace {

const char* const kOutOfMemory = "Cannot save as another file, out of memory. ";
const char* const kUnableToModify = "Unable to modify this file, please save to another name.";
const char* const kMicrons = "\xB5m";

// A builder file whose sizes are given in whole microns, as a save writes
// them, so that saving it changes no value.
QuillonBuilder InMicrons(const std::string& subtype) {
    QuillonBuilder file(subtype);
    file.Unitized(QuillonBuilder::kScanList, "Scan Size", 10.0, kMicrons);
    for (std::size_t c = 0; c < file.ChannelCount(); ++c) {
        const int kind = QlValueStrings::ClassifyPlistName(file.ChannelName(c));
        if (kind == 1 || kind == 3) {
            file.Text(file.ChannelName(c), "Scan Size", "10 10 ~m");
        }
    }
    return file;
}

using TestSupport::BytesOf;

// What a failed save must leave as it was.
struct SourceState {
    std::vector<std::vector<std::int32_t>> samples;
    std::vector<std::uint64_t> offsets;
    std::uint32_t dataLength;
    bool linesChanged;

    explicit SourceState(Source& s) : dataLength(s.dataLength), linesChanged(s.linesChanged) {
        for (unsigned c = 0; c < static_cast<unsigned>(s.GetNumberOfChannels()); ++c) {
            samples.push_back(SamplesOf(s, c));
            offsets.push_back(s.GetDataItem(c)->GetDataOffset());
        }
    }
    void ExpectSameAs(Source& s) const {
        const SourceState now(s);
        EXPECT_EQ(now.samples, samples);
        EXPECT_EQ(now.offsets, offsets);
        EXPECT_EQ(now.dataLength, dataLength);
        EXPECT_EQ(now.linesChanged, linesChanged);
    }
};

// An image whose first channel has an input offset and invalid samples, so
// that its samples in memory differ from those in the file.
QuillonBuilder OffsetAndInvalidImage() {
    QuillonBuilder file("IMAGE");
    file.Text(kImage, "@2:Z input offset", "V (1 V/LSB) 100.0000 V");
    file.Text(kImage, "Invalid Data Flag", "-2147483648");
    std::vector<std::int32_t> samples(16);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = 2147000000 - static_cast<std::int32_t>(i) * 1000;
    }
    samples[5] = INT_MIN;
    samples[10] = INT_MIN;
    file.Samples32(0, 4, 4, samples);
    return file;
}

}  // namespace

TEST(QuillonSaveTest, UnchangedFileOfEverySubtypeReopensAsItWasReadWithItsOffsetsAndForeignKeys) {
    for (const char* subtype : {"IMAGE", "FORCE", "SCRIPT", "FVOL", "TIMED", "TIMED_FORCE", "HSDC", "ECAFM", "ECSTM",
                                "ECFORCE", "EC"}) {
        SCOPED_TRACE(subtype);
        QuillonBuilder file = InMicrons(subtype);
        file.Text("Calibration list", "Stage", "B-7");
        file.Text(file.ChannelName(0), "Operator note", "kept");
        file.Root()->GetChild(file.ChannelName(0))->PutEntry(
            "Lens table", Orx::DataCore::ContainerValue::Opaque("LensTable", "3 1.5 2.5 x"));
        const FileOnDisk disk(std::string("unchanged_") + subtype, file);
        ASSERT_TRUE(disk.source->IsOpen());

        const auto again = disk.SaveAndReopen();
        ExpectSameSource(*disk.source, *again);
        const fs::path saved = disk.Target("saved.spm");
        EXPECT_EQ(TextOf(SectionOf(saved, QuillonBuilder::kFileList), "Data length"), "40960");
        for (std::size_t c = 0; c < file.ChannelCount(); ++c) {
            EXPECT_EQ(TextOf(SectionOf(saved, file.ChannelName(c)), "Data offset"),
                      TextOf(SectionOf(disk.path, file.ChannelName(c)), "Data offset"));
        }
        EXPECT_EQ(TextOf(SectionOf(saved, "Calibration list"), "Stage"), "B-7");
        EXPECT_EQ(TextOf(SectionOf(saved, file.ChannelName(0)), "Operator note"), "kept");
        const auto lens = SectionOf(saved, file.ChannelName(0))->GetEntry("Lens table");
        ASSERT_TRUE(lens);
        EXPECT_EQ(lens->TypeName(), "LensTable");
        EXPECT_EQ(lens->HeaderText(), "3 1.5 2.5 x");
    }
}

TEST(QuillonSaveTest, HeaderSizeDecidesWhereTheChannelsLie) {
    QuillonBuilder file("IMAGE");
    file.HeaderSize(0x10000);
    const FileOnDisk disk("header_size", file);
    const std::vector<std::int32_t> samples = SamplesOf(*disk.source, 1);
    for (const auto& [large, header] :
         {std::pair{true, std::string("80960")}, std::pair{false, std::string("40960")}}) {
        SCOPED_TRACE(header);
        const std::string name = large ? "large.spm" : "small.spm";
        ASSERT_TRUE(disk.source->SaveAs(disk.Target(name).string(), large));
        const fs::path saved = disk.Target(name);
        EXPECT_EQ(TextOf(SectionOf(saved, QuillonBuilder::kFileList), "Data length"), header);
        EXPECT_EQ(TextOf(SectionOf(saved, kImage), "Data offset"), header);
        // Behind the first channel's 16 samples of 4 bytes.
        EXPECT_EQ(TextOf(SectionOf(saved, kImage2), "Data offset"), std::to_string(std::stoll(header) + 64));
        EXPECT_EQ(disk.source->GetDataItem(1)->GetDataOffset(), std::stoull(header) + 64);
        EXPECT_EQ(disk.source->dataLength, std::stoul(header));
        EXPECT_EQ(SamplesOf(*OpenPath(saved), 1), samples);
    }
}

TEST(QuillonSaveTest, VersionIsWrittenWithTheZeroAfterItsPrefix) {
    for (const auto& [stored, written] : {std::pair{"0x09020000", "0x09020000"}, std::pair{"0x05120000", "0x05120000"},
                                          std::pair{"0x092000000", "0x09200000"}}) {
        SCOPED_TRACE(stored);
        QuillonBuilder file("IMAGE");
        file.Text(QuillonBuilder::kFileList, "Version", stored);
        const FileOnDisk disk("version", file);
        const auto again = disk.SaveAndReopen();
        EXPECT_EQ(TextOf(SectionOf(disk.Target("saved.spm"), QuillonBuilder::kFileList), "Version"), written);
        EXPECT_EQ(again->GetFileVersion(), disk.source->GetFileVersion());
    }
}

TEST(QuillonSaveTest, ScanSizesAreWrittenInWholeMicronsTwice) {
    QuillonBuilder file("IMAGE");
    file.AddImageChannel("Dulce image list#3");
    const FileOnDisk disk("scan_size", file);
    disk.source->SetScanSize(2, UValue(512.0, "Arb"));
    disk.source->SetScanSize(1, UValue(2500.0, "nm"));
    disk.source->SetScanSize(0, UValue(10.7, kMicrons));
    const auto again = disk.SaveAndReopen();
    const fs::path saved = disk.Target("saved.spm");
    EXPECT_EQ(TextOf(SectionOf(saved, kImage), "Scan Size"), "10 10 ~m");
    EXPECT_EQ(TextOf(SectionOf(saved, kImage2), "Scan Size"), "2 2 ~m");
    // A size counted in pixels is not converted, and keeps the unit the files write.
    EXPECT_EQ(TextOf(SectionOf(saved, "Dulce image list#3"), "Scan Size"), "512 512 ~m");
    // The file-wide size keeps its fraction.
    EXPECT_DOUBLE_EQ(again->GetScanSize().GetValue(), 10.7);
    EXPECT_EQ(QuillonTest::UnitOf(again->GetScanSize()), kMicrons);
    EXPECT_DOUBLE_EQ(again->GetDataItem(1)->GetScanSize().GetValue(), 2.0);
}

TEST(QuillonSaveTest, AspectRatiosAreWrittenOnlyWhereLinesOrSamplesChanged) {
    QuillonBuilder image("IMAGE");
    image.Text(QuillonBuilder::kScanList, "Aspect Ratio", "2:1").Text(kImage, "Aspect Ratio", "2:1");
    const FileOnDisk disk("aspect", image);
    disk.source->aspectRatio = 1.0f;
    disk.source->SetChannelAspectRatio(0, 1.0f);
    disk.source->SetChannelAspectRatio(1, 0.5f);
    {
        // Nothing says that the geometry changed: the texts stand.
        disk.source->SaveAs(disk.Target("unchanged.spm").string(), false);
        EXPECT_EQ(TextOf(SectionOf(disk.Target("unchanged.spm"), kImage), "Aspect Ratio"), "2:1");
        EXPECT_EQ(TextOf(SectionOf(disk.Target("unchanged.spm"), QuillonBuilder::kScanList), "Aspect Ratio"), "2:1");
    }
    disk.source->SetImageLines(4);
    disk.source->SetChannelLines(0, 4);
    disk.source->SetChannelSamples(1, 4);
    disk.SaveAndReopen();
    const fs::path saved = disk.Target("saved.spm");
    EXPECT_EQ(TextOf(SectionOf(saved, QuillonBuilder::kScanList), "Aspect Ratio"), "1:1");
    EXPECT_EQ(TextOf(SectionOf(saved, kImage), "Aspect Ratio"), "1:1");
    EXPECT_EQ(TextOf(SectionOf(saved, kImage2), "Aspect Ratio"), "0.5");

    // A force file keeps the exponent that its reader raises 2 to.
    QuillonBuilder force("FORCE");
    const FileOnDisk forceDisk("aspect_force", force);
    forceDisk.source->aspectRatio = 4.0f;
    forceDisk.source->SetImageSamples(8);
    forceDisk.SaveAndReopen();
    EXPECT_EQ(TextOf(SectionOf(forceDisk.Target("saved.spm"), QuillonBuilder::kScanList), "Aspect Ratio"), "2");
}

TEST(QuillonSaveTest, ZOffsetIsTheZScaleWithTheDigitsOfItsValueZeroed) {
    QuillonBuilder file("IMAGE");
    const FileOnDisk disk("z_offset", file);
    disk.SaveAndReopen();
    ASSERT_EQ(disk.source->GetDataItem(0)->GetZText(), "V [Sens. Zsens] (1.024455e-07 V/LSB) 440.0000 V");
    EXPECT_EQ(TextOf(SectionOf(disk.Target("saved.spm"), kImage), "@2:Z offset"),
              "V [Sens. Zsens] (1.024455e-07 V/LSB) 000.0000 V");
}

TEST(QuillonSaveTest, SingleImageIsSavedAsTheOneChannelKind) {
    QuillonBuilder two("IMAGE");
    two.Text(QuillonBuilder::kFileList, "Start context", "OL2BIG");
    const FileOnDisk twoDisk("start_context_two", two);
    twoDisk.SaveAndReopen();
    EXPECT_EQ(TextOf(SectionOf(twoDisk.Target("saved.spm"), QuillonBuilder::kFileList), "Start context"), "OL2BIG");

    QuillonBuilder one("IMAGE");
    one.Text(QuillonBuilder::kFileList, "Start context", "OL2BIG")
        .Texts("QuillonFileOverviewInfo", "DataPlistNames", {kImage})
        .Int("QuillonFileOverviewInfo", "NumberOfDataPlists", 1)
        .RemoveSection(kImage2);
    const FileOnDisk oneDisk("start_context_one", one);
    EXPECT_EQ(oneDisk.SaveAndReopen()->GetStartContext(), "OL1");

    // A channel removed before the save makes a single image too.
    twoDisk.source->RemoveChannel(1);
    const auto again = twoDisk.SaveAndReopen(false, "removed.spm");
    EXPECT_EQ(again->GetStartContext(), "OL1");
    EXPECT_EQ(again->GetNumberOfChannels(), 1);
    EXPECT_EQ(SamplesOf(*again, 0), SamplesOf(*twoDisk.source, 0));
}

TEST(QuillonSaveTest, RepairedSamplesAreSavedInvalidAndStayRepairedInTheSource) {
    QuillonBuilder file = OffsetAndInvalidImage();
    file.Remove(kImage, "@2:Z input offset");
    const std::vector<std::int32_t> stored = file.SamplesOf(0);
    const FileOnDisk disk("invalid", file);
    const std::vector<std::int32_t> repaired = SamplesOf(*disk.source, 0);
    ASSERT_NE(repaired, stored);

    const auto again = disk.SaveAndReopen();
    EXPECT_EQ(FileSamplesOf(disk.Target("saved.spm"), kImage), stored);
    EXPECT_EQ(SamplesOf(*disk.source, 0), repaired);
    EXPECT_EQ(SamplesOf(*again, 0), repaired);
    EXPECT_EQ(TextOf(SectionOf(disk.Target("saved.spm"), kImage), "Invalid Data Flag"), "-2147483648");

    // Once the client has taken the repair as its data, the file has no invalid samples left.
    disk.source->ClearInvalidPointList(0);
    EXPECT_FALSE(disk.source->ApplyInvalidFill());
    disk.SaveAndReopen(false, "accepted.spm");
    EXPECT_EQ(TextOf(SectionOf(disk.Target("accepted.spm"), kImage), "Invalid Data Flag"), "None");
    EXPECT_EQ(FileSamplesOf(disk.Target("accepted.spm"), kImage), repaired);
}

TEST(QuillonSaveTest, InputOffsetsStayOutOfTheFileAcrossTheWrapOfACount) {
    QuillonBuilder file = OffsetAndInvalidImage();
    file.Remove(kImage, "Invalid Data Flag");
    const std::vector<std::int32_t> stored = file.SamplesOf(0);
    const std::vector<std::int32_t> plain = file.SamplesOf(1);
    const FileOnDisk disk("input_offset", file);
    const std::int64_t offset = disk.source->ZOffsetOfChannel(0);
    ASSERT_EQ(offset, 976128930);
    const std::vector<std::int32_t> shown = SamplesOf(*disk.source, 0);
    // The largest counts wrap round to negative ones.
    EXPECT_EQ(shown[0], static_cast<std::int32_t>(static_cast<std::uint32_t>(stored[0]) + 976128930u));
    EXPECT_LT(shown[0], 0);

    disk.source->ApplyZOffsets(true);
    EXPECT_EQ(SamplesOf(*disk.source, 0), stored);
    disk.source->ApplyZOffsets(false);
    EXPECT_EQ(SamplesOf(*disk.source, 0), shown);

    const auto again = disk.SaveAndReopen();
    EXPECT_EQ(FileSamplesOf(disk.Target("saved.spm"), kImage), stored);
    EXPECT_EQ(SamplesOf(*disk.source, 0), shown);
    EXPECT_EQ(SamplesOf(*again, 0), shown);
    // The channel without an input offset is as the instrument wrote it.
    EXPECT_EQ(SamplesOf(*again, 1), plain);
    EXPECT_EQ(TextOf(SectionOf(disk.Target("saved.spm"), kImage), "@2:Z input offset"), "V (1 V/LSB) 100.0000 V");

    // Saved into its own file, or into a file handed to the client, alike.
    ASSERT_TRUE(disk.source->Save(false));
    EXPECT_EQ(FileSamplesOf(disk.path, kImage), stored);
    const DataFilePtr handed = disk.source->SaveToDataFile(disk.Target("handed.spm").string(), false);
    EXPECT_EQ(RawSamplesOf(handed->GetContainer({kImage})), stored);
    EXPECT_EQ(SamplesOf(*disk.source, 0), shown);

    // A new offset is written, in the channel's unit.
    disk.source->GetDataItem(0)->SetInputOffset(50.0f);
    const auto moved = disk.SaveAndReopen(false, "moved.spm");
    EXPECT_EQ(TextOf(SectionOf(disk.Target("moved.spm"), kImage), "@2:Z input offset"),
              "V (1 V/LSB) 50.00000000000000 V");
    EXPECT_EQ(moved->GetDataItem(0)->GetInputOffset(), 50.0f);
}

TEST(QuillonSaveTest, ColourTableTravelsBehindTheLargeHeaderOnly) {
    QuillonBuilder file("IMAGE");
    file.Text(kImage, "Custom Color Table", "Yes").Text(kImage, "Interpolation Mode", "1");
    for (const char* colour : {"Red", "Green", "Blue"}) {
        file.Text(kImage, std::string("Number of ") + colour + " Edit Points", "2")
            .Text(kImage, std::string(colour) + " Edit Point0", "0 0")
            .Text(kImage, std::string(colour) + " Edit Point1", "255 255");
    }
    InterpolatingColorTableCallback colours;
    const FileOnDisk disk("colours", file, &colours);
    ASSERT_TRUE(disk.source->HasColorTable(0));
    ColorTableObject table = disk.source->GetColorTable(0);
    table.positions[0] = {0, 128, 255};
    table.entries[128].red = 40;
    disk.source->SetColorTable(0, table);

    disk.source->SaveAs(disk.Target("small.spm").string(), false);
    EXPECT_EQ(TextOf(SectionOf(disk.Target("small.spm"), kImage), "Number of Red Edit Points"), "2");
    disk.source->SaveAs(disk.Target("large.spm").string(), true);
    EXPECT_EQ(TextOf(SectionOf(disk.Target("large.spm"), kImage), "Red Edit Point1"), "128 40");
    const auto again = OpenPath(disk.Target("large.spm"), &colours);
    EXPECT_EQ(again->GetColorTable(0).positions, table.positions);
    EXPECT_EQ(again->GetColorTable(0).entries[128].red, 40);
}

TEST(QuillonSaveTest, FailedMemoryProbeTouchesNeitherSourceNorDisk) {
    QuillonBuilder file = OffsetAndInvalidImage();
    const FileOnDisk disk("probe", file);
    const SourceState before(*disk.source);
    MessageCapture messages;
    {
        ProbeFailure failure;
        EXPECT_FALSE(disk.source->SaveAs(disk.Target("saved.spm").string(), true));
    }
    EXPECT_EQ(messages.messages, std::vector<std::string>{kOutOfMemory});
    EXPECT_FALSE(fs::exists(disk.Target("saved.spm")));
    before.ExpectSameAs(*disk.source);
}

TEST(QuillonSaveTest, FolderThatCannotBeWrittenKeepsItsFileAndTheSource) {
    QuillonBuilder file = OffsetAndInvalidImage();
    const FileOnDisk disk("locked", file);
    const fs::path locked = disk.folder / "locked";
    fs::create_directory(locked);
    const fs::path target = locked / "target.spm";
    QuillonBuilder("FORCE").Write(target.string());
    const std::vector<std::uint8_t> targetBytes = BytesOf(target);
    disk.source->SetImageLines(4);
    const SourceState before(*disk.source);

    MessageCapture messages;
    fs::permissions(locked, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec);
    bool written = true;
    {
        UnprivilegedScope unprivileged;
        written = disk.source->SaveAs(target.string(), false);
    }
    fs::permissions(locked, fs::perms::owner_all, fs::perm_options::add);

    EXPECT_FALSE(written);
    EXPECT_EQ(messages.messages, std::vector<std::string>{kUnableToModify});
    EXPECT_EQ(BytesOf(target), targetBytes);
    before.ExpectSameAs(*disk.source);
}

TEST(QuillonSaveTest, WriteThatFailsAtTheEndPutsOffsetsAndSamplesBack) {
    // The target is a folder: the file is made and filled, and its write fails last.
    QuillonBuilder file = OffsetAndInvalidImage();
    const FileOnDisk disk("failing_write", file);
    fs::create_directory(disk.Target("folder.spm"));
    const SourceState before(*disk.source);
    MessageCapture messages;
    EXPECT_FALSE(disk.source->SaveAs(disk.Target("folder.spm").string(), true));
    EXPECT_EQ(messages.messages, std::vector<std::string>{kOutOfMemory});
    EXPECT_TRUE(fs::is_directory(disk.Target("folder.spm")));
    before.ExpectSameAs(*disk.source);
}
