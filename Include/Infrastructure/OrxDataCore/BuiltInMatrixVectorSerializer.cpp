#include "Infrastructure/OrxDataCore/BuiltInMatrixVectorSerializer.h"

#include "Platform/AlertInfo.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

#include <limits>

namespace Orx::DataCore {

BuiltInMatrixVectorSerializer::BuiltInMatrixVectorSerializer(DataObject& owner, FloatMatrixVector& value)
    : BuiltInSerializerBase(owner), value_(value) {}

void BuiltInMatrixVectorSerializer::DataToXML(Orx::Core::XMLWriter& writer) const {
    std::uint64_t elements = 0;
    for (const auto& m : value_) {
        elements += m.data().size();
    }
    if (!BuiltInMatrixSerializer<FloatMatrix>::PlainTextAllowed(elements)) {
        Serializer::DataToXML(writer);
        return;
    }
    LabelElement(writer);
    for (const auto& m : value_) {
        writer.StartTag("Contents");
        writer << Orx::Core::XMLWriter::Attribute("size1", m.size1())
               << Orx::Core::XMLWriter::Attribute("size2", m.size2());
        writer.Text(MatrixForms::PlainText(m));
        writer.EndTag();
    }
}

std::uint64_t BuiltInMatrixVectorSerializer::ToBinary(Orx::Core::DataOutputStream& stream) const {
    if (value_.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw Orx::Core::LogicError("Too many matrices for a 4-byte count", "Orx.DataCore.Serializer",
                                    ORX_CODE_CONTEXT);
    }
    stream.WriteUInt32(static_cast<std::uint32_t>(value_.size()));
    std::uint64_t written = 4;
    for (const auto& m : value_) {
        written += MatrixForms::WriteBinary(stream, m);
    }
    return written;
}

std::uint64_t BuiltInMatrixVectorSerializer::FromBinary(std::uint64_t numberOfBytes,
                                                        Orx::Core::DataInputStream& stream) {
    if (numberOfBytes < 4) {
        throw Orx::Core::LogicError("A vector of matrices needs 4 bytes for its count", "Orx.DataCore.Serializer",
                                    ORX_CODE_CONTEXT);
    }
    std::uint64_t count = stream.ReadUInt32();
    std::uint64_t left = std::min<std::uint64_t>(numberOfBytes - 4, stream.Remaining());
    // Every matrix takes at least its 8 bytes of sizes: the count cannot ask
    // for more matrices than the bytes could hold.
    if (count > left / 8) {
        throw Orx::Core::LogicError("A count of " + std::to_string(count) + " matrices in " + std::to_string(left) +
                                        " bytes",
                                    "Orx.DataCore.Serializer", ORX_CODE_CONTEXT);
    }
    FloatMatrixVector result(static_cast<std::size_t>(count));
    std::uint64_t consumed = 4;
    for (auto& m : result) {
        std::uint64_t n = MatrixForms::ReadBinary(left, stream, m);
        left -= n;
        consumed += n;
    }
    value_ = std::move(result);
    return consumed;
}

std::string BuiltInMatrixVectorSerializer::GetXMLEncoding() const { return "vector<Matrix>"; }

std::uint64_t BuiltInMatrixVectorSerializer::GetDataSize_bytes() const {
    std::uint64_t size = 4;
    for (const auto& m : value_) {
        size += MatrixForms::BinarySize(m);
    }
    return size;
}

void BuiltInMatrixVectorSerializer::ElementStarted(const std::string&, const XMLAttributes&, int depth) {
    if (depth == 1) {
        value_.clear();
    }
}

void BuiltInMatrixVectorSerializer::ElementRead(const std::string& name, const XMLAttributes& attributes,
                                                const std::string& text, int depth) {
    if (depth == 2 && name == "Contents") {
        FloatMatrix m;
        MatrixForms::FromPlainText(text, SizeAttribute(attributes, "size1"), SizeAttribute(attributes, "size2"), m);
        value_.push_back(std::move(m));
    }
}

}  // namespace Orx::DataCore
