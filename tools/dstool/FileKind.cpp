#include "tools/dstool/FileKind.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/LibrarySession.h"

namespace Dstool {

namespace {

struct KindName {
    int bit;
    const char* name;
};

// A script file holds force curves too, a force volume an image: the more
// particular kind comes first.
constexpr KindName kKinds[] = {
    {DATASOURCEDLL_KIND_SCRIPT, "script"},
    {DATASOURCEDLL_KIND_FORCE_VOLUME, "force volume"},
    {DATASOURCEDLL_KIND_HIGH_SPEED, "high-speed"},
    {DATASOURCEDLL_KIND_TIMED_FORCE, "timed force"},
    {DATASOURCEDLL_KIND_TIMED, "timed"},
    {DATASOURCEDLL_KIND_EC_FORCE, "electrochemistry force"},
    {DATASOURCEDLL_KIND_EC_AFM, "electrochemistry AFM"},
    {DATASOURCEDLL_KIND_EC_STM, "electrochemistry STM"},
    {DATASOURCEDLL_KIND_EC, "electrochemistry"},
    {DATASOURCEDLL_KIND_IMAGE, "image"},
    {DATASOURCEDLL_KIND_FORCE, "force"},
};

int KindBits()
{
    int bits = 0;
    return DataSourceDllGetFileKinds(&bits) == 1 ? bits : 0;
}

}  // namespace

std::string FileKind::TypeText() { return LibrarySession::TakeText(DataSourceDllGetFileTypeText()); }

std::string FileKind::Family()
{
    const std::string type = TypeText();
    if (type == "Quillon Data File")
        return "Quillon";
    if (type == "Harlen Data File")
        return "Harlen";
    if (type == ".tef")
        return "tef";
    return type;
}

std::vector<std::string> FileKind::Kinds()
{
    const int bits = KindBits();
    std::vector<std::string> kinds;
    for (const KindName& kind : kKinds) {
        if (bits & kind.bit)
            kinds.push_back(kind.name);
    }
    return kinds;
}

std::string FileKind::OfOpenFile()
{
    const std::vector<std::string> kinds = Kinds();
    return kinds.empty() ? "unknown" : kinds.front();
}

bool FileKind::Is(int kindBit) { return (KindBits() & kindBit) != 0; }

}  // namespace Dstool
