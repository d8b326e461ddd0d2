#include "Platform/DataCore/HeaderLineCursor.h"

#include "Infrastructure/OrxDataCore/HexDigits.h"
#include "Platform/DataCore/ContainerFormatError.h"

#include <algorithm>

namespace Orx::DataCore {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

HeaderLineCursor::HeaderLineCursor(const std::string& line, std::size_t lineNumber)
    : line_(line), lineNumber_(lineNumber) {}

void HeaderLineCursor::Refuse(const std::string& why) const {
    throw ContainerFormatError("Container header line " + std::to_string(lineNumber_) + ", column " +
                                   std::to_string(pos_ + 1) + ": " + why,
                               ORX_CODE_CONTEXT);
}

void HeaderLineCursor::SkipBlanks() {
    while (pos_ < line_.size() && isBlank(line_[pos_])) {
        ++pos_;
    }
}

bool HeaderLineCursor::AtEnd() {
    SkipBlanks();
    return pos_ >= line_.size();
}

std::string HeaderLineCursor::Token(const char* what) {
    if (AtEnd()) {
        Refuse(std::string(what) + " is missing");
    }
    if (line_[pos_] == '"') {
        return Unquote();
    }
    std::size_t start = pos_;
    while (pos_ < line_.size() && !isBlank(line_[pos_])) {
        if (line_[pos_] == '"') {
            Refuse(std::string("a quote inside ") + what);
        }
        ++pos_;
    }
    return line_.substr(start, pos_ - start);
}

std::string HeaderLineCursor::Quoted(const char* what) {
    if (AtEnd()) {
        Refuse(std::string(what) + " is missing");
    }
    if (line_[pos_] != '"') {
        Refuse(std::string(what) + " must stand in double quotes");
    }
    return Unquote();
}

std::string HeaderLineCursor::Unquote() {
    ++pos_;  // the opening quote
    std::string out;
    while (true) {
        if (pos_ >= line_.size()) {
            Refuse("a quoted string is not closed");
        }
        char c = line_[pos_];
        auto u = static_cast<unsigned char>(c);
        if (c == '"') {
            ++pos_;
            break;
        }
        if (u < 0x20 || u == 0x7F) {
            Refuse("a control byte inside quotes must be written as \\xHH");
        }
        if (c != '\\') {
            out.push_back(c);
            ++pos_;
            continue;
        }
        if (pos_ + 1 >= line_.size()) {
            Refuse("a backslash ends the line");
        }
        char e = line_[pos_ + 1];
        if (e == '\\' || e == '"') {
            out.push_back(e);
            pos_ += 2;
        } else if (e == 'x') {
            int hi = pos_ + 2 < line_.size() ? HexDigits::Value(line_[pos_ + 2]) : -1;
            int lo = pos_ + 3 < line_.size() ? HexDigits::Value(line_[pos_ + 3]) : -1;
            if (hi < 0 || lo < 0) {
                Refuse("\\x must be followed by two hexadecimal digits");
            }
            out.push_back(static_cast<char>(hi * 16 + lo));
            pos_ += 4;
        } else {
            Refuse(std::string("unknown escape \\") + e);
        }
    }
    if (pos_ < line_.size() && !isBlank(line_[pos_])) {
        Refuse("a quoted string must be followed by a blank or the end of the line");
    }
    return out;
}

std::string HeaderLineCursor::Rest() {
    if (pos_ < line_.size() && isBlank(line_[pos_])) {
        ++pos_;
    }
    std::string rest = line_.substr(pos_);
    pos_ = line_.size();
    return rest;
}

std::string HeaderLineCursor::PeekRest() const {
    std::size_t from = pos_ < line_.size() && isBlank(line_[pos_]) ? pos_ + 1 : pos_;
    return line_.substr(std::min(from, line_.size()));
}

void HeaderLineCursor::ExpectEnd() {
    if (!AtEnd()) {
        Refuse("unexpected text \"" + line_.substr(pos_) + "\"");
    }
}

}  // namespace Orx::DataCore
