// The file-wide parameters of the equipment list, the scan section, the
// scanner list and the probe list. Files of several generations spell many
// keys two or three ways; the first spelling found wins.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include <cstdint>
#include <iterator>

namespace {

using QlValueStrings::kScaledValue;
using QlValueStrings::kSensitivity;
using QlValueStrings::ParseSoftValue;
using DoubleField = QlSectionReader::Field<OLDataSource, double>;

// Scan sizes above a micron read in microns; exactly 1000 nm stays.
void MicronsAboveAThousandNanometres(UValue& size) {
    if (size.GetUnits()->GetName() == "nm" && size.GetValue() > 1000.0) {
        size.ConvertTo("\xB5m");
    }
}

// The value of a scaled value text, where there is a text; the target is kept otherwise.
void SoftNumberIfAny(const QlSectionReader& s, const char* key, double& target) {
    const std::string text = s.Text(key);
    if (!text.empty()) {
        target = ParseSoftValue(text, kScaledValue).GetValue();
    }
}

}  // namespace

std::string QlOLDataSource::KilohertzSpelled(const std::string& text) {
    const std::size_t at = text.rfind(' ');
    const std::string last = at == std::string::npos ? text : text.substr(at + 1);
    if (last != "KHz") {
        return text;
    }
    return text.substr(0, text.size() - 3) + "kHz";
}

void QlOLDataSource::readEquipment(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    if (!s) {
        return;
    }
    lyrant = s.TextIs("Lyrant", "Yes");
    microscope = s.Text("Microscope");
}

void QlOLDataSource::readScanSection(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    if (!s.Read("Scan Size", scanSize)) {
        s.Read("Scan size", scanSize);
    }
    MicronsAboveAThousandNanometres(scanSize);
    if (!s.Read("X Offset", xOffset)) {
        s.Read("X offset", xOffset);
    }
    if (!s.Read("Y Offset", yOffset)) {
        s.Read("Y offset", yOffset);
    }
    bool found = false;
    const std::string text = s.FirstExisting({"Capture mode", "Capture mode "}, &found);
    if (found) {
        captureMode = text;
    }
    s.NumberIfPresent("Tip Half Angle", tipHalfAngle);
    s.NumberIfPresent("Tip Radius", tipRadius);
    s.NumberIfPresent("Cantilever Angle", cantileverAngle);
    s.NumberIfPresent("Sample Poisson's Ratio", poissonRatio);

    readFeedback(s);
    readSetpoint(s);
    if (subtypeIsOneOf({"IMAGE", "FVOL", "HSDC", "ECAFM", "ECSTM", "EC"})) {
        readLinesAndAspectRatio(s);
    }
    readScanSecondGroup(s);
    if (subtypeIsOneOf({"FORCE", "FVOL"})) {
        readCrestload(s);
    }
    if (subtypeIsOneOf({"HSDC", "FVOL", "FORCE"})) {
        samplePoints = 0;
        s.Read("Sample Points", samplePoints);
        baselineAvgPts = ParseSoftValue(s.Text("@2:BaselineAvgPtsSoftLyrant"), kScaledValue);
    }
    if (subtypeIs("FVOL")) {
        readForceVolumeGroup(s);
    }
    if (subtypeIs("HSDC")) {
        readHighSpeedParameters(s);
    }
}

void QlOLDataSource::readFeedback(const QlSectionReader& s) {
    tmFbIgain = 0.0;
    afmFbIgain = 0.0;
    SoftNumberIfAny(s, "@2:TMFbIgain", tmFbIgain);
    SoftNumberIfAny(s, "@2:AFMFbIgain", afmFbIgain);
    SoftNumberIfAny(s, "@2:CantDrive", cantDrive);
    SoftNumberIfAny(s, "@2:TMSetAmplitude", tmSetAmplitude);
    SoftNumberIfAny(s, "@2:AFMSetDeflection", afmSetDeflection);
    SoftNumberIfAny(s, "@2:TMSetDeflection", tmSetDeflection);
    captureDirection = s.Text("Capture direction");
}

// Three feedback modes write their setpoint under three keys; the rest of the
// system sees one setpoint.
void QlOLDataSource::readSetpoint(const QlSectionReader& s) {
    const std::string text =
        s.FirstNonEmpty({"@2:SoftLyrantSetpoint", "@2:SentrelSetpoint", "@2:ForceDigitalSetPoint"});
    if (text.empty()) {
        return;
    }
    setpointSoft = ParseSoftValue(text, kScaledValue);
    setpointHard = QlValueStrings::ParseHardValue(text);
    const std::string sensitivity = GetSensString(QlValueStrings::ParseBracketName(text));
    setpointSensitivity = QlValueStrings::ParseSensValue(sensitivity);
    setpointSensitivityUnit = QlValueStrings::ParseSensUnit(sensitivity);
    hasSetpoint = true;
}

void QlOLDataSource::readLinesAndAspectRatio(const QlSectionReader& s) {
    const bool hasAspectRatio = s.Has("Aspect Ratio") || s.Has("Aspect ratio");
    if (!s.Has("Lines") && scanListName != "Dulce scan list") {
        // The older form: samples and lines in one text.
        int samples = 0;
        int lines = 0;
        QlSectionReader::ScanPair(s.Text("Samps/line"), samples, lines);
        imageLines = lines;
        if (!hasAspectRatio) {
            aspectRatio = lines != 0 ? static_cast<float>(samples) / static_cast<float>(lines) : 1.0f;
            return;
        }
    } else {
        int lines = 0;
        s.Read("Lines", lines);
        imageLines = lines;
        imageLinesSet = lines;
    }
    aspectRatio = QlValueStrings::ParseAspectRatio(s.FirstExisting({"Aspect Ratio", "Aspect ratio"}));
}

void QlOLDataSource::readScanSecondGroup(const QlSectionReader& s) {
    double rate = 0.0;
    QlValueStrings::ReadNumber(s.FirstNonEmpty({"Scan Rate", "Scan rate"}), rate);
    scanRate = ValueIn(rate, "Hz");
    tipSerialNumber = s.FirstNonEmpty({"Tip Serial Number", "Tip serial number"});
    rotateAngle = 0.0f;
    QlValueStrings::ReadNumber(s.Text("Rotate Ang."), rotateAngle);

    int samples = 0;
    int unused = 0;
    QlSectionReader::ScanPair(s.Text("Samps/line"), samples, unused);
    imageSamples = samples;
    imageSamplesSet = samples;
    if (scanSize.GetValue() == 0.0 && samples != 0) {
        scanSize = ValueIn(samples, "Arb");
    }

    stripChartRate = 0;
    s.Read("Strip Chart Rate", stripChartRate);
    bidirectional = s.FirstNonEmpty({"Bidirectional Scan", "Bidirectional scan", "bidirectional scan"}) == "Enabled";
    units = s.Text("Units");
    zAttenuation = 0.0;
    s.Read("Z atten.", zAttenuation);
    detectSensitivity = 0.0;
    s.Read("Detect sens.", detectSensitivity);
    microscopeList = QlValueStrings::ParseBracketName(s.Text("@MicroscopeList"));
    const std::string drive = s.Text("@2:DriveAmplitude3SoftLyrant");
    driveAmplitude3 = ParseSoftValue(drive, kScaledValue);
    driveAmplitude3Hard = QlValueStrings::ParseHardValue(drive);
    softFbIgain = ParseSoftValue(s.Text("@2:SoftLyrantFbIgain"), kScaledValue).GetValue();
    driveAmplitude3Sens = ParseSoftValue(s.Text("@Sens. DriveAmplitude3Sens"), kSensitivity);
}

void QlOLDataSource::readSyncDistance(const QlSectionReader& s) {
    syncDistance = 0.0;
    s.Read("Sync Distance", syncDistance);
    double snt = 0.0;
    s.Read("Sync Distance SNT", snt);
    if (snt > 0.01) {
        syncDistance = snt;
    }
}

void QlOLDataSource::readCrestload(const QlSectionReader& s) {
    readSyncDistance(s);
    driveAmplitude3Sens = ParseSoftValue(s.Text("@Sens. DriveAmplitude3Sens"), kSensitivity);
    double amplitude = 0.0;
    s.Read("Crest Load Amplitude", amplitude);
    // Kept as a number of the sensitivity's unit, so that the product gives
    // back the amplitude the file holds.
    crestloadAmplitudeScale = driveAmplitude3Sens.GetValue();
    crestloadAmplitudeValue = crestloadAmplitudeScale != 0.0 ? amplitude / crestloadAmplitudeScale : 0.0;
    s.Read("Crestload Capture", captureState);
    crestloadTappingFreq = QlValueStrings::ParsePlainValue(KilohertzSpelled(s.Text("CLT Freq")));
}

void QlOLDataSource::readForceVolumeGroup(const QlSectionReader& s) {
    includeAdhesion = s.TextIs("Include Adhesion Force", "Yes");
    minForceFitBoundary = 0.0;
    s.Read("Min Force Fit Boundary", minForceFitBoundary);
    maxForceFitBoundary = 0.0;
    s.Read("Max Force Fit Boundary", maxForceFitBoundary);
    s.Read("Modulus Fit Model", modulusFitModel);
    // Only a capture chooses its adhesion algorithm.
    if (captureState == "On" || captureState == "Allow") {
        s.Read("Adhesion Algorithm", adhesionAlgorithm);
    } else {
        adhesionAlgorithm = "Absolute Minimum";
    }

    struct Limit {
        const char* key;
        const char* unit;
        const char* sensitivityUnit;
    };
    static const Limit kLimits[4] = {
        {"@1:FVModulusLimit", "Arb", "Pa"},
        {"@1:LogFVModulusLimit", "log(Arb)", "log(Pa)"},
        {"@1:FVStiffnessLimit", "Arb", "N/m"},
        {"@1:FVForceLimit", "Arb", "nN"},
    };
    for (std::size_t i = 0; i < fvLimits.size(); ++i) {
        const std::string text = s.Text(kLimits[i].key);
        if (!text.empty()) {
            fvLimits[i] = readScaleGroup(text);
        } else {
            fvLimits[i] = ScaleGroup{ValueIn(0.0, kLimits[i].unit), 0.0, kLimits[i].sensitivityUnit};
        }
    }
    // Further analysis channels that a Quillon force volume does not describe.
    static const char* const kValueUnits[11] = {"kHz", "", "Meters", "", "", "", "nm", "", "GPa", "GPa", ""};
    for (std::size_t i = 0; i < std::size(kValueUnits); ++i) {
        fvValues[i] = ScaleGroup{ValueIn(0.0, "Arb"), 0.0, kValueUnits[i]};
    }
}

void QlOLDataSource::readHighSpeedParameters(const QlSectionReader& s) {
    static const DoubleField kDoubles[] = {
        {"Torsional Freq", &QlOLDataSource::torsionalFreq},
        {"Torsional Q", &QlOLDataSource::torsionalQ},
        {"Sample Rate", &QlOLDataSource::sampleRate},
        {"Interaction Time", &QlOLDataSource::interactionTime},
        {"Unload Fit Region", &QlOLDataSource::unloadFitRegion},
        {"Deformation Fit Region", &QlOLDataSource::deformationFitRegion},
    };
    const double noDouble = 0.0;
    s.ReadFields(*this, kDoubles, &noDouble);
    static const QlSectionReader::Field<OLDataSource, int> kInts[] = {
        {"Cycles to Average", &QlOLDataSource::cyclesToAverage},
        {"Harmonics To Correct", &QlOLDataSource::harmonicsToCorrect},
        {"Max Harmonics", &QlOLDataSource::maxHarmonics},
        {"Force Data Points", &QlOLDataSource::forceDataPoints},
    };
    const int noInt = 0;
    s.ReadFields(*this, kInts, &noInt);
    int period = 0;
    s.Read("Calculation Period", period);
    calculationPeriod = period;
    readSyncDistance(s);
    invertTorsional = s.TextIs("Invert Torsional", "Yes");
    invertVertical = s.TextIs("Invert Vertical", "Yes");

    struct ValueKey {
        const char* key;
        int mode;
        UValue OLDataSource::*target;
    };
    static const ValueKey kValues[] = {
        {"@Sens. DeflSens", kSensitivity, &QlOLDataSource::deflSens},
        {"@Sens. Amplitude", kSensitivity, &QlOLDataSource::amplitudeSens},
        {"@Sens. ForceSens", kSensitivity, &QlOLDataSource::forceSens},
        {"@Sens. DeformationSens", kSensitivity, &QlOLDataSource::deformationSens},
        {"@Sens. ForceDeflSens", kSensitivity, &QlOLDataSource::forceDeflSens},
        {"@1:AmplitudeLimit1", kScaledValue, &QlOLDataSource::amplitudeLimit1},
        {"@2:HSADC2GainLockIn2", kScaledValue, &QlOLDataSource::hsAdc2GainLockIn2},
        {"@2:DriveFrequency3SoftLyrant", kScaledValue, &QlOLDataSource::driveFrequency3},
        {"@2:CantFrequency", kScaledValue, &QlOLDataSource::cantFrequency},
    };
    for (const ValueKey& k : kValues) {
        this->*k.target = ParseSoftValue(s.Text(k.key), k.mode);
    }
    if (syncDistance == 0.0) {
        syncDistance = ParseSoftValue(s.Text("@2:SyncDistanceSoftLyrant"), kScaledValue).GetValue();
    }
}

void QlOLDataSource::readScannerList(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    if (!s) {
        return;
    }
    s.Read("X round", xRound);
    s.Read("@Sens. Zsens", sensZSensText);
}

void QlOLDataSource::readProbeList(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    if (!s) {
        return;
    }
    static const DoubleField kDoubles[] = {
        {"Save/Load Tip Poisson's Ratio", &QlOLDataSource::tipPoissonRatio},
        {"Save/Load Cantilever length (L)", &QlOLDataSource::cantileverLength},
        {"Save/Load Tip Height", &QlOLDataSource::tipHeight},
        {"Save/Load Tip Position (L1/L)", &QlOLDataSource::tipPosition},
        {"Save/Load Tip Storage Modulus", &QlOLDataSource::tipStorageModulus},
        {"Save/Load Tip Loss Modulus", &QlOLDataSource::tipLossModulus},
        {"Reference Storage Modulus", &QlOLDataSource::referenceStorageModulus},
        {"Reference Loss Modulus", &QlOLDataSource::referenceLossModulus},
        {"Reference Poisson's Ratio", &QlOLDataSource::referencePoissonRatio},
        {"Save/Load Free Air Frequency", &QlOLDataSource::freeAirFrequency},
        {"Save/Load Free Air Frequency2", &QlOLDataSource::freeAirFrequency2},
        {"Save/Load Free Air Frequency3", &QlOLDataSource::freeAirFrequency3},
        {"Save/Load Free Air Q", &QlOLDataSource::freeAirQ},
        {"Save/Load Free Air Q2", &QlOLDataSource::freeAirQ2},
        {"Save/Load Free Air Q3", &QlOLDataSource::freeAirQ3},
        {"Save/Load kLateral/kNormal", &QlOLDataSource::kLateralKNormal},
        {"Save/Load pLateral/pNormal", &QlOLDataSource::pLateralPNormal},
        {"Save/Load Tip Model geometric param", &QlOLDataSource::tipModelGeometricParam},
    };
    s.ReadFields(*this, kDoubles);
    s.Read("Save/Load Eigenmode", eigenmode);
    std::string adhesion;
    s.Read("Save/Load Use Adhesion in Load", adhesion);
    saveLoadEnabled = adhesion == "Yes";
    s.Read("Save/Load Tip Model", tipModel);
    s.Read("Modulus calc. method", modulusCalcMethod);
    s.Read("Loss Modulus method", lossModulusMethod);
    s.Read("CR Baseline Fit Type", crBaselineFitType);
}
