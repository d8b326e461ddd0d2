#pragma once

#include <string>
#include <vector>

namespace Dstool {

// One file opened in the library for the length of a command. The library's
// messages meant for a user are collected, to be told when the file does
// not open.
class LibrarySession {
public:
    LibrarySession();
    ~LibrarySession();
    LibrarySession(const LibrarySession&) = delete;
    LibrarySession& operator=(const LibrarySession&) = delete;

    bool Open(const std::string& path);
    // Tells on standard error why the file did not open, and answers the
    // exit status of that failure.
    int ReportOpenFailure(const std::string& path) const;
    // Tells on standard error what failed, with the library's messages since
    // the file was opened, and answers the exit status of a failure.
    int ReportFailure(const std::string& what) const;

    // A text result of the library, released.
    static std::string TakeText(char* text);

private:
    std::vector<std::string> messages_;
};

}  // namespace Dstool
