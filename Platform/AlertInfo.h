#pragma once

#include "Platform/CodeContext.h"

#include <exception>
#include <functional>
#include <string>

namespace Orx::Core {

// Base of every alert of the infrastructure: a message, a category text and
// the place it was raised.
class AlertInfo : public std::exception {
public:
    AlertInfo(std::string message, std::string category, CodeContext context);
    const char* what() const noexcept override { return message_.c_str(); }
    const std::string& GetMessage() const { return message_; }
    const std::string& GetCategory() const { return category_; }
    const CodeContext& GetContext() const { return context_; }

private:
    std::string message_;
    std::string category_;
    CodeContext context_;
};

class Error : public AlertInfo {
public:
    using AlertInfo::AlertInfo;
    // Throws the error; errors always interrupt the caller.
    [[noreturn]] static void RaiseError(const Error& error);
};

template <class E>
[[noreturn]] void Raise(const E& error) {
    throw error;
}

class LogicError : public Error {
public:
    using Error::Error;
};

class OSError : public Error {
public:
    OSError(std::string message, int osCode, CodeContext context);
    int GetOSCode() const { return osCode_; }

private:
    int osCode_;
};

class AllocationFailed : public Error {
public:
    AllocationFailed(std::string typeText, CodeContext context);
};

// A warning is reported and the operation goes on.
class Warning : public AlertInfo {
public:
    using AlertInfo::AlertInfo;
    using Handler = std::function<void(const Warning&)>;
    static void RaiseWarning(const Warning& warning);
    // Replaces where warnings go; an empty handler restores the default,
    // which logs them on "Orx.Core" at severity 3.
    static void SetHandler(Handler handler);
};

}  // namespace Orx::Core
