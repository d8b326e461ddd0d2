// Saving Harlen files through the common saving frame: what is written back,
// what a reopened file gives, and that a failed save changes nothing.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "Harlen/HarlenTestSupport.h"
#include "Platform/FileSystem.h"
#include "support/LogCapture.h"
#include "support/MessageCapture.h"
#include "support/ProbeFailure.h"
#include "support/TempFolder.h"
#include "support/UnprivilegedScope.h"

using namespace HarlenTest;
using TestSupport::LogCapture;
using TestSupport::MessageCapture;
using TestSupport::ProbeFailure;
using TestSupport::TempFolder;
using TestSupport::UnprivilegedScope;
using Orx::DataCore::DataFile;

namespace fs = std::filesystem;

namespace {

const char* const kOutOfMemory = "Cannot save as another file, out of memory. ";
const char* const kUnableToModify = "Unable to modify this file, please save to another name.";

std::vector<std::uint8_t> bytesOf(const fs::path& path) {
    std::vector<std::uint8_t> bytes;
    Orx::Core::ReadWholeFile(path.string(), bytes);
    return bytes;
}

DataContainerPtr sectionOf(const fs::path& path, const std::string& name) {
    return DataFile::Open(path.string(), 1, 0, "", nullptr)->GetContainer({name});
}

std::string textOf(const DataContainerPtr& section, const std::string& key) {
    std::string text;
    section->GetValue(key, text);
    return text;
}

// What a failed save must leave as it was.
struct SourceState {
    std::int32_t* data;
    std::vector<std::int32_t> samples;
    float softScale;
    double sensitivity;
    UValue scanSize;

    explicit SourceState(const HarlenOLDataSource& s)
        : data(s.GetData(0)),
          samples(data, data + s.GetDataBufferSize(0)),
          softScale(s.GetZScaleInSwUnits(0)),
          sensitivity(s.GetZSensitivitySoftScale(0)),
          scanSize(s.GetScanSize()) {}

    void ExpectSameAs(const HarlenOLDataSource& s) const {
        EXPECT_EQ(s.GetData(0), data);
        EXPECT_TRUE(std::equal(samples.begin(), samples.end(), s.GetData(0)));
        EXPECT_EQ(s.GetZScaleInSwUnits(0), softScale);
        EXPECT_EQ(s.GetZSensitivitySoftScale(0), sensitivity);
        EXPECT_EQ(s.GetScanSize().GetValue(), scanSize.GetValue());
    }
};

// An image written into a folder of its own and opened from there.
struct ImageOnDisk {
    fs::path folder;
    fs::path path;
    std::shared_ptr<HarlenOLDataSource> source;

    explicit ImageOnDisk(const std::string& name) : folder(TempFolder(name)), path(folder / "original.hdf") {
        HarlenBuilder::Image(4, 4).Write(path.string());
        source = OpenPath(path.string());
    }
};

}  // namespace

TEST(HarlenSaveTest, SavedImageReopensWithItsSamplesSizesRangesAndColours) {
    const auto folder = TempFolder("round_trip");
    const auto original = folder / "original.hdf";
    const auto saved = folder / "saved.hdf";
    HarlenBuilder::Image(16, 24)
        .CustomColorTable()
        .Unitized("[Data Parameters]", "ScanRangeY", 2.5, "\xB5m")
        .Write(original.string());
    InterpolatingColorTableCallback colours;
    const auto source = OpenPath(original.string(), &colours);
    ASSERT_TRUE(source->IsOpen());

    MessageCapture messages;
    ASSERT_TRUE(source->SaveAs(saved.string(), false));
    EXPECT_TRUE(messages.messages.empty());

    const auto again = OpenPath(saved.string(), &colours);
    ASSERT_TRUE(again->IsOpen());
    EXPECT_EQ(again->GetNumberOfLines(0), 16u);
    EXPECT_EQ(again->GetSamplesPerLine(0), 24u);
    EXPECT_DOUBLE_EQ(again->GetScanSize().GetValue(), HarlenBuilder::kScanRange);
    EXPECT_DOUBLE_EQ(again->GetScanSizeY().GetValue(), 2.5);
    EXPECT_EQ(again->GetScanSizeY().GetUnits()->GetName(), "\xB5m");
    EXPECT_TRUE(again->HasColorTable(0));
    EXPECT_EQ(again->GetColorTable(0), source->GetColorTable(0));

    // The heights go through the rescale twice: counts agree to a few steps
    // of a float, values to a millionth of the span.
    const double span = source->GetDataSpan();
    EXPECT_NEAR(again->GetDataSpan(), span, span * 1e-6);
    for (std::uint32_t i = 0; i < source->GetDataBufferSize(0); ++i) {
        EXPECT_NEAR(again->GetData(0)[i], source->GetData(0)[i], 512.0) << i;
        EXPECT_NEAR(again->RawToValue(0, again->GetData(0)[i], true),
                    source->RawToValue(0, source->GetData(0)[i], true), span * 1e-6)
            << i;
    }
}

TEST(HarlenSaveTest, WritesWhatAHostMayChangeAndNoPixelRange) {
    const auto folder = TempFolder("written_keys");
    const auto original = folder / "original.hdf";
    const auto saved = folder / "saved.hdf";
    HarlenBuilder::Image(4, 8)
        .Unitized("[Data Parameters]", "ScanRangeX", 0.0, "nm")
        .Remove("[Data Parameters]", "Color Table Index")
        .Write(original.string());
    const auto source = OpenPath(original.string());
    ASSERT_EQ(source->GetScanSize().GetUnits()->GetName(), "Arb");
    const float hard = source->GetZScaleInHwUnits(0);
    source->SetZSensitivity(0, 20.0, "nm", false);
    ASSERT_TRUE(source->SaveAs(saved.string(), false));

    const auto parameters = sectionOf(saved, "[Data Parameters]");
    UValue rangeX, rangeY;
    parameters->GetValue("ScanRangeX", rangeX);
    parameters->GetValue("ScanRangeY", rangeY);
    EXPECT_DOUBLE_EQ(rangeX.GetValue(), 0.0);  // the pixel count stays the reader's
    EXPECT_DOUBLE_EQ(rangeY.GetValue(), HarlenBuilder::kScanRange);
    EXPECT_EQ(textOf(parameters, "ZTransferCoefficient"), "20.0000 nm/V");
    const auto keys = parameters->GetKeys();
    const auto leveling = std::find(keys.begin(), keys.end(), "Leveling");
    ASSERT_NE(leveling, keys.end());
    ASSERT_NE(leveling + 1, keys.end());
    EXPECT_EQ(*(leveling + 1), "Color Table Index");
    EXPECT_EQ(textOf(parameters, "Color Table Index"), "12");
    EXPECT_EQ(textOf(sectionOf(saved, "[PreProcessing]"), "Leveling"), "None");

    // The new sensitivity is the file's: the hardware scale is kept.
    const auto again = OpenPath(saved.string());
    EXPECT_DOUBLE_EQ(again->GetZSensitivitySoftScale(0), 20.0);
    EXPECT_FLOAT_EQ(again->GetZScaleInHwUnits(0), hard);
}

TEST(HarlenSaveTest, ForceSetIsSavedAsItWasRead) {
    const auto folder = TempFolder("force_set");
    const auto original = folder / "original.hdf";
    const auto saved = folder / "saved.hdf";
    HarlenBuilder::Force(16).Write(original.string());
    const auto source = OpenPath(original.string());
    ASSERT_TRUE(source->SaveAs(saved.string(), false));
    const auto curves = sectionOf(saved, "[Data]")->GetFloatMatrices("RawData");
    ASSERT_TRUE(curves);
    const auto expected = HarlenBuilder::RampCurves(16, 8);
    ASSERT_EQ(curves->size(), expected.size());
    for (std::size_t c = 0; c < expected.size(); ++c) {
        EXPECT_TRUE(std::equal(expected[c].data().begin(), expected[c].data().end(), (*curves)[c].data().begin()));
    }
    EXPECT_EQ(OpenPath(saved.string())->GetNumberOfChannels(), 3);
}

TEST(HarlenSaveTest, FailedMemoryProbeTouchesNeitherSourceNorDisk) {
    const ImageOnDisk image("probe");
    const SourceState before(*image.source);
    MessageCapture messages;
    {
        ProbeFailure failure;
        EXPECT_FALSE(image.source->SaveAs((image.folder / "saved.hdf").string(), false));
    }
    EXPECT_EQ(messages.messages, std::vector<std::string>{kOutOfMemory});
    EXPECT_FALSE(fs::exists(image.folder / "saved.hdf"));
    before.ExpectSameAs(*image.source);
}

TEST(HarlenSaveTest, FolderThatCannotBeWrittenKeepsItsFileAndTheSource) {
    const ImageOnDisk image("locked");
    const auto locked = image.folder / "locked";
    fs::create_directory(locked);
    const auto target = locked / "target.hdf";
    HarlenBuilder::Force(4).Write(target.string());
    const auto targetBytes = bytesOf(target);
    const SourceState before(*image.source);

    MessageCapture messages;
    fs::permissions(locked, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::group_read |
                                fs::perms::group_exec | fs::perms::others_read | fs::perms::others_exec);
    bool written = true;
    {
        UnprivilegedScope unprivileged;
        written = image.source->SaveAs(target.string(), false);
    }
    fs::permissions(locked, fs::perms::owner_all, fs::perm_options::add);

    // The folder is tested when the new file is made, before anything is written.
    EXPECT_FALSE(written);
    EXPECT_EQ(messages.messages, std::vector<std::string>{kUnableToModify});
    EXPECT_EQ(bytesOf(target), targetBytes);
    EXPECT_EQ(std::distance(fs::directory_iterator(locked), fs::directory_iterator()), 1);
    before.ExpectSameAs(*image.source);
}

TEST(HarlenSaveTest, WriteThatFailsAfterTheFileIsMadeIsReportedAsOutOfMemory) {
    // The target's folder is writable, but the target is a folder itself:
    // the write fails when the finished file is to take its place.
    const ImageOnDisk image("failing_write");
    const auto target = image.folder / "target.hdf";
    fs::create_directory(target);
    HarlenBuilder::Image(2, 2).Write((target / "inside.hdf").string());
    const SourceState before(*image.source);

    MessageCapture messages;
    EXPECT_FALSE(image.source->SaveAs(target.string(), false));
    EXPECT_EQ(messages.messages, std::vector<std::string>{kOutOfMemory});
    EXPECT_TRUE(fs::is_directory(target));
    EXPECT_EQ(std::distance(fs::directory_iterator(target), fs::directory_iterator()), 1);
    EXPECT_EQ(std::distance(fs::directory_iterator(image.folder), fs::directory_iterator()), 2);
    before.ExpectSameAs(*image.source);
}

TEST(HarlenSaveTest, NoFileFromTheFamilyIsLoggedAndNothingIsShown) {
    class NoFileSource : public HarlenOLDataSource {
    public:
        using HarlenOLDataSource::HarlenOLDataSource;
        DataFilePtr CreateDataFile(const std::string&) override { return nullptr; }
    };
    const auto bytes = HarlenBuilder::Image(2, 2).Bytes();
    NoFileSource source(DataFile::OpenMemory(bytes.data(), bytes.size()), nullptr);
    source.Initialize();
    LogCapture log;
    MessageCapture messages;
    EXPECT_FALSE(source.SaveAs("anywhere.hdf", false));
    EXPECT_TRUE(messages.messages.empty());
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines[0].logger, "DataAnalysis.OLDataSource");
    EXPECT_EQ(log.lines[0].severity, 2);
    EXPECT_EQ(log.lines[0].text, "OLDataSource::SaveAs DataFile::Open failed");
}

TEST(HarlenSaveTest, SavingTheChannelSavesTheFileUnderItsOwnPath) {
    const ImageOnDisk image("channel");
    image.source->SetZSensitivity(0, 8.0, "nm", false);
    ASSERT_TRUE(image.source->SaveChannelAs(0, (image.folder / "other.hdf").string(), false));
    EXPECT_FALSE(fs::exists(image.folder / "other.hdf"));
    EXPECT_EQ(textOf(sectionOf(image.path, "[Data Parameters]"), "ZTransferCoefficient"), "8.0000 nm/V");
}
