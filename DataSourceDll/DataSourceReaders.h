#pragma once

// Every reader of the exports, written once as a function of a source. The
// flat C functions and the class members call them with the current source;
// the handle API calls them with the source of a handle.

#include "DataSourceDll/DataSourceDllClass.h"

#include <string>

class IOLDataSource;

namespace DataSourceReaders {

// The values of the last capture set-up. They are process-wide: they
// survive Close and Open, and one handle's capture Z read sets them for all.
struct CaptureState {
    double phase = 0.0;
    double amplitude = 0.0;
};
// Sets up the capture of a curve of n points with the phase count phaseCount
// and amplitude, and gives the values in force after it, all under one lock:
// a phase count of exactly 0 keeps the values before.
CaptureState SetUpCapture(int n, double phaseCount, double amplitude);

// The factor from raw counts of channel c: the image rule over 4294967295, and
// the force rule over the channel's scaling factor (force units included only
// where allowed).
double ImageFactor(IOLDataSource& s, int c, ScanUnits units);
double ForceFactor(IOLDataSource& s, int c, ScanUnits units, bool allowForce);
// The channel lies in the source's item table.
bool InTable(IOLDataSource& s, int c);
bool CaptureIsOn(IOLDataSource& s);
double CapturePhase(IOLDataSource& s, int n);

int GetImageData(IOLDataSource& s, int c, double* out, int bufferSize, int* count, ScanUnits units);
int GetRawImageData(IOLDataSource& s, int c, double* out, int bufferSize, int* count);
int GetExportScalingFactor(IOLDataSource& s, int c, double* out, bool metric);
int GetScalingFactor(IOLDataSource& s, int c, double* out, bool metric);
int GetNumberOfChannels(IOLDataSource& s, int* out);
int GetNumberOfLines(IOLDataSource& s, int c, int* out);
int GetSamplesPerLine(IOLDataSource& s, int c, int* out);
int GetDataBufferSize(IOLDataSource& s, int c, int* out);
int GetZScaleInSwUnits(IOLDataSource& s, int c, double* out);
int GetZScaleInHwUnits(IOLDataSource& s, int c, double* out);
int GetZSensitivitySoftScale(IOLDataSource& s, int c, double* out);
int GetZSensitivityUnits(IOLDataSource& s, int c, char* out, long long bufferSize);
int GetPoissonRatio(IOLDataSource& s, double* out);
int GetTipRadius(IOLDataSource& s, double* out);
int GetHalfAngle(IOLDataSource& s, double* out);
int GetForceSpringConstant(IOLDataSource& s, int c, double* out);
int GetScanSize(IOLDataSource& s, int c, double* out);
int GetRampSize(IOLDataSource& s, int c, double* out, bool scaled);
int GetForwardRampVelocity(IOLDataSource& s, int c, double* out, bool scaled);
int GetReverseRampVelocity(IOLDataSource& s, int c, double* out, bool scaled);
int GetImageAspectRatio(IOLDataSource& s, int c, double* out);
int GetPlanefitSettings(IOLDataSource& s, int c, double* a, double* b, double* c2, int* order);
int GetForceSamplesPerLine(IOLDataSource& s, int c, int* out);
int GetNumberOfTracePoints(IOLDataSource& s, int c, int* out);
// The kind predicates that hold, as the DATASOURCEDLL_KIND_ bits.
int GetFileKinds(IOLDataSource& s, int* kinds);

// Texts: the answer, or false when the source cannot give one.
bool GetDataScaleUnits(IOLDataSource& s, int c, bool metric, std::string& out);
bool GetDataTypeDesc(IOLDataSource& s, int c, std::string& out);
bool GetLineDirection(IOLDataSource& s, int c, std::string& out);
bool GetScanLine(IOLDataSource& s, int c, std::string& out);
bool GetScanSizeUnit(IOLDataSource& s, int c, std::string& out);
bool GetRampUnits(IOLDataSource& s, int c, bool scaled, std::string& out);
bool GetForceSweepChannel(IOLDataSource& s, int c, std::string& out);

int GetForceCurveData(IOLDataSource& s, int c, double* first, double* second, ScanUnits units);
int GetForceVolumeImageData(IOLDataSource& s, double* out, int bufferSize, int* count, ScanUnits units);
int GetForceVolumeForceCurveData(IOLDataSource& s, int curve, double* first, double* second, int* firstCount,
                                 int* secondCount, int bufferSize, ScanUnits units);
int GetForceHoldData(IOLDataSource& s, int c, int curve, double* out, ScanUnits units);
int GetHSDCForceCurveData(IOLDataSource& s, int c, double* out, int bufferSize, int* count, ScanUnits units);
int GetNumberOfPointsPerCurve(IOLDataSource* s, int c, int* out);
int GetNumberOfForceCurves(IOLDataSource& s, int* out);
int GetForcesPerLine(IOLDataSource& s, int* out);
int GetNumberOfHoldPoints(IOLDataSource& s, int c, int* out);
int GetForceHoldTime(IOLDataSource& s, int c, double* out);

int GetScriptSegmentCount(IOLDataSource& s, int* out);
int GetOriginalScriptSegmentInfo(IOLDataSource& s, int count, int* samples, int* size, int* type, float* duration);
int GetScriptSegmentInfo(IOLDataSource& s, int count, int* samples, int* type, float* duration);
int GetScriptSegmentData(IOLDataSource& s, int c, int segment, int points, double* time, double* out,
                         ScanUnits units);
int GetCrestloadCaptureZData(IOLDataSource& s, double* first, double* second, int firstCount, int secondCount);
int GetCrestloadTappingFreq(IOLDataSource& s, double* out);
int GetHsdcRate(IOLDataSource& s, int c, double* out);
int GetForceSweepFreqRange(IOLDataSource& s, int c, double* low, double* high);

// Needs no source.
std::string SegmentDescription(int type);

}  // namespace DataSourceReaders
