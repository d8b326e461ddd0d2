// The operation table of a data source is part of its interface: the names
// and the order of IOLDataSource's operations are compared with the table
// below, and the four saving templates must close OLDataSource's own table.

#include <gtest/gtest.h>

#include <fstream>
#include <cctype>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Every operation of IOLDataSource after its destructor, family by family.
const std::vector<std::string> kOperations = {
    "Initialize", "IsOpen", "Save", "SaveAs", "SaveToDataFile", "Close", "GetFilePath", "GetFileTitle",
    "GetDateTime", "GetDate",
    "GetNumberOfChannels", "GetImportType", "IsImageFile", "IsForceFile", "IsForceVolumeFile", "IsHsdcFile",
    "IsScriptFile", "IsTimedFile", "IsTimedForceFile", "IsHarlenFile", "IsEcStmFile", "IsEcAfmFile",
    "IsEcForceFile", "IsEcFile", "SetNumberOfChannels", "GetNumberOfDisplayChannels",
    "SetNumberOfDisplayChannels",
    "GetDataItem", "GetData", "SetData", "GetBitsPerPixel", "GetNumberOfLines", "GetImageLines",
    "GetOriginalLines", "GetSamplesPerLine", "GetImageSamplesPerLine", "GetDataBufferSize",
    "GetScanSize", "GetScanRate", "GetXOffset", "GetYOffset", "SetOffsets", "SetPixelRange", "GetAspectRatio",
    "GetChannelAspectRatio", "GetZMagnify",
    "GetZSensitivitySoftScale", "GetZSensitivityUnits", "GetZSensitivityName", "SetZSensitivity", "GetZRange",
    "RawToValue", "PhysicalValueOfRaw", "RawOfPhysicalValue", "GetZOffset", "SetZOffset", "GetDisplayZScale",
    "GetZScaleInSwUnits", "GetZScaleInHwUnits", "GetScalingFactor", "GetDataScaleName",
    "GetChannelRotateAngle", "GetDataScale",
    "SetDataScale", "SetScanSize", "SetScanSizeOfChannel", "SetImageLines", "SetChannelLines",
    "SetImageSamples", "SetChannelSamples", "SetRotateAngle", "SetChannelAspectRatio",
    "SetChannelSamplesPerLineMark", "SetChannelLinesMark",
    "SetDisplayRange", "GetDisplayRange", "SetDisplayFlag", "GetDisplayFlag", "GetColorTableSettings",
    "SetColorTableSettings", "SetHasColorTable", "HasColorTable", "GetColorTable", "SetColorTable",
    "SetColorEntries", "GetColorEntries", "SetColorRanges", "GetColorRanges", "SetDisplayRangeMode",
    "GetDisplayRangeMode", "GetContrastRange", "GetDataMinMax", "GetRawRange", "IsMetric",
    "SetSecondDisplayRange", "GetSecondDisplayRange", "GetSecondPercentileRange", "GetSecondFullRange",
    "GetSecondColorTableSettings", "SetSecondColorTableSettings", "SetHasSecondColorTable",
    "HasSecondColorTable", "GetSecondColorTable", "SetSecondColorTable", "SetSecondColorEntries",
    "GetSecondColorEntries", "SetSecondColorRanges", "GetSecondColorRanges",
    "GetDataTypeDesc", "SetDataTypeDesc", "GetDataName", "GetLineDirection", "GetFrameDirection",
    "GetCaptureStartLine", "GetScanLine", "GetTipSerialNumber", "GetNote", "GetUnits", "GetModulusFitModel",
    "GetAdhesionAlgorithm", "SetUnits", "SetNoteOfAll", "SetDataName", "SetModulusFitModel",
    "SetAdhesionAlgorithm",
    "SetChannelParameters", "CreateCheckpoint", "RestoreCheckpoint", "DeleteCheckpoint",
    "CreateNamedCheckpoint", "GetChannelFileIndex", "GetDataLength", "GetChannelUserValue",
    "SetChannelUserValue", "RemoveChannel", "GetDataPlistNames", "GetParameterList", "GetParameterListForItem",
    "GetValidStartX", "GetValidStartY", "GetValidLenX", "GetValidLenY", "GetChannelRawHalfRange",
    "GetRawRange", "GetPlanefitSettings", "GetPlanefitDesc", "GetValue1", "SetValue1", "GetValue2",
    "SetValue2", "GetForceZOffset", "GetRampBegin", "GetRampEnd", "GetRampSize", "SetRampAxisText",
    "GetNumberOfPointsPerCurve", "GetForcePhaseOffset", "SetForcePhaseOffset", "GetAvePoints", "SetAvePoints",
    "GetEffectiveBw", "GetForceSpringConstant", "SetForceSpringConstant", "GetForceSamplesPerLine",
    "GetTracePoints", "GetNumberOfTracePoints", "GetRetracePoints", "GetInvert", "SetInvert",
    "GetForceDisplayMode", "SetForceDisplayMode", "GetXDataType", "SetXDataType", "GetUnitDisplay",
    "GetCantileverAngle", "SetCantileverAngle",
    "GetTipPoissonRatio", "GetCantileverLength", "GetTipHeight", "GetTipPosition", "GetTipStorageModulus",
    "GetTipLossModulus", "GetEigenmode", "GetFreeAirFrequency", "GetFreeAirQ", "GetFreeAirFrequency2",
    "GetFreeAirQ2", "GetFreeAirFrequency3", "GetFreeAirQ3", "GetKLateralKNormal", "GetPLateralPNormal",
    "GetHoldForceDeflection", "GetReferenceStorageModulus", "GetReferenceLossModulus",
    "GetReferencePoissonRatio", "GetTipModelGeometricParam", "GetSaveLoadEnabled", "GetLossModulusMethod",
    "GetModulusCalcMethod", "GetTipModel", "GetCrBaselineFitType", "SetTipPoissonRatio", "SetCantileverLength",
    "SetTipHeight", "SetTipPosition", "SetTipStorageModulus", "SetTipLossModulus", "SetEigenmode",
    "SetFreeAirFrequency", "SetFreeAirQ", "SetFreeAirFrequency2", "SetFreeAirQ2", "SetFreeAirFrequency3",
    "SetFreeAirQ3", "SetKLateralKNormal", "SetPLateralPNormal", "SetHoldForceDeflection",
    "SetReferenceStorageModulus", "SetReferenceLossModulus", "SetReferencePoissonRatio",
    "SetTipModelGeometricParam", "SetTipModel", "SetSaveLoadEnabled", "SetModulusCalcMethod",
    "SetLossModulusMethod", "SetCrBaselineFitType",
    "GetCrestloadAmplitude", "GetCrestloadSetpoint", "GetCrestloadTappingFreq", "GetCrestloadAmplitudeValue",
    "SetCrestloadAmplitudeValue", "GetCrestloadCapture", "SetUnitDisplay", "GetStripChartRate",
    "GetStripChartEnabled", "GetForwardRampVelocity", "GetReverseRampVelocity", "GetScanRateValue",
    "SetScanRateValue", "GetDisplayMode", "SetDisplayMode", "GetNumberOfHoldPoints", "GetForceHoldTime",
    "GetChannelHoldFlag", "SetChannelHoldFlag", "GetSegmentCount", "GetSegmentSizeList",
    "GetSegmentSamplesList", "GetSegmentDurationList", "GetSegmentRampTypeList", "GetSegmentRampStartList",
    "GetSegmentRampSizeList", "GetSegmentTypeList", "GetRampChannel", "GetCaptureMode", "SaveChannelAs",
    "GetTipRadius", "SetTipRadius", "GetPoissonRatio", "SetPoissonRatio", "GetHalfAngle", "SetHalfAngle",
    "SetSyncDistance", "GetDeflectionBaselineFit", "SetDeflectionBaselineFit", "GetBaselineStart",
    "SetBaselineStart", "GetBaselineStop", "SetBaselineStop", "GetSecondScale", "GetThirdScale",
    "SetScaledRange", "GetSecondScaleFactor", "GetSecondScaleFraction", "GetZDirection", "SetZDirection",
    "GetForcesPerLine", "GetForceVolumeForcesPerLine", "IsForceSweep", "GetForceSweepChannel",
    "GetForceSweepStart", "GetForceSweepEnd", "GetForceSweepStartHz", "GetForceSweepEndHz",
    "GetForceVolumeCurveData", "GetForceVolumeRawCurve", "SaveForceCurveSet", "IsChannelUsed",
    "FindLastChannel", "FindHeightSensorChannel", "FindAmplitudeChannel",
    "GetFvModulusLimit", "GetLogFvModulusLimit", "GetFvStiffnessLimit", "GetFvForceLimit", "GetFvValue1",
    "GetFvValue2", "GetFvValue3", "GetFvValue4", "GetFvValue5", "GetFvValue6", "GetFvValue7",
    "SetFvModulusLimit", "SetLogFvModulusLimit", "SetFvStiffnessLimit", "SetFvForceLimit", "SetFvValue1",
    "SetFvValue2", "SetFvValue3", "SetFvValue4", "SetFvValue5", "SetFvValue6", "SetFvValue6Sensitivity",
    "SetFvValue7", "SetFvValue8", "SetFvValue9", "SetFvValue10", "SetFvValue11", "SetFvValue12",
    "SetFvValue13", "SetFvValue14",
    "GetHighSpeedSamples", "GetHighSpeedDataType", "GetHsdcRateValue", "GetHsdcRate",
    "GetHsdcDelay", "GetHsdcDuration", "GetHsdcXPosition", "GetHsdcYLineNumber", "GetXRound", "SetSensZSens",
    "IsTorsionalEnabled", "GetTorsionalFreq", "GetTorsionalQ", "GetSampleRate", "GetSamplePoints",
    "GetCyclesToAverage", "GetHarmonicsToCorrect", "GetMaxHarmonics", "GetForceDataPoints",
    "GetCalculationPeriod", "GetInteractionTime", "GetInvertTorsional", "GetInvertVertical",
    "GetUnloadFitRegion", "GetDeformationFitRegion", "GetSyncDistance",
    "GetMicroscopeList", "GetMicroscope", "GetDeflSens", "GetAmplitudeSens", "GetForceSens",
    "GetDeformationSens", "GetForceDeflSens", "GetAmplitudeLimit1", "GetHsAdc2GainLockIn2",
    "GetDriveFrequency3", "GetDriveAmplitude3", "GetDriveAmplitude3Sens", "GetBaselineAvgPts",
    "GetForceDigitalSetPoint", "GetForceDigitalSetPointSens", "GetCantFrequency", "GetEcFunction",
    "GetEcPotInput", "GetEcPotOutput", "GetEcCurrentInput", "GetEcTip", "GetEcBias",
    "GetVoltamVoltMax", "GetVoltamVoltMin", "GetTemporalTimeStart", "GetTemporalTimeEnd",
    "GetTemporalTimeRange", "GetTemporalVoltRange", "GetVoltamCurrentRange", "GetTemporalCurrentRange",
    "GetTipReference", "GetRampElectrode", "GetTipPotInput", "GetTipCurrent", "GetBiasPotInput",
    "GetPotentiostatElectrodeArea", "GetTemporalVoltFunction",
    "GetPlistName", "HasRangeOverride", "SetOverrideMin", "GetOverrideMin", "GetOverrideMinRaw",
    "SetOverrideMax", "GetOverrideMax", "GetOverrideMaxRaw", "SetOverrideUnits", "GetOverrideUnits",
    "GetItemFlag", "SetItemFlag", "GetHalfAngles", "SetHalfAngles",
    "GetTmFbIgain", "GetAfmFbIgain", "GetCaptureDirection", "GetForceDigitalSetPointValue",
    "GetHasForceDigitalSetPoint", "GetCantDrive", "GetTmSetAmplitude", "GetAfmSetDeflection",
    "GetTmSetDeflection",
    "GetInvalidPointList", "SetInvalidPointList", "ClearInvalidPointList", "HasInvalidPoints",
    "GetInvalidFlag", "SetInvalidFlag", "GetInvalidFill", "SetInvalidFill",
};

const std::vector<std::string> kSavingTemplates = {"WriteDataFile", "WriteChannelHeader", "WriteChannelData",
                                                   "CreateDataFile"};

std::string SourceWithoutComments(const std::string& relativePath) {
    std::ifstream in(std::string(DS_SOURCE_DIR) + "/" + relativePath);
    std::stringstream text;
    text << in.rdbuf();
    const std::string source = text.str();
    std::string kept;
    for (std::size_t i = 0; i < source.size();) {
        if (source.compare(i, 2, "//") == 0) {
            i = source.find('\n', i);
        } else if (source.compare(i, 2, "/*") == 0) {
            i = source.find("*/", i);
            i = i == std::string::npos ? i : i + 2;
        } else {
            kept += source[i++];
            continue;
        }
        kept += ' ';
        if (i == std::string::npos) {
            break;
        }
    }
    return kept;
}

bool IsWordAt(const std::string& text, std::size_t at, const std::string& word) {
    auto isName = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    return text.compare(at, word.size(), word) == 0 && (at == 0 || !isName(text[at - 1])) &&
           (at + word.size() >= text.size() || !isName(text[at + word.size()]));
}

std::string WithoutBlanks(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (!std::isspace(static_cast<unsigned char>(c))) {
            out += c;
        }
    }
    return out;
}

struct Declaration {
    std::string name;
    bool pure;
    std::size_t offset;
};

// The declarations that begin with "virtual", destructors left out: the name
// is the word before the first parenthesis.
std::vector<Declaration> VirtualDeclarations(const std::string& source) {
    std::vector<Declaration> found;
    for (std::size_t at = 0; (at = source.find("virtual", at)) != std::string::npos; at += 7) {
        if (!IsWordAt(source, at, "virtual")) {
            continue;
        }
        const std::size_t end = source.find(';', at);
        const std::size_t open = source.find('(', at);
        if (end == std::string::npos || open == std::string::npos || open > end) {
            continue;
        }
        std::size_t nameEnd = open;
        while (nameEnd > at && std::isspace(static_cast<unsigned char>(source[nameEnd - 1]))) {
            --nameEnd;
        }
        std::size_t nameBegin = nameEnd;
        while (nameBegin > at && (std::isalnum(static_cast<unsigned char>(source[nameBegin - 1])) || source[nameBegin - 1] == '_')) {
            --nameBegin;
        }
        if (source[nameBegin - 1] == '~') {
            continue;
        }
        const std::string tail = WithoutBlanks(source.substr(open, end - open));
        const bool pure = tail.ends_with(")=0") || tail.ends_with(")const=0");
        found.push_back({source.substr(nameBegin, nameEnd - nameBegin), pure, at});
    }
    return found;
}

// The first place where two tables part, in words.
std::string FirstMismatch(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
    for (std::size_t i = 0; i < expected.size() || i < actual.size(); ++i) {
        const std::string e = i < expected.size() ? expected[i] : "(end)";
        const std::string a = i < actual.size() ? actual[i] : "(end)";
        if (e != a) {
            return "operation " + std::to_string(i) + ": expected " + e + ", found " + a;
        }
    }
    return {};
}

}  // namespace

TEST(OperationTableTest, TableHasItsFourHundredFifteenOperations) { EXPECT_EQ(kOperations.size(), 415u); }

TEST(OperationTableTest, InterfaceDeclaresEveryOperationInOrderAndAbstract) {
    const auto declarations = VirtualDeclarations(SourceWithoutComments("QlDataAnalysisExt/Core/IOLDataSource.h"));
    std::vector<std::string> names;
    for (const auto& d : declarations) {
        names.push_back(d.name);
        EXPECT_TRUE(d.pure) << d.name;
    }
    EXPECT_EQ(FirstMismatch(kOperations, names), "");
}

TEST(OperationTableTest, SavingTemplatesCloseTheBaseClassTable) {
    const std::string source = SourceWithoutComments("QlDataAnalysisExt/Core/OLDataSource.h");
    const auto declarations = VirtualDeclarations(source);
    std::vector<std::string> names;
    for (const auto& d : declarations) {
        names.push_back(d.name);
        EXPECT_TRUE(d.pure) << d.name;
    }
    ASSERT_EQ(FirstMismatch(kSavingTemplates, names), "");
    // No operation of the interface is given its body after the templates.
    std::size_t lastOverride = source.rfind("override");
    while (lastOverride != std::string::npos && !IsWordAt(source, lastOverride, "override")) {
        lastOverride = source.rfind("override", lastOverride - 1);
    }
    ASSERT_NE(lastOverride, std::string::npos);
    EXPECT_LT(lastOverride, declarations.front().offset);
}
