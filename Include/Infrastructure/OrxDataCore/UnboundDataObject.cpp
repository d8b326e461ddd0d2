#include "Infrastructure/OrxDataCore/UnboundDataObject.h"

#include "Platform/DataStreams.h"

namespace Orx::DataCore {

UnboundData::UnboundData(std::string storedTypeName, std::vector<std::uint8_t> content)
    : storedTypeName_(std::move(storedTypeName)), content_(std::move(content)) {}

void UnboundData::BindData(Serializer& serializer) const {
    Orx::Core::DataInputStream stream(content_.data(), content_.size());
    serializer.FromBinary(content_.size(), stream);
}

}  // namespace Orx::DataCore
