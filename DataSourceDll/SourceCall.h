#pragma once

// Runs one reader on a source that may be missing, in the three shapes of
// result the exports have. Nothing is raised past these calls: a host never
// sees an exception.

#include "DataSourceDll/DataSourceDllState.h"

#include <string>

class IOLDataSource;

class SourceCall {
public:
    // An integer result: -1 with no source or when the reader raises.
    template <class Reader>
    static int Int(IOLDataSource* source, Reader reader) {
        try {
            return source ? reader(*source) : -1;
        } catch (...) {
            return -1;
        }
    }

    // A fresh text, or "UNKNOWN" with no source, no answer or a raise.
    template <class Reader>
    static char* Text(IOLDataSource* source, Reader reader) {
        try {
            std::string text;
            if (source && reader(*source, text)) {
                return DataSourceDllState::NewText(text);
            }
        } catch (...) {
        }
        return DataSourceDllState::NewText("UNKNOWN");
    }

    // An integer result of a reader that writes its output before it looks
    // at the source, and so is given the source even when there is none.
    template <class Reader>
    static int Any(IOLDataSource* source, Reader reader) {
        try {
            return reader(source);
        } catch (...) {
            return -1;
        }
    }
};

// What a row of the reader table returns, and the reader it runs, by kind.
#define DS_RESULT_Int int
#define DS_RESULT_Text char*
#define DS_RESULT_Any int
#define DS_READER_LAMBDA_Int(call) [&](IOLDataSource& s) { return call; }
#define DS_READER_LAMBDA_Text(call) [&](IOLDataSource& s, std::string& text) { return call; }
#define DS_READER_LAMBDA_Any(call) [&](IOLDataSource* s) { return call; }
// Runs the reader of one row on source.
#define DS_RUN_READER(kind, source, call) SourceCall::kind(source, DS_READER_LAMBDA_##kind(call))
