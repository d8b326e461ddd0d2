// Readers of force curves, hold sections, force volumes and high-speed data.

#include "DataSourceDll/DataSourceReaders.h"

#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Core/OLTypes.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

namespace DataSourceReaders {

namespace {

// Elements of channel c's buffer from p to its end; 0 for a pointer outside it.
std::uint64_t available(IOLDataSource& s, unsigned c, const std::int32_t* p) {
    const std::int32_t* d = s.GetData(c);
    const std::uint64_t n = s.GetDataBufferSize(c);
    if (!d || !p || p < d || p >= d + n) {
        return 0;
    }
    return n - static_cast<std::uint64_t>(p - d);
}

// Units that the hold, force volume image and high-speed readers serve: the
// force unit reads as raw counts there.
double volumeFactor(IOLDataSource& s, int c, ScanUnits units) {
    return units == ScanUnitsMetric || units == ScanUnitsVolts ? ForceFactor(s, c, units, false) : 1.0;
}

// A curve read with its second half from the second count on: e is reordered
// so that the capture's phase shift is undone.
void resynchronise(const std::int32_t* d, std::int32_t* e, int trace, int retrace, int shift) {
    if (!d || !e || trace < 1 || retrace < 1) {
        return;
    }
    const int n = trace + retrace;
    std::vector<std::int32_t> w(static_cast<std::size_t>(n));
    for (int i = 0; i < trace; ++i) {
        w[static_cast<std::size_t>(i)] = d[trace - 1 - i];
    }
    for (int j = 0; j < retrace; ++j) {
        w[static_cast<std::size_t>(trace + j)] = d[trace + j];
    }
    long long start = static_cast<long long>(shift) + 1 - n / 2;
    // Normalised into the curve whatever the shift; for a shift within one
    // curve length this is the single wrap by n.
    start %= n;
    if (start < 0) {
        start += n;
    }
    for (int i = 0; i < n; ++i) {
        e[i] = w[static_cast<std::size_t>(start)];
        if (++start == n) {
            start = 0;
        }
    }
}

}  // namespace

bool CaptureIsOn(IOLDataSource& s) {
    const std::string capture = s.GetCrestloadCapture();
    return capture == "On" || capture == "Allow";
}

double CapturePhase(IOLDataSource& s, int n) {
    if (!CaptureIsOn(s)) {
        return 0.0;
    }
    const int m = s.GetSamplePoints();
    const float ratio = m != 0 ? static_cast<float>(n) / static_cast<float>(m) : 1.0f;
    return s.GetSyncDistance() * static_cast<double>(ratio);
}

int GetForceCurveData(IOLDataSource& s, int c, double* first, double* second, ScanUnits units) {
    if (!first || !second || !s.IsForceFile() || !InTable(s, c)) {
        return -1;
    }
    const auto channel = static_cast<unsigned>(c);
    const std::uint64_t nf = s.GetRetracePoints(channel);
    const std::uint64_t ns = s.GetTracePoints(channel);
    const std::int32_t* d = s.GetData(channel);
    const std::uint64_t size = s.GetDataBufferSize(channel);
    // Both halves must lie in the channel's buffer.
    if ((nf > 0 || ns > 0) && (!d || nf > size || 2 * ns > size)) {
        return -1;
    }
    const double factor = ForceFactor(s, c, units, true);
    for (std::uint64_t i = 0; i < nf; ++i) {
        first[i] = d[i] * factor;
    }
    // The second half starts at the count of the second half, as files write it.
    for (std::uint64_t j = 0; j < ns; ++j) {
        second[j] = d[ns + j] * factor;
    }
    return 1;
}

int GetForceVolumeImageData(IOLDataSource& s, double* out, int bufferSize, int* count, ScanUnits units) {
    if (!out || !count || !s.IsForceVolumeFile() || !InTable(s, 0)) {
        return -1;
    }
    const std::uint64_t n = static_cast<std::uint64_t>(s.GetSamplesPerLine(0)) * s.GetNumberOfLines(0);
    *count = static_cast<int>(n);
    if (static_cast<long long>(bufferSize) < static_cast<long long>(n) || n > 0x7FFFFFFFu) {
        return -1;
    }
    const std::int32_t* d = s.GetData(0);
    if (!d) {
        return 1;
    }
    if (n > s.GetDataBufferSize(0)) {
        return -1;
    }
    const double factor = volumeFactor(s, 0, units);
    for (std::uint64_t i = 0; i < n; ++i) {
        out[i] = d[i] * factor;
    }
    return 1;
}

int GetForceVolumeForceCurveData(IOLDataSource& s, int curve, double* first, double* second, int* firstCount,
                                 int* secondCount, int bufferSize, ScanUnits units) {
    if (!first || !second || !firstCount || !secondCount || !s.IsForceVolumeFile() || !InTable(s, 1)) {
        return -1;
    }
    // The first channel of a force volume is its image; the second holds the curves.
    const int trace = static_cast<int>(s.GetTracePoints(1));
    *firstCount = trace;
    *secondCount = trace;
    if (bufferSize < *secondCount || curve < 0 || curve >= s.GetForcesPerLine() || trace < 0) {
        return -1;
    }
    const double factor = ForceFactor(s, 1, units, true);
    std::int32_t* d = s.GetForceVolumeCurveData(1, curve);
    if (!d) {
        // Without a curve there is nothing to hand out, capture or not.
        return 1;
    }
    const std::uint64_t n = static_cast<std::uint64_t>(*firstCount) + static_cast<std::uint64_t>(*secondCount);
    if (available(s, 1, d) < n) {
        return -1;
    }

    std::vector<std::int32_t> e;
    if (CaptureIsOn(s)) {
        try {
            e.resize(n);
        } catch (const std::bad_alloc&) {
            return -1;
        }
        // The sync distance comes from the file: the shift saturates rather
        // than leave the integers.
        const int shift = TruncateToInt32(CapturePhase(s, static_cast<int>(n)) + 0.5);
        for (std::uint64_t k = 0; k < n; ++k) {
            if (d[k] == kInvalidForcePoint) {
                // The first mark only: the mean of its left neighbour and the
                // curve's last point. A mark at the very start has no left
                // neighbour and takes the last point.
                const double left = k > 0 ? d[k - 1] : d[n - 1];
                d[k] = static_cast<std::int32_t>((left + d[n - 1]) * 0.5);
                break;
            }
        }
        resynchronise(d, e.data(), *firstCount, *secondCount, shift);
        for (int i = 0; i < *firstCount / 2; ++i) {
            std::swap(e[static_cast<std::size_t>(i)], e[static_cast<std::size_t>(*firstCount - 1 - i)]);
        }
        d = e.data();
    } else {
        // Trailing invalid points are cut from the first count.
        for (int i = *firstCount - 1; i >= 0; --i) {
            if (d[i] != kInvalidForcePoint) {
                *firstCount = i + 1;
                break;
            }
        }
    }
    for (int i = 0; i < *firstCount; ++i) {
        first[i] = d[i] * factor;
    }
    for (int j = 0; j < *secondCount; ++j) {
        second[j] = d[*secondCount + j] * factor;
    }
    return 1;
}

int GetForceHoldData(IOLDataSource& s, int c, int curve, double* out, ScanUnits units) {
    if (!out || !(s.IsForceVolumeFile() || s.IsForceFile()) || !InTable(s, c)) {
        return -1;
    }
    const int nh = s.GetNumberOfHoldPoints();
    const int nt = s.GetNumberOfTracePoints();
    if (s.IsForceFile()) {
        curve = 0;
    } else if (curve < 0 || curve >= s.GetForcesPerLine()) {
        return -1;
    }
    const double factor = volumeFactor(s, c, units);
    const auto channel = static_cast<unsigned>(c);
    const std::int32_t* d = s.GetForceVolumeCurveData(channel, curve);
    if (!d) {
        return 1;
    }
    if (nh < 0 || nt < 0) {
        return -1;
    }
    // The hold section lies behind both halves of the curve.
    const std::uint64_t start = 2ull * static_cast<std::uint64_t>(nt);
    if (available(s, channel, d) < start + static_cast<std::uint64_t>(nh)) {
        return -1;
    }
    for (int i = 0; i < nh; ++i) {
        out[i] = d[start + static_cast<std::uint64_t>(i)] * factor;
    }
    return 1;
}

int GetHSDCForceCurveData(IOLDataSource& s, int c, double* out, int bufferSize, int* count, ScanUnits units) {
    if (!out || !count || !s.IsHsdcFile() || !InTable(s, c)) {
        return -1;
    }
    const auto channel = static_cast<unsigned>(c);
    const std::uint32_t n = s.GetNumberOfPointsPerCurve(channel);
    *count = static_cast<int>(n);
    if (static_cast<long long>(bufferSize) < static_cast<long long>(n) || c >= s.GetNumberOfChannels()) {
        return -1;
    }
    const double factor = volumeFactor(s, c, units);
    const std::int32_t* d = s.GetData(channel);
    // The count is the channel's byte length; only the samples that the
    // buffer holds are written, the rest of the caller's buffer stays.
    const std::uint64_t have = d ? std::min<std::uint64_t>(n, s.GetDataBufferSize(channel)) : 0;
    for (std::uint64_t i = 0; i < have; ++i) {
        out[i] = d[i] * factor;
    }
    return 1;
}

int GetNumberOfPointsPerCurve(IOLDataSource* s, int c, int* out) {
    if (!out) {
        return -1;
    }
    *out = 0;
    if (!s) {
        return -1;
    }
    if (!InTable(*s, c)) {
        return -1;
    }
    const auto channel = static_cast<unsigned>(c);
    if (s->IsHsdcFile()) {
        *out = static_cast<int>(s->GetNumberOfPointsPerCurve(channel) >> 1);
    } else if (s->IsForceFile() || s->IsForceVolumeFile() || s->IsTimedFile()) {
        *out = static_cast<int>(s->GetTracePoints(channel));
    }
    return 1;
}

int GetNumberOfForceCurves(IOLDataSource& s, int* out) {
    if (!out) {
        return -1;
    }
    if (s.IsHsdcFile() || s.IsTimedFile() || s.IsForceFile()) {
        *out = s.GetNumberOfChannels();
    } else if (s.IsForceVolumeFile()) {
        *out = s.GetForcesPerLine();
    }
    return 1;
}

int GetForcesPerLine(IOLDataSource& s, int* out) {
    if (!out || !s.IsForceVolumeFile()) {
        return -1;
    }
    *out = s.GetForceVolumeForcesPerLine();
    return 1;
}

int GetNumberOfHoldPoints(IOLDataSource& s, int, int* out) {
    if (!out) {
        return -1;
    }
    *out = s.GetNumberOfHoldPoints();
    return 1;
}

int GetForceHoldTime(IOLDataSource& s, int, double* out) {
    if (!out) {
        return -1;
    }
    *out = s.GetForceHoldTime();
    return 1;
}

}  // namespace DataSourceReaders
