// What a file is, as a person reads it: the type text of the current file,
// and every section and key of a file at a path. Both answer a text or
// "UNKNOWN"; no exception leaves them.

#include "DataSourceDll/DataSourceDll.h"

#include "DataSourceDll/DataSourceDllState.h"
#include "Platform/DataCore/DataFile.h"

#include <string>

namespace {

const char* const kUnknown = "UNKNOWN";

// One key per line, whatever the value holds.
void AppendOneLine(std::string& out, const std::string& value) {
    for (const char c : value) {
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else {
            out += c;
        }
    }
}

std::string DumpOf(const Orx::DataCore::DataFile& file) {
    std::string out;
    for (const std::string& section : file.GetPlistNames()) {
        const auto container = file.GetContainer({section});
        AppendOneLine(out, section);
        out += '\n';
        for (const std::string& key : file.GetPlistKeys(section)) {
            out += "  ";
            AppendOneLine(out, key);
            out += " = ";
            AppendOneLine(out, file.GetFormattedValueString(container, key));
            out += '\n';
        }
        out += '\n';
    }
    return out;
}

}  // namespace

extern "C" {

char* DataSourceDllGetFileTypeText(void) {
    try {
        const std::string type = DataSourceDllState::FileType();
        return DataSourceDllState::NewText(DataSourceDllState::Current() && !type.empty() ? type : kUnknown);
    } catch (...) {
        return nullptr;
    }
}

char* DataSourceDllDumpParameters(char* path) {
    try {
        if (!path) {
            return DataSourceDllState::NewText(kUnknown);
        }
        const auto file = Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr);
        if (!file) {
            return DataSourceDllState::NewText(kUnknown);
        }
        return DataSourceDllState::NewText(DumpOf(*file));
    } catch (...) {
        try {
            return DataSourceDllState::NewText(kUnknown);
        } catch (...) {
            return nullptr;
        }
    }
}

}  // extern "C"
