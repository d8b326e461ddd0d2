// The peak resident size of the process while the library opens a ".tef"
// file of 256 MiB, as a multiple of the file's size. The file is made by a
// child process, so that the builder's own memory is no part of the figure.

#include "BenchTable.h"
#include "ProcStatus.h"
#include "SampleFiles.h"

#include "DataSourceDll/DataSourceDll.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::uint16_t kChannels = 8;
constexpr std::uint16_t kSide = 4096;  // 8 x 4096 x 4096 x 2 bytes: 256 MiB of pixels
constexpr double kGoal = 2.5;

bool MakeInChild(const std::string& path)
{
    const pid_t child = ::fork();
    if (child < 0)
        return false;
    if (child == 0) {
        int status = 0;
        try {
            SampleFiles::WriteTef(path, kChannels, kSide, 16);
        } catch (...) {
            status = 1;
        }
        ::_exit(status);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string Mebibytes(double bytes)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MiB", bytes / (1024.0 * 1024.0));
    return text;
}

}  // namespace

int main()
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("ds_bench_memory_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    std::string path = (folder / "large.tef").string();
    int result = 1;
    if (MakeInChild(path)) {
        const double fileSize = static_cast<double>(std::filesystem::file_size(path));
        const std::uint64_t before = ProcStatus::Bytes("VmRSS");
        ProcStatus::ResetPeak();
        const bool opened = DataSourceDllOpen(path.data()) == 1;
        const std::uint64_t peak = ProcStatus::Bytes("VmHWM");
        DataSourceDllClose();
        if (opened) {
            const double grown = static_cast<double>(peak > before ? peak - before : 0);
            BenchTable::PrintLine(std::cout, "tef open, peak memory", Mebibytes(grown), 
                                  Mebibytes(fileSize) + "  the file's size", grown / fileSize, kGoal);
            result = 0;
        } else {
            std::cerr << "the file did not open\n";
        }
    } else {
        std::cerr << "the file could not be made\n";
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return result;
}
