// The file with its parameters from the channel units on rebuilt for the
// source's channels: what RewriteChannels writes.

#include "QlDataAnalysisExt/Tef/TefRewriter.h"

#include "QlDataAnalysisExt/Tef/TefByteReader.h"
#include "QlDataAnalysisExt/Tef/TefByteWriter.h"
#include "QlDataAnalysisExt/Tef/TefFormat.h"
#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include <stdexcept>
#include <string_view>

namespace {

using namespace TefFormat;

// The sizes that files of this kind have always been given. Per file: the
// records 116 (6 bytes), 117 to 120 (12 each) and 145 (8). Per channel: the
// records 100+i and 137+i without their texts (4 each), 108+i, 121+i and
// 129+i (12 each) and 146+i (6); and a section with a header block of 16
// bytes, without its pixels. The preview head that is written as well is not
// counted, so with all of those present the last 6 bytes of pixels are cut.
constexpr std::uint64_t kFileRecordsSize = 62;
constexpr std::uint64_t kChannelRecordsSize = 50;
constexpr std::uint64_t kSectionSize = 54;

// The parameter records start behind the channel count of the document head,
// the head's last field.
constexpr std::uint64_t kLengthToParameters = kDocumentHeadSize - 2;
constexpr std::uint64_t kParameterCountField = 8;
constexpr std::uint64_t kChannelCountField = 10;
// Records per channel that go with each channel taken out.
constexpr long long kRecordsPerChannel = 5;
constexpr long long kRecordsPerChannelWithBits = 6;

// A text as a record can hold it: no longer than its size field can say.
std::string_view RecordText(const std::string& text)
{
    return std::string_view(text).substr(0, 0xFFFF);
}

void RecordHead(TefByteWriter& out, unsigned id, std::size_t size)
{
    // Identifiers of channels beyond the groups wrap as the WORD they are.
    out.Word(static_cast<std::uint16_t>(id));
    out.Word(static_cast<std::uint16_t>(size));
}

void TextRecord(TefByteWriter& out, unsigned id, const std::string& text)
{
    const std::string_view value = RecordText(text);
    RecordHead(out, id, value.size());
    out.Bytes({reinterpret_cast<const std::uint8_t*>(value.data()), value.size()});
}

void DoubleRecord(TefByteWriter& out, unsigned id, double value)
{
    RecordHead(out, id, sizeof value);
    out.Double(value);
}

void WordRecord(TefByteWriter& out, unsigned id, std::uint16_t value)
{
    RecordHead(out, id, sizeof value);
    out.Word(value);
}

}  // namespace

std::uint64_t TefRewriter::RebuiltSize(std::uint32_t head, unsigned channels) const
{
    const std::uint64_t pixels = std::uint64_t{source_.GetSamplesPerLine(0)} * source_.GetNumberOfLines(0);
    const std::vector<TefChannelInfo>& rows = source_.GetChannelTable();
    std::uint64_t size = head + kFileRecordsSize + channels * (pixels * kWrittenBytesPerPixel + kSectionSize);
    for (unsigned c = 0; c < channels; ++c) {
        size += kChannelRecordsSize + RecordText(source_.GetDataScaleName(c)).size();
        if (c < rows.size())
            size += RecordText(rows[c].name).size();
    }
    return size;
}

void TefRewriter::PatchHead(TefByteWriter& out, unsigned channels) const
{
    const TefOffsets& offsets = source_.GetOffsets();
    out.PatchDouble(offsets.scanSizeXOffset, source_.GetScanSize().GetValue());
    out.PatchDouble(offsets.scanSizeYOffset, source_.GetScanSizeY().GetValue());
    out.PatchWord(offsets.widthOffset, static_cast<std::uint16_t>(source_.GetSamplesPerLine(0)));
    out.PatchWord(offsets.heightOffset, static_cast<std::uint16_t>(source_.GetNumberOfLines(0)));
    const long long perChannel = offsets.channelBitsOffset != 0 ? kRecordsPerChannelWithBits : kRecordsPerChannel;
    const long long removed = source_.GetFileChannelCount() - static_cast<long long>(channels);
    out.PatchWord(offsets.documentLengthOffset + kParameterCountField,
                  static_cast<std::uint16_t>(source_.GetParameterCount() - removed * perChannel));
    out.PatchWord(offsets.documentLengthOffset + kChannelCountField, static_cast<std::uint16_t>(channels));
}

void TefRewriter::WriteRecords(TefByteWriter& out, unsigned channels) const
{
    using namespace Id;
    const TefOffsets& offsets = source_.GetOffsets();
    const std::vector<TefChannelInfo>& rows = source_.GetChannelTable();
    for (unsigned c = 0; c < channels; ++c)
        TextRecord(out, kUnit + c, source_.GetDataScaleName(c));
    for (unsigned c = 0; c < channels; ++c)
        DoubleRecord(out, kZRange + c, static_cast<double>(source_.GetZScaleInSwUnits(c)));
    if (offsets.channelCountOffset != 0)
        WordRecord(out, kChannelCount, static_cast<std::uint16_t>(channels));
    DoubleRecord(out, kXOffset, source_.GetXOffset().GetValue());
    DoubleRecord(out, kYOffset, source_.GetYOffset().GetValue());
    DoubleRecord(out, kKept119, source_.GetKept119());
    DoubleRecord(out, kKept120, source_.GetKept120());
    for (std::size_t r = 0; r < rows.size(); ++r)
        DoubleRecord(out, kRangeOrigin + static_cast<unsigned>(r), rows[r].rangeOrigin);
    for (std::size_t r = 0; r < rows.size(); ++r)
        DoubleRecord(out, kAuxiliary + static_cast<unsigned>(r), rows[r].auxiliary);
    for (std::size_t r = 0; r < rows.size(); ++r)
        TextRecord(out, kStoredName + static_cast<unsigned>(r), rows[r].name);
    RecordHead(out, kKept145, sizeof(std::uint32_t));
    out.Dword(source_.GetKept145());
    if (offsets.channelBitsOffset != 0) {
        for (unsigned c = 0; c < channels; ++c)
            WordRecord(out, kChannelBits + c, kWrittenBitsInUse);
    }
}

std::optional<std::vector<std::uint8_t>> TefRewriter::Rebuilt() const
{
    if (source_.GetItemCount() == 0)
        throw std::runtime_error(Message::kNoChannelData);
    const TefOffsets& offsets = source_.GetOffsets();
    // The rebuilt part begins with the record of the first channel's unit.
    if (offsets.unitsOffset < kRecordHeadSize)
        throw std::runtime_error(Message::kNoUnitsInOriginal);
    const int count = source_.GetNumberOfChannels();
    if (count < 0 || static_cast<std::size_t>(count) > source_.GetItemCount())
        throw std::runtime_error(Message::kChannelOutOfSynch);
    const auto channels = static_cast<unsigned>(count);
    // Every channel is counted as large as the first: each must have the
    // pixels for it, which also bounds the new file by what is held.
    const std::uint64_t pixels = std::uint64_t{source_.GetSamplesPerLine(0)} * source_.GetNumberOfLines(0);
    for (unsigned c = 0; c < channels; ++c)
        PixelsFor(c, pixels);

    const std::uint32_t head = offsets.unitsOffset - kRecordHeadSize;
    TefByteReader old(original_.data(), original_.size());
    const std::uint8_t* kept = old.Take(head);
    std::optional<std::vector<std::uint8_t>> bytes = Zeros(RebuiltSize(head, channels));
    if (!bytes)
        return std::nullopt;
    TefByteWriter out(*bytes, TefByteWriter::Overflow::Cut);
    out.Bytes({kept, head});
    UpdateNote(out);
    PatchHead(out, channels);

    WriteRecords(out, channels);
    const std::uint64_t parameters = offsets.documentLengthOffset + kLengthToParameters;
    out.PatchDword(offsets.documentLengthOffset, static_cast<std::uint32_t>(out.Position() - parameters));
    out.Word(kPreviewTag);
    out.Dword(0);
    out.PatchWord(offsets.bitsInUseOffset, kWrittenBitsInUse);

    old.Seek(offsets.firstChannelOffset);
    for (unsigned c = 0; c < channels; ++c)
        RebuildSection(c, old, out);
    return bytes;
}
