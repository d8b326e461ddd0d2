// write_test_files OUTDIR: the files that the tests of the Python package
// read, one of each family and kind, made by the sample builders.

#include "tools/samplekit/HarlenBuilder.h"
#include "tools/samplekit/QuillonBuilder.h"
#include "tools/samplekit/TefBuilder.h"

#include <cctype>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

using SampleKit::HarlenBuilder;
using SampleKit::QuillonBuilder;
using SampleKit::TefBuilder;

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_test_files OUTDIR\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    auto path = [&folder](const char* name) { return (folder / name).string(); };
    try {
        std::filesystem::create_directories(folder);
        TefBuilder(2, 8, 6, 2).Save(path("image.tef"));
        for (const char* subtype : {"IMAGE", "FORCE", "SCRIPT", "HSDC"}) {
            std::string name = std::string("quillon_") + subtype + ".qdf";
            for (char& c : name) {
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            }
            QuillonBuilder(subtype).Write(path(name.c_str()));
        }
        QuillonBuilder volume("FVOL");
        volume.Text(QuillonBuilder::kScanList, "Crestload Capture", "On");
        volume.Write(path("quillon_fvol.qdf"));
        HarlenBuilder::Image(24, 20).Write(path("harlen_image.hdf"));
        HarlenBuilder::Force(64, 8).Write(path("harlen_force.hdf"));
        // A ".tef" file of 3-byte pixels: refused with a message for its user.
        TefBuilder(1, 4, 3, 3).Save(path("three_byte_pixels.tef"));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "write_test_files: %s\n", error.what());
        return 1;
    }
    return 0;
}
