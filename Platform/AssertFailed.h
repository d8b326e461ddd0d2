#pragma once

#include <functional>
#include <string>

namespace Orx::Core {

// A failed assertion is a report to the developer; when the handler returns,
// work goes on.
using AssertHandler = std::function<void(const std::string& text, const std::string& function)>;

void AssertFailed(const std::string& text, const std::string& function);
// An empty handler restores the default, which logs on "Orx.Core.Assert" at severity 2.
void SetAssertHandler(AssertHandler handler);

}  // namespace Orx::Core
