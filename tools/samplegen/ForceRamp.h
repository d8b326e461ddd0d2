#pragma once

#include "tools/samplegen/ContactModel.h"

#include <cstdint>
#include <random>
#include <vector>

namespace SampleGen {

// One force curve of a linear ramp: the scanner moves from 0 to the ramp's
// end towards the sample, may hold there, and goes back. Every part is in
// the order of time, as an instrument records it: the approach from the far
// end of the ramp, the retract back to it.
struct ForceRamp {
    std::vector<double> approachZ, approachDeflection;
    std::vector<double> retractZ, retractDeflection;
    std::vector<double> holdZ, holdDeflection;

    struct Settings {
        int pointsPerHalf = 512;
        double rampNm = 280.0;
        int holdPoints = 0;
        double holdRelaxation = 0.0;  // fraction of the modulus lost over the hold
        double deflectionNoiseNm = 0.15;
        double zNoiseNm = 0.05;
        double zHysteresisNm = 0.0;  // the retract lags the approach by this much mid-ramp
    };

    static ForceRamp Run(ContactModel& tip, const Settings& settings, std::mt19937& random);

    // The curve as a channel of a force file holds it: approach, retract,
    // hold; of the deflection or of Z.
    std::vector<double> DeflectionChannel() const;
    std::vector<double> ZChannel(double offsetNm) const;
    // The same in the order of time: approach, hold, retract, as a script
    // records its segments one after the other.
    std::vector<double> DeflectionInTime() const;
    std::vector<double> ZInTime(double offsetNm) const;
};

}  // namespace SampleGen
