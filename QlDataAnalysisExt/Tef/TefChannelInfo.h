#pragma once

#include <cstdint>
#include <string>

// One row of the channel table: what a file says of a channel beside its
// settings, and what a rebuilt file writes back for it.
struct TefChannelInfo {
    std::uint16_t subtype = 0;
    std::uint16_t type = 0;
    std::string name;  // as stored (137+i), before the naming table
    double rangeOrigin = 0.0;
    double auxiliary = 0.0;

    bool operator==(const TefChannelInfo&) const = default;
};
