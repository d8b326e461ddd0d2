#include "Platform/DataCore/DataContainer.h"

namespace Orx::DataCore {

DataContainer::DataContainer(std::string name) : name_(std::move(name)) {}

std::list<DataContainer::Entry>::iterator DataContainer::FindLocked(const std::string& key) {
    auto found = index_.find(key);
    return found == index_.end() ? entries_.end() : found->second;
}

std::list<DataContainer::Entry>::const_iterator DataContainer::FindLocked(const std::string& key) const {
    auto found = index_.find(key);
    return found == index_.end() ? entries_.cend() : std::list<Entry>::const_iterator(found->second);
}

bool DataContainer::HasKey(const std::string& key) const {
    std::lock_guard<std::mutex> lock(mutex_);
    return index_.count(key) != 0;
}

void DataContainer::RemoveKey(const std::string& key) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto found = index_.find(key);
    if (found != index_.end()) {
        entries_.erase(found->second);
        index_.erase(found);
    }
}

std::vector<std::string> DataContainer::GetKeys() const {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<std::string> keys;
    keys.reserve(entries_.size());
    for (const auto& e : entries_) {
        keys.push_back(e.first);
    }
    return keys;
}

template <class T>
bool DataContainer::GetValue(const std::string& key, T& out) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = FindLocked(key);
    if (it == entries_.end()) {
        return false;
    }
    return it->second.Get(out);  // writes out only when it answers true
}

template <class T>
void DataContainer::SetValue(const std::string& key, const T& value, bool create, int mode) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = FindLocked(key);
    if (it == entries_.end()) {
        if (create) {
            PutLocked(key, ContainerValue(value), std::string());
        }
        return;
    }
    int effective = mode == StandingMode ? standingWriteMode_ : mode;
    ContainerValue written(value);
    if (effective == KeepStoredType) {
        auto converted = written.ConvertedTo(it->second.GetKind());
        if (converted) {
            it->second = std::move(*converted);
        }
        return;
    }
    // A "long" stays a "long" when a 32-bit integer is written to it.
    if (written.GetKind() == ContainerValue::Kind::Int && it->second.GetKind() == ContainerValue::Kind::Long) {
        written = *written.ConvertedTo(ContainerValue::Kind::Long);
    }
    it->second = std::move(written);
}

template bool DataContainer::GetValue(const std::string&, std::int32_t&) const;
template bool DataContainer::GetValue(const std::string&, std::uint32_t&) const;
template bool DataContainer::GetValue(const std::string&, float&) const;
template bool DataContainer::GetValue(const std::string&, double&) const;
template bool DataContainer::GetValue(const std::string&, std::string&) const;
template bool DataContainer::GetValue(const std::string&, std::vector<std::string>&) const;
template bool DataContainer::GetValue(const std::string&, Orx::Core::UnitizedValue<double>&) const;
template void DataContainer::SetValue(const std::string&, const std::int32_t&, bool, int);
template void DataContainer::SetValue(const std::string&, const std::uint32_t&, bool, int);
template void DataContainer::SetValue(const std::string&, const float&, bool, int);
template void DataContainer::SetValue(const std::string&, const double&, bool, int);
template void DataContainer::SetValue(const std::string&, const std::string&, bool, int);
template void DataContainer::SetValue(const std::string&, const std::vector<std::string>&, bool, int);
template void DataContainer::SetValue(const std::string&, const Orx::Core::UnitizedValue<double>&, bool, int);

std::shared_ptr<IntMatrix> DataContainer::GetRawData(const std::string& key) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = FindLocked(key);
    return it == entries_.end() ? nullptr : it->second.GetIntMatrix();
}

std::shared_ptr<FloatMatrix> DataContainer::GetFloatMatrix(const std::string& key) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = FindLocked(key);
    return it == entries_.end() ? nullptr : it->second.GetFloatMatrix();
}

std::shared_ptr<FloatMatrixVector> DataContainer::GetFloatMatrices(const std::string& key) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = FindLocked(key);
    return it == entries_.end() ? nullptr : it->second.GetFloatMatrices();
}

void DataContainer::SetMatrix(const std::string& key, ContainerValue value) {
    std::lock_guard<std::mutex> lock(mutex_);
    PutLocked(key, std::move(value), std::string());
}

void DataContainer::SetRawData(const std::string& key, std::shared_ptr<IntMatrix> matrix) {
    SetMatrix(key, ContainerValue(std::move(matrix)));
}

void DataContainer::SetFloatMatrix(const std::string& key, std::shared_ptr<FloatMatrix> matrix) {
    SetMatrix(key, ContainerValue(std::move(matrix)));
}

void DataContainer::SetFloatMatrices(const std::string& key, std::shared_ptr<FloatMatrixVector> matrices) {
    SetMatrix(key, ContainerValue(std::move(matrices)));
}

std::uint8_t DataContainer::GetStandingWriteMode() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return standingWriteMode_;
}

void DataContainer::SetStandingWriteMode(std::uint8_t mode) {
    std::lock_guard<std::mutex> lock(mutex_);
    standingWriteMode_ = mode == KeepStoredType ? KeepStoredType : TakeWrittenType;
}

std::optional<ContainerValue> DataContainer::GetEntry(const std::string& key) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = FindLocked(key);
    if (it == entries_.end()) {
        return std::nullopt;
    }
    return it->second;
}

std::vector<std::pair<std::string, ContainerValue>> DataContainer::GetEntries() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return {entries_.begin(), entries_.end()};
}

void DataContainer::PutEntry(const std::string& key, ContainerValue value, const std::string& after) {
    std::lock_guard<std::mutex> lock(mutex_);
    PutLocked(key, std::move(value), after);
}

void DataContainer::PutLocked(const std::string& key, ContainerValue value, const std::string& after) {
    auto it = FindLocked(key);
    if (it != entries_.end()) {
        it->second = std::move(value);
        return;
    }
    auto anchor = after.empty() ? entries_.end() : FindLocked(after);
    auto position = anchor == entries_.end() ? entries_.end() : std::next(anchor);
    auto inserted = entries_.insert(position, Entry(key, std::move(value)));
    index_.emplace(key, inserted);
}

DataContainerPtr DataContainer::GetChild(const std::string& name) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto found = childIndex_.find(name);
    return found == childIndex_.end() ? nullptr : *found->second;
}

std::vector<DataContainerPtr> DataContainer::GetChildren() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return {children_.begin(), children_.end()};
}

std::vector<std::string> DataContainer::GetChildNames() const {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<std::string> names;
    names.reserve(children_.size());
    for (const auto& c : children_) {
        names.push_back(c->GetName());
    }
    return names;
}

DataContainerPtr DataContainer::AddChild(const std::string& name) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto found = childIndex_.find(name);
    if (found != childIndex_.end()) {
        return *found->second;
    }
    auto child = std::make_shared<DataContainer>(name);
    childIndex_.emplace(name, children_.insert(children_.end(), child));
    return child;
}

void DataContainer::AdoptChild(DataContainerPtr child) {
    if (!child || child.get() == this) {
        return;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    auto found = childIndex_.find(child->GetName());
    if (found != childIndex_.end()) {
        *found->second = std::move(child);
        return;
    }
    const std::string& name = child->GetName();
    childIndex_.emplace(name, children_.insert(children_.end(), std::move(child)));
}

bool DataContainer::RemoveChild(const std::string& name) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto found = childIndex_.find(name);
    if (found == childIndex_.end()) {
        return false;
    }
    children_.erase(found->second);
    childIndex_.erase(found);
    return true;
}

DataContainerPtr DataContainer::Clone() const {
    auto copy = std::make_shared<DataContainer>(name_);
    copy->CopyContentsFrom(*this);
    return copy;
}

void DataContainer::CopyContentsFrom(const DataContainer& other) {
    if (&other == this) {
        return;
    }
    std::vector<Entry> entries;
    std::vector<DataContainerPtr> children;
    std::uint8_t standing;
    {
        std::lock_guard<std::mutex> lock(other.mutex_);
        for (const auto& e : other.entries_) {
            entries.emplace_back(e.first, e.second.DeepCopy());
        }
        children.assign(other.children_.begin(), other.children_.end());
        standing = other.standingWriteMode_;
    }
    std::vector<DataContainerPtr> childCopies;
    childCopies.reserve(children.size());
    for (const auto& c : children) {
        childCopies.push_back(c->Clone());
    }
    std::lock_guard<std::mutex> lock(mutex_);
    ClearLocked();
    for (auto& e : entries) {
        PutLocked(e.first, std::move(e.second), std::string());
    }
    for (auto& c : childCopies) {
        const std::string& name = c->GetName();
        childIndex_.emplace(name, children_.insert(children_.end(), std::move(c)));
    }
    standingWriteMode_ = standing;
}

void DataContainer::Clear() {
    std::lock_guard<std::mutex> lock(mutex_);
    ClearLocked();
}

void DataContainer::ClearLocked() {
    entries_.clear();
    index_.clear();
    children_.clear();
    childIndex_.clear();
}

bool ParameterRead(const DataContainerPtr& container, const std::string& key, std::string& out) {
    out.clear();
    return container && container->GetValue(key, out);
}

}  // namespace Orx::DataCore
