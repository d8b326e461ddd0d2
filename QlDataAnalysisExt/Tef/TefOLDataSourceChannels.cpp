// What a walk over the file found, turned into the record of the source, one
// load record and one item per channel.

#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/Tef/TefDocument.h"

#include <algorithm>
#include <utility>

namespace {

constexpr const char* kMetricUnits = "Metric";
constexpr const char* kNanometres = "nm";
constexpr const char* kHertz = "Hz";

}  // namespace

std::int64_t TefOLDataSource::RawOffset(float zScale, double rangeOrigin)
{
    const double perCount = static_cast<double>(zScale) / kRawRange;
    const double middle = static_cast<double>(zScale * 0.5f) + rangeOrigin;
    // A Z scale of 0 has no counts to offset by.
    if (perCount == 0.0)
        return 0;
    return TruncateToInt32((middle * -1.0) / perCount + 0.5);
}

float TefOLDataSource::AspectRatio(double scanSizeX, double scanSizeY)
{
    if (scanSizeY == 0.0)
        return 1.0f;
    // Doubles beyond the float range become infinite, as IEEE floats have it.
    const auto height = static_cast<float>(scanSizeY);
    // A height too small for a float gives no ratio either.
    if (height == 0.0f)
        return 1.0f;
    return static_cast<float>(scanSizeX) / height;
}

std::optional<UValue> TefOLDataSource::InKnownUnit(double value, const std::string& unit)
{
    try {
        return UValue(value, unit);
    } catch (const UValue::XUnitNotFound&) {
        return std::nullopt;
    }
}

void TefOLDataSource::Adopt(TefDocument& document)
{
    AdoptSourceValues(document);
    // Only sections read whole become channels, so a head that claims more
    // channels than the file holds costs nothing; the tables are sized once,
    // as an item is large beside the bytes of an empty section.
    const auto read = static_cast<std::size_t>(
        std::find_if(document.sections.begin(), document.sections.end(),
                     [](const TefChannelSection& section) { return !section.complete; }) -
        document.sections.begin());
    const std::size_t count = std::min(read, document.channels.size());
    channelRecords.reserve(count);
    channelPixels.reserve(count);
    items.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        AdoptChannel(i, document.sections[i], document.channels[i], document.note);
}

void TefOLDataSource::AdoptSourceValues(const TefDocument& d)
{
    // Nothing is known of a file refused before its document head was read.
    if (d.fileVersion.empty())
        return;
    fileVersion = d.fileVersion;
    parameterCount = d.parameterCount;
    fileChannelCount = d.fileChannelCount;
    numberOfChannels = d.fileChannelCount;
    numberOfDisplayChannels = d.fileChannelCount;
    units = kMetricUnits;
    offsets = d.offsets;
    channelTable = d.channelTable;
    is16Bit = d.is16Bit;

    feedbackMode = d.feedbackMode;
    kept12 = d.kept12;
    kept13 = d.kept13;
    kept20 = d.kept20;
    kept21 = d.kept21;
    kept25 = d.kept25;
    kept26 = d.kept26;
    kept27 = d.kept27;
    kept119 = d.kept119;
    kept120 = d.kept120;
    kept145 = d.kept145;

    // Values without a record keep the defaults of the base.
    if (d.dateTime)
        date = *d.dateTime;
    if (d.tipSerialNumber)
        tipSerialNumber = *d.tipSerialNumber;
    if (d.scanRate) {
        scanRate = UValue(*d.scanRate, kHertz);
        scanRateValue = *d.scanRate;
    }
    if (d.xOffset)
        xOffset = UValue(*d.xOffset, kNanometres);
    if (d.yOffset)
        yOffset = UValue(*d.yOffset, kNanometres);
    if (d.drive)
        cantDrive = *d.drive;
    if (d.setpoint) {
        setpointSoft = UValue(*d.setpoint);
        setpointHard = UValue(*d.setpoint);
        hasSetpoint = true;
    }
}

void TefOLDataSource::AdoptChannel(std::size_t index, TefChannelSection& section, const TefChannelSettings& settings,
                                   const std::string& note)
{
    OLDataItemLoadRecord record;
    record.rows = section.height;
    record.columns = section.width;
    record.dataLength = static_cast<std::uint32_t>(section.dataSize);
    record.bitsPerPixel = section.bytesPerPixel * 8u;
    record.channelIndex = static_cast<std::uint32_t>(index);
    record.dataTypeDesc = section.displayName;
    record.dataName = section.displayName;
    record.lineDirection = section.lineDirection;

    // A scan size without its record stays a plain 0, as in the base.
    if (offsets.scanSizeXOffset != 0)
        record.scanSize = UValue(settings.scanSizeX, kNanometres);
    if (offsets.scanSizeYOffset != 0)
        record.scanSizeY = UValue(settings.scanSizeY, kNanometres);
    record.hasScanSizeY = true;
    record.aspectRatio = AspectRatio(settings.scanSizeX, settings.scanSizeY);
    record.rotateAngle = settings.rotation;

    SetChannelUnits(record, settings);
    if (index < channelTable.size())
        record.zOffset = RawOffset(record.softScale, channelTable[index].rangeOrigin);

    record.note = note;
    record.frameWidth = section.width;
    record.frameHeight = section.height;
    record.units = units;
    channelRecords.push_back(record);

    channelPixels.push_back(section.hasPixels ? std::move(section.pixels) : std::vector<std::int32_t>{});
    std::vector<std::int32_t>& pixels = channelPixels.back();
    OLDataItem item;
    item.SetFromLoadRecord(record);
    item.SetItemValue(settings.value19);
    if (!pixels.empty())
        item.SetData(pixels.data(), static_cast<std::uint32_t>(pixels.size()));
    appendItem(item);

    const auto channel = static_cast<unsigned>(index);
    SetScanSize(channel, record.scanSize);
    SetScanSizeOfChannel(channel, record.scanSizeY);
}

void TefOLDataSource::SetChannelUnits(OLDataItemLoadRecord& record, const TefChannelSettings& settings)
{
    record.softUnit = settings.unit;
    record.sensitivityUnit = settings.unit;
    if (!settings.zRange)
        return;
    const double zRange = *settings.zRange;
    record.softScale = static_cast<float>(zRange);
    if (std::optional<UValue> known = InKnownUnit(zRange, settings.zRangeUnit)) {
        record.zRange = *known;
        return;
    }
    // A unit the dictionary does not know leaves the number standing in
    // arbitrary units; the file still loads. A unit record read after the
    // Z range names the channel all the same.
    record.zRange = UValue(zRange, kArbitraryUnit);
    if (!settings.unitReadAfterZRange) {
        record.softUnit = kArbitraryUnit;
        record.sensitivityUnit = kArbitraryUnit;
    }
}
