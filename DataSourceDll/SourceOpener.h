#pragma once

// Opening a file into a slot: the family by the ".tef" extension first and
// otherwise by the type text that the file layer reports, then the source's
// Initialize and IsOpen. Nothing is raised.

class SourceSlot;

namespace SourceOpener {

// The text that names the ".tef" family where the others name their type.
inline constexpr const char* kTefFileType = ".tef";

// 1 when path is open in slot; -1 otherwise, and then the slot holds no source.
int Open(const char* path, SourceSlot& slot);

}  // namespace SourceOpener
