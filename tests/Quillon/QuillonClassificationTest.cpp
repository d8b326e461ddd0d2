#include "Quillon/QuillonTestSupport.h"
#include "support/TestTempPath.h"

#include <gtest/gtest.h>

using namespace QuillonTest;

namespace {

struct Outcome {
    bool open;
    std::vector<std::string> messages;
};

Outcome Opening(QuillonBuilder& file) {
    LogCapture log;
    auto source = Load(file);
    return {source->IsOpen(), log.messages};
}

const char* const kFailed = "QlOLDataSource::Initialize failed to open";

}  // namespace

TEST(QuillonClassificationTest, EachMissingPieceEndsWithItsOwnMessage) {
    {
        LogCapture log;
        Source none(nullptr, nullptr);
        none.Initialize();
        EXPECT_FALSE(none.IsOpen());
        EXPECT_EQ(log.messages, std::vector<std::string>{std::string(kFailed) + " file"});
    }
    {
        QuillonBuilder file("IMAGE");
        const auto bytes = file.Bytes();
        auto closed = Orx::DataCore::DataFile::OpenMemory(bytes.data(), bytes.size());
        closed->Close();
        LogCapture log;
        Source source(closed, nullptr);
        source.Initialize();
        EXPECT_EQ(log.messages, std::vector<std::string>{std::string(kFailed) + " file"});
    }
    struct Case {
        const char* subtype;
        const char* section;  // removed
        const char* key;      // removed from that section; whole section when null
        std::string message;
    };
    const Case cases[] = {
        {"IMAGE", "QuillonFileOverviewInfo", nullptr, " get QuillonFileOverviewInfo"},
        {"IMAGE", "File list", nullptr, " get File list"},
        {"IMAGE", "QuillonFileOverviewInfo", "FileListPlistName", " get File list"},
        {"IMAGE", "Dulce scan list", nullptr, ". Failed to get Dulce scan list"},
        {"FVOL", "Dulce force list", nullptr, " get Dulce force list"},
        {"IMAGE", "Dulce image list#2", nullptr, " get dataItemName"},
        {"IMAGE", "Dulce image list#2", "@2:Image Data", ". Failed to get Image Data tag"},
        {"FORCE", "Dulce force image list", "@4:Image Data", ". Failed to get Image Data tag"},
    };
    for (const Case& c : cases) {
        QuillonBuilder file(c.subtype);
        c.key ? file.Remove(c.section, c.key) : file.RemoveSection(c.section);
        const Outcome outcome = Opening(file);
        EXPECT_FALSE(outcome.open) << c.section;
        EXPECT_EQ(outcome.messages, std::vector<std::string>{kFailed + c.message}) << c.section;
    }
}

TEST(QuillonClassificationTest, OptionalSectionsMayBeMissing) {
    QuillonBuilder file("IMAGE");
    file.RemoveSection("Equipment list").RemoveSection("Scanner list").RemoveSection("Probe List");
    EXPECT_TRUE(Opening(file).open);
    // A force volume never reads the probe list, and a high-speed file opens without its list.
    QuillonBuilder volume("FVOL");
    volume.Text("Probe List", "Save/Load Eigenmode", "not a number");
    EXPECT_TRUE(Opening(volume).open);
    QuillonBuilder highSpeed("HSDC");
    highSpeed.RemoveSection("HSDC list");
    EXPECT_TRUE(Opening(highSpeed).open);
}

TEST(QuillonClassificationTest, RefusalsOfSubtypeVersionAndCountAreSilent) {
    QuillonBuilder misspelt("IMAGE");
    misspelt.Text("QuillonFileOverviewInfo", "FileSubType", "Image");
    QuillonBuilder tooOld("IMAGE");
    tooOld.Text("File list", "Version", "0x03ff0000");
    QuillonBuilder oldForce("FORCE");
    oldForce.Text("File list", "Version", "0x04200000");
    QuillonBuilder oneEcPlist("ECAFM");
    oneEcPlist.Int("QuillonFileOverviewInfo", "NumberOfDataPlists", 1);
    for (QuillonBuilder* file : {&misspelt, &tooOld, &oldForce, &oneEcPlist}) {
        const Outcome outcome = Opening(*file);
        EXPECT_FALSE(outcome.open);
        EXPECT_TRUE(outcome.messages.empty()) << outcome.messages.front();
    }
}

TEST(QuillonClassificationTest, VersionReadsAsHexAndOneDigitTooManyIsShifted) {
    struct Case {
        const char* subtype;
        const char* version;  // null: no "Version" key
        bool opens;
        std::uint32_t read;
    };
    const Case cases[] = {
        {"IMAGE", "0x09020000", true, 0x09020000},
        {"IMAGE", "0x92000000", true, 0x09200000},
        {"IMAGE", "0x04200000", true, 0x04200000},
        {"FORCE", "0x04300000", true, 0x04300000},
        {"ECFORCE", "0x042fffff", false, 0x042fffff},
        {"TIMED_FORCE", nullptr, true, 0},
        {"FORCE", nullptr, true, 0},
    };
    for (const Case& c : cases) {
        QuillonBuilder file(c.subtype);
        c.version ? file.Text("File list", "Version", c.version) : file.Remove("File list", "Version");
        auto source = Load(file);
        EXPECT_EQ(source->IsOpen(), c.opens) << c.subtype << " " << (c.version ? c.version : "none");
        EXPECT_EQ(source->GetFileVersion(), c.read);
    }
}

TEST(QuillonClassificationTest, DisplayChannelsOfVolumesAndElectrochemistry) {
    QuillonBuilder volume("FVOL");
    volume.AddImageChannel("Dulce image list#3");
    auto source = Load(volume);
    EXPECT_TRUE(source->IsOpen());
    EXPECT_EQ(source->GetNumberOfChannels(), 4);
    EXPECT_EQ(source->GetNumberOfDisplayChannels(), 1);

    QuillonBuilder four("ECAFM");
    EXPECT_EQ(Load(four)->GetNumberOfDisplayChannels(), 2);
    QuillonBuilder two("EC");
    two.Int("QuillonFileOverviewInfo", "NumberOfDataPlists", 2);
    auto twoSource = Load(two);
    EXPECT_TRUE(twoSource->IsOpen());
    EXPECT_EQ(twoSource->GetNumberOfChannels(), 2);
    EXPECT_EQ(twoSource->GetNumberOfDisplayChannels(), 1);
}

TEST(QuillonClassificationTest, TypeTestsFollowSubtypeOrStartContext) {
    struct Case {
        const char* subtype;
        const char* startContext;
        std::vector<bool> expected;  // image force volume hsdc script timed timedForce ecStm ecAfm ecForce ec
    };
    const Case cases[] = {
        {"IMAGE", "OL2", {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"FORCE", "FOL", {0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"FVOL", "OL2", {0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"HSDC", "OL2HSDC", {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0}},
        // The start context alone tells high-speed and timed files.
        {"HSDC", "OL2", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"IMAGE", "OL1HSDC", {1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0}},
        {"SCRIPT", "FOL", {0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}},
        {"FORCE", "OLSCRIPT", {0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0}},
        {"TIMED", "OLTIMED", {0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0}},
        {"TIMED", "OL2", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"TIMED_FORCE", "FOL", {0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0}},
        {"ECSTM", "OL2", {0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0}},
        {"ECAFM", "OL2", {0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0}},
        {"ECFORCE", "FOL", {0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0}},
        {"EC", "OL2", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}},
    };
    for (const Case& c : cases) {
        QuillonBuilder file(c.subtype);
        file.Text("File list", "Start context", c.startContext);
        auto s = Load(file);
        ASSERT_TRUE(s->IsOpen()) << c.subtype;
        const std::vector<bool> actual = {s->IsImageFile(),  s->IsForceFile(),      s->IsForceVolumeFile(),
                                          s->IsHsdcFile(),   s->IsScriptFile(),     s->IsTimedFile(),
                                          s->IsTimedForceFile(), s->IsEcStmFile(), s->IsEcAfmFile(),
                                          s->IsEcForceFile(), s->IsEcFile()};
        EXPECT_EQ(actual, c.expected) << c.subtype << " " << c.startContext;
        EXPECT_FALSE(s->IsHarlenFile());
    }
}

TEST(QuillonClassificationTest, HistoryNamesTheImportWhole) {
    const std::pair<const char*, int> cases[] = {
        {"PavoImport", 2}, {"RampFrcImport", 3}, {"TimeFrcImport", 4}, {"PavoImport 2", 0}, {"", 0}};
    for (const auto& [history, kind] : cases) {
        QuillonBuilder file("IMAGE");
        file.Text("File list", "History", history);
        EXPECT_EQ(Load(file)->GetImportType(), kind) << history;
    }
}

TEST(QuillonClassificationTest, FileWideTextsAndTheDate) {
    QuillonBuilder file("IMAGE");
    file.Text("File list", "User Rating", "4");
    const std::string path = TestTempPath("classification_title.spm");
    file.Write(path);
    Source source(Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr), nullptr);
    source.Initialize();
    ASSERT_TRUE(source.IsOpen());
    EXPECT_EQ(source.GetFilePath(), path);
    EXPECT_EQ(source.GetFileTitle(), "classification_title.spm");
    EXPECT_EQ(source.GetDate(), QuillonBuilder::kDate);
    EXPECT_EQ(source.GetStartContext(), "OL2");
    EXPECT_EQ(source.GetFileSectionName(), "File list");
    EXPECT_EQ(source.userRating, 4u);

    const OLDateTime t = source.GetDateTime();
    EXPECT_TRUE(t.valid);
    EXPECT_EQ(t.hours, 15);
    EXPECT_EQ(t.minutes, 15);
    EXPECT_EQ(t.seconds, 42);
    EXPECT_EQ(t.dayOfMonth, 5);
    EXPECT_EQ(t.month, 12);  // the month is never found by its name
    EXPECT_EQ(t.year, 121);
    EXPECT_EQ(t.daylight, -1);
}

TEST(QuillonClassificationTest, TwelveOClockAndDamagedDates) {
    const std::pair<const char*, int> hours[] = {
        {"12:05:00 AM Fri Mar 04 2022", 0}, {"12:05:00 PM Fri Mar 04 2022", 12}, {"01:05:00 pm Fri Mar 04 2022", 13}};
    for (const auto& [date, hour] : hours) {
        QuillonBuilder file("IMAGE");
        file.Text("File list", "Date", date);
        EXPECT_EQ(Load(file)->GetDateTime().hours, hour) << date;
    }
    QuillonBuilder damaged("IMAGE");
    damaged.Text("File list", "Date", "-2147483648:1:1 " + std::string(300, 'p') + " x y 1 -2147483648");
    const OLDateTime t = Load(damaged)->GetDateTime();
    EXPECT_EQ(t.hours, -2147483648LL + 12);
    EXPECT_EQ(t.year, -2147483647 - 1);  // saturated, not wrapped
}

TEST(QuillonClassificationTest, FailureKeepsTheItemsBuiltBefore) {
    QuillonBuilder file("IMAGE");
    file.Remove("Dulce image list#2", "@2:Image Data");
    LogCapture log;
    auto source = Load(file);
    EXPECT_FALSE(source->IsOpen());
    EXPECT_FALSE(source->opened);
    EXPECT_EQ(source->GetDataName(0), "Height");
    EXPECT_NE(source->GetDataItem(0), nullptr);
    EXPECT_EQ(source->GetDataItem(1), nullptr);
}
