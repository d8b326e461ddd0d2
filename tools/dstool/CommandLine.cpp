#include "tools/dstool/CommandLine.h"

#include <charconv>

namespace Dstool {

CommandLine::CommandLine(const std::vector<std::string>& words, const std::set<std::string>& valueOptions,
                         const std::set<std::string>& flags)
{
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (optionsEnded || word.size() < 2 || word.compare(0, 2, "--") != 0) {
            operands_.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        std::string name = word.substr(2);
        std::optional<std::string> inlineValue;
        if (const auto equals = name.find('='); equals != std::string::npos) {
            inlineValue = name.substr(equals + 1);
            name.resize(equals);
        }
        if (flags.count(name)) {
            if (inlineValue)
                throw UsageError("--" + name + " takes no value");
            flags_.insert(name);
        } else if (valueOptions.count(name)) {
            if (!inlineValue) {
                if (i + 1 >= words.size())
                    throw UsageError("--" + name + " needs a value");
                inlineValue = words[++i];
            }
            if (values_.count(name))
                throw UsageError("--" + name + " is given twice");
            values_[name] = *inlineValue;
        } else {
            throw UsageError("unknown option --" + name);
        }
    }
}

const std::string& CommandLine::OneOperand(const std::string& what) const
{
    if (operands_.size() != 1)
        throw UsageError(operands_.empty() ? "no " + what + " given" : "one " + what + " only");
    return operands_[0];
}

bool CommandLine::Has(const std::string& name) const { return flags_.count(name) || values_.count(name); }

std::optional<std::string> CommandLine::Value(const std::string& name) const
{
    const auto found = values_.find(name);
    if (found == values_.end())
        return std::nullopt;
    return found->second;
}

std::optional<int> CommandLine::Count(const std::string& name) const
{
    const std::optional<std::string> text = Value(name);
    if (!text)
        return std::nullopt;
    int value = -1;
    const char* end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    if (error != std::errc() || stop != end || value < 0)
        throw UsageError("--" + name + " wants a whole number from 0 up, not \"" + *text + "\"");
    return value;
}

std::optional<std::string> CommandLine::OneOf(const std::vector<std::string>& names) const
{
    std::optional<std::string> given;
    for (const std::string& name : names) {
        if (!Has(name))
            continue;
        if (given)
            throw UsageError("--" + *given + " and --" + name + " exclude each other");
        given = name;
    }
    return given;
}

}  // namespace Dstool
