#include "ProcStatus.h"

#include <fstream>
#include <sstream>

std::uint64_t ProcStatus::Bytes(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    const std::string head = field + ":";
    while (std::getline(status, line)) {
        if (line.compare(0, head.size(), head) != 0)
            continue;
        std::istringstream value(line.substr(head.size()));
        std::uint64_t kilobytes = 0;
        value >> kilobytes;
        return kilobytes * 1024;
    }
    return 0;
}

bool ProcStatus::ResetPeak()
{
    std::ofstream clear("/proc/self/clear_refs");
    clear << "5";
    clear.flush();
    return static_cast<bool>(clear);
}
