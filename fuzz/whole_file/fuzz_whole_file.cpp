// Any bytes at all, written to a file and opened as a host opens it: the
// first byte chooses a ".tef" name or a section-and-key one, the rest is the
// file. Whatever opens is read through every export with buffers sized the
// way a careful host sizes them, from the counts the library reports; a
// write past those counts is a fault the sanitizer sees. Then the note is
// changed and the file and one channel saved, and what was saved reopened.

#include "DataSourceDll/DataSourceDll.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

// Counts above this are not read through the exports: the buffers would be
// the fuzzer's memory, not the file's. The refusals below it are still run.
constexpr int kMostValues = 1 << 20;

struct Paths {
    std::string tef, sections, savedTef, savedSections, channel;
};

const Paths& TempPaths() {
    static const Paths paths = [] {
        const auto dir = std::filesystem::temp_directory_path();
        const std::string stem = (dir / ("fuzz_whole_file_" + std::to_string(getpid()))).string();
        return Paths{stem + ".tef", stem + ".dat", stem + "_saved.tef", stem + "_saved.dat", stem + "_channel"};
    }();
    return paths;
}

void Text(char* text) { DataSourceDllFreeString(text); }

int Clamp(int n) { return std::clamp(n, 0, kMostValues); }

void ReadImageExports(int c, std::vector<double>& a) {
    int n = 0;
    DataSourceDllGetNumberOfLines(c, &n);
    DataSourceDllGetSamplesPerLine(c, &n);
    DataSourceDllGetDataBufferSize(c, &n);
    const int size = static_cast<int>(a.size());
    DataSourceDllGetImageData(c, a.data(), size, &n);
    DataSourceDllGetImageMetricData(c, a.data(), size, &n);
    DataSourceDllGetImageVoltsData(c, a.data(), size, &n);
    double d = 0, e = 0, f = 0;
    for (bool metric : {false, true}) {
        DataSourceDllGetExportScalingFactor(c, &d, metric);
        DataSourceDllGetScalingFactor(c, &d, metric);
        DataSourceDllGetRampSize(c, &d, metric);
        Text(DataSourceDllGetRampUnits(c, metric));
        DataSourceDllGetForwardRampVelocity(c, &d, metric);
        DataSourceDllGetReverseRampVelocity(c, &d, metric);
    }
    DataSourceDllGetZScaleInSwUnits(c, &d);
    DataSourceDllGetZScaleInHwUnits(c, &d);
    DataSourceDllGetZSensitivitySoftScale(c, &d);
    char units[256] = {};
    DataSourceDllGetZSensitivityUnitsSafe(c, units, sizeof units);
    Text(DataSourceDllGetMetricDataScaleUnits(c));
    Text(DataSourceDllGetVoltsDataScaleUnits(c));
    Text(DataSourceDllGetDataTypeDesc(c));
    Text(DataSourceDllGetLineDirection(c));
    Text(DataSourceDllGetScanLine(c));
    DataSourceDllGetScanSize(c, &d);
    Text(DataSourceDllGetScanSizeUnit(c));
    DataSourceDllGetImageAspectRatio(c, &d);
    int order = 0;
    DataSourceDllGetPlanefitSettings(c, &d, &e, &f, &order);
    DataSourceDllGetForceSpringConstant(c, &d);
    DataSourceDllGetForceSamplesPerLine(c, &n);
    DataSourceDllGetNumberOfTracePoints(c, &n);
    DataSourceDllGetNumberOfPointsPerCurve(c, &n);
    DataSourceDllGetHsdcRate(c, &d);
    Text(DataSourceDllGetForceSweepChannel(c));
    DataSourceDllGetForceSweepFreqRange(c, &d, &e);
}

// The curve readers write at most the channel's buffer, and the volume and
// capture readers at most the counts they are given.
void ReadCurveExports(int c, std::vector<double>& a, std::vector<double>& b, int forcesPerLine) {
    DataSourceDllGetForceCurveData(c, a.data(), b.data());
    DataSourceDllGetForceCurveMetricData(c, a.data(), b.data());
    DataSourceDllGetForceCurveForceData(c, a.data(), b.data());
    DataSourceDllGetForceCurveVoltsData(c, a.data(), b.data());
    int n = 0;
    double d = 0;
    DataSourceDllGetNumberOfHoldPoints(c, &n);
    DataSourceDllGetForceHoldTime(c, &d);
    DataSourceDllGetForceHoldData(c, a.data());
    DataSourceDllGetForceMetricHoldData(c, a.data());
    DataSourceDllGetForceVoltsHoldData(c, a.data());
    const int size = static_cast<int>(a.size());
    for (int curve : {0, forcesPerLine - 1, forcesPerLine, -1}) {
        DataSourceDllGetForceVolumeHoldData(c, curve, a.data());
        DataSourceDllGetForceVolumeMetricHoldData(c, curve, a.data());
        DataSourceDllGetForceVolumeVoltsHoldData(c, curve, a.data());
    }
    DataSourceDllGetHSDCForceCurveData(c, a.data(), size, &n);
    DataSourceDllGetHSDCMetricForceCurveData(c, a.data(), size, &n);
    DataSourceDllGetHSDCVoltsForceCurveData(c, a.data(), size, &n);
}

void ReadVolumeExports(std::vector<double>& a, std::vector<double>& b, int forcesPerLine) {
    const int size = static_cast<int>(std::min(a.size(), b.size()));
    int n = 0, m = 0;
    DataSourceDllGetForceVolumeImageData(a.data(), size, &n);
    DataSourceDllGetForceVolumeMetricImageData(a.data(), size, &n);
    DataSourceDllGetForceVolumeVoltsImageData(a.data(), size, &n);
    for (int curve : {0, forcesPerLine - 1, forcesPerLine, -1}) {
        DataSourceDllGetForceVolumeForceCurveData(curve, a.data(), b.data(), &n, &m, size);
        DataSourceDllGetForceVolumeMetricForceCurveData(curve, a.data(), b.data(), &n, &m, size);
        DataSourceDllGetForceVolumeForceForceCurveData(curve, a.data(), b.data(), &n, &m, size);
        DataSourceDllGetForceVolumeVoltsForceCurveData(curve, a.data(), b.data(), &n, &m, size);
    }
    const int half = size / 2;
    DataSourceDllGetCrestloadCaptureZData(a.data(), b.data(), half, size - half);
}

void ReadScriptExports(int channels, std::vector<double>& a, std::vector<double>& b) {
    int segments = 0;
    if (DataSourceDllGetScriptSegmentCount(&segments) != 1 || segments < 1 || segments > 4096) {
        return;
    }
    std::vector<int> samples(static_cast<std::size_t>(segments)), types(samples.size());
    std::vector<float> durations(samples.size());
    if (DataSourceDllGetScriptSegmentInfo(segments, samples.data(), types.data(), durations.data()) != 1) {
        return;
    }
    for (int s = 0; s < segments; ++s) {
        Text(DataSourceDllGetSegmentDescription(types[static_cast<std::size_t>(s)]));
        const int points = samples[static_cast<std::size_t>(s)];
        if (points < 0 || static_cast<std::size_t>(points) > a.size()) {
            continue;
        }
        for (int c = 0; c < channels; ++c) {
            DataSourceDllGetScriptSegmentData(c, s, points, a.data(), b.data());
            DataSourceDllGetScriptMetricSegmentData(c, s, points, a.data(), b.data());
            DataSourceDllGetScriptVoltsSegmentData(c, s, points, a.data(), b.data());
        }
    }
}

// The largest count any size question answers for the channel.
int LargestCount(int c) {
    int largest = 0, n = 0;
    for (auto query : {DataSourceDllGetDataBufferSize, DataSourceDllGetNumberOfLines, DataSourceDllGetSamplesPerLine,
                       DataSourceDllGetForceSamplesPerLine, DataSourceDllGetNumberOfTracePoints,
                       DataSourceDllGetNumberOfPointsPerCurve, DataSourceDllGetNumberOfHoldPoints}) {
        if (query(c, &n) == 1) {
            largest = std::max(largest, n);
        }
    }
    return largest;
}

void ReadEverything() {
    int kinds = 0, channels = 0, forcesPerLine = 0, n = 0;
    double d = 0;
    DataSourceDllGetFileKinds(&kinds);
    Text(DataSourceDllGetFileTypeText());
    DataSourceDllGetNumberOfChannels(&channels);
    DataSourceDllGetForcesPerLine(&forcesPerLine);
    DataSourceDllGetNumberOfForceCurves(&n);
    DataSourceDllGetPoissonRatio(&d);
    DataSourceDllGetTipRadius(&d);
    DataSourceDllGetHalfAngle(&d);
    DataSourceDllGetCrestloadTappingFreq(&d);
    DataSourceDllGetForceDataScaleUnits();

    int largest = 2;
    for (int c = 0; c < channels; ++c) {
        largest = std::max(largest, LargestCount(c));
    }
    if (largest > kMostValues) {
        return;
    }
    std::vector<double> a(static_cast<std::size_t>(Clamp(largest))), b(a.size());
    for (int c = -1; c <= channels; ++c) {
        ReadImageExports(c, a);
        ReadCurveExports(c, a, b, forcesPerLine);
    }
    ReadVolumeExports(a, b, forcesPerLine);
    ReadScriptExports(channels, a, b);
}

void Write(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    static const bool quiet = [] {
        DataSourceDllSetMessageCallback([](const char*, void*) {}, nullptr);
        DataSourceDllSetLogCallback([](const char*, int, const char*, void*) {}, nullptr);
        return true;
    }();
    (void)quiet;
    const Paths& paths = TempPaths();
    const bool tef = (data[0] & 1) != 0;
    const std::string& path = tef ? paths.tef : paths.sections;
    const std::string& saved = tef ? paths.savedTef : paths.savedSections;
    Write(path, data + 1, size - 1);

    if (DataSourceDllOpen(const_cast<char*>(path.c_str())) == 1) {
        ReadEverything();
        if (data[0] & 2) {
            char note[] = "fuzzed note";
            DataSourceDllSetNote(note);
            DataSourceDllSaveAs(const_cast<char*>(saved.c_str()));
            DataSourceDllSaveChannelAs(0, const_cast<char*>(paths.channel.c_str()));
            DataSourceDllClose();
            if (DataSourceDllOpen(const_cast<char*>(saved.c_str())) == 1) {
                ReadEverything();
            }
        }
    }
    DataSourceDllClose();
    Text(DataSourceDllDumpParameters(const_cast<char*>(path.c_str())));
    for (const std::string* p : {&paths.savedTef, &paths.savedSections, &paths.channel}) {
        std::remove(p->c_str());
    }
    return 0;
}
