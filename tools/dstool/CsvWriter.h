#pragma once

#include <string>
#include <vector>

namespace Dstool {

// Writes numbers as comma-separated text, one row per line, each number in
// the shortest form that reads back the same.
class CsvWriter {
public:
    // Raises std::runtime_error with the reason when the file cannot be written.
    static void Write(const std::string& path, const std::vector<double>& values, std::size_t columns);
};

}  // namespace Dstool
