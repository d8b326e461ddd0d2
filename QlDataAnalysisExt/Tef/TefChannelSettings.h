#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The parameter values of one channel, made for every channel of the
// document head before the first record is read. Values that a record gives
// to all channels are copied into each.
struct TefChannelSettings {
    std::string unit;  // 100+i, with the old log unit spelled anew
    std::optional<double> zRange;  // 108+i
    // The unit as it stood when the Z range was read: a Z range is in the
    // unit read before it, and a later unit record leaves it alone.
    std::string zRangeUnit;
    bool unitReadAfterZRange = false;
    // 11 for all channels, 146+i for this one; the record read last wins.
    std::uint16_t bitsInUse = 16;

    double scanSizeX = 0.0;  // nm
    double scanSizeY = 0.0;  // nm
    // Without records 7 and 8 a channel keeps an item's own default size,
    // and its section is tested against that.
    std::uint16_t width = 512;
    std::uint16_t height = 1;
    float rotation = 0.0f;
    double value19 = 0.0;

    bool operator==(const TefChannelSettings&) const = default;
};
