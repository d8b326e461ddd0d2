#pragma once

#include "tools/dstool/CommandLine.h"

namespace Dstool {

// The units in which a command reads data: raw counts, hardware volts, the
// channel's physical unit, or force for force curves.
enum class DataUnits { Raw, Volts, Metric, Force };

// What the flags --raw, --volts, --metric (the default) and --force ask
// for; more than one of them is a usage mistake.
DataUnits UnitsOf(const CommandLine& line);

}  // namespace Dstool
