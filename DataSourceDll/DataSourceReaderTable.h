// The readers of the exports, one row each. Both surfaces of the library are
// made from these rows: the members of DataSourceDll (and through them the
// flat C functions, which read the one current source) and the handle
// functions (which read the source of a handle). A reader is therefore
// written once, and the two surfaces cannot drift apart.
//
// An includer defines the row macros it needs (the others expand to
// nothing), has `namespace R = DataSourceReaders;`, and includes this file;
// the macros are undefined at its end. The call of a row reads the source
// `s`, and a text row writes its answer into `text`.
//
//   DS_READER(kind, Name, (params), (args), call)
//       a member DataSourceDll::Name and the C function DataSourceDllName
//       with the same arguments;
//   DS_MEMBER_ONLY(kind, Name, (params), call)
//       a member whose C functions are variants (below), or none;
//   DS_NONMEMBER_READER(kind, Name, (params), call)
//       a C function DataSourceDllName that has no member;
//   DS_VARIANT(kind, Name, (params), Reader, (args))
//       a C function DataSourceDllName that calls Reader with a fixed
//       units value or curve index among its arguments.
//
// kind is Int (-1 without a source), Text ("UNKNOWN" without a source) or
// Any (the reader is called with a source pointer that may be null).
//
// The handle surface has one function DataSourceDllHandleName for every C
// function named here, with the handle first and the same arguments after.

#ifndef DS_READER
#define DS_READER(kind, Name, params, args, call)
#endif
#ifndef DS_MEMBER_ONLY
#define DS_MEMBER_ONLY(kind, Name, params, call)
#endif
#ifndef DS_NONMEMBER_READER
#define DS_NONMEMBER_READER(kind, Name, params, call)
#endif
#ifndef DS_VARIANT
#define DS_VARIANT(kind, Name, params, Reader, args)
#endif

// Images and channels
DS_READER(Int, GetNumberOfChannels, (int* out), (out), R::GetNumberOfChannels(s, out))
DS_READER(Int, GetNumberOfLines, (int c, int* out), (c, out), R::GetNumberOfLines(s, c, out))
DS_READER(Int, GetSamplesPerLine, (int c, int* out), (c, out), R::GetSamplesPerLine(s, c, out))
DS_READER(Int, GetDataBufferSize, (int c, int* out), (c, out), R::GetDataBufferSize(s, c, out))
DS_MEMBER_ONLY(Int, GetImageData, (int c, double* out, int bufferSize, int* count, ScanUnits units),
               R::GetImageData(s, c, out, bufferSize, count, units))
DS_NONMEMBER_READER(Int, GetImageData, (int c, double* out, int bufferSize, int* count),
                    R::GetRawImageData(s, c, out, bufferSize, count))
DS_VARIANT(Int, GetImageMetricData, (int c, double* out, int bufferSize, int* count), GetImageData,
           (c, out, bufferSize, count, ScanUnitsMetric))
DS_VARIANT(Int, GetImageVoltsData, (int c, double* out, int bufferSize, int* count), GetImageData,
           (c, out, bufferSize, count, ScanUnitsVolts))
DS_READER(Int, GetExportScalingFactor, (int c, double* out, bool metric), (c, out, metric),
          R::GetExportScalingFactor(s, c, out, metric))
DS_READER(Int, GetScalingFactor, (int c, double* out, bool metric), (c, out, metric),
          R::GetScalingFactor(s, c, out, metric))
DS_READER(Int, GetZScaleInSwUnits, (int c, double* out), (c, out), R::GetZScaleInSwUnits(s, c, out))
DS_READER(Int, GetZScaleInHwUnits, (int c, double* out), (c, out), R::GetZScaleInHwUnits(s, c, out))
DS_READER(Int, GetZSensitivitySoftScale, (int c, double* out), (c, out), R::GetZSensitivitySoftScale(s, c, out))
// The caller vouches for the size of out; the safe variant below is told it.
DS_READER(Int, GetZSensitivityUnits, (int c, char* out), (c, out), R::GetZSensitivityUnits(s, c, out, -1))
DS_NONMEMBER_READER(Int, GetZSensitivityUnitsSafe, (int c, char* out, int bufferSize),
                    bufferSize < 0 ? -1 : R::GetZSensitivityUnits(s, c, out, bufferSize))
DS_MEMBER_ONLY(Text, GetDataScaleUnits, (int c, bool metric), R::GetDataScaleUnits(s, c, metric, text))
DS_VARIANT(Text, GetMetricDataScaleUnits, (int c), GetDataScaleUnits, (c, true))
DS_VARIANT(Text, GetVoltsDataScaleUnits, (int c), GetDataScaleUnits, (c, false))
DS_READER(Text, GetDataTypeDesc, (int c), (c), R::GetDataTypeDesc(s, c, text))
DS_READER(Text, GetLineDirection, (int c), (c), R::GetLineDirection(s, c, text))
DS_READER(Text, GetScanLine, (int c), (c), R::GetScanLine(s, c, text))
DS_READER(Int, GetScanSize, (int c, double* out), (c, out), R::GetScanSize(s, c, out))
DS_READER(Text, GetScanSizeUnit, (int c), (c), R::GetScanSizeUnit(s, c, text))
DS_READER(Int, GetImageAspectRatio, (int c, double* out), (c, out), R::GetImageAspectRatio(s, c, out))
DS_READER(Int, GetPlanefitSettings, (int c, double* a, double* b, double* c2, int* order), (c, a, b, c2, order),
          R::GetPlanefitSettings(s, c, a, b, c2, order))
DS_READER(Int, GetPoissonRatio, (double* out), (out), R::GetPoissonRatio(s, out))
DS_READER(Int, GetTipRadius, (double* out), (out), R::GetTipRadius(s, out))
DS_READER(Int, GetHalfAngle, (double* out), (out), R::GetHalfAngle(s, out))
DS_READER(Int, GetForceSpringConstant, (int c, double* out), (c, out), R::GetForceSpringConstant(s, c, out))
DS_READER(Int, GetRampSize, (int c, double* out, bool scaled), (c, out, scaled), R::GetRampSize(s, c, out, scaled))
DS_READER(Text, GetRampUnits, (int c, bool scaled), (c, scaled), R::GetRampUnits(s, c, scaled, text))
DS_READER(Int, GetForwardRampVelocity, (int c, double* out, bool scaled), (c, out, scaled),
          R::GetForwardRampVelocity(s, c, out, scaled))
DS_READER(Int, GetReverseRampVelocity, (int c, double* out, bool scaled), (c, out, scaled),
          R::GetReverseRampVelocity(s, c, out, scaled))
DS_NONMEMBER_READER(Int, GetFileKinds, (int* kinds), R::GetFileKinds(s, kinds))

// Force curves, hold sections, force volumes, high-speed data
DS_READER(Int, GetForceSamplesPerLine, (int c, int* out), (c, out), R::GetForceSamplesPerLine(s, c, out))
DS_READER(Int, GetNumberOfTracePoints, (int c, int* out), (c, out), R::GetNumberOfTracePoints(s, c, out))
// The count is written before the source is looked at.
DS_READER(Any, GetNumberOfPointsPerCurve, (int c, int* out), (c, out), R::GetNumberOfPointsPerCurve(s, c, out))
DS_READER(Int, GetNumberOfForceCurves, (int* out), (out), R::GetNumberOfForceCurves(s, out))
DS_READER(Int, GetForcesPerLine, (int* out), (out), R::GetForcesPerLine(s, out))
DS_MEMBER_ONLY(Int, GetForceCurveData, (int c, double* first, double* second, ScanUnits units),
               R::GetForceCurveData(s, c, first, second, units))
DS_VARIANT(Int, GetForceCurveData, (int c, double* first, double* second), GetForceCurveData,
           (c, first, second, ScanUnitsRaw))
DS_VARIANT(Int, GetForceCurveMetricData, (int c, double* first, double* second), GetForceCurveData,
           (c, first, second, ScanUnitsMetric))
DS_VARIANT(Int, GetForceCurveForceData, (int c, double* first, double* second), GetForceCurveData,
           (c, first, second, ScanUnitsForce))
DS_VARIANT(Int, GetForceCurveVoltsData, (int c, double* first, double* second), GetForceCurveData,
           (c, first, second, ScanUnitsVolts))
DS_MEMBER_ONLY(Int, GetForceVolumeImageData, (double* out, int bufferSize, int* count, ScanUnits units),
               R::GetForceVolumeImageData(s, out, bufferSize, count, units))
DS_VARIANT(Int, GetForceVolumeImageData, (double* out, int bufferSize, int* count), GetForceVolumeImageData,
           (out, bufferSize, count, ScanUnitsRaw))
DS_VARIANT(Int, GetForceVolumeMetricImageData, (double* out, int bufferSize, int* count), GetForceVolumeImageData,
           (out, bufferSize, count, ScanUnitsMetric))
DS_VARIANT(Int, GetForceVolumeVoltsImageData, (double* out, int bufferSize, int* count), GetForceVolumeImageData,
           (out, bufferSize, count, ScanUnitsVolts))
DS_MEMBER_ONLY(Int, GetForceVolumeForceCurveData,
               (int curve, double* first, double* second, int* firstCount, int* secondCount, int bufferSize,
                ScanUnits units),
               R::GetForceVolumeForceCurveData(s, curve, first, second, firstCount, secondCount, bufferSize, units))
DS_VARIANT(Int, GetForceVolumeForceCurveData,
           (int curve, double* first, double* second, int* firstCount, int* secondCount, int bufferSize),
           GetForceVolumeForceCurveData, (curve, first, second, firstCount, secondCount, bufferSize, ScanUnitsRaw))
DS_VARIANT(Int, GetForceVolumeMetricForceCurveData,
           (int curve, double* first, double* second, int* firstCount, int* secondCount, int bufferSize),
           GetForceVolumeForceCurveData,
           (curve, first, second, firstCount, secondCount, bufferSize, ScanUnitsMetric))
DS_VARIANT(Int, GetForceVolumeForceForceCurveData,
           (int curve, double* first, double* second, int* firstCount, int* secondCount, int bufferSize),
           GetForceVolumeForceCurveData, (curve, first, second, firstCount, secondCount, bufferSize, ScanUnitsForce))
DS_VARIANT(Int, GetForceVolumeVoltsForceCurveData,
           (int curve, double* first, double* second, int* firstCount, int* secondCount, int bufferSize),
           GetForceVolumeForceCurveData, (curve, first, second, firstCount, secondCount, bufferSize, ScanUnitsVolts))
DS_READER(Int, GetNumberOfHoldPoints, (int c, int* out), (c, out), R::GetNumberOfHoldPoints(s, c, out))
DS_READER(Int, GetForceHoldTime, (int c, double* out), (c, out), R::GetForceHoldTime(s, c, out))
DS_MEMBER_ONLY(Int, GetForceHoldData, (int c, int curve, double* out, ScanUnits units),
               R::GetForceHoldData(s, c, curve, out, units))
DS_VARIANT(Int, GetForceHoldData, (int c, double* out), GetForceHoldData, (c, 0, out, ScanUnitsRaw))
DS_VARIANT(Int, GetForceMetricHoldData, (int c, double* out), GetForceHoldData, (c, 0, out, ScanUnitsMetric))
DS_VARIANT(Int, GetForceVoltsHoldData, (int c, double* out), GetForceHoldData, (c, 0, out, ScanUnitsVolts))
DS_VARIANT(Int, GetForceVolumeHoldData, (int c, int curve, double* out), GetForceHoldData,
           (c, curve, out, ScanUnitsRaw))
DS_VARIANT(Int, GetForceVolumeMetricHoldData, (int c, int curve, double* out), GetForceHoldData,
           (c, curve, out, ScanUnitsMetric))
DS_VARIANT(Int, GetForceVolumeVoltsHoldData, (int c, int curve, double* out), GetForceHoldData,
           (c, curve, out, ScanUnitsVolts))
DS_MEMBER_ONLY(Int, GetHSDCForceCurveData, (int c, double* out, int bufferSize, int* count, ScanUnits units),
               R::GetHSDCForceCurveData(s, c, out, bufferSize, count, units))
DS_VARIANT(Int, GetHSDCForceCurveData, (int c, double* out, int bufferSize, int* count), GetHSDCForceCurveData,
           (c, out, bufferSize, count, ScanUnitsRaw))
DS_VARIANT(Int, GetHSDCMetricForceCurveData, (int c, double* out, int bufferSize, int* count),
           GetHSDCForceCurveData, (c, out, bufferSize, count, ScanUnitsMetric))
DS_VARIANT(Int, GetHSDCVoltsForceCurveData, (int c, double* out, int bufferSize, int* count),
           GetHSDCForceCurveData, (c, out, bufferSize, count, ScanUnitsVolts))
DS_READER(Int, GetHsdcRate, (int c, double* out), (c, out), R::GetHsdcRate(s, c, out))

// Script segments, capture Z, tapping frequency, sweep
DS_READER(Int, GetScriptSegmentCount, (int* out), (out), R::GetScriptSegmentCount(s, out))
DS_READER(Int, GetScriptSegmentInfo, (int count, int* samples, int* type, float* duration),
          (count, samples, type, duration), R::GetScriptSegmentInfo(s, count, samples, type, duration))
DS_MEMBER_ONLY(Int, GetOriginalScriptSegmentInfo, (int count, int* samples, int* size, int* type, float* duration),
               R::GetOriginalScriptSegmentInfo(s, count, samples, size, type, duration))
DS_MEMBER_ONLY(Int, GetScriptSegmentData,
               (int c, int segment, int points, double* time, double* out, ScanUnits units),
               R::GetScriptSegmentData(s, c, segment, points, time, out, units))
DS_VARIANT(Int, GetScriptSegmentData, (int c, int segment, int points, double* time, double* out),
           GetScriptSegmentData, (c, segment, points, time, out, ScanUnitsRaw))
DS_VARIANT(Int, GetScriptMetricSegmentData, (int c, int segment, int points, double* time, double* out),
           GetScriptSegmentData, (c, segment, points, time, out, ScanUnitsMetric))
DS_VARIANT(Int, GetScriptVoltsSegmentData, (int c, int segment, int points, double* time, double* out),
           GetScriptSegmentData, (c, segment, points, time, out, ScanUnitsVolts))
DS_READER(Int, GetCrestloadCaptureZData, (double* first, double* second, int firstCount, int secondCount),
          (first, second, firstCount, secondCount),
          R::GetCrestloadCaptureZData(s, first, second, firstCount, secondCount))
DS_READER(Int, GetCrestloadTappingFreq, (double* out), (out), R::GetCrestloadTappingFreq(s, out))
DS_READER(Text, GetForceSweepChannel, (int c), (c), R::GetForceSweepChannel(s, c, text))
DS_READER(Int, GetForceSweepFreqRange, (int c, double* low, double* high), (c, low, high),
          R::GetForceSweepFreqRange(s, c, low, high))

#undef DS_READER
#undef DS_MEMBER_ONLY
#undef DS_NONMEMBER_READER
#undef DS_VARIANT
