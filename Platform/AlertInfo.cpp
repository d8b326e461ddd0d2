#include "Platform/AlertInfo.h"

#include "Platform/Logger.h"

#include <mutex>
#include <utility>

namespace Orx::Core {

AlertInfo::AlertInfo(std::string message, std::string category, CodeContext context)
    : message_(std::move(message)), category_(std::move(category)), context_(std::move(context)) {}

void Error::RaiseError(const Error& error) {
    // Callers raise the most derived type themselves through Raise<E>; this
    // entry keeps the framework's name for the plain case.
    throw error;
}

OSError::OSError(std::string message, int osCode, CodeContext context)
    : Error(std::move(message), "Orx.Core.OS", std::move(context)), osCode_(osCode) {}

AllocationFailed::AllocationFailed(std::string typeText, CodeContext context)
    : Error("Allocation failed: " + typeText, "Orx.Core.Allocation", std::move(context)) {}

namespace {
std::mutex& handlerMutex() {
    static std::mutex m;
    return m;
}
Warning::Handler& warningHandler() {
    static Warning::Handler h;
    return h;
}
}  // namespace

void Warning::RaiseWarning(const Warning& warning) {
    Handler h;
    {
        std::lock_guard<std::mutex> lock(handlerMutex());
        h = warningHandler();
    }
    if (h) {
        h(warning);
        return;
    }
    LogManager::Instance().GetLogger("Orx.Core")->Log(3, warning.GetMessage());
}

void Warning::SetHandler(Handler handler) {
    std::lock_guard<std::mutex> lock(handlerMutex());
    warningHandler() = std::move(handler);
}

}  // namespace Orx::Core
