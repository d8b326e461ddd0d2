// The writer's one promise: nothing lands outside the buffer, whether a write
// past the end is refused or cut.

#include "QlDataAnalysisExt/Tef/TefByteWriter.h"
#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

// A buffer of six bytes inside a larger one, whose guards must stay.
struct Guarded {
    Bytes all = Bytes(10, 0xEE);
    std::span<std::uint8_t> inner{all.data() + 2, 6};
    Bytes Inner() const { return Bytes(all.begin() + 2, all.begin() + 8); }
    bool GuardsStand() const { return all[0] == 0xEE && all[1] == 0xEE && all[8] == 0xEE && all[9] == 0xEE; }
};

std::string RefusalOf(const std::function<void()>& write)
{
    try {
        write();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

}  // namespace

TEST(TefByteWriterTest, WriteReachingPastTheEndIsRefusedWhole)
{
    Guarded buffer;
    TefByteWriter out(buffer.inner, TefByteWriter::Overflow::Refuse);
    out.Word(0x0201);
    out.Skip(1);
    EXPECT_EQ(RefusalOf([&] { out.Dword(0x06050403); }), TefFormat::Message::kBeyondNewFile);
    EXPECT_EQ(RefusalOf([&] { out.Room(4); }), TefFormat::Message::kBeyondNewFile);
    EXPECT_EQ(RefusalOf([&] { out.Skip(4); }), TefFormat::Message::kBeyondNewFile);
    EXPECT_EQ(out.Position(), 3u);
    out.Room(3)[2] = 9;
    EXPECT_EQ(buffer.Inner(), (Bytes{1, 2, 0xEE, 0xEE, 0xEE, 9}));
    EXPECT_TRUE(buffer.GuardsStand());
}

TEST(TefByteWriterTest, StreamCutAtTheEndDropsTheRestAndMovesOn)
{
    Guarded buffer;
    TefByteWriter out(buffer.inner, TefByteWriter::Overflow::Cut);
    out.Seek(4);
    out.Dword(0x04030201);
    EXPECT_EQ(out.Position(), 8u);
    out.Double(1.0);
    EXPECT_TRUE(out.Room(5).empty());
    out.Seek(3);
    EXPECT_EQ(out.Room(5).size(), 3u);
    EXPECT_EQ(buffer.Inner(), (Bytes{0xEE, 0xEE, 0xEE, 0xEE, 1, 2}));
    EXPECT_TRUE(buffer.GuardsStand());

    // a patch lands whole or not at all, whatever the stream does
    EXPECT_EQ(RefusalOf([&] { out.PatchWord(5, 0xFFFF); }), TefFormat::Message::kBeyondNewFile);
    EXPECT_EQ(RefusalOf([&] { out.PatchDouble(~std::uint64_t{0} - 2, 0.0); }), TefFormat::Message::kBeyondNewFile);
    out.PatchDword(2, 0x0A0B0C0D);
    EXPECT_EQ(buffer.Inner(), (Bytes{0xEE, 0xEE, 0x0D, 0x0C, 0x0B, 0x0A}));
    EXPECT_TRUE(buffer.GuardsStand());
}
