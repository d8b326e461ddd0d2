#include "Infrastructure/OrxDataCore/StringContainerSerializer.h"

#include "Platform/AlertInfo.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

namespace Orx::DataCore {

StringContainerSerializer::StringContainerSerializer(DataObject& owner, std::vector<std::string>& value)
    : BuiltInSerializerBase(owner), value_(value) {}

void StringContainerSerializer::DataToXML(Orx::Core::XMLWriter& writer) const {
    LabelElement(writer);
    for (const auto& s : value_) {
        writer.Tag("Str", s);
    }
}

std::uint64_t StringContainerSerializer::ToBinary(Orx::Core::DataOutputStream& stream) const {
    std::uint64_t written = 0;
    for (const auto& s : value_) {
        stream.WriteString(s);
        written += s.size() + 4;
    }
    return written;
}

std::uint64_t StringContainerSerializer::FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) {
    value_.clear();
    std::uint64_t consumed = 0;
    while (consumed < numberOfBytes) {
        std::size_t before = stream.Position();
        std::string s = stream.ReadString();
        consumed += stream.Position() - before;
        if (consumed > numberOfBytes) {
            throw Orx::Core::LogicError("A string runs beyond the " + std::to_string(numberOfBytes) +
                                            " bytes of its vector",
                                        "Orx.DataCore.Serializer", ORX_CODE_CONTEXT);
        }
        value_.push_back(std::move(s));
    }
    return consumed;
}

std::string StringContainerSerializer::GetXMLEncoding() const { return "vector<string>"; }

std::uint64_t StringContainerSerializer::GetDataSize_bytes() const {
    std::uint64_t size = 0;
    for (const auto& s : value_) {
        size += s.size() + 4;
    }
    return size;
}

void StringContainerSerializer::ElementStarted(const std::string&, const XMLAttributes&, int depth) {
    if (depth == 1) {
        value_.clear();
    }
}

void StringContainerSerializer::ElementRead(const std::string& name, const XMLAttributes&, const std::string& text,
                                            int depth) {
    if (depth == 2 && name == "Str") {
        value_.push_back(text);
    }
}

}  // namespace Orx::DataCore
