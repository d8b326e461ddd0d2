#include "DataSourceDll/SourceFactory.h"

#include "Platform/DataCore/HarlenDataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"
#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

namespace SourceFactory {

std::shared_ptr<IOLDataSource> MakeTefSource(const std::string& path) { return std::make_shared<TefOLDataSource>(path); }

// The type text decides, compared as a whole, never the extension.
std::shared_ptr<IOLDataSource> MakeSectionSource(const DataFilePtr& file, const std::string& fileType,
                                                 ICreateColorTableCallback* callback) {
    if (fileType == Orx::DataCore::QuillonDataFile::FILE_TYPE) {
        return std::make_shared<QlOLDataSource>(file, callback);
    }
    if (fileType == Orx::DataCore::HarlenDataFile::FILE_TYPE) {
        return std::make_shared<HarlenOLDataSource>(file, callback);
    }
    return nullptr;
}

}  // namespace SourceFactory
