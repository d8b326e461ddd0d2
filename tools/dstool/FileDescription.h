#pragma once

#include <optional>
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
    std::optional<int> pointsPerCurve;      // curves of this channel
    std::optional<double> springConstant;   // force kinds
    std::optional<double> highSpeedRate;    // high-speed channels, in Hz
};

// What the force exports tell of a file with curves.
struct CurvesDescription {
    std::optional<int> curves;
    std::optional<int> pointsPerCurve;
    std::optional<int> tracePoints;
    std::optional<int> samplesPerLine;
    std::optional<int> forcesPerLine;  // force volumes
    std::optional<int> holdPoints;
    std::optional<double> holdTime;
    std::optional<double> rampSize;
    std::string rampUnit;
    std::optional<double> forwardVelocity;
    std::optional<double> reverseVelocity;
};

struct SegmentDescription {
    int index = 0;
    int type = 0;
    std::string description;
    int samples = 0;
    double duration = 0.0;  // s, of the samples kept
};

struct ProbeDescription {
    std::optional<double> tipRadius;
    std::optional<double> halfAngle;
    std::optional<double> poissonRatio;
};

// What the library tells of the file it has open.
struct FileDescription {
    std::string path;
    std::string family;
    std::string typeText;
    std::string kind;
    std::vector<std::string> kinds;
    int channelCount = 0;
    std::vector<ChannelDescription> channels;
    std::optional<CurvesDescription> curves;     // files with force curves or high-speed data
    std::optional<int> segmentCount;             // script files
    std::vector<SegmentDescription> segments;
    std::optional<double> tappingFrequency;      // Hz, when the crest load capture is on
    std::optional<std::string> sweepChannel;     // force sweeps
    double sweepLow = 0.0, sweepHigh = 0.0;      // Hz
    ProbeDescription probe;

    static FileDescription OfOpenFile(const std::string& path);

private:
    void ReadCurves();
    void ReadSegments();
    void ReadCaptureAndSweep();
};

}  // namespace Dstool
