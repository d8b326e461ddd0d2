#pragma once

#include "QlDataAnalysisExt/Tef/TefByteReader.h"
#include "QlDataAnalysisExt/Tef/TefDocument.h"
#include "QlDataAnalysisExt/Tef/TefPixelConverter.h"

#include <cstddef>
#include <cstdint>

// Walks a whole ".tef" file held in memory: note, document head, parameter
// records, preview and channel sections, with the pixels converted.
class TefWalker {
public:
    // Fills document from the file. A refusal raises std::runtime_error with
    // its fixed text and leaves in document what was read before it.
    static void Walk(const std::uint8_t* data, std::size_t size, TefDocument& document);
    // The same over a file of that size read through fetch, which may raise
    // errors of its own.
    static void Walk(std::size_t size, TefByteReader::Fetch fetch, TefDocument& document);

private:
    TefWalker(TefByteReader reader, TefDocument& document);
    void WalkAll();

    void ReadNote();
    void ReadDocumentHead();
    void ReadPreview();

    // TefWalkerParameters.cpp
    void ReadParameters();
    void ReadParameter(std::uint16_t id, std::uint16_t size);
    bool ReadChannelGroupParameter(std::uint16_t id, std::uint16_t size, std::uint32_t at);
    void ReadSourceParameter(std::uint16_t id, std::uint16_t size, std::uint32_t at);
    void ReadUnit(std::size_t channel, std::uint16_t size);
    void ReadZRange(std::size_t channel, std::uint16_t size);
    void ReadChannelBits(std::size_t channel, std::uint16_t size);
    void ReadRangeOrigin(std::size_t row, std::uint16_t size);
    void ReadAuxiliary(std::size_t row, std::uint16_t size);
    void ReadStoredName(std::size_t row, std::uint16_t size);
    std::uint16_t WordValue(std::uint16_t size);
    std::uint32_t DwordValue(std::uint16_t size);
    double DoubleValue(std::uint16_t size);
    template <class Value>
    void Spread(Value TefDocument::*sourceField, Value TefChannelSettings::*channelField, Value value);

    // TefWalkerChannels.cpp
    void ReadChannelSections();
    void ReadChannelSection(std::size_t index);
    void ReadPixels(std::size_t index, TefChannelSection& section);
    void ReadShortPixels(std::size_t index, TefChannelSection& section, std::size_t count);
    void CountPixelStore(std::size_t index, TefChannelSection& section);

    TefByteReader reader_;
    TefDocument& document_;
    TefPixelConverter converter_;
    std::int64_t parameterEnd_ = 0;
    std::uint64_t sectionBytesRead_ = 0;
    std::size_t pixelStores_ = 0;
};
