// Writing a Quillon source back into a file. The saving frame has copied the
// sections of the source's file into the new one, so everything the system
// does not understand is kept; this writes over it what a client may have
// changed, key by key, and never adds a key the instrument did not write
// unless the number or colour keys below need one. Beside the frame: a force
// volume's curves at one position saved as a force file, and one channel
// saved as a file of its own.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/DataCore/DataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "Platform/Logger.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Quillon/QlScaleTexts.h"
#include "QlDataAnalysisExt/Quillon/QlSectionWriter.h"

#include <boost/format.hpp>

#include <algorithm>
#include <cmath>
#include <exception>
#include <locale>

using Orx::DataCore::QuillonDataFile;

namespace {

const char* const kOverview = "QuillonFileOverviewInfo";
const char* const kForceList = "Dulce force list";
const char* const kMicrons = "\xB5m";

}  // namespace

bool QlOLDataSource::IsQuillonFile(const DataFilePtr& file) {
    return dynamic_cast<QuillonDataFile*>(file.get()) != nullptr;
}

void QlOLDataSource::LogOpenFailure() {
    Orx::Core::LogManager::Instance()
        .GetLogger("DataAnalysis.OLDataSource")
        ->Log(2, "OLDataSource::SaveAs DataFile::Open failed");
}

UValue QlOLDataSource::InMicrons(const UValue& size) {
    const std::string& unit = size.GetUnits()->GetName();
    if (unit == "Arb" || unit == kMicrons) {
        return size;
    }
    try {
        return size.ConvertedTo(kMicrons);
    } catch (const Orx::Core::LogicError&) {
        // a size that is no length is written as it stands
        return size;
    }
}

int QlOLDataSource::curveHalf(const OLDataItem& item) const {
    return static_cast<int>((static_cast<long long>(item.GetSamplesPerLine()) - holdPoints) / 2);
}

DataFilePtr QlOLDataSource::CreateDataFile(const std::string& path) {
    return Orx::DataCore::DataFile::Open(path, 2, 2, QuillonDataFile::FILE_TYPE, nullptr);
}

void QlOLDataSource::WriteChannelHeader(const DataFilePtr& file, const DataContainerPtr& section, unsigned,
                                        const std::string& sectionName, const std::string& key,
                                        const std::string& value, const std::string& followKey) {
    if (IsQuillonFile(file) && section && section->HasKey(key)) {
        section->SetValue(key, value);
    } else if (file) {
        file->AddParm(sectionName, key, value, followKey);
    }
}

bool QlOLDataSource::WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned,
                                      const std::string& sectionName, const std::string& key) {
    if (!IsQuillonFile(file)) {
        return false;
    }
    if (section) {
        file->DeleteParm(sectionName, key);
    }
    return true;
}

void QlOLDataSource::writeNumber(const DataFilePtr& file, const std::string& sectionName, const std::string& key,
                                 double value) const {
    const DataContainerPtr section = file ? file->GetContainer({sectionName}) : nullptr;
    if (!section) {
        return;
    }
    if (section->HasKey(key)) {
        if (dataFile) {
            section->SetValue(key, value);
        }
    } else if (IsQuillonFile(file)) {
        file->AddParm(sectionName, key, QlScaleTexts::ExactNumber(value), {});
    }
}

void QlOLDataSource::writeAspectRatio(const QlSectionWriter& section, float ratio) const {
    for (const char* key : {"Aspect Ratio", "Aspect ratio"}) {
        if (!section.Has(key) || QlValueStrings::ParseAspectRatio(section.Text(key)) == ratio) {
            continue;
        }
        if (ratio == 1.0f) {
            section.Set(key, "1:1");
        } else if (subtypeIsOneOf({"FORCE", "TIMED_FORCE", "SCRIPT"})) {
            // These files keep the exponent that the reader raises 2 to.
            if (ratio > 0.0f) {
                section.Set(key, std::log2(ratio));
            }
        } else {
            section.Set(key, ratio);
        }
    }
}

void QlOLDataSource::writeForceSection(const DataFilePtr& file) const {
    const QlSectionWriter force(file->GetContainer({kForceList}), kForceList);
    if (subtypeIsOneOf({"FORCE", "FVOL", "TIMED_FORCE", "ECFORCE"})) {
        force.Set("Unit display", unitDisplay);
        force.Set("Display mode", displayMode);
        // The curves of a force volume are its second channel.
        const std::size_t forceItem = subtypeIs("FVOL") ? 1 : 0;
        if (forceItem < items.size() && items[forceItem].GetSamplesWereSet() && items[forceItem].GetWasFlag()) {
            const int half = curveHalf(items[forceItem]);
            force.Set("Samps/line", QlScaleTexts::PairText(half, half));
            force.Set("Samps/line, retrace", static_cast<std::int32_t>(half));
        }
        force.SetFirst({"Scan Rate", "Scan rate"}, scanRateValue);
        if (subtypeIs("FVOL")) {
            force.Set("Z direction", zDirection);
        }
    }
    if (rotationChanged && IsQuillonFile(file)) {
        file->AddParm(kForceList, "XY Pix", QlScaleTexts::PairText(pixelRangeX, pixelRangeY), {});
    }
}

void QlOLDataSource::writeScanSection(const DataFilePtr& file) const {
    const QlSectionWriter scan(file->GetContainer({scanListName}), scanListName);
    scan.Set("Units", units);
    if (rotationChanged) {
        scan.SetFirst({"X Offset", "X offset"}, xOffset);
        scan.SetFirst({"Y Offset", "Y offset"}, yOffset);
        scan.Set("Rotate Ang.", rotateAngle);
    }
    if (linesChanged && scan.Has("Lines")) {
        scan.Set("Lines", static_cast<std::int32_t>(imageLines));
    }
    if (samplesChanged && scan.HasIntegerForm("Samps/line")) {
        scan.Set("Samps/line", static_cast<std::int32_t>(imageSamples));
    } else if (samplesChanged || linesChanged) {
        scan.Set("Samps/line", QlScaleTexts::PairText(imageSamples, imageLines));
    }
    if (linesChanged) {
        scan.Set("Number of lines", static_cast<std::int32_t>(imageLines));
    }
    if (linesChanged || samplesChanged) {
        writeAspectRatio(scan, aspectRatio);
    }
    scan.SetFirst({"Scan Size", "Scan size"}, InMicrons(scanSize));
    writeNumber(file, scanListName, "Tip Radius", tipRadius);
    writeNumber(file, scanListName, "Sample Poisson's Ratio", poissonRatio);
    writeNumber(file, scanListName, "Tip Half Angle", tipHalfAngle);
    // Only the subtypes that read a sync distance have one to write: another
    // file keeps the value it holds.
    if (subtypeIsOneOf({"FORCE", "FVOL", "HSDC"}) && scan.Has("Sync Distance")) {
        scan.Set("Sync Distance", syncDistance);
        scan.Set("Sync Distance SNT", syncDistance);
    }
}

void QlOLDataSource::writeFileSection(const DataFilePtr& file, std::uint32_t headerSize) {
    const QlSectionWriter fileSection(file->GetContainer({fileSectionName}), fileSectionName);
    // A single image is saved as the one-channel kind it now is.
    if (subtypeIs("IMAGE") && numberOfChannels < 2 && (startContext == "OL2" || startContext == "OL2BIG")) {
        fileSection.Set("Start context", "OL1");
    }
    if (!fileSection) {
        return;
    }
    // "0x0%x" supplies the leading zero of a release below 0x10000000.
    fileSection.Set("Version", (boost::format("0x0%x", std::locale::classic()) % fileVersion).str());
    fileSection.Set("Data length", static_cast<std::int32_t>(headerSize));
    dataLength = headerSize;
}

bool QlOLDataSource::WriteDataFile(const DataFilePtr& file, bool largeHeader) {
    if (!file) {
        return false;
    }
    writeForceSection(file);
    writeScanSection(file);
    const std::uint32_t headerSize = largeHeader ? kLargeHeaderSize : kHeaderSize;
    writeFileSection(file, headerSize);
    // Channels follow the header one after the other.
    std::uint64_t offset = headerSize;
    for (OLDataItem& item : items) {
        item.SetDataOffset(offset);
        offset += item.GetDataLength();
    }
    for (std::size_t channel = 0; channel < items.size(); ++channel) {
        writeChannel(file, static_cast<unsigned>(channel), largeHeader);
    }
    if (IsQuillonFile(file)) {
        file->SetContentModified(true);
    }
    return true;
}

bool QlOLDataSource::saveNewFile(const std::string& path, const char* operation,
                                 const std::function<void(const DataFilePtr&)>& fill) {
    return withFileSamples([&] {
        try {
            // The writers set this source's offsets and lengths for the new
            // file; a file that is not written leaves them as they were.
            return RestoringOnFailure([&] {
                const DataFilePtr file = CreateDataFile(path);
                if (!file || !file->IsOpen()) {
                    LogOpenFailure();
                    return false;
                }
                fill(file);
                file->Close();
                return true;
            });
        } catch (const std::exception& e) {
            Orx::Core::LogManager::Instance()
                .GetLogger("DataAnalysis.QlOLDataSource")
                ->Log(2, std::string(operation) + " failed: " + e.what());
            return false;
        }
    });
}

void QlOLDataSource::writeForceFileHeader(const DataFilePtr& file) const {
    // The file of a force set is a force file: its file sections say so, and
    // it lists the force channels alone.
    QlSectionWriter(file->GetContainer({"Force file list"}), "Force file list").Set("Start context", "FOL");
    QlSectionWriter(file->GetContainer({fileSectionName}), fileSectionName).Set("Start context", "FOL");
    file->DeleteParm(scanListName, "Tip Serial Number");
    std::vector<std::string> forceNames;
    for (std::size_t c = 0; c < items.size(); ++c) {
        const std::string name = items[c].GetPlistName();
        if (QlValueStrings::ClassifyPlistName(name) != 2) {
            continue;
        }
        forceNames.push_back(name);
        const QlSectionWriter section(file->GetContainer({name}), name);
        section.Set("Start context", "FOL");
        file->DeleteParm(name, "Note");
        const std::uint64_t offset = c == 0 ? items[c].GetDataOffset()
                                            : items[c - 1].GetDataOffset() + items[c - 1].GetDataLength();
        section.Set("Data offset", std::to_string(static_cast<long long>(offset)));
        section.Set("Data length", static_cast<std::int32_t>(items[c].GetDataLength()));
    }
    const QlSectionWriter overview(file->GetContainer({kOverview}), kOverview);
    overview.Set("FileSubType", "FORCE");
    overview.Set("DataPlistNames", forceNames);
    overview.Set("NumberOfDataPlists", static_cast<std::int32_t>(forceNames.size()));
}

bool QlOLDataSource::SaveForceCurveSet(unsigned curve, const std::string& path) {
    // A position beyond the volume has no curves to make a file of.
    if (curve >= static_cast<unsigned>(std::max(forcesPerLine, 0))) {
        return false;
    }
    return saveNewFile(path, "QlOLDataSource::SaveForceCurveSet", [&](const DataFilePtr& file) {
        if (dataFile) {
            file->CopyFrom(*dataFile);
        }
        WriteDataFile(file, true);
        writeForceFileHeader(file);
        // The curve at that position of each force channel, with its hold
        // section, as far as the channel's samples reach.
        std::vector<std::int32_t*> buffers;
        std::vector<std::uint32_t> lengths;
        for (std::size_t c = 0; c < items.size(); ++c) {
            const OLDataItem& item = items[c];
            if (QlValueStrings::ClassifyPlistName(item.GetPlistName()) != 2) {
                continue;
            }
            std::int32_t* samples = GetForceVolumeCurveData(static_cast<unsigned>(c), static_cast<int>(curve));
            const std::uint64_t stride =
                static_cast<std::uint64_t>(std::max(holdPoints, 0)) + 2ull * item.GetRetracePoints();
            const std::uint64_t left = samples ? item.GetData() + item.GetDataSize() - samples : 0;
            buffers.push_back(samples);
            lengths.push_back(static_cast<std::uint32_t>(std::min(stride, left)));
        }
        if (auto* quillon = dynamic_cast<QuillonDataFile*>(file.get())) {
            quillon->FlushForceCurve(buffers, lengths);
        }
    });
}

bool QlOLDataSource::SaveChannelAs(unsigned channel, const std::string& path, bool) {
    if (channel >= items.size()) {
        return false;
    }
    return saveNewFile(path, "QlOLDataSource::SaveChannelAs", [&](const DataFilePtr& file) {
        const OLDataItem& item = items[channel];
        const std::string name = item.GetPlistName();
        if (auto* quillon = dynamic_cast<QuillonDataFile*>(file.get()); quillon && dataFile) {
            quillon->CloneChannel({channel}, dataFile->GetRoot());
        }
        if (subtypeIs("IMAGE") && (startContext == "OL2" || startContext == "OL2BIG")) {
            QlSectionWriter(file->GetContainer({fileSectionName}), fileSectionName).Set("Start context", "OL1");
        }
        const DataContainerPtr section = file->GetContainer({name});
        // A transform's result names itself as such in the copy.
        if (item.GetDataName().find("FFT") != std::string::npos) {
            const std::string tag = (boost::format("S [%s] \"%s\"") % item.GetDataName() % item.GetDataName()).str();
            WriteChannelHeader(file, section, channel, name, "@2:Image Data", tag, {});
        }
        QlSectionWriter(section, name).Set("Data offset", std::to_string(static_cast<long long>(item.GetDataOffset())));
    });
}
