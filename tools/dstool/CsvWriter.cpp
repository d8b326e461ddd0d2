#include "tools/dstool/CsvWriter.h"

#include "tools/dstool/NumberText.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace Dstool {

namespace {

// Opens path, lets body write, and tells what went wrong on the way.
void WriteFile(const std::string& path, const std::function<void(std::ostream&)>& body)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out)
        throw std::runtime_error(path + ": " + std::strerror(errno));
    body(out);
    out.close();
    if (!out)
        throw std::runtime_error(path + ": the file could not be written");
}

void Line(std::ostream& out, const std::vector<std::string>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i)
        out << (i ? "," : "") << cells[i];
    out << '\n';
}

}  // namespace

void CsvWriter::Write(const std::string& path, const std::vector<double>& values, std::size_t columns)
{
    WriteFile(path, [&](std::ostream& out) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            out << NumberText(values[i]);
            const bool rowEnds = columns == 0 || (i + 1) % columns == 0 || i + 1 == values.size();
            out << (rowEnds ? '\n' : ',');
        }
    });
}

void CsvWriter::WriteTable(const std::string& path, const std::vector<std::string>& header,
                           const std::vector<std::vector<std::string>>& rows)
{
    WriteFile(path, [&](std::ostream& out) {
        std::vector<std::string> cells;
        for (const std::string& name : header)
            cells.push_back(Cell(name));
        Line(out, cells);
        for (const auto& row : rows)
            Line(out, row);
    });
}

std::string CsvWriter::Cell(const std::string& text)
{
    if (text.find_first_of(",\"\n") == std::string::npos)
        return text;
    std::string out = "\"";
    for (const char c : text)
        out += c == '"' ? std::string("\"\"") : std::string(1, c);
    return out + "\"";
}

}  // namespace Dstool
