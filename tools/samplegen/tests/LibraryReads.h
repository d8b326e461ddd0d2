#pragma once

// A sample read back through the library's C functions, as a host reads it.

#include "DataSourceDll/DataSourceDll.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Opens a file as the current file of the library for the length of a test.
class OpenedFile {
public:
    explicit OpenedFile(std::string path) : path_(std::move(path)) { opened_ = DataSourceDllOpen(path_.data()) == 1; }
    ~OpenedFile() { DataSourceDllClose(); }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    bool Opened() const { return opened_; }

private:
    std::string path_;
    bool opened_ = false;
};

inline std::vector<double> MetricImage(int channel)
{
    int size = 0, count = 0;
    EXPECT_EQ(DataSourceDllGetDataBufferSize(channel, &size), 1);
    std::vector<double> values(static_cast<std::size_t>(size));
    EXPECT_EQ(DataSourceDllGetImageMetricData(channel, values.data(), size, &count), 1);
    return values;
}
