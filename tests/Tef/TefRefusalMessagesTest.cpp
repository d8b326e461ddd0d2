// A refused ".tef" file reaches the user with the refusal's own text, and a
// damaged file never gets further than that.

#include "Tef/TefSourceTestSupport.h"
#include "Tef/TefTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

using SampleKit::TefBuilder;
using TefTest::TefSourceTest;

using TefTest::Damage;

TEST_F(TefSourceTest, RefusalsReachTheUserWithTheirOwnText)
{
    // One damage at each stage of a walk over a file of two channels.
    const std::vector<Damage> damages{
        {"documentTagWrong", [](TefBuilder& b) { b.documentTag = 9; }, "Expecting document data, file misaligned"},
        {"doubleOfFourBytes", [](TefBuilder& b) { b.Set(2, TefBuilder::Dword(1)); },
         "Expecting double, wrong size for parameter."},
        {"channelCountRecordDiffers", [](TefBuilder& b) { b.Set(116, TefBuilder::Word(7)); },
         "Two different values in file for number of channels."},
        {"previewTagWrong", [](TefBuilder& b) { b.previewTag = 0; }, "Expecting preview data, file misaligned"},
        {"processedData", [](TefBuilder& b) { b.channels[1].processingSteps = 3; },
         "Only files with one processing step (raw data) are supported."},
        {"threeBytePixels", [](TefBuilder& b) { b.channels[1].bytesPerPixel = 3; },
         "Only 16 Bit and 32 Bit pixel data are supported."},
        {"lastPixelsCut", [](TefBuilder& b) { b.channels[1].pixels.resize(b.channels[1].pixels.size() - 4); },
         "Unexpected end of file, file misaligned"},
    };
    for (const Damage& damage : damages) {
        TefBuilder builder(2, 3, 2);
        damage.apply(builder);
        messages.clear();
        EXPECT_EQ(Open(builder), -1) << damage.name;
        EXPECT_EQ(messages, std::vector<std::string>{damage.message}) << damage.name;
        int channels = 0;
        EXPECT_EQ(DataSourceDllGetNumberOfChannels(&channels), -1) << damage.name;
    }
}

TEST_F(TefSourceTest, MessagesGoToTheHostsCallback)
{
    std::vector<std::string> received;
    DataSourceDllSetMessageCallback(
        [](const char* text, void* user) { static_cast<std::vector<std::string>*>(user)->push_back(text); },
        &received);
    TefBuilder builder(1, 2, 2);
    builder.channels[0].imageTag = 41;
    EXPECT_EQ(Open(builder), -1);
    DataSourceDllSetMessageCallback(nullptr, nullptr);
    EXPECT_EQ(received, std::vector<std::string>{"Expecting image data, file misaligned"});
}

TEST_F(TefSourceTest, FileCutAtAnyLengthIsRefusedOnceAndNothingIsLeftOpen)
{
    // Two channels, the second of 4-byte pixels, with a preview and a header
    // block longer than its fields.
    TefBuilder builder(2, 3, 2);
    builder.channels[1] = TefBuilder::StandardChannel(1, 3, 2, 4);
    builder.channels[0].headerRest.assign(20, 0x5A);
    builder.preview = {1, 2, 3, 4, 5};
    const std::vector<std::uint8_t> whole = builder.Bytes();
    // A file whose last six bytes are gone still opens: the rewriter's stated
    // size loses them.
    for (std::size_t length = 0; length + TefFormat::kRewriteLoss < whole.size(); ++length) {
        messages.clear();
        const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        ASSERT_EQ(OpenBytes(cut), -1) << length;
        // only the empty file ends without a word
        EXPECT_EQ(messages.size(), length == 0 ? 0u : 1u) << length;
    }
    EXPECT_EQ(OpenBytes(whole), 1);
}
