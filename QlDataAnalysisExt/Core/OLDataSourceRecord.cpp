// Plain getters and setters of the source's record.

#include "QlDataAnalysisExt/Core/OLDataSource.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"

#include <algorithm>
#include <cctype>
#include <utility>

std::string OLDataSource::GetTipSerialNumber() const { return tipSerialNumber; }
std::string OLDataSource::GetUnits() const { return units; }
std::string OLDataSource::GetModulusFitModel() const { return modulusFitModel; }
std::string OLDataSource::GetAdhesionAlgorithm() const { return adhesionAlgorithm; }
void OLDataSource::SetUnits(std::string text) { units = std::move(text); }
void OLDataSource::SetModulusFitModel(std::string model) { modulusFitModel = std::move(model); }
void OLDataSource::SetAdhesionAlgorithm(std::string algorithm) { adhesionAlgorithm = std::move(algorithm); }

int OLDataSource::GetForceSamplesPerLine() const { return forceSamples; }
int OLDataSource::GetNumberOfTracePoints() const { return tracePoints; }
std::string OLDataSource::GetUnitDisplay() const { return unitDisplay; }
double OLDataSource::GetCantileverAngle() const { return cantileverAngle; }
void OLDataSource::SetCantileverAngle(double angle) { cantileverAngle = angle; }

// ---- tip and modulus model ----------------------------------------------------

double OLDataSource::GetTipPoissonRatio() const { return tipPoissonRatio; }
double OLDataSource::GetCantileverLength() const { return cantileverLength; }
double OLDataSource::GetTipHeight() const { return tipHeight; }
double OLDataSource::GetTipPosition() const { return tipPosition; }
double OLDataSource::GetTipStorageModulus() const { return tipStorageModulus; }
double OLDataSource::GetTipLossModulus() const { return tipLossModulus; }
int OLDataSource::GetEigenmode() const { return eigenmode; }
double OLDataSource::GetFreeAirFrequency() const { return freeAirFrequency; }
double OLDataSource::GetFreeAirQ() const { return freeAirQ; }
double OLDataSource::GetFreeAirFrequency2() const { return freeAirFrequency2; }
double OLDataSource::GetFreeAirQ2() const { return freeAirQ2; }
double OLDataSource::GetFreeAirFrequency3() const { return freeAirFrequency3; }
double OLDataSource::GetFreeAirQ3() const { return freeAirQ3; }
double OLDataSource::GetKLateralKNormal() const { return kLateralKNormal; }
double OLDataSource::GetPLateralPNormal() const { return pLateralPNormal; }
double OLDataSource::GetHoldForceDeflection() const { return holdForceDeflection; }
double OLDataSource::GetReferenceStorageModulus() const { return referenceStorageModulus; }
double OLDataSource::GetReferenceLossModulus() const { return referenceLossModulus; }
double OLDataSource::GetReferencePoissonRatio() const { return referencePoissonRatio; }
double OLDataSource::GetTipModelGeometricParam() const { return tipModelGeometricParam; }
bool OLDataSource::GetSaveLoadEnabled() const { return saveLoadEnabled; }
std::string OLDataSource::GetLossModulusMethod() const { return lossModulusMethod; }
std::string OLDataSource::GetModulusCalcMethod() const { return modulusCalcMethod; }
std::string OLDataSource::GetTipModel() const { return tipModel; }
std::string OLDataSource::GetCrBaselineFitType() const { return crBaselineFitType; }
void OLDataSource::SetTipPoissonRatio(double value) { tipPoissonRatio = value; }
void OLDataSource::SetCantileverLength(double value) { cantileverLength = value; }
void OLDataSource::SetTipHeight(double value) { tipHeight = value; }
void OLDataSource::SetTipPosition(double value) { tipPosition = value; }
void OLDataSource::SetTipStorageModulus(double value) { tipStorageModulus = value; }
void OLDataSource::SetTipLossModulus(double value) { tipLossModulus = value; }
void OLDataSource::SetEigenmode(int value) { eigenmode = value; }
void OLDataSource::SetFreeAirFrequency(double value) { freeAirFrequency = value; }
void OLDataSource::SetFreeAirQ(double value) { freeAirQ = value; }
void OLDataSource::SetFreeAirFrequency2(double value) { freeAirFrequency2 = value; }
void OLDataSource::SetFreeAirQ2(double value) { freeAirQ2 = value; }
void OLDataSource::SetFreeAirFrequency3(double value) { freeAirFrequency3 = value; }
void OLDataSource::SetFreeAirQ3(double value) { freeAirQ3 = value; }
void OLDataSource::SetKLateralKNormal(double value) { kLateralKNormal = value; }
void OLDataSource::SetPLateralPNormal(double value) { pLateralPNormal = value; }
void OLDataSource::SetHoldForceDeflection(double value) { holdForceDeflection = value; }
void OLDataSource::SetReferenceStorageModulus(double value) { referenceStorageModulus = value; }
void OLDataSource::SetReferenceLossModulus(double value) { referenceLossModulus = value; }
void OLDataSource::SetReferencePoissonRatio(double value) { referencePoissonRatio = value; }
void OLDataSource::SetTipModelGeometricParam(double value) { tipModelGeometricParam = value; }
void OLDataSource::SetTipModel(std::string model) { tipModel = std::move(model); }
void OLDataSource::SetSaveLoadEnabled(bool enabled) { saveLoadEnabled = enabled; }
void OLDataSource::SetModulusCalcMethod(std::string method) { modulusCalcMethod = std::move(method); }
void OLDataSource::SetLossModulusMethod(std::string method) { lossModulusMethod = std::move(method); }
void OLDataSource::SetCrBaselineFitType(std::string type) { crBaselineFitType = std::move(type); }

// ---- capture and hold ---------------------------------------------------------------

double OLDataSource::GetCrestloadAmplitude() const { return crestloadAmplitudeValue * crestloadAmplitudeScale; }
double OLDataSource::GetCrestloadSetpoint() const { return crestloadSetpoint; }
UValue OLDataSource::GetCrestloadTappingFreq() const { return crestloadTappingFreq; }
double OLDataSource::GetCrestloadAmplitudeValue() const { return crestloadAmplitudeValue; }
void OLDataSource::SetCrestloadAmplitudeValue(double value) { crestloadAmplitudeValue = value; }
std::string OLDataSource::GetCrestloadCapture() const { return captureState; }
void OLDataSource::SetUnitDisplay(std::string text) { unitDisplay = std::move(text); }
int OLDataSource::GetStripChartRate() const { return stripChartRate; }
bool OLDataSource::GetStripChartEnabled() const { return stripChartEnabled; }
double OLDataSource::GetScanRateValue() const { return scanRateValue; }
void OLDataSource::SetScanRateValue(double value) { scanRateValue = value; }
std::string OLDataSource::GetDisplayMode() const { return displayMode; }
void OLDataSource::SetDisplayMode(std::string mode) { displayMode = std::move(mode); }
int OLDataSource::GetNumberOfHoldPoints() const { return holdPoints; }
double OLDataSource::GetForceHoldTime() const { return holdTime; }
int OLDataSource::GetSegmentCount() const { return segmentCount; }
std::string OLDataSource::GetSegmentSizeList() const { return segmentSizeList; }
std::string OLDataSource::GetSegmentSamplesList() const { return segmentSamplesList; }
std::string OLDataSource::GetSegmentDurationList() const { return segmentDurationList; }
std::string OLDataSource::GetSegmentRampTypeList() const { return segmentRampTypeList; }
std::string OLDataSource::GetSegmentRampStartList() const { return segmentRampStartList; }
std::string OLDataSource::GetSegmentRampSizeList() const { return segmentRampSizeList; }
std::string OLDataSource::GetSegmentTypeList() const { return segmentTypeList; }
std::string OLDataSource::GetRampChannel() const { return rampChannel; }
std::string OLDataSource::GetCaptureMode() const { return captureMode; }

// ---- baseline and directions ---------------------------------------------------------

void OLDataSource::SetSyncDistance(double value) { syncDistance = value; }
std::string OLDataSource::GetDeflectionBaselineFit() const { return deflectionBaselineFit; }
void OLDataSource::SetDeflectionBaselineFit(std::string method) { deflectionBaselineFit = std::move(method); }
double OLDataSource::GetBaselineStart() const { return baselineStart; }
void OLDataSource::SetBaselineStart(double value) { baselineStart = value; }
double OLDataSource::GetBaselineStop() const { return baselineStop; }
void OLDataSource::SetBaselineStop(double value) { baselineStop = value; }
std::string OLDataSource::GetZDirection() const { return zDirection; }
void OLDataSource::SetZDirection(std::string direction) { zDirection = std::move(direction); }

// ---- force volume and sweep ---------------------------------------------------------

int OLDataSource::GetForcesPerLine() const { return forcesPerLine; }
int OLDataSource::GetForceVolumeForcesPerLine() const { return forceVolumeForcesPerLine; }
bool OLDataSource::IsForceSweep() const { return !sweepChannel.empty(); }
std::string OLDataSource::GetForceSweepChannel() const { return sweepChannel; }
UValue OLDataSource::GetForceSweepStart() const { return sweepStart; }
UValue OLDataSource::GetForceSweepEnd() const { return sweepEnd; }

namespace {
// A sweep runs over a frequency; a bound in any other unit reads as 0 of that unit.
UValue asFrequency(const UValue& bound) {
    std::string name = bound.GetUnits()->GetName();
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    if (name.find("hz") != std::string::npos) {
        return bound;
    }
    return UValue(0.0, bound.GetUnits());
}
}  // namespace

UValue OLDataSource::GetForceSweepStartHz() const { return asFrequency(sweepStart); }
UValue OLDataSource::GetForceSweepEndHz() const { return asFrequency(sweepEnd); }

// ---- force volume limits -------------------------------------------------------------

UValue OLDataSource::limitValue(const ScaleGroup& group, bool scaled) {
    return OLDataItem::ScaledGroupValue(group, scaled);
}

UValue OLDataSource::GetFvModulusLimit(bool scaled) const { return limitValue(fvLimits[0], scaled); }
UValue OLDataSource::GetLogFvModulusLimit(bool scaled) const { return limitValue(fvLimits[1], scaled); }
UValue OLDataSource::GetFvStiffnessLimit(bool scaled) const { return limitValue(fvLimits[2], scaled); }
UValue OLDataSource::GetFvForceLimit(bool scaled) const { return limitValue(fvLimits[3], scaled); }
UValue OLDataSource::GetFvValue1(bool scaled) const { return limitValue(fvValues[0], scaled); }
UValue OLDataSource::GetFvValue2(bool scaled) const { return limitValue(fvValues[1], scaled); }
UValue OLDataSource::GetFvValue3(bool scaled) const { return limitValue(fvValues[2], scaled); }
UValue OLDataSource::GetFvValue4(bool scaled) const { return limitValue(fvValues[3], scaled); }
UValue OLDataSource::GetFvValue5(bool scaled) const { return limitValue(fvValues[4], scaled); }
UValue OLDataSource::GetFvValue6(bool scaled) const { return limitValue(fvValues[5], scaled); }
UValue OLDataSource::GetFvValue7(bool scaled) const { return limitValue(fvValues[6], scaled); }
void OLDataSource::SetFvModulusLimit(UValue value) { fvLimits[0].value = std::move(value); }
void OLDataSource::SetLogFvModulusLimit(UValue value) { fvLimits[1].value = std::move(value); }
void OLDataSource::SetFvStiffnessLimit(UValue value) { fvLimits[2].value = std::move(value); }
void OLDataSource::SetFvForceLimit(UValue value) { fvLimits[3].value = std::move(value); }
void OLDataSource::SetFvValue1(UValue value) { fvValues[0].value = std::move(value); }
void OLDataSource::SetFvValue2(UValue value) { fvValues[1].value = std::move(value); }
void OLDataSource::SetFvValue3(UValue value) { fvValues[2].value = std::move(value); }
void OLDataSource::SetFvValue4(UValue value) { fvValues[3].value = std::move(value); }
void OLDataSource::SetFvValue5(UValue value) { fvValues[4].value = std::move(value); }
void OLDataSource::SetFvValue6(UValue value) { fvValues[5].value = std::move(value); }
void OLDataSource::SetFvValue6Sensitivity(UValue value, double sensitivity, std::string unitText) {
    fvValues[5].value = std::move(value);
    fvValues[5].sensitivity = sensitivity;
    fvValues[5].sensitivityUnits = std::move(unitText);
}
void OLDataSource::SetFvValue7(UValue value) { fvValues[6].value = std::move(value); }
void OLDataSource::SetFvValue8(UValue value) { fvValues[7].value = std::move(value); }
void OLDataSource::SetFvValue9(UValue value) { fvValues[8].value = std::move(value); }
void OLDataSource::SetFvValue10(UValue value) { fvValues[9].value = std::move(value); }
void OLDataSource::SetFvValue11(UValue value) { fvValues[10].value = std::move(value); }
void OLDataSource::SetFvValue12(UValue value) { fvValues[11].value = std::move(value); }
void OLDataSource::SetFvValue13(UValue value) { fvValues[12].value = std::move(value); }
void OLDataSource::SetFvValue14(UValue value) { fvValues[13].value = std::move(value); }

// ---- high speed and capture ----------------------------------------------------------

UValue OLDataSource::GetHsdcRate() const { return hsdcRate; }
double OLDataSource::GetHsdcDelay() const { return hsdcDelay; }
double OLDataSource::GetHsdcDuration() const { return hsdcDuration; }
int OLDataSource::GetHsdcXPosition() const { return hsdcXPosition; }
int OLDataSource::GetHsdcYLineNumber() const { return hsdcYLineNumber; }
double OLDataSource::GetXRound() const { return xRound; }
void OLDataSource::SetSensZSens(std::string text) { sensZSensText = std::move(text); }
bool OLDataSource::IsTorsionalEnabled() const { return torsionalEnabled; }
double OLDataSource::GetTorsionalFreq() const { return torsionalFreq; }
double OLDataSource::GetTorsionalQ() const { return torsionalQ; }
double OLDataSource::GetSampleRate() const { return sampleRate; }
int OLDataSource::GetSamplePoints() const { return samplePoints; }
int OLDataSource::GetCyclesToAverage() const { return cyclesToAverage; }
int OLDataSource::GetHarmonicsToCorrect() const { return harmonicsToCorrect; }
int OLDataSource::GetMaxHarmonics() const { return maxHarmonics; }
int OLDataSource::GetForceDataPoints() const { return forceDataPoints; }
double OLDataSource::GetCalculationPeriod() const { return calculationPeriod; }
double OLDataSource::GetInteractionTime() const { return interactionTime; }
bool OLDataSource::GetInvertTorsional() const { return invertTorsional; }
bool OLDataSource::GetInvertVertical() const { return invertVertical; }
double OLDataSource::GetUnloadFitRegion() const { return unloadFitRegion; }
double OLDataSource::GetDeformationFitRegion() const { return deformationFitRegion; }
double OLDataSource::GetSyncDistance() const { return syncDistance; }

// ---- sensitivities and limits ----------------------------------------------------------

std::string OLDataSource::GetMicroscopeList() const { return microscopeList; }
std::string OLDataSource::GetMicroscope() const { return microscope; }
UValue OLDataSource::GetDeflSens() const { return deflSens; }
UValue OLDataSource::GetAmplitudeSens() const { return amplitudeSens; }
UValue OLDataSource::GetForceSens() const { return forceSens; }
UValue OLDataSource::GetDeformationSens() const { return deformationSens; }
UValue OLDataSource::GetForceDeflSens() const { return forceDeflSens; }
UValue OLDataSource::GetAmplitudeLimit1() const { return amplitudeLimit1; }
UValue OLDataSource::GetHsAdc2GainLockIn2() const { return hsAdc2GainLockIn2; }
UValue OLDataSource::GetDriveFrequency3() const { return driveFrequency3; }
UValue OLDataSource::GetDriveAmplitude3() const { return driveAmplitude3; }
UValue OLDataSource::GetDriveAmplitude3Sens() const { return driveAmplitude3Sens; }
UValue OLDataSource::GetBaselineAvgPts() const { return baselineAvgPts; }
UValue OLDataSource::GetForceDigitalSetPoint() const { return setpointSoft; }
UValue OLDataSource::GetForceDigitalSetPointSens() const {
    try {
        return UValue(setpointSensitivity, UnitNamed(setpointSensitivityUnit));
    } catch (const std::exception&) {
        return UValue(setpointSensitivity);
    }
}
UValue OLDataSource::GetCantFrequency() const { return cantFrequency; }
UValue OLDataSource::GetEcPotInput() const { return ecPotInput; }
UValue OLDataSource::GetEcPotOutput() const { return ecPotOutput; }
UValue OLDataSource::GetEcCurrentInput() const { return ecCurrentInput; }
UValue OLDataSource::GetEcTip() const { return ecTip; }
UValue OLDataSource::GetEcBias() const { return ecBias; }

// ---- electrochemistry -------------------------------------------------------------------

double OLDataSource::GetVoltamVoltMax() const { return voltamVoltMax; }
double OLDataSource::GetVoltamVoltMin() const { return voltamVoltMin; }
double OLDataSource::GetTemporalTimeStart() const { return temporalTimeStart; }
double OLDataSource::GetTemporalTimeEnd() const { return temporalTimeEnd; }
double OLDataSource::GetTemporalTimeRange() const { return temporalTimeRange; }
double OLDataSource::GetTemporalVoltRange() const { return temporalVoltRange; }
double OLDataSource::GetVoltamCurrentRange() const { return voltamCurrentRange; }
double OLDataSource::GetTemporalCurrentRange() const { return temporalCurrentRange; }
std::string OLDataSource::GetTipReference() const { return tipReference; }
std::string OLDataSource::GetRampElectrode() const { return rampElectrode; }
double OLDataSource::GetTipPotInput() const { return tipPotInput; }
double OLDataSource::GetTipCurrent() const { return tipCurrent; }
double OLDataSource::GetBiasPotInput() const { return biasPotInput; }
double OLDataSource::GetPotentiostatElectrodeArea() const { return potentiostatElectrodeArea; }
std::string OLDataSource::GetTemporalVoltFunction() const { return temporalVoltFunction; }

// ---- feedback values ------------------------------------------------------------------

double OLDataSource::GetTmFbIgain() const { return tmFbIgain; }
double OLDataSource::GetAfmFbIgain() const { return afmFbIgain; }
std::string OLDataSource::GetCaptureDirection() const { return captureDirection; }
double OLDataSource::GetForceDigitalSetPointValue() const { return setpointHard.GetValue(); }
bool OLDataSource::GetHasForceDigitalSetPoint() const { return hasSetpoint; }
double OLDataSource::GetCantDrive() const { return cantDrive; }
double OLDataSource::GetTmSetAmplitude() const { return tmSetAmplitude; }
double OLDataSource::GetAfmSetDeflection() const { return afmSetDeflection; }
double OLDataSource::GetTmSetDeflection() const { return tmSetDeflection; }
