#pragma once

#include "Infrastructure/OrxDataCore/Serializer.h"

#include <cstdint>
#include <vector>

namespace Orx::DataCore {

// Common ground of the serializers of the built-in types: reads the
// serializer's own XML encoding element by element, and labels the element
// that a caller opened for the value.
class BuiltInSerializerBase : public Serializer, public XMLContentHandler {
public:
    XMLContentHandler* GetXMLContentHandler(const std::string& encoding) override;
    // Only the scalars have a size of their own; the rest take what their value needs.
    bool DataSizeIsConstant() const override;

    void StartDocument() override;
    void StartElement(const std::string& name, const XMLAttributes& attributes) override;
    void Characters(const std::string& text) override;
    void EndElement(const std::string& name) override;

protected:
    explicit BuiltInSerializerBase(DataObject& owner);

    // Depth 1 is the element that holds the value, 2 its children.
    virtual void ElementStarted(const std::string& name, const XMLAttributes& attributes, int depth);
    virtual void ElementRead(const std::string& name, const XMLAttributes& attributes, const std::string& text,
                             int depth) = 0;

    void LabelElement(Orx::Core::XMLWriter& writer) const;
    // The text without the XML white space around it.
    static std::string Trimmed(const std::string& text);
    [[noreturn]] void RefuseXML(const std::string& why) const;
    // A matrix size from an attribute, taken by name whatever the order.
    std::uint64_t SizeAttribute(const XMLAttributes& attributes, const char* name) const;

private:
    struct Open {
        XMLAttributes attributes;
        std::string text;
    };
    std::vector<Open> open_;
};

}  // namespace Orx::DataCore
