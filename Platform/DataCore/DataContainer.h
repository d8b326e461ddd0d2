#pragma once

#include "Infrastructure/OrxCore/UnitizedValue.h"
#include "Infrastructure/OrxDataCore/Matrices.h"
#include "Platform/DataCore/ContainerValue.h"

#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Orx::DataCore {

class DataContainer;
using DataContainerPtr = std::shared_ptr<DataContainer>;

// One section of a data file: keys with typed values in the order the file
// gave them, and sections below it. Every call takes the container's own
// lock for its length; matrices are handed out shared, so a caller that
// changes one in place changes what the file will write.
class DataContainer {
public:
    // What SetValue does with a key stored under another type than the one written.
    enum WriteMode : int {
        KeepStoredType = 0,   // the value is converted into the stored type; no effect where it cannot be
        TakeWrittenType = 1,  // the key takes the written value and its type
        StandingMode = 2,     // whatever the container's standing setting says
    };

    explicit DataContainer(std::string name);
    DataContainer(const DataContainer&) = delete;
    DataContainer& operator=(const DataContainer&) = delete;

    const std::string& GetName() const { return name_; }

    bool HasKey(const std::string& key) const;
    void RemoveKey(const std::string& key);
    std::vector<std::string> GetKeys() const;

    // T: std::int32_t, std::uint32_t, float, double, UnitizedValue<double>,
    // std::string, std::vector<std::string>. A missing key, or one whose value
    // does not read as T, answers false and leaves out as it was.
    template <class T>
    bool GetValue(const std::string& key, T& out) const;
    // An absent key is left absent unless create is set; then the key is
    // added at the end.
    template <class T>
    void SetValue(const std::string& key, const T& value, bool create = false, int mode = StandingMode);
    // A literal is written as the text it is.
    void SetValue(const std::string& key, const char* value, bool create = false, int mode = StandingMode) {
        SetValue(key, std::string(value), create, mode);
    }

    // Empty pointers where the key is missing or holds something else.
    std::shared_ptr<IntMatrix> GetRawData(const std::string& key) const;
    std::shared_ptr<FloatMatrix> GetFloatMatrix(const std::string& key) const;
    std::shared_ptr<FloatMatrixVector> GetFloatMatrices(const std::string& key) const;
    // These add the key at the end where it is absent.
    void SetRawData(const std::string& key, std::shared_ptr<IntMatrix> matrix);
    void SetFloatMatrix(const std::string& key, std::shared_ptr<FloatMatrix> matrix);
    void SetFloatMatrices(const std::string& key, std::shared_ptr<FloatMatrixVector> matrices);

    // The meaning of StandingMode for this container; TakeWrittenType unless set.
    std::uint8_t GetStandingWriteMode() const;
    void SetStandingWriteMode(std::uint8_t mode);

    // Raw values, for the file layer.
    std::optional<ContainerValue> GetEntry(const std::string& key) const;
    std::vector<std::pair<std::string, ContainerValue>> GetEntries() const;
    // Replaces the value of a present key where it stands; adds an absent one
    // behind the key named by after, or at the end when that is empty or absent.
    void PutEntry(const std::string& key, ContainerValue value, const std::string& after = std::string());

    // Sections below this one, in order.
    DataContainerPtr GetChild(const std::string& name) const;
    std::vector<DataContainerPtr> GetChildren() const;
    std::vector<std::string> GetChildNames() const;
    // The child of that name, made at the end when there is none.
    DataContainerPtr AddChild(const std::string& name);
    // Puts a container below this one, in place of one of the same name.
    void AdoptChild(DataContainerPtr child);
    bool RemoveChild(const std::string& name);

    // A copy of the whole subtree, matrices included.
    DataContainerPtr Clone() const;
    // Replaces keys and children by deep copies of the other's.
    void CopyContentsFrom(const DataContainer& other);
    void Clear();

private:
    using Entry = std::pair<std::string, ContainerValue>;

    std::list<Entry>::iterator FindLocked(const std::string& key);
    std::list<Entry>::const_iterator FindLocked(const std::string& key) const;
    void PutLocked(const std::string& key, ContainerValue value, const std::string& after);
    void SetMatrix(const std::string& key, ContainerValue value);
    void ClearLocked();

    const std::string name_;
    mutable std::mutex mutex_;
    std::list<Entry> entries_;
    std::unordered_map<std::string, std::list<Entry>::iterator> index_;
    std::list<DataContainerPtr> children_;
    std::unordered_map<std::string, std::list<DataContainerPtr>::iterator> childIndex_;
    std::uint8_t standingWriteMode_ = TakeWrittenType;
};

// The parameter read: clears out, then reads the key as a text. A missing key
// thus leaves an empty text, where GetValue would leave out as it was.
bool ParameterRead(const DataContainerPtr& container, const std::string& key, std::string& out);

}  // namespace Orx::DataCore
