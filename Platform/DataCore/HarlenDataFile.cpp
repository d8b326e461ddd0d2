#include "Platform/DataCore/HarlenDataFile.h"

namespace Orx::DataCore {

const std::string HarlenDataFile::FILE_TYPE = "Harlen Data File";

HarlenDataFile::HarlenDataFile(std::string path, DataContainerPtr root)
    : DataFile(std::move(path), FILE_TYPE, std::move(root)) {}

}  // namespace Orx::DataCore
