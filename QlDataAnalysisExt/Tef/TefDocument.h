#pragma once

#include "QlDataAnalysisExt/Tef/TefChannelInfo.h"
#include "QlDataAnalysisExt/Tef/TefChannelSection.h"
#include "QlDataAnalysisExt/Tef/TefChannelSettings.h"
#include "QlDataAnalysisExt/Tef/TefOffsets.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Everything a walk over a ".tef" file found, in plain values. A walk that
// is refused part way leaves here what it had read until then.
struct TefDocument {
    // the note area
    std::string note;
    bool hasNoteEnd = false;          // a 0x1A byte exists
    std::uint32_t noteEndOffset = 0;  // its offset, when it exists

    // the document head
    std::uint16_t majorVersion = 0;
    std::uint16_t minorVersion = 0;
    std::string fileVersion;  // "major.minor"
    std::int32_t parameterCount = 0;
    std::int32_t fileChannelCount = 0;

    TefOffsets offsets;

    // source-wide values; the optional ones are those a source leaves at its
    // own default when the record is missing
    double scanSizeX = 0.0;  // nm
    double scanSizeY = 0.0;  // nm
    std::uint16_t width = 512;
    std::uint16_t height = 1;
    std::string feedbackMode;  // "Contact" or "Tapping"; empty without record 6
    std::optional<double> scanRate;  // Hz
    std::optional<std::string> tipSerialNumber;
    std::optional<std::string> dateTime;
    float rotation = 0.0f;
    double value19 = 0.0;
    std::optional<double> drive;
    std::optional<double> setpoint;
    std::optional<double> xOffset;  // nm
    std::optional<double> yOffset;  // nm
    std::optional<std::uint16_t> bitsInUse;  // record 11
    double kept12 = 0.0;
    double kept13 = 0.0;
    std::string kept20;
    std::string kept21;
    double kept25 = 0.0;
    double kept26 = 0.0;
    double kept27 = 0.0;
    double kept119 = 0.0;
    double kept120 = 0.0;
    std::uint32_t kept145 = 0;

    // one entry each for the channel count of the document head
    std::vector<TefChannelSettings> channels;
    std::vector<TefChannelInfo> channelTable;
    // the channel sections read, in file order
    std::vector<TefChannelSection> sections;
    // true when the last section read has 2-byte pixels
    bool is16Bit = false;
};
