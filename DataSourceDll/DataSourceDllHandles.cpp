// The handle functions: each open file of a host in a handle of its own,
// read by the same readers as the current source, from the reader table.

#include "DataSourceDll/DataSourceDll.h"

#include "DataSourceDll/DataSourceDllClass.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "DataSourceDll/DataSourceReaders.h"
#include "DataSourceDll/HandleRegistry.h"
#include "DataSourceDll/SourceCall.h"
#include "DataSourceDll/SourceOpener.h"

#include <memory>
#include <new>
#include <string>

namespace R = DataSourceReaders;

namespace {

// The handle goes before the arguments of a row.
#define DS_WITH_HANDLE(...) DataSourceDllHandle* handle __VA_OPT__(, ) __VA_ARGS__
#define DS_HANDLE_ARGS(...) handle __VA_OPT__(, ) __VA_ARGS__
// A reader on the handle's source, which stays open and locked for the call.
#define DS_RUN_ON_HANDLE(kind, call)               \
    {                                              \
        const HandleRegistry::Lease lease(handle); \
        return DS_RUN_READER(kind, lease.Source(), call); \
    }

// The members of the class over a handle's source: the rows that the C
// functions of a handle call, with a fixed units value where they have one.
struct HandleReaders {
#define DS_READER(kind, Name, params, args, call) \
    static DS_RESULT_##kind Name(DS_WITH_HANDLE params) DS_RUN_ON_HANDLE(kind, call)
#define DS_MEMBER_ONLY(kind, Name, params, call) \
    static DS_RESULT_##kind Name(DS_WITH_HANDLE params) DS_RUN_ON_HANDLE(kind, call)
#include "DataSourceDll/DataSourceReaderTable.h"
};

}  // namespace

extern "C" {

DataSourceDllHandle* DataSourceDllOpenHandle(const char* path) {
    try {
        auto entry = std::make_shared<HandleRegistry::Entry>();
        if (SourceOpener::Open(path, entry->slot) != 1) {
            return nullptr;
        }
        return HandleRegistry::Add(std::move(entry));
    } catch (...) {
        return nullptr;
    }
}

int DataSourceDllCloseHandle(DataSourceDllHandle* handle) {
    if (!handle) {
        return 1;
    }
    try {
        const auto entry = HandleRegistry::Remove(handle);
        if (!entry) {
            return -1;
        }
        // A read of this handle that another thread has begun ends first.
        std::lock_guard<std::mutex> lock(entry->mutex);
        try {
            entry->slot.CloseCurrent();
        } catch (...) {
            entry->slot.Release();
        }
        return 1;
    } catch (...) {
        return -1;
    }
}

char* DataSourceDllHandleGetFileTypeText(DataSourceDllHandle* handle) {
    try {
        const HandleRegistry::Lease lease(handle);
        // As DataSourceDllGetFileTypeText answers for the current file.
        const bool known = lease.Source() && !lease.Get()->slot.FileType().empty();
        return DataSourceDllState::NewText(known ? lease.Get()->slot.FileType() : std::string("UNKNOWN"));
    } catch (...) {
        return nullptr;
    }
}

#define DS_READER(kind, Name, params, args, call) \
    DS_RESULT_##kind DataSourceDllHandle##Name(DS_WITH_HANDLE params) { return HandleReaders::Name(DS_HANDLE_ARGS args); }
#define DS_VARIANT(kind, Name, params, Reader, args) \
    DS_RESULT_##kind DataSourceDllHandle##Name(DS_WITH_HANDLE params) { return HandleReaders::Reader(DS_HANDLE_ARGS args); }
#define DS_NONMEMBER_READER(kind, Name, params, call) \
    DS_RESULT_##kind DataSourceDllHandle##Name(DS_WITH_HANDLE params) DS_RUN_ON_HANDLE(kind, call)
#include "DataSourceDll/DataSourceReaderTable.h"

}  // extern "C"
