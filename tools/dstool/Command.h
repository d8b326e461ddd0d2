#pragma once

#include <string>
#include <vector>

namespace Dstool {

// One command of dstool. A new command is a file with a function that
// describes it, and a line in the table of Commands.cpp.
struct Command {
    std::string name;
    std::string summary;  // one line for the overview
    std::string usage;    // the whole help text of the command
    // Runs on the words behind the command's name and answers the exit
    // status; a mistake in the words raises UsageError.
    int (*run)(const std::vector<std::string>& words);
};

const std::vector<Command>& Commands();
const Command* FindCommand(const std::string& name);

// Exit statuses shared by all commands.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

}  // namespace Dstool
