// openloop [--count N] UNCLAIMED FILE...: writes at UNCLAIMED a file whose
// type text no family claims, then opens and closes it and the FILEs in turn,
// N times in all (1000 unless given), through DataSourceDllOpen and
// DataSourceDllClose, as a host does over a long session. Every FILE must
// open and UNCLAIMED must be refused. Every other open follows the one
// before it without a Close, so that both ways a source ends are taken: by
// Close, and by the next Open. Exit status 0 when every answer was the
// expected one, 1 when one was not, 2 for a wrong command line.

#include "DataSourceDll/DataSourceDll.h"
#include "tools/samplekit/ContainerBuilder.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr int kExitDone = 0;
constexpr int kExitUnexpected = 1;
constexpr int kExitUsage = 2;
constexpr long kDefaultCount = 1000;

const char* const kUsage =
    "usage: openloop [--count N] UNCLAIMED FILE...\n"
    "Writes at UNCLAIMED a file whose type text no family claims, then opens and\n"
    "closes it and the FILEs in turn, N times in all (1000 unless given).\n";

// A file of sections like the two families' files, under a type text of
// its own: the file layer reads it, and no family takes it.
void WriteUnclaimed(const std::string& path)
{
    SampleKit::ContainerBuilder("Unclaimed Data File")
        .Section("Overview")
        .Text("Purpose", "a file that no family of the library claims")
        .Int("Channels", 0)
        .Write(path);
}

bool ParseCount(const std::string& text, long& count)
{
    if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    count = std::stol(text);
    return count > 0;
}

}  // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    long count = kDefaultCount;
    if (args.size() >= 2 && args[0] == "--count") {
        if (!ParseCount(args[1], count)) {
            std::fprintf(stderr, "openloop: the count must be a whole number from 1 to 999999999\n");
            return kExitUsage;
        }
        args.erase(args.begin(), args.begin() + 2);
    }
    if (args.size() < 2 || args[0] == "--help" || args[0] == "-h") {
        std::fputs(kUsage, args.empty() || args[0] != "--help" ? stderr : stdout);
        return args.empty() || args[0] != "--help" ? kExitUsage : kExitDone;
    }
    try {
        WriteUnclaimed(args[0]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "openloop: cannot write %s: %s\n", args[0].c_str(), error.what());
        return kExitUnexpected;
    }

    long opened = 0;
    long refused = 0;
    long unexpected = 0;
    for (long i = 0; i < count; ++i) {
        const std::size_t index = static_cast<std::size_t>(i) % args.size();
        std::string path = args[index];
        const bool claimed = index != 0;
        const int answer = DataSourceDllOpen(path.data());
        if (answer == 1) {
            ++opened;
        } else {
            ++refused;
        }
        if ((answer == 1) != claimed) {
            ++unexpected;
            std::fprintf(stderr, "openloop: %s answered %d to its open\n", path.c_str(), answer);
        }
        if (i % 2 == 1)
            DataSourceDllClose();
    }
    DataSourceDllClose();
    std::printf("openloop: %ld opens of %zu files: %ld opened, %ld refused, %ld answers not as expected\n", count,
                args.size(), opened, refused, unexpected);
    return unexpected == 0 ? kExitDone : kExitUnexpected;
}
