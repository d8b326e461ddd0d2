#pragma once

// The process's colour tables: the standard tables below index 26, each made
// from its edit points, and the list of custom tables that files add.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cstdint>
#include <vector>

struct ColorTableEditPointInfo {
    bool interpolation = false;
    std::vector<std::uint32_t> red;
    std::vector<std::uint32_t> green;
    std::vector<std::uint32_t> blue;
    std::vector<std::uint32_t> colorPoints;
    bool operator==(const ColorTableEditPointInfo&) const = default;
};

inline constexpr std::int32_t kFirstCustomColorTable = 26;

ColorTableEditPointInfo GetColorTableEditPoints(std::int32_t index);
std::int32_t AddCustomColorTable(const ColorEntries& entries, const ColorTableEditPointInfo& info);
bool MatchesCustomColorTable(const ColorEntries& entries, const ColorTableEditPointInfo& info, std::int32_t& index);
void CreateColorTable(std::int32_t index, int count, ColorEntries& entries);

// Linear interpolation of one colour channel between edit points (position,
// value), constant beyond the first and the last.
void InterpolateChannel(const std::vector<std::uint32_t>& positions, const std::vector<std::uint32_t>& values,
                        ColorEntries& entries, std::uint8_t ColorEntry::*channel);

std::size_t CustomColorTableCount();
// The standard table names, for hosts that list them.
const char* StandardColorTableName(std::int32_t index);
