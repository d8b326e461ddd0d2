#pragma once

#include "Infrastructure/OrxDataCore/BuiltInSerializerBase.h"

namespace Orx::DataCore {

// A text: its bytes alone in the binary form, the record around it gives the count.
class StringSerializer : public BuiltInSerializerBase {
public:
    StringSerializer(DataObject& owner, std::string& value);

    void DataToXML(Orx::Core::XMLWriter& writer) const override;
    std::uint64_t ToBinary(Orx::Core::DataOutputStream& stream) const override;
    std::uint64_t FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) override;
    std::string GetXMLEncoding() const override;
    std::uint64_t GetDataSize_bytes() const override;

protected:
    void ElementRead(const std::string& name, const XMLAttributes& attributes, const std::string& text,
                     int depth) override;

private:
    std::string& value_;
};

}  // namespace Orx::DataCore
