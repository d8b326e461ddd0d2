#pragma once

// The type of a force script segment as text. For a type number t,
// segment_type_force().GetText(t) is its text, null from 7 on, and the text of
// index 0, "Unknown Segment", for a negative t.

#include "Parm/parmStrenum.h"

class segment_type_force : public parmStrenum {
public:
    static constexpr std::uint32_t kId = 14706;

    segment_type_force();
};
