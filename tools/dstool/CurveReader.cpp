#include "tools/dstool/CurveReader.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/Answered.h"
#include "tools/dstool/FileKind.h"
#include "tools/dstool/LibrarySession.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace Dstool {

namespace {

constexpr double kUnwritten = std::numeric_limits<double>::quiet_NaN();

std::vector<double> Indices(std::size_t n)
{
    std::vector<double> x(n);
    for (std::size_t i = 0; i < n; ++i)
        x[i] = static_cast<double>(i);
    return x;
}

int ChannelOf(const CurveRequest& request) { return request.channel.value_or(0); }

}  // namespace

std::size_t CurveReader::Written(const std::vector<double>& buffer)
{
    std::size_t n = 0;
    while (n < buffer.size() && !std::isnan(buffer[n]))
        ++n;
    return n;
}

std::string CurveReader::ValueLabel(int channel, DataUnits units)
{
    std::string unit;
    switch (units) {
    case DataUnits::Raw:
        unit = "counts";
        break;
    case DataUnits::Volts:
        unit = LibrarySession::TakeText(DataSourceDllGetVoltsDataScaleUnits(channel));
        break;
    case DataUnits::Metric:
        unit = LibrarySession::TakeText(DataSourceDllGetMetricDataScaleUnits(channel));
        break;
    case DataUnits::Force:
        unit = DataSourceDllGetForceDataScaleUnits();
        break;
    }
    const std::string name = LibrarySession::TakeText(DataSourceDllGetDataTypeDesc(channel));
    return (name.empty() ? "channel " + std::to_string(channel) : name) + " (" + unit + ")";
}

void CurveReader::AddHalves(Curve& curve, std::vector<double> first, std::vector<double> second)
{
    std::vector<double> firstZ(first.size()), secondZ(second.size());
    const bool capture = !first.empty() && !second.empty() &&
                         DataSourceDllGetCrestloadCaptureZData(firstZ.data(), secondZ.data(), static_cast<int>(first.size()),
                                                               static_cast<int>(second.size())) == 1;
    if (capture) {
        curve.xLabel = "capture Z (nm)";
    } else {
        // Both halves are in the order of time, and the retract runs the
        // ramp back: counted from its end, its points meet the approach's.
        curve.xLabel = "ramp point";
        firstZ = Indices(first.size());
        secondZ = Indices(second.size());
        std::reverse(secondZ.begin(), secondZ.end());
    }
    curve.series.push_back({"approach", std::move(firstZ), std::move(first)});
    curve.series.push_back({"retract", std::move(secondZ), std::move(second)});
    if (curve.series[0].y.empty() && curve.series[1].y.empty())
        throw std::runtime_error("the " + curve.what + " holds no data");
}

CurveReader::Curve CurveReader::Read(const CurveRequest& request)
{
    if (FileKind::Is(DATASOURCEDLL_KIND_SCRIPT))
        return ScriptSegments(request);
    if (FileKind::Is(DATASOURCEDLL_KIND_FORCE_VOLUME))
        return VolumeCurve(request);
    if (FileKind::Is(DATASOURCEDLL_KIND_HIGH_SPEED))
        return HighSpeed(request);
    if (FileKind::Is(DATASOURCEDLL_KIND_FORCE))
        return ForceCurve(request);
    throw std::runtime_error("the file has no curves to plot (kind: " + FileKind::OfOpenFile() + ")");
}

CurveReader::Curve CurveReader::ForceCurve(const CurveRequest& request)
{
    if (request.index && *request.index != 0)
        throw std::runtime_error("a force file has one curve a channel; --index picks a force volume's curve or a script's segment");
    const int c = ChannelOf(request);
    int points = 0, size = 0;
    DataSourceDllGetNumberOfPointsPerCurve(c, &points);
    DataSourceDllGetDataBufferSize(c, &size);
    // The first half's count has no reader of its own; it lies within the
    // channel's data, which the reader checks, so a buffer of that size holds it.
    const auto capacity = static_cast<std::size_t>(std::max({points, size, 0})) + 1;
    std::vector<double> first(capacity, kUnwritten), second(capacity, kUnwritten);
    int (*const readers[])(int, double*, double*) = {DataSourceDllGetForceCurveData, DataSourceDllGetForceCurveVoltsData,
                                                     DataSourceDllGetForceCurveMetricData,
                                                     DataSourceDllGetForceCurveForceData};
    if (readers[static_cast<int>(request.units)](c, first.data(), second.data()) != 1)
        throw std::runtime_error("channel " + std::to_string(c) + " has no force curve");
    first.resize(Written(first));
    second.resize(Written(second));
    Curve curve;
    curve.what = "force curve, channel " + std::to_string(c);
    curve.yLabel = ValueLabel(c, request.units);
    AddHalves(curve, std::move(first), std::move(second));
    return curve;
}

CurveReader::Curve CurveReader::VolumeCurve(const CurveRequest& request)
{
    // The readers of a force volume take its curves from channel 1 always.
    constexpr int kCurveChannel = 1;
    if (request.channel && *request.channel != kCurveChannel)
        throw std::runtime_error("a force volume's curves are read from its channel 1 only");
    const int curves = Answered<int>(DataSourceDllGetForcesPerLine).value_or(0);
    const int index = request.index.value_or(0);
    if (index < 0 || index >= curves)
        throw std::runtime_error("curve " + std::to_string(index) + " is beyond the " + std::to_string(curves) +
                                 " curves of the force volume");
    int points = 0;
    DataSourceDllGetNumberOfPointsPerCurve(kCurveChannel, &points);
    const auto capacity = static_cast<std::size_t>(std::max(points, 0)) + 1;
    std::vector<double> first(capacity, kUnwritten), second(capacity, kUnwritten);
    int firstCount = 0, secondCount = 0;
    int (*const readers[])(int, double*, double*, int*, int*, int) = {
        DataSourceDllGetForceVolumeForceCurveData, DataSourceDllGetForceVolumeVoltsForceCurveData,
        DataSourceDllGetForceVolumeMetricForceCurveData, DataSourceDllGetForceVolumeForceForceCurveData};
    if (readers[static_cast<int>(request.units)](index, first.data(), second.data(), &firstCount, &secondCount,
                                                 static_cast<int>(capacity)) != 1)
        throw std::runtime_error("curve " + std::to_string(index) + " of the force volume could not be read");
    // A curve without data leaves the buffers as they were.
    first.resize(std::min(Written(first), static_cast<std::size_t>(std::max(firstCount, 0))));
    second.resize(std::min(Written(second), static_cast<std::size_t>(std::max(secondCount, 0))));
    Curve curve;
    curve.what = "force volume curve " + std::to_string(index);
    curve.yLabel = ValueLabel(kCurveChannel, request.units);
    AddHalves(curve, std::move(first), std::move(second));
    return curve;
}

}  // namespace Dstool
