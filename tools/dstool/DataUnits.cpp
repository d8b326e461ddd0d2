#include "tools/dstool/DataUnits.h"

namespace Dstool {

DataUnits UnitsOf(const CommandLine& line)
{
    const std::optional<std::string> units = line.OneOf({"raw", "volts", "metric", "force"});
    if (units == "raw")
        return DataUnits::Raw;
    if (units == "volts")
        return DataUnits::Volts;
    if (units == "force")
        return DataUnits::Force;
    return DataUnits::Metric;
}

}  // namespace Dstool
