#pragma once

// Small types shared by the data sources and their items.

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Orx::DataCore {
class DataFile;
class DataContainer;
}  // namespace Orx::DataCore

using UValue = Orx::Core::UnitizedValue<double>;
using DataFilePtr = std::shared_ptr<Orx::DataCore::DataFile>;
using DataContainerPtr = std::shared_ptr<Orx::DataCore::DataContainer>;

// The raw range of every sample: a scale is the value of 2^32 - 1 counts.
inline constexpr double kRawRange = 4294967295.0;
// The bit pattern that marks an invalid force point.
inline constexpr std::int32_t kInvalidForcePoint = static_cast<std::int32_t>(0x80000000u);

// One entry of a colour table, in the order blue, green, red, reserved.
struct ColorEntry {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t reserved = 0;
    bool operator==(const ColorEntry&) const = default;
};
using ColorEntries = std::array<ColorEntry, 256>;

// A colour table with the edit points it was made from: the positions of the
// red, green and blue edit points and the colour points.
struct ColorTableObject {
    bool interpolation = false;
    ColorEntries entries{};
    std::array<std::vector<std::uint32_t>, 3> positions;
    std::vector<std::uint32_t> colorPoints;
    bool operator==(const ColorTableObject&) const = default;
};

struct PlaneFitSettings {
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    std::uint32_t order = 5;
    bool operator==(const PlaneFitSettings&) const = default;
};

// A physical value that may be scaled by a sensitivity.
struct ScaleGroup {
    UValue value;
    double sensitivity = 1.0;
    std::string sensitivityUnits;
};

// Broken-down time of a file's date, as the C runtime's struct tm holds it.
struct OLDateTime {
    int seconds = 0;
    int minutes = 0;
    int hours = 0;
    int dayOfMonth = 0;
    int month = 0;
    int year = 0;
    int daylight = -1;
    bool valid = false;
};
