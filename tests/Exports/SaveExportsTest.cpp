// Saving the current file through the flat functions: a note, the whole file
// under a new name, one channel as a file of its own.

#include "Exports/ExportsTestSupport.h"

#include "Platform/FileSystem.h"
#include "support/FileBytes.h"
#include "Platform/UserMessage.h"
#include "support/TestTempPath.h"
#include "tools/samplekit/TefBuilder.h"

#include <filesystem>

using SampleKit::TefBuilder;

namespace {

class SaveExportsTest : public ::testing::Test {
protected:
    void SetUp() override {
        DataSourceDllClose();
        Orx::Core::SetUserMessageHandler([this](const std::string& text) { messages.push_back(text); });
    }
    void TearDown() override {
        DataSourceDllClose();
        Orx::Core::SetUserMessageHandler(nullptr);
    }

    // A path with nothing at it, in a folder of the running test's own.
    static std::string Fresh(const std::string& name) {
        const std::filesystem::path folder = std::filesystem::path(TestTempPath("export-saves")) /
                                             ::testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::create_directories(folder);
        const std::filesystem::path at = folder / name;
        std::filesystem::remove_all(at);
        return at.string();
    }

    // Opens a built file of three channels whose layout a single channel
    // keeps whole.
    void OpenThreeChannels() {
        TefBuilder builder(3, 4, 2);
        builder.Remove(116);
        builder.Set(102, TefBuilder::Text("deg"));
        original = Fresh("exports-three.tef");
        builder.Save(original);
        ASSERT_EQ(DataSourceDllOpen(original.data()), 1);
    }

    static std::vector<std::uint8_t> Bytes(const std::string& path) { return TestSupport::BytesOf(path); }

    std::string original;
    std::vector<std::string> messages;
};

}  // namespace

TEST_F(SaveExportsTest, NoteAndWholeFileAreSavedUnderTheNewName) {
    OpenThreeChannels();
    std::string note = "Saved note";
    EXPECT_EQ(DataSourceDllSetNote(note.data()), 1);
    std::string copy = Fresh("exports-copy.tef");
    ASSERT_EQ(DataSourceDllSaveAs(copy.data()), 1);
    const std::vector<std::uint8_t> bytes = Bytes(copy);
    ASSERT_GT(bytes.size(), note.size());
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(note.size())), note);
    EXPECT_EQ(Bytes(original).size(), bytes.size());

    // the current file is still the one opened: a second save reads it
    std::filesystem::remove(copy);
    ASSERT_EQ(DataSourceDllSaveAs(copy.data()), 1);
    ASSERT_EQ(DataSourceDllOpen(copy.data()), 1);
    int channels = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&channels), 1);
    EXPECT_EQ(channels, 3);
    EXPECT_TRUE(messages.empty());
}

TEST_F(SaveExportsTest, ChannelSavedAloneOpensAsTheOnlyChannel) {
    OpenThreeChannels();
    std::string single = Fresh("exports-single.tef");
    ASSERT_EQ(DataSourceDllSaveChannelAs(2, single.data()), 1);
    ASSERT_EQ(DataSourceDllOpen(single.data()), 1);
    int channels = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&channels), 1);
    EXPECT_EQ(channels, 1);
    EXPECT_EQ(Taken(DataSourceDllGetDataTypeDesc(0)), "Error (Amplitude)");
    EXPECT_EQ(Taken(DataSourceDllGetMetricDataScaleUnits(0)), "deg");
    double zScale = 0.0;
    EXPECT_EQ(DataSourceDllGetZScaleInSwUnits(0, &zScale), 1);
    EXPECT_EQ(zScale, TefBuilder::kZRange + 2);
}

TEST_F(SaveExportsTest, RefusedArgumentsAndFailedSavesAnswerMinusOne) {
    std::string target = Fresh("exports-refused.tef");
    std::string note = "x";
    // no file open
    EXPECT_EQ(DataSourceDllSaveAs(target.data()), -1);
    EXPECT_EQ(DataSourceDllSetNote(note.data()), -1);
    EXPECT_EQ(DataSourceDllSaveChannelAs(0, target.data()), -1);

    OpenThreeChannels();
    EXPECT_EQ(DataSourceDllSaveAs(nullptr), -1);
    EXPECT_EQ(DataSourceDllSetNote(nullptr), -1);
    EXPECT_EQ(DataSourceDllSaveChannelAs(0, nullptr), -1);
    EXPECT_EQ(DataSourceDllSaveChannelAs(-1, target.data()), -1);
    EXPECT_EQ(DataSourceDllSaveChannelAs(3, target.data()), -1);
    EXPECT_FALSE(std::filesystem::exists(target));

    // a save that fails tells why through the message callback
    std::string folder = Fresh("exports-folder.tef");
    std::filesystem::create_directories(folder + "/inside");
    EXPECT_EQ(DataSourceDllSaveAs(folder.data()), -1);
    EXPECT_EQ(DataSourceDllSaveChannelAs(0, folder.data()), -1);
    ASSERT_FALSE(messages.empty());
    for (const std::string& message : messages) {
        EXPECT_NE(message.find(folder), std::string::npos) << message;
    }
    std::filesystem::remove(original);
    EXPECT_EQ(DataSourceDllSaveAs(target.data()), -1);
    EXPECT_FALSE(std::filesystem::exists(target));
}
