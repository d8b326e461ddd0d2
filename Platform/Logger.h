#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace Orx::Core {

class LogManager;

// A named logger. Severity: 1 fatal, 2 failure, 3 warning, 4 information,
// 5 and above detail. A message passes when its severity is at most the level
// of the most specific filter that covers the logger's name.
class Logger {
public:
    Logger(std::string name, LogManager& manager);
    const std::string& GetName() const { return name_; }
    bool IsEnabled(int severity) const;
    void Log(int severity, const std::string& text) const;

private:
    std::string name_;
    LogManager& manager_;
};

using LogSink = std::function<void(const std::string& logger, int severity, const std::string& text)>;

class LogManager {
public:
    static LogManager& Instance();

    std::shared_ptr<Logger> GetLogger(const std::string& name);

    // A filter applies to the logger of that name and to every logger below it
    // ("DataAnalysis" covers "DataAnalysis.QlOLDataSource"); "" covers all.
    void SetSeverityFilter(const std::string& name, int level);
    int LevelFor(const std::string& loggerName) const;

    // Replaces the sink; an empty sink restores the default (standard error).
    void SetSink(LogSink sink);
    bool HasDefaultSink() const;
    void Write(const std::string& logger, int severity, const std::string& text) const;

private:
    LogManager();
    mutable std::mutex mutex_;
    std::map<std::string, int> filters_;
    std::map<std::string, std::shared_ptr<Logger>> loggers_;
    LogSink sink_;
};

}  // namespace Orx::Core
