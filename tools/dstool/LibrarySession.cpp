#include "tools/dstool/LibrarySession.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/Command.h"

#include <cstdio>

namespace Dstool {

namespace {

void CollectMessage(const char* text, void* user)
{
    static_cast<std::vector<std::string>*>(user)->push_back(text ? text : "");
}

}  // namespace

LibrarySession::LibrarySession() { DataSourceDllSetMessageCallback(CollectMessage, &messages_); }

LibrarySession::~LibrarySession()
{
    DataSourceDllClose();
    DataSourceDllSetMessageCallback(nullptr, nullptr);
}

bool LibrarySession::Open(const std::string& path)
{
    messages_.clear();
    std::string copy = path;
    return DataSourceDllOpen(copy.data()) == 1;
}

int LibrarySession::ReportOpenFailure(const std::string& path) const
{
    return ReportFailure(path + " could not be opened");
}

int LibrarySession::ReportFailure(const std::string& what) const
{
    std::fprintf(stderr, "dstool: %s\n", what.c_str());
    for (const std::string& message : messages_)
        std::fprintf(stderr, "%s\n", message.c_str());
    return kExitFailed;
}

std::string LibrarySession::TakeText(char* text)
{
    std::string out = text ? text : "";
    DataSourceDllFreeString(text);
    return out;
}

}  // namespace Dstool
