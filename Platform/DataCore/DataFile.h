#pragma once

#include "Platform/DataCore/DataContainer.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Orx::DataCore {

// One data file: a tree of sections under a root container, and the type
// text the file names itself with. The whole content, samples included, is
// read on opening, so the sections stay readable after Close and a save may
// replace the very file they came from.
class DataFile {
public:
    // Access 1 with behaviour 0 opens an existing file for reading: null when
    // it cannot be opened, ContainerFormatError when it is malformed.
    // Access 2 with behaviour 2 makes a new, empty file of the given type for
    // that path, written on Close; it is not open when the path cannot be
    // written. The container, when given, becomes the new file's root.
    // Any other pair raises LogicError.
    static std::shared_ptr<DataFile> Open(const std::string& path, int access, int behaviour,
                                          const std::string& fileType, std::shared_ptr<DataContainer> container);
    // A file object over a container image in memory, not bound to a path.
    static std::shared_ptr<DataFile> OpenMemory(const void* data, std::size_t size);
    // The object of the family that the type text names.
    static std::shared_ptr<DataFile> Make(const std::string& path, const std::string& fileType, DataContainerPtr root);

    DataFile(std::string path, std::string fileType, DataContainerPtr root);
    virtual ~DataFile();
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    // The section at the path; the root for an empty path; null when missing.
    virtual DataContainerPtr GetContainer(const std::vector<std::string>& path, int reserved = 0) const;
    virtual void RemoveContainer(const std::vector<std::string>& path);
    // Takes over a deep copy of the other file's tree, samples included.
    virtual void CopyFrom(const DataFile& other);
    virtual bool IsOpen() const;
    // Writes the file, atomically, when its content is marked modified, and
    // ends its use of the disk. The sections stay readable.
    virtual void Close();
    virtual std::string GetFileName() const;
    virtual std::string GetFileType() const;
    // Adds a text key to a top-level section, behind the key that further
    // names, or at the end when further is empty or not in the section. A
    // key already there takes the text where it stands. A missing section
    // is left missing.
    virtual void AddParm(const std::string& section, const std::string& key, const std::string& value,
                         const std::string& further);
    virtual void DeleteParm(const std::string& section, const std::string& key);

    // The top-level sections, in order, and the keys of one of them.
    virtual std::vector<std::string> GetPlistNames() const;
    virtual std::vector<std::string> GetPlistKeys(const std::string& section) const;
    // The value of a key as a person reads it; empty for a missing key.
    virtual std::string GetFormattedValueString(const DataContainerPtr& container, const std::string& key) const;
    virtual void SetContentModified(bool modified);
    virtual bool IsContentModified() const;

    DataContainerPtr GetRoot() const { return root_; }
    // The file as it would be written now.
    std::vector<std::uint8_t> ToBytes() const;

protected:
    void MarkModified() { modified_ = true; }

private:
    void WriteToPath();

    std::string path_;
    std::string fileType_;
    DataContainerPtr root_;
    std::atomic<bool> open_{true};
    std::atomic<bool> modified_{false};
};

}  // namespace Orx::DataCore
