#pragma once

#include "Platform/AlertInfo.h"

#include <string>

namespace Orx::DataCore {

// A container file that breaks its syntax or points outside itself, or
// content that the writer cannot put into that syntax.
class ContainerFormatError : public Orx::Core::Error {
public:
    ContainerFormatError(const std::string& message, Orx::Core::CodeContext context);
};

}  // namespace Orx::DataCore
