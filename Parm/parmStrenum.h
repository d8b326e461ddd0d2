#pragma once

// A parameter whose value is an index into a list of texts.

#include "Parm/ParmStrenumCommon.h"
#include "Parm/parm.h"

class parmStrenum : public parm, public ParmStrenumCommon {
public:
    explicit parmStrenum(std::uint64_t owner = 0);

    // "%-17s%10s        " of the title and the current text; nothing is
    // written when the index lies outside the list.
    void GetValueString(std::string* buffer) override;
    void WriteValueText(std::string& cursor) override;
    // The value: the longest text of the list that the cursor begins with,
    // after blanks and tabs.
    void ParseProps(std::string_view& cursor) override;
    // The short name and the current text; the unit text is cleared.
    void GetLimits(std::string* name, int which, std::string* value, std::string* unit) override;
    void GetLimitsTrial(std::string* name, int which, std::string* value, std::string* unit) override;
    // Mode 1 steps by delta; mode 0 gathers deltas until they make a step of
    // size step + 1. Answers whether the trial index moved.
    bool Step(std::string* name, int mode, std::int16_t delta, std::string* value, std::string* unit) override;
    void EndTrial(const std::string* text) override;
    void SetTrial(bool flag) override;

    // Moves the trial index by delta, wrapping around the list both ways;
    // answers the quotient of the wrapped sum by the count (0 for no list).
    virtual int StepIndex(std::int16_t delta);

private:
    // The current text, or null when the index lies outside the list.
    const char* CurrentText() const;
};
