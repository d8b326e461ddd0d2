// Changes and saving of Quillon files. Until they are written, each
// operation below answers its neutral value, or does what the base does
// where that is the right answer for a file held in memory.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

// written with saving
bool QlOLDataSource::SaveAs(const std::string&, bool) { return false; }

// written with saving: until then the samples are replaced in memory only.
void QlOLDataSource::SetData(unsigned channel, std::int32_t* samples, std::uint32_t rows, std::uint32_t columns,
                             std::uint64_t fileOffset) {
    OLDataSource::SetData(channel, samples, rows, columns, fileOffset);
}

// written with saving: until then the channel's own sensitivity alone changes.
void QlOLDataSource::SetZSensitivity(unsigned channel, double value, std::string units, bool companions) {
    OLDataSource::SetZSensitivity(channel, value, std::move(units), companions);
}

// written with saving
void QlOLDataSource::SetDataScale(unsigned, UValue&, bool) {}

// written with saving
void QlOLDataSource::SetChannelParameters(unsigned, float) {}

// written with saving
std::vector<std::string> QlOLDataSource::GetDataPlistNames() { return {}; }

// written with saving
std::string QlOLDataSource::GetParameterListForItem(const std::string&, const std::string&) { return {}; }

// written with saving
void QlOLDataSource::RemoveChannel(unsigned) {}

// written with saving
bool QlOLDataSource::SaveChannelAs(unsigned, const std::string&, bool) { return false; }

// written with saving
bool QlOLDataSource::SaveForceCurveSet(unsigned, const std::string&) { return false; }

// written with saving
bool QlOLDataSource::WriteDataFile(const DataFilePtr&, bool) { return false; }

// written with saving
void QlOLDataSource::WriteChannelHeader(const DataFilePtr&, const DataContainerPtr&, unsigned, const std::string&,
                                        const std::string&, const std::string&, const std::string&) {}

// written with saving
bool QlOLDataSource::WriteChannelData(const DataFilePtr&, const DataContainerPtr&, unsigned, const std::string&,
                                      const std::string&) {
    return false;
}

// written with saving
DataFilePtr QlOLDataSource::CreateDataFile(const std::string&) { return nullptr; }
