#include "Infrastructure/OrxDataCore/StringSerializer.h"

#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

namespace Orx::DataCore {

StringSerializer::StringSerializer(DataObject& owner, std::string& value)
    : BuiltInSerializerBase(owner), value_(value) {}

void StringSerializer::DataToXML(Orx::Core::XMLWriter& writer) const {
    LabelElement(writer);
    writer.Text(value_);
}

std::uint64_t StringSerializer::ToBinary(Orx::Core::DataOutputStream& stream) const {
    stream.WriteBytes(value_.data(), value_.size());
    return value_.size();
}

std::uint64_t StringSerializer::FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) {
    if (numberOfBytes == 0) {
        return 0;
    }
    value_ = stream.ReadText(static_cast<std::size_t>(numberOfBytes));
    return numberOfBytes;
}

std::string StringSerializer::GetXMLEncoding() const { return "AsciiString"; }

std::uint64_t StringSerializer::GetDataSize_bytes() const { return value_.size(); }

void StringSerializer::ElementRead(const std::string&, const XMLAttributes&, const std::string& text, int depth) {
    if (depth == 1) {
        value_ = text;
    }
}

}  // namespace Orx::DataCore
