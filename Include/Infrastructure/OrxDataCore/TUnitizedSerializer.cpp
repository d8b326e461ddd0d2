#include "Infrastructure/OrxDataCore/TUnitizedSerializer.h"

#include "Platform/AlertInfo.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

#include <boost/lexical_cast.hpp>

namespace Orx::DataCore {

TUnitizedSerializer::TUnitizedSerializer(DataObject& owner, Orx::Core::UnitizedValue<double>& value)
    : BuiltInSerializerBase(owner), value_(value) {}

Orx::Core::UnitizedValue<double> TUnitizedSerializer::MakeValue(double number, const std::string& unitName) {
    if (unitName.empty()) {
        return Orx::Core::UnitizedValue<double>(number);
    }
    return Orx::Core::UnitizedValue<double>(number, unitName);
}

std::string TUnitizedSerializer::UnitName(const Orx::Core::UnitizedValue<double>& value) {
    const auto& unit = value.GetUnits();
    return unit ? unit->GetName() : std::string();
}

void TUnitizedSerializer::DataToXML(Orx::Core::XMLWriter& writer) const {
    LabelElement(writer);
    writer << Orx::Core::XMLWriter::Attribute("unit", UnitName(value_));
    writer.Text(boost::lexical_cast<std::string>(value_.GetValue()));
}

std::uint64_t TUnitizedSerializer::ToBinary(Orx::Core::DataOutputStream& stream) const {
    std::string unit = UnitName(value_);
    stream.WriteDouble(value_.GetValue());
    stream.WriteString(unit);
    return 8 + 4 + unit.size();
}

std::uint64_t TUnitizedSerializer::FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) {
    std::size_t start = stream.Position();
    double number = stream.ReadDouble();
    std::string unit = stream.ReadString();
    std::uint64_t consumed = stream.Position() - start;
    if (consumed > numberOfBytes) {
        throw Orx::Core::LogicError("A unitized value runs beyond its " + std::to_string(numberOfBytes) + " bytes",
                                    "Orx.DataCore.Serializer", ORX_CODE_CONTEXT);
    }
    value_ = MakeValue(number, unit);
    return consumed;
}

std::string TUnitizedSerializer::GetXMLEncoding() const { return "TUnitized"; }

std::uint64_t TUnitizedSerializer::GetDataSize_bytes() const { return 8 + 4 + UnitName(value_).size(); }

void TUnitizedSerializer::ElementRead(const std::string&, const XMLAttributes& attributes, const std::string& text,
                                      int depth) {
    if (depth != 1) {
        return;
    }
    double number = 0;
    try {
        number = boost::lexical_cast<double>(Trimmed(text));
    } catch (const boost::bad_lexical_cast&) {
        RefuseXML("\"" + text + "\" is no number");
    }
    auto unit = attributes.find("unit");
    value_ = MakeValue(number, unit == attributes.end() ? std::string() : unit->second);
}

}  // namespace Orx::DataCore
