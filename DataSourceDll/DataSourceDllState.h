#pragma once

// The one process-wide current source of the flat exports. Not exported: the
// tests install in-memory sources through it.

#include <memory>
#include <string>

class IOLDataSource;
class ICreateColorTableCallback;

namespace DataSourceDllState {

// The current source, null when no file is open.
IOLDataSource* Current();
// Makes source the current one; the previous owner is released (not closed).
void Install(std::shared_ptr<IOLDataSource> source, std::unique_ptr<ICreateColorTableCallback> callback = {});
// Closes the current source, if any, and releases it.
void CloseCurrent();
// Releases the current source without closing it.
void Release();

// A fresh copy of a text result, released with delete[]; null when memory fails.
char* NewText(const std::string& text);

}  // namespace DataSourceDllState
