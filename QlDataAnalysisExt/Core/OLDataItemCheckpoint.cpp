#include "QlDataAnalysisExt/Core/OLDataItemCheckpoint.h"

#include "Platform/Archive.h"
#include "Platform/FileSystem.h"

#include <algorithm>
#include <cstring>
#include <new>

OLDataItemCheckpoint::OLDataItemCheckpoint(const OLDataItem& source) : item(source) {
    const std::uint32_t n = item.GetDataSize();
    if (n == 0 || item.GetData() == nullptr) {
        return;
    }
    try {
        samples.reset(new std::int32_t[n]);
        std::memcpy(samples.get(), item.GetData(), static_cast<std::size_t>(n) * sizeof(std::int32_t));
    } catch (const std::bad_alloc&) {
        samples.reset();
    }
}

void OLDataItemCheckpoint::Save(std::string path) {
    const std::string target = std::move(path);
    path.clear();
    if (target.empty()) {
        return;
    }
    try {
        Orx::Core::MemoryArchiveStream stream;
        Orx::Core::Archive ar(stream, Orx::Core::Archive::store);
        item.Serialize(ar);
        if (samples) {
            for (std::uint32_t i = 0; i < item.GetDataSize(); ++i) {
                ar.WriteI32(samples[i]);
            }
        }
        Orx::Core::WriteFileAtomically(target, stream.Bytes().data(), stream.Bytes().size());
    } catch (const std::exception&) {
        // a failed store leaves no file behind and the checkpoint as it was
    }
}

bool OLDataItemCheckpoint::Load(std::string path) {
    const std::string source = std::move(path);
    path.clear();
    if (source.empty()) {
        return false;
    }
    try {
        std::vector<std::uint8_t> bytes;
        if (!Orx::Core::ReadWholeFile(source, bytes)) {
            return false;
        }
        Orx::Core::MemoryArchiveStream stream(std::move(bytes));
        Orx::Core::Archive ar(stream, Orx::Core::Archive::load);
        item.Serialize(ar);
        samples.reset();
        const std::uint32_t n = item.GetDataSize();
        // The samples must be in the file before memory is given to them.
        if (static_cast<std::uint64_t>(n) * 4 > ar.Remaining()) {
            return false;
        }
        if (n > 0) {
            samples.reset(new std::int32_t[n]);
            for (std::uint32_t i = 0; i < n; ++i) {
                samples[i] = ar.ReadI32();
            }
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void OLDataItemCheckpoint::Restore(IOLDataItem* target) {
    auto* restored = dynamic_cast<OLDataItem*>(target);
    if (!restored) {
        return;
    }
    std::int32_t* keptData = restored->GetData();
    const std::uint32_t keptSize = restored->GetDataSize();
    const std::uint32_t n = item.GetDataSize();
    if (!samples) {
        // Without samples only the fields go back; the target keeps its own.
        *restored = item;
        restored->SetData(keptData, keptSize);
        return;
    }
    // The target's own buffer takes the samples; one too small takes nothing.
    if (!keptData || n > keptSize) {
        return;
    }
    *restored = item;
    restored->SetData(keptData, n);
    std::copy(samples.get(), samples.get() + n, keptData);
}
