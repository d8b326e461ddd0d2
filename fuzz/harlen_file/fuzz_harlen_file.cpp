// Any bytes at all, read as a Harlen file from memory and opened by the
// Harlen source. A refusal of the file layer or a source left closed is a
// normal answer; anything else that escapes is a fault. An open source must
// answer every read of every channel from its own memory.

#include <cstddef>
#include <cstdint>

#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    DataFilePtr file;
    try {
        file = Orx::DataCore::DataFile::OpenMemory(data, size);
    } catch (const Orx::DataCore::ContainerFormatError&) {
        return 0;
    }
    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    HarlenOLDataSource source(file, nullptr);
    source.Initialize();
    if (!source.IsOpen()) {
        return 0;
    }
    source.GetDateTime();
    for (int c = 0; c < source.GetNumberOfChannels(); ++c) {
        const auto channel = static_cast<unsigned>(c);
        const std::int32_t* samples = source.GetData(channel);
        std::int64_t sum = 0;
        for (std::uint32_t i = 0; samples && i < source.GetDataBufferSize(channel); ++i) {
            sum += samples[i];
        }
        double lo = 0.0, hi = 0.0;
        source.GetDisplayRange(channel, &lo, &hi);
        source.RawToValue(channel, sum, true);
        source.GetDataScale(channel, true);
        source.GetZRange(channel, true);
        source.GetRampSize(channel, true);
        source.GetXDataType(channel);
    }
    // Writing back reads the samples through the item's sizes.
    auto copy = Orx::DataCore::DataFile::Make("", file->GetFileType(), nullptr);
    copy->CopyFrom(*file);
    source.WriteDataFile(copy, false);
    return 0;
}
