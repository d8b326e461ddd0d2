// The class of the exports: Open, Close, and a member for each reader, made
// from the reader table over the one current source. No exception leaves a
// member.

#include "DataSourceDll/DataSourceDllClass.h"

#include "DataSourceDll/DataSourceDllState.h"
#include "DataSourceDll/DataSourceReaders.h"
#include "DataSourceDll/SourceCall.h"
#include "DataSourceDll/SourceOpener.h"

DataSourceDll::DataSourceDll() = default;
DataSourceDll::~DataSourceDll() = default;
DataSourceDll& DataSourceDll::operator=(const DataSourceDll&) { return *this; }

int DataSourceDll::Open(char* path) { return SourceOpener::Open(path, DataSourceDllState::Slot()); }

int DataSourceDll::Close() {
    try {
        DataSourceDllState::CloseCurrent();
    } catch (...) {
        DataSourceDllState::Release();
    }
    return 1;
}

// Needs no file: the text of a segment type.
char* DataSourceDll::GetSegmentDescription(int type) {
    try {
        return DataSourceDllState::NewText(DataSourceReaders::SegmentDescription(type));
    } catch (...) {
        return nullptr;
    }
}

namespace R = DataSourceReaders;

#define DS_MEMBER_BODY(kind, Name, params, call) \
    DS_RESULT_##kind DataSourceDll::Name params { return DS_RUN_READER(kind, DataSourceDllState::Current(), call); }
#define DS_READER(kind, Name, params, args, call) DS_MEMBER_BODY(kind, Name, params, call)
#define DS_MEMBER_ONLY(kind, Name, params, call) DS_MEMBER_BODY(kind, Name, params, call)
#include "DataSourceDll/DataSourceReaderTable.h"
#undef DS_MEMBER_BODY
