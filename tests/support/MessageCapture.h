#pragma once

// Catches what the library shows its user, and what it reports to its
// developer as a failed assertion, instead of letting either reach the log.

#include "Platform/AssertFailed.h"
#include "Platform/UserMessage.h"

#include <string>
#include <vector>

namespace TestSupport {

// Every message shown to the user, and every failed assertion, while it lives.
class MessageCapture {
public:
    MessageCapture() {
        Orx::Core::SetUserMessageHandler([this](const std::string& text) { messages.push_back(text); });
        Orx::Core::SetAssertHandler([this](const std::string& text, const std::string& function) {
            asserts.push_back(function + ": " + text);
        });
    }
    ~MessageCapture() {
        Orx::Core::SetUserMessageHandler(nullptr);
        Orx::Core::SetAssertHandler(nullptr);
    }
    MessageCapture(const MessageCapture&) = delete;
    MessageCapture& operator=(const MessageCapture&) = delete;

    std::vector<std::string> messages;
    std::vector<std::string> asserts;
};

}  // namespace TestSupport
