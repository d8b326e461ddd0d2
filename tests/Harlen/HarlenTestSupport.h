#pragma once

// Opening built Harlen files, and catching what a source tells its logger,
// its user and its developer, for the tests of the Harlen family.

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Platform/AssertFailed.h"
#include "Platform/DataCore/DataFile.h"
#include "Platform/Logger.h"
#include "Platform/UserMessage.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "tools/samplekit/HarlenBuilder.h"

namespace HarlenTest {

using SampleKit::HarlenBuilder;

// A source over the file in memory, initialised.
inline std::shared_ptr<HarlenOLDataSource> Open(const HarlenBuilder& builder,
                                                ICreateColorTableCallback* callback = nullptr) {
    const auto bytes = builder.Bytes();
    auto source =
        std::make_shared<HarlenOLDataSource>(Orx::DataCore::DataFile::OpenMemory(bytes.data(), bytes.size()), callback);
    source->Initialize();
    return source;
}

// A source over a file on disk, opened as the library opens files.
inline std::shared_ptr<HarlenOLDataSource> OpenPath(const std::string& path,
                                                    ICreateColorTableCallback* callback = nullptr) {
    auto source =
        std::make_shared<HarlenOLDataSource>(Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr), callback);
    source->Initialize();
    return source;
}

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

// A fresh, empty folder under the folder the test runner names.
inline std::filesystem::path TempFolder(const std::string& name) {
    const char* base = std::getenv("DS_TEST_TMP");
    const std::filesystem::path root = base != nullptr && *base != '\0'
                                           ? std::filesystem::path(base)
                                           : std::filesystem::temp_directory_path() / "ds_harlen_tests";
    const auto folder = root / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

// Folder permissions bind a test run by root only while it acts as another
// user; this takes an unprivileged effective user for its lifetime.
class UnprivilegedScope {
public:
    UnprivilegedScope() : wasRoot_(::geteuid() == 0) {
        if (wasRoot_ && ::seteuid(65534) != 0) {
            wasRoot_ = false;
        }
    }
    ~UnprivilegedScope() {
        if (wasRoot_ && ::seteuid(0) != 0) {
            std::abort();
        }
    }
    UnprivilegedScope(const UnprivilegedScope&) = delete;
    UnprivilegedScope& operator=(const UnprivilegedScope&) = delete;

private:
    bool wasRoot_;
};

}  // namespace HarlenTest
