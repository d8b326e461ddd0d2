/*
 * DataSourceDll: read the data files of scanning probe microscopes.
 *
 * A host opens one file by path and reads what it holds through these
 * functions; the library keeps that one file as its current source. Integer
 * results are 1 for success and -1 for failure (no file open, a null pointer,
 * a file of the wrong kind, a buffer too small, an index out of range).
 * Text results are new strings that the caller releases with
 * DataSourceDllFreeString, except DataSourceDllGetForceDataScaleUnits.
 *
 * Units: "Metric" readers give physical values in the channel's unit,
 * "Volts" readers give hardware units, "Force" readers give nN, and the plain
 * readers give raw counts.
 */
#ifndef DATASOURCEDLL_H
#define DATASOURCEDLL_H

#include <stdbool.h>

#if defined(__GNUC__)
#define DSDLL_API __attribute__((visibility("default")))
#else
#define DSDLL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Opening and closing */
DSDLL_API int DataSourceDllOpen(char* path);
DSDLL_API int DataSourceDllClose(void);

/* Images and channels */
DSDLL_API int DataSourceDllGetNumberOfChannels(int* out);
DSDLL_API int DataSourceDllGetNumberOfLines(int channel, int* out);
DSDLL_API int DataSourceDllGetSamplesPerLine(int channel, int* out);
DSDLL_API int DataSourceDllGetDataBufferSize(int channel, int* out);
DSDLL_API int DataSourceDllGetImageData(int channel, double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetImageMetricData(int channel, double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetImageVoltsData(int channel, double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetExportScalingFactor(int channel, double* out, bool metric);
DSDLL_API int DataSourceDllGetScalingFactor(int channel, double* out, bool metric);
DSDLL_API int DataSourceDllGetZScaleInSwUnits(int channel, double* out);
DSDLL_API int DataSourceDllGetZScaleInHwUnits(int channel, double* out);
DSDLL_API int DataSourceDllGetZSensitivitySoftScale(int channel, double* out);
DSDLL_API int DataSourceDllGetZSensitivityUnits(int channel, char* out);
DSDLL_API char* DataSourceDllGetMetricDataScaleUnits(int channel);
DSDLL_API char* DataSourceDllGetVoltsDataScaleUnits(int channel);
DSDLL_API const char* DataSourceDllGetForceDataScaleUnits(void);
DSDLL_API char* DataSourceDllGetDataTypeDesc(int channel);
DSDLL_API char* DataSourceDllGetLineDirection(int channel);
DSDLL_API char* DataSourceDllGetScanLine(int channel);
DSDLL_API int DataSourceDllGetScanSize(int channel, double* out);
DSDLL_API char* DataSourceDllGetScanSizeUnit(int channel);
DSDLL_API int DataSourceDllGetImageAspectRatio(int channel, double* out);
DSDLL_API int DataSourceDllGetPlanefitSettings(int channel, double* a, double* b, double* c, int* order);
DSDLL_API int DataSourceDllGetPoissonRatio(double* out);
DSDLL_API int DataSourceDllGetTipRadius(double* out);
DSDLL_API int DataSourceDllGetHalfAngle(double* out);
DSDLL_API int DataSourceDllGetForceSpringConstant(int channel, double* out);
DSDLL_API int DataSourceDllGetRampSize(int channel, double* out, bool scaled);
DSDLL_API char* DataSourceDllGetRampUnits(int channel, bool scaled);
DSDLL_API int DataSourceDllGetForwardRampVelocity(int channel, double* out, bool scaled);
DSDLL_API int DataSourceDllGetReverseRampVelocity(int channel, double* out, bool scaled);

/* Force curves, hold sections, force volumes, high-speed data */
DSDLL_API int DataSourceDllGetForceSamplesPerLine(int channel, int* out);
DSDLL_API int DataSourceDllGetNumberOfTracePoints(int channel, int* out);
DSDLL_API int DataSourceDllGetNumberOfPointsPerCurve(int channel, int* out);
DSDLL_API int DataSourceDllGetNumberOfForceCurves(int* out);
DSDLL_API int DataSourceDllGetForcesPerLine(int* out);
DSDLL_API int DataSourceDllGetForceCurveData(int channel, double* first, double* second);
DSDLL_API int DataSourceDllGetForceCurveMetricData(int channel, double* first, double* second);
DSDLL_API int DataSourceDllGetForceCurveForceData(int channel, double* first, double* second);
DSDLL_API int DataSourceDllGetForceCurveVoltsData(int channel, double* first, double* second);
DSDLL_API int DataSourceDllGetForceVolumeImageData(double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetForceVolumeMetricImageData(double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetForceVolumeVoltsImageData(double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetForceVolumeForceCurveData(int curve, double* first, double* second, int* firstCount,
                                                        int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllGetForceVolumeMetricForceCurveData(int curve, double* first, double* second,
                                                              int* firstCount, int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllGetForceVolumeForceForceCurveData(int curve, double* first, double* second,
                                                             int* firstCount, int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllGetForceVolumeVoltsForceCurveData(int curve, double* first, double* second,
                                                             int* firstCount, int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllGetNumberOfHoldPoints(int channel, int* out);
DSDLL_API int DataSourceDllGetForceHoldTime(int channel, double* out);
DSDLL_API int DataSourceDllGetForceHoldData(int channel, double* out);
DSDLL_API int DataSourceDllGetForceMetricHoldData(int channel, double* out);
DSDLL_API int DataSourceDllGetForceVoltsHoldData(int channel, double* out);
DSDLL_API int DataSourceDllGetForceVolumeHoldData(int channel, int curve, double* out);
DSDLL_API int DataSourceDllGetForceVolumeMetricHoldData(int channel, int curve, double* out);
DSDLL_API int DataSourceDllGetForceVolumeVoltsHoldData(int channel, int curve, double* out);
DSDLL_API int DataSourceDllGetHSDCForceCurveData(int channel, double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetHSDCMetricForceCurveData(int channel, double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetHSDCVoltsForceCurveData(int channel, double* out, int bufferSize, int* count);
DSDLL_API int DataSourceDllGetHsdcRate(int channel, double* out);

/* Script segments, capture Z, tapping frequency, sweep */
DSDLL_API int DataSourceDllGetScriptSegmentCount(int* out);
DSDLL_API int DataSourceDllGetScriptSegmentInfo(int count, int* samples, int* type, float* duration);
DSDLL_API char* DataSourceDllGetSegmentDescription(int type);
DSDLL_API int DataSourceDllGetScriptSegmentData(int channel, int segment, int points, double* time, double* out);
DSDLL_API int DataSourceDllGetScriptMetricSegmentData(int channel, int segment, int points, double* time,
                                                      double* out);
DSDLL_API int DataSourceDllGetScriptVoltsSegmentData(int channel, int segment, int points, double* time,
                                                     double* out);
DSDLL_API int DataSourceDllGetCrestloadCaptureZData(double* first, double* second, int firstCount, int secondCount);
DSDLL_API int DataSourceDllGetCrestloadTappingFreq(double* out);
DSDLL_API char* DataSourceDllGetForceSweepChannel(int channel);
DSDLL_API int DataSourceDllGetForceSweepFreqRange(int channel, double* low, double* high);

/* Additions for hosts written in C or other languages */

/* Releases a text result of this library. Null is accepted. */
DSDLL_API void DataSourceDllFreeString(char* text);
/* GetZSensitivityUnits with the size of the buffer: -1 when the text and its
 * terminating zero do not fit. */
DSDLL_API int DataSourceDllGetZSensitivityUnitsSafe(int channel, char* out, int bufferSize);
/* Where the messages meant for a user go (a failed save, a refused file).
 * A null callback restores the default: the log and standard error. */
DSDLL_API void DataSourceDllSetMessageCallback(void (*cb)(const char* text, void* user), void* user);
/* Where log lines go. A null callback restores the default: standard error. */
DSDLL_API void DataSourceDllSetLogCallback(void (*cb)(const char* logger, int severity, const char* text, void* user),
                                           void* user);

#ifdef __cplusplus
}
#endif

#endif /* DATASOURCEDLL_H */
