// Quillon samples of images: topography with phase, a strip chart, and an
// electrochemistry file.

#include "tools/samplegen/QuillonSamples.h"

#include "tools/samplegen/FeatureSurface.h"
#include "tools/samplegen/QuillonSampleFile.h"

#include <cmath>
#include <random>
#include <tuple>

namespace SampleGen {

namespace {

constexpr int kImagePixels = 256;
constexpr double kImageScanNm = 2000.0;

// Gold particles of 10 to 25 nm, seen through a 20 nm tip, and two fibres
// lying on mica with one cleavage step, tilted against the scanner.
FeatureSurface::Shape ParticlesOnMica()
{
    FeatureSurface::Shape s;
    s.bumps = {
        {420.0, 1510.0, 38.0, 38.0, 17.0, -9.0},  {1380.0, 1620.0, 30.0, 30.0, 12.0, -8.5},
        {1100.0, 700.0, 46.0, 46.0, 24.0, -10.0}, {600.0, 420.0, 26.0, 26.0, 9.0, -7.5},
        {1650.0, 380.0, 34.0, 34.0, 14.0, -9.0},  {1750.0, 1150.0, 28.0, 28.0, 11.0, -8.0},
        {260.0, 900.0, 32.0, 32.0, 13.0, -8.5},
    };
    s.fibres = {
        {150.0, 250.0, 1850.0, 1050.0, 120.0, 14.0, 1.8, 4.0},
        {300.0, 1900.0, 900.0, 1150.0, 60.0, 12.0, 1.5, 3.5},
    };
    s.stepHeightNm = 1.0;
    s.stepAtXNm = 1250.0;
    s.stepSlope = -0.3;
    s.tiltXNmPerUm = 4.0;
    s.tiltYNmPerUm = -2.5;
    s.heightNoiseNm = 0.12;
    s.lineOffsetNm = 0.15;
    s.substratePhaseDeg = 0.0;
    s.edgePhaseDeg = -3.0;
    s.phaseNoiseDeg = 0.25;
    return s;
}

// Height and phase of the particle sample in samples of that many bytes.
void WriteParticleImage(const std::string& path, const std::string& version, const std::string& date,
                        int bytesPerSample, std::uint32_t seed, double heightVolts)
{
    FeatureSurface surface(ParticlesOnMica(), kImageScanNm, kImagePixels, seed);
    QuillonSampleFile file("IMAGE", version, date);
    file.ScanGeometry(kImagePixels, kImagePixels, kImageScanNm, 1.0);
    const ChannelScale height("Sens. Zsens", heightVolts, 12.5, "nm");
    const ChannelScale phase("Sens. Phase", 5.0, 18.0, "\xBA");
    file.ImageChannel(0, "Height", height, bytesPerSample, kImagePixels, kImagePixels, surface.Heights());
    file.ImageChannel(1, "Phase", phase, bytesPerSample, kImagePixels, kImagePixels, surface.Phases());
    file.Builder().Text(file.Channel(1), "Line Direction", "Retrace");
    file.Write(path);
}

// Copper islands deposited on a gold electrode, a few nm high.
FeatureSurface::Shape CopperOnGold()
{
    FeatureSurface::Shape s;
    std::mt19937 random(7u);
    std::uniform_real_distribution<double> place(60.0, 940.0), size(25.0, 70.0);
    for (int i = 0; i < 14; ++i)
        s.bumps.push_back({place(random), place(random), size(random), 8.0, 2.5 + 0.03 * size(random), 0.0});
    s.tiltXNmPerUm = 1.5;
    s.tiltYNmPerUm = 0.8;
    s.heightNoiseNm = 0.08;
    s.lineOffsetNm = 0.05;
    return s;
}

}  // namespace

void QuillonSamples::WriteImage(const std::string& path)
{
    WriteParticleImage(path, "0x08150000", "10:42:17 AM Thu Mar 14 2019", 2, 20190314u, 20.0);
}

void QuillonSamples::WriteImage32(const std::string& path)
{
    WriteParticleImage(path, "0x09020000", "02:05:51 PM Wed Jun 12 2024", 4, 20240612u, 440.0);
}

void QuillonSamples::WriteTimed(const std::string& path)
{
    // 64 lines of 256 samples at 200 Hz: thermal drift, noise, and two
    // steps where molecules of the layer under the tip give way.
    constexpr int kLines = 64, kSamples = 256;
    constexpr double kRateHz = 200.0;
    std::mt19937 random(1207u);
    std::normal_distribution<double> noise(0.0, 0.06), walk(0.0, 0.004);
    std::vector<double> heights;
    double wander = 0.0;
    for (int k = 0; k < kLines * kSamples; ++k) {
        const double t = k / kRateHz;
        wander += walk(random);
        const double steps = (t > 23.5 ? -1.6 : 0.0) + (t > 61.2 ? -2.1 : 0.0);
        heights.push_back(0.035 * t + wander + steps + noise(random));
    }
    QuillonSampleFile file("TIMED", "0x09020000", "09:12:40 AM Mon Feb 05 2024");
    file.ScanGeometry(kLines, kSamples, 0.0, kRateHz / kSamples);
    file.Builder().Int(SampleKit::QuillonBuilder::kScanList, "Strip Chart Rate", static_cast<std::int32_t>(kRateHz));
    file.ImageChannel(0, "Height", ChannelScale("Sens. Zsens", 20.0, 12.5, "nm"), 2, kLines, kSamples, heights);
    file.Write(path);
}

void QuillonSamples::WriteElectrochemistry(const std::string& path)
{
    constexpr int kPixels = 128;
    constexpr double kScanNm = 1000.0;
    FeatureSurface surface(CopperOnGold(), kScanNm, kPixels, 5150u);
    const std::vector<double> heights = surface.Heights();
    // The tip current is highest over the copper, which is more active.
    std::vector<double> currents;
    std::normal_distribution<double> noise(0.0, 0.02);
    std::mt19937 random(5151u);
    for (double h : heights)
        currents.push_back(0.4 + 0.12 * std::max(h, 0.0) + noise(random));

    QuillonSampleFile file("ECAFM", "0x09020000", "04:30:02 PM Tue Oct 17 2023");
    file.ScanGeometry(kPixels, kPixels, kScanNm, 0.8);
    file.ImageChannel(0, "Height", ChannelScale("Sens. Zsens", 20.0, 12.5, "nm"), 4, kPixels, kPixels, heights);
    // One sensitivity serves the tip current of the image and the cell current.
    const ChannelScale current("Sens. EC Current", 10.0, 10.0, "nA");
    file.ImageChannel(1, "Current", current, 4, kPixels, kPixels, currents);

    // Two cycles of a voltammogram at 50 mV/s from -0.4 V to 0.8 V: a double
    // layer current, copper deposited below 0 V and stripped above it.
    constexpr int kPoints = 1920;
    std::vector<double> potentials, cycleCurrents;
    for (int k = 0; k < kPoints; ++k) {
        const double phase = std::fmod(2.0 * k / (kPoints / 2.0), 2.0);  // 0..2 per cycle
        const bool rising = phase >= 1.0;
        const double u = rising ? -0.4 + 1.2 * (phase - 1.0) : 0.8 - 1.2 * phase;
        const double layer = rising ? 1.5 : -1.5;
        const double deposit = rising ? 0.0 : -18.0 * std::exp(-std::pow((u + 0.12) / 0.07, 2.0));
        const double strip = rising ? 24.0 * std::exp(-std::pow((u - 0.12) / 0.05, 2.0)) : 0.0;
        potentials.push_back(u + 0.002 * noise(random));
        cycleCurrents.push_back(layer + deposit + strip + noise(random));
    }
    const ChannelScale potential("Sens. EC Pot", 10.0, 1.0, "V");
    for (const auto& [channel, scale, values] : {std::tuple{std::size_t{2}, potential, potentials},
                                                 std::tuple{std::size_t{3}, current, cycleCurrents}}) {
        file.Sensitivity(scale);
        file.Builder()
            .Text(file.Channel(channel), "@2:Z scale", scale.ScaleText(4))
            .Double(file.Channel(channel), "Temporal time range", kPoints / 40.0)
            .Double(file.Channel(channel), "Temporal time end", kPoints / 40.0)
            .Samples32(channel, 1, kPoints, scale.Counts32(values));
    }
    file.Write(path);
}

}  // namespace SampleGen
