#pragma once

#include "Platform/AlertInfo.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The one place that speaks to the operating system about files.
namespace Orx::Core {

class FileException : public OSError {
public:
    FileException(std::string message, std::string path, int osCode, CodeContext context);
    const std::string& GetPath() const { return path_; }

private:
    std::string path_;
};

// The runtime's path splitter: drive (always empty here), folder with its
// trailing slash, file name, and extension (the last dot of the file name and
// what follows).
struct PathParts {
    std::string drive;
    std::string dir;
    std::string fname;
    std::string ext;
};
PathParts SplitPath(const std::string& path);

bool PathExists(const std::string& path);
std::optional<std::uint64_t> FileLength(const std::string& path);
bool RemoveFile(const std::string& path);

// Reads a whole file. False when it cannot be opened; a failure while reading
// raises FileException.
bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& out);

// Writes bytes to a temporary file in the target's folder and renames it over
// the target, so that a failure never leaves a damaged target. Raises
// FileException and removes the temporary file when anything fails.
void WriteFileAtomically(const std::string& path, const void* data, std::size_t size);

// A file read at chosen offsets, for containers whose blocks lie anywhere in
// a file of any size.
class RandomAccessFile {
public:
    RandomAccessFile() = default;
    ~RandomAccessFile();
    RandomAccessFile(const RandomAccessFile&) = delete;
    RandomAccessFile& operator=(const RandomAccessFile&) = delete;

    bool Open(const std::string& path);
    bool IsOpen() const { return fd_ >= 0; }
    std::uint64_t Length() const { return length_; }
    // Reads exactly size bytes at offset; raises FileException when the file
    // is shorter or the read fails.
    void ReadAt(std::uint64_t offset, void* buffer, std::size_t size) const;
    void Close();

private:
    int fd_ = -1;
    std::uint64_t length_ = 0;
    std::string path_;
};

// Writes a new file piece by piece into a temporary file beside the target;
// Commit renames it into place, and destruction without Commit removes it.
class AtomicFileWriter {
public:
    explicit AtomicFileWriter(std::string targetPath);
    ~AtomicFileWriter();
    AtomicFileWriter(const AtomicFileWriter&) = delete;
    AtomicFileWriter& operator=(const AtomicFileWriter&) = delete;

    void Write(const void* data, std::size_t size);
    // Moves on by count bytes without writing them: they read as zeros, and
    // a file system that can leaves a hole rather than storing them.
    void Skip(std::uint64_t count);
    std::uint64_t Position() const { return position_; }
    void Commit();

private:
    std::string target_;
    std::string temp_;
    int fd_ = -1;
    std::uint64_t position_ = 0;
    bool committed_ = false;
};

}  // namespace Orx::Core
