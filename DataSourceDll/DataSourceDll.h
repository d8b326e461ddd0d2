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

/* Saving the current file (there are no handle forms of these). Each answers
 * 1, or -1 with no file open, a null argument, a channel out of range, or a
 * save that failed; why a save failed goes to the message callback. A file
 * is written beside its target and then put in its place, so a failure never
 * leaves a damaged target. */
/* Writes the current file, with the changes made to it, at path; the current
 * file stays the one that was opened. A ".tef" file keeps the size of its
 * note area and is written with 2-byte pixels. */
DSDLL_API int DataSourceDllSaveAs(char* path);
/* Gives every channel of the current file this note, to be written by the
 * next save. */
DSDLL_API int DataSourceDllSetNote(char* text);
/* Writes channel N (from 0) as the one channel of a new file at path. Of a
 * ".tef" file the channel is written as it stands in the file on disk,
 * without the changes made to it since. */
DSDLL_API int DataSourceDllSaveChannelAs(int channel, char* path);

/* The kinds of the current file, as a sum of the bits below: a file may be
 * of more than one kind (an electrochemistry image is an image too). */
#define DATASOURCEDLL_KIND_IMAGE 0x0001
#define DATASOURCEDLL_KIND_FORCE 0x0002
#define DATASOURCEDLL_KIND_FORCE_VOLUME 0x0004
#define DATASOURCEDLL_KIND_HIGH_SPEED 0x0008
#define DATASOURCEDLL_KIND_SCRIPT 0x0010
#define DATASOURCEDLL_KIND_TIMED 0x0020
#define DATASOURCEDLL_KIND_TIMED_FORCE 0x0040
#define DATASOURCEDLL_KIND_EC 0x0080
#define DATASOURCEDLL_KIND_EC_STM 0x0100
#define DATASOURCEDLL_KIND_EC_AFM 0x0200
#define DATASOURCEDLL_KIND_EC_FORCE 0x0400
#define DATASOURCEDLL_KIND_HARLEN 0x0800
DSDLL_API int DataSourceDllGetFileKinds(int* kinds);

/* Several files at once.
 *
 * A handle holds an open file of its own, beside the current file of the
 * functions above, which it never changes. For every function above that
 * reads the current file there is one named DataSourceDllHandle... that
 * takes a handle first and then the same arguments, and gives the same
 * results for the handle's file: DataSourceDllHandleGetImageMetricData(h, 0,
 * out, size, &count) is DataSourceDllGetImageMetricData(0, out, size,
 * &count) on h. A null, closed or unknown handle answers as no open file
 * does: -1, or "UNKNOWN" for texts. Texts are released with
 * DataSourceDllFreeString. DataSourceDllGetSegmentDescription and
 * DataSourceDllGetForceDataScaleUnits read no file and serve handles as they are.
 *
 * Handles are independent: two threads may each read their own handle at
 * the same time. Calls on one handle from several threads run one after the
 * other. Shared by the whole process, handles and current file alike: the
 * message and log callbacks, the log filter that every open sets, the
 * capture phase and amplitude that the last capture Z read set up, and the
 * unit system that the first Harlen deflection row of the process chooses.
 */
typedef struct DataSourceDllHandle DataSourceDllHandle;

/* Opens path with the same choice of family as DataSourceDllOpen; null when
 * it does not open. */
DSDLL_API DataSourceDllHandle* DataSourceDllOpenHandle(const char* path);
/* Closes the file of a handle, which is then no longer valid: 1, or -1 for a
 * handle that is not open. A null handle is accepted (1). */
DSDLL_API int DataSourceDllCloseHandle(DataSourceDllHandle* handle);
/* The text that chose the file's family: "Quillon Data File", "Harlen Data
 * File" or ".tef". */
DSDLL_API char* DataSourceDllHandleGetFileTypeText(DataSourceDllHandle* handle);
DSDLL_API int DataSourceDllHandleGetFileKinds(DataSourceDllHandle* handle, int* kinds);

DSDLL_API int DataSourceDllHandleGetNumberOfChannels(DataSourceDllHandle* handle, int* out);
DSDLL_API int DataSourceDllHandleGetNumberOfLines(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetSamplesPerLine(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetDataBufferSize(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetImageData(DataSourceDllHandle* handle, int channel, double* out, int bufferSize,
                                              int* count);
DSDLL_API int DataSourceDllHandleGetImageMetricData(DataSourceDllHandle* handle, int channel, double* out,
                                                    int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetImageVoltsData(DataSourceDllHandle* handle, int channel, double* out,
                                                   int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetExportScalingFactor(DataSourceDllHandle* handle, int channel, double* out,
                                                        bool metric);
DSDLL_API int DataSourceDllHandleGetScalingFactor(DataSourceDllHandle* handle, int channel, double* out,
                                                  bool metric);
DSDLL_API int DataSourceDllHandleGetZScaleInSwUnits(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetZScaleInHwUnits(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetZSensitivitySoftScale(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetZSensitivityUnits(DataSourceDllHandle* handle, int channel, char* out);
DSDLL_API int DataSourceDllHandleGetZSensitivityUnitsSafe(DataSourceDllHandle* handle, int channel, char* out,
                                                          int bufferSize);
DSDLL_API char* DataSourceDllHandleGetMetricDataScaleUnits(DataSourceDllHandle* handle, int channel);
DSDLL_API char* DataSourceDllHandleGetVoltsDataScaleUnits(DataSourceDllHandle* handle, int channel);
DSDLL_API char* DataSourceDllHandleGetDataTypeDesc(DataSourceDllHandle* handle, int channel);
DSDLL_API char* DataSourceDllHandleGetLineDirection(DataSourceDllHandle* handle, int channel);
DSDLL_API char* DataSourceDllHandleGetScanLine(DataSourceDllHandle* handle, int channel);
DSDLL_API int DataSourceDllHandleGetScanSize(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API char* DataSourceDllHandleGetScanSizeUnit(DataSourceDllHandle* handle, int channel);
DSDLL_API int DataSourceDllHandleGetImageAspectRatio(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetPlanefitSettings(DataSourceDllHandle* handle, int channel, double* a, double* b,
                                                     double* c, int* order);
DSDLL_API int DataSourceDllHandleGetPoissonRatio(DataSourceDllHandle* handle, double* out);
DSDLL_API int DataSourceDllHandleGetTipRadius(DataSourceDllHandle* handle, double* out);
DSDLL_API int DataSourceDllHandleGetHalfAngle(DataSourceDllHandle* handle, double* out);
DSDLL_API int DataSourceDllHandleGetForceSpringConstant(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetRampSize(DataSourceDllHandle* handle, int channel, double* out, bool scaled);
DSDLL_API char* DataSourceDllHandleGetRampUnits(DataSourceDllHandle* handle, int channel, bool scaled);
DSDLL_API int DataSourceDllHandleGetForwardRampVelocity(DataSourceDllHandle* handle, int channel, double* out,
                                                        bool scaled);
DSDLL_API int DataSourceDllHandleGetReverseRampVelocity(DataSourceDllHandle* handle, int channel, double* out,
                                                        bool scaled);

DSDLL_API int DataSourceDllHandleGetForceSamplesPerLine(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetNumberOfTracePoints(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetNumberOfPointsPerCurve(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetNumberOfForceCurves(DataSourceDllHandle* handle, int* out);
DSDLL_API int DataSourceDllHandleGetForcesPerLine(DataSourceDllHandle* handle, int* out);
DSDLL_API int DataSourceDllHandleGetForceCurveData(DataSourceDllHandle* handle, int channel, double* first,
                                                   double* second);
DSDLL_API int DataSourceDllHandleGetForceCurveMetricData(DataSourceDllHandle* handle, int channel, double* first,
                                                         double* second);
DSDLL_API int DataSourceDllHandleGetForceCurveForceData(DataSourceDllHandle* handle, int channel, double* first,
                                                        double* second);
DSDLL_API int DataSourceDllHandleGetForceCurveVoltsData(DataSourceDllHandle* handle, int channel, double* first,
                                                        double* second);
DSDLL_API int DataSourceDllHandleGetForceVolumeImageData(DataSourceDllHandle* handle, double* out, int bufferSize,
                                                         int* count);
DSDLL_API int DataSourceDllHandleGetForceVolumeMetricImageData(DataSourceDllHandle* handle, double* out,
                                                               int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetForceVolumeVoltsImageData(DataSourceDllHandle* handle, double* out,
                                                              int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetForceVolumeForceCurveData(DataSourceDllHandle* handle, int curve, double* first,
                                                              double* second, int* firstCount, int* secondCount,
                                                              int bufferSize);
DSDLL_API int DataSourceDllHandleGetForceVolumeMetricForceCurveData(DataSourceDllHandle* handle, int curve,
                                                                    double* first, double* second, int* firstCount,
                                                                    int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllHandleGetForceVolumeForceForceCurveData(DataSourceDllHandle* handle, int curve,
                                                                   double* first, double* second, int* firstCount,
                                                                   int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllHandleGetForceVolumeVoltsForceCurveData(DataSourceDllHandle* handle, int curve,
                                                                   double* first, double* second, int* firstCount,
                                                                   int* secondCount, int bufferSize);
DSDLL_API int DataSourceDllHandleGetNumberOfHoldPoints(DataSourceDllHandle* handle, int channel, int* out);
DSDLL_API int DataSourceDllHandleGetForceHoldTime(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetForceHoldData(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetForceMetricHoldData(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetForceVoltsHoldData(DataSourceDllHandle* handle, int channel, double* out);
DSDLL_API int DataSourceDllHandleGetForceVolumeHoldData(DataSourceDllHandle* handle, int channel, int curve,
                                                        double* out);
DSDLL_API int DataSourceDllHandleGetForceVolumeMetricHoldData(DataSourceDllHandle* handle, int channel, int curve,
                                                              double* out);
DSDLL_API int DataSourceDllHandleGetForceVolumeVoltsHoldData(DataSourceDllHandle* handle, int channel, int curve,
                                                             double* out);
DSDLL_API int DataSourceDllHandleGetHSDCForceCurveData(DataSourceDllHandle* handle, int channel, double* out,
                                                       int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetHSDCMetricForceCurveData(DataSourceDllHandle* handle, int channel, double* out,
                                                             int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetHSDCVoltsForceCurveData(DataSourceDllHandle* handle, int channel, double* out,
                                                            int bufferSize, int* count);
DSDLL_API int DataSourceDllHandleGetHsdcRate(DataSourceDllHandle* handle, int channel, double* out);

DSDLL_API int DataSourceDllHandleGetScriptSegmentCount(DataSourceDllHandle* handle, int* out);
DSDLL_API int DataSourceDllHandleGetScriptSegmentInfo(DataSourceDllHandle* handle, int count, int* samples,
                                                      int* type, float* duration);
DSDLL_API int DataSourceDllHandleGetScriptSegmentData(DataSourceDllHandle* handle, int channel, int segment,
                                                      int points, double* time, double* out);
DSDLL_API int DataSourceDllHandleGetScriptMetricSegmentData(DataSourceDllHandle* handle, int channel, int segment,
                                                            int points, double* time, double* out);
DSDLL_API int DataSourceDllHandleGetScriptVoltsSegmentData(DataSourceDllHandle* handle, int channel, int segment,
                                                           int points, double* time, double* out);
DSDLL_API int DataSourceDllHandleGetCrestloadCaptureZData(DataSourceDllHandle* handle, double* first,
                                                          double* second, int firstCount, int secondCount);
DSDLL_API int DataSourceDllHandleGetCrestloadTappingFreq(DataSourceDllHandle* handle, double* out);
DSDLL_API char* DataSourceDllHandleGetForceSweepChannel(DataSourceDllHandle* handle, int channel);
DSDLL_API int DataSourceDllHandleGetForceSweepFreqRange(DataSourceDllHandle* handle, int channel, double* low,
                                                        double* high);

/* What a file is, for hosts that show it to a person */

/* The text that chose the current file's family: "Quillon Data File",
 * "Harlen Data File" or ".tef"; "UNKNOWN" with no file open. */
DSDLL_API char* DataSourceDllGetFileTypeText(void);
/* Every section of the section-and-key file at path, each followed by its
 * keys with their values as a person reads them: the section's name on a line
 * of its own, then one line "  key = value" for each key, a blank line after
 * each section. A line break within a value is written as the two characters
 * "\n". "UNKNOWN" when the file does not open as such a file (".tef" files
 * have no sections). The current file is not changed. */
DSDLL_API char* DataSourceDllDumpParameters(char* path);

#ifdef __cplusplus
}
#endif

#endif /* DATASOURCEDLL_H */
