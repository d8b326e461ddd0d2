#pragma once

#include <string>
#include <vector>

namespace Dstool {

struct ChannelDescription {
    int index = 0;
    std::string name;
    int lines = 0;
    int samples = 0;
    std::string metricUnit;
    std::string voltsUnit;
    double zScaleMetric = 0.0;
    double zScaleVolts = 0.0;
    double scanSize = 0.0;
    std::string scanSizeUnit;
    double aspectRatio = 1.0;
    std::string lineDirection;
};

// What the library tells of the file it has open.
struct FileDescription {
    std::string path;
    std::string family;
    std::string kind;
    int channelCount = 0;
    std::vector<ChannelDescription> channels;

    static FileDescription OfOpenFile(const std::string& path);
};

}  // namespace Dstool
