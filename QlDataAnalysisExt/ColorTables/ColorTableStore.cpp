#include "QlDataAnalysisExt/ColorTables/ColorTableStore.h"

#include <algorithm>
#include <mutex>

namespace {

// A colour stop of a standard table: position 0..255 and its colour.
struct Stop {
    std::uint8_t position, red, green, blue;
};

struct StandardTable {
    const char* name;
    std::vector<Stop> stops;
};

// The standard tables, each defined by its edit points.
const std::vector<StandardTable>& standardTables() {
    static const std::vector<StandardTable> tables = {
        {"Gray", {{0, 0, 0, 0}, {255, 255, 255, 255}}},
        {"Inverted Gray", {{0, 255, 255, 255}, {255, 0, 0, 0}}},
        {"Hot", {{0, 0, 0, 0}, {96, 255, 0, 0}, {192, 255, 255, 0}, {255, 255, 255, 255}}},
        {"Cool", {{0, 0, 255, 255}, {255, 255, 0, 255}}},
        {"Copper", {{0, 0, 0, 0}, {204, 255, 160, 102}, {255, 255, 199, 127}}},
        {"Bone", {{0, 0, 0, 0}, {96, 84, 84, 116}, {192, 169, 200, 200}, {255, 255, 255, 255}}},
        {"Rainbow", {{0, 0, 0, 143}, {32, 0, 0, 255}, {96, 0, 255, 255}, {160, 255, 255, 0}, {224, 255, 0, 0}, {255, 128, 0, 0}}},
        {"Viridis", {{0, 68, 1, 84}, {64, 59, 82, 139}, {128, 33, 145, 140}, {192, 94, 201, 98}, {255, 253, 231, 37}}},
        {"Magma", {{0, 0, 0, 4}, {64, 81, 18, 124}, {128, 183, 55, 121}, {192, 252, 137, 97}, {255, 252, 253, 191}}},
        {"Plasma", {{0, 13, 8, 135}, {64, 126, 3, 168}, {128, 204, 71, 120}, {192, 248, 149, 64}, {255, 240, 249, 33}}},
        {"Inferno", {{0, 0, 0, 4}, {64, 87, 16, 110}, {128, 188, 55, 84}, {192, 249, 142, 9}, {255, 252, 255, 164}}},
        {"Cividis", {{0, 0, 34, 78}, {128, 124, 123, 120}, {255, 254, 232, 56}}},
        {"Gold", {{0, 0, 0, 0}, {85, 128, 51, 0}, {170, 230, 153, 51}, {255, 255, 255, 204}}},
        {"Ocean", {{0, 0, 128, 0}, {85, 0, 0, 85}, {170, 0, 128, 170}, {255, 255, 255, 255}}},
        {"Terrain", {{0, 51, 51, 153}, {38, 0, 153, 255}, {64, 0, 204, 102}, {128, 255, 255, 153}, {192, 128, 92, 84}, {255, 255, 255, 255}}},
        {"Seismic", {{0, 0, 0, 77}, {64, 0, 0, 255}, {128, 255, 255, 255}, {192, 255, 0, 0}, {255, 128, 0, 0}}},
        {"Spectral", {{0, 158, 1, 66}, {64, 244, 109, 67}, {128, 255, 255, 191}, {192, 102, 194, 165}, {255, 94, 79, 162}}},
        {"Cubehelix", {{0, 0, 0, 0}, {64, 22, 69, 74}, {128, 161, 121, 74}, {192, 199, 176, 234}, {255, 255, 255, 255}}},
        {"Spring", {{0, 255, 0, 255}, {255, 255, 255, 0}}},
        {"Summer", {{0, 0, 128, 102}, {255, 255, 255, 102}}},
        {"Autumn", {{0, 255, 0, 0}, {255, 255, 255, 0}}},
        {"Winter", {{0, 0, 0, 255}, {255, 0, 255, 128}}},
        {"Pink", {{0, 30, 0, 0}, {96, 196, 137, 137}, {192, 231, 231, 180}, {255, 255, 255, 255}}},
        {"Red", {{0, 0, 0, 0}, {255, 255, 0, 0}}},
        {"Green", {{0, 0, 0, 0}, {255, 0, 255, 0}}},
        {"Blue", {{0, 0, 0, 0}, {255, 0, 0, 255}}},
    };
    return tables;
}

struct CustomTable {
    ColorEntries entries;
    ColorTableEditPointInfo info;
};

std::mutex& storeMutex() {
    static std::mutex m;
    return m;
}

std::vector<CustomTable>& customTables() {
    static std::vector<CustomTable> tables;
    return tables;
}

void fillStandard(const StandardTable& table, ColorEntries& entries) {
    std::vector<std::uint32_t> positions, red, green, blue;
    for (const auto& s : table.stops) {
        positions.push_back(s.position);
        red.push_back(s.red);
        green.push_back(s.green);
        blue.push_back(s.blue);
    }
    InterpolateChannel(positions, red, entries, &ColorEntry::red);
    InterpolateChannel(positions, green, entries, &ColorEntry::green);
    InterpolateChannel(positions, blue, entries, &ColorEntry::blue);
}

}  // namespace

void InterpolateChannel(const std::vector<std::uint32_t>& positions, const std::vector<std::uint32_t>& values,
                        ColorEntries& entries, std::uint8_t ColorEntry::*channel) {
    // Points sorted by position; a position beyond the table is ignored.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> points;
    const std::size_t n = std::min(positions.size(), values.size());
    for (std::size_t i = 0; i < n; ++i) {
        if (positions[i] < entries.size()) {
            points.emplace_back(positions[i], std::min<std::uint32_t>(values[i], 255));
        }
    }
    if (points.empty()) {
        return;
    }
    std::stable_sort(points.begin(), points.end(), [](auto& a, auto& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto pos = static_cast<std::uint32_t>(i);
        std::uint32_t value;
        if (pos <= points.front().first) {
            value = points.front().second;
        } else if (pos >= points.back().first) {
            value = points.back().second;
        } else {
            auto hi = std::upper_bound(points.begin(), points.end(), pos,
                                       [](std::uint32_t p, const auto& e) { return p < e.first; });
            auto lo = hi - 1;
            const double t = double(pos - lo->first) / double(hi->first - lo->first);
            value = static_cast<std::uint32_t>(lo->second + t * (double(hi->second) - double(lo->second)) + 0.5);
        }
        entries[i].*channel = static_cast<std::uint8_t>(value);
    }
}

ColorTableEditPointInfo GetColorTableEditPoints(std::int32_t index) {
    ColorTableEditPointInfo info;
    const auto& standard = standardTables();
    if (index >= 0 && index < static_cast<std::int32_t>(standard.size())) {
        for (const auto& s : standard[static_cast<std::size_t>(index)].stops) {
            info.red.push_back(s.position);
            info.green.push_back(s.position);
            info.blue.push_back(s.position);
        }
        return info;
    }
    std::lock_guard<std::mutex> lock(storeMutex());
    const auto slot = static_cast<std::size_t>(index - kFirstCustomColorTable);
    if (index >= kFirstCustomColorTable && slot < customTables().size()) {
        return customTables()[slot].info;
    }
    return info;
}

std::int32_t AddCustomColorTable(const ColorEntries& entries, const ColorTableEditPointInfo& info) {
    std::lock_guard<std::mutex> lock(storeMutex());
    customTables().push_back({entries, info});
    return kFirstCustomColorTable + static_cast<std::int32_t>(customTables().size() - 1);
}

bool MatchesCustomColorTable(const ColorEntries& entries, const ColorTableEditPointInfo& info, std::int32_t& index) {
    std::lock_guard<std::mutex> lock(storeMutex());
    const auto& tables = customTables();
    for (std::size_t i = 0; i < tables.size(); ++i) {
        if (tables[i].entries == entries && tables[i].info == info) {
            index = kFirstCustomColorTable + static_cast<std::int32_t>(i);
            return true;
        }
    }
    return false;
}

void CreateColorTable(std::int32_t index, int count, ColorEntries& entries) {
    if (count != static_cast<int>(entries.size())) {
        return;
    }
    entries = ColorEntries{};
    const auto& standard = standardTables();
    if (index >= 0 && index < static_cast<std::int32_t>(standard.size())) {
        fillStandard(standard[static_cast<std::size_t>(index)], entries);
        return;
    }
    std::lock_guard<std::mutex> lock(storeMutex());
    const auto slot = static_cast<std::size_t>(index - kFirstCustomColorTable);
    if (index >= kFirstCustomColorTable && slot < customTables().size()) {
        entries = customTables()[slot].entries;
    }
}

std::size_t CustomColorTableCount() {
    std::lock_guard<std::mutex> lock(storeMutex());
    return customTables().size();
}

const char* StandardColorTableName(std::int32_t index) {
    const auto& standard = standardTables();
    if (index >= 0 && index < static_cast<std::int32_t>(standard.size())) {
        return standard[static_cast<std::size_t>(index)].name;
    }
    return "";
}
