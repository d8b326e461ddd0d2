// The channel loop: each section named in "DataPlistNames" becomes one item,
// through a load record filled by the kind of the channel.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include <cstdint>
#include <limits>

namespace {

constexpr std::uint32_t kFirst32BitVersion = 0x09020000;
constexpr std::uint32_t kFirstTrueAspectVersion = 0x06000000;
// The one old release whose files hold a true aspect ratio.
constexpr std::uint32_t kTrueAspectOldVersion = 0x04240000;

float RatioOf(std::uint32_t columns, std::uint32_t rows) {
    return rows != 0 ? static_cast<float>(columns) / static_cast<float>(rows) : 1.0f;
}

}  // namespace

QlOLDataSource::ChannelKind QlOLDataSource::channelKind(const std::string& plistName) const {
    const int plistClass = QlValueStrings::ClassifyPlistName(plistName);
    if (subtypeIsOneOf({"FORCE", "SCRIPT", "TIMED_FORCE", "ECFORCE"}) || (subtypeIs("FVOL") && plistClass == 2)) {
        return ChannelKind::Force;
    }
    if (subtypeIsOneOf({"IMAGE", "TIMED"}) || (subtypeIs("FVOL") && plistClass == 1)) {
        return ChannelKind::Image;
    }
    if (isElectrochemistry()) {
        return QlValueStrings::IsImageListName(plistName) ? ChannelKind::Image : ChannelKind::Electrochemistry;
    }
    return subtypeIs("HSDC") ? ChannelKind::HighSpeed : ChannelKind::Other;
}

bool QlOLDataSource::readChannel(unsigned channel) {
    // A count above the names it gives is a section that cannot be opened.
    const std::string name = channel < dataListNames.size() ? dataListNames[channel] : std::string();
    const QlSectionReader s(channel < dataListNames.size() ? dataFile->GetContainer({name}) : nullptr);
    if (!s) {
        fail("QlOLDataSource::Initialize failed to open get dataItemName");
        return false;
    }

    OLDataItemLoadRecord r;
    r.tipRadius = tipRadius;
    r.tipHalfAngle = tipHalfAngle;
    r.samplePoissonRatio = poissonRatio;
    r.plistName = name;
    std::string offset;
    s.Read("Data offset", offset);
    // 64 bits, so that files beyond 2 GB keep their offsets.
    r.dataOffset = static_cast<std::uint64_t>(QlSectionReader::AtoI64(offset));
    std::int32_t length = 0;
    if (s.Read("Data length", length)) {
        r.dataLength = static_cast<std::uint32_t>(length);
        r.pointsPerCurve = r.dataLength;
    }
    r.scaleBits = fileVersion >= kFirst32BitVersion ? 32 : 16;
    std::int32_t bytesPerPixel = 2;
    s.Read("Bytes/pixel", bytesPerPixel);
    r.bitsPerPixel = bytesPerPixel > 0 ? static_cast<std::uint32_t>(bytesPerPixel) * 8u : 16u;
    r.rows = 1;

    const ChannelKind kind = channelKind(name);
    const int plistClass = QlValueStrings::ClassifyPlistName(name);
    bool repair = false;
    switch (kind) {
        case ChannelKind::HighSpeed: readHighSpeedChannel(s, r); break;
        case ChannelKind::Force: readForceChannel(s, r, plistClass); break;
        case ChannelKind::Image: readImageChannel(s, r, repair); break;
        case ChannelKind::Electrochemistry: readEcChannel(s, r); break;
        case ChannelKind::Other: break;
    }
    hadInvalidDataFlag.push_back(s.Has("Invalid Data Flag"));

    if (kind != ChannelKind::HighSpeed) {
        readCommonContinuation(s, r);
        if (!readDataName(s, r, kind, plistClass)) {
            return false;
        }
        readZScale(s, r);
    }

    OLDataItem item;
    readCommonEnd(s, r, item);
    if (fileVersion < kFirstTrueAspectVersion && fileVersion != kTrueAspectOldVersion &&
        recomputesAspectRatio(name)) {
        r.aspectRatio = RatioOf(r.columns, r.rows);
    }
    item.SetFromLoadRecord(r);
    appendItem(item);
    if (repair) {
        RepairInvalidSamples(items.back());
    }
    return true;
}

bool QlOLDataSource::recomputesAspectRatio(const std::string& plistName) const {
    // Every subtype but the electrochemical ones, and their image lists.
    return !isElectrochemistry() || QlValueStrings::IsImageListName(plistName);
}

void QlOLDataSource::readForceChannel(const QlSectionReader& s, OLDataItemLoadRecord& r, int plistClass) {
    if (subtypeIs("FVOL") && plistClass == 2) {
        r.forceFlag = true;
        readColorSettings(s, r, false);
    }
    int retrace = static_cast<int>(r.retracePoints);
    int trace = static_cast<int>(r.tracePoints);
    QlSectionReader::ScanPair(s.Text("Samps/line"), retrace, trace);
    r.retracePoints = static_cast<std::uint32_t>(retrace);
    r.tracePoints = static_cast<std::uint32_t>(trace);
    // A curve is both halves and its hold section; wrapping as the counts of the file do.
    r.columns = 2u * static_cast<std::uint32_t>(retrace) + static_cast<std::uint32_t>(holdPoints);

    r.forcePhaseOffset = 0.0;
    s.Read("Force Phase Offset", r.forcePhaseOffset);
    s.Read("Ave points", r.avePoints);
    s.Read("Effective BW", r.effectiveBw);
    // One spring constant serves all channels: the first channel to carry one gives it.
    if (springConstant == 0.0) {
        if (s.Has("Spring Constant")) {
            s.Read("Spring Constant", springConstant);
        } else if (s.Has("Spring constant")) {
            std::string text;
            s.Read("Spring constant", text);
            if (!text.empty()) {
                springConstant = QlSectionReader::AtoF(text);
            }
        }
    }
    r.invert = s.Text("Invert");
    r.forceDisplayMode = s.Text("Force display mode");
    r.xDataType = s.Text("X Data Type");

    r.forceZOffset = readScaleGroup(s.Text("@4:Z offset"));
    r.rampBegin = readScaleGroup(s.Text("@4:Ramp Begin"));
    r.rampEnd = readScaleGroup(s.Text("@4:Ramp End"));
    r.zScanSize = readScaleGroup(s.Text("@Z scan size"));
    std::string rampSize;
    if (!s.Text("@4:Ramp Size", rampSize)) {
        s.Text("@4:Ramp size", rampSize);
    }
    r.rampSize = readScaleGroup(rampSize);
    rampSizeText = rampSize;

    const std::string fvScale = s.Text("@4:FV scale");
    r.secondScale = readScaleGroup(fvScale);
    r.secondScaleFactor = QlValueStrings::ParseRatio(fvScale) * (r.bitsPerPixel == 16 ? 65536.0 : 1.0);
    std::string display;
    if (!s.Text("@4:Z Display", display)) {
        s.Text("@4:Z display", display);
    }
    r.thirdScale = readScaleGroup(display);
    r.rows = 1;
}

void QlOLDataSource::readImageChannel(const QlSectionReader& s, OLDataItemLoadRecord& r, bool& repair) {
    std::int32_t samples = 0;
    s.Read("Samps/line", samples);
    std::int32_t rows = static_cast<std::int32_t>(r.rows);
    if (samples == 0 && s.Has("Samps/line")) {
        // The older form: samples and lines in one text.
        int lines = 0;
        QlSectionReader::ScanPair(s.Text("Samps/line"), samples, lines);
        rows = lines;
        s.Read("Number of lines", rows);
    } else if (s.Has("Number of lines")) {
        s.Read("Number of lines", rows);
    } else {
        rows = imageLines;
    }
    r.rows = static_cast<std::uint32_t>(rows);
    r.scanLines = static_cast<std::uint32_t>(imageLines);
    r.columns = static_cast<std::uint32_t>(samples);

    if (!s.Has("Aspect Ratio") && !s.Has("Aspect ratio")) {
        r.aspectRatio = RatioOf(r.columns, r.rows);
    } else {
        r.aspectRatio = QlValueStrings::ParseAspectRatio(s.FirstExisting({"Aspect Ratio", "Aspect ratio"}));
    }
    if (subtypeIs("TIMED")) {
        r.columns = r.dataLength / 2;
    }
    r.scanSize = QlValueStrings::ParseScanSize(s.FirstExisting({"Scan Size", "Scan size"}));
    readColorSettings(s, r, true);

    r.invalidFlag = 0;
    r.invalidFill = "None";
    std::string flag;
    if (s.Text("Invalid Data Flag", flag) && flag.find("None") == std::string::npos) {
        repair = true;
        r.invalidFlag = static_cast<std::uint32_t>(QlSectionReader::AtoI(flag));
        // What a save puts back where the samples were invalid.
        bool hasFill = false;
        const std::string fill = s.FirstExisting({"Invalid Data Fill"}, &hasFill);
        r.invalidFill = hasFill ? fill : "Fill";
    }
}

void QlOLDataSource::readColorSettings(const QlSectionReader& s, OLDataItemLoadRecord& r, bool load) {
    ICreateColorTableCallback* callback = GetColorTableCallback();
    if (!callback) {
        return;
    }
    // The host is asked in a fixed order: default index, whether to skip the
    // file's settings, then its two further answers.
    r.color.index = callback->DefaultColorTableIndex();
    const bool skip = callback->SkipColorTables();
    if (!skip) {
        s.Read("Color Table Index", r.color.index);
    }
    if (!load) {
        return;
    }
    if (!skip) {
        ReadColorTable(s.Section(), r.color);
    }
    r.colorFlag1 = callback->ReservedTest1();
    r.colorFlag2 = callback->ReservedTest2();
}

void QlOLDataSource::readEcChannel(const QlSectionReader& s, OLDataItemLoadRecord& r) {
    r.ecFunction = s.FirstExisting({"Temporal function", "Voltam function"});
    s.Read("Temporal time range", temporalTimeRange);
    s.Read("Temporal time start", temporalTimeStart);
    s.Read("Temporal time end", temporalTimeEnd);
    s.Read("Temporal volt range", temporalVoltRange);
    // The range is the third word of its text.
    static const QlSectionReader::Field<OLDataSource, double> kRanges[] = {
        {"Temporal current range", &QlOLDataSource::temporalCurrentRange},
        {"Voltam current range", &QlOLDataSource::voltamCurrentRange},
    };
    for (const auto& range : kRanges) {
        std::string text;
        if (!s.Text(range.key, text)) {
            continue;
        }
        const std::vector<std::string_view> pieces = QlValueStrings::BlankSeparatedPieces(text);
        if (pieces.size() > 2) {
            this->*range.target = 0.0;
            QlValueStrings::ReadNumber(pieces[2], this->*range.target);
        }
    }
}

void QlOLDataSource::readCommonContinuation(const QlSectionReader& s, OLDataItemLoadRecord& r) {
    if (r.scanSize.GetValue() == 0.0 && r.columns != 0) {
        r.scanSize = ValueIn(r.columns, "Arb");
    }
    r.rotateAngle = rotateAngle;
    r.validStartX = static_cast<std::uint32_t>(QlSectionReader::AtoI(s.Text("Valid data start X")));
    r.validStartY = static_cast<std::uint32_t>(QlSectionReader::AtoI(s.Text("Valid data start Y")));
    std::int32_t length = static_cast<std::int32_t>(r.columns);
    s.Read("Valid data len X", length);
    r.validLenX = static_cast<std::uint32_t>(length);
    length = static_cast<std::int32_t>(r.rows);
    s.Read("Valid data len Y", length);
    r.validLenY = static_cast<std::uint32_t>(length);
    r.magnifyText = s.Text("@Z magnify");
    r.magnify = QlValueStrings::ParseMagnify(r.magnifyText);
}

bool QlOLDataSource::readDataName(const QlSectionReader& s, OLDataItemLoadRecord& r, ChannelKind kind,
                                  int plistClass) {
    bool found = false;
    std::string text;
    if (kind == ChannelKind::Image || (subtypeIs("FVOL") && plistClass == 3)) {
        text = s.FirstExisting({"@2:Image Data", "@3:Image Data", "Image data"}, &found);
    } else if (kind == ChannelKind::Force) {
        found = s.Text("@4:Image Data", text);
    } else if (kind == ChannelKind::Electrochemistry) {
        found = s.Text("Data type", text);
    }
    if (!found) {
        // Electrochemistry files go on with an unnamed channel.
        if (isElectrochemistry()) {
            return true;
        }
        fail("QlOLDataSource::Initialize failed to open. Failed to get Image Data tag");
        return false;
    }
    r.dataName = QlValueStrings::ParseQuotedText(text);
    std::string description;
    r.dataTypeDesc = importType > 0 && s.Text("Data Type Description", description) ? description : r.dataName;
    return true;
}

void QlOLDataSource::readCommonEnd(const QlSectionReader& s, OLDataItemLoadRecord& r, OLDataItem& item) {
    s.Read("Note", r.note);
    r.units = units;
    const QlValueStrings::PlaneFit fit = QlValueStrings::ParsePlaneFit(s.Text("Plane fit"));
    r.planefit = PlaneFitSettings{fit.a, fit.b, fit.c, fit.order};
    if (r.bitsPerPixel == 16) {
        // Coefficients of 16-bit files are in 16-bit sample units.
        for (double* coefficient : {&r.planefit.a, &r.planefit.b, &r.planefit.c}) {
            *coefficient = Orx::DataCore::QuillonDataFile::Convert16BitTo32Bit(TruncateToInt32(*coefficient));
        }
    }
    s.Read("Frame direction", r.frameDirection);
    s.Read("Capture start line", r.captureStartLine);

    const auto samples = s.Section()->GetRawData("RawData");
    if (!samples || samples->size1() == 0 || samples->size2() == 0) {
        return;
    }
    const std::size_t rows = samples->size1();
    const std::size_t columns = samples->size2();
    if (rows > std::numeric_limits<std::uint32_t>::max() / columns) {
        return;  // more samples than an item can count
    }
    item.SetData(samples->data().data(), static_cast<std::uint32_t>(rows * columns));
    // The matrix that the file holds is the truth about the channel's shape.
    if (rows != r.rows || static_cast<int>(rows) != imageLines) {
        r.rows = static_cast<std::uint32_t>(rows);
        imageLines = static_cast<int>(rows);
    }
    if (columns != r.columns || static_cast<int>(columns) != imageSamples) {
        r.columns = static_cast<std::uint32_t>(columns);
        imageSamples = static_cast<int>(columns);
    }
}
