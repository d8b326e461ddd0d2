// The file as it was, patched: what SaveAs writes.

#include "QlDataAnalysisExt/Tef/TefRewriter.h"

#include "QlDataAnalysisExt/Tef/TefByteReader.h"
#include "QlDataAnalysisExt/Tef/TefByteWriter.h"
#include "QlDataAnalysisExt/Tef/TefFormat.h"
#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include <stdexcept>

namespace {

using namespace TefFormat;

// Whether the record whose head lies at offset has that identifier and size.
bool IsRecordAt(std::span<const std::uint8_t> bytes, std::uint64_t offset, long id, std::uint16_t size)
{
    if (offset > bytes.size() || bytes.size() - offset < kRecordHeadSize)
        return false;
    const std::uint8_t* at = bytes.data() + offset;
    const auto word = [](const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | (p[1] << 8)); };
    return word(at) == id && word(at + 2) == size;
}

}  // namespace

std::uint64_t TefRewriter::PatchedSize() const
{
    const std::uint64_t length = original_.size();
    if (source_.Is16Bit())
        return length;
    // The pixels shrink from 4 bytes to 2; every channel is taken to be as
    // large as the first was in the file.
    const std::vector<OLDataItemLoadRecord>& records = source_.GetChannelRecords();
    if (records.empty())
        throw std::runtime_error(Message::kNoChannelData);
    const std::uint64_t shrink = 2 * std::uint64_t{records.front().columns} * records.front().rows;
    const int channels = source_.GetNumberOfChannels();
    // A count below zero would grow the file, and one too large leave
    // nothing of it.
    if (channels < 0 || (shrink != 0 && static_cast<std::uint64_t>(channels) > (length - 1) / shrink))
        throw std::runtime_error(Message::kNewSizeInvalid);
    return length - static_cast<std::uint64_t>(channels) * shrink;
}

template <class Write>
void TefRewriter::PatchGroup(std::span<const std::uint8_t> bytes, std::uint32_t firstValue, std::uint16_t firstId,
                             std::uint16_t valueSize, const char* message, Write write) const
{
    const int channels = source_.GetNumberOfChannels();
    std::uint64_t at = firstValue;
    for (int c = 0; c < channels; ++c) {
        write(static_cast<unsigned>(c), at);
        at += valueSize;
        if (c + 1 == channels)
            break;
        if (!IsRecordAt(bytes, at, long{firstId} + c + 1, valueSize))
            throw std::runtime_error(message);
        at += kRecordHeadSize;
    }
}

std::optional<std::vector<std::uint8_t>> TefRewriter::Patched() const
{
    const bool inPlace = source_.Is16Bit();
    std::optional<std::vector<std::uint8_t>> bytes = Zeros(PatchedSize());
    if (!bytes)
        return std::nullopt;
    const TefOffsets& offsets = source_.GetOffsets();
    TefByteReader old(original_.data(), original_.size());
    TefByteWriter out(*bytes, TefByteWriter::Overflow::Refuse);
    const std::size_t kept = inPlace ? original_.size() : offsets.firstChannelOffset;
    out.Bytes({old.Take(kept), kept});
    UpdateNote(out);

    PatchGroup(*bytes, offsets.zRangeOffset, Id::kZRange, 8, Message::kZRangeMisaligned,
               [&](unsigned channel, std::uint64_t at) {
                   out.PatchDouble(at, static_cast<double>(source_.GetZScaleInSwUnits(channel)));
               });
    out.PatchWord(offsets.bitsInUseOffset, kWrittenBitsInUse);
    if (offsets.channelBitsOffset != 0) {
        PatchGroup(*bytes, offsets.channelBitsOffset, Id::kChannelBits, 2, Message::kBitsMisaligned,
                   [&](unsigned, std::uint64_t at) { out.PatchWord(at, kWrittenBitsInUse); });
    }

    const unsigned sections = SectionCount();
    if (inPlace) {
        TefByteReader copy(bytes->data(), bytes->size());
        copy.Seek(offsets.firstChannelOffset);
        for (unsigned c = 0; c < sections; ++c)
            PatchSection(c, copy, out);
    } else {
        old.Seek(offsets.firstChannelOffset);
        out.Seek(offsets.firstChannelOffset);
        for (unsigned c = 0; c < sections; ++c)
            RebuildSection(c, old, out);
    }
    return bytes;
}
