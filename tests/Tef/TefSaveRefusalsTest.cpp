// Saves that are refused: each reaches the user once with its own text,
// writes nothing, and leaves the source where it was.

#include "Tef/TefSaveTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

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

TefBuilder FourByte(std::uint16_t channels = 2) { return TefBuilder(channels, 3, 2, 4); }

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

void Lines(TefOLDataSource& source, std::uint32_t lines, std::uint32_t samples)
{
    source.SetChannelLines(0, lines);
    source.SetChannelSamples(0, samples);
}

// A record that no reader knows, of that many bytes.
TefBuilder::Record Unknown(std::size_t size) { return {200, std::vector<std::uint8_t>(size, 0x55), std::nullopt}; }

std::vector<Refusal> Refusals()
{
    const auto standard = [] { return TefBuilder(2, 3, 2); };
    const auto nothing = [](TefOLDataSource&) {};
    return {
        {"4-byte file whose channel count takes all its bytes", FourByteOfEvenLength,
         [](TefOLDataSource& s) {
             s.SetNumberOfChannels(static_cast<int>(FourByteOfEvenLength().Bytes().size() / 2));
         },
         Writer::SaveAs, Message::kNewSizeInvalid},
        {"4-byte file whose channel count takes more than its bytes", [] { return FourByte(); },
         [](TefOLDataSource& s) { s.SetNumberOfChannels(1000); }, Writer::SaveAs, Message::kNewSizeInvalid},
        {"4-byte file with a channel count below zero", [] { return FourByte(); },
         [](TefOLDataSource& s) { s.SetNumberOfChannels(-1); }, Writer::SaveAs, Message::kNewSizeInvalid},
        {"file without channels", [] { return FourByte(0); }, nothing, Writer::SaveAs, Message::kNoChannelData},
        {"every channel removed", standard,
         [](TefOLDataSource& s) {
             s.RemoveChannel(1);
             s.RemoveChannel(0);
         },
         Writer::RewriteChannels, Message::kNoChannelData},
        {"Z range records apart",
         [] {
             TefBuilder b(2, 3, 2);
             b.InsertBefore(109, Unknown(8));
             return b;
         },
         nothing, Writer::SaveAs, Message::kZRangeMisaligned},
        {"bits in use record of size 0",
         [] {
             TefBuilder b(2, 3, 2);
             b.Find(147)->size = 0;
             return b;
         },
         nothing, Writer::SaveAs, Message::kBitsMisaligned},
        {"bits in use records apart",
         [] {
             TefBuilder b(3, 3, 2);
             b.InsertBefore(148, Unknown(2));
             return b;
         },
         nothing, Writer::SaveAs, Message::kBitsMisaligned},
        {"4-byte section in a file whose last section has 2-byte pixels",
         [] {
             TefBuilder b(2, 3, 2);
             b.channels[0] = TefBuilder::StandardChannel(0, 3, 2, 4);
             return b;
         },
         nothing, Writer::SaveAs, Message::kNot16Bit},
        {"channel given other lines", standard, [](TefOLDataSource& s) { Lines(s, 1, 3); }, Writer::SaveAs,
         Message::kChannelOutOfSynch},
        {"channel given more pixels than it holds", [] { return FourByte(); },
         [](TefOLDataSource& s) { Lines(s, 3, 3); }, Writer::SaveAs, Message::kChannelOutOfSynch},
        {"more channels than items", standard, [](TefOLDataSource& s) { s.SetNumberOfChannels(3); },
         Writer::RewriteChannels, Message::kChannelOutOfSynch},
        {"empty image given a size", [] { return TefBuilder(1, 0, 0, 4); },
         [](TefOLDataSource& s) { Lines(s, 2, 2); }, Writer::SaveAs, Message::kNoOriginalChannelData},
        {"file on disk with another channel tag", standard, FileBecomes([] {
             TefBuilder b(2, 3, 2);
             b.channels[1].tag = 4;
             return b;
         }),
         Writer::SaveAs, Message::kExpectingChannel},
        {"file on disk with another image tag", [] { return FourByte(); }, FileBecomes([] {
             TefBuilder b = FourByte();
             b.channels[0].imageTag = 41;
             return b;
         }),
         Writer::SaveAs, Message::kExpectingImage},
        {"file on disk cut short", standard, FileBecomes([] {
             TefBuilder b(2, 3, 2);
             b.channels[1].pixels.resize(2);
             return b;
         }),
         Writer::RewriteChannels, Message::kUnexpectedEnd},
        {"4-byte file on disk smaller than the channels held", [] { return FourByte(); },
         FileBecomes([] { return TefBuilder(2, 1, 1, 4); }), Writer::SaveAs, Message::kBeyondNewFile},
        {"width record far behind the rebuilt part",
         [] {
             TefBuilder b(1, 3, 2);
             b.Remove(7);
             b.records.push_back(Unknown(400));
             b.records.push_back({7, TefBuilder::Word(3), std::nullopt});
             return b;
         },
         nothing, Writer::RewriteChannels, Message::kBeyondNewFile},
        {"file without unit records",
         [] {
             TefBuilder b(2, 3, 2);
             b.Remove(100);
             b.Remove(101);
             return b;
         },
         nothing, Writer::RewriteChannels, Message::kNoUnitsInOriginal},
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
