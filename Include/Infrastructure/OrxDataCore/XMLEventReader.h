#pragma once

#include "Infrastructure/OrxDataCore/XMLContentHandler.h"

#include <string>

namespace Orx::DataCore {

// Reads the XML that the serializers write: one root element with nested
// elements, attributes in either quote, text with the predefined and numeric
// entities; a declaration, comments and processing instructions are skipped.
// Anything else raises LogicError; nothing is read outside the text.
class XMLEventReader {
public:
    static void Parse(const std::string& xml, XMLContentHandler& handler);
};

}  // namespace Orx::DataCore
