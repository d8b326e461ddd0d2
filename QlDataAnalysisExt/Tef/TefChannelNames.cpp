#include "QlDataAnalysisExt/Tef/TefChannelNames.h"

#include <array>

namespace {

struct NameEntry {
    std::uint16_t type;
    std::uint16_t subtype;
    const char* name;  // null: the stored name stands
};

// Types 5 and 11 both name subtype 8 "Friction (LOC Amplitude)", and the
// frequency of Lift is 22 where that of Elasticity is 23: files carry these
// pairs as they are.
constexpr std::array kNames{
    NameEntry{1, 1, "Topography"},
    NameEntry{1, 2, "ZSensor"},
    NameEntry{2, 4, "Lift"},
    NameEntry{2, 18, "Lift (Amplitude)"},
    NameEntry{2, 19, "Lift (Phase)"},
    NameEntry{2, 22, "Lift (Frequency)"},
    NameEntry{3, 3, "Error (Interferometer)"},
    NameEntry{3, 5, "Error (Amplitude)"},
    NameEntry{3, 7, "Error (Frequency)"},
    NameEntry{4, 8, "Extern (LOC Amplitude)"},
    NameEntry{4, 9, "Extern (LOC Phase)"},
    NameEntry{4, 10, "Extern (PM Channel1)"},
    NameEntry{4, 11, "Extern (PM Channel2)"},
    NameEntry{4, 12, "Extern (PM Feedback)"},
    NameEntry{4, 16, nullptr},
    NameEntry{5, 8, "Friction (LOC Amplitude)"},
    NameEntry{6, 6, "Phase"},
    NameEntry{7, 13, "Capacity"},
    NameEntry{8, 5, "Amplitude"},
    NameEntry{9, 7, "Frequency"},
    NameEntry{10, 10, "SSPM (PM Channel1)"},
    NameEntry{10, 11, "SSPM (PM Channel2)"},
    NameEntry{10, 12, "SSPM (PM Feedback)"},
    NameEntry{11, 8, "Friction (LOC Amplitude)"},
    NameEntry{11, 9, "Friction (LOC Phase)"},
    NameEntry{11, 10, "Friction (PM Channel1)"},
    NameEntry{11, 11, "Friction (PM Channel2)"},
    NameEntry{11, 14, "Friction (SW Amplitude)"},
    NameEntry{11, 15, "Friction (SW Phase)"},
    NameEntry{12, 10, "FMM (PM Channel1)"},
    NameEntry{12, 11, "FMM (PM Channel2)"},
    NameEntry{13, 16, nullptr},
    NameEntry{14, 17, "Elasticity"},
    NameEntry{14, 20, "Elasticity (Amplitude)"},
    NameEntry{14, 21, "Elasticity (Phase)"},
    NameEntry{14, 23, "Elasticity (Frequency)"},
};

}  // namespace

std::optional<std::string> TefChannelNames::Lookup(std::uint16_t type, std::uint16_t subtype)
{
    for (const NameEntry& entry : kNames) {
        if (entry.type == type && entry.subtype == subtype && entry.name)
            return std::string(entry.name);
    }
    return std::nullopt;
}

std::string TefChannelNames::Resolve(const std::vector<TefChannelInfo>& table, std::size_t row)
{
    if (row >= table.size())
        return {};
    const TefChannelInfo& info = table[row];
    return Lookup(info.type, info.subtype).value_or(info.name);
}
