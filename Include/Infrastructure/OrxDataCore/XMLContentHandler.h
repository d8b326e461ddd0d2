#pragma once

#include <map>
#include <string>

namespace Orx::DataCore {

using XMLAttributes = std::map<std::string, std::string>;

// Receives the events of an XML text in document order. Texts and attribute
// values arrive with their entities already replaced.
class XMLContentHandler {
public:
    virtual ~XMLContentHandler() = default;
    // Before the first element of a document; a handler forgets what an
    // earlier, perhaps broken, document left behind.
    virtual void StartDocument() {}
    virtual void StartElement(const std::string& name, const XMLAttributes& attributes) = 0;
    virtual void Characters(const std::string& text) = 0;
    virtual void EndElement(const std::string& name) = 0;
};

}  // namespace Orx::DataCore
