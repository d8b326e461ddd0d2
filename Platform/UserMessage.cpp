#include "Platform/UserMessage.h"

#include "Platform/Logger.h"

#include <cstdio>
#include <mutex>

namespace Orx::Core {

namespace {
std::mutex& messageMutex() {
    static std::mutex m;
    return m;
}
UserMessageHandler& messageHandler() {
    static UserMessageHandler h;
    return h;
}
}  // namespace

void ShowUserMessage(const std::string& text) {
    UserMessageHandler h;
    {
        std::lock_guard<std::mutex> lock(messageMutex());
        h = messageHandler();
    }
    if (h) {
        h(text);
        return;
    }
    auto& manager = LogManager::Instance();
    const bool logGoesToStderr = manager.HasDefaultSink();
    manager.GetLogger("DataAnalysis.UserMessage")->Log(2, text);
    if (!logGoesToStderr) {
        std::fprintf(stderr, "%s\n", text.c_str());
    }
}

void SetUserMessageHandler(UserMessageHandler handler) {
    std::lock_guard<std::mutex> lock(messageMutex());
    messageHandler() = std::move(handler);
}

}  // namespace Orx::Core
