#include "Infrastructure/OrxDataCore/XMLEventReader.h"

#include "Infrastructure/OrxDataCore/HexDigits.h"
#include "Platform/AlertInfo.h"

#include <cstdint>
#include <vector>

namespace Orx::DataCore {

namespace {

[[noreturn]] void refuse(const std::string& why, std::size_t at) {
    throw Orx::Core::LogicError("Malformed XML at byte " + std::to_string(at) + ": " + why, "Orx.DataCore.XML",
                                ORX_CODE_CONTEXT);
}

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool isNameChar(char c) {
    auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.' || c == ':';
}

void appendByte(std::string& out, std::uint32_t code, std::size_t at) {
    // Texts are single bytes; a reference beyond one byte has no place in them.
    if (code > 0xFF) {
        refuse("character reference beyond a single byte", at);
    }
    out.push_back(static_cast<char>(code));
}

class Cursor {
public:
    explicit Cursor(const std::string& text) : text_(text) {}

    bool AtEnd() const { return pos_ >= text_.size(); }
    char Peek() const { return AtEnd() ? '\0' : text_[pos_]; }
    std::size_t Position() const { return pos_; }
    bool StartsWith(const char* s) const { return text_.compare(pos_, std::char_traits<char>::length(s), s) == 0; }
    void Advance(std::size_t n) { pos_ = n > text_.size() - pos_ ? text_.size() : pos_ + n; }
    void SkipSpace() {
        while (!AtEnd() && isSpace(text_[pos_])) {
            ++pos_;
        }
    }
    void SkipPast(const char* terminator) {
        auto found = text_.find(terminator, pos_);
        if (found == std::string::npos) {
            refuse(std::string("missing \"") + terminator + "\"", pos_);
        }
        pos_ = found + std::char_traits<char>::length(terminator);
    }
    std::string Name() {
        std::size_t start = pos_;
        while (!AtEnd() && isNameChar(text_[pos_])) {
            ++pos_;
        }
        if (pos_ == start) {
            refuse("a name was expected", pos_);
        }
        return text_.substr(start, pos_ - start);
    }
    void Expect(char c) {
        if (Peek() != c) {
            refuse(std::string("'") + c + "' was expected", pos_);
        }
        ++pos_;
    }
    // Text up to the stop character, with its entities replaced.
    std::string Decoded(char stop) {
        std::string out;
        while (!AtEnd() && text_[pos_] != stop) {
            char c = text_[pos_];
            if (c == '&') {
                Entity(out);
            } else {
                out.push_back(c);
                ++pos_;
            }
        }
        return out;
    }

private:
    void Entity(std::string& out) {
        std::size_t start = pos_;
        auto semicolon = text_.find(';', pos_);
        if (semicolon == std::string::npos || semicolon - pos_ > 12) {
            refuse("unterminated entity", start);
        }
        std::string name = text_.substr(pos_ + 1, semicolon - pos_ - 1);
        pos_ = semicolon + 1;
        if (name == "lt") {
            out.push_back('<');
        } else if (name == "gt") {
            out.push_back('>');
        } else if (name == "amp") {
            out.push_back('&');
        } else if (name == "apos") {
            out.push_back('\'');
        } else if (name == "quot") {
            out.push_back('"');
        } else if (name.size() > 1 && name[0] == '#') {
            bool hex = name[1] == 'x' || name[1] == 'X';
            std::size_t i = hex ? 2 : 1;
            if (i >= name.size()) {
                refuse("empty character reference", start);
            }
            std::uint32_t code = 0;
            for (; i < name.size(); ++i) {
                int digit = HexDigits::Value(name[i]);
                if (digit < 0 || (!hex && digit > 9)) {
                    refuse("bad character reference", start);
                }
                code = code * (hex ? 16u : 10u) + static_cast<std::uint32_t>(digit);
                if (code > 0x10FFFF) {
                    refuse("character reference out of range", start);
                }
            }
            appendByte(out, code, start);
        } else {
            refuse("unknown entity &" + name + ";", start);
        }
    }

    const std::string& text_;
    std::size_t pos_ = 0;
};

// Declarations, comments and processing instructions carry nothing for a value.
bool skipMarkup(Cursor& in) {
    if (in.StartsWith("<?")) {
        in.SkipPast("?>");
        return true;
    }
    if (in.StartsWith("<!--")) {
        in.SkipPast("-->");
        return true;
    }
    if (in.StartsWith("<!")) {
        in.SkipPast(">");
        return true;
    }
    return false;
}

}  // namespace

void XMLEventReader::Parse(const std::string& xml, XMLContentHandler& handler) {
    Cursor in(xml);
    std::vector<std::string> open;
    bool rootSeen = false;
    while (true) {
        if (open.empty()) {
            in.SkipSpace();
            if (in.AtEnd()) {
                break;
            }
            if (skipMarkup(in)) {
                continue;
            }
            if (rootSeen) {
                refuse("content after the root element", in.Position());
            }
            if (in.Peek() != '<') {
                refuse("text outside the root element", in.Position());
            }
        }
        if (in.AtEnd()) {
            refuse("element <" + open.back() + "> is not closed", in.Position());
        }
        if (in.Peek() != '<') {
            std::string text = in.Decoded('<');
            handler.Characters(text);
            continue;
        }
        if (skipMarkup(in)) {
            continue;
        }
        if (in.StartsWith("</")) {
            in.Advance(2);
            std::size_t at = in.Position();
            std::string name = in.Name();
            in.SkipSpace();
            in.Expect('>');
            if (open.empty() || open.back() != name) {
                refuse("end tag </" + name + "> does not match", at);
            }
            open.pop_back();
            handler.EndElement(name);
            continue;
        }
        in.Advance(1);
        std::string name = in.Name();
        XMLAttributes attributes;
        bool selfClosing = false;
        while (true) {
            in.SkipSpace();
            if (in.StartsWith("/>")) {
                in.Advance(2);
                selfClosing = true;
                break;
            }
            if (in.Peek() == '>') {
                in.Advance(1);
                break;
            }
            std::size_t at = in.Position();
            std::string attribute = in.Name();
            in.SkipSpace();
            in.Expect('=');
            in.SkipSpace();
            char quote = in.Peek();
            if (quote != '"' && quote != '\'') {
                refuse("attribute value without quotes", in.Position());
            }
            in.Advance(1);
            std::string value = in.Decoded(quote);
            in.Expect(quote);
            if (!attributes.emplace(attribute, value).second) {
                refuse("attribute \"" + attribute + "\" given twice", at);
            }
        }
        rootSeen = true;
        handler.StartElement(name, attributes);
        if (selfClosing) {
            handler.EndElement(name);
        } else {
            open.push_back(name);
        }
    }
    if (!rootSeen) {
        refuse("no element", 0);
    }
}

}  // namespace Orx::DataCore
