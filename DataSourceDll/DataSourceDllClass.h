#pragma once

// The C++ face of the library: a class with no state whose static members are
// the exports. Each flat C function of DataSourceDll.h forwards to one member.
// Installed beside the C header, and needs nothing else of the library's
// sources: a host includes it as "DataSourceDll/DataSourceDllClass.h".

#include "DataSourceDll/DataSourceDll.h"

#include <cstdint>

// The caller's choice of units. Any other value behaves as raw counts.
enum ScanUnits : std::int32_t {
    ScanUnitsVolts = 0,
    ScanUnitsMetric = 1,
    ScanUnitsForce = 2,
    ScanUnitsRaw = 3,
};

class DSDLL_API DataSourceDll {
public:
    DataSourceDll();
    ~DataSourceDll();
    DataSourceDll& operator=(const DataSourceDll& other);

    static int Open(char* path);
    static int Close();

    static int GetImageData(int channel, double* out, int bufferSize, int* count, ScanUnits units);
    static int GetForceCurveData(int channel, double* first, double* second, ScanUnits units);
    static int GetForceVolumeImageData(double* out, int bufferSize, int* count, ScanUnits units);
    static int GetForceVolumeForceCurveData(int curve, double* first, double* second, int* firstCount,
                                            int* secondCount, int bufferSize, ScanUnits units);
    static int GetForceHoldData(int channel, int curve, double* out, ScanUnits units);
    static int GetScriptSegmentData(int channel, int segment, int points, double* time, double* out,
                                    ScanUnits units);
    static int GetHSDCForceCurveData(int channel, double* out, int bufferSize, int* count, ScanUnits units);
    static char* GetDataScaleUnits(int channel, bool metric);

    static int GetDataBufferSize(int channel, int* out);
    static char* GetDataTypeDesc(int channel);
    static int GetExportScalingFactor(int channel, double* out, bool metric);
    static int GetForceHoldTime(int channel, double* out);
    static int GetForceSamplesPerLine(int channel, int* out);
    static int GetForceSpringConstant(int channel, double* out);
    static char* GetForceSweepChannel(int channel);
    static int GetForceSweepFreqRange(int channel, double* low, double* high);
    static int GetForcesPerLine(int* out);
    static int GetForwardRampVelocity(int channel, double* out, bool scaled);
    static int GetHalfAngle(double* out);
    static int GetHsdcRate(int channel, double* out);
    static int GetImageAspectRatio(int channel, double* out);
    static char* GetLineDirection(int channel);
    static int GetNumberOfChannels(int* out);
    static int GetNumberOfForceCurves(int* out);
    static int GetNumberOfHoldPoints(int channel, int* out);
    static int GetNumberOfLines(int channel, int* out);
    static int GetNumberOfPointsPerCurve(int channel, int* out);
    static int GetNumberOfTracePoints(int channel, int* out);
    static int GetCrestloadCaptureZData(double* first, double* second, int firstCount, int secondCount);
    static int GetCrestloadTappingFreq(double* out);
    static int GetPlanefitSettings(int channel, double* a, double* b, double* c, int* order);
    static int GetPoissonRatio(double* out);
    static int GetRampSize(int channel, double* out, bool scaled);
    static char* GetRampUnits(int channel, bool scaled);
    static int GetReverseRampVelocity(int channel, double* out, bool scaled);
    static int GetSamplesPerLine(int channel, int* out);
    static int GetScalingFactor(int channel, double* out, bool metric);
    static char* GetScanLine(int channel);
    static int GetScanSize(int channel, double* out);
    static char* GetScanSizeUnit(int channel);
    static int GetScriptSegmentCount(int* out);
    static int GetScriptSegmentInfo(int count, int* samples, int* type, float* duration);
    static char* GetSegmentDescription(int type);
    static int GetTipRadius(double* out);
    static int GetZScaleInHwUnits(int channel, double* out);
    static int GetZScaleInSwUnits(int channel, double* out);
    static int GetZSensitivitySoftScale(int channel, double* out);
    static int GetZSensitivityUnits(int channel, char* out);

private:
    static int GetOriginalScriptSegmentInfo(int count, int* samples, int* size, int* type, float* duration);
};
