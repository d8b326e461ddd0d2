// The force list of the force subtypes, the high-speed list and the
// electrochemistry lists.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

namespace {

using QlValueStrings::Between;


}  // namespace

void QlOLDataSource::readForceList(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    s.Read("Unit display", unitDisplay);
    s.Read("Forward vel.", forwardVelocity);
    s.Read("Reverse vel.", reverseVelocity);
    if (!s.Read("Scan Rate", scanRateValue)) {
        s.Read("Scan rate", scanRateValue);
    }
    s.Read("Display mode", displayMode);
    int samples = 512;
    int trace = 512;
    QlSectionReader::ScanPair(s.Text("Samps/line"), samples, trace);
    forceSamples = samples;
    tracePoints = trace;
    s.Read("Samps/line, retrace", forceSamples);
    s.NumberIfPresent("Hold Samples", holdPoints);
    s.NumberIfPresent("Hold Time", holdTime);
    s.NumberIfPresent("Segment Number", segmentCount);
    // Comma-separated lists, one entry a segment; split where they are read.
    static const QlSectionReader::Field<OLDataSource, std::string> kSegmentLists[] = {
        {"Segment Size", &QlOLDataSource::segmentSizeList},
        {"Segment Samples", &QlOLDataSource::segmentSamplesList},
        {"Segment Duration", &QlOLDataSource::segmentDurationList},
        {"Segment Ramp Type", &QlOLDataSource::segmentRampTypeList},
        {"Segment Ramp Start", &QlOLDataSource::segmentRampStartList},
        {"Segment Ramp Size", &QlOLDataSource::segmentRampSizeList},
        {"Segment Type", &QlOLDataSource::segmentTypeList},
    };
    s.ReadFields(*this, kSegmentLists);

    if (subtypeIs("FVOL")) {
        readTriggerGroup(s);
    }
    readRampGroup(s);
    readSweep(s);
}

void QlOLDataSource::readTriggerGroup(const QlSectionReader& s) {
    std::string holdType;
    std::string triggerMode;
    s.Read("Hold Type", holdType);
    s.Read("Trigger mode", triggerMode);
    const char* key = nullptr;
    if (holdType == "Trigger Force" && triggerMode == "Relative") {
        key = "@4:Trig Threshold Deflection";
    } else if (holdType == "Defined Force") {
        key = "@4:Hold Force Deflection";
    }
    std::string text;
    if (key && s.Text(key, text)) {
        holdForceDeflection = QlValueStrings::ParseSoftFloat(text);
    }
}

void QlOLDataSource::readRampGroup(const QlSectionReader& s) {
    forcesPerLine = 0;
    s.Read("force/line", forcesPerLine);
    forceVolumeForcesPerLine = forcesPerLine;
    rampChannel = Between(s.FirstNonEmpty({"@4:Ramp Channel", "@4:Ramp channel"}), "\"", "\"");
    s.Read("Z direction", zDirection);

    deflectionBaselineFit = "Line Extend";
    baselineStart = 0.0;
    baselineStop = 20.0;
    if (s.Has("Deflection Baseline Fit")) {
        s.Read("Deflection Baseline Fit", deflectionBaselineFit);
    } else if (s.Has("Center plot")) {
        std::string centre;
        s.Read("Center plot", centre);
        deflectionBaselineFit = centre == "Enabled" ? "Offset Retract" : "None";
    }
    std::string text;
    if (s.Read("Baseline Start", text)) {
        baselineStart = QlSectionReader::AtoF(text);
    }
    if (s.Read("Baseline Stop", text)) {
        baselineStop = QlSectionReader::AtoF(text);
    }
}

// A force sweep ramps a frequency; its bounds lie under a key named after the
// swept channel, or under one of the frequency channels that older files name.
void QlOLDataSource::readSweep(const QlSectionReader& s) {
    sweepChannel.clear();
    const std::string text = s.FirstNonEmpty({"@4:Sweep Type", "@4:Sweep channel"});
    if (!text.empty()) {
        sweepChannel = Between(text, "\"", "\"");
    }
    sweepStart = readSweepBound(s, "@4:Sweep Start ");
    sweepEnd = readSweepBound(s, "@4:Sweep End ");
}

UValue QlOLDataSource::readSweepBound(const QlSectionReader& s, const std::string& stem) const {
    std::vector<std::string> keys;
    if (!sweepChannel.empty()) {
        keys.push_back(stem + sweepChannel);
    }
    for (const char* channel : {"DriveFrequency2Ramp", "CantFrequency", "DriveFrequency3NonSoftLyrant"}) {
        keys.push_back(stem + channel);
    }
    for (const std::string& key : keys) {
        std::string text;
        if (s.Text(key, text)) {
            if (!text.empty()) {
                return QlValueStrings::ParseSoftValue(KilohertzSpelled(text), QlValueStrings::kScaledValue);
            }
            break;
        }
    }
    return QlValueStrings::ParsePlainValue("");
}

void QlOLDataSource::readHsdcList(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    if (!s) {
        return;
    }
    hsdcRate = QlValueStrings::ParsePlainValue(s.Text("Hsdc Rate"));
    s.Read("Hsdc Delay", hsdcDelay);
    s.Read("Hsdc Duration", hsdcDuration);
    s.Read("Hsdc X Position", hsdcXPosition);
    s.Read("Hsdc Y Line Number", hsdcYLineNumber);
}

void QlOLDataSource::readEcList(const DataContainerPtr& section) {
    const QlSectionReader s(section);
    if (!s) {
        return;
    }
    ecPotInput = readEcScaledValue(s, "@EC Pot Input");
    ecCurrentInput = readEcScaledValue(s, "@EC Current Input");
    ecPotOutput = readEcScaledOutput(s, "@2:EC Pot Output");
    s.Read("Voltam volt max", voltamVoltMax);
    s.Read("Voltam volt min", voltamVoltMin);
    s.Read("Sample Rate", sampleRate);
    potentiostatElectrodeArea = 0.0;
    s.Read("Potentiostat Electrode Area", potentiostatElectrodeArea);
    if (!subtypeIs("ECSTM")) {
        return;
    }
    s.Read("Tip reference", tipReference);
    s.Read("Ramp electrode", rampElectrode);
    ecTip = readEcScaledValue(s, "@2:EC Tip");
    ecBias = readEcScaledValue(s, "@2:EC Bias");
    tipPotInput = 0.0;
    s.Read("Tip pot input", tipPotInput);
    tipCurrent = 0.0;
    s.Read("Tip current", tipCurrent);
    biasPotInput = 0.0;
    s.Read("Bias pot input", biasPotInput);
    s.Read("Temporal volt function", temporalVoltFunction);
}

UValue QlOLDataSource::readEcScaledOutput(const QlSectionReader& s, const std::string& key) {
    std::string text;
    if (!s.Text(key, text)) {
        return UValue(1.0);
    }
    double number = 0.0;
    QlValueStrings::ReadNumber(QlValueStrings::BeforeFirst(Between(text, "(", ")"), " "), number);
    return ValueIn(number, QlValueStrings::NormalizeUnit(QlValueStrings::AfterLast(text, " ")));
}

UValue QlOLDataSource::readEcScaledValue(const QlSectionReader& s, const std::string& key) const {
    const UValue output = readEcScaledOutput(s, key);
    if (!s.Has(key)) {
        return output;
    }
    const std::string sensitivity = GetSensString(QlValueStrings::ParseBracketName(s.Text(key)));
    double value = QlValueStrings::ParseSensValue(sensitivity);
    std::string unit = QlValueStrings::ParseSensUnit(sensitivity);
    ReadablePressure(value, unit);
    return CombineScales(ValueIn(value, unit), output);
}
