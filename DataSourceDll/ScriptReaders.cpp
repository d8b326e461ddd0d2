// Readers of script segments, the synthetic capture Z, rates and sweeps.

#include "DataSourceDll/DataSourceReaders.h"

#include "Parm/UnitVocabulary.h"
#include "Parm/segment_type_force.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <vector>

namespace DataSourceReaders {

namespace {

// Entries of a comma-separated list, one per segment; entries beyond the text
// leave the output as it was.
template <class T, class Parse>
void parseList(const std::string& text, int count, T* out, Parse parse) {
    if (!out) {
        return;
    }
    std::size_t offset = 0;
    for (int i = 0; i < count; ++i) {
        if (offset >= text.size()) {
            return;
        }
        std::size_t comma = text.find(',', offset);
        if (comma == std::string::npos) {
            comma = text.size();
        }
        out[i] = parse(text.substr(offset, comma - offset));
        offset = comma + 1;
    }
}

// The entries that a list holds: one more than its commas, none when empty.
int listEntries(const std::string& text) {
    return text.empty() ? 0 : 1 + static_cast<int>(std::count(text.begin(), text.end(), ','));
}

int parseInt(const std::string& entry) { return std::atoi(entry.c_str()); }
float parseFloat(const std::string& entry) { return static_cast<float>(std::atof(entry.c_str())); }

// The power-of-ten factor of a value's unit prefix: the value in its base unit.
double inBaseUnit(const UValue& value) {
    std::string base;
    const double factor =
        Orx::Core::BaseUnitOfCode(Orx::Core::UnitCodeOfText(value.GetUnits()->GetAbbreviation()), base);
    return value.GetValue() * factor;
}

void readSegmentLists(IOLDataSource& s, int count, int* samples, int* size, int* type, float* duration) {
    parseList(s.GetSegmentSamplesList(), count, samples, parseInt);
    parseList(s.GetSegmentSizeList(), count, size, parseInt);
    parseList(s.GetSegmentTypeList(), count, type, parseInt);
    parseList(s.GetSegmentDurationList(), count, duration, parseFloat);
}

double capturePoint(const CaptureState& capture, int i, int n) {
    const float x = n == 0 ? 0.0f : static_cast<float>(i * 6.283185308 / n + capture.phase);
    const float y = std::sin(x);
    return static_cast<float>(y * capture.amplitude + capture.amplitude);
}

}  // namespace

CaptureState SetUpCapture(int n, double phaseCount, double amplitude) {
    // Process-wide, and so shared by the handles that two threads may read.
    static std::mutex lock;
    static CaptureState state;
    std::lock_guard<std::mutex> guard(lock);
    if (phaseCount == 0.0) {
        return state;
    }
    state.amplitude = amplitude;
    if (n == 0) {
        state.phase = 0.0;
        return state;
    }
    const double r = std::trunc(phaseCount + 0.5);
    state.phase = 1.570796327 - (phaseCount - r + (n / 2 - 1)) * 6.283185308 / n;
    return state;
}

int GetScriptSegmentCount(IOLDataSource& s, int* out) {
    if (!out || !s.IsScriptFile()) {
        return -1;
    }
    *out = s.GetSegmentCount();
    return 1;
}

int GetOriginalScriptSegmentInfo(IOLDataSource& s, int count, int* samples, int* size, int* type, float* duration) {
    if (!s.IsScriptFile()) {
        return -1;
    }
    if (!samples && !size && !type && !duration) {
        return -1;
    }
    const int segments = s.GetSegmentCount();
    if (segments < 1 || segments != count) {
        return -1;
    }
    readSegmentLists(s, count, samples, size, type, duration);
    return 1;
}

int GetScriptSegmentInfo(IOLDataSource& s, int count, int* samples, int* type, float* duration) {
    if (!s.IsScriptFile()) {
        return -1;
    }
    const int segments = s.GetSegmentCount();
    if (segments < 1 || segments != count) {
        return -1;
    }
    if (!samples || !type || !duration) {
        return -1;
    }
    std::vector<int> sizes;
    std::vector<float> durations;
    try {
        sizes.assign(static_cast<std::size_t>(count), 0);
        durations.assign(static_cast<std::size_t>(count), 0.0f);
    } catch (const std::bad_alloc&) {
        return -1;
    }
    const int result = GetOriginalScriptSegmentInfo(s, count, samples, sizes.data(), type, durations.data());
    for (int i = 0; i < count; ++i) {
        // the time that the kept samples took
        const float t = sizes[static_cast<std::size_t>(i)] > 0
                            ? durations[static_cast<std::size_t>(i)] / static_cast<float>(sizes[static_cast<std::size_t>(i)])
                            : 0.0f;
        duration[i] = static_cast<float>(samples[i]) * t;
    }
    return result;
}

int GetScriptSegmentData(IOLDataSource& s, int c, int segment, int points, double* time, double* out,
                         ScanUnits units) {
    if (!time || !out || !s.IsScriptFile() || !InTable(s, c)) {
        return -1;
    }
    const int n = s.GetSegmentCount();
    if (segment >= n) {
        return -1;
    }
    const int first = segment >= 0 ? segment : 0;
    // Segments past the entries of every list are empty, whatever count the
    // file gives: the arrays hold the segments that the lists describe.
    const int listed = std::max(0, std::min(n, std::max({listEntries(s.GetSegmentSamplesList()),
                                                         listEntries(s.GetSegmentSizeList()),
                                                         listEntries(s.GetSegmentTypeList()),
                                                         listEntries(s.GetSegmentDurationList())})));
    const int last = std::min(segment >= 0 ? segment : n - 1, listed - 1);
    std::vector<int> samples, sizes, types;
    std::vector<float> durations;
    try {
        const auto len = static_cast<std::size_t>(listed);
        samples.assign(len, 0);
        sizes.assign(len, 0);
        types.assign(len, 0);
        durations.assign(len, 0.0f);
    } catch (const std::bad_alloc&) {
        return -1;
    }
    const double factor = units == ScanUnitsMetric || units == ScanUnitsVolts ? ForceFactor(s, c, units, false) : 1.0;
    readSegmentLists(s, listed, samples.data(), sizes.data(), types.data(), durations.data());

    long long total = 0, start = 0, wanted = 0;
    for (int i = 0; i <= last; ++i) {
        total += sizes[static_cast<std::size_t>(i)];
        if (i < first) {
            start += sizes[static_cast<std::size_t>(i)];
        } else {
            wanted += samples[static_cast<std::size_t>(i)];
        }
    }
    const auto channel = static_cast<unsigned>(c);
    const std::int32_t* d = s.GetData(channel);
    if (!d || wanted != points) {
        return -1;
    }
    const long long have = s.GetDataBufferSize(channel);
    long long k = 0;
    double dt = 0.0;
    for (int seg = first; seg <= last; ++seg) {
        const auto si = static_cast<std::size_t>(seg);
        for (long long p = start; p < start + samples[si]; ++p) {
            if (p >= total || k >= points || p < 0 || p >= have) {
                break;
            }
            time[k] = k == 0 ? 0.0 : time[k - 1] + dt;
            out[k] = d[p] * factor;
            dt = sizes[si] != 0 ? durations[si] / static_cast<float>(sizes[si]) : 0.0;
            ++k;
        }
        // the next segment's block begins a whole size further on, whatever was kept
        start += sizes[si];
    }
    return 1;
}

int GetCrestloadCaptureZData(IOLDataSource& s, double* first, double* second, int firstCount, int secondCount) {
    const long long total = static_cast<long long>(firstCount) + secondCount;
    if (!first || !second || firstCount < 0 || secondCount < 0 || total <= 0 || total > INT_MAX ||
        !CaptureIsOn(s)) {
        return -1;
    }
    const int n = firstCount + secondCount;
    const CaptureState capture = SetUpCapture(n, CapturePhase(s, n), s.GetCrestloadAmplitude());
    for (int i = 0; i < firstCount; ++i) {
        first[firstCount - 1 - i] = capturePoint(capture, i, n);
    }
    for (int j = 0; j < secondCount; ++j) {
        second[j] = capturePoint(capture, n / 2 + j, n);
    }
    return 1;
}

int GetCrestloadTappingFreq(IOLDataSource& s, double* out) {
    if (!out || !CaptureIsOn(s)) {
        return -1;
    }
    *out = inBaseUnit(s.GetCrestloadTappingFreq());
    return 1;
}

int GetHsdcRate(IOLDataSource& s, int c, double* out) {
    if (!out || !s.IsHsdcFile() || !InTable(s, c)) {
        return -1;
    }
    *out = s.GetHsdcRateValue(static_cast<unsigned>(c));
    if (*out == 0.0) {
        if (c >= 2) {
            *out = 500000.0;
        } else if (TruncateToInt64(s.GetHsdcRate().GetValue() + 0.5) == 0) {
            *out = 50000000.0;
        } else {
            *out = 6250000.0;
        }
    }
    return 1;
}

int GetForceSweepFreqRange(IOLDataSource& s, int, double* low, double* high) {
    if (!low || !high) {
        return -1;
    }
    *low = 0.0;
    *high = 0.0;
    if (s.GetForceSweepChannel() == "UNKNOWN") {
        return -1;
    }
    *low = inBaseUnit(s.GetForceSweepStartHz());
    *high = inBaseUnit(s.GetForceSweepEndHz());
    return 1;
}

std::string SegmentDescription(int type) {
    segment_type_force parameter;
    const char* text = parameter.GetText(type);
    return text ? std::string(text) : std::string("Unknown");
}

}  // namespace DataSourceReaders
