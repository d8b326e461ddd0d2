#include "Infrastructure/OrxDataCore/MutexLockableDataObject.h"

namespace Orx::DataCore {

MutexLockableDataObject::MutexLockableDataObject() = default;

bool MutexLockableDataObject::IsLockable() const { return true; }

}  // namespace Orx::DataCore
