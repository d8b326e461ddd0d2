#include "DataSourceDll/DataSourceDllState.h"

#include "DataSourceDll/SourceSlot.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

#include <cstring>
#include <new>

namespace DataSourceDllState {

SourceSlot& Slot() {
    static SourceSlot slot;
    return slot;
}

IOLDataSource* Current() { return Slot().Source(); }
std::string FileType() { return Slot().FileType(); }

void Install(std::shared_ptr<IOLDataSource> source, std::unique_ptr<ICreateColorTableCallback> callback,
             std::string fileType) {
    Slot().Install(std::move(source), std::move(callback), std::move(fileType));
}

void CloseCurrent() { Slot().CloseCurrent(); }
void Release() { Slot().Release(); }

char* NewText(const std::string& text) {
    char* out = new (std::nothrow) char[text.size() + 1];
    if (out) {
        std::memcpy(out, text.c_str(), text.size() + 1);
    }
    return out;
}

}  // namespace DataSourceDllState
