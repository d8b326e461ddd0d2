#include "tools/dstool/FileKind.h"

#include "DataSourceDll/DataSourceDll.h"

#include <cctype>
#include <fstream>
#include <strings.h>

namespace Dstool {

namespace {

std::string Extension(const std::string& path)
{
    const auto slash = path.find_last_of('/');
    const auto dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
        return "";
    return path.substr(dot);
}

// The quoted text of the first "type" line of a container header, looked
// for among its first lines only.
std::string ContainerType(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::string line;
    for (int read = 0; read < 64 && std::getline(in, line); ++read) {
        std::size_t at = 0;
        while (at < line.size() && (line[at] == ' ' || line[at] == '\t'))
            ++at;
        if (line.compare(at, 5, "type ") != 0)
            continue;
        const auto open = line.find('"', at);
        const auto close = open == std::string::npos ? open : line.find('"', open + 1);
        return close == std::string::npos ? "" : line.substr(open + 1, close - open - 1);
    }
    return "";
}

}  // namespace

std::string FileKind::Family(const std::string& path)
{
    if (strcasecmp(Extension(path).c_str(), ".tef") == 0)
        return "tef";
    const std::string type = ContainerType(path);
    if (type == "Quillon Data File")
        return "Quillon";
    if (type == "Harlen Data File")
        return "Harlen";
    return type.empty() ? "unknown" : type;
}

std::string FileKind::OfOpenFile()
{
    int count = 0;
    double value = 0.0;
    if (DataSourceDllGetScriptSegmentCount(&count) == 1)
        return "script";
    if (DataSourceDllGetForcesPerLine(&count) == 1)
        return "force volume";
    if (DataSourceDllGetHsdcRate(0, &value) == 1)
        return "high-speed";
    if (DataSourceDllGetImageAspectRatio(0, &value) == 1)
        return "image";
    // Only curves have points; for other kinds the count is 0.
    if (DataSourceDllGetNumberOfPointsPerCurve(0, &count) == 1 && count > 0)
        return "force";
    return "unknown";
}

}  // namespace Dstool
