#pragma once

#include "Infrastructure/OrxDataCore/GenericWrapper.h"

#include <memory>

namespace Orx::DataCore {

// The typed handle a caller holds: the value and the wrapper around it.
template <class T, class W = GenericWrapper<T>>
class Data {
public:
    Data() : wrapper_(std::make_shared<W>()) {}
    explicit Data(std::shared_ptr<W> wrapper) : wrapper_(std::move(wrapper)) {}

    // An empty handle when the object holds a value of another type.
    static Data FromObject(const std::shared_ptr<DataObject>& object) {
        return Data(std::dynamic_pointer_cast<W>(object));
    }

    explicit operator bool() const { return wrapper_ != nullptr; }
    T& operator*() const { return wrapper_->GetValue(); }
    T* operator->() const { return &wrapper_->GetValue(); }
    const std::shared_ptr<W>& GetWrapper() const { return wrapper_; }

private:
    std::shared_ptr<W> wrapper_;
};

}  // namespace Orx::DataCore
