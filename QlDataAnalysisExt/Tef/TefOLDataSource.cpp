#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include "Platform/FileSystem.h"
#include "Platform/UserMessage.h"
#include "QlDataAnalysisExt/Tef/TefDocument.h"
#include "QlDataAnalysisExt/Tef/TefWalker.h"

#include <exception>
#include <utility>

namespace {

// The misspelling is the text users have always been shown.
constexpr const char* kUnknownReadFailure = "An uknown exception was caught while reading the file.";

constexpr const char* kImageSubType = "IMAGE";

template <class Table>
void EraseAt(Table& table, unsigned index)
{
    if (index < table.size())
        table.erase(table.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace

TefOLDataSource::TefOLDataSource(std::string path) { filePath = std::move(path); }

// The pixel arrays go with channelPixels; the items only borrowed them.
TefOLDataSource::~TefOLDataSource() = default;

void TefOLDataSource::Initialize()
{
    SetFileTitleFromPath();
    Orx::Core::RandomAccessFile file;
    if (!file.Open(filePath))
        return;
    // Only the low 32 bits of the length were ever used.
    const auto length = static_cast<std::uint32_t>(file.Length());
    if (length == 0)
        return;
    // The file is read as the walk goes, a window at a time, so that the
    // samples made of it are all that a load holds beside a window. A
    // refused file reaches the user with the refusal's own text, and one
    // that cannot be read with the file error's; the source keeps what it
    // had built and stays not open.
    try {
        Load(length, [&file](std::uint64_t offset, void* buffer, std::size_t size) {
            file.ReadAt(offset, buffer, size);
        });
    } catch (const std::exception& error) {
        Orx::Core::ShowUserMessage(error.what());
    } catch (...) {
        Orx::Core::ShowUserMessage(kUnknownReadFailure);
    }
}

void TefOLDataSource::Load(std::uint32_t length, TefByteReader::Fetch fetch)
{
    TefDocument document;
    std::exception_ptr refusal;
    try {
        TefWalker::Walk(length, std::move(fetch), document);
    } catch (...) {
        refusal = std::current_exception();
    }
    Adopt(document);
    if (refusal)
        std::rethrow_exception(refusal);
    fileSubType = kImageSubType;
    opened = true;
}

// ---- overrides ----------------------------------------------------------------

bool TefOLDataSource::IsImageFile() const { return true; }

void TefOLDataSource::SetDataScale(unsigned channel, UValue& value, bool)
{
    OLDataItem* item = writeItem(channel);
    if (!item)
        return;
    // A ".tef" channel's data scale is always given in its metric unit. Its
    // sensitivity is 1 of that same unit, so undoing the sensitivity leaves
    // the value as it is; the general way back passes through volts, which
    // a unit of another dimension cannot take.
    try {
        item->SetDataScale(value, true);
    } catch (const UValue::XNoUnitConversion&) {
        item->SetDataScale(value, false);
    }
}

void TefOLDataSource::SetChannelParameters(unsigned channel, float factor)
{
    if (factor > 0.0f) {
        if (OLDataItem* item = writeItem(channel))
            item->SetZScaleInSwUnits(item->GetZScaleInSwUnits() / factor);
    }
    // The data scale follows the Z scale, in the channel's own unit.
    const double zScale = GetZScaleInSwUnits(channel);
    UValue scale = InKnownUnit(zScale, GetDataScaleName(channel)).value_or(UValue(zScale, kArbitraryUnit));
    SetDataScale(channel, scale, true);
}

void TefOLDataSource::RemoveChannel(unsigned channel)
{
    // Each table by itself: a later save writes the channels that remain.
    // The counts are the caller's to lower.
    EraseAt(items, channel);
    EraseAt(channelPixels, channel);
    EraseAt(channelTable, channel);
    EraseAt(channelRecords, channel);
}

std::vector<std::string> TefOLDataSource::GetDataPlistNames() { return {}; }

std::string TefOLDataSource::GetParameterListForItem(const std::string&, const std::string&) { return {}; }

// A ".tef" file is written byte by byte, never through a data file.
bool TefOLDataSource::WriteDataFile(const DataFilePtr&, bool) { return false; }

void TefOLDataSource::WriteChannelHeader(const DataFilePtr&, const DataContainerPtr&, unsigned, const std::string&,
                                         const std::string&, const std::string&, const std::string&)
{
}

bool TefOLDataSource::WriteChannelData(const DataFilePtr&, const DataContainerPtr&, unsigned, const std::string&,
                                       const std::string&)
{
    return false;
}

DataFilePtr TefOLDataSource::CreateDataFile(const std::string&) { return {}; }
