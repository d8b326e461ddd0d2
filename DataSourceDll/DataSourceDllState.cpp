#include "DataSourceDll/DataSourceDllState.h"

#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

#include <cstring>
#include <new>

namespace DataSourceDllState {

namespace {
struct State {
    IOLDataSource* current = nullptr;
    std::shared_ptr<IOLDataSource> owner;
    // The callback object lives as long as the source it was made for.
    std::unique_ptr<ICreateColorTableCallback> callback;
};
State& state() {
    static State s;
    return s;
}
}  // namespace

IOLDataSource* Current() { return state().current; }

void Install(std::shared_ptr<IOLDataSource> source, std::unique_ptr<ICreateColorTableCallback> callback) {
    auto& s = state();
    // The new owner replaces the old one before the old callback goes, so the
    // old source never outlives its callback.
    auto oldOwner = std::move(s.owner);
    auto oldCallback = std::move(s.callback);
    s.current = source.get();
    s.owner = std::move(source);
    s.callback = std::move(callback);
    oldOwner.reset();
    oldCallback.reset();
}

void CloseCurrent() {
    auto& s = state();
    if (s.current) {
        s.current->Close();
    }
    Release();
}

void Release() { Install(nullptr, nullptr); }

char* NewText(const std::string& text) {
    char* out = new (std::nothrow) char[text.size() + 1];
    if (out) {
        std::memcpy(out, text.c_str(), text.size() + 1);
    }
    return out;
}

}  // namespace DataSourceDllState
