#include "FileBytes.h"

#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileBytes::FileBytes(const std::string& path)
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        throw std::runtime_error("cannot open " + path);
    struct stat status {};
    if (::fstat(fd, &status) != 0) {
        ::close(fd);
        throw std::runtime_error("cannot stat " + path);
    }
    size_ = static_cast<std::size_t>(status.st_size);
    bytes_ = std::make_unique_for_overwrite<std::uint8_t[]>(size_);
    std::size_t done = 0;
    while (done < size_) {
        const ssize_t n = ::read(fd, bytes_.get() + done, size_ - done);
        if (n <= 0) {
            ::close(fd);
            throw std::runtime_error("cannot read " + path);
        }
        done += static_cast<std::size_t>(n);
    }
    ::close(fd);
}

std::uint64_t FileBytes::SizeOf(const std::string& path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}
