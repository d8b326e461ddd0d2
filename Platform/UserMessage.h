#pragma once

#include <functional>
#include <string>

namespace Orx::Core {

// Stands in for the message boxes of a desktop host: the exact text of the
// message reaches a host callback, or by default the log and standard error.
using UserMessageHandler = std::function<void(const std::string& text)>;

void ShowUserMessage(const std::string& text);
// An empty handler restores the default.
void SetUserMessageHandler(UserMessageHandler handler);

}  // namespace Orx::Core
