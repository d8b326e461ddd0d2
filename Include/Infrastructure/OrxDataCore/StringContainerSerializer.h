#pragma once

#include "Infrastructure/OrxDataCore/BuiltInSerializerBase.h"

#include <vector>

namespace Orx::DataCore {

// A vector of texts: each as a 4-byte length and its bytes; in XML one "Str"
// element for each.
class StringContainerSerializer : public BuiltInSerializerBase {
public:
    StringContainerSerializer(DataObject& owner, std::vector<std::string>& value);

    void DataToXML(Orx::Core::XMLWriter& writer) const override;
    std::uint64_t ToBinary(Orx::Core::DataOutputStream& stream) const override;
    std::uint64_t FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) override;
    std::string GetXMLEncoding() const override;
    std::uint64_t GetDataSize_bytes() const override;

protected:
    void ElementStarted(const std::string& name, const XMLAttributes& attributes, int depth) override;
    void ElementRead(const std::string& name, const XMLAttributes& attributes, const std::string& text,
                     int depth) override;

private:
    std::vector<std::string>& value_;
};

}  // namespace Orx::DataCore
