#include "DataSourceDll/SourceFactory.h"

#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

namespace SourceFactory {

// The family sources join here as they are built.
std::shared_ptr<IOLDataSource> MakeTefSource(const std::string& path) { return std::make_shared<TefOLDataSource>(path); }

std::shared_ptr<IOLDataSource> MakeSectionSource(const DataFilePtr&, const std::string&, ICreateColorTableCallback*) {
    return nullptr;
}

}  // namespace SourceFactory
