// What both writers share: the note, the channel sections and their pixels.

#include "QlDataAnalysisExt/Tef/TefRewriter.h"

#include "QlDataAnalysisExt/Tef/TefByteReader.h"
#include "QlDataAnalysisExt/Tef/TefByteWriter.h"
#include "QlDataAnalysisExt/Tef/TefFormat.h"
#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"
#include "QlDataAnalysisExt/Tef/TefPixelConverter.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

namespace {

using namespace TefFormat;

// The image length counts the image head, the three sizes and the reserved
// bytes beside the pixels.
constexpr std::uint64_t kImageLengthBesidePixels = kImageHeadSize + 3 * 2 + 4;

[[noreturn]] void Refuse(const char* message)
{
    throw std::runtime_error(message);
}

}  // namespace

TefRewriter::TefRewriter(const TefOLDataSource& source, std::span<const std::uint8_t> original)
    : source_(source), original_(original)
{
}

std::optional<std::vector<std::uint8_t>> TefRewriter::Zeros(std::uint64_t size)
{
    // A save that cannot have its memory fails without a word, as it always
    // did; the caller's buffers are freed on the way out.
    if (size > std::vector<std::uint8_t>().max_size())
        return std::nullopt;
    try {
        return std::vector<std::uint8_t>(static_cast<std::size_t>(size), 0);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

unsigned TefRewriter::SectionCount() const
{
    const int channels = source_.GetNumberOfChannels();
    if (channels <= 0)
        return 0;
    return static_cast<unsigned>(std::min<std::size_t>(static_cast<std::size_t>(channels), source_.GetItemCount()));
}

void TefRewriter::UpdateNote(TefByteWriter& out) const
{
    const std::vector<OLDataItemLoadRecord>& records = source_.GetChannelRecords();
    if (source_.GetItemCount() == 0 || records.empty())
        return;
    const std::string note = source_.GetNote(0);
    if (note == records.front().note)
        return;
    const void* mark = std::memchr(original_.data(), kNoteEnd, original_.size());
    if (!mark)
        return;
    const auto end = static_cast<std::size_t>(static_cast<const std::uint8_t*>(mark) - original_.data());
    if (end == 0)
        return;
    // The area keeps its size, so a longer note is cut, and the byte in
    // front of the end mark keeps its old value. A note's own end mark would
    // end the area early when the file is read again; the note ends there.
    std::vector<std::uint8_t> area(end - 1, 0);
    const std::size_t length = std::min({area.size(), note.size(), note.find(static_cast<char>(kNoteEnd))});
    if (length > 0)
        std::memcpy(area.data(), note.data(), length);
    out.PatchBytes(0, area);
}

const std::vector<std::int32_t>& TefRewriter::PixelsFor(unsigned channel, std::uint64_t count) const
{
    const std::vector<std::vector<std::int32_t>>& all = source_.GetChannelPixels();
    if (channel >= source_.GetItemCount() || channel >= all.size())
        Refuse(Message::kNoOriginalChannelData);
    const std::vector<std::int32_t>& pixels = all[channel];
    // A channel whose pixels were never had has nothing to write; one whose
    // size was changed since has not enough.
    if (count > 0 && pixels.empty())
        Refuse(Message::kNoOriginalChannelData);
    if (count > pixels.size())
        Refuse(Message::kChannelOutOfSynch);
    return pixels;
}

void TefRewriter::WritePixels(unsigned channel, TefByteWriter& out) const
{
    const std::uint32_t lines = source_.GetNumberOfLines(channel);
    const std::uint32_t samples = source_.GetSamplesPerLine(channel);
    const std::uint64_t count = std::uint64_t{lines} * samples;
    const std::vector<std::int32_t>& pixels = PixelsFor(channel, count);
    const std::uint64_t bytes = count * kWrittenBytesPerPixel;
    const std::span<std::uint8_t> room = out.Room(bytes);
    if (room.size() == bytes) {
        TefPixelConverter::WriteImage(pixels, samples, lines, room);
        return;
    }
    // The end of the file cuts the image: it is made whole aside and as much
    // of it kept as fits. Without memory for that the bytes stay as they were.
    try {
        std::vector<std::uint8_t> whole(static_cast<std::size_t>(bytes));
        TefPixelConverter::WriteImage(pixels, samples, lines, whole);
        std::copy_n(whole.begin(), room.size(), room.begin());
    } catch (const std::bad_alloc&) {
    }
}

void TefRewriter::PatchSection(unsigned channel, TefByteReader& copy, TefByteWriter& out) const
{
    if (channel >= source_.GetItemCount())
        return;
    if (copy.Word() != kChannelTag)
        Refuse(Message::kExpectingChannel);
    copy.Skip(copy.Length());
    if (copy.Word() != kImageTag)
        Refuse(Message::kExpectingImage);
    copy.Skip(4 + kImageHeadSize);  // image length, image head
    const std::uint16_t width = copy.Word();
    const std::uint16_t height = copy.Word();
    if (width != source_.GetSamplesPerLine(channel) || height != source_.GetNumberOfLines(channel))
        Refuse(Message::kChannelOutOfSynch);
    if (copy.Word() != kWrittenBytesPerPixel)
        Refuse(Message::kNot16Bit);
    copy.Skip(4);  // reserved
    out.Seek(copy.Position());
    WritePixels(channel, out);
    copy.Seek(static_cast<std::int64_t>(out.Position()));
}

void TefRewriter::RebuildSection(unsigned channel, TefByteReader& old, TefByteWriter& out) const
{
    const std::vector<TefChannelInfo>& rows = source_.GetChannelTable();
    if (channel >= source_.GetItemCount() || channel >= rows.size())
        return;
    if (old.Word() != kChannelTag)
        Refuse(Message::kExpectingChannel);
    const std::int32_t headerLength = old.Length();
    // A header block that leads back cannot be copied.
    if (headerLength < 0)
        Refuse(Message::kUnexpectedEnd);
    out.Word(kChannelTag);
    out.Dword(static_cast<std::uint32_t>(headerLength));
    const auto blockSize = static_cast<std::size_t>(headerLength);
    const std::uint64_t block = out.Position();
    out.Bytes({old.Take(blockSize), blockSize});
    // The opaque block keeps its bytes; the channel's own fields are its
    // row's now, which after removals may come from another section.
    out.Seek(block);
    out.Word(rows[channel].type);
    out.Word(rows[channel].subtype);
    out.Word(source_.GetLineDirection(channel) == kForward ? kForwardDirection : kBackwardDirection);
    out.Seek(block + blockSize);

    if (old.Word() != kImageTag)
        Refuse(Message::kExpectingImage);
    out.Word(kImageTag);
    const std::uint64_t pixels = std::uint64_t{source_.GetNumberOfLines(channel)} * source_.GetSamplesPerLine(channel);
    out.Dword(static_cast<std::uint32_t>(pixels * kWrittenBytesPerPixel + kImageLengthBesidePixels));
    old.Skip(4);  // image length
    out.Bytes({old.Take(kImageHeadSize), kImageHeadSize});
    const std::uint16_t width = old.Word();
    const std::uint16_t height = old.Word();
    out.Word(width);
    out.Word(height);
    out.Word(kWrittenBytesPerPixel);
    const std::uint16_t bytesPerPixel = old.Word();
    old.Skip(4);  // reserved, which stays zero in the new buffer
    out.Skip(4);
    WritePixels(channel, out);
    old.Skip(static_cast<std::int64_t>(width) * height * bytesPerPixel);
}
