#pragma once

// The interface of an opened file. Every operation is abstract; OLDataSource
// gives the bodies that all families share, and each family overrides what its
// files need. The order of the operations is part of the interface.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cstdint>
#include <string>
#include <vector>

class OLDataItem;
class IOLDataItemCheckpoint;

class IOLDataSource {
public:
    virtual ~IOLDataSource() = default;
    // Lifetime and file
    virtual void Initialize() = 0;
    virtual bool IsOpen() const = 0;
    virtual bool Save(bool flag) = 0;
    virtual bool SaveAs(const std::string& path, bool flag) = 0;
    virtual DataFilePtr SaveToDataFile(const std::string& path, bool flag) = 0;
    virtual bool Close() = 0;
    virtual std::string GetFilePath() const = 0;
    virtual std::string GetFileTitle() const = 0;
    virtual OLDateTime GetDateTime() const = 0;
    virtual std::string GetDate() const = 0;

    // Counts and file kind
    virtual int GetNumberOfChannels() const = 0;
    virtual int GetImportType() const = 0;
    virtual bool IsImageFile() const = 0;
    virtual bool IsForceFile() const = 0;
    virtual bool IsForceVolumeFile() const = 0;
    virtual bool IsHsdcFile() const = 0;
    virtual bool IsScriptFile() const = 0;
    virtual bool IsTimedFile() const = 0;
    virtual bool IsTimedForceFile() const = 0;
    virtual bool IsHarlenFile() const = 0;
    virtual bool IsEcStmFile() const = 0;
    virtual bool IsEcAfmFile() const = 0;
    virtual bool IsEcForceFile() const = 0;
    virtual bool IsEcFile() const = 0;
    virtual void SetNumberOfChannels(int count) = 0;
    virtual int GetNumberOfDisplayChannels() const = 0;
    virtual void SetNumberOfDisplayChannels(int count) = 0;

    // Channel data and geometry
    virtual OLDataItem* GetDataItem(unsigned channel) = 0;
    virtual std::int32_t* GetData(unsigned channel) const = 0;
    virtual void SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns, std::uint64_t fileOffset) = 0;
    virtual int GetBitsPerPixel(unsigned channel) const = 0;
    virtual std::uint32_t GetNumberOfLines(unsigned channel) const = 0;
    virtual int GetImageLines() const = 0;
    virtual int GetOriginalLines() const = 0;
    virtual std::uint32_t GetSamplesPerLine(unsigned channel) const = 0;
    virtual int GetImageSamplesPerLine() const = 0;
    virtual std::uint32_t GetDataBufferSize(unsigned channel) const = 0;

    // Scan record
    virtual UValue GetScanSize() const = 0;
    virtual UValue GetScanRate() const = 0;
    virtual UValue GetXOffset() const = 0;
    virtual UValue GetYOffset() const = 0;
    virtual void SetOffsets(UValue x, UValue y) = 0;
    virtual void SetPixelRange(int x, int y) = 0;
    virtual float GetAspectRatio() const = 0;
    virtual float GetChannelAspectRatio(unsigned channel) const = 0;
    virtual float GetZMagnify(unsigned channel) const = 0;

    // Channel scale forwarders
    virtual double GetZSensitivitySoftScale(unsigned channel) const = 0;
    virtual std::string GetZSensitivityUnits(unsigned channel) const = 0;
    virtual std::string GetZSensitivityName(unsigned channel) const = 0;
    virtual void SetZSensitivity(unsigned channel, double value, std::string units, bool companions) = 0;
    virtual UValue GetZRange(unsigned channel, bool soft) const = 0;
    virtual double RawToValue(unsigned channel, std::int64_t raw, bool soft) const = 0;
    virtual double PhysicalValueOfRaw(unsigned channel, std::int64_t raw) const = 0;
    virtual std::int64_t RawOfPhysicalValue(unsigned channel, double value) const = 0;
    virtual std::int64_t GetZOffset(unsigned channel) const = 0;
    virtual void SetZOffset(unsigned channel, std::int64_t offset) = 0;
    virtual float GetDisplayZScale(unsigned channel) const = 0;
    virtual float GetZScaleInSwUnits(unsigned channel) const = 0;
    virtual float GetZScaleInHwUnits(unsigned channel) const = 0;
    virtual float GetScalingFactor(unsigned channel) const = 0;
    virtual std::string GetDataScaleName(unsigned channel) const = 0;
    virtual float GetChannelRotateAngle(unsigned channel) const = 0;
    virtual UValue GetDataScale(unsigned channel, bool soft) const = 0;

    // Setters of scale and geometry
    virtual void SetDataScale(unsigned channel, UValue& value, bool flag) = 0;
    virtual void SetScanSize(unsigned channel, UValue size) = 0;
    virtual void SetScanSizeOfChannel(unsigned channel, UValue size) = 0;
    virtual void SetImageLines(int lines) = 0;
    virtual void SetChannelLines(unsigned channel, std::uint32_t lines) = 0;
    virtual void SetImageSamples(int samples) = 0;
    virtual void SetChannelSamples(unsigned channel, std::uint32_t samples) = 0;
    virtual void SetRotateAngle(float angle) = 0;
    virtual void SetChannelAspectRatio(unsigned channel, float ratio) = 0;
    virtual void SetChannelSamplesPerLineMark(unsigned channel, bool mark) = 0;
    virtual void SetChannelLinesMark(unsigned channel, bool mark) = 0;

    // Display range and colour
    virtual void SetDisplayRange(unsigned channel, bool isExplicit, double min, double max) = 0;
    virtual bool GetDisplayRange(unsigned channel, double* min, double* max) = 0;
    virtual void SetDisplayFlag(unsigned channel, bool flag) = 0;
    virtual bool GetDisplayFlag(unsigned channel) const = 0;
    virtual void GetColorTableSettings(unsigned channel, std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const = 0;
    virtual void SetColorTableSettings(unsigned channel, std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) = 0;
    virtual void SetHasColorTable(unsigned channel, bool has) = 0;
    virtual bool HasColorTable(unsigned channel) const = 0;
    virtual ColorTableObject GetColorTable(unsigned channel) const = 0;
    virtual void SetColorTable(unsigned channel, const ColorTableObject& table) = 0;
    virtual void SetColorEntries(unsigned channel, const ColorEntries& entries) = 0;
    virtual ColorEntry* GetColorEntries(unsigned channel) = 0;
    virtual void SetColorRanges(unsigned channel, std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) = 0;
    virtual void GetColorRanges(unsigned channel, std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const = 0;
    virtual void SetDisplayRangeMode(unsigned channel, std::uint32_t mode) = 0;
    virtual std::uint32_t GetDisplayRangeMode(unsigned channel) const = 0;
    virtual void GetContrastRange(unsigned channel, double* min, double* max) const = 0;
    virtual void GetDataMinMax(unsigned channel, double* min, double* max) const = 0;
    virtual double GetRawRange(unsigned channel) const = 0;
    virtual bool IsMetric() const = 0;
    virtual void SetSecondDisplayRange(unsigned channel, bool isExplicit, double min, double max) = 0;
    virtual bool GetSecondDisplayRange(unsigned channel, double* min, double* max) = 0;
    virtual void GetSecondPercentileRange(unsigned channel, const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const = 0;
    virtual void GetSecondFullRange(unsigned channel, const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const = 0;
    virtual void GetSecondColorTableSettings(unsigned channel, std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const = 0;
    virtual void SetSecondColorTableSettings(unsigned channel, std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) = 0;
    virtual void SetHasSecondColorTable(unsigned channel, bool has) = 0;
    virtual bool HasSecondColorTable(unsigned channel) const = 0;
    virtual ColorTableObject GetSecondColorTable(unsigned channel) const = 0;
    virtual void SetSecondColorTable(unsigned channel, const ColorTableObject& table) = 0;
    virtual void SetSecondColorEntries(unsigned channel, const ColorEntries& entries) = 0;
    virtual ColorEntry* GetSecondColorEntries(unsigned channel) = 0;
    virtual void SetSecondColorRanges(unsigned channel, std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) = 0;
    virtual void GetSecondColorRanges(unsigned channel, std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const = 0;

    // Channel texts
    virtual std::string GetDataTypeDesc(unsigned channel) const = 0;
    virtual void SetDataTypeDesc(unsigned channel, std::string text) = 0;
    virtual std::string GetDataName(unsigned channel) const = 0;
    virtual std::string GetLineDirection(unsigned channel) const = 0;
    virtual std::string GetFrameDirection(unsigned channel) const = 0;
    virtual std::uint32_t GetCaptureStartLine(unsigned channel) const = 0;
    virtual std::string GetScanLine(unsigned channel) const = 0;
    virtual std::string GetTipSerialNumber() const = 0;
    virtual std::string GetNote(unsigned channel) const = 0;
    virtual std::string GetUnits() const = 0;
    virtual std::string GetModulusFitModel() const = 0;
    virtual std::string GetAdhesionAlgorithm() const = 0;
    virtual void SetUnits(std::string units) = 0;
    virtual void SetNoteOfAll(std::string text) = 0;
    virtual void SetDataName(unsigned channel, std::string name) = 0;
    virtual void SetModulusFitModel(std::string model) = 0;
    virtual void SetAdhesionAlgorithm(std::string algorithm) = 0;

    // Channel parameters and checkpoints
    virtual void SetChannelParameters(unsigned channel, float factor) = 0;
    virtual IOLDataItemCheckpoint* CreateCheckpoint(unsigned channel) = 0;
    virtual void RestoreCheckpoint(unsigned channel, IOLDataItemCheckpoint* checkpoint) = 0;
    virtual void DeleteCheckpoint(IOLDataItemCheckpoint* checkpoint) = 0;
    virtual IOLDataItemCheckpoint* CreateNamedCheckpoint(unsigned channel, std::string name) = 0;
    virtual int GetChannelFileIndex(unsigned channel) const = 0;
    virtual std::uint32_t GetDataLength(unsigned channel) const = 0;
    virtual std::uint32_t GetChannelUserValue(unsigned channel) const = 0;
    virtual void SetChannelUserValue(unsigned channel, std::uint32_t value) = 0;
    virtual void RemoveChannel(unsigned channel) = 0;
    virtual std::vector<std::string> GetDataPlistNames() = 0;
    virtual DataContainerPtr GetParameterList(const std::string& name) = 0;
    virtual std::string GetParameterListForItem(const std::string& section, const std::string& key) = 0;
    virtual std::uint32_t GetValidStartX(unsigned channel) const = 0;
    virtual std::uint32_t GetValidStartY(unsigned channel) const = 0;
    virtual std::uint32_t GetValidLenX(unsigned channel) const = 0;
    virtual std::uint32_t GetValidLenY(unsigned channel) const = 0;
    virtual std::int64_t GetChannelRawHalfRange(unsigned channel) const = 0;

    // Plane fit and ramps
    virtual void GetRawRange(unsigned channel, std::int32_t* min, std::int32_t* max) const = 0;
    virtual PlaneFitSettings GetPlanefitSettings(unsigned channel) const = 0;
    virtual std::string GetPlanefitDesc(unsigned channel) const = 0;
    virtual std::int64_t GetValue1(unsigned channel) const = 0;
    virtual void SetValue1(unsigned channel, std::int64_t value) = 0;
    virtual std::int64_t GetValue2(unsigned channel) const = 0;
    virtual void SetValue2(unsigned channel, std::int64_t value) = 0;
    virtual UValue GetForceZOffset(unsigned channel, bool scaled) const = 0;
    virtual UValue GetRampBegin(unsigned channel, bool scaled) const = 0;
    virtual UValue GetRampEnd(unsigned channel, bool scaled) const = 0;
    virtual UValue GetRampSize(unsigned channel, bool scaled) const = 0;
    virtual void SetRampAxisText(double value) = 0;
    virtual std::uint32_t GetNumberOfPointsPerCurve(unsigned channel) const = 0;
    virtual double GetForcePhaseOffset(unsigned channel) const = 0;
    virtual void SetForcePhaseOffset(unsigned channel, double offset) = 0;
    virtual std::uint32_t GetAvePoints(unsigned channel) const = 0;
    virtual void SetAvePoints(unsigned channel, std::uint32_t points) = 0;
    virtual std::uint32_t GetEffectiveBw(unsigned channel) const = 0;
    virtual double GetForceSpringConstant(unsigned channel) const = 0;
    virtual void SetForceSpringConstant(unsigned channel, double value) = 0;
    virtual int GetForceSamplesPerLine() const = 0;
    virtual std::uint32_t GetTracePoints(unsigned channel) const = 0;
    virtual int GetNumberOfTracePoints() const = 0;
    virtual std::uint32_t GetRetracePoints(unsigned channel) const = 0;
    virtual std::string GetInvert(unsigned channel) const = 0;
    virtual void SetInvert(unsigned channel, std::string text) = 0;
    virtual std::string GetForceDisplayMode(unsigned channel) const = 0;
    virtual void SetForceDisplayMode(unsigned channel, std::string text) = 0;
    virtual std::string GetXDataType(unsigned channel) const = 0;
    virtual void SetXDataType(unsigned channel, std::string text) = 0;
    virtual std::string GetUnitDisplay() const = 0;
    virtual double GetCantileverAngle() const = 0;
    virtual void SetCantileverAngle(double angle) = 0;

    // Tip and modulus model
    virtual double GetTipPoissonRatio() const = 0;
    virtual double GetCantileverLength() const = 0;
    virtual double GetTipHeight() const = 0;
    virtual double GetTipPosition() const = 0;
    virtual double GetTipStorageModulus() const = 0;
    virtual double GetTipLossModulus() const = 0;
    virtual int GetEigenmode() const = 0;
    virtual double GetFreeAirFrequency() const = 0;
    virtual double GetFreeAirQ() const = 0;
    virtual double GetFreeAirFrequency2() const = 0;
    virtual double GetFreeAirQ2() const = 0;
    virtual double GetFreeAirFrequency3() const = 0;
    virtual double GetFreeAirQ3() const = 0;
    virtual double GetKLateralKNormal() const = 0;
    virtual double GetPLateralPNormal() const = 0;
    virtual double GetHoldForceDeflection() const = 0;
    virtual double GetReferenceStorageModulus() const = 0;
    virtual double GetReferenceLossModulus() const = 0;
    virtual double GetReferencePoissonRatio() const = 0;
    virtual double GetTipModelGeometricParam() const = 0;
    virtual bool GetSaveLoadEnabled() const = 0;
    virtual std::string GetLossModulusMethod() const = 0;
    virtual std::string GetModulusCalcMethod() const = 0;
    virtual std::string GetTipModel() const = 0;
    virtual std::string GetCrBaselineFitType() const = 0;
    virtual void SetTipPoissonRatio(double value) = 0;
    virtual void SetCantileverLength(double value) = 0;
    virtual void SetTipHeight(double value) = 0;
    virtual void SetTipPosition(double value) = 0;
    virtual void SetTipStorageModulus(double value) = 0;
    virtual void SetTipLossModulus(double value) = 0;
    virtual void SetEigenmode(int value) = 0;
    virtual void SetFreeAirFrequency(double value) = 0;
    virtual void SetFreeAirQ(double value) = 0;
    virtual void SetFreeAirFrequency2(double value) = 0;
    virtual void SetFreeAirQ2(double value) = 0;
    virtual void SetFreeAirFrequency3(double value) = 0;
    virtual void SetFreeAirQ3(double value) = 0;
    virtual void SetKLateralKNormal(double value) = 0;
    virtual void SetPLateralPNormal(double value) = 0;
    virtual void SetHoldForceDeflection(double value) = 0;
    virtual void SetReferenceStorageModulus(double value) = 0;
    virtual void SetReferenceLossModulus(double value) = 0;
    virtual void SetReferencePoissonRatio(double value) = 0;
    virtual void SetTipModelGeometricParam(double value) = 0;
    virtual void SetTipModel(std::string model) = 0;
    virtual void SetSaveLoadEnabled(bool enabled) = 0;
    virtual void SetModulusCalcMethod(std::string method) = 0;
    virtual void SetLossModulusMethod(std::string method) = 0;
    virtual void SetCrBaselineFitType(std::string type) = 0;

    // Capture and hold
    virtual double GetCrestloadAmplitude() const = 0;
    virtual double GetCrestloadSetpoint() const = 0;
    virtual UValue GetCrestloadTappingFreq() const = 0;
    virtual double GetCrestloadAmplitudeValue() const = 0;
    virtual void SetCrestloadAmplitudeValue(double value) = 0;
    virtual std::string GetCrestloadCapture() const = 0;
    virtual void SetUnitDisplay(std::string text) = 0;
    virtual int GetStripChartRate() const = 0;
    virtual bool GetStripChartEnabled() const = 0;
    virtual double GetForwardRampVelocity(unsigned channel, bool scaled) const = 0;
    virtual double GetReverseRampVelocity(unsigned channel, bool scaled) const = 0;
    virtual double GetScanRateValue() const = 0;
    virtual void SetScanRateValue(double value) = 0;
    virtual std::string GetDisplayMode() const = 0;
    virtual void SetDisplayMode(std::string mode) = 0;
    virtual int GetNumberOfHoldPoints() const = 0;
    virtual double GetForceHoldTime() const = 0;
    virtual bool GetChannelHoldFlag(unsigned channel) const = 0;
    virtual void SetChannelHoldFlag(unsigned channel, bool flag) = 0;
    virtual int GetSegmentCount() const = 0;
    virtual std::string GetSegmentSizeList() const = 0;
    virtual std::string GetSegmentSamplesList() const = 0;
    virtual std::string GetSegmentDurationList() const = 0;
    virtual std::string GetSegmentRampTypeList() const = 0;
    virtual std::string GetSegmentRampStartList() const = 0;
    virtual std::string GetSegmentRampSizeList() const = 0;
    virtual std::string GetSegmentTypeList() const = 0;
    virtual std::string GetRampChannel() const = 0;
    virtual std::string GetCaptureMode() const = 0;
    virtual bool SaveChannelAs(unsigned channel, const std::string& path, bool flag) = 0;

    // Tip geometry and baseline
    virtual double GetTipRadius(unsigned channel) const = 0;
    virtual void SetTipRadius(unsigned channel, double value) = 0;
    virtual double GetPoissonRatio(unsigned channel) const = 0;
    virtual void SetPoissonRatio(unsigned channel, double value) = 0;
    virtual double GetHalfAngle(unsigned channel) const = 0;
    virtual void SetHalfAngle(unsigned channel, double value) = 0;
    virtual void SetSyncDistance(double value) = 0;
    virtual std::string GetDeflectionBaselineFit() const = 0;
    virtual void SetDeflectionBaselineFit(std::string method) = 0;
    virtual double GetBaselineStart() const = 0;
    virtual void SetBaselineStart(double value) = 0;
    virtual double GetBaselineStop() const = 0;
    virtual void SetBaselineStop(double value) = 0;
    virtual UValue GetSecondScale(unsigned channel, bool scaled) const = 0;
    virtual UValue GetThirdScale(unsigned channel, bool scaled) const = 0;
    virtual void SetScaledRange(unsigned channel, UValue value, bool scaled) = 0;
    virtual double GetSecondScaleFactor(unsigned channel) const = 0;
    virtual double GetSecondScaleFraction(unsigned channel) const = 0;
    virtual std::string GetZDirection() const = 0;
    virtual void SetZDirection(std::string direction) = 0;

    // Force volume access
    virtual int GetForcesPerLine() const = 0;
    virtual int GetForceVolumeForcesPerLine() const = 0;
    virtual bool IsForceSweep() const = 0;
    virtual std::string GetForceSweepChannel() const = 0;
    virtual UValue GetForceSweepStart() const = 0;
    virtual UValue GetForceSweepEnd() const = 0;
    virtual UValue GetForceSweepStartHz() const = 0;
    virtual UValue GetForceSweepEndHz() const = 0;
    virtual std::int32_t* GetForceVolumeCurveData(unsigned channel, int curve) const = 0;
    virtual std::int32_t* GetForceVolumeRawCurve(unsigned channel, int curve) const = 0;
    virtual bool SaveForceCurveSet(unsigned channel, const std::string& path) = 0;
    virtual bool IsChannelUsed(unsigned channel) const = 0;
    virtual int FindLastChannel() const = 0;
    virtual int FindHeightSensorChannel() const = 0;
    virtual int FindAmplitudeChannel() const = 0;

    // Force volume limits
    virtual UValue GetFvModulusLimit(bool scaled) const = 0;
    virtual UValue GetLogFvModulusLimit(bool scaled) const = 0;
    virtual UValue GetFvStiffnessLimit(bool scaled) const = 0;
    virtual UValue GetFvForceLimit(bool scaled) const = 0;
    virtual UValue GetFvValue1(bool scaled) const = 0;
    virtual UValue GetFvValue2(bool scaled) const = 0;
    virtual UValue GetFvValue3(bool scaled) const = 0;
    virtual UValue GetFvValue4(bool scaled) const = 0;
    virtual UValue GetFvValue5(bool scaled) const = 0;
    virtual UValue GetFvValue6(bool scaled) const = 0;
    virtual UValue GetFvValue7(bool scaled) const = 0;
    virtual void SetFvModulusLimit(UValue value) = 0;
    virtual void SetLogFvModulusLimit(UValue value) = 0;
    virtual void SetFvStiffnessLimit(UValue value) = 0;
    virtual void SetFvForceLimit(UValue value) = 0;
    virtual void SetFvValue1(UValue value) = 0;
    virtual void SetFvValue2(UValue value) = 0;
    virtual void SetFvValue3(UValue value) = 0;
    virtual void SetFvValue4(UValue value) = 0;
    virtual void SetFvValue5(UValue value) = 0;
    virtual void SetFvValue6(UValue value) = 0;
    virtual void SetFvValue6Sensitivity(UValue value, double sensitivity, std::string units) = 0;
    virtual void SetFvValue7(UValue value) = 0;
    virtual void SetFvValue8(UValue value) = 0;
    virtual void SetFvValue9(UValue value) = 0;
    virtual void SetFvValue10(UValue value) = 0;
    virtual void SetFvValue11(UValue value) = 0;
    virtual void SetFvValue12(UValue value) = 0;
    virtual void SetFvValue13(UValue value) = 0;
    virtual void SetFvValue14(UValue value) = 0;

    // Per-channel extras
    virtual std::uint32_t GetHighSpeedSamples(unsigned channel) const = 0;
    virtual std::string GetHighSpeedDataType(unsigned channel) const = 0;
    virtual double GetHsdcRateValue(unsigned channel) const = 0;
    virtual UValue GetHsdcRate() const = 0;

    // Capture parameters
    virtual double GetHsdcDelay() const = 0;
    virtual double GetHsdcDuration() const = 0;
    virtual int GetHsdcXPosition() const = 0;
    virtual int GetHsdcYLineNumber() const = 0;
    virtual double GetXRound() const = 0;
    virtual void SetSensZSens(std::string text) = 0;
    virtual bool IsTorsionalEnabled() const = 0;
    virtual double GetTorsionalFreq() const = 0;
    virtual double GetTorsionalQ() const = 0;
    virtual double GetSampleRate() const = 0;
    virtual int GetSamplePoints() const = 0;
    virtual int GetCyclesToAverage() const = 0;
    virtual int GetHarmonicsToCorrect() const = 0;
    virtual int GetMaxHarmonics() const = 0;
    virtual int GetForceDataPoints() const = 0;
    virtual double GetCalculationPeriod() const = 0;
    virtual double GetInteractionTime() const = 0;
    virtual bool GetInvertTorsional() const = 0;
    virtual bool GetInvertVertical() const = 0;
    virtual double GetUnloadFitRegion() const = 0;
    virtual double GetDeformationFitRegion() const = 0;
    virtual double GetSyncDistance() const = 0;

    // Sensitivities and limits
    virtual std::string GetMicroscopeList() const = 0;
    virtual std::string GetMicroscope() const = 0;
    virtual UValue GetDeflSens() const = 0;
    virtual UValue GetAmplitudeSens() const = 0;
    virtual UValue GetForceSens() const = 0;
    virtual UValue GetDeformationSens() const = 0;
    virtual UValue GetForceDeflSens() const = 0;
    virtual UValue GetAmplitudeLimit1() const = 0;
    virtual UValue GetHsAdc2GainLockIn2() const = 0;
    virtual UValue GetDriveFrequency3() const = 0;
    virtual UValue GetDriveAmplitude3() const = 0;
    virtual UValue GetDriveAmplitude3Sens() const = 0;
    virtual UValue GetBaselineAvgPts() const = 0;
    virtual UValue GetForceDigitalSetPoint() const = 0;
    virtual UValue GetForceDigitalSetPointSens() const = 0;
    virtual UValue GetCantFrequency() const = 0;
    virtual std::string GetEcFunction(unsigned channel) const = 0;
    virtual UValue GetEcPotInput() const = 0;
    virtual UValue GetEcPotOutput() const = 0;
    virtual UValue GetEcCurrentInput() const = 0;
    virtual UValue GetEcTip() const = 0;
    virtual UValue GetEcBias() const = 0;

    // Electrochemistry
    virtual double GetVoltamVoltMax() const = 0;
    virtual double GetVoltamVoltMin() const = 0;
    virtual double GetTemporalTimeStart() const = 0;
    virtual double GetTemporalTimeEnd() const = 0;
    virtual double GetTemporalTimeRange() const = 0;
    virtual double GetTemporalVoltRange() const = 0;
    virtual double GetVoltamCurrentRange() const = 0;
    virtual double GetTemporalCurrentRange() const = 0;
    virtual std::string GetTipReference() const = 0;
    virtual std::string GetRampElectrode() const = 0;
    virtual double GetTipPotInput() const = 0;
    virtual double GetTipCurrent() const = 0;
    virtual double GetBiasPotInput() const = 0;
    virtual double GetPotentiostatElectrodeArea() const = 0;
    virtual std::string GetTemporalVoltFunction() const = 0;

    // Item overrides and angles
    virtual std::string GetPlistName(unsigned channel) const = 0;
    virtual bool HasRangeOverride(unsigned channel) const = 0;
    virtual void SetOverrideMin(unsigned channel, float value) = 0;
    virtual void GetOverrideMin(unsigned channel, float* out, bool metric) const = 0;
    virtual float GetOverrideMinRaw(unsigned channel) const = 0;
    virtual void SetOverrideMax(unsigned channel, float value) = 0;
    virtual void GetOverrideMax(unsigned channel, float* out, bool metric) const = 0;
    virtual float GetOverrideMaxRaw(unsigned channel) const = 0;
    virtual void SetOverrideUnits(unsigned channel, std::string units) = 0;
    virtual std::string GetOverrideUnits(unsigned channel) const = 0;
    virtual bool GetItemFlag(unsigned channel) const = 0;
    virtual void SetItemFlag(unsigned channel, bool flag) = 0;
    virtual void GetHalfAngles(unsigned channel, float& first, float& second) const = 0;
    virtual void SetHalfAngles(unsigned channel, float first, float second) = 0;

    // Feedback values
    virtual double GetTmFbIgain() const = 0;
    virtual double GetAfmFbIgain() const = 0;
    virtual std::string GetCaptureDirection() const = 0;
    virtual double GetForceDigitalSetPointValue() const = 0;
    virtual bool GetHasForceDigitalSetPoint() const = 0;
    virtual double GetCantDrive() const = 0;
    virtual double GetTmSetAmplitude() const = 0;
    virtual double GetAfmSetDeflection() const = 0;
    virtual double GetTmSetDeflection() const = 0;

    // Invalid samples
    virtual const std::vector<std::uint32_t>* GetInvalidPointList(unsigned channel) const = 0;
    virtual void SetInvalidPointList(unsigned channel, const std::vector<std::uint32_t>& list) = 0;
    virtual void ClearInvalidPointList(unsigned channel) = 0;
    virtual bool HasInvalidPoints(unsigned channel) const = 0;
    virtual std::uint32_t GetInvalidFlag(unsigned channel) const = 0;
    virtual void SetInvalidFlag(unsigned channel, std::uint32_t flag) = 0;
    virtual std::string GetInvalidFill(unsigned channel) const = 0;
    virtual void SetInvalidFill(unsigned channel, std::string fill) = 0;
};
