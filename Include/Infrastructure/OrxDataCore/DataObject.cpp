#include "Infrastructure/OrxDataCore/DataObject.h"

#include "Infrastructure/OrxDataCore/Serializer.h"

namespace Orx::DataCore {

DataObject::DataObject() = default;
DataObject::~DataObject() = default;

Serializer* DataObject::GetSerializer() const { return serializationEnabled_ ? serializer_.get() : nullptr; }

void DataObject::EnableSerialization(bool enable) { serializationEnabled_ = enable; }

bool DataObject::IsLockable() const { return false; }

void DataObject::SetSerializer(std::unique_ptr<Serializer> serializer) { serializer_ = std::move(serializer); }

}  // namespace Orx::DataCore
