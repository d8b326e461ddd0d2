#pragma once

#include "Infrastructure/OrxDataCore/DataTypeTraits.h"
#include "Infrastructure/OrxDataCore/MutexLockableDataObject.h"

#include <memory>

namespace Orx::DataCore {

// Owns one value of type T, shared, together with its serializer.
template <class T>
class GenericWrapper : public MutexLockableDataObject {
public:
    GenericWrapper() : GenericWrapper(std::make_shared<T>()) {}
    explicit GenericWrapper(std::shared_ptr<T> value) : value_(value ? std::move(value) : std::make_shared<T>()) {
        SetSerializer(DataTypeTraits<T>::MakeSerializer(*this, *value_));
    }

    T& GetValue() { return *value_; }
    const T& GetValue() const { return *value_; }
    // The value is replaced in place: the serializer keeps serving it.
    void SetValue(const T& value) { *value_ = value; }
    const std::shared_ptr<T>& GetSharedValue() const { return value_; }

    std::string GetTypeName() const override { return DataTypeTraits<T>::Name(); }

private:
    std::shared_ptr<T> value_;
};

}  // namespace Orx::DataCore
