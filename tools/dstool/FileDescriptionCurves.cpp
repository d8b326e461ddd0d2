// The parts of a file's description that only files with curves have:
// counts of curves and points, hold, ramp, script segments, capture, sweep.

#include "tools/dstool/FileDescription.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/Answered.h"
#include "tools/dstool/LibrarySession.h"


namespace Dstool {

void FileDescription::ReadCurves()
{
    // Files of other kinds answer the count of curves without writing it.
    int count = -1;
    if (DataSourceDllGetNumberOfForceCurves(&count) != 1 || count < 0)
        return;
    CurvesDescription c;
    c.curves = count;
    c.forcesPerLine = Answered<int>(DataSourceDllGetForcesPerLine);
    // The first channel of a force volume is its image; its curves are in the second.
    const int curveChannel = c.forcesPerLine ? 1 : 0;
    c.pointsPerCurve = OfChannel(DataSourceDllGetNumberOfPointsPerCurve, curveChannel);
    c.tracePoints = OfChannel(DataSourceDllGetNumberOfTracePoints, curveChannel);
    c.samplesPerLine = OfChannel(DataSourceDllGetForceSamplesPerLine, curveChannel);
    c.holdPoints = OfChannel(DataSourceDllGetNumberOfHoldPoints, curveChannel);
    c.holdTime = OfChannel(DataSourceDllGetForceHoldTime, curveChannel);
    c.rampSize = Answered<double>([curveChannel](double* v) { return DataSourceDllGetRampSize(curveChannel, v, true); });
    c.rampUnit = LibrarySession::TakeText(DataSourceDllGetRampUnits(curveChannel, true));
    c.forwardVelocity =
        Answered<double>([curveChannel](double* v) { return DataSourceDllGetForwardRampVelocity(curveChannel, v, true); });
    c.reverseVelocity =
        Answered<double>([curveChannel](double* v) { return DataSourceDllGetReverseRampVelocity(curveChannel, v, true); });
    for (ChannelDescription& channel : channels) {
        const int index = channel.index;
        channel.pointsPerCurve = OfChannel(DataSourceDllGetNumberOfPointsPerCurve, index);
    }
    curves = c;
}

void FileDescription::ReadSegments()
{
    segmentCount = Answered<int>(DataSourceDllGetScriptSegmentCount);
    // A count beyond what a script can hold is not believed.
    if (!segmentCount || *segmentCount < 1 || *segmentCount > 100000)
        return;
    const auto n = static_cast<std::size_t>(*segmentCount);
    std::vector<int> samples(n, 0), types(n, 0);
    std::vector<float> durations(n, 0.0f);
    if (DataSourceDllGetScriptSegmentInfo(*segmentCount, samples.data(), types.data(), durations.data()) != 1)
        return;
    for (std::size_t i = 0; i < n; ++i) {
        SegmentDescription s;
        s.index = static_cast<int>(i);
        s.type = types[i];
        s.description = LibrarySession::TakeText(DataSourceDllGetSegmentDescription(types[i]));
        s.samples = samples[i];
        s.duration = durations[i];
        segments.push_back(std::move(s));
    }
}

void FileDescription::ReadCaptureAndSweep()
{
    tappingFrequency = Answered<double>(DataSourceDllGetCrestloadTappingFreq);
    const std::string sweep = LibrarySession::TakeText(DataSourceDllGetForceSweepChannel(0));
    if (!sweep.empty() && sweep != "UNKNOWN" && DataSourceDllGetForceSweepFreqRange(0, &sweepLow, &sweepHigh) == 1)
        sweepChannel = sweep;
}

}  // namespace Dstool
