#pragma once

// What one save did: its result, what it told the user, the log and the
// developer, and the source as it stood afterwards. It travels as bytes, so
// that a save run in a child process reports like one run in the test.

#include "Faults/SourceSnapshot.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Faults {

struct SaveOutcome {
    bool saved = false;
    std::vector<std::string> messages;
    // "logger|severity|text"
    std::vector<std::string> logLines;
    std::vector<std::string> asserts;
    SnapshotEntries source;

    std::string Pack() const;
    static std::optional<SaveOutcome> Unpack(const std::string& bytes);
};

namespace OutcomeBytes {

inline void PutNumber(std::string& out, std::uint64_t number) {
    out.append(reinterpret_cast<const char*>(&number), sizeof number);
}

inline void PutText(std::string& out, const std::string& text) {
    PutNumber(out, text.size());
    out += text;
}

inline void PutTexts(std::string& out, const std::vector<std::string>& texts) {
    PutNumber(out, texts.size());
    for (const std::string& text : texts) {
        PutText(out, text);
    }
}

// Reads what PutText wrote; nothing when the bytes end early.
class Reader {
public:
    explicit Reader(const std::string& bytes) : bytes_(bytes) {}

    std::optional<std::uint64_t> Number() {
        std::uint64_t number = 0;
        if (bytes_.size() - at_ < sizeof number) {
            return std::nullopt;
        }
        bytes_.copy(reinterpret_cast<char*>(&number), sizeof number, at_);
        at_ += sizeof number;
        return number;
    }

    std::optional<std::string> Text() {
        const auto size = Number();
        if (!size || bytes_.size() - at_ < *size) {
            return std::nullopt;
        }
        std::string text = bytes_.substr(at_, static_cast<std::size_t>(*size));
        at_ += static_cast<std::size_t>(*size);
        return text;
    }

    std::optional<std::vector<std::string>> Texts() {
        const auto count = Number();
        if (!count) {
            return std::nullopt;
        }
        std::vector<std::string> texts;
        for (std::uint64_t i = 0; i < *count; ++i) {
            auto text = Text();
            if (!text) {
                return std::nullopt;
            }
            texts.push_back(std::move(*text));
        }
        return texts;
    }

    bool AtEnd() const { return at_ == bytes_.size(); }

private:
    const std::string& bytes_;
    std::size_t at_ = 0;
};

}  // namespace OutcomeBytes

inline std::string SaveOutcome::Pack() const {
    std::vector<std::string> names, values;
    for (const auto& [name, value] : source) {
        names.push_back(name);
        values.push_back(value);
    }
    std::string out;
    OutcomeBytes::PutText(out, saved ? "1" : "0");
    for (const auto& texts : {std::cref(messages), std::cref(logLines), std::cref(asserts), std::cref(names),
                              std::cref(values)}) {
        OutcomeBytes::PutTexts(out, texts.get());
    }
    return out;
}

inline std::optional<SaveOutcome> SaveOutcome::Unpack(const std::string& bytes) {
    OutcomeBytes::Reader in(bytes);
    SaveOutcome outcome;
    const auto saved = in.Text();
    auto messages = in.Texts();
    auto logLines = in.Texts();
    auto asserts = in.Texts();
    const auto names = in.Texts();
    const auto values = in.Texts();
    if (!saved || !messages || !logLines || !asserts || !names || !values || names->size() != values->size() ||
        !in.AtEnd()) {
        return std::nullopt;
    }
    outcome.saved = *saved == "1";
    outcome.messages = std::move(*messages);
    outcome.logLines = std::move(*logLines);
    outcome.asserts = std::move(*asserts);
    for (std::size_t i = 0; i < names->size(); ++i) {
        outcome.source.emplace_back((*names)[i], (*values)[i]);
    }
    return outcome;
}

}  // namespace Faults
