#include "Platform/XMLWriter.h"

#include "Platform/AlertInfo.h"

namespace Orx::Core {

XMLWriter::XMLWriter(std::ostream& out) : out_(out) {}

void XMLWriter::StartTag(const std::string& name) {
    FinishStartTag();
    out_ << '<' << name;
    open_.push_back(name);
    startTagOpen_ = true;
    hasContent_ = false;
}

void XMLWriter::SetAttribute(const std::string& name, const std::string& value) {
    if (!startTagOpen_) {
        throw LogicError("Attribute \"" + name + "\" written after the content of its element", "Orx.Core.XML",
                         ORX_CODE_CONTEXT);
    }
    out_ << ' ' << name << "=\"" << Escape(value) << '"';
}

XMLWriter& XMLWriter::operator<<(const Attribute& attribute) {
    SetAttribute(attribute.name, attribute.value);
    return *this;
}

void XMLWriter::Text(const std::string& text) {
    FinishStartTag();
    out_ << Escape(text);
    hasContent_ = true;
}

void XMLWriter::Tag(const std::string& name, const std::string& text) {
    StartTag(name);
    Text(text);
    EndTag();
}

void XMLWriter::EndTag() {
    if (open_.empty()) {
        throw LogicError("End tag written with no element open", "Orx.Core.XML", ORX_CODE_CONTEXT);
    }
    if (startTagOpen_ && !hasContent_) {
        out_ << "/>";
        startTagOpen_ = false;
    } else {
        FinishStartTag();
        out_ << "</" << open_.back() << '>';
    }
    open_.pop_back();
    hasContent_ = true;  // the parent now has content
}

void XMLWriter::FinishStartTag() {
    if (startTagOpen_) {
        out_ << '>';
        startTagOpen_ = false;
    }
}

std::string XMLWriter::Escape(const std::string& text) {
    static const char* const special = "<>&'\"";
    std::string::size_type next = text.find_first_of(special);
    if (next == std::string::npos) {
        return text;
    }
    std::string result;
    result.reserve(text.size() + 16);
    std::string::size_type from = 0;
    while (next != std::string::npos) {
        result.append(text, from, next - from);
        switch (text[next]) {
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '&': result += "&amp;"; break;
            case '\'': result += "&apos;"; break;
            default: result += "&quot;"; break;
        }
        from = next + 1;
        next = text.find_first_of(special, from);
    }
    result.append(text, from, std::string::npos);
    return result;
}

}  // namespace Orx::Core
