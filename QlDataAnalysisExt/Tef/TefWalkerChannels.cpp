// The channel sections, one behind the other after the preview.

#include "QlDataAnalysisExt/Tef/TefWalker.h"

#include "QlDataAnalysisExt/Tef/TefChannelNames.h"
#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace {

// Bytes of pixels converted at a time: enough to keep the file's reads
// large, few enough to stay in the cache between the read and the
// conversion.
constexpr std::size_t kPixelBandBytes = 256 * 1024;

}  // namespace

void TefWalker::ReadChannelSections()
{
    for (std::size_t index = 0; index < document_.channels.size(); ++index)
        ReadChannelSection(index);
}

void TefWalker::ReadChannelSection(std::size_t index)
{
    using namespace TefFormat;
    const auto start = static_cast<std::int64_t>(reader_.Position());
    TefChannelSection& section = document_.sections.emplace_back();
    if (reader_.Word() != kChannelTag)
        throw std::runtime_error(Message::kExpectingChannel);
    const std::int32_t headerLength = reader_.Length();
    section.type = reader_.Word();
    section.subtype = reader_.Word();
    section.lineDirectionCode = reader_.Word();
    if (index < document_.channelTable.size()) {
        document_.channelTable[index].type = section.type;
        document_.channelTable[index].subtype = section.subtype;
    }
    if (reader_.Word() != kRawDataSteps)
        throw std::runtime_error(Message::kOnlyRawData);
    // The header length places the image block, whatever the fields say.
    reader_.Seek(start + kSectionHeadSize + headerLength);

    if (reader_.Word() != kImageTag)
        throw std::runtime_error(Message::kExpectingImage);
    reader_.Skip(4 + kImageHeadSize);  // image length, image head
    const TefChannelSettings& settings = document_.channels[index];
    section.width = reader_.Word();
    if (section.width != settings.width)
        throw std::runtime_error(Message::kTwoWidths);
    section.height = reader_.Word();
    if (section.height != settings.height)
        throw std::runtime_error(Message::kTwoHeights);
    section.bytesPerPixel = reader_.Word();
    if (section.bytesPerPixel != 2 && section.bytesPerPixel != 4)
        throw std::runtime_error(Message::kPixelWidth);
    reader_.Skip(4);  // reserved
    ReadPixels(index, section);

    document_.is16Bit = section.bytesPerPixel == 2;
    section.displayName = TefChannelNames::Resolve(document_.channelTable, index);
    section.lineDirection = section.lineDirectionCode == kForwardDirection ? kForward : kBackward;
    section.complete = true;
}

void TefWalker::ReadPixels(std::size_t index, TefChannelSection& section)
{
    const std::size_t count = static_cast<std::size_t>(section.width) * section.height;
    section.dataSize = static_cast<std::uint64_t>(count) * section.bytesPerPixel;
    // Nothing is allocated for pixels that the file does not hold, with one
    // allowance: a file rewritten to its stated size lacks up to six bytes of
    // its last pixels, which read as zero bytes.
    const std::uint64_t held = std::min<std::uint64_t>(section.dataSize, reader_.Remaining());
    if (section.dataSize - held > TefFormat::kRewriteLoss)
        throw std::runtime_error(TefFormat::Message::kUnexpectedEnd);
    // Sections lie one behind the other, so together they fit in the file,
    // each with its head, image block and pixels. Header lengths that lead
    // back would read the same bytes again, and empty images would do so
    // once for every channel the head claims.
    sectionBytesRead_ += TefFormat::kSectionHeadSize + TefFormat::kImageBlockSize + held;
    if (sectionBytesRead_ > reader_.Size())
        throw std::runtime_error(TefFormat::Message::kImageDataOverlaps);
    if (held < section.dataSize) {
        ReadShortPixels(index, section, count);
        return;
    }
    const std::size_t start = reader_.Position();
    const auto end = static_cast<std::int64_t>(start + section.dataSize);
    if (count == 0) {
        reader_.Seek(end);
        return;
    }
    try {
        section.pixels.reserve(count);
    } catch (const std::bad_alloc&) {
        // The channel goes without pixels; the next one that has pixels is
        // then out of step and refused.
        section.pixels = {};
        reader_.Seek(end);
        return;
    }
    // The rows are read in bands, the last stored band first, as the image
    // is held top row first: only a band of the file's bytes is in memory at
    // any time beside the values made of them.
    const std::size_t rowBytes = std::size_t{section.width} * section.bytesPerPixel;
    const std::size_t bandRows = std::max<std::size_t>(1, kPixelBandBytes / rowBytes);
    for (std::size_t last = section.height; last > 0;) {
        const std::size_t first = last > bandRows ? last - bandRows : 0;
        reader_.Seek(static_cast<std::int64_t>(start + first * rowBytes));
        const std::size_t bytes = (last - first) * rowBytes;
        converter_.AppendImage({reader_.Take(bytes), bytes}, section.width, last - first, section.bytesPerPixel,
                               document_.channels[index].bitsInUse, section.pixels);
        last = first;
    }
    reader_.Seek(end);
    CountPixelStore(index, section);
}

void TefWalker::CountPixelStore(std::size_t index, TefChannelSection& section)
{
    section.hasPixels = true;
    ++pixelStores_;
    if (pixelStores_ != index + 1)
        throw std::runtime_error(TefFormat::Message::kDataMisaligned);
}

// The pixels that end the file short: the bytes there are completed by zeros
// and converted as one band.
void TefWalker::ReadShortPixels(std::size_t index, TefChannelSection& section, std::size_t count)
{
    const std::size_t have = reader_.Remaining();
    std::vector<std::uint8_t> whole(static_cast<std::size_t>(section.dataSize), 0);
    const std::uint8_t* bytes = reader_.Take(have);
    std::copy(bytes, bytes + have, whole.begin());
    section.pixels.reserve(count);
    converter_.AppendImage(whole, section.width, section.height, section.bytesPerPixel,
                           document_.channels[index].bitsInUse, section.pixels);
    CountPixelStore(index, section);
}
