#include "tools/dstool/JsonWriter.h"

#include "tools/dstool/NumberText.h"

#include <cmath>
#include <cstdio>

namespace Dstool {

std::string JsonWriter::Quoted(const std::string& text)
{
    std::string out = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20 || byte >= 0x80) {
            // Texts of the files are single bytes; above 0x7F they are taken
            // as Latin-1, so that the document stays valid UTF-8.
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", byte);
            out += escape;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

void JsonWriter::Start(const std::string& key)
{
    if (!hasMembers_.empty()) {
        if (hasMembers_.back())
            out_ += ',';
        hasMembers_.back() = true;
        out_ += '\n';
        out_.append(2 * hasMembers_.size(), ' ');
    }
    if (!key.empty())
        out_ += Quoted(key) + ": ";
}

void JsonWriter::Open(const std::string& key, char bracket)
{
    Start(key);
    out_ += bracket;
    hasMembers_.push_back(false);
}

void JsonWriter::Close(char bracket)
{
    const bool any = hasMembers_.back();
    hasMembers_.pop_back();
    if (any) {
        out_ += '\n';
        out_.append(2 * hasMembers_.size(), ' ');
    }
    out_ += bracket;
    if (hasMembers_.empty())
        out_ += '\n';
}

void JsonWriter::BeginObject(const std::string& key) { Open(key, '{'); }
void JsonWriter::EndObject() { Close('}'); }
void JsonWriter::BeginArray(const std::string& key) { Open(key, '['); }
void JsonWriter::EndArray() { Close(']'); }

void JsonWriter::Member(const std::string& key, const std::string& text)
{
    Start(key);
    out_ += Quoted(text);
}

void JsonWriter::Member(const std::string& key, double number)
{
    Start(key);
    out_ += std::isfinite(number) ? NumberText(number) : "null";
}

void JsonWriter::Member(const std::string& key, int number)
{
    Start(key);
    out_ += std::to_string(number);
}

void JsonWriter::Member(const std::string& key, bool flag)
{
    Start(key);
    out_ += flag ? "true" : "false";
}

}  // namespace Dstool
