// The operations of the core that shape or find data.

#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include "Platform/DataCore/DataContainer.h"
#include "Platform/DataCore/DataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"

#include <cstdio>
#include <utility>

std::int32_t* OLDataSource::GetForceVolumeCurveData(unsigned channel, int curve) const {
    if (curve < 0 || curve >= forcesPerLine) {
        return nullptr;
    }
    return readItem(channel).GetHoldDataPointer(static_cast<std::uint32_t>(curve),
                                                static_cast<std::uint32_t>(std::max(holdPoints, 0)));
}

std::int32_t* OLDataSource::GetForceVolumeRawCurve(unsigned channel, int curve) const {
    if (curve < 0 || curve >= forcesPerLine) {
        return nullptr;
    }
    const auto& item = readItem(channel);
    std::int32_t* samples = item.GetData();
    if (!samples) {
        return nullptr;
    }
    const std::uint64_t t = 2ull * item.GetTracePoints();
    const std::uint64_t offset = (static_cast<std::uint64_t>(std::max(holdPoints, 0)) + t) * static_cast<std::uint64_t>(curve) + t;
    return offset < item.GetDataSize() ? samples + offset : nullptr;
}

bool OLDataSource::SaveForceCurveSet(unsigned, const std::string&) { return false; }

bool OLDataSource::IsChannelUsed(unsigned channel) const {
    return validChannel(channel) && items[channel].GetDataSize() > 0;
}

int OLDataSource::FindLastChannel() const {
    if (!IsForceVolumeFile()) {
        return -1;
    }
    for (int c = numberOfChannels - 1; c >= 0; --c) {
        if (IsChannelUsed(static_cast<unsigned>(c))) {
            return c;
        }
    }
    return -1;
}

namespace {
int findUsedChannelNamed(const OLDataSource& source, const char* name) {
    if (!source.IsForceVolumeFile()) {
        return -1;
    }
    for (int c = 0; c < source.GetNumberOfChannels(); ++c) {
        const auto channel = static_cast<unsigned>(c);
        if (source.IsChannelUsed(channel) && source.GetDataName(channel) == name) {
            return c;
        }
    }
    return -1;
}
}  // namespace

int OLDataSource::FindHeightSensorChannel() const { return findUsedChannelNamed(*this, "Height Sensor"); }
int OLDataSource::FindAmplitudeChannel() const { return findUsedChannelNamed(*this, "Amplitude"); }

DataContainerPtr OLDataSource::GetParameterList(const std::string& name) {
    DataContainerPtr list;
    if (dataFile) {
        list = dataFile->GetContainer({name}, 0);
    }
    if (!list) {
        list = std::make_shared<Orx::DataCore::DataContainer>(name);
    }
    return list;
}

void OLDataSource::SetRampAxisText(double value) {
    // The ramp size text keeps its form, "... (hard) soft unit": the soft
    // number is replaced.
    std::string text = rampSizeText;
    const auto close = text.find(") ");
    const auto lastBlank = text.rfind(' ');
    char number[64];
    std::snprintf(number, sizeof number, "%g", value);
    std::string formatted;
    if (close != std::string::npos && lastBlank != std::string::npos && lastBlank > close + 1) {
        formatted = text.substr(0, close + 2) + number + text.substr(lastBlank);
    } else {
        formatted = number;
    }
    if (formatted != rampSizeText) {
        rampSizeText = std::move(formatted);
    }
}

// ---- invalid samples ------------------------------------------------------------

const std::vector<std::uint32_t>* OLDataSource::GetInvalidPointList(unsigned channel) const {
    return validChannel(channel) ? &items[channel].InvalidPoints() : nullptr;
}

void OLDataSource::SetInvalidPointList(unsigned channel, const std::vector<std::uint32_t>& list) {
    if (validChannel(channel)) {
        items[channel].InvalidPoints() = list;
    }
}

void OLDataSource::ClearInvalidPointList(unsigned channel) {
    if (validChannel(channel)) {
        items[channel].InvalidPoints().clear();
    }
}

bool OLDataSource::HasInvalidPoints(unsigned channel) const {
    return validChannel(channel) && !items[channel].InvalidPoints().empty();
}

std::uint32_t OLDataSource::GetInvalidFlag(unsigned channel) const {
    return validChannel(channel) ? items[channel].GetInvalidFlag() : 0;
}

void OLDataSource::SetInvalidFlag(unsigned channel, std::uint32_t flag) {
    if (validChannel(channel)) {
        items[channel].SetInvalidFlag(flag);
    }
}

std::string OLDataSource::GetInvalidFill(unsigned channel) const {
    return validChannel(channel) ? items[channel].GetInvalidFill() : std::string();
}

void OLDataSource::SetInvalidFill(unsigned channel, std::string fill) {
    if (validChannel(channel)) {
        items[channel].SetInvalidFill(std::move(fill));
    }
}
