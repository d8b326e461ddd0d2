#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace Orx::Core {

// The out-of-memory exception of a save, with the words a user sees.
class BadAllocation : public std::bad_alloc {
public:
    const char* what() const noexcept override { return "bad allocation"; }
};

// Allocates every block at once and frees them all, so that a save fails
// before it touches a file rather than halfway. Raises BadAllocation.
void ProbeMemory(const std::vector<std::size_t>& blockSizes);

// Test seam: the probe fails as if the memory were exhausted.
void SetMemoryProbeFailureForTesting(bool fail);

}  // namespace Orx::Core
