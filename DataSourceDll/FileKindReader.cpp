// The kinds that a file answers to, for hosts that choose their reads by it.

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceReaders.h"

#include "QlDataAnalysisExt/Core/IOLDataSource.h"

namespace DataSourceReaders {

int GetFileKinds(IOLDataSource& s, int* kinds) {
    if (!kinds) {
        return -1;
    }
    const struct {
        bool holds;
        int bit;
    } predicates[] = {
        {s.IsImageFile(), DATASOURCEDLL_KIND_IMAGE},
        {s.IsForceFile(), DATASOURCEDLL_KIND_FORCE},
        {s.IsForceVolumeFile(), DATASOURCEDLL_KIND_FORCE_VOLUME},
        {s.IsHsdcFile(), DATASOURCEDLL_KIND_HIGH_SPEED},
        {s.IsScriptFile(), DATASOURCEDLL_KIND_SCRIPT},
        {s.IsTimedFile(), DATASOURCEDLL_KIND_TIMED},
        {s.IsTimedForceFile(), DATASOURCEDLL_KIND_TIMED_FORCE},
        {s.IsEcFile(), DATASOURCEDLL_KIND_EC},
        {s.IsEcStmFile(), DATASOURCEDLL_KIND_EC_STM},
        {s.IsEcAfmFile(), DATASOURCEDLL_KIND_EC_AFM},
        {s.IsEcForceFile(), DATASOURCEDLL_KIND_EC_FORCE},
        {s.IsHarlenFile(), DATASOURCEDLL_KIND_HARLEN},
    };
    int bits = 0;
    for (const auto& p : predicates) {
        if (p.holds) {
            bits |= p.bit;
        }
    }
    *kinds = bits;
    return 1;
}

}  // namespace DataSourceReaders
