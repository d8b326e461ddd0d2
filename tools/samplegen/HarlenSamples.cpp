#include "tools/samplegen/HarlenSamples.h"

#include "tools/samplegen/ContactModel.h"
#include "tools/samplegen/FeatureSurface.h"
#include "tools/samplegen/ForceRamp.h"
#include "tools/samplekit/HarlenBuilder.h"

#include <random>

namespace SampleGen {

namespace {

using SampleKit::HarlenBuilder;

// 512 positions of a ramp from the builder's start to its end, Z in nm and
// deflection in volts, then for 16 labels force in nN and the lateral signal.
void WriteForce(const std::string& path, int labels)
{
    constexpr int kPositions = 512;
    ContactModel::Sample membrane;
    membrane.surfaceZNm = 600.0;  // 200 nm on the ramp's own scale
    membrane.reducedModulusPa = 20e6;
    membrane.attractionNN = 0.2;
    membrane.adhesionNN = 1.5;
    membrane.neckNm = 25.0;  // a membrane tether stretches far before it lets go
    ContactModel tip({30.0, HarlenBuilder::kSpringConstant}, membrane);
    ForceRamp::Settings settings;
    settings.pointsPerHalf = kPositions;
    settings.rampNm = HarlenBuilder::kRampEnd - HarlenBuilder::kRampStart;
    settings.deflectionNoiseNm = 0.3;
    std::mt19937 random(static_cast<std::uint32_t>(labels));
    const ForceRamp ramp = ForceRamp::Run(tip, settings, random);

    std::normal_distribution<double> lateralNoise(0.0, 0.002);
    const std::size_t perHalf = labels == 16 ? 4 : 2;
    Orx::DataCore::FloatMatrixVector curves;
    // The ramp's positions run from its start at the sample to its end far
    // from it: the trace comes in from the last position, the retrace goes
    // out from the first, and the file keeps both by position.
    for (std::size_t c = 0; c < kPositions; ++c) {
        const std::size_t approach = kPositions - 1 - c;
        const double halves[2][2] = {{ramp.approachZ[approach], ramp.approachDeflection[approach]},
                                     {ramp.retractZ[c], ramp.retractDeflection[c]}};
        Orx::DataCore::FloatMatrix m(2 * perHalf, 1);
        for (std::size_t h = 0; h < 2; ++h) {
            const double z = HarlenBuilder::kRampEnd - halves[h][0], deflection = halves[h][1];
            const double rows[4] = {z, deflection / HarlenBuilder::kDeflectionSensitivity,
                                    deflection * HarlenBuilder::kSpringConstant,
                                    (h == 0 ? 0.004 : -0.004) * deflection / 10.0 + lateralNoise(random)};
            for (std::size_t row = 0; row < perHalf; ++row)
                m(h * perHalf + row, 0) = static_cast<float>(rows[row]);
        }
        curves.push_back(std::move(m));
    }
    HarlenBuilder::Force(kPositions, labels)
        .Text("[Point Spectroscopy Data]", "Approach Rate", "0.8 um/s")
        .Text("[Point Spectroscopy Data]", "Retreat Rate", "0.8 um/s")
        .Curves(curves)
        .Write(path);
}

}  // namespace

void HarlenSamples::WriteImage(const std::string& path)
{
    constexpr int kPixels = 256;
    constexpr double kScanNm = HarlenBuilder::kScanRange * 1000.0;
    FeatureSurface::Shape s;
    // bilayer patches, 4.5 nm high with steep rims, and vesicles on them
    s.bumps = {
        {1300.0, 3400.0, 720.0, 30.0, 4.5, 0.0}, {3600.0, 3800.0, 520.0, 30.0, 4.5, 0.0},
        {2600.0, 1500.0, 900.0, 30.0, 4.5, 0.0}, {800.0, 900.0, 380.0, 30.0, 4.5, 0.0},
        {4200.0, 1200.0, 300.0, 30.0, 4.5, 0.0}, {2700.0, 1600.0, 70.0, 70.0, 22.0, 0.0},
        {1250.0, 3300.0, 60.0, 60.0, 18.0, 0.0}, {4300.0, 2600.0, 55.0, 55.0, 16.0, 0.0},
    };
    s.tiltXNmPerUm = -1.2;
    s.tiltYNmPerUm = 2.0;
    s.heightNoiseNm = 0.1;
    s.lineOffsetNm = 0.08;
    FeatureSurface surface(s, kScanNm, kPixels, 4500u);
    const std::vector<double> heights = surface.Heights();
    HarlenBuilder::Image(kPixels, kPixels)
        .Text("[Data Parameters]", "DataName", "Topography")
        .Heights(kPixels, kPixels, std::vector<float>(heights.begin(), heights.end()))
        .Write(path);
}

void HarlenSamples::WriteForce8(const std::string& path) { WriteForce(path, 8); }
void HarlenSamples::WriteForce16(const std::string& path) { WriteForce(path, 16); }

}  // namespace SampleGen
