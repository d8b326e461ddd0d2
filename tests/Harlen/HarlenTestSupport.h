#pragma once

// Opening built Harlen files for the tests of the Harlen family.

#include <memory>
#include <string>

#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "tools/samplekit/HarlenBuilder.h"

namespace HarlenTest {

using SampleKit::HarlenBuilder;

// A source over the file in memory, initialised.
inline std::shared_ptr<HarlenOLDataSource> Open(const HarlenBuilder& builder,
                                                ICreateColorTableCallback* callback = nullptr) {
    const auto bytes = builder.Bytes();
    auto source =
        std::make_shared<HarlenOLDataSource>(Orx::DataCore::DataFile::OpenMemory(bytes.data(), bytes.size()), callback);
    source->Initialize();
    return source;
}

// A source over a file on disk, opened as the library opens files.
inline std::shared_ptr<HarlenOLDataSource> OpenPath(const std::string& path,
                                                    ICreateColorTableCallback* callback = nullptr) {
    auto source =
        std::make_shared<HarlenOLDataSource>(Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr), callback);
    source->Initialize();
    return source;
}

}  // namespace HarlenTest
