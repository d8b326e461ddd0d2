#pragma once

#include "Infrastructure/OrxDataCore/DataObject.h"

#include <mutex>

namespace Orx::DataCore {

// A value that carries its own lock; whoever shares the value across threads
// holds the lock for the length of one access.
class MutexLockableDataObject : public DataObject {
public:
    bool IsLockable() const override;
    void Lock() const { mutex_.lock(); }
    void Unlock() const { mutex_.unlock(); }
    std::mutex& GetMutex() const { return mutex_; }

protected:
    MutexLockableDataObject();

private:
    mutable std::mutex mutex_;
};

}  // namespace Orx::DataCore
