#include "Parm/segment_type_force.h"

namespace {

const char* const kSegmentTypes[] = {
    "Unknown Segment", "Extend Z", "Trigger Down", "Retract Z", "Trigger Up", "Hold Force", "Hold Z", nullptr,
};

const char* const kSegmentTypeTitle = "Segment Type";

}  // namespace

segment_type_force::segment_type_force() {
    texts = kSegmentTypes;
    name = kSegmentTypeTitle;
    SetTitle(kSegmentTypeTitle);
    id = kId;
    index = 0;
    isSet = 1;
}
