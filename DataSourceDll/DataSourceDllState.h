#pragma once

// The one process-wide current source of the flat exports. Not exported: the
// tests install in-memory sources through it. Like the flat exports it
// serves, it is meant for one calling thread; handles have sources of their own.

#include <memory>
#include <string>

class IOLDataSource;
class ICreateColorTableCallback;
class SourceSlot;

namespace DataSourceDllState {

// The current source, null when no file is open.
IOLDataSource* Current();
// The type text that chose the current source's family; empty with none.
std::string FileType();
// Makes source the current one; the previous owner is released (not closed).
void Install(std::shared_ptr<IOLDataSource> source, std::unique_ptr<ICreateColorTableCallback> callback = {},
             std::string fileType = {});
// Closes the current source, if any, and releases it.
void CloseCurrent();
// Releases the current source without closing it.
void Release();
// The place of the current source, which Open fills.
SourceSlot& Slot();

// A fresh copy of a text result, released with delete[]; null when memory fails.
char* NewText(const std::string& text);

}  // namespace DataSourceDllState
