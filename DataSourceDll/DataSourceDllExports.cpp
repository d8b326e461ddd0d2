// The flat C functions: each forwards to a member of DataSourceDll, one
// function per units value where the member takes units.

#include "DataSourceDll/DataSourceDll.h"

#include "DataSourceDll/DataSourceDllClass.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "DataSourceDll/DataSourceReaders.h"
#include "Platform/Logger.h"
#include "Platform/UserMessage.h"

using D = DataSourceDll;

extern "C" {

int DataSourceDllOpen(char* path) { return D::Open(path); }
int DataSourceDllClose(void) { return D::Close(); }

int DataSourceDllGetNumberOfChannels(int* out) { return D::GetNumberOfChannels(out); }
int DataSourceDllGetNumberOfLines(int c, int* out) { return D::GetNumberOfLines(c, out); }
int DataSourceDllGetSamplesPerLine(int c, int* out) { return D::GetSamplesPerLine(c, out); }
int DataSourceDllGetDataBufferSize(int c, int* out) { return D::GetDataBufferSize(c, out); }

int DataSourceDllGetImageData(int c, double* out, int bufferSize, int* count) {
    try {
        IOLDataSource* s = DataSourceDllState::Current();
        return s ? DataSourceReaders::GetRawImageData(*s, c, out, bufferSize, count) : -1;
    } catch (...) {
        return -1;
    }
}
int DataSourceDllGetImageMetricData(int c, double* out, int bufferSize, int* count) {
    return D::GetImageData(c, out, bufferSize, count, ScanUnitsMetric);
}
int DataSourceDllGetImageVoltsData(int c, double* out, int bufferSize, int* count) {
    return D::GetImageData(c, out, bufferSize, count, ScanUnitsVolts);
}
int DataSourceDllGetExportScalingFactor(int c, double* out, bool metric) {
    return D::GetExportScalingFactor(c, out, metric);
}
int DataSourceDllGetScalingFactor(int c, double* out, bool metric) { return D::GetScalingFactor(c, out, metric); }
int DataSourceDllGetZScaleInSwUnits(int c, double* out) { return D::GetZScaleInSwUnits(c, out); }
int DataSourceDllGetZScaleInHwUnits(int c, double* out) { return D::GetZScaleInHwUnits(c, out); }
int DataSourceDllGetZSensitivitySoftScale(int c, double* out) { return D::GetZSensitivitySoftScale(c, out); }
int DataSourceDllGetZSensitivityUnits(int c, char* out) { return D::GetZSensitivityUnits(c, out); }
char* DataSourceDllGetMetricDataScaleUnits(int c) { return D::GetDataScaleUnits(c, true); }
char* DataSourceDllGetVoltsDataScaleUnits(int c) { return D::GetDataScaleUnits(c, false); }
// The unit of force data is fixed; a static text, not to be released.
const char* DataSourceDllGetForceDataScaleUnits(void) { return "nN"; }
char* DataSourceDllGetDataTypeDesc(int c) { return D::GetDataTypeDesc(c); }
char* DataSourceDllGetLineDirection(int c) { return D::GetLineDirection(c); }
char* DataSourceDllGetScanLine(int c) { return D::GetScanLine(c); }
int DataSourceDllGetScanSize(int c, double* out) { return D::GetScanSize(c, out); }
char* DataSourceDllGetScanSizeUnit(int c) { return D::GetScanSizeUnit(c); }
int DataSourceDllGetImageAspectRatio(int c, double* out) { return D::GetImageAspectRatio(c, out); }
int DataSourceDllGetPlanefitSettings(int c, double* a, double* b, double* c2, int* order) {
    return D::GetPlanefitSettings(c, a, b, c2, order);
}
int DataSourceDllGetPoissonRatio(double* out) { return D::GetPoissonRatio(out); }
int DataSourceDllGetTipRadius(double* out) { return D::GetTipRadius(out); }
int DataSourceDllGetHalfAngle(double* out) { return D::GetHalfAngle(out); }
int DataSourceDllGetForceSpringConstant(int c, double* out) { return D::GetForceSpringConstant(c, out); }
int DataSourceDllGetRampSize(int c, double* out, bool scaled) { return D::GetRampSize(c, out, scaled); }
char* DataSourceDllGetRampUnits(int c, bool scaled) { return D::GetRampUnits(c, scaled); }
int DataSourceDllGetForwardRampVelocity(int c, double* out, bool scaled) {
    return D::GetForwardRampVelocity(c, out, scaled);
}
int DataSourceDllGetReverseRampVelocity(int c, double* out, bool scaled) {
    return D::GetReverseRampVelocity(c, out, scaled);
}

int DataSourceDllGetForceSamplesPerLine(int c, int* out) { return D::GetForceSamplesPerLine(c, out); }
int DataSourceDllGetNumberOfTracePoints(int c, int* out) { return D::GetNumberOfTracePoints(c, out); }
int DataSourceDllGetNumberOfPointsPerCurve(int c, int* out) { return D::GetNumberOfPointsPerCurve(c, out); }
int DataSourceDllGetNumberOfForceCurves(int* out) { return D::GetNumberOfForceCurves(out); }
int DataSourceDllGetForcesPerLine(int* out) { return D::GetForcesPerLine(out); }
int DataSourceDllGetForceCurveData(int c, double* first, double* second) {
    return D::GetForceCurveData(c, first, second, ScanUnitsRaw);
}
int DataSourceDllGetForceCurveMetricData(int c, double* first, double* second) {
    return D::GetForceCurveData(c, first, second, ScanUnitsMetric);
}
int DataSourceDllGetForceCurveForceData(int c, double* first, double* second) {
    return D::GetForceCurveData(c, first, second, ScanUnitsForce);
}
int DataSourceDllGetForceCurveVoltsData(int c, double* first, double* second) {
    return D::GetForceCurveData(c, first, second, ScanUnitsVolts);
}
int DataSourceDllGetForceVolumeImageData(double* out, int bufferSize, int* count) {
    return D::GetForceVolumeImageData(out, bufferSize, count, ScanUnitsRaw);
}
int DataSourceDllGetForceVolumeMetricImageData(double* out, int bufferSize, int* count) {
    return D::GetForceVolumeImageData(out, bufferSize, count, ScanUnitsMetric);
}
int DataSourceDllGetForceVolumeVoltsImageData(double* out, int bufferSize, int* count) {
    return D::GetForceVolumeImageData(out, bufferSize, count, ScanUnitsVolts);
}
int DataSourceDllGetForceVolumeForceCurveData(int curve, double* first, double* second, int* firstCount,
                                              int* secondCount, int bufferSize) {
    return D::GetForceVolumeForceCurveData(curve, first, second, firstCount, secondCount, bufferSize, ScanUnitsRaw);
}
int DataSourceDllGetForceVolumeMetricForceCurveData(int curve, double* first, double* second, int* firstCount,
                                                    int* secondCount, int bufferSize) {
    return D::GetForceVolumeForceCurveData(curve, first, second, firstCount, secondCount, bufferSize,
                                           ScanUnitsMetric);
}
int DataSourceDllGetForceVolumeForceForceCurveData(int curve, double* first, double* second, int* firstCount,
                                                   int* secondCount, int bufferSize) {
    return D::GetForceVolumeForceCurveData(curve, first, second, firstCount, secondCount, bufferSize,
                                           ScanUnitsForce);
}
int DataSourceDllGetForceVolumeVoltsForceCurveData(int curve, double* first, double* second, int* firstCount,
                                                   int* secondCount, int bufferSize) {
    return D::GetForceVolumeForceCurveData(curve, first, second, firstCount, secondCount, bufferSize,
                                           ScanUnitsVolts);
}
int DataSourceDllGetNumberOfHoldPoints(int c, int* out) { return D::GetNumberOfHoldPoints(c, out); }
int DataSourceDllGetForceHoldTime(int c, double* out) { return D::GetForceHoldTime(c, out); }
int DataSourceDllGetForceHoldData(int c, double* out) { return D::GetForceHoldData(c, 0, out, ScanUnitsRaw); }
int DataSourceDllGetForceMetricHoldData(int c, double* out) { return D::GetForceHoldData(c, 0, out, ScanUnitsMetric); }
int DataSourceDllGetForceVoltsHoldData(int c, double* out) { return D::GetForceHoldData(c, 0, out, ScanUnitsVolts); }
int DataSourceDllGetForceVolumeHoldData(int c, int curve, double* out) {
    return D::GetForceHoldData(c, curve, out, ScanUnitsRaw);
}
int DataSourceDllGetForceVolumeMetricHoldData(int c, int curve, double* out) {
    return D::GetForceHoldData(c, curve, out, ScanUnitsMetric);
}
int DataSourceDllGetForceVolumeVoltsHoldData(int c, int curve, double* out) {
    return D::GetForceHoldData(c, curve, out, ScanUnitsVolts);
}
int DataSourceDllGetHSDCForceCurveData(int c, double* out, int bufferSize, int* count) {
    return D::GetHSDCForceCurveData(c, out, bufferSize, count, ScanUnitsRaw);
}
int DataSourceDllGetHSDCMetricForceCurveData(int c, double* out, int bufferSize, int* count) {
    return D::GetHSDCForceCurveData(c, out, bufferSize, count, ScanUnitsMetric);
}
int DataSourceDllGetHSDCVoltsForceCurveData(int c, double* out, int bufferSize, int* count) {
    return D::GetHSDCForceCurveData(c, out, bufferSize, count, ScanUnitsVolts);
}
int DataSourceDllGetHsdcRate(int c, double* out) { return D::GetHsdcRate(c, out); }

int DataSourceDllGetScriptSegmentCount(int* out) { return D::GetScriptSegmentCount(out); }
int DataSourceDllGetScriptSegmentInfo(int count, int* samples, int* type, float* duration) {
    return D::GetScriptSegmentInfo(count, samples, type, duration);
}
char* DataSourceDllGetSegmentDescription(int type) { return D::GetSegmentDescription(type); }
int DataSourceDllGetScriptSegmentData(int c, int segment, int points, double* time, double* out) {
    return D::GetScriptSegmentData(c, segment, points, time, out, ScanUnitsRaw);
}
int DataSourceDllGetScriptMetricSegmentData(int c, int segment, int points, double* time, double* out) {
    return D::GetScriptSegmentData(c, segment, points, time, out, ScanUnitsMetric);
}
int DataSourceDllGetScriptVoltsSegmentData(int c, int segment, int points, double* time, double* out) {
    return D::GetScriptSegmentData(c, segment, points, time, out, ScanUnitsVolts);
}
int DataSourceDllGetCrestloadCaptureZData(double* first, double* second, int firstCount, int secondCount) {
    return D::GetCrestloadCaptureZData(first, second, firstCount, secondCount);
}
int DataSourceDllGetCrestloadTappingFreq(double* out) { return D::GetCrestloadTappingFreq(out); }
char* DataSourceDllGetForceSweepChannel(int c) { return D::GetForceSweepChannel(c); }
int DataSourceDllGetForceSweepFreqRange(int c, double* low, double* high) {
    return D::GetForceSweepFreqRange(c, low, high);
}

void DataSourceDllFreeString(char* text) { delete[] text; }

int DataSourceDllGetZSensitivityUnitsSafe(int c, char* out, int bufferSize) {
    try {
        IOLDataSource* s = DataSourceDllState::Current();
        if (!s || bufferSize < 0) {
            return -1;
        }
        return DataSourceReaders::GetZSensitivityUnits(*s, c, out, bufferSize);
    } catch (...) {
        return -1;
    }
}

void DataSourceDllSetMessageCallback(void (*cb)(const char* text, void* user), void* user) {
    if (!cb) {
        Orx::Core::SetUserMessageHandler(nullptr);
        return;
    }
    Orx::Core::SetUserMessageHandler([cb, user](const std::string& text) { cb(text.c_str(), user); });
}

void DataSourceDllSetLogCallback(void (*cb)(const char* logger, int severity, const char* text, void* user),
                                 void* user) {
    if (!cb) {
        Orx::Core::LogManager::Instance().SetSink(nullptr);
        return;
    }
    Orx::Core::LogManager::Instance().SetSink([cb, user](const std::string& logger, int severity,
                                                         const std::string& text) {
        cb(logger.c_str(), severity, text.c_str(), user);
    });
}

}  // extern "C"
