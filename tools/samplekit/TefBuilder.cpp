#include "tools/samplekit/TefBuilder.h"

#include "Platform/FileSystem.h"

#include <algorithm>
#include <bit>

namespace SampleKit {

namespace {

void Append(std::vector<std::uint8_t>& out, const std::vector<std::uint8_t>& bytes)
{
    out.insert(out.end(), bytes.begin(), bytes.end());
}

// Little-endian, in as many bytes as asked (at most 8).
void AppendValue(std::vector<std::uint8_t>& out, std::uint64_t value, std::size_t bytes)
{
    for (std::size_t i = 0; i < bytes && i < 8; ++i)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

TefBuilder::Record MakeRecord(std::uint16_t id, std::vector<std::uint8_t> value)
{
    return TefBuilder::Record{id, std::move(value), std::nullopt};
}

// Pairs of type and subtype given to channels in turn: names from the table,
// one that keeps its stored name, and one the table does not know.
constexpr std::uint16_t kKinds[][2] = {{1, 1}, {6, 6}, {3, 5}, {4, 16}, {2, 19}, {11, 8}, {14, 23}, {15, 1}};

}  // namespace

TefBuilder::TefBuilder(std::uint16_t count, std::uint16_t width, std::uint16_t height, std::uint16_t bytesPerPixel)
    : channelCount(count), records(StandardRecords(count, width, height))
{
    for (std::size_t i = 0; i < count; ++i)
        channels.push_back(StandardChannel(i, width, height, bytesPerPixel));
}

std::vector<TefBuilder::Record> TefBuilder::StandardRecords(std::uint16_t count, std::uint16_t width,
                                                            std::uint16_t height)
{
    const std::size_t grouped = std::min<std::size_t>(count, 8);
    const auto perChannel = [&](std::vector<Record>& out, std::uint16_t first, auto value) {
        for (std::size_t i = 0; i < grouped; ++i)
            out.push_back(MakeRecord(static_cast<std::uint16_t>(first + i), value(i)));
    };
    std::vector<Record> out{
        MakeRecord(2, Double(kScanSizeX)),
        MakeRecord(3, Double(kScanSizeY)),
        MakeRecord(6, Word(kFeedbackMode)),
        MakeRecord(7, Word(width)),
        MakeRecord(8, Word(height)),
        MakeRecord(9, Double(kScanRate)),
        MakeRecord(10, Text(kTipSerialNumber)),
        MakeRecord(11, Word(kBitsInUse)),
        MakeRecord(12, Double(12.5)),
        MakeRecord(13, Double(13.5)),
        MakeRecord(16, Text(kDateTime)),
        MakeRecord(18, Double(kRotation)),
        MakeRecord(19, Double(kValue19)),
        MakeRecord(20, Text("kept twenty")),
        MakeRecord(21, Text("kept twenty-one")),
        MakeRecord(23, Double(kDrive)),
        MakeRecord(24, Double(kSetpoint)),
        MakeRecord(25, Double(25.5)),
        MakeRecord(26, Double(26.5)),
        MakeRecord(27, Double(27.5)),
    };
    perChannel(out, 100, [](std::size_t) { return Text(kUnit); });
    perChannel(out, 108, [](std::size_t i) { return Double(kZRange + static_cast<double>(i)); });
    out.push_back(MakeRecord(116, Word(count)));
    out.push_back(MakeRecord(117, Double(kXOffset)));
    out.push_back(MakeRecord(118, Double(kYOffset)));
    out.push_back(MakeRecord(119, Double(119.5)));
    out.push_back(MakeRecord(120, Double(120.5)));
    perChannel(out, 121, [](std::size_t i) { return Double(kRangeOrigin - static_cast<double>(i)); });
    perChannel(out, 129, [](std::size_t i) { return Double(kAuxiliary * static_cast<double>(i + 1)); });
    perChannel(out, 137, [](std::size_t i) { return Text("Stored " + std::to_string(i)); });
    out.push_back(MakeRecord(145, Dword(kKept145)));
    perChannel(out, 146, [](std::size_t) { return Word(kBitsInUse); });
    return out;
}

TefBuilder::Channel TefBuilder::StandardChannel(std::size_t index, std::uint16_t width, std::uint16_t height,
                                                std::uint16_t bytesPerPixel)
{
    Channel channel;
    const auto& kind = kKinds[index % std::size(kKinds)];
    channel.type = kind[0];
    channel.subtype = kind[1];
    channel.direction = index % 2 == 0 ? 1 : 2;
    for (std::uint8_t i = 0; i < 8; ++i)
        channel.headerRest.push_back(static_cast<std::uint8_t>(0xC0 + 16 * (index % 4) + i));
    for (std::uint8_t i = 0; i < channel.imageHead.size(); ++i)
        channel.imageHead[i] = static_cast<std::uint8_t>(0x40 + i);
    channel.width = width;
    channel.height = height;
    channel.bytesPerPixel = bytesPerPixel;
    channel.pixels = Ramp(static_cast<std::size_t>(width) * height, bytesPerPixel);
    return channel;
}

TefBuilder::Record* TefBuilder::Find(std::uint16_t id)
{
    auto found = std::find_if(records.begin(), records.end(), [id](const Record& r) { return r.id == id; });
    return found == records.end() ? nullptr : &*found;
}

TefBuilder::Record& TefBuilder::Set(std::uint16_t id, std::vector<std::uint8_t> value)
{
    Record* record = Find(id);
    if (!record)
        record = &records.emplace_back(Record{id, {}, std::nullopt});
    record->value = std::move(value);
    return *record;
}

void TefBuilder::Remove(std::uint16_t id)
{
    std::erase_if(records, [id](const Record& r) { return r.id == id; });
}

void TefBuilder::InsertBefore(std::uint16_t beforeId, Record record)
{
    auto at = std::find_if(records.begin(), records.end(), [beforeId](const Record& r) { return r.id == beforeId; });
    records.insert(at, std::move(record));
}

std::vector<std::uint8_t> TefBuilder::Bytes() const
{
    std::vector<std::uint8_t> out(note.begin(), note.end());
    if (noteEnd)
        out.push_back(0x1A);

    std::vector<std::uint8_t> parameters;
    for (const Record& record : records) {
        AppendValue(parameters, record.id, 2);
        AppendValue(parameters, record.size.value_or(static_cast<std::uint16_t>(record.value.size())), 2);
        Append(parameters, record.value);
    }
    AppendValue(out, documentTag, 2);
    AppendValue(out, static_cast<std::uint32_t>(parameterLength.value_or(static_cast<std::int32_t>(parameters.size()))),
                4);
    AppendValue(out, majorVersion, 2);
    AppendValue(out, minorVersion, 2);
    AppendValue(out, parameterCount.value_or(static_cast<std::uint16_t>(records.size())), 2);
    AppendValue(out, channelCount, 2);
    Append(out, parameters);

    AppendValue(out, previewTag, 2);
    AppendValue(out, static_cast<std::uint32_t>(previewLength.value_or(static_cast<std::int32_t>(preview.size()))), 4);
    Append(out, preview);

    for (const Channel& channel : channels) {
        const std::size_t pixelBytes = channel.pixels.size() * channel.bytesPerPixel;
        AppendValue(out, channel.tag, 2);
        AppendValue(out,
                    static_cast<std::uint32_t>(
                        channel.headerLength.value_or(static_cast<std::int32_t>(8 + channel.headerRest.size()))),
                    4);
        AppendValue(out, channel.type, 2);
        AppendValue(out, channel.subtype, 2);
        AppendValue(out, channel.direction, 2);
        AppendValue(out, channel.processingSteps, 2);
        Append(out, channel.headerRest);
        AppendValue(out, channel.imageTag, 2);
        AppendValue(out, channel.imageLength.value_or(static_cast<std::uint32_t>(26 + pixelBytes)), 4);
        out.insert(out.end(), channel.imageHead.begin(), channel.imageHead.end());
        AppendValue(out, channel.width, 2);
        AppendValue(out, channel.height, 2);
        AppendValue(out, channel.bytesPerPixel, 2);
        out.insert(out.end(), channel.reserved.begin(), channel.reserved.end());
        for (std::uint32_t pixel : channel.pixels)
            AppendValue(out, pixel, std::min<std::size_t>(channel.bytesPerPixel, 4));
    }
    Append(out, trailer);
    return out;
}

void TefBuilder::Save(const std::string& path) const
{
    const std::vector<std::uint8_t> bytes = Bytes();
    Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
}

std::vector<std::uint8_t> TefBuilder::Word(std::uint16_t value)
{
    std::vector<std::uint8_t> out;
    AppendValue(out, value, 2);
    return out;
}

std::vector<std::uint8_t> TefBuilder::Dword(std::uint32_t value)
{
    std::vector<std::uint8_t> out;
    AppendValue(out, value, 4);
    return out;
}

std::vector<std::uint8_t> TefBuilder::Double(double value)
{
    std::vector<std::uint8_t> out;
    AppendValue(out, std::bit_cast<std::uint64_t>(value), 8);
    return out;
}

std::vector<std::uint8_t> TefBuilder::Text(const std::string& value)
{
    return std::vector<std::uint8_t>(value.begin(), value.end());
}

std::vector<std::uint32_t> TefBuilder::Ramp(std::size_t count, std::uint16_t bytesPerPixel)
{
    std::vector<std::uint32_t> out(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto step = static_cast<std::uint32_t>(i);
        out[i] = bytesPerPixel >= 4 ? step * 2654435761u : (step * 4099u + 7u) & 0xFFFFu;
    }
    return out;
}

}  // namespace SampleKit
