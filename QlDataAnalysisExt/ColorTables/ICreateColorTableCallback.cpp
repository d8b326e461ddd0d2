#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"

#include "QlDataAnalysisExt/ColorTables/ColorTableStore.h"

void ICreateColorTableCallback::CreateTable(const ColorTableRequest&, ColorEntries&) {}
std::int32_t ICreateColorTableCallback::DefaultColorTableIndex() { return 0; }
bool ICreateColorTableCallback::SkipColorTables() { return true; }
bool ICreateColorTableCallback::ReservedTest1() { return true; }
bool ICreateColorTableCallback::ReservedTest2() { return false; }

void InterpolatingColorTableCallback::CreateTable(const ColorTableRequest& request, ColorEntries& entries) {
    InterpolateChannel(request.positions[0], request.values[0], entries, &ColorEntry::red);
    InterpolateChannel(request.positions[1], request.values[1], entries, &ColorEntry::green);
    InterpolateChannel(request.positions[2], request.values[2], entries, &ColorEntry::blue);
}
