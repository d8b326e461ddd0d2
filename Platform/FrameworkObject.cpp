#include "Platform/FrameworkObject.h"

#include <map>
#include <mutex>

namespace Orx::Core {

namespace {
std::mutex& registryMutex() {
    static std::mutex m;
    return m;
}
std::map<std::string, const RuntimeClass*>& registry() {
    static std::map<std::string, const RuntimeClass*> r;
    return r;
}
}  // namespace

void RegisterRuntimeClass(const RuntimeClass* runtimeClass) {
    std::lock_guard<std::mutex> lock(registryMutex());
    registry()[runtimeClass->className] = runtimeClass;
}

std::unique_ptr<FrameworkObject> CreateObjectByClassName(const std::string& name) {
    const RuntimeClass* rc = nullptr;
    {
        std::lock_guard<std::mutex> lock(registryMutex());
        auto it = registry().find(name);
        if (it != registry().end()) {
            rc = it->second;
        }
    }
    return rc && rc->create ? rc->create() : nullptr;
}

}  // namespace Orx::Core
