// Custom colour tables as keys of a channel's section: the edit points are
// stored, and the table is made again from them by the host's callback.

#include "QlDataAnalysisExt/ColorTables/ColorTableStore.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include "Platform/DataCore/DataContainer.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

struct ChannelKeys {
    const char* count;
    const char* point;
    std::uint8_t ColorEntry::*byte;
};

// red, green, blue in the order of the file
const ChannelKeys kEditPointKeys[3] = {
    {"Number of Red Edit Points", "Red Edit Point", &ColorEntry::red},
    {"Number of Green Edit Points", "Green Edit Point", &ColorEntry::green},
    {"Number of Blue Edit Points", "Blue Edit Point", &ColorEntry::blue},
};
const char* const kColorPointCount = "Number of Color Points";
const char* const kColorPoint = "Color Point";

std::string readText(const DataContainerPtr& section, const std::string& key) {
    std::string text;
    Orx::DataCore::ParameterRead(section, key, text);
    return text;
}

int readCount(const DataContainerPtr& section, const std::string& key) {
    return std::atoi(readText(section, key).c_str());
}

}  // namespace

void OLDataSource::ReadColorTable(const DataContainerPtr& section, OLDataItemColorSettings& settings) {
    if (!section) {
        return;
    }
    const bool favourite = readText(section, "New Favorite") == "Yes";
    settings.custom = readText(section, "Custom Color Table") == "Yes";
    if (!favourite && !settings.custom) {
        return;
    }
    settings.interpolation = false;
    if (section->HasKey("Interpolation Mode")) {
        settings.interpolation = readText(section, "Interpolation Mode") == "1";
    }

    ColorTableRequest request;
    request.interpolation = settings.interpolation;
    for (std::size_t ch = 0; ch < 3; ++ch) {
        const int count = readCount(section, kEditPointKeys[ch].count);
        for (int n = 0; n < count && n < 256; ++n) {
            int position = 0, value = 0;
            const std::string text = readText(section, kEditPointKeys[ch].point + std::to_string(n));
            // an unreadable point still counts, with what could be read and 0 for the rest
            std::sscanf(text.c_str(), "%d %d", &position, &value);
            settings.positions[ch].push_back(static_cast<std::uint32_t>(position));
            request.values[ch].push_back(static_cast<std::uint32_t>(value));
        }
        request.positions[ch] = settings.positions[ch];
    }
    const int colorPoints = readCount(section, kColorPointCount);
    // Each colour point is a key of the section, so no count beyond the keys can be read.
    const int boundedColorPoints = std::min<long long>(colorPoints, static_cast<long long>(section->GetKeys().size()));
    for (int n = 0; n < boundedColorPoints; ++n) {
        settings.colorPoints.push_back(
            static_cast<std::uint32_t>(std::atoi(readText(section, kColorPoint + std::to_string(n)).c_str())));
    }

    settings.entries = ColorEntries{};
    if (colorTableCallback) {
        colorTableCallback->CreateTable(request, settings.entries);
    }

    if (favourite) {
        settings.custom = false;
        ColorTableEditPointInfo info{settings.interpolation, settings.positions[0], settings.positions[1],
                                     settings.positions[2], settings.colorPoints};
        std::int32_t index = 12;
        if (!MatchesCustomColorTable(settings.entries, info, index)) {
            index = AddCustomColorTable(settings.entries, info);
        }
        settings.index = index;
    }
}

void OLDataSource::WriteColorTable(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                                   const std::string& sectionName, std::int32_t index) {
    if (!section) {
        return;
    }
    auto remove = [&](const std::string& key) { WriteChannelData(file, section, channel, sectionName, key); };
    for (const char* key : {"New Favorite", "Custom Color Table", "Interpolation Mode"}) {
        remove(key);
    }
    for (const auto& keys : kEditPointKeys) {
        const int count = readCount(section, keys.count);
        remove(keys.count);
        for (int n = 0; n < count && section->HasKey(keys.point + std::to_string(n)); ++n) {
            remove(keys.point + std::to_string(n));
        }
    }
    {
        const int count = readCount(section, kColorPointCount);
        remove(kColorPointCount);
        for (int n = 0; n < count && section->HasKey(kColorPoint + std::to_string(n)); ++n) {
            remove(kColorPoint + std::to_string(n));
        }
    }

    const OLDataItem& item = readItem(channel);
    if (!item.HasColorTable() && index < kFirstCustomColorTable) {
        return;
    }
    // Each key goes behind the one written before it.
    std::string previous = "Color Table Index";
    auto set = [&](const std::string& key, const std::string& value) {
        WriteChannelHeader(file, section, channel, sectionName, key, value, previous);
        previous = key;
    };

    set("New Favorite", "No");
    ColorTableObject table;
    if (index >= kFirstCustomColorTable) {
        set("New Favorite", "Yes");
        CreateColorTable(index, 256, table.entries);
        const auto info = GetColorTableEditPoints(index);
        table.interpolation = info.interpolation;
        table.positions = {info.red, info.green, info.blue};
        table.colorPoints = info.colorPoints;
    }
    if (item.HasColorTable()) {
        set("Custom Color Table", "Yes");
        table = item.GetColorTable();
    }
    set("Interpolation Mode", table.interpolation ? "1" : "0");
    for (std::size_t ch = 0; ch < 3; ++ch) {
        const auto& positions = table.positions[ch];
        set(kEditPointKeys[ch].count, std::to_string(positions.size()));
        for (std::size_t n = 0; n < positions.size(); ++n) {
            const std::uint32_t position = positions[n];
            const unsigned value = position < table.entries.size() ? table.entries[position].*kEditPointKeys[ch].byte : 0u;
            set(kEditPointKeys[ch].point + std::to_string(n), std::to_string(position) + " " + std::to_string(value));
        }
    }
    set(kColorPointCount, std::to_string(table.colorPoints.size()));
    for (std::size_t n = 0; n < table.colorPoints.size(); ++n) {
        set(kColorPoint + std::to_string(n), std::to_string(table.colorPoints[n]));
    }
}
