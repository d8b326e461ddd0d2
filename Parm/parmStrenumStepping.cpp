// Trial values of a string enumeration: stepping through the list and ending
// the trial.

#include "Parm/parmStrenum.h"

#include <cstdlib>

int parmStrenum::StepIndex(std::int16_t delta) {
    if (trial == 0) {
        trialIndex = index;
        trial = 1;
    }
    const std::int64_t count = Count();
    if (count == 0) {
        return 0;
    }
    const std::int64_t magnitude = std::abs(static_cast<int>(delta));
    const std::int64_t sum = (magnitude / count + 1) * count + trialIndex + delta;
    trialIndex = static_cast<std::int32_t>(sum % count);
    return static_cast<int>(sum / count);
}

bool parmStrenum::Step(std::string* name, int mode, std::int16_t delta, std::string* value, std::string* unit) {
    if (delta == 0) {
        return false;
    }
    int steps = delta;
    if (mode == 0) {
        const int accumulated = stepAccumulator + delta;
        if (step != 0) {
            const int stepSize = step + 1;
            const int count = std::abs(accumulated) / stepSize;
            stepAccumulator = static_cast<std::int16_t>(accumulated % stepSize);
            if (count < 1) {
                return false;
            }
            steps = accumulated < 0 ? -count : count;
        } else {
            stepAccumulator = 0;
        }
    } else if (mode != 1) {
        return false;
    }
    StepIndex(static_cast<std::int16_t>(steps));
    GetLimits(name, 2, value, unit);
    return true;
}

// The trial starts at the lowest index, found by stepping up once and then
// down for as long as the index falls.
void parmStrenum::SetTrial(bool flag) {
    if (flag && trial == 0 && Count() > 0) {
        StepIndex(1);
        std::int32_t lowest = trialIndex;
        for (int left = Count(); left > 0; --left) {
            StepIndex(-1);
            if (trialIndex >= lowest) {
                break;
            }
            lowest = trialIndex;
        }
        trialIndex = lowest;
    }
    trial = flag ? 1 : 0;
}

void parmStrenum::EndTrial(const std::string* text) {
    if (text == nullptr) {
        if (trial != 0) {
            SetIndexChecked(trialIndex);
        }
        trial = 0;
        return;
    }
    trial = 0;
    for (int i = Count() - 1; i >= 0; --i) {
        if (*text == texts[i]) {
            index = i;
        }
    }
}
