// Quillon samples of force curves: a single curve with a hold, force
// volumes with and without the crest load capture, and a script.

#include "tools/samplegen/QuillonSamples.h"

#include "tools/samplegen/ContactModel.h"
#include "tools/samplegen/ForceRamp.h"
#include "tools/samplegen/QuillonSampleFile.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace SampleGen {

namespace {

using SampleKit::QuillonBuilder;

constexpr double kPi = 3.14159265358979323846;
constexpr double kSpringNPerM = 0.4;
constexpr double kTipRadiusNm = 20.0;

const ChannelScale kDeflection("Sens. DeflSens", 24.576, 45.5, "nm");
const ChannelScale kZ("Sens. Zsens", 40.0, 12.5, "nm");

// A soft polymer: 50 MPa, with a neck that pulls 4 nN before it snaps; the
// model's defaults are such a sample.
ContactModel::Sample SoftPolymer(double surfaceZNm) { return {.surfaceZNm = surfaceZNm}; }

// One curve into the soft polymer, its surface at that Z of the ramp.
ForceRamp PolymerRamp(double surfaceZNm, const ForceRamp::Settings& settings, std::uint32_t seed)
{
    ContactModel tip({kTipRadiusNm, kSpringNPerM}, SoftPolymer(surfaceZNm));
    std::mt19937 random(seed);
    return ForceRamp::Run(tip, settings, random);
}

// The deflection and Z channels of curves, row after row.
struct CurveChannels {
    std::vector<double> deflection, z;

    void Add(const std::vector<double>& curveDeflection, const std::vector<double>& curveZ)
    {
        deflection.insert(deflection.end(), curveDeflection.begin(), curveDeflection.end());
        z.insert(z.end(), curveZ.begin(), curveZ.end());
    }
};

// A force volume over a grid of pixels: the image of channel 0 and every
// pixel's curve in channels 1 and 2.
void WriteVolume(QuillonSampleFile& file, int side, double scanNm, const std::vector<double>& heights,
                 const CurveChannels& curves, std::size_t curveLength)
{
    const auto count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    file.ScanGeometry(side, side, scanNm, 0.25);
    file.Builder().Int(QuillonBuilder::kForceList, "force/line", static_cast<std::int32_t>(count));
    file.ImageChannel(0, "Height", ChannelScale("Sens. Zsens", 20.0, 12.5, "nm"), 4, side, side, heights);
    file.ForceChannel(1, "Deflection Error", kDeflection, count, curveLength, curves.deflection);
    file.ForceChannel(2, "Height Sensor", kZ, count, curveLength, curves.z);
}

// Raw cycles of a capture from the two halves that the force volume reader
// is to give back: the reader rotates a cycle by the capture's phase and
// reverses its first half, and this undoes both.
std::vector<double> CaptureCycle(const std::vector<double>& first, const std::vector<double>& second, int shift)
{
    const int trace = static_cast<int>(first.size());
    const int n = trace + static_cast<int>(second.size());
    std::vector<double> rotated(first.rbegin(), first.rend());
    rotated.insert(rotated.end(), second.begin(), second.end());
    std::vector<double> w(static_cast<std::size_t>(n));
    const int start = ((shift + 1 - n / 2) % n + n) % n;
    for (int i = 0; i < n; ++i)
        w[static_cast<std::size_t>((start + i) % n)] = rotated[static_cast<std::size_t>(i)];
    std::vector<double> raw(w.size());
    for (int i = 0; i < trace; ++i)
        raw[static_cast<std::size_t>(trace - 1 - i)] = w[static_cast<std::size_t>(i)];
    std::copy(w.begin() + trace, w.end(), raw.begin() + trace);
    return raw;
}

}  // namespace

void QuillonSamples::WriteForce(const std::string& path)
{
    constexpr int kHalf = 512, kHold = 256;
    constexpr double kRampNm = 280.0, kHoldSeconds = 0.5;
    const ForceRamp ramp = PolymerRamp(
        200.0, {.pointsPerHalf = kHalf, .rampNm = kRampNm, .holdPoints = kHold, .holdRelaxation = 0.25, .zHysteresisNm = 2.5},
        511u);

    QuillonSampleFile file("FORCE", "0x09020000", "11:20:33 AM Fri Sep 20 2024");
    file.Ramp(kHalf, kHold, kHoldSeconds, kZ, kRampNm, 2.0 * kRampNm);
    const std::size_t columns = 2 * kHalf + kHold;
    file.ForceChannel(0, "Deflection Error", kDeflection, 1, columns, ramp.DeflectionChannel());
    file.ForceChannel(1, "Height Sensor", kZ, 1, columns, ramp.ZChannel(-kRampNm / 2.0));
    file.Write(path);
}

void QuillonSamples::WriteForceVolume(const std::string& path)
{
    // Stiff, less sticky domains of 400 MPa stand 6 nm out of a 40 MPa matrix.
    constexpr int kSide = 16, kHalf = 128;
    constexpr double kScanNm = 1000.0, kRampNm = 200.0, kSurfaceNm = 120.0;
    struct Domain {
        double x, y, radius;
    };
    const Domain domains[] = {{280.0, 700.0, 190.0}, {720.0, 300.0, 230.0}, {800.0, 820.0, 110.0}};
    std::mt19937 random(1616u);
    std::normal_distribution<double> heightNoise(0.0, 0.2);
    std::vector<double> heights;
    CurveChannels curves;
    for (int row = 0; row < kSide; ++row) {
        for (int column = 0; column < kSide; ++column) {
            const double x = (column + 0.5) * kScanNm / kSide, y = (kSide - row - 0.5) * kScanNm / kSide;
            double part = 0.0;
            for (const Domain& d : domains)
                part = std::max(part, std::clamp((d.radius - std::hypot(x - d.x, y - d.y)) / 40.0 + 0.5, 0.0, 1.0));
            const double height = 6.0 * part;
            ContactModel::Sample sample = SoftPolymer(kSurfaceNm - height);
            sample.reducedModulusPa = 40e6 + (400e6 - 40e6) * part;
            sample.adhesionNN = 6.0 - 4.0 * part;
            ContactModel tip({kTipRadiusNm, kSpringNPerM}, sample);
            ForceRamp::Settings settings;
            settings.pointsPerHalf = kHalf;
            settings.rampNm = kRampNm;
            const ForceRamp ramp = ForceRamp::Run(tip, settings, random);
            curves.Add(ramp.DeflectionChannel(), ramp.ZChannel(-kRampNm / 2.0));
            heights.push_back(height + 1.5 * x / 1000.0 + heightNoise(random));
        }
    }
    QuillonSampleFile file("FVOL", "0x09020000", "03:47:09 PM Mon Apr 08 2024");
    file.Ramp(kHalf, 0, 0.0, kZ, kRampNm, 4.0 * kRampNm);
    WriteVolume(file, kSide, kScanNm, heights, curves, 2 * kHalf);
    file.Write(path);
}

void QuillonSamples::WriteForceVolumeCapture(const std::string& path)
{
    // The capture's Z is the sine of the tapping cycle, 0 to 300 nm; the
    // sample's surface stands at 220 nm of it.
    constexpr int kSide = 8, kHalf = 128, kCycle = 2 * kHalf;
    constexpr int kSamplePoints = 1024;
    constexpr double kSyncDistance = 64.0, kAmplitudeNm = 150.0, kScanNm = 500.0;
    // The reader's phase: the sync distance scaled to the cycle's points.
    const int shift = static_cast<int>(kSyncDistance * kCycle / kSamplePoints + 0.5);
    const auto captureZ = [&](int i) { return kAmplitudeNm * std::cos(2.0 * kPi * (i - (kHalf - 1)) / kCycle) + kAmplitudeNm; };

    std::mt19937 random(808u);
    std::normal_distribution<double> noise(0.0, 0.12);
    std::vector<double> heights;
    CurveChannels curves;
    for (int pixel = 0; pixel < kSide * kSide; ++pixel) {
        const double x = (pixel % kSide + 0.5) / kSide, y = (pixel / kSide + 0.5) / kSide;
        ContactModel::Sample sample = SoftPolymer(220.0);
        sample.reducedModulusPa = 80e6 * (1.0 + 1.5 * x);  // a gradient of cross-linking
        sample.adhesionNN = 2.0 + 3.0 * y;
        ContactModel tip({kTipRadiusNm, kSpringNPerM}, sample);
        std::vector<double> first(kHalf), second(kHalf), firstZ(kHalf), secondZ(kHalf);
        tip.StartApproach();
        for (int i = 0; i < kHalf; ++i) {
            firstZ[static_cast<std::size_t>(kHalf - 1 - i)] = captureZ(i);
            first[static_cast<std::size_t>(kHalf - 1 - i)] = tip.Step(captureZ(i)) + noise(random);
        }
        tip.StartRetract();
        for (int j = 0; j < kHalf; ++j) {
            secondZ[static_cast<std::size_t>(j)] = captureZ(kHalf + j);
            second[static_cast<std::size_t>(j)] = tip.Step(captureZ(kHalf + j)) + noise(random);
        }
        std::vector<double> z = CaptureCycle(firstZ, secondZ, shift);
        for (double& v : z)
            v -= kAmplitudeNm;
        curves.Add(CaptureCycle(first, second, shift), z);
        heights.push_back(2.0 * x + noise(random));
    }
    QuillonSampleFile file("FVOL", "0x09020000", "01:15:26 PM Thu May 23 2024");
    file.Ramp(kHalf, 0, 0.0, kZ, 2.0 * kAmplitudeNm, 2000.0 * 4.0 * kAmplitudeNm);
    file.Builder()
        .Text(QuillonBuilder::kScanList, "Crestload Capture", "On")
        .Double(QuillonBuilder::kScanList, "Sync Distance", kSyncDistance)
        .Int(QuillonBuilder::kScanList, "Sample Points", kSamplePoints)
        .Double(QuillonBuilder::kScanList, "Crest Load Amplitude", kAmplitudeNm)
        .Text(QuillonBuilder::kScanList, "CLT Freq", "2 kHz");
    WriteVolume(file, kSide, kScanNm, heights, curves, kCycle);
    file.Write(path);
}

void QuillonSamples::WriteScript(const std::string& path)
{
    // Extend 250 nm in 1 s, hold Z for 0.5 s while the polymer relaxes by a
    // third, retract in 1 s.
    constexpr int kRampPoints = 400, kHoldPoints = 200;
    constexpr double kRampNm = 250.0;
    const ForceRamp ramp = PolymerRamp(
        170.0, {.pointsPerHalf = kRampPoints, .rampNm = kRampNm, .holdPoints = kHoldPoints, .holdRelaxation = 0.35},
        3003u);

    QuillonSampleFile file("SCRIPT", "0x09020000", "05:02:44 PM Tue Jul 30 2024");
    file.Ramp(kRampPoints, kHoldPoints, 0.5, kZ, kRampNm, kRampNm);
    const std::string sizes = "400,200,400";
    file.Builder()
        .Text(QuillonBuilder::kForceList, "Segment Number", "3")
        .Text(QuillonBuilder::kForceList, "Segment Size", sizes)
        .Text(QuillonBuilder::kForceList, "Segment Samples", sizes)
        .Text(QuillonBuilder::kForceList, "Segment Duration", "1,0.5,1")
        .Text(QuillonBuilder::kForceList, "Segment Ramp Type", "1,0,1")
        .Text(QuillonBuilder::kForceList, "Segment Ramp Start", "0,250,250")
        .Text(QuillonBuilder::kForceList, "Segment Ramp Size", "250,0,-250")
        .Text(QuillonBuilder::kForceList, "Segment Type", "1,6,3");
    const std::size_t columns = 2 * kRampPoints + kHoldPoints;
    file.ForceChannel(0, "Deflection Error", kDeflection, 1, columns, ramp.DeflectionInTime());
    file.ForceChannel(1, "Height Sensor", kZ, 1, columns, ramp.ZInTime(-kRampNm / 2.0));
    file.Write(path);
}

}  // namespace SampleGen
