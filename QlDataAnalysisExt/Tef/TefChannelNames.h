#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "QlDataAnalysisExt/Tef/TefChannelInfo.h"

// The displayed names of channels, by channel type and subtype.
class TefChannelNames {
public:
    // The name the table gives a pair, or nothing where the stored name
    // stands: a pair not in the table, or one marked to keep its stored name.
    static std::optional<std::string> Lookup(std::uint16_t type, std::uint16_t subtype);

    // The name shown for the channel of a row: the table's name where it has
    // one, else the stored name; empty for a row the table does not hold.
    static std::string Resolve(const std::vector<TefChannelInfo>& table, std::size_t row);
};
