#include "tools/dstool/CsvWriter.h"

#include "tools/dstool/NumberText.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace Dstool {

void CsvWriter::Write(const std::string& path, const std::vector<double>& values, std::size_t columns)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out)
        throw std::runtime_error(path + ": " + std::strerror(errno));
    for (std::size_t i = 0; i < values.size(); ++i) {
        out << NumberText(values[i]);
        const bool rowEnds = columns == 0 || (i + 1) % columns == 0 || i + 1 == values.size();
        out << (rowEnds ? '\n' : ',');
    }
    out.close();
    if (!out)
        throw std::runtime_error(path + ": the file could not be written");
}

}  // namespace Dstool
