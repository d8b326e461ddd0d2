// The type text of the current file and the listing of a file's sections and
// keys, on files of every family written to disk.

#include "Exports/ExportsTestSupport.h"

#include "support/TestTempPath.h"
#include "tools/samplekit/ContainerBuilder.h"
#include "tools/samplekit/HarlenBuilder.h"
#include "tools/samplekit/QuillonBuilder.h"
#include "tools/samplekit/TefBuilder.h"

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using SampleKit::ContainerBuilder;
using SampleKit::HarlenBuilder;
using SampleKit::QuillonBuilder;
using SampleKit::TefBuilder;

class FileInfoExportsTest : public ::testing::Test {
protected:
    void TearDown() override { DataSourceDllClose(); }

    // Named after the test as well: tests may run side by side.
    static std::string Written(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        const std::string path = TestTempPath("file_info_" + test + "_" + name);
        std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                                    static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    static std::string Quillon() { return Written("image.qdf", QuillonBuilder("IMAGE").Bytes()); }
    static std::string Harlen() { return Written("image.hdf", HarlenBuilder::Image(4, 4).Bytes()); }
    static std::string Tef() { return Written("scan.tef", TefBuilder().Bytes()); }

    static bool Opens(std::string path) { return DataSourceDllOpen(path.data()) == 1; }
    static std::string TypeText() { return Taken(DataSourceDllGetFileTypeText()); }
    static std::string Dump(std::string path) { return Taken(DataSourceDllDumpParameters(path.data())); }
};

TEST_F(FileInfoExportsTest, TypeTextNamesTheFamilyOfTheCurrentFileOnly) {
    EXPECT_EQ(TypeText(), "UNKNOWN");
    ASSERT_TRUE(Opens(Quillon()));
    EXPECT_EQ(TypeText(), "Quillon Data File");
    ASSERT_TRUE(Opens(Harlen()));
    EXPECT_EQ(TypeText(), "Harlen Data File");
    ASSERT_TRUE(Opens(Tef()));
    EXPECT_EQ(TypeText(), ".tef");
    DataSourceDllClose();
    EXPECT_EQ(TypeText(), "UNKNOWN");

    // A failed open leaves no current file, so no type either.
    ASSERT_TRUE(Opens(Quillon()));
    EXPECT_FALSE(Opens(Written("refused.qdf", QuillonBuilder("Image").Bytes())));
    EXPECT_EQ(TypeText(), "UNKNOWN");
}

TEST_F(FileInfoExportsTest, TypeTextOfASourceWithoutAFamilyIsUnknown) {
    DataSourceDllState::Install(std::make_shared<MemoryDataSource>());
    EXPECT_EQ(TypeText(), "UNKNOWN");
}

TEST_F(FileInfoExportsTest, DumpListsEverySectionInOrderWithItsKeysAndValues) {
    QuillonBuilder file("IMAGE");
    const std::string dump = Dump(Written("dump.qdf", file.Bytes()));

    // Sections in the order of the file, each ended by a blank line.
    std::vector<std::string> sections;
    std::istringstream lines(dump);
    bool blankBefore = true;
    for (std::string line; std::getline(lines, line);) {
        if (blankBefore) {
            sections.push_back(line);
        }
        EXPECT_TRUE(blankBefore || line.empty() || line.rfind("  ", 0) == 0) << line;
        blankBefore = line.empty();
    }
    EXPECT_EQ(sections, (std::vector<std::string>{"QuillonFileOverviewInfo", "File list", "Equipment list",
                                                   "Probe List", "Dulce scan list", "Scanner list",
                                                   file.ChannelName(0), file.ChannelName(1)}));
    EXPECT_EQ(dump.substr(dump.size() - 2), "\n\n");

    // Values as a person reads them, matrices by their shape.
    EXPECT_NE(dump.find("\n  FileSubType = IMAGE\n"), std::string::npos);
    EXPECT_NE(dump.find("\n  Version = 0x09020000\n"), std::string::npos);
    EXPECT_NE(dump.find("\n  @2:Image Data = S [Height] \"Height\"\n"), std::string::npos);
    EXPECT_NE(dump.find("\n  RawData = Matrix long"), std::string::npos);
}

TEST_F(FileInfoExportsTest, DumpKeepsOneKeyToALine) {
    const std::string path = Written("lines.hdf", ContainerBuilder::Harlen()
                                                      .Section("[Data Parameters]")
                                                      .Text("DataName", "two\nlines\r")
                                                      .Text("After", "x")
                                                      .Bytes());
    EXPECT_EQ(Dump(path), "[Data Parameters]\n  DataName = two\\nlines\\r\n  After = x\n\n");
}

TEST_F(FileInfoExportsTest, DumpOfHarlenSectionsAndEmptyFiles) {
    const std::string dump = Dump(Harlen());
    EXPECT_EQ(dump.rfind("HarlenFileOverviewInfo\n  FileSubType = IMAGE\n", 0), 0u);
    EXPECT_NE(dump.find("\n[Data Version]\n  Program = Harlen\n"), std::string::npos);
    EXPECT_EQ(Dump(Written("empty.qdf", ContainerBuilder::Quillon().Bytes())), "");
}

TEST_F(FileInfoExportsTest, DumpOfWhatIsNoSectionFileIsUnknown) {
    std::vector<std::uint8_t> cut = QuillonBuilder("IMAGE").Bytes();
    cut.resize(cut.size() / 3);
    const std::vector<std::string> paths = {
        Tef(),
        Written("cut.qdf", cut),
        Written("garbage.qdf", {0x89, 'P', 'N', 'G', 0, 1, 2}),
        TestTempPath("file_info_missing.qdf"),
        TestTempPath(""),  // a folder
    };
    for (const std::string& path : paths) {
        EXPECT_EQ(Dump(path), "UNKNOWN") << path;
    }
    EXPECT_EQ(Taken(DataSourceDllDumpParameters(nullptr)), "UNKNOWN");
}

TEST_F(FileInfoExportsTest, DumpLeavesTheCurrentFileAsItWas) {
    ASSERT_TRUE(Opens(Harlen()));
    EXPECT_NE(Dump(Quillon()), "UNKNOWN");
    EXPECT_EQ(TypeText(), "Harlen Data File");
    int lines = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfLines(0, &lines), 1);
    EXPECT_EQ(lines, 4);
}

}  // namespace
