#pragma once

// A data source filled from code, for tests of the core and of the exports:
// the record's fields are open to the test, and channels are added from load
// records with samples that the source owns.

#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

class MemoryDataSource : public OLDataSource {
public:
    // The kind predicates answer by the subtype and start context, as the
    // section-and-key families do.
    std::string kind;  // "IMAGE", "FORCE", "FVOL", "HSDC", "SCRIPT", "TIMED"

    MemoryDataSource() { units = "Metric"; }

    // Appends a channel made from record, with its own copy of samples.
    OLDataItem& AddChannel(const OLDataItemLoadRecord& record, std::vector<std::int32_t> samples = {}) {
        buffers.push_back(std::move(samples));
        OLDataItem item;
        item.SetFromLoadRecord(record);
        auto& buffer = buffers.back();
        if (!buffer.empty()) {
            item.SetData(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
        }
        items.push_back(item);
        numberOfChannels = static_cast<int>(items.size());
        numberOfDisplayChannels = numberOfChannels;
        opened = true;
        return items.back();
    }
    std::vector<std::int32_t>& Samples(unsigned channel) { return buffers[channel]; }

    void Initialize() override { opened = !items.empty(); }
    bool IsImageFile() const override { return kind == "IMAGE"; }
    bool IsForceFile() const override { return kind == "FORCE"; }
    bool IsForceVolumeFile() const override { return kind == "FVOL"; }
    bool IsHsdcFile() const override { return kind == "HSDC"; }
    bool IsScriptFile() const override { return kind == "SCRIPT"; }
    bool IsTimedFile() const override { return kind == "TIMED"; }

    void SetDataScale(unsigned channel, UValue& value, bool flag) override {
        if (auto* item = writeItem(channel)) {
            item->SetDataScale(value, flag);
        }
    }
    void SetChannelParameters(unsigned, float) override {}
    void RemoveChannel(unsigned channel) override {
        if (channel < items.size()) {
            items.erase(items.begin() + channel);
        }
    }
    std::vector<std::string> GetDataPlistNames() override { return {}; }
    std::string GetParameterListForItem(const std::string&, const std::string&) override { return {}; }
    bool SaveChannelAs(unsigned, const std::string&, bool) override { return false; }
    bool WriteDataFile(const DataFilePtr&, bool) override { return false; }
    void WriteChannelHeader(const DataFilePtr&, const DataContainerPtr&, unsigned, const std::string&,
                            const std::string&, const std::string&, const std::string&) override {}
    bool WriteChannelData(const DataFilePtr&, const DataContainerPtr&, unsigned, const std::string&,
                          const std::string&) override {
        return false;
    }
    DataFilePtr CreateDataFile(const std::string&) override { return nullptr; }

    // The record, open to tests.
    using OLDataSource::units;
    using OLDataSource::scanSize;
    using OLDataSource::scanSizeY;
    using OLDataSource::scanRate;
    using OLDataSource::forcesPerLine;
    using OLDataSource::forceVolumeForcesPerLine;
    using OLDataSource::holdPoints;
    using OLDataSource::holdTime;
    using OLDataSource::tracePoints;
    using OLDataSource::forceSamples;
    using OLDataSource::captureState;
    using OLDataSource::samplePoints;
    using OLDataSource::syncDistance;
    using OLDataSource::crestloadAmplitudeValue;
    using OLDataSource::crestloadAmplitudeScale;
    using OLDataSource::crestloadTappingFreq;
    using OLDataSource::segmentCount;
    using OLDataSource::segmentSizeList;
    using OLDataSource::segmentSamplesList;
    using OLDataSource::segmentDurationList;
    using OLDataSource::segmentTypeList;
    using OLDataSource::hsdcRate;
    using OLDataSource::sweepChannel;
    using OLDataSource::sweepStart;
    using OLDataSource::sweepEnd;
    using OLDataSource::forwardVelocity;
    using OLDataSource::reverseVelocity;
    using OLDataSource::numberOfChannels;
    using OLDataSource::items;
    using OLDataSource::opened;
    using OLDataSource::filePath;
    using OLDataSource::rampSizeText;

private:
    std::deque<std::vector<std::int32_t>> buffers;
};
