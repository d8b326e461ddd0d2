#pragma once

// What a host gives a data source to turn edit points into a colour table and
// to say how it treats the colour settings of a file. The defaults are those
// of a host that shows no colour: no table is made and the file's settings are
// skipped.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cstdint>
#include <vector>

struct ColorTableRequest {
    bool interpolation = false;
    std::array<std::vector<std::uint32_t>, 3> positions;  // red, green, blue
    std::array<std::vector<std::uint32_t>, 3> values;     // red, green, blue
};

class ICreateColorTableCallback {
public:
    virtual ~ICreateColorTableCallback() = default;
    virtual void CreateTable(const ColorTableRequest& request, ColorEntries& entries);
    virtual std::int32_t DefaultColorTableIndex();
    virtual bool SkipColorTables();
    virtual bool ReservedTest1();
    virtual bool ReservedTest2();
};

// A callback of a host that shows colour: it builds tables by interpolating
// between the edit points and reads the file's colour settings.
class InterpolatingColorTableCallback : public ICreateColorTableCallback {
public:
    void CreateTable(const ColorTableRequest& request, ColorEntries& entries) override;
    std::int32_t DefaultColorTableIndex() override { return 12; }
    bool SkipColorTables() override { return false; }
};
