#include "Platform/MemoryProbe.h"

#include <atomic>
#include <cstdlib>
#include <memory>

namespace Orx::Core {

namespace {
std::atomic<bool> failForTesting{false};
}

void ProbeMemory(const std::vector<std::size_t>& blockSizes) {
    if (failForTesting.load()) {
        throw BadAllocation();
    }
    struct Free {
        void operator()(void* p) const { std::free(p); }
    };
    std::vector<std::unique_ptr<void, Free>> blocks;
    blocks.reserve(blockSizes.size());
    for (std::size_t size : blockSizes) {
        void* p = std::malloc(size == 0 ? 1 : size);
        if (!p) {
            throw BadAllocation();
        }
        blocks.emplace_back(p);
    }
}

void SetMemoryProbeFailureForTesting(bool fail) { failForTesting = fail; }

}  // namespace Orx::Core
