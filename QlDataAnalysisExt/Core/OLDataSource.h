#pragma once

// The base of every data source: one flat record of the values that the three
// families share, and the table of channel items. Almost every channel
// operation forwards to the item at its index.
//
// Sources: OLDataSource.cpp (lifetime, counts, geometry, scale forwarders),
// OLDataSourceItems.cpp (display, texts, force and item forwarders),
// OLDataSourceRecord.cpp (plain getters and setters of the record),
// OLDataSourceReading.cpp (curves, finders, invalid samples, parameter lists),
// OLDataSourceSave.cpp (the saving frame), OLDataSourceCheckpoints.cpp, and
// ColorTables/OLDataSourceColorTables.cpp.

#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class ICreateColorTableCallback;

class OLDataSource : public IOLDataSource {
public:
    // The two families that read through a DataFile.
    OLDataSource(DataFilePtr dataFile, ICreateColorTableCallback* callback);
    // The ".tef" family: no data file and no callback.
    OLDataSource();
    ~OLDataSource() override;
    OLDataSource(const OLDataSource&) = delete;
    OLDataSource& operator=(const OLDataSource&) = delete;

    // Lifetime and file
    bool IsOpen() const override;
    bool Save(bool flag) override;
    bool SaveAs(const std::string& path, bool flag) override;
    DataFilePtr SaveToDataFile(const std::string& path, bool flag) override;
    bool Close() override;
    std::string GetFilePath() const override;
    std::string GetFileTitle() const override;
    OLDateTime GetDateTime() const override;
    std::string GetDate() const override;

    // Counts and file kind
    int GetNumberOfChannels() const override;
    int GetImportType() const override;
    bool IsImageFile() const override;
    bool IsForceFile() const override;
    bool IsForceVolumeFile() const override;
    bool IsHsdcFile() const override;
    bool IsScriptFile() const override;
    bool IsTimedFile() const override;
    bool IsTimedForceFile() const override;
    bool IsHarlenFile() const override;
    bool IsEcStmFile() const override;
    bool IsEcAfmFile() const override;
    bool IsEcForceFile() const override;
    bool IsEcFile() const override;
    void SetNumberOfChannels(int count) override;
    int GetNumberOfDisplayChannels() const override;
    void SetNumberOfDisplayChannels(int count) override;

    // Channel data and geometry
    OLDataItem* GetDataItem(unsigned channel) override;
    std::int32_t* GetData(unsigned channel) const override;
    void SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns, std::uint64_t fileOffset) override;
    int GetBitsPerPixel(unsigned channel) const override;
    std::uint32_t GetNumberOfLines(unsigned channel) const override;
    int GetImageLines() const override;
    int GetOriginalLines() const override;
    std::uint32_t GetSamplesPerLine(unsigned channel) const override;
    int GetImageSamplesPerLine() const override;
    std::uint32_t GetDataBufferSize(unsigned channel) const override;

    // Scan record
    UValue GetScanSize() const override;
    UValue GetScanRate() const override;
    UValue GetXOffset() const override;
    UValue GetYOffset() const override;
    void SetOffsets(UValue x, UValue y) override;
    void SetPixelRange(int x, int y) override;
    float GetAspectRatio() const override;
    float GetChannelAspectRatio(unsigned channel) const override;
    float GetZMagnify(unsigned channel) const override;

    // Channel scale forwarders
    double GetZSensitivitySoftScale(unsigned channel) const override;
    std::string GetZSensitivityUnits(unsigned channel) const override;
    std::string GetZSensitivityName(unsigned channel) const override;
    void SetZSensitivity(unsigned channel, double value, std::string units, bool companions) override;
    UValue GetZRange(unsigned channel, bool soft) const override;
    double RawToValue(unsigned channel, std::int64_t raw, bool soft) const override;
    double PhysicalValueOfRaw(unsigned channel, std::int64_t raw) const override;
    std::int64_t RawOfPhysicalValue(unsigned channel, double value) const override;
    std::int64_t GetZOffset(unsigned channel) const override;
    void SetZOffset(unsigned channel, std::int64_t offset) override;
    float GetDisplayZScale(unsigned channel) const override;
    float GetZScaleInSwUnits(unsigned channel) const override;
    float GetZScaleInHwUnits(unsigned channel) const override;
    float GetScalingFactor(unsigned channel) const override;
    std::string GetDataScaleName(unsigned channel) const override;
    float GetChannelRotateAngle(unsigned channel) const override;
    UValue GetDataScale(unsigned channel, bool soft) const override;

    // Setters of scale and geometry
    void SetScanSize(unsigned channel, UValue size) override;
    void SetScanSizeOfChannel(unsigned channel, UValue size) override;
    void SetImageLines(int lines) override;
    void SetChannelLines(unsigned channel, std::uint32_t lines) override;
    void SetImageSamples(int samples) override;
    void SetChannelSamples(unsigned channel, std::uint32_t samples) override;
    void SetRotateAngle(float angle) override;
    void SetChannelAspectRatio(unsigned channel, float ratio) override;
    void SetChannelSamplesPerLineMark(unsigned channel, bool mark) override;
    void SetChannelLinesMark(unsigned channel, bool mark) override;

    // Display range and colour
    void SetDisplayRange(unsigned channel, bool isExplicit, double min, double max) override;
    bool GetDisplayRange(unsigned channel, double* min, double* max) override;
    void SetDisplayFlag(unsigned channel, bool flag) override;
    bool GetDisplayFlag(unsigned channel) const override;
    void GetColorTableSettings(unsigned channel, std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const override;
    void SetColorTableSettings(unsigned channel, std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) override;
    void SetHasColorTable(unsigned channel, bool has) override;
    bool HasColorTable(unsigned channel) const override;
    ColorTableObject GetColorTable(unsigned channel) const override;
    void SetColorTable(unsigned channel, const ColorTableObject& table) override;
    void SetColorEntries(unsigned channel, const ColorEntries& entries) override;
    ColorEntry* GetColorEntries(unsigned channel) override;
    void SetColorRanges(unsigned channel, std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) override;
    void GetColorRanges(unsigned channel, std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const override;
    void SetDisplayRangeMode(unsigned channel, std::uint32_t mode) override;
    std::uint32_t GetDisplayRangeMode(unsigned channel) const override;
    void GetContrastRange(unsigned channel, double* min, double* max) const override;
    void GetDataMinMax(unsigned channel, double* min, double* max) const override;
    double GetRawRange(unsigned channel) const override;
    bool IsMetric() const override;
    void SetSecondDisplayRange(unsigned channel, bool isExplicit, double min, double max) override;
    bool GetSecondDisplayRange(unsigned channel, double* min, double* max) override;
    void GetSecondPercentileRange(unsigned channel, const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const override;
    void GetSecondFullRange(unsigned channel, const std::int32_t* buffer, std::uint32_t count, double* min, double* max) const override;
    void GetSecondColorTableSettings(unsigned channel, std::int32_t& table, std::uint32_t& value1, std::uint32_t& value2, bool& flag) const override;
    void SetSecondColorTableSettings(unsigned channel, std::int32_t table, std::uint32_t value1, std::uint32_t value2, bool flag) override;
    void SetHasSecondColorTable(unsigned channel, bool has) override;
    bool HasSecondColorTable(unsigned channel) const override;
    ColorTableObject GetSecondColorTable(unsigned channel) const override;
    void SetSecondColorTable(unsigned channel, const ColorTableObject& table) override;
    void SetSecondColorEntries(unsigned channel, const ColorEntries& entries) override;
    ColorEntry* GetSecondColorEntries(unsigned channel) override;
    void SetSecondColorRanges(unsigned channel, std::uint32_t count, const std::vector<std::uint32_t>& first, const std::vector<std::uint32_t>& second, const std::vector<std::uint32_t>& third) override;
    void GetSecondColorRanges(unsigned channel, std::uint32_t& count, std::vector<std::uint32_t>& first, std::vector<std::uint32_t>& second, std::vector<std::uint32_t>& third) const override;

    // Channel texts
    std::string GetDataTypeDesc(unsigned channel) const override;
    void SetDataTypeDesc(unsigned channel, std::string text) override;
    std::string GetDataName(unsigned channel) const override;
    std::string GetLineDirection(unsigned channel) const override;
    std::string GetFrameDirection(unsigned channel) const override;
    std::uint32_t GetCaptureStartLine(unsigned channel) const override;
    std::string GetScanLine(unsigned channel) const override;
    std::string GetTipSerialNumber() const override;
    std::string GetNote(unsigned channel) const override;
    std::string GetUnits() const override;
    std::string GetModulusFitModel() const override;
    std::string GetAdhesionAlgorithm() const override;
    void SetUnits(std::string units) override;
    void SetNoteOfAll(std::string text) override;
    void SetDataName(unsigned channel, std::string name) override;
    void SetModulusFitModel(std::string model) override;
    void SetAdhesionAlgorithm(std::string algorithm) override;

    // Channel parameters and checkpoints
    IOLDataItemCheckpoint* CreateCheckpoint(unsigned channel) override;
    void RestoreCheckpoint(unsigned channel, IOLDataItemCheckpoint* checkpoint) override;
    void DeleteCheckpoint(IOLDataItemCheckpoint* checkpoint) override;
    IOLDataItemCheckpoint* CreateNamedCheckpoint(unsigned channel, std::string name) override;
    int GetChannelFileIndex(unsigned channel) const override;
    std::uint32_t GetDataLength(unsigned channel) const override;
    std::uint32_t GetChannelUserValue(unsigned channel) const override;
    void SetChannelUserValue(unsigned channel, std::uint32_t value) override;
    DataContainerPtr GetParameterList(const std::string& name) override;
    std::uint32_t GetValidStartX(unsigned channel) const override;
    std::uint32_t GetValidStartY(unsigned channel) const override;
    std::uint32_t GetValidLenX(unsigned channel) const override;
    std::uint32_t GetValidLenY(unsigned channel) const override;
    std::int64_t GetChannelRawHalfRange(unsigned channel) const override;

    // Plane fit and ramps
    void GetRawRange(unsigned channel, std::int32_t* min, std::int32_t* max) const override;
    PlaneFitSettings GetPlanefitSettings(unsigned channel) const override;
    std::string GetPlanefitDesc(unsigned channel) const override;
    std::int64_t GetValue1(unsigned channel) const override;
    void SetValue1(unsigned channel, std::int64_t value) override;
    std::int64_t GetValue2(unsigned channel) const override;
    void SetValue2(unsigned channel, std::int64_t value) override;
    UValue GetForceZOffset(unsigned channel, bool scaled) const override;
    UValue GetRampBegin(unsigned channel, bool scaled) const override;
    UValue GetRampEnd(unsigned channel, bool scaled) const override;
    UValue GetRampSize(unsigned channel, bool scaled) const override;
    void SetRampAxisText(double value) override;
    std::uint32_t GetNumberOfPointsPerCurve(unsigned channel) const override;
    double GetForcePhaseOffset(unsigned channel) const override;
    void SetForcePhaseOffset(unsigned channel, double offset) override;
    std::uint32_t GetAvePoints(unsigned channel) const override;
    void SetAvePoints(unsigned channel, std::uint32_t points) override;
    std::uint32_t GetEffectiveBw(unsigned channel) const override;
    double GetForceSpringConstant(unsigned channel) const override;
    void SetForceSpringConstant(unsigned channel, double value) override;
    int GetForceSamplesPerLine() const override;
    std::uint32_t GetTracePoints(unsigned channel) const override;
    int GetNumberOfTracePoints() const override;
    std::uint32_t GetRetracePoints(unsigned channel) const override;
    std::string GetInvert(unsigned channel) const override;
    void SetInvert(unsigned channel, std::string text) override;
    std::string GetForceDisplayMode(unsigned channel) const override;
    void SetForceDisplayMode(unsigned channel, std::string text) override;
    std::string GetXDataType(unsigned channel) const override;
    void SetXDataType(unsigned channel, std::string text) override;
    std::string GetUnitDisplay() const override;
    double GetCantileverAngle() const override;
    void SetCantileverAngle(double angle) override;

    // Tip and modulus model
    double GetTipPoissonRatio() const override;
    double GetCantileverLength() const override;
    double GetTipHeight() const override;
    double GetTipPosition() const override;
    double GetTipStorageModulus() const override;
    double GetTipLossModulus() const override;
    int GetEigenmode() const override;
    double GetFreeAirFrequency() const override;
    double GetFreeAirQ() const override;
    double GetFreeAirFrequency2() const override;
    double GetFreeAirQ2() const override;
    double GetFreeAirFrequency3() const override;
    double GetFreeAirQ3() const override;
    double GetKLateralKNormal() const override;
    double GetPLateralPNormal() const override;
    double GetHoldForceDeflection() const override;
    double GetReferenceStorageModulus() const override;
    double GetReferenceLossModulus() const override;
    double GetReferencePoissonRatio() const override;
    double GetTipModelGeometricParam() const override;
    bool GetSaveLoadEnabled() const override;
    std::string GetLossModulusMethod() const override;
    std::string GetModulusCalcMethod() const override;
    std::string GetTipModel() const override;
    std::string GetCrBaselineFitType() const override;
    void SetTipPoissonRatio(double value) override;
    void SetCantileverLength(double value) override;
    void SetTipHeight(double value) override;
    void SetTipPosition(double value) override;
    void SetTipStorageModulus(double value) override;
    void SetTipLossModulus(double value) override;
    void SetEigenmode(int value) override;
    void SetFreeAirFrequency(double value) override;
    void SetFreeAirQ(double value) override;
    void SetFreeAirFrequency2(double value) override;
    void SetFreeAirQ2(double value) override;
    void SetFreeAirFrequency3(double value) override;
    void SetFreeAirQ3(double value) override;
    void SetKLateralKNormal(double value) override;
    void SetPLateralPNormal(double value) override;
    void SetHoldForceDeflection(double value) override;
    void SetReferenceStorageModulus(double value) override;
    void SetReferenceLossModulus(double value) override;
    void SetReferencePoissonRatio(double value) override;
    void SetTipModelGeometricParam(double value) override;
    void SetTipModel(std::string model) override;
    void SetSaveLoadEnabled(bool enabled) override;
    void SetModulusCalcMethod(std::string method) override;
    void SetLossModulusMethod(std::string method) override;
    void SetCrBaselineFitType(std::string type) override;

    // Capture and hold
    double GetCrestloadAmplitude() const override;
    double GetCrestloadSetpoint() const override;
    UValue GetCrestloadTappingFreq() const override;
    double GetCrestloadAmplitudeValue() const override;
    void SetCrestloadAmplitudeValue(double value) override;
    std::string GetCrestloadCapture() const override;
    void SetUnitDisplay(std::string text) override;
    int GetStripChartRate() const override;
    bool GetStripChartEnabled() const override;
    double GetForwardRampVelocity(unsigned channel, bool scaled) const override;
    double GetReverseRampVelocity(unsigned channel, bool scaled) const override;
    double GetScanRateValue() const override;
    void SetScanRateValue(double value) override;
    std::string GetDisplayMode() const override;
    void SetDisplayMode(std::string mode) override;
    int GetNumberOfHoldPoints() const override;
    double GetForceHoldTime() const override;
    bool GetChannelHoldFlag(unsigned channel) const override;
    void SetChannelHoldFlag(unsigned channel, bool flag) override;
    int GetSegmentCount() const override;
    std::string GetSegmentSizeList() const override;
    std::string GetSegmentSamplesList() const override;
    std::string GetSegmentDurationList() const override;
    std::string GetSegmentRampTypeList() const override;
    std::string GetSegmentRampStartList() const override;
    std::string GetSegmentRampSizeList() const override;
    std::string GetSegmentTypeList() const override;
    std::string GetRampChannel() const override;
    std::string GetCaptureMode() const override;

    // Tip geometry and baseline
    double GetTipRadius(unsigned channel) const override;
    void SetTipRadius(unsigned channel, double value) override;
    double GetPoissonRatio(unsigned channel) const override;
    void SetPoissonRatio(unsigned channel, double value) override;
    double GetHalfAngle(unsigned channel) const override;
    void SetHalfAngle(unsigned channel, double value) override;
    void SetSyncDistance(double value) override;
    std::string GetDeflectionBaselineFit() const override;
    void SetDeflectionBaselineFit(std::string method) override;
    double GetBaselineStart() const override;
    void SetBaselineStart(double value) override;
    double GetBaselineStop() const override;
    void SetBaselineStop(double value) override;
    UValue GetSecondScale(unsigned channel, bool scaled) const override;
    UValue GetThirdScale(unsigned channel, bool scaled) const override;
    void SetScaledRange(unsigned channel, UValue value, bool scaled) override;
    double GetSecondScaleFactor(unsigned channel) const override;
    double GetSecondScaleFraction(unsigned channel) const override;
    std::string GetZDirection() const override;
    void SetZDirection(std::string direction) override;

    // Force volume access
    int GetForcesPerLine() const override;
    int GetForceVolumeForcesPerLine() const override;
    bool IsForceSweep() const override;
    std::string GetForceSweepChannel() const override;
    UValue GetForceSweepStart() const override;
    UValue GetForceSweepEnd() const override;
    UValue GetForceSweepStartHz() const override;
    UValue GetForceSweepEndHz() const override;
    std::int32_t* GetForceVolumeCurveData(unsigned channel, int curve) const override;
    std::int32_t* GetForceVolumeRawCurve(unsigned channel, int curve) const override;
    bool SaveForceCurveSet(unsigned channel, const std::string& path) override;
    bool IsChannelUsed(unsigned channel) const override;
    int FindLastChannel() const override;
    int FindHeightSensorChannel() const override;
    int FindAmplitudeChannel() const override;

    // Force volume limits
    UValue GetFvModulusLimit(bool scaled) const override;
    UValue GetLogFvModulusLimit(bool scaled) const override;
    UValue GetFvStiffnessLimit(bool scaled) const override;
    UValue GetFvForceLimit(bool scaled) const override;
    UValue GetFvValue1(bool scaled) const override;
    UValue GetFvValue2(bool scaled) const override;
    UValue GetFvValue3(bool scaled) const override;
    UValue GetFvValue4(bool scaled) const override;
    UValue GetFvValue5(bool scaled) const override;
    UValue GetFvValue6(bool scaled) const override;
    UValue GetFvValue7(bool scaled) const override;
    void SetFvModulusLimit(UValue value) override;
    void SetLogFvModulusLimit(UValue value) override;
    void SetFvStiffnessLimit(UValue value) override;
    void SetFvForceLimit(UValue value) override;
    void SetFvValue1(UValue value) override;
    void SetFvValue2(UValue value) override;
    void SetFvValue3(UValue value) override;
    void SetFvValue4(UValue value) override;
    void SetFvValue5(UValue value) override;
    void SetFvValue6(UValue value) override;
    void SetFvValue6Sensitivity(UValue value, double sensitivity, std::string units) override;
    void SetFvValue7(UValue value) override;
    void SetFvValue8(UValue value) override;
    void SetFvValue9(UValue value) override;
    void SetFvValue10(UValue value) override;
    void SetFvValue11(UValue value) override;
    void SetFvValue12(UValue value) override;
    void SetFvValue13(UValue value) override;
    void SetFvValue14(UValue value) override;

    // Per-channel extras
    std::uint32_t GetHighSpeedSamples(unsigned channel) const override;
    std::string GetHighSpeedDataType(unsigned channel) const override;
    double GetHsdcRateValue(unsigned channel) const override;
    UValue GetHsdcRate() const override;

    // Capture parameters
    double GetHsdcDelay() const override;
    double GetHsdcDuration() const override;
    int GetHsdcXPosition() const override;
    int GetHsdcYLineNumber() const override;
    double GetXRound() const override;
    void SetSensZSens(std::string text) override;
    bool IsTorsionalEnabled() const override;
    double GetTorsionalFreq() const override;
    double GetTorsionalQ() const override;
    double GetSampleRate() const override;
    int GetSamplePoints() const override;
    int GetCyclesToAverage() const override;
    int GetHarmonicsToCorrect() const override;
    int GetMaxHarmonics() const override;
    int GetForceDataPoints() const override;
    double GetCalculationPeriod() const override;
    double GetInteractionTime() const override;
    bool GetInvertTorsional() const override;
    bool GetInvertVertical() const override;
    double GetUnloadFitRegion() const override;
    double GetDeformationFitRegion() const override;
    double GetSyncDistance() const override;

    // Sensitivities and limits
    std::string GetMicroscopeList() const override;
    std::string GetMicroscope() const override;
    UValue GetDeflSens() const override;
    UValue GetAmplitudeSens() const override;
    UValue GetForceSens() const override;
    UValue GetDeformationSens() const override;
    UValue GetForceDeflSens() const override;
    UValue GetAmplitudeLimit1() const override;
    UValue GetHsAdc2GainLockIn2() const override;
    UValue GetDriveFrequency3() const override;
    UValue GetDriveAmplitude3() const override;
    UValue GetDriveAmplitude3Sens() const override;
    UValue GetBaselineAvgPts() const override;
    UValue GetForceDigitalSetPoint() const override;
    UValue GetForceDigitalSetPointSens() const override;
    UValue GetCantFrequency() const override;
    std::string GetEcFunction(unsigned channel) const override;
    UValue GetEcPotInput() const override;
    UValue GetEcPotOutput() const override;
    UValue GetEcCurrentInput() const override;
    UValue GetEcTip() const override;
    UValue GetEcBias() const override;

    // Electrochemistry
    double GetVoltamVoltMax() const override;
    double GetVoltamVoltMin() const override;
    double GetTemporalTimeStart() const override;
    double GetTemporalTimeEnd() const override;
    double GetTemporalTimeRange() const override;
    double GetTemporalVoltRange() const override;
    double GetVoltamCurrentRange() const override;
    double GetTemporalCurrentRange() const override;
    std::string GetTipReference() const override;
    std::string GetRampElectrode() const override;
    double GetTipPotInput() const override;
    double GetTipCurrent() const override;
    double GetBiasPotInput() const override;
    double GetPotentiostatElectrodeArea() const override;
    std::string GetTemporalVoltFunction() const override;

    // Item overrides and angles
    std::string GetPlistName(unsigned channel) const override;
    bool HasRangeOverride(unsigned channel) const override;
    void SetOverrideMin(unsigned channel, float value) override;
    void GetOverrideMin(unsigned channel, float* out, bool metric) const override;
    float GetOverrideMinRaw(unsigned channel) const override;
    void SetOverrideMax(unsigned channel, float value) override;
    void GetOverrideMax(unsigned channel, float* out, bool metric) const override;
    float GetOverrideMaxRaw(unsigned channel) const override;
    void SetOverrideUnits(unsigned channel, std::string units) override;
    std::string GetOverrideUnits(unsigned channel) const override;
    bool GetItemFlag(unsigned channel) const override;
    void SetItemFlag(unsigned channel, bool flag) override;
    void GetHalfAngles(unsigned channel, float& first, float& second) const override;
    void SetHalfAngles(unsigned channel, float first, float second) override;

    // Feedback values
    double GetTmFbIgain() const override;
    double GetAfmFbIgain() const override;
    std::string GetCaptureDirection() const override;
    double GetForceDigitalSetPointValue() const override;
    bool GetHasForceDigitalSetPoint() const override;
    double GetCantDrive() const override;
    double GetTmSetAmplitude() const override;
    double GetAfmSetDeflection() const override;
    double GetTmSetDeflection() const override;

    // Invalid samples
    const std::vector<std::uint32_t>* GetInvalidPointList(unsigned channel) const override;
    void SetInvalidPointList(unsigned channel, const std::vector<std::uint32_t>& list) override;
    void ClearInvalidPointList(unsigned channel) override;
    bool HasInvalidPoints(unsigned channel) const override;
    std::uint32_t GetInvalidFlag(unsigned channel) const override;
    void SetInvalidFlag(unsigned channel, std::uint32_t flag) override;
    std::string GetInvalidFill(unsigned channel) const override;
    void SetInvalidFill(unsigned channel, std::string fill) override;

    // Saving templates: one body per family.
    virtual bool WriteDataFile(const DataFilePtr& file, bool flag) = 0;
    // Sets a key of a channel's section, adding it behind followKey where the
    // section lacks it.
    virtual void WriteChannelHeader(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                                    const std::string& sectionName, const std::string& key, const std::string& value,
                                    const std::string& followKey) = 0;
    // Deletes a key of a channel's section; answers whether a file was there.
    virtual bool WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                                  const std::string& sectionName, const std::string& key) = 0;
    virtual DataFilePtr CreateDataFile(const std::string& path) = 0;

    // Stores the file name and extension of the path as the file title.
    void SetFileTitleFromPath();

    const DataFilePtr& GetDataFile() const { return dataFile; }
    ICreateColorTableCallback* GetColorTableCallback() const { return colorTableCallback; }
    std::string GetFileSubType() const { return fileSubType; }
    std::string GetStartContext() const { return startContext; }
    UValue GetScanSizeY() const { return scanSizeY; }

    // Colour tables as keys of a section.
    void ReadColorTable(const DataContainerPtr& section, OLDataItemColorSettings& settings);
    void WriteColorTable(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                         const std::string& sectionName, std::int32_t index);

    // The memory probe that precedes a save; raises std::bad_alloc when the
    // memory for the channels will not be had.
    void ProbeSaveMemory() const;

protected:
    // Runs a save's writers; when they throw, what they changed on the way
    // (the channels' offsets and lengths, the file's data length, the dirty
    // marks) is put back before the exception goes on.
    bool RestoringOnFailure(const std::function<bool()>& save);

    // The item at a channel index. An index beyond the table reads a neutral
    // default item and writes nothing: a wrong channel number from a caller
    // never reaches memory outside the table.
    const OLDataItem& readItem(unsigned channel) const;
    OLDataItem* writeItem(unsigned channel);
    bool validChannel(unsigned channel) const;  // below the channel count and inside the table
    void appendItem(const OLDataItem& item) { items.push_back(item); }

    // ---- the record ----
    bool opened = false;
    std::string filePath;
    std::string fileTitle;
    std::string date;
    UValue scanSize;
    UValue scanSizeY;
    UValue scanRate;
    UValue xOffset;
    UValue yOffset;
    std::string tipSerialNumber;
    std::uint32_t dataLength = 0;
    DataFilePtr dataFile;
    int numberOfChannels = 0;
    int numberOfDisplayChannels = 0;
    std::vector<OLDataItem> items;
    std::vector<std::string> dataListNames;
    std::string fileSubType;
    std::string scanListName;
    int imageLines = 0;
    int imageLinesSet = 0;
    float aspectRatio = 0.0f;
    float rotateAngle = 0.0f;
    std::string units;
    int imageSamples = 0;
    int imageSamplesSet = 0;
    std::string captureMode;
    double tipRadius = 0.0;
    double poissonRatio = 0.0;
    double tipHalfAngle = 0.0;
    double minForceFitBoundary = 0.0;
    double maxForceFitBoundary = 0.0;
    std::string modulusFitModel;
    std::string adhesionAlgorithm;
    std::string deflectionBaselineFit;
    double baselineStart = 0.0;
    double baselineStop = 0.0;
    double cantileverAngle = 0.0;
    std::string unitDisplay;
    std::string captureState;
    int stripChartRate = 0;
    bool stripChartEnabled = false;
    double forwardVelocity = 0.0;
    double reverseVelocity = 0.0;
    double scanRateValue = 0.0;
    std::string displayMode;
    int forceSamples = 0;
    int tracePoints = 0;
    std::string rampChannel;
    std::string rampSizeText;
    int holdPoints = 0;
    double holdTime = 0.0;
    double referenceStorageModulus = 0.0;
    double referenceLossModulus = 0.0;
    double referencePoissonRatio = 0.0;
    // tip model block
    double tipPoissonRatio = 0.0;
    double cantileverLength = 0.0;
    double tipHeight = 0.0;
    double tipPosition = 0.0;
    double tipStorageModulus = 0.0;
    double tipLossModulus = 0.0;
    int eigenmode = 0;
    double freeAirFrequency = 0.0, freeAirQ = 0.0;
    double freeAirFrequency2 = 0.0, freeAirQ2 = 0.0;
    double freeAirFrequency3 = 0.0, freeAirQ3 = 0.0;
    double kLateralKNormal = 0.0;
    double pLateralPNormal = 0.0;
    double tipModelGeometricParam = 0.0;
    std::string tipModel;
    std::string modulusCalcMethod;
    std::string lossModulusMethod;
    std::string crBaselineFitType;
    bool saveLoadEnabled = false;
    // script segments
    int segmentCount = 0;
    std::string segmentSizeList, segmentSamplesList, segmentDurationList, segmentRampTypeList,
        segmentRampStartList, segmentRampSizeList, segmentTypeList;
    int forcesPerLine = 0;
    int forceVolumeForcesPerLine = 0;
    std::string zDirection;
    std::string sweepChannel;
    UValue sweepStart;
    UValue sweepEnd;
    double holdForceDeflection = 0.0;
    int importType = 0;
    std::string history;
    UValue hsdcRate;
    double hsdcDelay = 0.0;
    double hsdcDuration = 0.0;
    int hsdcXPosition = 0;
    int hsdcYLineNumber = 0;
    double xRound = 0.0;
    std::string captureDirection;
    // feedback values
    double tmFbIgain = 0.0, afmFbIgain = 0.0, cantDrive = 0.0, tmSetAmplitude = 0.0, afmSetDeflection = 0.0,
           tmSetDeflection = 0.0;
    double softFbIgain = 0.0;
    // torsional block
    bool torsionalEnabled = false;
    double torsionalFreq = 0.0, torsionalQ = 0.0, sampleRate = 0.0;
    // capture sampling and timing
    int samplePoints = 0, cyclesToAverage = 0, harmonicsToCorrect = 0, maxHarmonics = 0, forceDataPoints = 0;
    double calculationPeriod = 0.0, interactionTime = 0.0, unloadFitRegion = 0.0, deformationFitRegion = 0.0,
           syncDistance = 0.0;
    bool invertTorsional = false, invertVertical = false;
    // crest load block
    double crestloadAmplitudeValue = 0.0;
    double crestloadAmplitudeScale = 1.0;
    double crestloadSetpoint = 0.0;
    UValue crestloadTappingFreq;
    std::string microscopeList;
    std::string microscope;
    bool lyrant = false;
    // sensitivities and limits
    UValue deflSens, amplitudeSens, forceSens, deformationSens, forceDeflSens, amplitudeLimit1, hsAdc2GainLockIn2,
        driveFrequency3, driveAmplitude3, driveAmplitude3Hard, driveAmplitude3Sens, baselineAvgPts, cantFrequency;
    // the setpoint: soft value, hard value, sensitivity
    UValue setpointSoft, setpointHard;
    double setpointSensitivity = 1.0;
    std::string setpointSensitivityUnit;
    bool hasSetpoint = false;
    // electrochemistry block
    UValue ecPotInput, ecCurrentInput, ecTip, ecBias, ecPotOutput;
    double tipPotInput = 0.0, tipCurrent = 0.0, biasPotInput = 0.0;
    double voltamVoltMax = 0.0, voltamVoltMin = 0.0;
    double temporalTimeStart = 0.0, temporalTimeEnd = 0.0, temporalTimeRange = 0.0, temporalVoltRange = 0.0;
    double voltamCurrentRange = 0.0, temporalCurrentRange = 0.0;
    double potentiostatElectrodeArea = 0.0;
    std::string tipReference, rampElectrode, temporalVoltFunction;
    ICreateColorTableCallback* colorTableCallback = nullptr;
    // force volume limits: four named limits, then fourteen further values
    std::array<ScaleGroup, 4> fvLimits;
    std::array<ScaleGroup, 14> fvValues;
    bool includeAdhesion = false;
    bool bidirectional = false;
    // dirty marks: what SaveAs rewrites
    bool linesChanged = false;
    bool samplesChanged = false;
    bool rotationChanged = false;
    bool channelLinesChanged = false;
    bool channelSamplesChanged = false;
    int pixelRangeX = 0, pixelRangeY = 0;
    std::string startContext;
    double zAttenuation = 0.0;
    double detectSensitivity = 0.0;
    std::string sensZSensText;
    std::string feedbackText;
    double integralGain = 0.0, proportionalGain = 0.0;
    double forceDefault = 0.0;
    std::string axisName;
    std::uint64_t dataOffset = 0;
    std::uint32_t userRating = 0;

private:
    static UValue limitValue(const ScaleGroup& group, bool scaled);
};
