#pragma once

#include "QlDataAnalysisExt/Core/IOLDataItemCheckpoint.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <cstdint>
#include <memory>
#include <string>

class OLDataItemCheckpoint : public IOLDataItemCheckpoint {
public:
    // Copies the item and, when it has samples, makes a private copy of them.
    explicit OLDataItemCheckpoint(const OLDataItem& source);
    ~OLDataItemCheckpoint() override = default;

    bool Load(std::string path) override;
    void Save(std::string path) override;
    void Restore(IOLDataItem* target) override;

    const OLDataItem& Item() const { return item; }
    const std::int32_t* Samples() const { return samples.get(); }
    const std::string& GetName() const { return name; }
    void SetName(std::string text) { name = std::move(text); }

private:
    OLDataItem item;
    std::unique_ptr<std::int32_t[]> samples;
    std::string name;
};
