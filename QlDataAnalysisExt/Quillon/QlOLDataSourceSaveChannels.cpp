// Each item written back into its channel section: where its samples lie,
// what kind of channel it is, its scales, texts, colour and sensitivity.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/Quillon/QlScaleTexts.h"
#include "QlDataAnalysisExt/Quillon/QlSectionWriter.h"

void QlOLDataSource::writeChannel(const DataFilePtr& file, unsigned channel, bool largeHeader) {
    const OLDataItem& item = items[channel];
    const std::string name = item.GetPlistName();
    const QlSectionWriter section(file->GetContainer({name}), name);

    section.Set("Data length", static_cast<std::int32_t>(item.GetDataLength()));
    section.Set("Data offset", std::to_string(static_cast<long long>(item.GetDataOffset())));
    section.Set("Bytes/pixel", static_cast<std::int32_t>(item.GetFileBytesPerPixel()));

    const bool image = subtypeIsOneOf({"IMAGE", "ECAFM"}) ||
                       (subtypeIs("FVOL") && name.find("Dulce image list") != std::string::npos);
    const bool force = subtypeIsOneOf({"FORCE", "SCRIPT", "TIMED_FORCE", "ECFORCE"}) || (subtypeIs("FVOL") && !image);
    if (force) {
        writeForceChannel(section, item);
    } else if (image) {
        writeImageChannel(file, section, channel);
    }

    // The repair has nothing left to do once the invalid samples are gone.
    if (channel < hadInvalidDataFlag.size() && hadInvalidDataFlag[channel] && item.InvalidPoints().empty()) {
        section.Set("Invalid Data Flag", "None");
    }
    writeChannelScales(section, channel);

    std::int32_t colorTable = 0;
    std::uint32_t value1 = 0, value2 = 0;
    bool colorFlag = false;
    item.GetColorTableSettings(colorTable, value1, value2, colorFlag);
    if (section.Has("Color Table Index")) {
        section.Set("Color Table Index", colorTable);
    } else if (IsQuillonFile(file)) {
        file->AddParm(name, "Color Table Index", std::to_string(colorTable), {});
    }
    // Only the large header has room for the edit points of a colour table.
    if (largeHeader) {
        WriteColorTable(file, section.Section(), channel, name, colorTable);
    }
    writeSensitivity(file, item);
}

void QlOLDataSource::writeForceChannel(const QlSectionWriter& section, const OLDataItem& item) const {
    section.Set("@4:Z scale", item.GetZText());
    section.Set("Ave points", static_cast<std::int32_t>(item.GetAvePoints()));
    section.SetFirst({"Spring Constant", "Spring constant"}, item.GetForceSpringConstant());
    section.Set("Invert", item.GetInvert());
    section.Set("Force display mode", item.GetForceDisplayMode());
    section.Set("X Data Type", item.GetXDataType());
    section.Set("Force Phase Offset", item.GetForcePhaseOffset());
    if (item.GetSamplesWereSet() && item.GetWasFlag()) {
        const int half = curveHalf(item);
        section.Set("Valid data len X", static_cast<std::int32_t>(item.GetSamplesPerLine()));
        section.Set("Samps/line", QlScaleTexts::PairText(half, half));
        section.SetFirst({"@4:Ramp Size", "@4:Ramp size"}, rampSizeText);
    }
}

void QlOLDataSource::writeImageChannel(const DataFilePtr& file, const QlSectionWriter& section,
                                       unsigned channel) const {
    const OLDataItem& item = items[channel];
    if (channel == 0) {
        QlSectionWriter(file->GetContainer({"Scanner list"}), "Scanner list").Set("@Sens. Zsens", sensZSensText);
    }
    section.Set("@2:Z scale", item.GetZText());
    section.Set("@2:Z offset", QlScaleTexts::WithZeroedDigits(item.GetZText()));

    const auto samples = static_cast<std::int32_t>(item.GetSamplesPerLine());
    const auto lines = static_cast<std::int32_t>(item.GetNumberOfLines());
    // The valid window changed as a whole: its lengths are the channel's size.
    if (item.GetWasFlag() && item.GetFlag4()) {
        section.Set("Valid data len X", samples);
        section.Set("Valid data len Y", lines);
    }
    if (item.GetLinesWereSet()) {
        section.Set("Number of lines", lines);
    }
    if (item.GetSamplesWereSet()) {
        if (section.HasIntegerForm("Samps/line")) {
            section.Set("Samps/line", samples);
        } else {
            section.Set("Samps/line", QlScaleTexts::PairText(samples, lines));
        }
    }
    if (item.GetSamplesWereSet() || item.GetLinesWereSet()) {
        writeAspectRatio(section, item.GetAspectRatio());
    }
    // Whole microns, width and height alike, as the instrument writes them.
    const std::int32_t size = TruncateToInt32(InMicrons(item.GetScanSize()).GetValue());
    section.SetFirst({"Scan Size", "Scan size"}, QlScaleTexts::PairText(size, size) + " ~m");
}

void QlOLDataSource::writeChannelScales(const QlSectionWriter& section, unsigned channel) const {
    const OLDataItem& item = items[channel];
    if (subtypeIs("FVOL")) {
        section.Set("@2:Z scale", item.GetZText());
        const std::string display = section.FirstExisting({"@4:Z Display", "@4:Z display"});
        if (!display.empty()) {
            const double value = item.GetThirdScale(false).GetValue();
            section.Set(display, QlScaleTexts::WithSoftValue(section.Text(display), value));
        }
        section.SetFirst({"Spring Constant", "Spring constant"}, item.GetForceSpringConstant());
    }
    section.Set("@Z magnify", item.GetMagnifyText());
    if (section.Has("@2:Z input offset")) {
        const std::string text = section.Text("@2:Z input offset");
        section.Set("@2:Z input offset",
                    QlScaleTexts::WithInputOffset(text, item.GetInputOffset(), item.GetDataScaleName()));
    }
    section.Set("Note", item.GetNote());
}

void QlOLDataSource::writeSensitivity(const DataFilePtr& file, const OLDataItem& item) const {
    // A channel that never found its sensitivity has none to give the file.
    if (item.GetSensitivityText().empty()) {
        return;
    }
    const std::string key = "@" + item.GetZSensitivityName();
    if (item.GetZSensitivitySection() == "Scanner list") {
        QlSectionWriter(file->GetContainer({"Scanner list"}), "Scanner list").Set(key, item.GetSensitivityText());
    }
    // A force volume keeps its scan list's sensitivities as the instrument wrote them.
    if (!subtypeIs("FVOL")) {
        QlSectionWriter(file->GetContainer({"Dulce scan list"}), "Dulce scan list").Set(key, item.GetSensitivityText());
    }
}
