#include "QlDataAnalysisExt/Core/OLDataItemCheckpoint.h"
#include "QlDataAnalysisExt/Core/OLDataSource.h"

#include <new>

IOLDataItemCheckpoint* OLDataSource::CreateCheckpoint(unsigned channel) {
    if (channel >= items.size()) {
        return nullptr;
    }
    return new (std::nothrow) OLDataItemCheckpoint(items[channel]);
}

IOLDataItemCheckpoint* OLDataSource::CreateNamedCheckpoint(unsigned channel, std::string name) {
    auto* checkpoint = static_cast<OLDataItemCheckpoint*>(CreateCheckpoint(channel));
    if (checkpoint) {
        checkpoint->SetName(std::move(name));
    }
    return checkpoint;
}

void OLDataSource::RestoreCheckpoint(unsigned channel, IOLDataItemCheckpoint* checkpoint) {
    if (checkpoint && channel < items.size()) {
        checkpoint->Restore(&items[channel]);
    }
}

void OLDataSource::DeleteCheckpoint(IOLDataItemCheckpoint* checkpoint) { delete checkpoint; }
