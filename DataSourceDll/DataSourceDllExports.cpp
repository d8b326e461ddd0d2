// The flat C functions: each forwards to a member of DataSourceDll, one
// function per units value where the member takes units; all readers of a
// source come from the reader table.

#include "DataSourceDll/DataSourceDll.h"

#include "DataSourceDll/DataSourceDllClass.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "DataSourceDll/DataSourceReaders.h"
#include "DataSourceDll/SourceCall.h"
#include "Platform/Logger.h"
#include "Platform/UserMessage.h"
#include "QlDataAnalysisExt/Core/IOLDataSource.h"

using D = DataSourceDll;

extern "C" {

int DataSourceDllOpen(char* path) { return D::Open(path); }
int DataSourceDllClose(void) { return D::Close(); }

char* DataSourceDllGetSegmentDescription(int type) { return D::GetSegmentDescription(type); }
// The unit of force data is fixed; a static text, not to be released.
const char* DataSourceDllGetForceDataScaleUnits(void) { return "nN"; }

// Every reader of a source, from the reader table: those with a member of
// the class forward to it, the others run on the current source themselves.
namespace R = DataSourceReaders;
#define DS_READER(kind, Name, params, args, call) \
    DS_RESULT_##kind DataSourceDll##Name params { return D::Name args; }
#define DS_VARIANT(kind, Name, params, Reader, args) \
    DS_RESULT_##kind DataSourceDll##Name params { return D::Reader args; }
#define DS_NONMEMBER_READER(kind, Name, params, call) \
    DS_RESULT_##kind DataSourceDll##Name params { return DS_RUN_READER(kind, DataSourceDllState::Current(), call); }
#include "DataSourceDll/DataSourceReaderTable.h"

// Saving, on the current source only.
int DataSourceDllSaveAs(char* path) {
    return SourceCall::Int(DataSourceDllState::Current(),
                           [&](IOLDataSource& s) { return path && s.SaveAs(path, false) ? 1 : -1; });
}
int DataSourceDllSetNote(char* text) {
    return SourceCall::Int(DataSourceDllState::Current(), [&](IOLDataSource& s) {
        if (!text) {
            return -1;
        }
        s.SetNoteOfAll(text);
        return 1;
    });
}
int DataSourceDllSaveChannelAs(int channel, char* path) {
    return SourceCall::Int(DataSourceDllState::Current(), [&](IOLDataSource& s) {
        if (!path || channel < 0 || channel >= s.GetNumberOfChannels()) {
            return -1;
        }
        return s.SaveChannelAs(static_cast<unsigned>(channel), path, false) ? 1 : -1;
    });
}

void DataSourceDllFreeString(char* text) { delete[] text; }

void DataSourceDllSetMessageCallback(void (*cb)(const char* text, void* user), void* user) {
    if (!cb) {
        Orx::Core::SetUserMessageHandler(nullptr);
        return;
    }
    Orx::Core::SetUserMessageHandler([cb, user](const std::string& text) { cb(text.c_str(), user); });
}

void DataSourceDllSetLogCallback(void (*cb)(const char* logger, int severity, const char* text, void* user),
                                 void* user) {
    if (!cb) {
        Orx::Core::LogManager::Instance().SetSink(nullptr);
        return;
    }
    Orx::Core::LogManager::Instance().SetSink([cb, user](const std::string& logger, int severity,
                                                         const std::string& text) {
        cb(logger.c_str(), severity, text.c_str(), user);
    });
}

}  // extern "C"
