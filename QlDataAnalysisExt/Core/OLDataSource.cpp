#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include "Platform/DataCore/HarlenDataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "Platform/FileSystem.h"

#include <utility>

OLDataSource::OLDataSource(DataFilePtr file, ICreateColorTableCallback* callback)
    : dataFile(std::move(file)), colorTableCallback(callback) {}

OLDataSource::OLDataSource() = default;

// The data file is not closed here and the callback is not freed: both belong
// to whoever made them.
OLDataSource::~OLDataSource() = default;

const OLDataItem& OLDataSource::readItem(unsigned channel) const {
    static const OLDataItem neutral;
    return channel < items.size() ? items[channel] : neutral;
}

OLDataItem* OLDataSource::writeItem(unsigned channel) { return channel < items.size() ? &items[channel] : nullptr; }

bool OLDataSource::validChannel(unsigned channel) const {
    return static_cast<int>(channel) < numberOfChannels && channel < items.size() &&
           channel <= static_cast<unsigned>(INT32_MAX);
}

void OLDataSource::SetFileTitleFromPath() {
    const auto parts = Orx::Core::SplitPath(filePath);
    fileTitle = parts.fname.substr(0, 256) + parts.ext.substr(0, 256);
}

// ---- lifetime and file ------------------------------------------------------

bool OLDataSource::IsOpen() const { return opened && !items.empty(); }

bool OLDataSource::Save(bool flag) { return SaveAs(GetFilePath(), flag); }

bool OLDataSource::Close() {
    if (!dataFile) {
        return false;
    }
    // Closing discards changes: the modified mark is cleared first, so that a
    // close after a save never writes twice.
    if (auto* q = dynamic_cast<Orx::DataCore::QuillonDataFile*>(dataFile.get())) {
        q->SetContentModified(false);
        q->Close();
    } else if (auto* h = dynamic_cast<Orx::DataCore::HarlenDataFile*>(dataFile.get())) {
        h->SetContentModified(false);
        h->Close();
    }
    return true;
}

std::string OLDataSource::GetFilePath() const { return filePath; }
std::string OLDataSource::GetFileTitle() const { return fileTitle; }
OLDateTime OLDataSource::GetDateTime() const { return {}; }
std::string OLDataSource::GetDate() const { return date; }

// ---- counts and file kind --------------------------------------------------

int OLDataSource::GetNumberOfChannels() const { return numberOfChannels; }
int OLDataSource::GetImportType() const { return importType; }
bool OLDataSource::IsImageFile() const { return false; }
bool OLDataSource::IsForceFile() const { return false; }
bool OLDataSource::IsForceVolumeFile() const { return false; }
bool OLDataSource::IsHsdcFile() const { return false; }
bool OLDataSource::IsScriptFile() const { return false; }
bool OLDataSource::IsTimedFile() const { return false; }
bool OLDataSource::IsTimedForceFile() const { return false; }
bool OLDataSource::IsHarlenFile() const { return false; }
bool OLDataSource::IsEcStmFile() const { return false; }
bool OLDataSource::IsEcAfmFile() const { return false; }
bool OLDataSource::IsEcForceFile() const { return false; }
bool OLDataSource::IsEcFile() const { return false; }
void OLDataSource::SetNumberOfChannels(int count) { numberOfChannels = count; }
int OLDataSource::GetNumberOfDisplayChannels() const { return numberOfDisplayChannels; }
void OLDataSource::SetNumberOfDisplayChannels(int count) { numberOfDisplayChannels = count; }

// ---- channel data and geometry ------------------------------------------------

OLDataItem* OLDataSource::GetDataItem(unsigned channel) { return writeItem(channel); }
std::int32_t* OLDataSource::GetData(unsigned channel) const { return readItem(channel).GetData(); }

void OLDataSource::SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns,
                           std::uint64_t) {
    if (auto* item = writeItem(channel)) {
        item->SetData(samples, rows * columns);
    }
}

int OLDataSource::GetBitsPerPixel(unsigned) const { return 16; }
std::uint32_t OLDataSource::GetNumberOfLines(unsigned channel) const { return readItem(channel).GetNumberOfLines(); }
int OLDataSource::GetImageLines() const { return imageLines; }
int OLDataSource::GetOriginalLines() const { return imageLinesSet; }
std::uint32_t OLDataSource::GetSamplesPerLine(unsigned channel) const { return readItem(channel).GetSamplesPerLine(); }
int OLDataSource::GetImageSamplesPerLine() const { return imageSamples; }
std::uint32_t OLDataSource::GetDataBufferSize(unsigned channel) const { return readItem(channel).GetDataSize(); }

// ---- scan record ---------------------------------------------------------------

UValue OLDataSource::GetScanSize() const { return scanSize; }
UValue OLDataSource::GetScanRate() const { return scanRate; }
UValue OLDataSource::GetXOffset() const { return xOffset; }
UValue OLDataSource::GetYOffset() const { return yOffset; }

void OLDataSource::SetOffsets(UValue x, UValue y) {
    xOffset = std::move(x);
    yOffset = std::move(y);
    rotationChanged = true;
}

void OLDataSource::SetPixelRange(int x, int y) {
    pixelRangeX = x;
    pixelRangeY = y;
    rotationChanged = true;
}

float OLDataSource::GetAspectRatio() const { return aspectRatio; }
float OLDataSource::GetChannelAspectRatio(unsigned channel) const { return readItem(channel).GetAspectRatio(); }
float OLDataSource::GetZMagnify(unsigned channel) const { return readItem(channel).GetZMagnify(); }

// ---- channel scale forwarders ---------------------------------------------------

double OLDataSource::GetZSensitivitySoftScale(unsigned channel) const {
    return readItem(channel).GetZSensitivitySoftScale();
}
std::string OLDataSource::GetZSensitivityUnits(unsigned channel) const {
    return readItem(channel).GetZSensitivityUnits();
}
std::string OLDataSource::GetZSensitivityName(unsigned channel) const {
    return readItem(channel).GetZSensitivityName();
}

void OLDataSource::SetZSensitivity(unsigned channel, double value, std::string units, bool) {
    if (auto* item = writeItem(channel)) {
        item->SetZSensitivitySoftScale(value);
        item->SetZSensitivityUnits(std::move(units));
    }
}

UValue OLDataSource::GetZRange(unsigned channel, bool soft) const { return readItem(channel).GetZRange(soft); }
double OLDataSource::RawToValue(unsigned channel, std::int64_t raw, bool soft) const {
    return readItem(channel).RawToValue(raw, soft);
}
double OLDataSource::PhysicalValueOfRaw(unsigned channel, std::int64_t raw) const {
    return readItem(channel).RawToValue(raw, IsMetric());
}
std::int64_t OLDataSource::RawOfPhysicalValue(unsigned channel, double value) const {
    return readItem(channel).ValueToRaw(value, IsMetric());
}
std::int64_t OLDataSource::GetZOffset(unsigned channel) const { return readItem(channel).GetZOffset(); }
void OLDataSource::SetZOffset(unsigned channel, std::int64_t offset) {
    if (auto* item = writeItem(channel)) {
        item->SetZOffset(offset);
    }
}
float OLDataSource::GetDisplayZScale(unsigned channel) const {
    return IsMetric() ? GetZScaleInSwUnits(channel) : GetZScaleInHwUnits(channel);
}
float OLDataSource::GetZScaleInSwUnits(unsigned channel) const { return readItem(channel).GetZScaleInSwUnits(); }
float OLDataSource::GetZScaleInHwUnits(unsigned channel) const { return readItem(channel).GetZScaleInHwUnits(); }
float OLDataSource::GetScalingFactor(unsigned channel) const { return readItem(channel).GetScalingFactor(); }
std::string OLDataSource::GetDataScaleName(unsigned channel) const { return readItem(channel).GetDataScaleName(); }
float OLDataSource::GetChannelRotateAngle(unsigned channel) const { return readItem(channel).GetRotateAngle(); }
UValue OLDataSource::GetDataScale(unsigned channel, bool soft) const { return readItem(channel).GetDataScale(soft); }

// ---- setters of scale and geometry ----------------------------------------------

void OLDataSource::SetScanSize(unsigned channel, UValue size) {
    scanSize = size;
    if (auto* item = writeItem(channel)) {
        item->SetScanSize(std::move(size));
    }
}

void OLDataSource::SetScanSizeOfChannel(unsigned channel, UValue size) {
    scanSizeY = size;
    if (auto* item = writeItem(channel)) {
        item->SetScanSizeY(std::move(size));
    }
}

void OLDataSource::SetImageLines(int lines) {
    imageLines = lines;
    linesChanged = true;
}

void OLDataSource::SetChannelLines(unsigned channel, std::uint32_t lines) {
    if (auto* item = writeItem(channel)) {
        item->SetNumberOfLines(lines);
        channelLinesChanged = true;
    }
}

void OLDataSource::SetImageSamples(int samples) {
    imageSamples = samples;
    samplesChanged = true;
}

void OLDataSource::SetChannelSamples(unsigned channel, std::uint32_t samples) {
    if (auto* item = writeItem(channel)) {
        item->SetSamplesPerLine(samples);
        channelSamplesChanged = true;
    }
}

void OLDataSource::SetRotateAngle(float angle) {
    rotateAngle = angle;
    rotationChanged = true;
}

void OLDataSource::SetChannelAspectRatio(unsigned channel, float ratio) {
    if (auto* item = writeItem(channel)) {
        item->SetAspectRatio(ratio);
    }
}

// The marks say that the valid window of a channel was changed along X
// (samples) or Y (lines); saving writes the new lengths.
void OLDataSource::SetChannelSamplesPerLineMark(unsigned channel, bool mark) {
    if (auto* item = writeItem(channel)) {
        item->SetWasFlag(mark);
    }
}

void OLDataSource::SetChannelLinesMark(unsigned channel, bool mark) {
    if (auto* item = writeItem(channel)) {
        item->SetFlag4(mark);
    }
}
