#include "Platform/DataCore/DataFile.h"

#include "Platform/DataCore/ContainerReader.h"
#include "Platform/DataCore/ContainerWriter.h"
#include "Platform/DataCore/HarlenDataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "Platform/FileSystem.h"

namespace Orx::DataCore {

namespace {

constexpr int kAccessRead = 1;
constexpr int kBehaviourExisting = 0;
constexpr int kAccessCreate = 2;
constexpr int kBehaviourNew = 2;

class FileSink : public ContainerWriter::Sink {
public:
    explicit FileSink(Orx::Core::AtomicFileWriter& writer) : writer_(writer) {}
    void Write(const void* data, std::size_t size) override { writer_.Write(data, size); }
    void Skip(std::uint64_t count) override { writer_.Skip(count); }

private:
    Orx::Core::AtomicFileWriter& writer_;
};

// Whether a file could be put at that path: a temporary file beside it is
// made and removed again.
bool pathIsWritable(const std::string& path) {
    try {
        Orx::Core::AtomicFileWriter probe(path);
        return true;
    } catch (const Orx::Core::FileException&) {
        return false;
    }
}

}  // namespace

std::shared_ptr<DataFile> DataFile::Make(const std::string& path, const std::string& fileType, DataContainerPtr root) {
    if (!root) {
        root = std::make_shared<DataContainer>(std::string());
    }
    if (fileType == QuillonDataFile::FILE_TYPE) {
        return std::make_shared<QuillonDataFile>(path, std::move(root));
    }
    if (fileType == HarlenDataFile::FILE_TYPE) {
        return std::make_shared<HarlenDataFile>(path, std::move(root));
    }
    return std::make_shared<DataFile>(path, fileType, std::move(root));
}

std::shared_ptr<DataFile> DataFile::Open(const std::string& path, int access, int behaviour,
                                         const std::string& fileType, std::shared_ptr<DataContainer> container) {
    if (access == kAccessRead && behaviour == kBehaviourExisting) {
        Orx::Core::RandomAccessFile file;
        if (!file.Open(path)) {
            return nullptr;
        }
        auto contents = ContainerReader::Read(file.Length(), [&file](std::uint64_t offset, void* buffer,
                                                                     std::size_t size) {
            file.ReadAt(offset, buffer, size);
        });
        return Make(path, contents.fileType, contents.root);
    }
    if (access == kAccessCreate && behaviour == kBehaviourNew) {
        auto created = Make(path, fileType, std::move(container));
        created->modified_ = true;
        created->open_ = pathIsWritable(path);
        return created;
    }
    throw Orx::Core::LogicError("DataFile::Open: access " + std::to_string(access) + " with behaviour " +
                                    std::to_string(behaviour) + " is not supported",
                                "Orx.DataCore.DataFile", ORX_CODE_CONTEXT);
}

std::shared_ptr<DataFile> DataFile::OpenMemory(const void* data, std::size_t size) {
    auto contents = ContainerReader::ReadMemory(data, size);
    return Make(std::string(), contents.fileType, contents.root);
}

DataFile::DataFile(std::string path, std::string fileType, DataContainerPtr root)
    : path_(std::move(path)),
      fileType_(std::move(fileType)),
      root_(root ? std::move(root) : std::make_shared<DataContainer>(std::string())) {}

DataFile::~DataFile() = default;

DataContainerPtr DataFile::GetContainer(const std::vector<std::string>& path, int) const {
    DataContainerPtr current = root_;
    for (const auto& name : path) {
        current = current->GetChild(name);
        if (!current) {
            return nullptr;
        }
    }
    return current;
}

void DataFile::RemoveContainer(const std::vector<std::string>& path) {
    if (path.empty()) {
        return;
    }
    std::vector<std::string> parentPath(path.begin(), path.end() - 1);
    auto parent = GetContainer(parentPath);
    if (parent && parent->RemoveChild(path.back())) {
        MarkModified();
    }
}

void DataFile::CopyFrom(const DataFile& other) {
    if (&other == this) {
        return;
    }
    root_->CopyContentsFrom(*other.root_);
    MarkModified();
}

bool DataFile::IsOpen() const { return open_; }

void DataFile::Close() {
    if (modified_) {
        WriteToPath();
        modified_ = false;
    }
    open_ = false;
}

void DataFile::WriteToPath() {
    if (path_.empty()) {
        throw Orx::Core::LogicError("A file made in memory has no path to be written to", "Orx.DataCore.DataFile",
                                    ORX_CODE_CONTEXT);
    }
    Orx::Core::AtomicFileWriter writer(path_);
    FileSink sink(writer);
    ContainerWriter::Write(fileType_, *root_, sink);
    writer.Commit();
}

std::vector<std::uint8_t> DataFile::ToBytes() const { return ContainerWriter::WriteMemory(fileType_, *root_); }

std::string DataFile::GetFileName() const { return path_; }

std::string DataFile::GetFileType() const { return fileType_; }

void DataFile::AddParm(const std::string& section, const std::string& key, const std::string& value,
                       const std::string& further) {
    auto container = root_->GetChild(section);
    if (!container) {
        return;
    }
    container->PutEntry(key, ContainerValue(value), further);
    MarkModified();
}

void DataFile::DeleteParm(const std::string& section, const std::string& key) {
    auto container = root_->GetChild(section);
    if (container && container->HasKey(key)) {
        container->RemoveKey(key);
        MarkModified();
    }
}

std::vector<std::string> DataFile::GetPlistNames() const { return root_->GetChildNames(); }

std::vector<std::string> DataFile::GetPlistKeys(const std::string& section) const {
    auto container = root_->GetChild(section);
    return container ? container->GetKeys() : std::vector<std::string>();
}

std::string DataFile::GetFormattedValueString(const DataContainerPtr& container, const std::string& key) const {
    if (!container) {
        return {};
    }
    auto entry = container->GetEntry(key);
    return entry ? entry->DisplayText() : std::string();
}

void DataFile::SetContentModified(bool modified) { modified_ = modified; }

bool DataFile::IsContentModified() const { return modified_; }

}  // namespace Orx::DataCore
