#pragma once

// The open handles of the process. A handle given to a host is a number
// that is never used twice, not an address: a closed, stale or made-up
// handle is simply not found, so it answers like a missing file instead of
// reaching freed memory.

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/SourceSlot.h"

#include <memory>
#include <mutex>

class HandleRegistry {
public:
    // One handle's source, with the lock that its readers take: two threads
    // may use one handle, one after the other, and two handles at once.
    struct Entry {
        SourceSlot slot;
        std::mutex mutex;
    };

    // The use of one handle for the length of one call: the entry is kept
    // alive and locked, so that a close from another thread waits for it.
    class Lease {
    public:
        explicit Lease(DataSourceDllHandle* handle) noexcept;
        Lease(const Lease&) = delete;
        Lease& operator=(const Lease&) = delete;
        // The handle's source; null for an unknown handle.
        IOLDataSource* Source() const { return entry_ ? entry_->slot.Source() : nullptr; }
        const Entry* Get() const { return entry_.get(); }

    private:
        std::shared_ptr<Entry> entry_;
        std::unique_lock<std::mutex> lock_;
    };

    // Registers entry and gives out its handle; null when memory fails.
    static DataSourceDllHandle* Add(std::shared_ptr<Entry> entry);
    // Takes the entry of handle out of the registry; null when unknown.
    static std::shared_ptr<Entry> Remove(DataSourceDllHandle* handle);

private:
    static std::shared_ptr<Entry> Find(DataSourceDllHandle* handle);
};
