#pragma once

#include <string>
#include <vector>

namespace Dstool {

// Writes comma-separated text: numbers in the shortest form that reads back
// the same, texts quoted where they hold a comma or a quote.
class CsvWriter {
public:
    // Numbers, one row per line of that many columns. Raises
    // std::runtime_error with the reason when the file cannot be written.
    static void Write(const std::string& path, const std::vector<double>& values, std::size_t columns);
    // A header line, then rows of cells already made texts.
    static void WriteTable(const std::string& path, const std::vector<std::string>& header,
                           const std::vector<std::vector<std::string>>& rows);
    // A text as one cell.
    static std::string Cell(const std::string& text);
};

}  // namespace Dstool
