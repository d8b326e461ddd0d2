#pragma once

#include "Infrastructure/OrxDataCore/BuiltInMatrixSerializer.h"

namespace Orx::DataCore {

// A vector of float matrices: a 4-byte count, then each matrix in its binary
// form; in XML one "Contents" element for each.
class BuiltInMatrixVectorSerializer : public BuiltInSerializerBase {
public:
    BuiltInMatrixVectorSerializer(DataObject& owner, FloatMatrixVector& value);

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
    FloatMatrixVector& value_;
};

}  // namespace Orx::DataCore
