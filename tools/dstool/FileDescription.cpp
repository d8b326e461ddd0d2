#include "tools/dstool/FileDescription.h"

#include "DataSourceDll/DataSourceDll.h"
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
    return d;
}

}  // namespace

FileDescription FileDescription::OfOpenFile(const std::string& path)
{
    FileDescription d;
    d.path = path;
    d.family = FileKind::Family(path);
    d.kind = FileKind::OfOpenFile();
    DataSourceDllGetNumberOfChannels(&d.channelCount);
    for (int c = 0; c < d.channelCount; ++c)
        d.channels.push_back(DescribeChannel(c));
    return d;
}

}  // namespace Dstool
