#pragma once

#include "Infrastructure/OrxDataCore/BuiltInDataObjects.h"
#include "Infrastructure/OrxDataCore/DataBindWarnings.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Orx::DataCore {

// A value as it came from a file: its stored type name and its binary form,
// untyped until a reader binds it to the type it expects.
class UnboundData : public DataObject {
public:
    UnboundData(std::string storedTypeName, std::vector<std::uint8_t> content);

    const std::string& GetStoredTypeName() const { return storedTypeName_; }
    std::uint64_t GetSize() const { return content_.size(); }
    const std::vector<std::uint8_t>& GetContent() const { return content_; }
    std::string GetTypeName() const override { return storedTypeName_; }

    // Hands the whole content to the serializer's FromBinary.
    void BindData(Serializer& serializer) const;

    // A typed object made from the content. A mismatch of type or size is
    // reported as a warning, and the binding goes on.
    template <class T>
    std::shared_ptr<DataObject> BindType() const {
        const std::string requested = DataTypeTraits<T>::Name();
        if (storedTypeName_ != requested) {
            Orx::Core::Warning::RaiseWarning(UnboundTypeMismatch(storedTypeName_, requested, ORX_CODE_CONTEXT));
        }
        auto object = std::make_shared<GenericWrapper<T>>();
        Serializer* serializer = object->GetSerializer();
        if (serializer != nullptr) {
            if (serializer->DataSizeIsConstant() && GetSize() != serializer->GetDataSize_bytes()) {
                Orx::Core::Warning::RaiseWarning(
                    UnboundSizeMismatch(GetSize(), serializer->GetDataSize_bytes(), ORX_CODE_CONTEXT));
            }
            BindData(*serializer);
        } else {
            Orx::Core::Warning::RaiseWarning(
                NullSerializerForDataBind(object->GetTypeName(), storedTypeName_, ORX_CODE_CONTEXT));
        }
        return object;
    }

private:
    std::string storedTypeName_;
    std::vector<std::uint8_t> content_;
};

}  // namespace Orx::DataCore
