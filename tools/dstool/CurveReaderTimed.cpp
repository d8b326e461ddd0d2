// Curves in time: the segments of a script and the channels of a
// high-speed capture.

#include "tools/dstool/CurveReader.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/Answered.h"
#include "tools/dstool/LibrarySession.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <tuple>

namespace Dstool {

namespace {

// More points than a curve of any instrument has are not believed.
constexpr long long kMostPoints = 1 << 26;

void RefuseForce(const CurveRequest& request, const char* what)
{
    if (request.units == DataUnits::Force)
        throw std::runtime_error(std::string(what) + " have no force units: take --metric, --volts or --raw");
}

}  // namespace

CurveReader::Curve CurveReader::ScriptSegments(const CurveRequest& request)
{
    RefuseForce(request, "script segments");
    const int c = request.channel.value_or(0);
    const int count = Answered<int>(DataSourceDllGetScriptSegmentCount).value_or(0);
    if (count < 1 || count > kMostPoints)
        throw std::runtime_error("the script has no segments");
    const auto n = static_cast<std::size_t>(count);
    std::vector<int> samples(n, 0), types(n, 0);
    std::vector<float> durations(n, 0.0f);
    if (DataSourceDllGetScriptSegmentInfo(count, samples.data(), types.data(), durations.data()) != 1)
        throw std::runtime_error("the script's segment lists could not be read");
    if (request.index && (*request.index < 0 || *request.index >= count))
        throw std::runtime_error("segment " + std::to_string(*request.index) + " is beyond the " +
                                 std::to_string(count) + " segments of the script");
    const std::size_t from = request.index ? static_cast<std::size_t>(*request.index) : 0;
    const std::size_t to = request.index ? from + 1 : n;
    long long points = 0;
    for (std::size_t s = from; s < to; ++s)
        points += std::max(samples[s], 0);
    if (points < 1 || points > kMostPoints)
        throw std::runtime_error("the segments hold no points to plot");

    // A segment whose block lies beyond the channel's data is not written.
    std::vector<double> time(static_cast<std::size_t>(points), std::numeric_limits<double>::quiet_NaN());
    std::vector<double> values(time.size(), std::numeric_limits<double>::quiet_NaN());
    int (*const readers[])(int, int, int, double*, double*) = {
        DataSourceDllGetScriptSegmentData, DataSourceDllGetScriptVoltsSegmentData,
        DataSourceDllGetScriptMetricSegmentData};
    const int segment = request.index ? *request.index : -1;
    if (readers[static_cast<int>(request.units)](c, segment, static_cast<int>(points), time.data(), values.data()) != 1)
        throw std::runtime_error("the segments of channel " + std::to_string(c) + " could not be read");

    Curve curve;
    curve.what = request.index ? "script segment " + std::to_string(*request.index) : "script segments";
    curve.xLabel = "time (s)";
    curve.yLabel = ValueLabel(c, request.units);
    std::size_t at = 0;
    for (std::size_t s = from; s < to; ++s) {
        const std::size_t length = std::min(static_cast<std::size_t>(std::max(samples[s], 0)), time.size() - at);
        CurvePlot::Series series;
        series.label = std::to_string(s) + " " + LibrarySession::TakeText(DataSourceDllGetSegmentDescription(types[s]));
        for (std::size_t i = at; i < at + length; ++i) {
            if (!std::isnan(time[i])) {
                series.x.push_back(time[i]);
                series.y.push_back(values[i]);
            }
        }
        if (!series.x.empty())
            curve.series.push_back(std::move(series));
        at += length;
    }
    if (curve.series.empty())
        throw std::runtime_error("the segments of channel " + std::to_string(c) + " hold no data");
    return curve;
}

CurveReader::Curve CurveReader::HighSpeed(const CurveRequest& request)
{
    RefuseForce(request, "high-speed channels");
    if (request.index && *request.index != 0)
        throw std::runtime_error("a high-speed channel is one curve; --index picks a force volume's curve or a script's segment");
    const int c = request.channel.value_or(0);
    int (*const readers[])(int, double*, int, int*) = {DataSourceDllGetHSDCForceCurveData,
                                                      DataSourceDllGetHSDCVoltsForceCurveData,
                                                      DataSourceDllGetHSDCMetricForceCurveData};
    const auto read = readers[static_cast<int>(request.units)];
    // The reader tells its count even when it refuses a buffer too small.
    double none = 0.0;
    int count = 0;
    read(c, &none, 0, &count);
    if (count < 1 || count > kMostPoints)
        throw std::runtime_error("channel " + std::to_string(c) + " has no high-speed data");
    std::vector<double> values(static_cast<std::size_t>(count), std::numeric_limits<double>::quiet_NaN());
    if (read(c, values.data(), count, &count) != 1)
        throw std::runtime_error("channel " + std::to_string(c) + " has no high-speed data");
    // The count is of bytes for narrow samples: only the samples are written.
    const std::size_t n = Written(values);
    values.resize(n);

    const double rate = OfChannel(DataSourceDllGetHsdcRate, c).value_or(0.0);
    Curve curve;
    curve.what = "high-speed channel " + std::to_string(c);
    curve.xLabel = rate > 0.0 ? "time (\xB5s)" : "sample";
    curve.yLabel = ValueLabel(c, request.units);
    const std::size_t half = n / 2;
    for (const auto& [label, from, to] : {std::tuple{"approach", std::size_t{0}, half}, std::tuple{"retract", half, n}}) {
        CurvePlot::Series series;
        series.label = label;
        for (std::size_t i = from; i < to; ++i) {
            series.x.push_back(rate > 0.0 ? static_cast<double>(i) / rate * 1e6 : static_cast<double>(i));
            series.y.push_back(values[i]);
        }
        curve.series.push_back(std::move(series));
    }
    return curve;
}

}  // namespace Dstool
