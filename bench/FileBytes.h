#pragma once

// A whole file read into memory the plainest way: one allocation that is
// not cleared, and read() until it is full. The baselines of the opening
// cases start from this.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

class FileBytes {
public:
    explicit FileBytes(const std::string& path);

    const std::uint8_t* Data() const { return bytes_.get(); }
    std::size_t Size() const { return size_; }

    static std::uint64_t SizeOf(const std::string& path);

private:
    std::unique_ptr<std::uint8_t[]> bytes_;
    std::size_t size_ = 0;
};
