#include "Platform/FileSystem.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace Orx::Core {

namespace {

std::string describe(const std::string& what, const std::string& path, int err) {
    return what + " '" + path + "': " + std::strerror(err);
}

void writeAll(int fd, const void* data, std::size_t size, const std::string& path) {
    const auto* p = static_cast<const std::uint8_t*>(data);
    while (size > 0) {
        ssize_t n = ::write(fd, p, size);
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            int err = errno;
            throw FileException(describe("Cannot write", path, err), path, err, ORX_CODE_CONTEXT);
        }
        p += n;
        size -= static_cast<std::size_t>(n);
    }
}

std::string folderOf(const std::string& path) {
    auto slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

FileException::FileException(std::string message, std::string path, int osCode, CodeContext context)
    : OSError(std::move(message), osCode, std::move(context)), path_(std::move(path)) {}

PathParts SplitPath(const std::string& path) {
    PathParts parts;
    auto slash = path.find_last_of("/\\");
    std::string name;
    if (slash == std::string::npos) {
        name = path;
    } else {
        parts.dir = path.substr(0, slash + 1);
        name = path.substr(slash + 1);
    }
    auto dot = name.rfind('.');
    if (dot == std::string::npos) {
        parts.fname = name;
    } else {
        parts.fname = name.substr(0, dot);
        parts.ext = name.substr(dot);
    }
    return parts;
}

bool PathExists(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0;
}

std::optional<std::uint64_t> FileLength(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(st.st_size);
}

bool RemoveFile(const std::string& path) { return ::unlink(path.c_str()) == 0; }

bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& out) {
    RandomAccessFile file;
    if (!file.Open(path)) {
        return false;
    }
    out.resize(static_cast<std::size_t>(file.Length()));
    if (!out.empty()) {
        file.ReadAt(0, out.data(), out.size());
    }
    return true;
}

void WriteFileAtomically(const std::string& path, const void* data, std::size_t size) {
    AtomicFileWriter writer(path);
    writer.Write(data, size);
    writer.Commit();
}

RandomAccessFile::~RandomAccessFile() { Close(); }

bool RandomAccessFile::Open(const std::string& path) {
    Close();
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return false;
    }
    fd_ = fd;
    length_ = static_cast<std::uint64_t>(st.st_size);
    path_ = path;
    return true;
}

void RandomAccessFile::ReadAt(std::uint64_t offset, void* buffer, std::size_t size) const {
    if (fd_ < 0) {
        throw FileException("File is not open", path_, EBADF, ORX_CODE_CONTEXT);
    }
    if (offset > length_ || size > length_ - offset) {
        throw FileException("Read beyond the end of '" + path_ + "'", path_, EINVAL, ORX_CODE_CONTEXT);
    }
    auto* p = static_cast<std::uint8_t*>(buffer);
    while (size > 0) {
        ssize_t n = ::pread(fd_, p, size, static_cast<off_t>(offset));
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            int err = n < 0 ? errno : EIO;
            throw FileException(describe("Cannot read", path_, err), path_, err, ORX_CODE_CONTEXT);
        }
        p += n;
        offset += static_cast<std::uint64_t>(n);
        size -= static_cast<std::size_t>(n);
    }
}

void RandomAccessFile::Close() {
    if (fd_ >= 0) {
        ::close(fd_);
        fd_ = -1;
    }
    length_ = 0;
}

AtomicFileWriter::AtomicFileWriter(std::string targetPath) : target_(std::move(targetPath)) {
    std::string pattern = folderOf(target_) + "/.dstmp-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    fd_ = ::mkstemp(name.data());
    if (fd_ < 0) {
        int err = errno;
        throw FileException(describe("Cannot create a file beside", target_, err), target_, err, ORX_CODE_CONTEXT);
    }
    temp_ = name.data();
}

AtomicFileWriter::~AtomicFileWriter() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
    if (!committed_ && !temp_.empty()) {
        ::unlink(temp_.c_str());
    }
}

void AtomicFileWriter::Write(const void* data, std::size_t size) {
    writeAll(fd_, data, size, target_);
    position_ += size;
}

void AtomicFileWriter::Skip(std::uint64_t count) {
    if (count == 0) {
        return;
    }
    if (count > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()) - position_) {
        throw FileException(describe("Cannot seek in", target_, EOVERFLOW), target_, EOVERFLOW, ORX_CODE_CONTEXT);
    }
    if (::lseek(fd_, static_cast<off_t>(count), SEEK_CUR) < 0) {
        int err = errno;
        throw FileException(describe("Cannot seek in", target_, err), target_, err, ORX_CODE_CONTEXT);
    }
    position_ += count;
}

void AtomicFileWriter::Commit() {
    // A skip at the end leaves the file short of its position until it is extended.
    if (::ftruncate(fd_, static_cast<off_t>(position_)) != 0) {
        int err = errno;
        throw FileException(describe("Cannot extend", target_, err), target_, err, ORX_CODE_CONTEXT);
    }
    // Keep the permissions a new file would have had, not mkstemp's 0600.
    mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd_, 0666 & ~mask);
    if (::fsync(fd_) != 0) {
        int err = errno;
        throw FileException(describe("Cannot flush", target_, err), target_, err, ORX_CODE_CONTEXT);
    }
    int fd = fd_;
    fd_ = -1;
    if (::close(fd) != 0) {
        int err = errno;
        throw FileException(describe("Cannot close", target_, err), target_, err, ORX_CODE_CONTEXT);
    }
    if (::rename(temp_.c_str(), target_.c_str()) != 0) {
        int err = errno;
        throw FileException(describe("Cannot replace", target_, err), target_, err, ORX_CODE_CONTEXT);
    }
    committed_ = true;
}

}  // namespace Orx::Core
