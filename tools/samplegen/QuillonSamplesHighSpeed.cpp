// The Quillon high-speed capture sample: one cycle of peak force tapping
// recorded at 6.25 MHz.

#include "tools/samplegen/QuillonSamples.h"

#include "tools/samplegen/ContactModel.h"
#include "tools/samplegen/QuillonSampleFile.h"

#include <cmath>
#include <random>

namespace SampleGen {

namespace {

constexpr double kPi = 3.14159265358979323846;

}  // namespace

void QuillonSamples::WriteHighSpeed(const std::string& path)
{
    // Z swings 200 nm at 1562.5 Hz, so one cycle is 4000 samples: the first
    // half goes down onto the sample, the second comes back up.
    constexpr int kSamples = 4000;
    constexpr double kRateHz = 6.25e6, kAmplitudeNm = 100.0;
    constexpr double kLeverHz = 70e3, kRingSeconds = 60e-6;  // the lever rings after it snaps free
    ContactModel::Sample sample;
    sample.surfaceZNm = 170.0;
    sample.reducedModulusPa = 300e6;
    sample.adhesionNN = 3.0;
    sample.neckNm = 5.0;
    ContactModel tip({10.0, 0.4}, sample);
    std::mt19937 random(6250u);
    std::normal_distribution<double> noise(0.0, 0.25), zNoise(0.0, 0.1);

    std::vector<double> deflections, zs;
    double ringFrom = -1.0, ringAmplitude = 0.0, before = 0.0;
    tip.StartApproach();
    for (int k = 0; k < kSamples; ++k) {
        if (k == kSamples / 2)
            tip.StartRetract();
        const double t = k / kRateHz;
        const double phase = 2.0 * kPi * k / kSamples;
        const double z = kAmplitudeNm * (1.0 - std::cos(phase));
        double deflection = tip.Step(z);
        if (k > kSamples / 2 && ringFrom < 0.0 && deflection - before > 1.0) {
            ringFrom = t;
            ringAmplitude = 0.5 * (before - deflection);
        }
        before = deflection;
        if (ringFrom >= 0.0)
            deflection += ringAmplitude * std::exp(-(t - ringFrom) / kRingSeconds) * std::cos(2.0 * kPi * kLeverHz * (t - ringFrom));
        // the air's drag bends the lever against the motion
        deflection -= 0.4 * std::sin(phase);
        deflections.push_back(deflection + noise(random));
        zs.push_back(z - kAmplitudeNm + zNoise(random));
    }

    QuillonSampleFile file("HSDC", "0x09020000", "08:58:12 AM Wed Nov 06 2024");
    const struct {
        const char* type;
        ChannelScale scale;
        const std::vector<double>& values;
    } channels[] = {{"Deflection", ChannelScale("", 20.0, 45.5, "nm"), deflections},
                    {"Z Sensor", ChannelScale("", 20.0, 12.5, "nm"), zs}};
    for (std::size_t c = 0; c < 2; ++c) {
        file.Builder()
            .Int(file.Channel(c), "Number of samples", kSamples)
            .Text(file.Channel(c), "High Speed Data Type", channels[c].type)
            .Double(file.Channel(c), "High Speed Data Channel Rate", kRateHz)
            .Unitized(file.Channel(c), "High Speed Data Hard Scale", 20.0, "V")
            .Unitized(file.Channel(c), "High Speed Data Soft Scale", channels[c].scale.FullScale() / 20.0, "nm/V")
            .Samples16(c, 1, kSamples, channels[c].scale.Counts16(channels[c].values));
    }
    file.Write(path);
}

}  // namespace SampleGen
