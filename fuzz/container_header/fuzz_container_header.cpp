// Any bytes at all, read as a container file from memory. A refusal is a
// normal answer; anything else that escapes is a fault. A file that reads
// must also write, or be refused by the writer, and what is written must
// read back and write again byte for byte.

#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/DataFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace Orx::DataCore;

void ReadEveryKey(const DataFile& file, const DataContainerPtr& container) {
    for (const auto& key : container->GetKeys()) {
        std::string text;
        std::int32_t number = 0;
        double real = 0;
        std::vector<std::string> texts;
        Orx::Core::UnitizedValue<double> unitized;
        container->GetValue(key, text);
        container->GetValue(key, number);
        container->GetValue(key, real);
        container->GetValue(key, texts);
        container->GetValue(key, unitized);
        file.GetFormattedValueString(container, key);
    }
    for (const auto& child : container->GetChildren()) {
        ReadEveryKey(file, child);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::shared_ptr<DataFile> file;
    try {
        file = DataFile::OpenMemory(data, size);
    } catch (const ContainerFormatError&) {
        return 0;
    }
    ReadEveryKey(*file, file->GetRoot());
    std::vector<std::uint8_t> written;
    try {
        written = file->ToBytes();
    } catch (const ContainerFormatError&) {
        return 0;  // a header rewritten longer than the room before the first channel
    }
    auto again = DataFile::OpenMemory(written.data(), written.size());
    if (again->ToBytes() != written || again->GetFileType() != file->GetFileType()) {
        __builtin_trap();
    }
    return 0;
}
