// Saves that are refused: each reaches the user once with its own text,
// writes nothing, and leaves the source where it was.

#include "Tef/TefSaveTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>

using SampleKit::TefBuilder;
using TefTest::TefSaveTest;
namespace Message = TefFormat::Message;

namespace {

enum class Writer { SaveAs, RewriteChannels };

struct Refusal {
    const char* name;
    std::function<TefBuilder()> file;
    // What the host or the disk does to the source and its file before the save.
    std::function<void(TefOLDataSource&)> change;
    Writer writer;
    const char* message;
};

// A file of that many channels of 3 x 2 pixels, damaged so.
std::function<TefBuilder()> Built(std::uint16_t channels, std::uint16_t bytesPerPixel,
                                  std::function<void(TefBuilder&)> damage = {})
{
    return [=] {
        TefBuilder builder(channels, 3, 2, bytesPerPixel);
        if (damage)
            damage(builder);
        return builder;
    };
}

// A file of 4-byte pixels exactly twice as long as its channel count can be.
TefBuilder FourByteOfEvenLength()
{
    TefBuilder builder(1, 1, 1, 4);
    if (builder.Bytes().size() % 2 != 0)
        builder.trailer.push_back(0);
    return builder;
}

// Replaces the source's file on disk with another.
std::function<void(TefOLDataSource&)> FileBecomes(std::function<TefBuilder()> file)
{
    return [file](TefOLDataSource& source) { file().Save(source.GetFilePath()); };
}

std::function<void(TefOLDataSource&)> Lines(std::uint32_t lines, std::uint32_t samples)
{
    return [=](TefOLDataSource& source) {
        source.SetChannelLines(0, lines);
        source.SetChannelSamples(0, samples);
    };
}

std::function<void(TefOLDataSource&)> Channels(int count)
{
    return [=](TefOLDataSource& source) { source.SetNumberOfChannels(count); };
}

// A record that no reader knows, of that many bytes.
TefBuilder::Record Unknown(std::size_t size) { return {200, std::vector<std::uint8_t>(size, 0x55), std::nullopt}; }

std::vector<Refusal> Refusals()
{
    const auto standard = Built(2, 2);
    const auto fourByte = Built(2, 4);
    const auto nothing = [](TefOLDataSource&) {};
    constexpr Writer saveAs = Writer::SaveAs;
    constexpr Writer rewrite = Writer::RewriteChannels;
    return {
        {"4-byte file whose channel count takes all its bytes", FourByteOfEvenLength,
         Channels(static_cast<int>(FourByteOfEvenLength().Bytes().size() / 2)), saveAs, Message::kNewSizeInvalid},
        {"4-byte file whose channel count takes more than its bytes", fourByte, Channels(1000), saveAs,
         Message::kNewSizeInvalid},
        {"4-byte file with a channel count below zero", fourByte, Channels(-1), saveAs, Message::kNewSizeInvalid},
        {"file without channels", Built(0, 4), nothing, saveAs, Message::kNoChannelData},
        {"every channel removed", standard,
         [](TefOLDataSource& s) {
             s.RemoveChannel(1);
             s.RemoveChannel(0);
         },
         rewrite, Message::kNoChannelData},
        {"Z range records apart", Built(2, 2, [](TefBuilder& b) { b.InsertBefore(109, Unknown(8)); }), nothing,
         saveAs, Message::kZRangeMisaligned},
        {"bits in use record of size 0", Built(2, 2, [](TefBuilder& b) { b.Find(147)->size = 0; }), nothing, saveAs,
         Message::kBitsMisaligned},
        {"bits in use records apart", Built(3, 2, [](TefBuilder& b) { b.InsertBefore(148, Unknown(2)); }), nothing,
         saveAs, Message::kBitsMisaligned},
        {"4-byte section in a file whose last section has 2-byte pixels",
         Built(2, 2, [](TefBuilder& b) { b.channels[0] = TefBuilder::StandardChannel(0, 3, 2, 4); }), nothing,
         saveAs, Message::kNot16Bit},
        {"channel given other lines", standard, Lines(1, 3), saveAs, Message::kChannelOutOfSynch},
        {"channel given more pixels than it holds", fourByte, Lines(3, 3), saveAs, Message::kChannelOutOfSynch},
        {"more channels than items", standard, Channels(3), rewrite, Message::kChannelOutOfSynch},
        {"empty image given a size", [] { return TefBuilder(1, 0, 0, 4); }, Lines(2, 2), saveAs,
         Message::kNoOriginalChannelData},
        {"file on disk with another channel tag", standard,
         FileBecomes(Built(2, 2, [](TefBuilder& b) { b.channels[1].tag = 4; })), saveAs, Message::kExpectingChannel},
        {"file on disk with another image tag", fourByte,
         FileBecomes(Built(2, 4, [](TefBuilder& b) { b.channels[0].imageTag = 41; })), saveAs,
         Message::kExpectingImage},
        {"file on disk cut short", standard,
         FileBecomes(Built(2, 2, [](TefBuilder& b) { b.channels[1].pixels.resize(2); })), rewrite,
         Message::kUnexpectedEnd},
        {"4-byte file on disk smaller than the channels held", fourByte,
         FileBecomes([] { return TefBuilder(2, 1, 1, 4); }), saveAs, Message::kBeyondNewFile},
        {"width record far behind the rebuilt part",
         Built(1, 2,
               [](TefBuilder& b) {
                   b.Remove(7);
                   b.records.push_back(Unknown(400));
                   b.records.push_back({7, TefBuilder::Word(3), std::nullopt});
               }),
         nothing, rewrite, Message::kBeyondNewFile},
        {"file without unit records",
         Built(2, 2,
               [](TefBuilder& b) {
                   b.Remove(100);
                   b.Remove(101);
               }),
         nothing, rewrite, Message::kNoUnitsInOriginal},
    };
}

}  // namespace

TEST_F(TefSaveTest, EachRefusalIsToldOnceAndWritesNothing)
{
    for (const Refusal& refusal : Refusals()) {
        SCOPED_TRACE(refusal.name);
        messages.clear();
        const auto source = Load(refusal.file(), "refused.tef");
        ASSERT_TRUE(messages.empty());
        const std::string own = path;
        refusal.change(*source);
        const std::string target = Fresh("refused-target.tef");
        const bool written =
            refusal.writer == Writer::SaveAs ? source->SaveAs(target, false) : source->RewriteChannels(target);
        EXPECT_FALSE(written);
        EXPECT_EQ(messages, std::vector<std::string>{refusal.message});
        EXPECT_FALSE(std::filesystem::exists(target));
        EXPECT_EQ(source->GetFilePath(), own);
    }
}

TEST_F(TefSaveTest, FileDamagedAnywhereOnDiskIsSavedOrRefusedWithAKnownText)
{
    // The writers read the old file again, and trust nothing in it: every
    // cut and every overwritten byte either still saves or is refused.
    const std::vector<std::string> known{
        Message::kExpectingChannel, Message::kExpectingImage,     Message::kUnexpectedEnd,
        Message::kZRangeMisaligned, Message::kBitsMisaligned,     Message::kNot16Bit,
        Message::kChannelOutOfSynch, Message::kBeyondNewFile,     Message::kNewSizeInvalid,
    };
    for (const std::uint16_t bytesPerPixel : {2, 4}) {
        const TefBuilder builder(2, 2, 2, bytesPerPixel);
        const std::vector<std::uint8_t> good = builder.Bytes();
        for (std::size_t at = 0; at < good.size(); ++at) {
            for (const bool cut : {true, false}) {
                std::vector<std::uint8_t> damaged = good;
                if (cut)
                    damaged.resize(at);
                else
                    damaged[at] = static_cast<std::uint8_t>(damaged[at] ^ 0xA5);
                const auto source = Load(builder, "damaged.tef");
                TefTest::WriteBytes(path, damaged);
                messages.clear();
                const std::string target = Fresh("damaged-target.tef");
                const bool saved = source->SaveAs(target, false);
                const bool rewritten = source->RewriteChannels(Fresh("damaged-rewritten.tef"));
                EXPECT_EQ(messages.size(), (saved ? 0u : 1u) + (rewritten ? 0u : 1u) - (damaged.empty() ? 2u : 0u))
                    << bytesPerPixel << (cut ? " cut at " : " byte at ") << at;
                for (const std::string& message : messages)
                    EXPECT_NE(std::find(known.begin(), known.end(), message), known.end()) << message;
            }
        }
    }
}
