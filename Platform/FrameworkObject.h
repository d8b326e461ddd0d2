#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace Orx::Core {

class FrameworkObject;

// The run-time class record of an archivable object: its class name, its
// schema and how to make a new one.
struct RuntimeClass {
    const char* className;
    std::uint32_t schema;
    bool versionable;
    std::unique_ptr<FrameworkObject> (*create)();
};

// Base of objects that know their run-time class.
class FrameworkObject {
public:
    virtual ~FrameworkObject() = default;
    virtual const RuntimeClass* GetRuntimeClass() const = 0;
};

// Makes an object by class name through the registered run-time classes;
// null for a name nobody registered.
std::unique_ptr<FrameworkObject> CreateObjectByClassName(const std::string& name);
void RegisterRuntimeClass(const RuntimeClass* runtimeClass);

}  // namespace Orx::Core
