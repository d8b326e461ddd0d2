#pragma once

#include "Infrastructure/OrxCore/UnitizedValue.h"
#include "Infrastructure/OrxDataCore/BuiltInSerializerBase.h"

namespace Orx::DataCore {

// A number with a unit: the number as 8 bytes, then the unit's name as a
// string of the stream. Reading builds the value through the unit
// dictionary, so an unknown unit raises XUnitNotFound.
class TUnitizedSerializer : public BuiltInSerializerBase {
public:
    TUnitizedSerializer(DataObject& owner, Orx::Core::UnitizedValue<double>& value);

    void DataToXML(Orx::Core::XMLWriter& writer) const override;
    std::uint64_t ToBinary(Orx::Core::DataOutputStream& stream) const override;
    std::uint64_t FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) override;
    std::string GetXMLEncoding() const override;
    std::uint64_t GetDataSize_bytes() const override;

    // An empty name makes a value without a unit.
    static Orx::Core::UnitizedValue<double> MakeValue(double number, const std::string& unitName);
    static std::string UnitName(const Orx::Core::UnitizedValue<double>& value);

protected:
    void ElementRead(const std::string& name, const XMLAttributes& attributes, const std::string& text,
                     int depth) override;

private:
    Orx::Core::UnitizedValue<double>& value_;
};

}  // namespace Orx::DataCore
