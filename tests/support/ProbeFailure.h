#pragma once

// Fails the probe of a save's memory while it lives, as if the memory a save
// needs could not be had.

#include "Platform/MemoryProbe.h"

namespace TestSupport {

class ProbeFailure {
public:
    ProbeFailure() { Orx::Core::SetMemoryProbeFailureForTesting(true); }
    ~ProbeFailure() { Orx::Core::SetMemoryProbeFailureForTesting(false); }
    ProbeFailure(const ProbeFailure&) = delete;
    ProbeFailure& operator=(const ProbeFailure&) = delete;
};

}  // namespace TestSupport
