#include "DataSourceDll/SourceFactory.h"

#include "QlDataAnalysisExt/Core/IOLDataSource.h"

namespace SourceFactory {

// The family sources join here as they are built.
std::shared_ptr<IOLDataSource> MakeTefSource(const std::string&) { return nullptr; }

std::shared_ptr<IOLDataSource> MakeSectionSource(const DataFilePtr&, const std::string&, ICreateColorTableCallback*) {
    return nullptr;
}

}  // namespace SourceFactory
