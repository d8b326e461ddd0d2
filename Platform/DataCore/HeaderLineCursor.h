#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace Orx::DataCore {

// Walks one line of a container header token by token. Tokens are
// separated by blanks or tabs; a token is a quoted string or a run of bytes
// without blanks. Every refusal raises ContainerFormatError naming the line.
class HeaderLineCursor {
public:
    HeaderLineCursor(const std::string& line, std::size_t lineNumber);

    bool AtEnd();
    // A bare word or a quoted string, unquoted.
    std::string Token(const char* what);
    // A quoted string only.
    std::string Quoted(const char* what);
    // What is left of the line after the one blank or tab that follows the
    // last token; blanks beyond that one belong to the text.
    std::string Rest();
    // The same text, left in place for the tokens to read.
    std::string PeekRest() const;
    void ExpectEnd();

    [[noreturn]] void Refuse(const std::string& why) const;

private:
    void SkipBlanks();
    std::string Unquote();

    const std::string& line_;
    std::size_t lineNumber_;
    std::size_t pos_ = 0;
};

}  // namespace Orx::DataCore
