#include "Infrastructure/OrxDataCore/Serializer.h"

#include "Infrastructure/OrxDataCore/HexDigits.h"
#include "Infrastructure/OrxDataCore/XMLEventReader.h"
#include "Platform/AlertInfo.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

#include <atomic>
#include <vector>

namespace Orx::DataCore {

const std::string Serializer::DEFAULT_XML_ENCODING = "hexBinary";

namespace {

std::atomic<std::uint64_t> maxPlainElements{65536};
std::atomic<bool> plainFloatCollections{true};

}  // namespace

// Reads the default form: the binary form as hexadecimal digits, white space
// between them allowed.
class Serializer::HexContentHandler : public XMLContentHandler {
public:
    explicit HexContentHandler(Serializer& owner) : owner_(owner) {}

    void StartDocument() override {
        depth_ = 0;
        bytes_.clear();
        pendingNibble_ = -1;
    }

    void StartElement(const std::string& name, const XMLAttributes&) override {
        if (++depth_ > 1) {
            throw Orx::Core::LogicError("Element <" + name + "> inside a value of the default encoding",
                                        "Orx.DataCore.XML", ORX_CODE_CONTEXT);
        }
        bytes_.clear();
        pendingNibble_ = -1;
    }

    void Characters(const std::string& text) override {
        for (char c : text) {
            if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
                continue;
            }
            int d = HexDigits::Value(c);
            if (d < 0) {
                throw Orx::Core::LogicError("A value of the default encoding holds a character that is no digit",
                                            "Orx.DataCore.XML", ORX_CODE_CONTEXT);
            }
            if (pendingNibble_ < 0) {
                pendingNibble_ = d;
            } else {
                bytes_.push_back(static_cast<std::uint8_t>(pendingNibble_ * 16 + d));
                pendingNibble_ = -1;
            }
        }
    }

    void EndElement(const std::string&) override {
        if (--depth_ > 0) {
            return;
        }
        if (pendingNibble_ >= 0) {
            throw Orx::Core::LogicError("A value of the default encoding ends in half a byte", "Orx.DataCore.XML",
                                        ORX_CODE_CONTEXT);
        }
        Orx::Core::DataInputStream stream(bytes_.data(), bytes_.size());
        owner_.FromBinary(bytes_.size(), stream);
    }

private:
    Serializer& owner_;
    std::vector<std::uint8_t> bytes_;
    int pendingNibble_ = -1;
    int depth_ = 0;
};

// Chooses the handler by the encoding of the root element and passes it every
// event of that element.
class Serializer::EncodingDispatcher : public XMLContentHandler {
public:
    explicit EncodingDispatcher(Serializer& owner) : owner_(owner) {}

    void StartElement(const std::string& name, const XMLAttributes& attributes) override {
        if (target_ == nullptr) {
            auto found = attributes.find("encoding");
            std::string encoding = found == attributes.end() ? owner_.GetXMLEncoding() : found->second;
            target_ = owner_.GetXMLContentHandler(encoding);
            if (target_ == nullptr) {
                throw Orx::Core::LogicError("No reader for the XML encoding \"" + encoding + "\"",
                                            "Orx.DataCore.XML", ORX_CODE_CONTEXT);
            }
            target_->StartDocument();
        }
        target_->StartElement(name, attributes);
    }
    void Characters(const std::string& text) override {
        if (target_ != nullptr) {
            target_->Characters(text);
        }
    }
    void EndElement(const std::string& name) override {
        if (target_ != nullptr) {
            target_->EndElement(name);
        }
    }

private:
    Serializer& owner_;
    XMLContentHandler* target_ = nullptr;
};

Serializer::Serializer(DataObject& owner)
    : owner_(owner), defaultHandler_(std::make_unique<HexContentHandler>(*this)) {}

Serializer::~Serializer() = default;

DataObject& Serializer::GetDataObject() const { return owner_; }

XMLContentHandler* Serializer::GetXMLContentHandler(const std::string& encoding) {
    return IsDefaultEncoding(encoding) ? defaultHandler_.get() : nullptr;
}

void Serializer::DataToXML(Orx::Core::XMLWriter& writer) const {
    std::vector<std::uint8_t> bytes;
    Orx::Core::DataOutputStream stream(bytes);
    ToBinary(stream);
    std::string text;
    text.reserve(bytes.size() * 2);
    for (std::uint8_t b : bytes) {
        text.push_back(HexDigits::Digit(b >> 4));
        text.push_back(HexDigits::Digit(b));
    }
    writer << Orx::Core::XMLWriter::Attribute("encoding", DEFAULT_XML_ENCODING);
    writer.Text(text);
}

bool Serializer::IsDefaultEncoding(const std::string& encoding) { return encoding == DEFAULT_XML_ENCODING; }

void Serializer::DataFromXML(const std::string& xml) {
    EncodingDispatcher dispatcher(*this);
    XMLEventReader::Parse(xml, dispatcher);
}

std::uint64_t Serializer::GetMaxScalarElementsForPlainText() { return maxPlainElements.load(); }

void Serializer::SetMaxScalarElementsForPlainText(std::uint64_t count) { maxPlainElements.store(count); }

bool Serializer::PlainTextForFloatCollectionsIsEnabled() { return plainFloatCollections.load(); }

void Serializer::EnablePlainTextForFloatCollections(bool enable) { plainFloatCollections.store(enable); }

}  // namespace Orx::DataCore
