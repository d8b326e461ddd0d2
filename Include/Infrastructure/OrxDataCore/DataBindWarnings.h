#pragma once

#include "Platform/AlertInfo.h"

#include <cstdint>
#include <string>

// The three warnings of binding an unbound value to a type. They report and
// never stop the binding.
namespace Orx::DataCore {

class UnboundTypeMismatch : public Orx::Core::Warning {
public:
    UnboundTypeMismatch(const std::string& storedType, const std::string& requestedType,
                        Orx::Core::CodeContext context);
};

class NullSerializerForDataBind : public Orx::Core::Warning {
public:
    NullSerializerForDataBind(const std::string& wrapperType, const std::string& storedType,
                              Orx::Core::CodeContext context);
};

class UnboundSizeMismatch : public Orx::Core::Warning {
public:
    UnboundSizeMismatch(std::uint64_t unboundSize, std::uint64_t serializerSize, Orx::Core::CodeContext context);
};

}  // namespace Orx::DataCore
