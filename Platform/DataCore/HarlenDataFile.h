#pragma once

#include "Platform/DataCore/DataFile.h"

#include <string>

namespace Orx::DataCore {

// A file of the Harlen family: the sections and keys of the common layer,
// with float matrices as its data.
class HarlenDataFile : public DataFile {
public:
    static const std::string FILE_TYPE;

    HarlenDataFile(std::string path, DataContainerPtr root);
};

}  // namespace Orx::DataCore
