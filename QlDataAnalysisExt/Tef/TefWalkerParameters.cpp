// The parameter records of the document section.

#include "QlDataAnalysisExt/Tef/TefWalker.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace {

using namespace TefFormat::Id;

bool EqualsIgnoringCase(std::string_view a, std::string_view b)
{
    const auto fold = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return fold(x) == fold(y); });
}

// The per-channel groups: eight identifiers from the first, each for the
// channel of its distance from the first. A record for a channel the file
// does not have is consumed by its size and changes nothing.
struct TefWalkerChannelGroup {
    std::uint16_t first;
    bool boundByTableRows;  // else by the channel settings
    std::uint32_t TefOffsets::*offsetOfFirst;
    void (TefWalker::*read)(std::size_t channel, std::uint16_t size);
};

}  // namespace

// A value of the source that every channel's settings also hold.
template <class Value>
void TefWalker::Spread(Value TefDocument::*sourceField, Value TefChannelSettings::*channelField, Value value)
{
    document_.*sourceField = value;
    for (TefChannelSettings& settings : document_.channels)
        settings.*channelField = value;
}

void TefWalker::ReadParameters()
{
    std::int32_t read = 0;
    while (read < document_.parameterCount && static_cast<std::int64_t>(reader_.Position()) < parameterEnd_) {
        const std::uint16_t id = reader_.Word();
        const std::uint16_t size = reader_.Word();
        ReadParameter(id, size);
        ++read;
    }
    if (static_cast<std::int64_t>(reader_.Position()) != parameterEnd_)
        throw std::runtime_error(TefFormat::Message::kExpectingParameterEnd);
}

void TefWalker::ReadParameter(std::uint16_t id, std::uint16_t size)
{
    const auto at = static_cast<std::uint32_t>(reader_.Position());
    if (!ReadChannelGroupParameter(id, size, at))
        ReadSourceParameter(id, size, at);
}

bool TefWalker::ReadChannelGroupParameter(std::uint16_t id, std::uint16_t size, std::uint32_t at)
{
    static constexpr std::array<TefWalkerChannelGroup, 6> kGroups{{
        {kUnit, false, &TefOffsets::unitsOffset, &TefWalker::ReadUnit},
        {kZRange, false, &TefOffsets::zRangeOffset, &TefWalker::ReadZRange},
        {kRangeOrigin, true, nullptr, &TefWalker::ReadRangeOrigin},
        {kAuxiliary, true, nullptr, &TefWalker::ReadAuxiliary},
        {kStoredName, true, nullptr, &TefWalker::ReadStoredName},
        {kChannelBits, false, &TefOffsets::channelBitsOffset, &TefWalker::ReadChannelBits},
    }};
    for (const TefWalkerChannelGroup& group : kGroups) {
        if (id < group.first || id >= group.first + TefFormat::kChannelGroupSize)
            continue;
        if (id == group.first && group.offsetOfFirst)
            document_.offsets.*group.offsetOfFirst = at;
        const std::size_t channel = id - group.first;
        const std::size_t bound = group.boundByTableRows ? document_.channelTable.size() : document_.channels.size();
        if (channel < bound)
            (this->*group.read)(channel, size);
        else
            reader_.Skip(size);
        return true;
    }
    return false;
}

void TefWalker::ReadSourceParameter(std::uint16_t id, std::uint16_t size, std::uint32_t at)
{
    TefDocument& d = document_;
    switch (id) {
    case kScanSizeX:
        d.offsets.scanSizeXOffset = at;
        Spread(&TefDocument::scanSizeX, &TefChannelSettings::scanSizeX, DoubleValue(size));
        break;
    case kScanSizeY:
        d.offsets.scanSizeYOffset = at;
        Spread(&TefDocument::scanSizeY, &TefChannelSettings::scanSizeY, DoubleValue(size));
        break;
    case kFeedbackMode:
        d.feedbackMode = WordValue(size) == 1 ? TefFormat::kContactMode : TefFormat::kTappingMode;
        break;
    case kWidth:
        d.offsets.widthOffset = at;
        Spread(&TefDocument::width, &TefChannelSettings::width, WordValue(size));
        break;
    case kHeight:
        d.offsets.heightOffset = at;
        Spread(&TefDocument::height, &TefChannelSettings::height, WordValue(size));
        break;
    case kScanRate: d.scanRate = DoubleValue(size); break;
    case kTipSerialNumber: d.tipSerialNumber = reader_.Text(size); break;
    case kBitsInUse:
        d.offsets.bitsInUseOffset = at;
        d.bitsInUse = WordValue(size);
        for (TefChannelSettings& channel : d.channels)
            channel.bitsInUse = *d.bitsInUse;
        break;
    case kKept12: d.kept12 = DoubleValue(size); break;
    case kKept13: d.kept13 = DoubleValue(size); break;
    case kDateTime: d.dateTime = reader_.Text(size); break;
    case kRotation:
        // stored as a double, held as a float
        Spread(&TefDocument::rotation, &TefChannelSettings::rotation, static_cast<float>(DoubleValue(size)));
        break;
    case kValue19: Spread(&TefDocument::value19, &TefChannelSettings::value19, DoubleValue(size)); break;
    case kKept20: d.kept20 = reader_.Text(size); break;
    case kKept21: d.kept21 = reader_.Text(size); break;
    case kDrive: d.drive = DoubleValue(size); break;
    case kSetpoint: d.setpoint = DoubleValue(size); break;
    case kKept25: d.kept25 = DoubleValue(size); break;
    case kKept26: d.kept26 = DoubleValue(size); break;
    case kKept27: d.kept27 = DoubleValue(size); break;
    case kChannelCount: {
        d.offsets.channelCountOffset = at;
        if (WordValue(size) != d.fileChannelCount)
            throw std::runtime_error(TefFormat::Message::kTwoChannelCounts);
        break;
    }
    case kXOffset: d.xOffset = DoubleValue(size); break;
    case kYOffset: d.yOffset = DoubleValue(size); break;
    case kKept119: d.kept119 = DoubleValue(size); break;
    case kKept120: d.kept120 = DoubleValue(size); break;
    case kKept145: d.kept145 = DwordValue(size); break;
    default:
        // Identifiers of no use to us, new ones among them, pass by their size.
        reader_.Skip(size);
        break;
    }
}

void TefWalker::ReadUnit(std::size_t channel, std::uint16_t size)
{
    TefChannelSettings& settings = document_.channels[channel];
    std::string unit = reader_.Text(size);
    settings.unit = EqualsIgnoringCase(unit, TefFormat::kLegacyLogUnit) ? TefFormat::kLogUnit : std::move(unit);
    settings.unitReadAfterZRange = settings.zRange.has_value();
}

void TefWalker::ReadZRange(std::size_t channel, std::uint16_t size)
{
    TefChannelSettings& settings = document_.channels[channel];
    settings.zRange = DoubleValue(size);
    settings.zRangeUnit = settings.unit;
    settings.unitReadAfterZRange = false;
}

void TefWalker::ReadChannelBits(std::size_t channel, std::uint16_t size)
{
    document_.channels[channel].bitsInUse = WordValue(size);
}

void TefWalker::ReadRangeOrigin(std::size_t row, std::uint16_t size)
{
    document_.channelTable[row].rangeOrigin = DoubleValue(size);
}

void TefWalker::ReadAuxiliary(std::size_t row, std::uint16_t size)
{
    document_.channelTable[row].auxiliary = DoubleValue(size);
}

void TefWalker::ReadStoredName(std::size_t row, std::uint16_t size)
{
    document_.channelTable[row].name = reader_.Text(size);
}

// A WORD or DWORD record of size 0 passes, and its value is read all the
// same from the bytes behind it; a DOUBLE must have its 8 bytes.
std::uint16_t TefWalker::WordValue(std::uint16_t size)
{
    if (size != 0 && size != 2)
        throw std::runtime_error(TefFormat::Message::kExpectingWord);
    return reader_.Word();
}

std::uint32_t TefWalker::DwordValue(std::uint16_t size)
{
    if (size != 0 && size != 4)
        throw std::runtime_error(TefFormat::Message::kExpectingDword);
    return reader_.Dword();
}

double TefWalker::DoubleValue(std::uint16_t size)
{
    if (size != 8)
        throw std::runtime_error(TefFormat::Message::kExpectingDouble);
    return reader_.Double();
}
