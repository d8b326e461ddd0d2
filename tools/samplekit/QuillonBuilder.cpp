#include "tools/samplekit/QuillonBuilder.h"

#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/FileSystem.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace SampleKit {

namespace {

const char* const kOverview = "QuillonFileOverviewInfo";

bool IsElectrochemistry(const std::string& subtype) {
    return subtype == "ECAFM" || subtype == "ECSTM" || subtype == "EC";
}

bool IsForceSubtype(const std::string& subtype) {
    return subtype == "FORCE" || subtype == "SCRIPT" || subtype == "FVOL" || subtype == "TIMED_FORCE" ||
           subtype == "ECFORCE";
}

std::string StartContextOf(const std::string& subtype) {
    if (subtype == "HSDC") {
        return "OL2HSDC";
    }
    if (subtype == "SCRIPT") {
        return "OLSCRIPT";
    }
    if (subtype == "TIMED") {
        return "OLTIMED";
    }
    if (subtype == "FORCE" || subtype == "TIMED_FORCE" || subtype == "ECFORCE") {
        return "FOL";
    }
    return "OL2";
}

std::string Printed(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

// "V [Sens. Zsens] (1.024455e-07 V/LSB) 440.0000 V": the full range in volts
// over the counts of a sample of that width.
std::string ScaledText(const std::string& sensitivity, double volts, unsigned bytesPerSample) {
    const std::string bracket = sensitivity.empty() ? std::string() : "[" + sensitivity + "] ";
    const double perCount = volts / std::ldexp(1.0, static_cast<int>(8 * bytesPerSample));
    return "V " + bracket + "(" + Printed("%.7g", perCount) + " V/LSB) " + Printed("%.4f", volts) + " V";
}

// Samples that tell channels and positions apart: a ramp under a saw tooth.
std::vector<std::int32_t> PatternSamples(std::size_t channel, std::size_t count, std::int32_t unit) {
    std::vector<std::int32_t> samples(count);
    for (std::size_t k = 0; k < count; ++k) {
        const auto step = static_cast<std::int32_t>(k % 17) - 8;
        samples[k] = static_cast<std::int32_t>(channel + 1) * unit * step + static_cast<std::int32_t>(k);
    }
    return samples;
}

std::vector<std::int16_t> Narrowed(const std::vector<std::int32_t>& samples) {
    return {samples.begin(), samples.end()};
}

}  // namespace

QuillonBuilder::QuillonBuilder(const std::string& subtype) : file_(ContainerBuilder::Quillon()), subtype_(subtype) {
    Overview(subtype);
    FileSection(StartContextOf(subtype));
    EquipmentAndProbe();
    ScanSection(subtype);
    ScannerList();
    if (IsForceSubtype(subtype)) {
        ForceList(subtype);
    }
    if (subtype == "HSDC") {
        HighSpeedList();
    }
    if (IsElectrochemistry(subtype)) {
        ElectrochemistryList(subtype);
    }

    if (IsForceSubtype(subtype) && subtype != "FVOL") {
        ForceChannel("Dulce force image list", "Deflection Error", 1);
        ForceChannel("Dulce force image list#2", "Height Sensor", 1);
    } else if (subtype == "FVOL") {
        ImageChannel("Dulce image list", "Height", "Sens. Zsens", kZScaleVolts);
        ForceChannel("Dulce force image list", "Deflection Error", kForceCurves);
        ForceChannel("Dulce force image list#2", "Height Sensor", kForceCurves);
    } else if (subtype == "HSDC") {
        HighSpeedChannel("High speed data list", "Deflection");
        HighSpeedChannel("High speed data list#2", "Amplitude");
    } else if (IsElectrochemistry(subtype)) {
        ImageChannel("Dulce image list", "Height", "Sens. Zsens", kZScaleVolts);
        if (subtype != "EC") {
            ImageChannel("Dulce image list#2", "Current", "Sens. EC Current", 10.0);
        }
        ElectrochemistryChannel("EC potential list", "Potential");
        ElectrochemistryChannel("EC current list", "Current");
    } else {
        ImageChannel("Dulce image list", "Height", "Sens. Zsens", kZScaleVolts);
        if (subtype != "TIMED") {
            ImageChannel("Dulce image list#2", "Deflection Error", "Sens. DeflSens", kDeflectionScaleVolts);
        }
    }
}

void QuillonBuilder::Overview(const std::string& subtype) {
    file_.Section(kOverview)
        .Text("FileSubType", subtype)
        .Int("NumberOfDataPlists", 0)
        .Texts("DataPlistNames", {})
        .Text("ScanListPlistName", kScanList)
        .Text("FileListPlistName", kFileList);
}

void QuillonBuilder::FileSection(const std::string& startContext) {
    file_.Section(kFileList)
        .Text("Version", kVersion)
        .Text("Date", kDate)
        .Text("Start context", startContext)
        .Int("Data length", static_cast<std::int32_t>(kHeaderSize))
        .Text("User Rating", "3");
}

void QuillonBuilder::EquipmentAndProbe() {
    file_.Section("Equipment list").Text("Lyrant", "No").Text("Microscope", "Dulce");
    file_.Section("Probe List")
        .Double("Save/Load Tip Poisson's Ratio", 0.27)
        .Double("Save/Load Cantilever length (L)", 125e-6)
        .Double("Save/Load Tip Height", 15e-6)
        .Double("Save/Load Tip Position (L1/L)", 0.95)
        .Double("Save/Load Tip Storage Modulus", 170e9)
        .Double("Save/Load Tip Loss Modulus", 0.0)
        .Double("Reference Storage Modulus", 2.5e9)
        .Double("Reference Loss Modulus", 0.1e9)
        .Double("Reference Poisson's Ratio", 0.33)
        .Int("Save/Load Eigenmode", 1)
        .Double("Save/Load Free Air Frequency", 300e3)
        .Double("Save/Load Free Air Frequency2", 1.8e6)
        .Double("Save/Load Free Air Frequency3", 5.1e6)
        .Double("Save/Load Free Air Q", 450.0)
        .Double("Save/Load Free Air Q2", 600.0)
        .Double("Save/Load Free Air Q3", 700.0)
        .Double("Save/Load kLateral/kNormal", 12.0)
        .Double("Save/Load pLateral/pNormal", 0.5)
        .Double("Save/Load Tip Model geometric param", 8e-9)
        .Text("Save/Load Use Adhesion in Load", "Yes")
        .Text("Save/Load Tip Model", "Sphere")
        .Text("Modulus calc. method", "Hertz")
        .Text("Loss Modulus method", "Standard")
        .Text("CR Baseline Fit Type", "Linear");
}

void QuillonBuilder::ScanSection(const std::string& subtype) {
    file_.Section(kScanList)
        .Unitized("Scan Size", 1000.0, "nm")
        .Unitized("X Offset", 0.0, "nm")
        .Unitized("Y Offset", 0.0, "nm")
        .Text("Capture mode", "On")
        .Text("Tip Half Angle", "0.3490659")
        .Text("Tip Radius", "2e-08")
        .Text("Cantilever Angle", "12")
        .Text("Sample Poisson's Ratio", "0.3")
        .Text("@2:TMFbIgain", "V (1 V/LSB) 0.5000000 V")
        .Text("@2:AFMFbIgain", "V (1 V/LSB) 2.000000 V")
        .Text("@2:CantDrive", "V (0.0003 V/LSB) 250.0000 mV")
        .Text("@2:TMSetAmplitude", "V [Sens. Amplitude] (0.0003 V/LSB) 0.2000000 V")
        .Text("@2:AFMSetDeflection", "V [Sens. DeflSens] (0.0003 V/LSB) 0.1000000 V")
        .Text("@2:TMSetDeflection", "V (0.0003 V/LSB) 0 V")
        .Text("Capture direction", "Down")
        .Text("@2:SoftLyrantSetpoint", "V [Sens. DeflSens] (0.0003 V/LSB) 0.05000000 V")
        .Int("Lines", static_cast<std::int32_t>(kImageSide))
        .Text("Aspect Ratio", "1:1")
        .Text("Scan Rate", "0.9988")
        .Text("Tip Serial Number", kTipSerialNumber)
        .Text("Rotate Ang.", "0")
        .Int("Samps/line", static_cast<std::int32_t>(kImageSide))
        .Int("Strip Chart Rate", 0)
        .Text("Bidirectional Scan", "Disabled")
        .Text("Units", "Metric")
        .Double("Z atten.", 1.0)
        .Double("Detect sens.", 45.5)
        .Text("@MicroscopeList", "S [Microscope list] \"Dulce\"")
        .Text("@2:DriveAmplitude3SoftLyrant", "V (0.0003 V/LSB) 0.05000000 V")
        .Text("@2:SoftLyrantFbIgain", "V (1 V/LSB) 8.000000 V")
        .Text("@Sens. DriveAmplitude3Sens", "V 12.0 nm/V");
    if (subtype == "FORCE" || subtype == "FVOL") {
        file_.Double("Sync Distance", 16.5)
            .Double("Sync Distance SNT", 0.0)
            .Double("Crest Load Amplitude", 150.0)
            .Text("Crestload Capture", "Off")
            .Text("CLT Freq", "2 kHz");
    }
    if (subtype == "HSDC" || subtype == "FVOL" || subtype == "FORCE") {
        file_.Int("Sample Points", 1024).Text("@2:BaselineAvgPtsSoftLyrant", "V (1 V/LSB) 20.00000 V");
    }
    if (subtype == "FVOL") {
        file_.Text("Include Adhesion Force", "Yes")
            .Double("Min Force Fit Boundary", 30.0)
            .Double("Max Force Fit Boundary", 70.0)
            .Text("Modulus Fit Model", "Hertzian")
            .Text("Adhesion Algorithm", "Baseline Relative")
            .Text("@1:FVModulusLimit", "V (0.0003 V/LSB) 100.0000 V")
            .Text("@1:LogFVModulusLimit", "V (0.0003 V/LSB) 9.000000 V")
            .Text("@1:FVStiffnessLimit", "V (0.0003 V/LSB) 1.000000 V")
            .Text("@1:FVForceLimit", "V [Sens. ForceSens] (0.0003 V/LSB) 5.000000 V");
    }
    if (subtype == "HSDC") {
        file_.Double("Torsional Freq", 1.2e6)
            .Double("Torsional Q", 300.0)
            .Double("Sample Rate", 50e6)
            .Int("Cycles to Average", 8)
            .Int("Harmonics To Correct", 4)
            .Int("Max Harmonics", 16)
            .Int("Force Data Points", 256)
            .Int("Calculation Period", 2)
            .Double("Interaction Time", 1e-6)
            .Double("Unload Fit Region", 0.8)
            .Double("Deformation Fit Region", 0.6)
            .Double("Sync Distance", 12.25)
            .Text("Invert Torsional", "No")
            .Text("Invert Vertical", "Yes")
            .Text("@Sens. DeflSens", kDeflectionSensitivity)
            .Text("@Sens. Amplitude", "V 30.00 nm/V")
            .Text("@Sens. ForceSens", "V 20.00 nN/V")
            .Text("@Sens. DeformationSens", "V 40.00 nm/V")
            .Text("@Sens. ForceDeflSens", "V 45.50 nm/V")
            .Text("@1:AmplitudeLimit1", "V (0.0003 V/LSB) 1.500000 V")
            .Text("@2:HSADC2GainLockIn2", "V (1 V/LSB) 10.00000 V")
            .Text("@2:DriveFrequency3SoftLyrant", "V (1 V/LSB) 2.000000 kHz")
            .Text("@2:CantFrequency", "V (1 V/LSB) 300.0000 kHz")
            .Text("@2:SyncDistanceSoftLyrant", "V (1 V/LSB) 14.00000 V");
    }
}

void QuillonBuilder::ScannerList() {
    file_.Section("Scanner list")
        .Double("X round", 0.5)
        .Text("@Sens. Zsens", kZSensitivity)
        .Text("@Sens. DeflSens", kDeflectionSensitivity)
        .Text("@Sens. Amplitude", "V 30.00 nm/V")
        .Text("@Sens. ForceSens", "V 20.00 nN/V")
        .Text("@Sens. EC Pot", "V 1.000 V/V")
        .Text("@Sens. EC Current", "V 10.00 nA/V");
}

void QuillonBuilder::ForceList(const std::string& subtype) {
    const std::string half = std::to_string(kCurveHalf);
    file_.Section(kForceList)
        .Text("Unit display", "Metric")
        .Double("Forward vel.", 2000.0)
        .Double("Reverse vel.", 2000.0)
        .Double("Scan rate", 1.0)
        .Text("Display mode", "Extend")
        .Text("Samps/line", half + " " + half)
        .Text("Hold Samples", std::to_string(kHoldPoints))
        .Text("Hold Time", "0.5")
        .Int("force/line", static_cast<std::int32_t>(subtype == "FVOL" ? kForceCurves : 1))
        .Text("@4:Ramp channel", "S [RampChannel] \"Z\"")
        .Text("Z direction", "Retract")
        .Text("Deflection Baseline Fit", "Line Extend")
        .Text("Baseline Start", "0")
        .Text("Baseline Stop", "20");
    if (subtype == "SCRIPT") {
        // Three segments whose samples fill one curve: both halves and the hold.
        file_.Text("Segment Number", "3")
            .Text("Segment Size", half + "," + half + "," + std::to_string(kHoldPoints))
            .Text("Segment Samples", half + "," + half + "," + std::to_string(kHoldPoints))
            .Text("Segment Duration", "0.5,0.5,0.25")
            .Text("Segment Ramp Type", "1,1,0")
            .Text("Segment Ramp Start", "0,40,0")
            .Text("Segment Ramp Size", "40,-40,0")
            .Text("Segment Type", "1,3,6");
    }
    if (subtype == "FVOL") {
        file_.Text("Hold Type", "Defined Force")
            .Text("Trigger mode", "Relative")
            .Text("@4:Hold Force Deflection", "V [Sens. DeflSens] (0.0003 V/LSB) 0.2500000 V")
            .Text("@4:Trig Threshold Deflection", "V [Sens. DeflSens] (0.0003 V/LSB) 0.1000000 V");
    }
}

void QuillonBuilder::HighSpeedList() {
    file_.Section("HSDC list")
        .Text("Hsdc Rate", "6.25 MHz")
        .Double("Hsdc Delay", 0.001)
        .Double("Hsdc Duration", 0.01)
        .Int("Hsdc X Position", 12)
        .Int("Hsdc Y Line Number", 3);
}

void QuillonBuilder::ElectrochemistryList(const std::string& subtype) {
    const char* name = subtype == "ECAFM" ? "EC Potentio AFM list"
                       : subtype == "ECSTM" ? "EC Potentio STM list"
                                            : "EC Potentio list";
    file_.Section(name)
        .Text("@EC Pot Input", "V [Sens. EC Pot] (0.0003 V/LSB) 1.000000 V")
        .Text("@EC Current Input", "V [Sens. EC Current] (0.0003 V/LSB) 1.000000 V")
        .Text("@2:EC Pot Output", "V (0.0003 V/LSB) 0.5000000 V")
        .Double("Voltam volt max", 0.8)
        .Double("Voltam volt min", -0.4)
        .Double("Sample Rate", 1000.0)
        .Double("Potentiostat Electrode Area", 0.25);
    if (subtype == "ECSTM") {
        file_.Text("Tip reference", "Ag/AgCl")
            .Text("Ramp electrode", "Sample")
            .Text("@2:EC Tip", "V [Sens. EC Pot] (0.0003 V/LSB) 0.1000000 V")
            .Text("@2:EC Bias", "V [Sens. EC Pot] (0.0003 V/LSB) 0.2000000 V")
            .Double("Tip pot input", 0.1)
            .Double("Tip current", 1e-9)
            .Double("Bias pot input", 0.2)
            .Text("Temporal volt function", "Step");
    }
}

void QuillonBuilder::ListChannel(const std::string& name) {
    channels_.push_back(name);
    file_.Section(kOverview)
        .Int("NumberOfDataPlists", static_cast<std::int32_t>(channels_.size()))
        .Texts("DataPlistNames", channels_);
}

void QuillonBuilder::ImageChannel(const std::string& name, const std::string& dataName,
                                  const std::string& sensitivity, double volts) {
    const auto side = static_cast<std::int32_t>(kImageSide);
    std::string tag = dataName;
    tag.erase(std::remove(tag.begin(), tag.end(), ' '), tag.end());
    file_.Section(name)
        .Text("Start context", StartContextOf(subtype_))
        .Text("Data type", "AFM")
        .Text("Data Type Description", dataName)
        .Text("Note", "Made by the sample kit")
        .Int("Samps/line", side)
        .Int("Number of lines", side)
        .Text("Aspect Ratio", "1:1")
        .Text("Line Direction", "Retrace")
        .Text("Scan Line", "Main")
        .Text("Frame direction", "Down")
        .Int("Capture start line", 0)
        .Int("Color Table Index", 12)
        .Int("Valid data start X", 0)
        .Int("Valid data start Y", 0)
        .Int("Valid data len X", side)
        .Int("Valid data len Y", side)
        .Text("Scan Size", "1000 1000 nm")
        .Text("@2:Image Data", "S [" + tag + "] \"" + dataName + "\"")
        .Text("@2:Z scale", ScaledText(sensitivity, volts, 4))
        .Text("@2:Z offset", ScaledText(sensitivity, 0.0, 4))
        .Text("@Z magnify", "C [2:Z scale] 1.000000")
        .Text("Plane fit", "0 0 0 5");
    ListChannel(name);
    Samples32(channels_.size() - 1, kImageSide, kImageSide,
              PatternSamples(channels_.size() - 1, kImageSide * kImageSide, 100000));
}

void QuillonBuilder::ForceChannel(const std::string& name, const std::string& dataName, std::size_t curves) {
    const std::string half = std::to_string(kCurveHalf);
    const std::string zText = ScaledText("Sens. Zsens", 40.0, 2);
    std::string tag = dataName;
    tag.erase(std::remove(tag.begin(), tag.end(), ' '), tag.end());
    file_.Section(name)
        .Text("Start context", StartContextOf(subtype_))
        .Text("Samps/line", half + " " + half)
        .Double("Force Phase Offset", 0.0)
        .Int("Ave points", 1)
        .Int("Effective BW", 1)
        .Double("Spring Constant", kSpringConstant)
        .Text("Invert", "No")
        .Text("Force display mode", "Extend")
        .Text("X Data Type", "Z")
        .Text("@4:Z offset", ScaledText("Sens. Zsens", 0.0, 2))
        .Text("@4:Ramp Begin", ScaledText("Sens. Zsens", 0.0, 2))
        .Text("@4:Ramp End", zText)
        .Text("@Z scan size", zText)
        .Text("@4:Ramp size", zText)
        .Text("@4:FV scale", ScaledText("Sens. DeflSens", kDeflectionScaleVolts, 2))
        .Text("@4:Z display", ScaledText("Sens. DeflSens", 2.0, 2))
        .Text("@4:Image Data", "S [" + tag + "] \"" + dataName + "\"")
        .Text("@4:Z scale", ScaledText("Sens. DeflSens", kDeflectionScaleVolts, 4))
        .Text("@Z magnify", "C [4:Z scale] 1.000000");
    if (subtype_ == "FVOL") {
        file_.Int("Color Table Index", 12);
    }
    ListChannel(name);
    const std::size_t columns = 2 * kCurveHalf + kHoldPoints;
    Samples32(channels_.size() - 1, curves, columns, PatternSamples(channels_.size() - 1, curves * columns, 20000));
}

void QuillonBuilder::HighSpeedChannel(const std::string& name, const std::string& dataType) {
    file_.Section(name)
        .Text("Start context", "OL2HSDC")
        .Int("Number of samples", static_cast<std::int32_t>(kHighSpeedSamples))
        .Text("High Speed Data Type", dataType)
        .Double("High Speed Data Channel Rate", 6.25e6)
        .Unitized("High Speed Data Hard Scale", kHighSpeedHardVolts, "V")
        .Unitized("High Speed Data Soft Scale", kHighSpeedSensitivity, "nm/V")
        .Text("Note", "Made by the sample kit");
    ListChannel(name);
    const std::size_t channel = channels_.size() - 1;
    Samples16(channel, 1, kHighSpeedSamples, Narrowed(PatternSamples(channel, kHighSpeedSamples, 100)));
}

void QuillonBuilder::ElectrochemistryChannel(const std::string& name, const std::string& dataType) {
    file_.Section(name)
        .Text("Start context", StartContextOf(subtype_))
        .Text("Data type", dataType)
        .Text("Temporal function", "Linear")
        .Double("Temporal time range", 10.0)
        .Double("Temporal time start", 0.0)
        .Double("Temporal time end", 10.0)
        .Double("Temporal volt range", 1.0)
        .Text("Temporal current range", "Current range 0.0001 A")
        .Text("Voltam current range", "Current range 0.0002 A")
        .Text("@2:Z scale", ScaledText("Sens. EC Pot", 10.0, 4))
        .Text("@Z magnify", "C [2:Z scale] 1.000000");
    ListChannel(name);
    const std::size_t channel = channels_.size() - 1;
    Samples32(channel, 1, kHighSpeedSamples, PatternSamples(channel, kHighSpeedSamples, 1000));
}

QuillonBuilder& QuillonBuilder::AddImageChannel(const std::string& name) {
    ImageChannel(name, "Height", "Sens. Zsens", kZScaleVolts);
    return *this;
}

QuillonBuilder& QuillonBuilder::Text(const std::string& section, const std::string& key, const std::string& value) {
    file_.Section(section).Text(key, value);
    return *this;
}

QuillonBuilder& QuillonBuilder::Int(const std::string& section, const std::string& key, std::int32_t value) {
    file_.Section(section).Int(key, value);
    return *this;
}

QuillonBuilder& QuillonBuilder::Double(const std::string& section, const std::string& key, double value) {
    file_.Section(section).Double(key, value);
    return *this;
}

QuillonBuilder& QuillonBuilder::Unitized(const std::string& section, const std::string& key, double value,
                                         const std::string& unit) {
    file_.Section(section).Unitized(key, value, unit);
    return *this;
}

QuillonBuilder& QuillonBuilder::Texts(const std::string& section, const std::string& key,
                                      const std::vector<std::string>& values) {
    file_.Section(section).Texts(key, values);
    return *this;
}

QuillonBuilder& QuillonBuilder::Remove(const std::string& section, const std::string& key) {
    if (auto found = file_.Root()->GetChild(section)) {
        found->RemoveKey(key);
    }
    return *this;
}

QuillonBuilder& QuillonBuilder::RemoveSection(const std::string& section) {
    file_.Root()->RemoveChild(section);
    return *this;
}

QuillonBuilder& QuillonBuilder::Samples32(std::size_t channel, std::size_t rows, std::size_t columns,
                                          const std::vector<std::int32_t>& samples) {
    // The offset is settled when the file is written.
    file_.Section(ChannelName(channel)).Samples32(0, rows, columns, samples);
    return *this;
}

QuillonBuilder& QuillonBuilder::Samples16(std::size_t channel, std::size_t rows, std::size_t columns,
                                          const std::vector<std::int16_t>& samples) {
    file_.Section(ChannelName(channel)).Samples16(0, rows, columns, samples);
    return *this;
}

std::vector<std::int32_t> QuillonBuilder::SamplesOf(std::size_t channel) const {
    const auto section = file_.Root()->GetChild(ChannelName(channel));
    const auto matrix = section ? section->GetRawData("RawData") : nullptr;
    return matrix ? std::vector<std::int32_t>(matrix->data().begin(), matrix->data().end())
                  : std::vector<std::int32_t>();
}

QuillonBuilder& QuillonBuilder::HeaderSize(std::uint64_t size) {
    headerSize_ = size;
    return *this;
}

void QuillonBuilder::Settle() {
    std::uint64_t offset = headerSize_;
    for (const std::string& name : channels_) {
        const auto section = file_.Root()->GetChild(name);
        if (!section || !section->HasKey("Data offset")) {
            continue;
        }
        section->SetValue("Data offset", std::to_string(offset));
        std::int32_t length = 0;
        section->GetValue("Data length", length);
        offset += static_cast<std::uint32_t>(length);
    }
    const auto fileSection = file_.Root()->GetChild(kFileList);
    if (fileSection && fileSection->HasKey("Data length")) {
        fileSection->SetValue("Data length", static_cast<std::int32_t>(headerSize_));
    }
}

Orx::DataCore::DataContainerPtr QuillonBuilder::Root() {
    Settle();
    return file_.Root();
}

std::vector<std::uint8_t> QuillonBuilder::Bytes() {
    if (headerSize_ != 0) {
        Settle();
        return file_.Bytes();
    }
    // The smallest header of whole kilobytes that holds the keys.
    for (headerSize_ = 1024;; headerSize_ += 1024) {
        Settle();
        try {
            std::vector<std::uint8_t> bytes = file_.Bytes();
            headerSize_ = 0;
            return bytes;
        } catch (const Orx::DataCore::ContainerFormatError&) {
            if (headerSize_ >= kHeaderSize) {
                throw;
            }
        }
    }
}

void QuillonBuilder::Write(const std::string& path) {
    const std::vector<std::uint8_t> bytes = Bytes();
    Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
}

}  // namespace SampleKit
