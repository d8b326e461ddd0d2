#pragma once

#include <memory>
#include <string>

namespace Orx::DataCore {

class Serializer;

// A value of a data file, typed or not yet typed.
class DataObject {
public:
    virtual ~DataObject();
    DataObject(const DataObject&) = delete;
    DataObject& operator=(const DataObject&) = delete;

    // Null when the type has no serializer or serialization is switched off.
    Serializer* GetSerializer() const;
    void EnableSerialization(bool enable);
    bool IsSerializationEnabled() const { return serializationEnabled_; }
    virtual bool IsLockable() const;
    // The name under which a value of this type is stored.
    virtual std::string GetTypeName() const = 0;

protected:
    DataObject();
    void SetSerializer(std::unique_ptr<Serializer> serializer);

private:
    std::unique_ptr<Serializer> serializer_;
    bool serializationEnabled_ = true;
};

}  // namespace Orx::DataCore
