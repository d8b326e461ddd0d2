#pragma once

#include <boost/lexical_cast.hpp>

#include <ostream>
#include <string>
#include <vector>

namespace Orx::Core {

// Writes XML element by element. Attributes go to the start tag last opened,
// for as long as no content has followed it, so that a value's writer can
// label the element its caller opened.
class XMLWriter {
public:
    // An attribute manipulator: writer << XMLWriter::Attribute("size1", rows).
    struct Attribute {
        template <class V>
        Attribute(std::string attributeName, const V& attributeValue)
            : name(std::move(attributeName)), value(boost::lexical_cast<std::string>(attributeValue)) {}
        Attribute(std::string attributeName, std::string attributeValue)
            : name(std::move(attributeName)), value(std::move(attributeValue)) {}
        Attribute(std::string attributeName, const char* attributeValue)
            : name(std::move(attributeName)), value(attributeValue) {}
        std::string name;
        std::string value;
    };

    explicit XMLWriter(std::ostream& out);

    void StartTag(const std::string& name);
    // Raises LogicError when no start tag is open for attributes any more.
    void SetAttribute(const std::string& name, const std::string& value);
    XMLWriter& operator<<(const Attribute& attribute);
    void Text(const std::string& text);
    // A whole element holding one text.
    void Tag(const std::string& name, const std::string& text);
    // Closes the innermost open element; raises LogicError when none is open.
    void EndTag();

    std::size_t Depth() const { return open_.size(); }

    // Replaces the five characters that XML reserves by their entities.
    static std::string Escape(const std::string& text);

private:
    void FinishStartTag();

    std::ostream& out_;
    std::vector<std::string> open_;
    bool startTagOpen_ = false;
    bool hasContent_ = false;
};

}  // namespace Orx::Core
