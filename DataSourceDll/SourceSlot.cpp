#include "DataSourceDll/SourceSlot.h"

#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

SourceSlot::SourceSlot() = default;
SourceSlot::~SourceSlot() { Release(); }

void SourceSlot::Install(std::shared_ptr<IOLDataSource> source, std::unique_ptr<ICreateColorTableCallback> callback,
                         std::string fileType) {
    // The new owner replaces the old one before the old callback goes, so the
    // old source never outlives its callback.
    auto oldOwner = std::move(owner_);
    auto oldCallback = std::move(callback_);
    current_ = source.get();
    owner_ = std::move(source);
    callback_ = std::move(callback);
    fileType_ = current_ ? std::move(fileType) : std::string();
    oldOwner.reset();
    oldCallback.reset();
}

void SourceSlot::CloseCurrent() {
    if (current_) {
        current_->Close();
    }
    Release();
}

void SourceSlot::Release() { Install(nullptr, nullptr, {}); }
