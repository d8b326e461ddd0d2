#include "Platform/Logger.h"

#include <cstdio>

namespace Orx::Core {

Logger::Logger(std::string name, LogManager& manager) : name_(std::move(name)), manager_(manager) {}

bool Logger::IsEnabled(int severity) const { return severity <= manager_.LevelFor(name_); }

void Logger::Log(int severity, const std::string& text) const {
    if (IsEnabled(severity)) {
        manager_.Write(name_, severity, text);
    }
}

LogManager::LogManager() { filters_[""] = 4; }

LogManager& LogManager::Instance() {
    static LogManager manager;
    return manager;
}

std::shared_ptr<Logger> LogManager::GetLogger(const std::string& name) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto& slot = loggers_[name];
    if (!slot) {
        slot = std::make_shared<Logger>(name, *this);
    }
    return slot;
}

void LogManager::SetSeverityFilter(const std::string& name, int level) {
    std::lock_guard<std::mutex> lock(mutex_);
    filters_[name] = level;
}

int LogManager::LevelFor(const std::string& loggerName) const {
    std::lock_guard<std::mutex> lock(mutex_);
    // Most specific filter: the longest name that is the logger's own name or
    // one of its dotted ancestors.
    std::string probe = loggerName;
    for (;;) {
        auto it = filters_.find(probe);
        if (it != filters_.end()) {
            return it->second;
        }
        if (probe.empty()) {
            return 4;
        }
        auto dot = probe.rfind('.');
        probe = dot == std::string::npos ? std::string() : probe.substr(0, dot);
    }
}

void LogManager::SetSink(LogSink sink) {
    std::lock_guard<std::mutex> lock(mutex_);
    sink_ = std::move(sink);
}

bool LogManager::HasDefaultSink() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return !sink_;
}

void LogManager::Write(const std::string& logger, int severity, const std::string& text) const {
    LogSink sink;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        sink = sink_;
    }
    if (sink) {
        sink(logger, severity, text);
    } else {
        std::fprintf(stderr, "%s [%d] %s\n", logger.c_str(), severity, text.c_str());
    }
}

}  // namespace Orx::Core
