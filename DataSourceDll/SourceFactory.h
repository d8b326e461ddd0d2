#pragma once

// Makes the data source of each file family for Open.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <memory>
#include <string>

class IOLDataSource;
class ICreateColorTableCallback;

namespace SourceFactory {

// A ".tef" source that reads the file at path by itself.
std::shared_ptr<IOLDataSource> MakeTefSource(const std::string& path);
// The source of a section-and-key file of that type text; null for an
// unknown type.
std::shared_ptr<IOLDataSource> MakeSectionSource(const DataFilePtr& file, const std::string& fileType,
                                                 ICreateColorTableCallback* callback);

}  // namespace SourceFactory
