// samplegen OUTDIR: writes realistic sample files of each family, for trying
// dstool and hosts of the library on something that looks like a real scan.

#include "tools/samplegen/SampleTable.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 2 || std::string(argv[1]) == "--help" || std::string(argv[1]) == "-h") {
        std::fprintf(argc == 2 ? stdout : stderr, "usage: samplegen OUTDIR\n\nWrites these samples into OUTDIR:\n");
        for (const SampleGen::Sample& sample : SampleGen::Samples())
            std::fprintf(argc == 2 ? stdout : stderr, "  %-26s %s\n", sample.fileName.c_str(),
                         sample.description.c_str());
        return argc == 2 ? 0 : 2;
    }
    const std::filesystem::path folder = argv[1];
    try {
        std::filesystem::create_directories(folder);
        for (const SampleGen::Sample& sample : SampleGen::Samples()) {
            const std::string path = (folder / sample.fileName).string();
            sample.write(path);
            std::printf("%s  (%s)\n", path.c_str(), sample.description.c_str());
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "samplegen: %s\n", error.what());
        return 1;
    }
    return 0;
}
