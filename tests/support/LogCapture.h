#pragma once

// Catches every line the library logs, with its logger and severity.

#include "Platform/Logger.h"

#include <string>
#include <vector>

namespace TestSupport {

struct LogLine {
    std::string logger;
    int severity;
    std::string text;
};

// Every line logged while it lives.
class LogCapture {
public:
    LogCapture() {
        Orx::Core::LogManager::Instance().SetSink(
            [this](const std::string& logger, int severity, const std::string& text) {
                lines.push_back({logger, severity, text});
            });
    }
    ~LogCapture() { Orx::Core::LogManager::Instance().SetSink(nullptr); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::vector<LogLine> lines;
};

}  // namespace TestSupport
