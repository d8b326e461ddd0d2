#pragma once

// The data source of the Quillon family: eleven file subtypes, several
// generations of key spellings, one section per channel.
//
// Sources, by concern:
//   QlOLDataSource.cpp          classification, type tests, the order of Initialize, dates
//   QlOLDataSourceScan.cpp      equipment, scan section, scanner list, probe list
//   QlOLDataSourceForce.cpp     force list, high-speed list, electrochemistry lists
//   QlOLDataSourceChannels.cpp  the channel loop: one item per channel section
//   QlOLDataSourceRepair.cpp    the repair of invalid samples
//   QlOLDataSourceOverrides.cpp Z offsets, scale and sensitivity changes, channel removal
//   QlOLDataSourceSave.cpp      writing the record and the items back into a file

#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include <cstdint>
#include <string>
#include <vector>

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
    void SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns,
                 std::uint64_t fileOffset) override;
    void SetZSensitivity(unsigned channel, double value, std::string units, bool companions) override;
    void SetDataScale(unsigned channel, UValue& value, bool flag) override;
    void SetChannelParameters(unsigned channel, float factor) override;
    std::vector<std::string> GetDataPlistNames() override;
    std::string GetParameterListForItem(const std::string& section, const std::string& key) override;
    void RemoveChannel(unsigned channel) override;
    // The raw offset of a channel's input offset; 0 for a channel without one.
    std::int64_t ZOffsetOfChannel(unsigned channel) const;
    // Adds (or, with takeOff, subtracts) each channel's input offset to its samples.
    void ApplyZOffsets(bool takeOff);
    // Puts the invalid mark back on the samples a repair replaced; true when any changed.
    bool ApplyInvalidFill();

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

    // The value string of a sensitivity named in square brackets; the name
    // "Sens. Zsens" answers with the string read from the scanner list.
    std::string FindSensSection(const std::string& name) const;
    std::string GetSensString(const std::string& name) const;

private:
    // ---- QlOLDataSourceScan.cpp ----
    void readEquipment(const DataContainerPtr& section);
    void readScanSection(const DataContainerPtr& section);
    void readScannerList(const DataContainerPtr& section);
    void readProbeList(const DataContainerPtr& section);

    // ---- QlOLDataSourceForce.cpp ----
    void readForceList(const DataContainerPtr& section);
    void readHsdcList(const DataContainerPtr& section);
    void readEcList(const DataContainerPtr& section);

    // ---- QlOLDataSourceChannels.cpp ----
    // Builds channel i's item; false (with its message logged) ends Initialize.
    bool readChannel(unsigned channel);

    // ---- QlOLDataSourceRepair.cpp ----
    static void repairInvalidSamples(OLDataItem& item);

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
