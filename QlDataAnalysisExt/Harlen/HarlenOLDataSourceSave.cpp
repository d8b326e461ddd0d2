// Writing a Harlen image back. The saving frame of the base has copied every
// section of the source's file into the new one; this writes over it what a
// host may have changed: sizes, scan ranges, the Z transfer, the colour table
// and the samples.

#include <algorithm>
#include <boost/format.hpp>
#include <locale>

#include "Platform/DataCore/HarlenDataFile.h"
#include "QlDataAnalysisExt/Harlen/HarlenNumbers.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"

using Orx::DataCore::ContainerValue;

namespace {

// Writes a key that the section holds, in the form the file gave it: a count
// stays a count and a text stays a text.
void writeHeld(const DataContainerPtr& section, const std::string& key, const ContainerValue& value) {
    const auto held = section->GetEntry(key);
    if (!held) {
        return;
    }
    const auto converted = value.ConvertedTo(held->GetKind());
    section->PutEntry(key, converted ? *converted : value);
}

}  // namespace

bool HarlenOLDataSource::SaveChannelAs(unsigned, const std::string&, bool flag) { return SaveAs(GetFilePath(), flag); }

DataFilePtr HarlenOLDataSource::CreateDataFile(const std::string& path) {
    return Orx::DataCore::DataFile::Open(path, 2, 2, Orx::DataCore::HarlenDataFile::FILE_TYPE, nullptr);
}

void HarlenOLDataSource::WriteChannelHeader(const DataFilePtr& file, const DataContainerPtr& section, unsigned,
                                            const std::string& sectionName, const std::string& key,
                                            const std::string& value, const std::string& followKey) {
    if (section && section->HasKey(key)) {
        writeHeld(section, key, ContainerValue(value));
    } else if (isHarlenDataFile(file)) {
        file->AddParm(sectionName, key, value, followKey);
    }
}

bool HarlenOLDataSource::WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned,
                                          const std::string& sectionName, const std::string& key) {
    if (!section || !section->HasKey(key) || !isHarlenDataFile(file)) {
        return false;
    }
    file->DeleteParm(sectionName, key);
    return true;
}

bool HarlenOLDataSource::WriteDataFile(const DataFilePtr& file, bool) {
    if (!file) {
        return false;
    }
    // A set of curves is written as it was read.
    if (IsImageFile() && !items.empty()) {
        const OLDataItem& item = items.front();
        std::int32_t colorTable = 0;
        std::uint32_t value1 = 0, value2 = 0;
        bool colorFlag = false;
        item.GetColorTableSettings(colorTable, value1, value2, colorFlag);

        if (const auto parameters = file->GetContainer({"[Data Parameters]"})) {
            writeHeld(parameters, "ResolutionX", ContainerValue(static_cast<std::int32_t>(item.GetSamplesPerLine())));
            writeHeld(parameters, "ResolutionY", ContainerValue(static_cast<std::int32_t>(item.GetNumberOfLines())));
            // A range in pixels is the reader's stand-in for one the file did not give.
            if (scanSize.GetUnits()->GetName() != "Arb") {
                writeHeld(parameters, "ScanRangeX", ContainerValue(scanSize));
            }
            if (scanSizeY.GetUnits()->GetName() != "Arb") {
                writeHeld(parameters, "ScanRangeY", ContainerValue(scanSizeY));
            }
            writeHeld(
                parameters, "ZTransferCoefficient",
                ContainerValue((boost::format("%.4f", std::locale::classic()) % item.GetZSensitivitySoftScale()).str() +
                               " " + zTransferUnit));
            // The key follows "Leveling" where the file lacks it, as the instrument orders them.
            WriteChannelHeader(file, parameters, 0, "[Data Parameters]", "Color Table Index",
                               std::to_string(colorTable), "Leveling");
            writeHeld(parameters, "DataOffset", ContainerValue(static_cast<std::int32_t>(dataOffset)));
        }
        if (const auto custom = file->GetContainer({"[Custom Color Table]"})) {
            WriteColorTable(file, custom, 0, "[Custom Color Table]", colorTable);
        }
        if (const auto preProcessing = file->GetContainer({"[PreProcessing]"})) {
            writeHeld(preProcessing, "Leveling", ContainerValue(std::string("None")));
        }
        if (const auto data = file->GetContainer({"[Data]"})) {
            writeSamples(data, item);
        }
    }
    file->SetContentModified(true);
    return true;
}

void HarlenOLDataSource::writeSamples(const DataContainerPtr& data, const OLDataItem& item) const {
    const std::size_t lines = item.GetNumberOfLines();
    const std::size_t samples = item.GetSamplesPerLine();
    auto heights = data->GetFloatMatrix("RawData");
    if (!heights || heights->size1() != lines || heights->size2() != samples) {
        heights = std::make_shared<Orx::DataCore::FloatMatrix>(lines, samples);
    }
    // The file holds the values themselves: each count goes back through the
    // raw offset and the software scale it was read with.
    auto& values = heights->data();
    const std::int32_t* counts = item.GetData();
    const std::size_t available = counts ? std::min<std::size_t>(values.size(), item.GetDataSize()) : 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = i < available ? HarlenNumbers::NarrowToFloat(item.RawToValue(counts[i], true)) : 0.0f;
    }
    data->SetFloatMatrix("RawData", heights);
}
