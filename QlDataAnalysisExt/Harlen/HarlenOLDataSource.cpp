#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"

#include <algorithm>
#include <boost/format.hpp>
#include <utility>

#include "Platform/DataCore/HarlenDataFile.h"
#include "Platform/Logger.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/FileAccess/ValueStrings.h"
#include "QlDataAnalysisExt/Harlen/HarlenValueTexts.h"

using Orx::DataCore::ParameterRead;
using namespace HarlenValueTexts;

namespace {

// Also the words for a force file whose labels are not 8 or 16, although such
// a file need not have that section.
const char* const kNoDataVersion = "HarlenOLDataSource::Initialize failed to open get [Data Version]";

}  // namespace

HarlenOLDataSource::HarlenOLDataSource(DataFilePtr file, ICreateColorTableCallback* callback)
    : OLDataSource(std::move(file), callback) {}

HarlenOLDataSource::~HarlenOLDataSource() = default;

bool HarlenOLDataSource::IsImageFile() const { return fileSubType == "IMAGE"; }
bool HarlenOLDataSource::IsForceFile() const { return fileSubType == "FORCE"; }
bool HarlenOLDataSource::IsHarlenFile() const { return true; }

OLDateTime HarlenOLDataSource::GetDateTime() const { return ParseDateTime(date); }

DataContainerPtr HarlenOLDataSource::section(const std::string& name) const {
    return dataFile ? dataFile->GetContainer({name}) : nullptr;
}

bool HarlenOLDataSource::isHarlenDataFile(const DataFilePtr& file) {
    return dynamic_cast<const Orx::DataCore::HarlenDataFile*>(file.get()) != nullptr;
}

void HarlenOLDataSource::logFailure(int severity, const std::string& text) {
    Orx::Core::LogManager::Instance().GetLogger("DataAnalysis.HarlenOLDataSource")->Log(severity, text);
}

void HarlenOLDataSource::setUnitSystem(const std::string& text) {
    units = text;
    unitDisplay = text;
}

bool HarlenOLDataSource::readOffset(const DataContainerPtr& container, const std::string& key) {
    std::int32_t offset = 0;
    if (!container || !container->GetValue(key, offset)) {
        return false;
    }
    // The file holds the offset as a 32-bit word.
    dataOffset = static_cast<std::uint32_t>(offset);
    return true;
}

void HarlenOLDataSource::Initialize() {
    opened = false;
    if (!dataFile || !dataFile->IsOpen()) {
        logFailure(2, "HarlenOLDataSource::Initialize failed to open file");
        return;
    }
    filePath = dataFile->GetFileName();
    SetFileTitleFromPath();
    hasSixteenLabels = false;
    if (!readOverview()) {
        return;
    }

    OLDataItemLoadRecord record;
    ImageTexts texts;
    const bool force = fileSubType == "FORCE";
    if (fileSubType == "IMAGE" && !readDataParameters(record, texts)) {
        return;
    }
    if (force) {
        readSpectroscopy(record);
    }

    xOffset = UValue();
    yOffset = UValue();
    xRound = 0.0;
    record.zOffset = 0;
    record.inputOffset = 0.0f;
    record.magnify = 1.0f;
    record.softScale = 1.0f;
    record.hardScale = 1.0f;
    record.range = 1.0f;

    applyZTransfer(record, texts);

    // A file of no known subtype is read as an image.
    if (force ? !makeCurveItems(record) : !makeImageItem(record, texts)) {
        return;
    }
    dataFile->Close();
}

bool HarlenOLDataSource::readOverview() {
    numberOfChannels = 1;
    const auto overview = section("HarlenFileOverviewInfo");
    if (overview) {
        ParameterRead(overview, "FileSubType", fileSubType);
        overview->GetValue("NumberOfDataPlists", numberOfChannels);
    }
    numberOfDisplayChannels = numberOfChannels;
    if (!overview) {
        return true;
    }

    if (fileSubType == "IMAGE") {
        const auto version = section("[Data Version]");
        if (!version) {
            logFailure(2, kNoDataVersion);
            return false;
        }
        std::string program, versionText;
        ParameterRead(version, "Program", program);
        ParameterRead(version, "Version", versionText);
        // Any version of the instrument's own program writes a readable file.
        if (program != "Harlen") {
            logFailure(2, (boost::format("HarlenOLDataSource::Initialize invalid program or version: %s %s") % program %
                           versionText)
                              .str());
            return false;
        }
    } else if (fileSubType == "FORCE") {
        ParameterRead(overview, "ForceCurveDataLabels", forceLabelsText);
        readOffset(overview, "DataOffset");
        forceLabels = forceLabelsText.empty() ? std::vector<std::string>() : SplitAtCommas(forceLabelsText);
        if (forceLabels.size() != 8 && forceLabels.size() != 16) {
            logFailure(2, kNoDataVersion);
            return false;
        }
        hasSixteenLabels = forceLabels.size() == 16;
    }
    return true;
}

void HarlenOLDataSource::applyZTransfer(OLDataItemLoadRecord& record, const ImageTexts& texts) {
    double number = 1.0;
    ReadNumber(TextBefore(texts.zTransferCoefficient, " "), number);

    // The units of the coefficient: sensitivity over data.
    std::string sensitivityUnit, dataUnit;
    if (!texts.zUnit.empty()) {
        sensitivityUnit = TextBefore(texts.zUnit, "/");
        dataUnit = TextBehind(texts.zUnit, "/");
    } else {
        zTransferUnit = TextBehind(texts.zTransferCoefficient, " ");
        sensitivityUnit = StandardUnitName(TextBefore(zTransferUnit, "/"));
        dataUnit = TextBehind(zTransferUnit, "/");
    }
    zTransferUnit = sensitivityUnit + "/" + dataUnit;

    const std::string sensitivityName = QlValueStrings::NormalizeUnit(sensitivityUnit);
    if (fileSubType != "FORCE") {
        record.sensitivity = number;
        record.sensitivityUnit = sensitivityName;
        setUnitSystem("Metric");
    }
    record.softUnit = QlValueStrings::NormalizeUnit(dataUnit);
    dataRange = UValue(number, sensitivityName);
    record.frameLeft = 0;
    record.frameTop = 0;
    record.frameWidth = static_cast<std::uint32_t>(std::max(texts.resolutionX, 0));
    record.frameHeight = static_cast<std::uint32_t>(std::max(texts.resolutionY, 0));
    record.units = units;
}
