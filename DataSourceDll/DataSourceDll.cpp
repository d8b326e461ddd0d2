// The class of the exports: Open, Close, and a member for each reader. No
// exception leaves a member.

#include "DataSourceDll/DataSourceDllClass.h"

#include "DataSourceDll/DataSourceDllState.h"
#include "DataSourceDll/DataSourceReaders.h"
#include "DataSourceDll/SourceFactory.h"
#include "Platform/DataCore/DataFile.h"
#include "Platform/FileSystem.h"
#include "Platform/Logger.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

#include <strings.h>

using DataSourceDllState::Current;
using DataSourceDllState::NewText;

namespace {

// Runs a reader on the current source; -1 with no source or when anything is raised.
template <class Reader>
int withSource(Reader reader) {
    try {
        IOLDataSource* s = Current();
        return s ? reader(*s) : -1;
    } catch (...) {
        return -1;
    }
}

// The same for text results: "UNKNOWN" with no source or no answer.
template <class Reader>
char* textWithSource(Reader reader) {
    try {
        IOLDataSource* s = Current();
        std::string text;
        if (s && reader(*s, text)) {
            return NewText(text);
        }
    } catch (...) {
    }
    return NewText("UNKNOWN");
}

bool isTefPath(const char* path) {
    std::string ext = Orx::Core::SplitPath(path).ext;
    if (ext.size() > 255) {
        ext.resize(255);
    }
    return strcasecmp(ext.c_str(), ".tef") == 0;
}

int openTef(const std::string& path) {
    auto source = SourceFactory::MakeTefSource(path);
    // The previous source is only released here, not closed.
    DataSourceDllState::Install(source);
    if (!source) {
        return -1;
    }
    source->Initialize();
    if (source->IsOpen()) {
        return 1;
    }
    source->Close();
    DataSourceDllState::Release();
    return -1;
}

int openSectionFile(const std::string& path) {
    DataSourceDllState::CloseCurrent();
    try {
        auto file = Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr);
        if (!file) {
            return -1;
        }
        const std::string type = file->GetFileType();
        auto callback = std::make_unique<ICreateColorTableCallback>();
        auto source = SourceFactory::MakeSectionSource(file, type, callback.get());
        if (!source) {
            return -1;
        }
        DataSourceDllState::Install(source, std::move(callback));
        source->Initialize();
        if (source->IsOpen()) {
            return 1;
        }
        source->Close();
        DataSourceDllState::Release();
        return -1;
    } catch (...) {
        DataSourceDllState::CloseCurrent();
        return -1;
    }
}

}  // namespace

DataSourceDll::DataSourceDll() = default;
DataSourceDll::~DataSourceDll() = default;
DataSourceDll& DataSourceDll::operator=(const DataSourceDll&) { return *this; }

int DataSourceDll::Open(char* path) {
    try {
        Orx::Core::LogManager::Instance().SetSeverityFilter("", 4);
        if (!path) {
            DataSourceDllState::CloseCurrent();
            return -1;
        }
        return isTefPath(path) ? openTef(path) : openSectionFile(path);
    } catch (...) {
        DataSourceDllState::Release();
        return -1;
    }
}

int DataSourceDll::Close() {
    try {
        DataSourceDllState::CloseCurrent();
    } catch (...) {
        DataSourceDllState::Release();
    }
    return 1;
}

namespace R = DataSourceReaders;

int DataSourceDll::GetImageData(int c, double* out, int bufferSize, int* count, ScanUnits units) {
    return withSource([&](IOLDataSource& s) { return R::GetImageData(s, c, out, bufferSize, count, units); });
}
int DataSourceDll::GetForceCurveData(int c, double* first, double* second, ScanUnits units) {
    return withSource([&](IOLDataSource& s) { return R::GetForceCurveData(s, c, first, second, units); });
}
int DataSourceDll::GetForceVolumeImageData(double* out, int bufferSize, int* count, ScanUnits units) {
    return withSource([&](IOLDataSource& s) { return R::GetForceVolumeImageData(s, out, bufferSize, count, units); });
}
int DataSourceDll::GetForceVolumeForceCurveData(int curve, double* first, double* second, int* firstCount,
                                                int* secondCount, int bufferSize, ScanUnits units) {
    return withSource([&](IOLDataSource& s) {
        return R::GetForceVolumeForceCurveData(s, curve, first, second, firstCount, secondCount, bufferSize, units);
    });
}
int DataSourceDll::GetForceHoldData(int c, int curve, double* out, ScanUnits units) {
    return withSource([&](IOLDataSource& s) { return R::GetForceHoldData(s, c, curve, out, units); });
}
int DataSourceDll::GetScriptSegmentData(int c, int segment, int points, double* time, double* out, ScanUnits units) {
    return withSource([&](IOLDataSource& s) { return R::GetScriptSegmentData(s, c, segment, points, time, out, units); });
}
int DataSourceDll::GetHSDCForceCurveData(int c, double* out, int bufferSize, int* count, ScanUnits units) {
    return withSource([&](IOLDataSource& s) { return R::GetHSDCForceCurveData(s, c, out, bufferSize, count, units); });
}
char* DataSourceDll::GetDataScaleUnits(int c, bool metric) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetDataScaleUnits(s, c, metric, t); });
}
int DataSourceDll::GetDataBufferSize(int c, int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetDataBufferSize(s, c, out); });
}
char* DataSourceDll::GetDataTypeDesc(int c) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetDataTypeDesc(s, c, t); });
}
int DataSourceDll::GetExportScalingFactor(int c, double* out, bool metric) {
    return withSource([&](IOLDataSource& s) { return R::GetExportScalingFactor(s, c, out, metric); });
}
int DataSourceDll::GetForceHoldTime(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetForceHoldTime(s, c, out); });
}
int DataSourceDll::GetForceSamplesPerLine(int c, int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetForceSamplesPerLine(s, c, out); });
}
int DataSourceDll::GetForceSpringConstant(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetForceSpringConstant(s, c, out); });
}
char* DataSourceDll::GetForceSweepChannel(int c) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetForceSweepChannel(s, c, t); });
}
int DataSourceDll::GetForceSweepFreqRange(int c, double* low, double* high) {
    return withSource([&](IOLDataSource& s) { return R::GetForceSweepFreqRange(s, c, low, high); });
}
int DataSourceDll::GetForcesPerLine(int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetForcesPerLine(s, out); });
}
int DataSourceDll::GetForwardRampVelocity(int c, double* out, bool scaled) {
    return withSource([&](IOLDataSource& s) { return R::GetForwardRampVelocity(s, c, out, scaled); });
}
int DataSourceDll::GetHalfAngle(double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetHalfAngle(s, out); });
}
int DataSourceDll::GetHsdcRate(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetHsdcRate(s, c, out); });
}
int DataSourceDll::GetImageAspectRatio(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetImageAspectRatio(s, c, out); });
}
char* DataSourceDll::GetLineDirection(int c) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetLineDirection(s, c, t); });
}
int DataSourceDll::GetNumberOfChannels(int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetNumberOfChannels(s, out); });
}
int DataSourceDll::GetNumberOfForceCurves(int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetNumberOfForceCurves(s, out); });
}
int DataSourceDll::GetNumberOfHoldPoints(int c, int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetNumberOfHoldPoints(s, c, out); });
}
int DataSourceDll::GetNumberOfLines(int c, int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetNumberOfLines(s, c, out); });
}
int DataSourceDll::GetNumberOfPointsPerCurve(int c, int* out) {
    // The count is written before the source is looked at.
    try {
        return R::GetNumberOfPointsPerCurve(Current(), c, out);
    } catch (...) {
        return -1;
    }
}
int DataSourceDll::GetNumberOfTracePoints(int c, int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetNumberOfTracePoints(s, c, out); });
}
int DataSourceDll::GetCrestloadCaptureZData(double* first, double* second, int firstCount, int secondCount) {
    return withSource([&](IOLDataSource& s) { return R::GetCrestloadCaptureZData(s, first, second, firstCount, secondCount); });
}
int DataSourceDll::GetCrestloadTappingFreq(double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetCrestloadTappingFreq(s, out); });
}
int DataSourceDll::GetPlanefitSettings(int c, double* a, double* b, double* c2, int* order) {
    return withSource([&](IOLDataSource& s) { return R::GetPlanefitSettings(s, c, a, b, c2, order); });
}
int DataSourceDll::GetPoissonRatio(double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetPoissonRatio(s, out); });
}
int DataSourceDll::GetRampSize(int c, double* out, bool scaled) {
    return withSource([&](IOLDataSource& s) { return R::GetRampSize(s, c, out, scaled); });
}
char* DataSourceDll::GetRampUnits(int c, bool scaled) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetRampUnits(s, c, scaled, t); });
}
int DataSourceDll::GetReverseRampVelocity(int c, double* out, bool scaled) {
    return withSource([&](IOLDataSource& s) { return R::GetReverseRampVelocity(s, c, out, scaled); });
}
int DataSourceDll::GetSamplesPerLine(int c, int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetSamplesPerLine(s, c, out); });
}
int DataSourceDll::GetScalingFactor(int c, double* out, bool metric) {
    return withSource([&](IOLDataSource& s) { return R::GetScalingFactor(s, c, out, metric); });
}
char* DataSourceDll::GetScanLine(int c) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetScanLine(s, c, t); });
}
int DataSourceDll::GetScanSize(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetScanSize(s, c, out); });
}
char* DataSourceDll::GetScanSizeUnit(int c) {
    return textWithSource([&](IOLDataSource& s, std::string& t) { return R::GetScanSizeUnit(s, c, t); });
}
int DataSourceDll::GetScriptSegmentCount(int* out) {
    return withSource([&](IOLDataSource& s) { return R::GetScriptSegmentCount(s, out); });
}
int DataSourceDll::GetScriptSegmentInfo(int count, int* samples, int* type, float* duration) {
    return withSource([&](IOLDataSource& s) { return R::GetScriptSegmentInfo(s, count, samples, type, duration); });
}
char* DataSourceDll::GetSegmentDescription(int type) {
    try {
        return NewText(R::SegmentDescription(type));
    } catch (...) {
        return nullptr;
    }
}
int DataSourceDll::GetTipRadius(double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetTipRadius(s, out); });
}
int DataSourceDll::GetZScaleInHwUnits(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetZScaleInHwUnits(s, c, out); });
}
int DataSourceDll::GetZScaleInSwUnits(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetZScaleInSwUnits(s, c, out); });
}
int DataSourceDll::GetZSensitivitySoftScale(int c, double* out) {
    return withSource([&](IOLDataSource& s) { return R::GetZSensitivitySoftScale(s, c, out); });
}
int DataSourceDll::GetZSensitivityUnits(int c, char* out) {
    return withSource([&](IOLDataSource& s) { return R::GetZSensitivityUnits(s, c, out, -1); });
}
int DataSourceDll::GetOriginalScriptSegmentInfo(int count, int* samples, int* size, int* type, float* duration) {
    return withSource([&](IOLDataSource& s) {
        return R::GetOriginalScriptSegmentInfo(s, count, samples, size, type, duration);
    });
}
