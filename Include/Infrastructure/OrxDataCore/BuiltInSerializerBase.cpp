#include "Infrastructure/OrxDataCore/BuiltInSerializerBase.h"

#include "Platform/AlertInfo.h"
#include "Platform/XMLWriter.h"

#include <boost/lexical_cast.hpp>

namespace Orx::DataCore {

BuiltInSerializerBase::BuiltInSerializerBase(DataObject& owner) : Serializer(owner) {}

XMLContentHandler* BuiltInSerializerBase::GetXMLContentHandler(const std::string& encoding) {
    if (encoding == GetXMLEncoding()) {
        return this;
    }
    return Serializer::GetXMLContentHandler(encoding);
}

bool BuiltInSerializerBase::DataSizeIsConstant() const { return false; }

void BuiltInSerializerBase::StartDocument() { open_.clear(); }

void BuiltInSerializerBase::StartElement(const std::string& name, const XMLAttributes& attributes) {
    open_.push_back(Open{attributes, {}});
    ElementStarted(name, attributes, static_cast<int>(open_.size()));
}

void BuiltInSerializerBase::Characters(const std::string& text) {
    if (!open_.empty()) {
        open_.back().text += text;
    }
}

void BuiltInSerializerBase::EndElement(const std::string& name) {
    if (open_.empty()) {
        return;
    }
    Open element = std::move(open_.back());
    int depth = static_cast<int>(open_.size());
    open_.pop_back();
    ElementRead(name, element.attributes, element.text, depth);
}

void BuiltInSerializerBase::ElementStarted(const std::string&, const XMLAttributes&, int) {}

void BuiltInSerializerBase::LabelElement(Orx::Core::XMLWriter& writer) const {
    writer << Orx::Core::XMLWriter::Attribute("encoding", GetXMLEncoding());
}

std::string BuiltInSerializerBase::Trimmed(const std::string& text) {
    static const char* const space = " \t\r\n";
    auto first = text.find_first_not_of(space);
    if (first == std::string::npos) {
        return {};
    }
    auto last = text.find_last_not_of(space);
    return text.substr(first, last - first + 1);
}

void BuiltInSerializerBase::RefuseXML(const std::string& why) const {
    throw Orx::Core::LogicError("XML of encoding \"" + GetXMLEncoding() + "\": " + why, "Orx.DataCore.XML",
                                ORX_CODE_CONTEXT);
}

std::uint64_t BuiltInSerializerBase::SizeAttribute(const XMLAttributes& attributes, const char* name) const {
    auto found = attributes.find(name);
    if (found == attributes.end()) {
        RefuseXML(std::string("\"") + name + "\" is missing");
    }
    try {
        return boost::lexical_cast<std::uint64_t>(found->second);
    } catch (const boost::bad_lexical_cast&) {
        RefuseXML(std::string("\"") + name + "\" is no size");
    }
}

}  // namespace Orx::DataCore
