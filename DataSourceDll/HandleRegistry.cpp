#include "DataSourceDll/HandleRegistry.h"

#include <cstdint>
#include <unordered_map>

namespace {

struct Registry {
    std::mutex mutex;
    std::uint64_t lastNumber = 0;
    std::unordered_map<std::uint64_t, std::shared_ptr<HandleRegistry::Entry>> entries;
};

Registry& registry() {
    static Registry r;
    return r;
}

std::uint64_t numberOf(DataSourceDllHandle* handle) { return reinterpret_cast<std::uintptr_t>(handle); }

}  // namespace

HandleRegistry::Lease::Lease(DataSourceDllHandle* handle) noexcept {
    // A lock that cannot be taken leaves the lease without a source: the
    // call then answers as for an unknown handle, and nothing is raised.
    try {
        auto entry = Find(handle);
        if (entry) {
            lock_ = std::unique_lock<std::mutex>(entry->mutex);
            entry_ = std::move(entry);
        }
    } catch (...) {
        lock_ = {};
        entry_.reset();
    }
}

DataSourceDllHandle* HandleRegistry::Add(std::shared_ptr<Entry> entry) {
    if (!entry) {
        return nullptr;
    }
    auto& r = registry();
    std::lock_guard<std::mutex> lock(r.mutex);
    const std::uint64_t number = ++r.lastNumber;
    r.entries.emplace(number, std::move(entry));
    return reinterpret_cast<DataSourceDllHandle*>(static_cast<std::uintptr_t>(number));
}

std::shared_ptr<HandleRegistry::Entry> HandleRegistry::Remove(DataSourceDllHandle* handle) {
    auto& r = registry();
    std::lock_guard<std::mutex> lock(r.mutex);
    const auto it = r.entries.find(numberOf(handle));
    if (it == r.entries.end()) {
        return nullptr;
    }
    auto entry = std::move(it->second);
    r.entries.erase(it);
    return entry;
}

std::shared_ptr<HandleRegistry::Entry> HandleRegistry::Find(DataSourceDllHandle* handle) {
    if (!handle) {
        return nullptr;
    }
    auto& r = registry();
    std::lock_guard<std::mutex> lock(r.mutex);
    const auto it = r.entries.find(numberOf(handle));
    return it == r.entries.end() ? nullptr : it->second;
}
