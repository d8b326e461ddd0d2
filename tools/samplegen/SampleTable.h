#pragma once

#include <string>
#include <vector>

namespace SampleGen {

// One sample file: its name in the output folder, a line on what it shows,
// and the function that writes it. Each family adds its samples to the
// table of SampleTable.cpp.
struct Sample {
    std::string fileName;
    std::string description;
    void (*write)(const std::string& path);
};

const std::vector<Sample>& Samples();

}  // namespace SampleGen
