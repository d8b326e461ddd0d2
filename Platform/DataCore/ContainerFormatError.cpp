#include "Platform/DataCore/ContainerFormatError.h"

namespace Orx::DataCore {

ContainerFormatError::ContainerFormatError(const std::string& message, Orx::Core::CodeContext context)
    : Error(message, "Orx.DataCore.Container", std::move(context)) {}

}  // namespace Orx::DataCore
