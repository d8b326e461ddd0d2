#include "Platform/AssertFailed.h"

#include "Platform/Logger.h"

#include <mutex>

namespace Orx::Core {

namespace {
std::mutex& assertMutex() {
    static std::mutex m;
    return m;
}
AssertHandler& assertHandler() {
    static AssertHandler h;
    return h;
}
}  // namespace

void AssertFailed(const std::string& text, const std::string& function) {
    AssertHandler h;
    {
        std::lock_guard<std::mutex> lock(assertMutex());
        h = assertHandler();
    }
    if (h) {
        h(text, function);
        return;
    }
    LogManager::Instance().GetLogger("Orx.Core.Assert")->Log(2, function + ": assertion failed: " + text);
}

void SetAssertHandler(AssertHandler handler) {
    std::lock_guard<std::mutex> lock(assertMutex());
    assertHandler() = std::move(handler);
}

}  // namespace Orx::Core
