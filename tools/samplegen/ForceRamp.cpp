#include "tools/samplegen/ForceRamp.h"

#include <algorithm>
#include <cmath>

namespace SampleGen {

namespace {

constexpr double kPi = 3.14159265358979323846;

std::vector<double> Joined(const std::vector<double>& a, const std::vector<double>& b, const std::vector<double>& c,
                           double offset)
{
    std::vector<double> out;
    out.reserve(a.size() + b.size() + c.size());
    for (const auto* part : {&a, &b, &c}) {
        for (double v : *part)
            out.push_back(v + offset);
    }
    return out;
}

}  // namespace

ForceRamp ForceRamp::Run(ContactModel& tip, const Settings& s, std::mt19937& random)
{
    std::normal_distribution<double> deflectionNoise(0.0, s.deflectionNoiseNm);
    std::normal_distribution<double> zNoise(0.0, s.zNoiseNm);
    const int n = std::max(s.pointsPerHalf, 2);
    const auto at = [&](int i) { return s.rampNm * i / (n - 1); };
    ForceRamp ramp;
    ramp.approachZ.resize(static_cast<std::size_t>(n));
    ramp.approachDeflection.resize(static_cast<std::size_t>(n));

    tip.SetRelaxation(1.0);
    tip.StartApproach();
    for (int i = 0; i < n; ++i) {
        const double z = at(i);
        const auto k = static_cast<std::size_t>(i);
        ramp.approachDeflection[k] = tip.Step(z) + deflectionNoise(random);
        ramp.approachZ[k] = z + zNoise(random);
    }
    double deflection = ramp.approachDeflection.back();
    for (int i = 0; i < s.holdPoints; ++i) {
        // The sample creeps under the tip: its modulus relaxes towards the
        // loss that the hold is given, with a time constant of a fifth of it.
        const double t = (i + 1.0) / s.holdPoints;
        tip.SetRelaxation(1.0 - s.holdRelaxation * (1.0 - std::exp(-5.0 * t)) / (1.0 - std::exp(-5.0)));
        deflection = tip.Step(s.rampNm);
        ramp.holdDeflection.push_back(deflection + deflectionNoise(random));
        ramp.holdZ.push_back(s.rampNm + zNoise(random));
    }
    tip.StartRetract();
    for (int i = n - 1; i >= 0; --i) {
        // piezo hysteresis: the way back runs a little behind the way in
        const double lag = s.zHysteresisNm * std::sin(kPi * i / (n - 1));
        const double z = at(i) + lag;
        ramp.retractDeflection.push_back(tip.Step(z) + deflectionNoise(random));
        ramp.retractZ.push_back(z + zNoise(random));
    }
    return ramp;
}

std::vector<double> ForceRamp::DeflectionChannel() const
{
    return Joined(approachDeflection, retractDeflection, holdDeflection, 0.0);
}

std::vector<double> ForceRamp::ZChannel(double offsetNm) const { return Joined(approachZ, retractZ, holdZ, offsetNm); }

std::vector<double> ForceRamp::DeflectionInTime() const
{
    return Joined(approachDeflection, holdDeflection, retractDeflection, 0.0);
}

std::vector<double> ForceRamp::ZInTime(double offsetNm) const { return Joined(approachZ, holdZ, retractZ, offsetNm); }

}  // namespace SampleGen
