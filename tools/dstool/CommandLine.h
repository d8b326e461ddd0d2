#pragma once

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace Dstool {

// A mistake in how a command was called; the command's usage follows it.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The words after a command's name: operands, options that take a value
// ("--channel 2" or "--channel=2") and flags ("--json"). Only the names a
// command declares are accepted.
class CommandLine {
public:
    CommandLine(const std::vector<std::string>& words, const std::set<std::string>& valueOptions,
                const std::set<std::string>& flags);

    const std::vector<std::string>& Operands() const { return operands_; }
    // The one operand a command takes; raises UsageError for none or more.
    const std::string& OneOperand(const std::string& what) const;
    bool Has(const std::string& name) const;
    std::optional<std::string> Value(const std::string& name) const;
    // The value as a whole number from 0 up; raises UsageError otherwise.
    std::optional<int> Count(const std::string& name) const;
    // At most one of these names may be given; the one given, if any.
    std::optional<std::string> OneOf(const std::vector<std::string>& names) const;

private:
    std::vector<std::string> operands_;
    std::map<std::string, std::string> values_;
    std::set<std::string> flags_;
};

}  // namespace Dstool
