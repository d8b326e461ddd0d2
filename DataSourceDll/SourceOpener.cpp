#include "DataSourceDll/SourceOpener.h"

#include "DataSourceDll/SourceFactory.h"
#include "DataSourceDll/SourceSlot.h"
#include "Platform/DataCore/DataFile.h"
#include "Platform/FileSystem.h"
#include "Platform/Logger.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

#include <strings.h>

#include <string>

namespace SourceOpener {

namespace {

bool isTefPath(const char* path) {
    std::string ext = Orx::Core::SplitPath(path).ext;
    // The extension is judged as a buffer of 256 bytes would hold it.
    if (ext.size() > 255) {
        ext.resize(255);
    }
    return strcasecmp(ext.c_str(), kTefFileType) == 0;
}

// Starts the source that the slot now holds; a source that does not come
// open is closed and leaves the slot empty.
int start(IOLDataSource& source, SourceSlot& slot) {
    source.Initialize();
    if (source.IsOpen()) {
        return 1;
    }
    source.Close();
    slot.Release();
    return -1;
}

// A ".tef" file never reaches the file layer: its source reads it alone.
int openTef(const std::string& path, SourceSlot& slot) {
    auto source = SourceFactory::MakeTefSource(path);
    // The previous source is only released here, not closed.
    slot.Install(source, nullptr, kTefFileType);
    return source ? start(*source, slot) : -1;
}

// Every other file is classified by the type text that the file layer reads.
int openSectionFile(const std::string& path, SourceSlot& slot) {
    slot.CloseCurrent();
    try {
        auto file = Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr);
        if (!file) {
            return -1;
        }
        const std::string type = file->GetFileType();
        auto callback = std::make_unique<ICreateColorTableCallback>();
        auto source = SourceFactory::MakeSectionSource(file, type, callback.get());
        if (!source) {
            return -1;
        }
        slot.Install(source, std::move(callback), type);
        return start(*source, slot);
    } catch (...) {
        slot.CloseCurrent();
        return -1;
    }
}

}  // namespace

int Open(const char* path, SourceSlot& slot) {
    try {
        Orx::Core::LogManager::Instance().SetSeverityFilter("", 4);
        if (!path) {
            slot.CloseCurrent();
            return -1;
        }
        return isTefPath(path) ? openTef(path, slot) : openSectionFile(path, slot);
    } catch (...) {
        slot.Release();
        return -1;
    }
}

}  // namespace SourceOpener
