#include "tools/dstool/FileDescription.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/Answered.h"
#include "tools/dstool/FileKind.h"
#include "tools/dstool/LibrarySession.h"

namespace Dstool {

namespace {

ChannelDescription DescribeChannel(int c)
{
    using T = LibrarySession;
    ChannelDescription d;
    d.index = c;
    d.name = T::TakeText(DataSourceDllGetDataTypeDesc(c));
    DataSourceDllGetNumberOfLines(c, &d.lines);
    DataSourceDllGetSamplesPerLine(c, &d.samples);
    d.metricUnit = T::TakeText(DataSourceDllGetMetricDataScaleUnits(c));
    d.voltsUnit = T::TakeText(DataSourceDllGetVoltsDataScaleUnits(c));
    DataSourceDllGetZScaleInSwUnits(c, &d.zScaleMetric);
    DataSourceDllGetZScaleInHwUnits(c, &d.zScaleVolts);
    DataSourceDllGetScanSize(c, &d.scanSize);
    d.scanSizeUnit = T::TakeText(DataSourceDllGetScanSizeUnit(c));
    DataSourceDllGetImageAspectRatio(c, &d.aspectRatio);
    d.lineDirection = T::TakeText(DataSourceDllGetLineDirection(c));
    d.highSpeedRate = OfChannel(DataSourceDllGetHsdcRate, c);
    return d;
}

// Kinds whose channels hold force curves with a spring constant.
bool HoldsForceCurves()
{
    return FileKind::Is(DATASOURCEDLL_KIND_FORCE | DATASOURCEDLL_KIND_FORCE_VOLUME | DATASOURCEDLL_KIND_SCRIPT |
                        DATASOURCEDLL_KIND_TIMED_FORCE | DATASOURCEDLL_KIND_EC_FORCE);
}

}  // namespace

FileDescription FileDescription::OfOpenFile(const std::string& path)
{
    FileDescription d;
    d.path = path;
    d.family = FileKind::Family();
    d.typeText = FileKind::TypeText();
    d.kinds = FileKind::Kinds();
    d.kind = FileKind::OfOpenFile();
    DataSourceDllGetNumberOfChannels(&d.channelCount);
    const bool forceCurves = HoldsForceCurves();
    for (int c = 0; c < d.channelCount; ++c) {
        ChannelDescription channel = DescribeChannel(c);
        if (forceCurves)
            channel.springConstant = OfChannel(DataSourceDllGetForceSpringConstant, c);
        d.channels.push_back(std::move(channel));
    }
    d.ReadCurves();
    d.ReadSegments();
    d.ReadCaptureAndSweep();
    d.probe.tipRadius = Answered<double>(DataSourceDllGetTipRadius);
    d.probe.halfAngle = Answered<double>(DataSourceDllGetHalfAngle);
    d.probe.poissonRatio = Answered<double>(DataSourceDllGetPoissonRatio);
    return d;
}

}  // namespace Dstool
