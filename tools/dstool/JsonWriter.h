#pragma once

#include <string>
#include <vector>

namespace Dstool {

// Writes one JSON document, indented, into a string. Members and elements
// are separated as they come; numbers without a decimal form become null.
class JsonWriter {
public:
    void BeginObject(const std::string& key = {});
    void EndObject();
    void BeginArray(const std::string& key = {});
    void EndArray();
    void Member(const std::string& key, const std::string& text);
    void Member(const std::string& key, const char* text) { Member(key, std::string(text)); }
    void Member(const std::string& key, double number);
    void Member(const std::string& key, int number);
    void Member(const std::string& key, bool flag);

    const std::string& Text() const { return out_; }

    static std::string Quoted(const std::string& text);

private:
    // A new member or element: its separator, indentation and key.
    void Start(const std::string& key);
    void Open(const std::string& key, char bracket);
    void Close(char bracket);

    std::string out_;
    std::vector<bool> hasMembers_;
};

}  // namespace Dstool
