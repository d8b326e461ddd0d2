#pragma once

#include "Infrastructure/OrxDataCore/BuiltInSerializerBase.h"
#include "Infrastructure/OrxDataCore/MatrixForms.h"
#include "Platform/XMLWriter.h"

#include <type_traits>

namespace Orx::DataCore {

// A dense matrix of 32-bit integers or floats. Its XML is plain numbers in a
// "Contents" element while the matrix is small enough (and, for floats, while
// that is switched on), else the default form.
template <class M>
class BuiltInMatrixSerializer : public BuiltInSerializerBase {
public:
    BuiltInMatrixSerializer(DataObject& owner, M& value) : BuiltInSerializerBase(owner), value_(value) {}

    void DataToXML(Orx::Core::XMLWriter& writer) const override {
        if (!PlainTextAllowed(value_.data().size())) {
            Serializer::DataToXML(writer);
            return;
        }
        LabelElement(writer);
        writer.StartTag("Contents");
        writer << Orx::Core::XMLWriter::Attribute("size1", value_.size1())
               << Orx::Core::XMLWriter::Attribute("size2", value_.size2());
        writer.Text(MatrixForms::PlainText(value_));
        writer.EndTag();
    }

    std::uint64_t ToBinary(Orx::Core::DataOutputStream& stream) const override {
        return MatrixForms::WriteBinary(stream, value_);
    }
    std::uint64_t FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) override {
        return MatrixForms::ReadBinary(numberOfBytes, stream, value_);
    }
    std::string GetXMLEncoding() const override { return "Matrix"; }
    std::uint64_t GetDataSize_bytes() const override { return MatrixForms::BinarySize(value_); }

    static bool PlainTextAllowed(std::uint64_t elements) {
        bool floats = std::is_floating_point_v<typename M::value_type>;
        return elements <= GetMaxScalarElementsForPlainText() && (!floats || PlainTextForFloatCollectionsIsEnabled());
    }

protected:
    void ElementRead(const std::string& name, const XMLAttributes& attributes, const std::string& text,
                     int depth) override {
        if (depth == 2 && name == "Contents") {
            MatrixForms::FromPlainText(text, SizeAttribute(attributes, "size1"), SizeAttribute(attributes, "size2"),
                                       value_);
        }
    }

private:
    M& value_;
};

}  // namespace Orx::DataCore
