#include "QlDataAnalysisExt/Core/OLDataItem.h"

namespace {
void getSettings(const OLDataItem::DisplaySettings& d, std::int32_t& table, std::uint32_t& v1, std::uint32_t& v2,
                 bool& flag) {
    table = static_cast<std::int32_t>(d.colorTable);
    v1 = d.colorValue1;
    v2 = d.colorValue2;
    flag = d.colorFlag;
}

void setSettings(OLDataItem::DisplaySettings& d, std::int32_t table, std::uint32_t v1, std::uint32_t v2, bool flag) {
    d.colorTable = static_cast<std::uint32_t>(table);
    d.colorValue1 = v1;
    d.colorValue2 = v2;
    d.colorFlag = flag;
}

ColorTableObject tableOf(const OLDataItem::DisplaySettings& d) {
    ColorTableObject t;
    t.interpolation = d.colorTableFlag;
    t.entries = d.tableEntries;
    t.positions = d.colorVectors;
    t.colorPoints = d.rangeVector;
    return t;
}

void storeTable(OLDataItem::DisplaySettings& d, const ColorTableObject& t) {
    d.colorTableFlag = t.interpolation;
    d.tableEntries = t.entries;
    d.colorVectors = t.positions;
    d.rangeVector = t.colorPoints;
    d.hasColorTable = true;
}

void setRanges(OLDataItem::DisplaySettings& d, std::uint32_t count, const std::vector<std::uint32_t>& a,
               const std::vector<std::uint32_t>& b, const std::vector<std::uint32_t>& c) {
    d.rangeCount = count;
    d.rangeVectors = {a, b, c};
}

void getRanges(const OLDataItem::DisplaySettings& d, std::uint32_t& count, std::vector<std::uint32_t>& a,
               std::vector<std::uint32_t>& b, std::vector<std::uint32_t>& c) {
    count = d.rangeCount;
    a = d.rangeVectors[0];
    b = d.rangeVectors[1];
    c = d.rangeVectors[2];
}
}  // namespace

std::uint32_t OLDataItem::GetDisplayRangeMode() const { return display1.displayRangeMode; }
void OLDataItem::SetDisplayRangeMode(std::uint32_t mode) { display1.displayRangeMode = mode; }

void OLDataItem::GetColorTableSettings(std::int32_t& table, std::uint32_t& v1, std::uint32_t& v2, bool& flag) const {
    getSettings(display1, table, v1, v2, flag);
}

void OLDataItem::SetColorTableSettings(std::int32_t table, std::uint32_t v1, std::uint32_t v2, bool flag) {
    // A new table number invalidates a stored custom table; the second display
    // deliberately keeps its table whatever the number.
    if (static_cast<std::uint32_t>(table) != display1.colorTable) {
        display1.hasColorTable = false;
    }
    setSettings(display1, table, v1, v2, flag);
}

void OLDataItem::SetHasColorTable(bool has) { display1.hasColorTable = has; }
bool OLDataItem::HasColorTable() const { return display1.hasColorTable; }
ColorTableObject OLDataItem::GetColorTable() const { return tableOf(display1); }
void OLDataItem::SetColorTable(const ColorTableObject& table) { storeTable(display1, table); }
void OLDataItem::SetColorEntries(const ColorEntries& entries) { display1.colorEntries = entries; }
ColorEntry* OLDataItem::GetColorEntries() { return display1.colorEntries.data(); }
void OLDataItem::SetColorRanges(std::uint32_t count, const std::vector<std::uint32_t>& a,
                                const std::vector<std::uint32_t>& b, const std::vector<std::uint32_t>& c) {
    setRanges(display1, count, a, b, c);
}
void OLDataItem::GetColorRanges(std::uint32_t& count, std::vector<std::uint32_t>& a, std::vector<std::uint32_t>& b,
                                std::vector<std::uint32_t>& c) const {
    getRanges(display1, count, a, b, c);
}

void OLDataItem::SetDisplayFlag(bool flag) { display1.displayFlag = flag; }
bool OLDataItem::GetDisplayFlag() const { return display1.displayFlag; }

void OLDataItem::GetSecondColorTableSettings(std::int32_t& table, std::uint32_t& v1, std::uint32_t& v2,
                                             bool& flag) const {
    getSettings(display2, table, v1, v2, flag);
}
void OLDataItem::SetSecondColorTableSettings(std::int32_t table, std::uint32_t v1, std::uint32_t v2, bool flag) {
    setSettings(display2, table, v1, v2, flag);
}
void OLDataItem::SetHasSecondColorTable(bool has) { display2.hasColorTable = has; }
bool OLDataItem::HasSecondColorTable() const { return display2.hasColorTable; }
ColorTableObject OLDataItem::GetSecondColorTable() const { return tableOf(display2); }
void OLDataItem::SetSecondColorTable(const ColorTableObject& table) { storeTable(display2, table); }
void OLDataItem::SetSecondColorEntries(const ColorEntries& entries) { display2.colorEntries = entries; }
ColorEntry* OLDataItem::GetSecondColorEntries() { return display2.colorEntries.data(); }
void OLDataItem::SetSecondColorRanges(std::uint32_t count, const std::vector<std::uint32_t>& a,
                                      const std::vector<std::uint32_t>& b, const std::vector<std::uint32_t>& c) {
    setRanges(display2, count, a, b, c);
}
void OLDataItem::GetSecondColorRanges(std::uint32_t& count, std::vector<std::uint32_t>& a,
                                      std::vector<std::uint32_t>& b, std::vector<std::uint32_t>& c) const {
    getRanges(display2, count, a, b, c);
}
