#pragma once

// The data source of ".tef" files. Initialize reads the whole file into
// memory, walks it, and keeps the pixels of every channel as the source's own
// arrays, which the items borrow; no file stays open afterwards.
//
// Sources, by concern:
//   TefOLDataSource.cpp         lifetime, reading the file, the guarded load, overrides
//   TefOLDataSourceChannels.cpp what a walk found turned into the record, load records and items
//   TefOLDataSourceSave.cpp     saving: the old file read again, rewritten (TefRewriter) and written

#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Core/OLDataSource.h"
#include "QlDataAnalysisExt/Tef/TefByteReader.h"
#include "QlDataAnalysisExt/Tef/TefChannelInfo.h"
#include "QlDataAnalysisExt/Tef/TefOffsets.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct TefChannelSection;
struct TefChannelSettings;
struct TefDocument;

class TefOLDataSource : public OLDataSource {
public:
    explicit TefOLDataSource(std::string path);
    ~TefOLDataSource() override;

    // ---- TefOLDataSource.cpp ----
    void Initialize() override;
    // ---- TefOLDataSourceSave.cpp ----
    bool SaveAs(const std::string& path, bool flag) override;
    // ---- TefOLDataSource.cpp ----
    bool IsImageFile() const override;
    void SetDataScale(unsigned channel, UValue& value, bool flag) override;
    void SetChannelParameters(unsigned channel, float factor) override;
    void RemoveChannel(unsigned channel) override;
    std::vector<std::string> GetDataPlistNames() override;
    std::string GetParameterListForItem(const std::string& section, const std::string& key) override;
    // ---- TefOLDataSourceSave.cpp ----
    bool SaveChannelAs(unsigned channel, const std::string& path, bool flag) override;
    // ---- TefOLDataSource.cpp ----
    bool WriteDataFile(const DataFilePtr& file, bool flag) override;
    void WriteChannelHeader(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                            const std::string& sectionName, const std::string& key, const std::string& value,
                            const std::string& followKey) override;
    bool WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                          const std::string& sectionName, const std::string& key) override;
    DataFilePtr CreateDataFile(const std::string& path) override;

    // What the file held beside the record of the base, for the writers.
    const std::vector<std::vector<std::int32_t>>& GetChannelPixels() const { return channelPixels; }
    const std::vector<OLDataItemLoadRecord>& GetChannelRecords() const { return channelRecords; }
    const std::vector<TefChannelInfo>& GetChannelTable() const { return channelTable; }
    const TefOffsets& GetOffsets() const { return offsets; }
    int GetParameterCount() const { return parameterCount; }
    int GetFileChannelCount() const { return fileChannelCount; }
    const std::string& GetFileVersion() const { return fileVersion; }
    const std::string& GetFeedbackMode() const { return feedbackMode; }
    bool Is16Bit() const { return is16Bit; }
    double GetKept12() const { return kept12; }
    double GetKept13() const { return kept13; }
    double GetKept25() const { return kept25; }
    double GetKept26() const { return kept26; }
    double GetKept27() const { return kept27; }
    double GetKept119() const { return kept119; }
    double GetKept120() const { return kept120; }
    const std::string& GetKept20() const { return kept20; }
    const std::string& GetKept21() const { return kept21; }
    std::uint32_t GetKept145() const { return kept145; }
    std::size_t GetItemCount() const { return items.size(); }

    // ---- TefOLDataSourceSave.cpp ----
    // Writes the source's current channels to a new file at path, with the
    // parameters from the channel units on rebuilt; the source then stands
    // for that file. False when nothing was written.
    bool RewriteChannels(const std::string& path);
    // The file at the source's path, whole; the bytes read, or 0 when it
    // cannot be opened, is empty or will not fit in memory.
    std::uint32_t ReadOriginal(std::vector<std::uint8_t>& contents) const;
    // Writes a whole file at path, by way of a file beside it, so that a
    // failure leaves what stood at path untouched. False when nothing was
    // written.
    static bool WriteBuffer(const std::string& path, const std::vector<std::uint8_t>& contents);

    // ---- TefOLDataSourceChannels.cpp ----
    // The raw offset that puts the low end of a channel's Z range, at its
    // range origin, on the raw value 0; the float and double steps are those
    // the files were always read with.
    static std::int64_t RawOffset(float zScale, double rangeOrigin);
    // Width over height, in single precision; exactly 1 for a height of 0.
    static float AspectRatio(double scanSizeX, double scanSizeY);

    // The unit of channels whose unit the dictionary does not know.
    static constexpr const char* kArbitraryUnit = "Arb";

private:
    // ---- TefOLDataSource.cpp ----
    // Walks a file of that length, read through fetch as the walk goes.
    void Load(std::uint32_t length, TefByteReader::Fetch fetch);

    // ---- TefOLDataSourceChannels.cpp ----
    // Takes over what a walk found, also when the walk was refused part way:
    // the channels whose sections were read whole become items.
    void Adopt(TefDocument& document);
    void AdoptSourceValues(const TefDocument& document);
    void AdoptChannel(std::size_t index, TefChannelSection& section, const TefChannelSettings& settings,
                      const std::string& note);
    // The channel's unit, and its Z range as the software scale and the data scale.
    static void SetChannelUnits(OLDataItemLoadRecord& record, const TefChannelSettings& settings);
    // The value in that unit; nothing where the dictionary does not know it.
    static std::optional<UValue> InKnownUnit(double value, const std::string& unit);

    // one array per channel, width x height values top row first; empty
    // for a channel without pixels
    std::vector<std::vector<std::int32_t>> channelPixels;
    std::vector<OLDataItemLoadRecord> channelRecords;
    int parameterCount = 0;
    int fileChannelCount = 0;
    double kept12 = 0.0, kept13 = 0.0;
    double kept25 = 0.0, kept26 = 0.0, kept27 = 0.0;
    double kept119 = 0.0, kept120 = 0.0;
    std::string kept20, kept21;
    std::string feedbackMode;
    std::uint32_t kept145 = 0;
    std::string fileVersion;
    std::vector<TefChannelInfo> channelTable;
    TefOffsets offsets;
    bool is16Bit = false;
};
