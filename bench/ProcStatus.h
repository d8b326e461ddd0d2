#pragma once

// The process's own memory figures, as the kernel keeps them in
// /proc/self/status.

#include <cstdint>
#include <string>

class ProcStatus {
public:
    // A field such as "VmHWM" (peak resident size) or "VmRSS", in bytes; 0
    // when the field is missing.
    static std::uint64_t Bytes(const std::string& field);
    // Starts the peak resident size afresh from the present one; false where
    // the kernel does not offer it.
    static bool ResetPeak();
};
