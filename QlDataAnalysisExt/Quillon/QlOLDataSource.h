#pragma once

// The data source of the Quillon family: eleven file subtypes, several
// generations of key spellings, one section per channel.
//
// Sources, by concern:
//   QlOLDataSource.cpp          classification, type tests, the order of Initialize, dates
//   QlOLDataSourceScan.cpp      equipment, scan section, scanner list, probe list
//   QlOLDataSourceForce.cpp     force list, high-speed list, electrochemistry lists
//   QlOLDataSourceChannels.cpp  the channel loop: one item per channel section
//   QlOLDataSourceChannelScales.cpp  a channel's Z scale, the legacy scale, the high-speed scales
//   QlOLDataSourceSensitivity.cpp    sensitivity lookup, scaled values, the scale combination
//   QlOLDataSourceRepair.cpp    the repair of invalid samples
//   QlOLDataSourceOverrides.cpp Z offsets, the invalid fill, SaveAs, new samples, channel removal, parameter lists
//   QlOLDataSourceScaleChanges.cpp   data scale, magnify, channel parameters, sensitivity changes
//   QlOLDataSourceSave.cpp      the saving templates, the file-wide sections, force sets and channel copies
//   QlOLDataSourceSaveChannels.cpp   writing each item back into its channel section

#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

struct OLDataItemLoadRecord;
class QlSectionReader;
class QlSectionWriter;

class QlOLDataSource : public OLDataSource {
public:
    QlOLDataSource(DataFilePtr dataFile, ICreateColorTableCallback* callback);
    ~QlOLDataSource() override;

    // ---- QlOLDataSource.cpp ----
    void Initialize() override;
    OLDateTime GetDateTime() const override;
    bool IsImageFile() const override;
    bool IsForceFile() const override;
    bool IsForceVolumeFile() const override;
    bool IsHsdcFile() const override;
    bool IsScriptFile() const override;
    bool IsTimedFile() const override;
    bool IsTimedForceFile() const override;
    bool IsEcStmFile() const override;
    bool IsEcAfmFile() const override;
    bool IsEcForceFile() const override;
    bool IsEcFile() const override;

    std::uint32_t GetFileVersion() const { return fileVersion; }
    const std::string& GetFileSectionName() const { return fileSectionName; }

    // ---- QlOLDataSourceOverrides.cpp ----
    bool SaveAs(const std::string& path, bool flag) override;
    DataFilePtr SaveToDataFile(const std::string& path, bool flag) override;
    void SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns,
                 std::uint64_t fileOffset) override;
    std::vector<std::string> GetDataPlistNames() override;
    std::string GetParameterListForItem(const std::string& section, const std::string& key) override;
    void RemoveChannel(unsigned channel) override;
    // The raw offset of a channel's input offset; 0 for a channel without one.
    std::int64_t ZOffsetOfChannel(unsigned channel) const;
    // Adds (or, with takeOff, subtracts) each channel's input offset to its samples.
    void ApplyZOffsets(bool takeOff);
    // Puts the invalid mark back on the samples a repair replaced; true when any changed.
    bool ApplyInvalidFill();

    // ---- QlOLDataSourceScaleChanges.cpp ----
    void SetZSensitivity(unsigned channel, double value, std::string units, bool companions) override;
    void SetDataScale(unsigned channel, UValue& value, bool flag) override;
    void SetChannelParameters(unsigned channel, float factor) override;

    // ---- QlOLDataSourceSave.cpp ----
    bool SaveChannelAs(unsigned channel, const std::string& path, bool flag) override;
    bool SaveForceCurveSet(unsigned channel, const std::string& path) override;
    bool WriteDataFile(const DataFilePtr& file, bool largeHeader) override;
    void WriteChannelHeader(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                            const std::string& sectionName, const std::string& key, const std::string& value,
                            const std::string& followKey) override;
    bool WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                          const std::string& sectionName, const std::string& key) override;
    DataFilePtr CreateDataFile(const std::string& path) override;

    // Header sizes of a saved file: the large one leaves room for colour tables.
    static constexpr std::uint32_t kHeaderSize = 0xA000;
    static constexpr std::uint32_t kLargeHeaderSize = 0x13C40;

    // ---- QlOLDataSourceSensitivity.cpp ----
    // The section that holds a sensitivity named in square brackets, and its
    // value string; the name "Sens. Zsens" answers with the string read from
    // the scanner list.
    std::string FindSensSection(const std::string& name) const;
    std::string GetSensString(const std::string& name) const;

    // The combination of a value with a scale (a sensitivity with a hardware
    // scale): the product of the numbers in a's unit, a's number first turned
    // into volts where a is in a voltage unit and b has a unit at all.
    static UValue CombineScales(const UValue& a, const UValue& b);

    // ---- QlOLDataSourceRepair.cpp ----
    // The one repair rule of invalid samples, on a row-major image of the
    // item's lines and samples per line.
    static void RepairInvalidSamples(OLDataItem& item);

private:
    // What a channel's section is, by the subtype and the section's name.
    enum class ChannelKind { Image, Force, Electrochemistry, HighSpeed, Other };

    // ---- QlOLDataSource.cpp ----
    bool readOverview(const QlSectionReader& overview);
    bool readFileSection(const QlSectionReader& fileSection);
    bool isElectrochemistry() const { return subtypeIsOneOf({"ECAFM", "ECSTM", "EC"}); }

    // ---- QlOLDataSourceScan.cpp ----
    void readEquipment(const DataContainerPtr& section);
    void readScanSection(const DataContainerPtr& section);
    void readScannerList(const DataContainerPtr& section);
    void readProbeList(const DataContainerPtr& section);
    void readFeedback(const QlSectionReader& scan);
    void readSetpoint(const QlSectionReader& scan);
    void readLinesAndAspectRatio(const QlSectionReader& scan);
    void readScanSecondGroup(const QlSectionReader& scan);
    void readCrestload(const QlSectionReader& scan);
    void readForceVolumeGroup(const QlSectionReader& scan);
    void readHighSpeedParameters(const QlSectionReader& scan);
    // "Sync Distance", replaced by "Sync Distance SNT" where that is above 0.01.
    void readSyncDistance(const QlSectionReader& scan);
    // A "KHz" as the last word of a frequency text, as older files write it,
    // becomes the "kHz" that the unit dictionary knows.
    static std::string KilohertzSpelled(const std::string& text);

    // ---- QlOLDataSourceForce.cpp ----
    void readForceList(const DataContainerPtr& section);
    void readHsdcList(const DataContainerPtr& section);
    void readEcList(const DataContainerPtr& section);
    void readTriggerGroup(const QlSectionReader& force);
    void readRampGroup(const QlSectionReader& force);
    void readSweep(const QlSectionReader& force);
    // The first sweep bound of the stem that a key holds, "KHz" read as "kHz".
    UValue readSweepBound(const QlSectionReader& force, const std::string& stem) const;
    // "@EC Pot Input" and its like: the hard value of the text combined with
    // the sensitivity that the text names; 1.0 when the key is missing.
    UValue readEcScaledValue(const QlSectionReader& section, const std::string& key) const;
    // "@2:EC Pot Output" and its like: the hard number in the text's unit.
    static UValue readEcScaledOutput(const QlSectionReader& section, const std::string& key);

    // ---- QlOLDataSourceChannels.cpp ----
    // Builds channel i's item; false (with its message logged) ends Initialize.
    bool readChannel(unsigned channel);
    ChannelKind channelKind(const std::string& plistName) const;
    void readForceChannel(const QlSectionReader& s, OLDataItemLoadRecord& r, int plistClass);
    void readImageChannel(const QlSectionReader& s, OLDataItemLoadRecord& r, bool& repair);
    void readEcChannel(const QlSectionReader& s, OLDataItemLoadRecord& r);
    // The colour table index of a channel as the host's callback wants it;
    // the settings themselves are read too where load is set.
    void readColorSettings(const QlSectionReader& s, OLDataItemLoadRecord& r, bool load);
    // The image data key of the kind; false where a subtype that needs one has none.
    bool readDataName(const QlSectionReader& s, OLDataItemLoadRecord& r, ChannelKind kind, int plistClass);
    void readCommonContinuation(const QlSectionReader& s, OLDataItemLoadRecord& r);
    void readCommonEnd(const QlSectionReader& s, OLDataItemLoadRecord& r, OLDataItem& item);
    // The aspect ratio that files older than 0x06000000 (but 0x04240000) carry
    // wrongly, recomputed from columns and rows.
    bool recomputesAspectRatio(const std::string& plistName) const;

    // ---- QlOLDataSourceChannelScales.cpp ----
    void readHighSpeedChannel(const QlSectionReader& s, OLDataItemLoadRecord& r);
    void readZScale(const QlSectionReader& s, OLDataItemLoadRecord& r);
    float readLegacyZScale(const std::string& text, OLDataItemLoadRecord& r) const;
    void readInputOffset(const QlSectionReader& s, OLDataItemLoadRecord& r);

    // ---- QlOLDataSourceSensitivity.cpp ----
    // A scaled value of a force channel or a limit: its soft value and the
    // number and unit of the sensitivity it names.
    ScaleGroup readScaleGroup(const std::string& text) const;
    // Pressures above a million pascal read in "MPa", above a milliard in "GPa".
    static void ReadablePressure(double& value, std::string& unit);
    // A value in a unit of the dictionary; without a unit where the dictionary
    // does not know the name.
    static UValue ValueIn(double value, const std::string& unitName);

    // ---- QlOLDataSourceOverrides.cpp ----
    // Runs work on samples as the file keeps them: input offsets taken off and
    // repaired samples marked invalid again; afterwards the samples are what
    // they were, so that a client sees no change from a save.
    bool withFileSamples(const std::function<bool()>& work);

    // ---- QlOLDataSourceScaleChanges.cpp ----
    // The magnify of a channel times factor, and its magnify text to match.
    static void MagnifyChannel(OLDataItem& item, float factor);
    // The new software scale, sensitivity text, value and unit of one item.
    static void TakeSensitivity(OLDataItem& item, float softScale, const std::string& text, double value,
                                const std::string& units);

    // ---- QlOLDataSourceSave.cpp ----
    void writeForceSection(const DataFilePtr& file) const;
    void writeScanSection(const DataFilePtr& file) const;
    void writeFileSection(const DataFilePtr& file, std::uint32_t headerSize);
    // A number under a key that the section may lack: added as a text where it does.
    void writeNumber(const DataFilePtr& file, const std::string& sectionName, const std::string& key,
                     double value) const;
    // The aspect ratio texts of a section, where they read as another ratio than ratio.
    void writeAspectRatio(const QlSectionWriter& section, float ratio) const;
    // The file of a force set: a force file of the force channels alone.
    void writeForceFileHeader(const DataFilePtr& file) const;
    // A new file at path, filled and written with the samples as the file keeps them.
    bool saveNewFile(const std::string& path, const char* operation,
                     const std::function<void(const DataFilePtr&)>& fill);
    // The points of one half of the item's curves: its samples per line less the hold section.
    int curveHalf(const OLDataItem& item) const;
    // A scan size as files hold it: in microns, unless counted in pixels.
    static UValue InMicrons(const UValue& size);
    static bool IsQuillonFile(const DataFilePtr& file);
    static void LogOpenFailure();

    // ---- QlOLDataSourceSaveChannels.cpp ----
    void writeChannel(const DataFilePtr& file, unsigned channel, bool largeHeader);
    void writeForceChannel(const QlSectionWriter& section, const OLDataItem& item) const;
    void writeImageChannel(const DataFilePtr& file, const QlSectionWriter& section, unsigned channel) const;
    void writeChannelScales(const QlSectionWriter& section, unsigned channel) const;
    void writeSensitivity(const DataFilePtr& file, const OLDataItem& item) const;

    bool subtypeIs(const char* subtype) const { return fileSubType == subtype; }
    bool subtypeIsOneOf(std::initializer_list<const char*> subtypes) const;
    void fail(const std::string& message);

    std::string fileSectionName;
    std::uint32_t fileVersion = 0;
    int numberOfDataPlists = 0;
    // The spring constant that the force channels found; every item gets it.
    double springConstant = 0.0;
    // Channels whose section carried "Invalid Data Flag": a save writes "None"
    // there once their invalid samples are gone.
    std::vector<bool> hadInvalidDataFlag;
};
