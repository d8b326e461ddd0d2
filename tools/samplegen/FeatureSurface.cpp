#include "tools/samplegen/FeatureSurface.h"

#include <algorithm>
#include <cmath>

namespace SampleGen {

namespace {

constexpr double kPi = 3.14159265358979323846;

// 0 below from, 1 above to, smooth between.
double SmoothStep(double from, double to, double v)
{
    const double t = std::clamp((v - from) / (to - from), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

// Distance from a point to the curved path of a fibre: the straight line
// from its start to its end, swung sideways by one half sine wave.
double DistanceToFibre(const FeatureSurface::Fibre& f, double x, double y)
{
    constexpr int kPieces = 48;
    const double dx = f.toXNm - f.fromXNm, dy = f.toYNm - f.fromYNm;
    const double length = std::hypot(dx, dy);
    const double nx = -dy / length, ny = dx / length;
    const auto at = [&](int i, double& px, double& py) {
        const double t = static_cast<double>(i) / kPieces;
        const double swing = f.waveNm * std::sin(2.0 * kPi * t);
        px = f.fromXNm + dx * t + nx * swing;
        py = f.fromYNm + dy * t + ny * swing;
    };
    double best = 1e300;
    double ax = 0.0, ay = 0.0;
    at(0, ax, ay);
    for (int i = 1; i <= kPieces; ++i) {
        double bx = 0.0, by = 0.0;
        at(i, bx, by);
        const double sx = bx - ax, sy = by - ay;
        const double t = std::clamp(((x - ax) * sx + (y - ay) * sy) / (sx * sx + sy * sy), 0.0, 1.0);
        best = std::min(best, std::hypot(x - ax - t * sx, y - ay - t * sy));
        ax = bx;
        ay = by;
    }
    return best;
}

}  // namespace

FeatureSurface::FeatureSurface(Shape shape, double scanSizeNm, int pixels, std::uint32_t seed)
    : shape_(std::move(shape)), scanSizeNm_(scanSizeNm), raster_(scanSizeNm, pixels, seed)
{
    std::normal_distribution<double> offset(0.0, shape_.lineOffsetNm);
    for (int row = 0; row < pixels; ++row)
        lineOffsets_.push_back(shape_.lineOffsetNm > 0.0 ? offset(raster_.Random()) : 0.0);
}

double FeatureSurface::FeatureHeight(double x, double y, double* phaseDeg, double* steepness) const
{
    double height = 0.0, phase = 0.0, steep = 0.0;
    for (const Bump& b : shape_.bumps) {
        const double r = std::hypot(x - b.xNm, y - b.yNm);
        if (r >= b.radiusNm)
            continue;
        // A dome when the rim is the whole radius, a plateau when it is short.
        const double inside = (b.radiusNm - r) / b.edgeNm;
        const double h = b.heightNm * (b.edgeNm >= b.radiusNm ? std::sqrt(1.0 - (r / b.radiusNm) * (r / b.radiusNm))
                                                              : SmoothStep(0.0, 1.0, inside));
        if (h > height) {
            height = h;
            phase = b.phaseDeg * std::min(1.0, 4.0 * h / b.heightNm);
            steep = std::max(steep, 1.0 - std::abs(2.0 * std::min(inside, 1.0) - 1.0));
        }
    }
    for (const Fibre& f : shape_.fibres) {
        const double d = DistanceToFibre(f, x, y);
        if (d >= f.widthNm)
            continue;
        const double h = f.heightNm * 0.5 * (1.0 + std::cos(kPi * d / f.widthNm));
        if (h > height) {
            height = h;
            phase = f.phaseDeg;
        }
    }
    *phaseDeg = phase;
    *steepness = steep;
    return height;
}

double FeatureSurface::StepHeight(double x, double y) const
{
    const double stepX = shape_.stepAtXNm + shape_.stepSlope * y;
    // a step is a few nanometres wide at the tip's resolution
    return shape_.stepHeightNm * SmoothStep(stepX - 6.0, stepX + 6.0, x);
}

double FeatureSurface::LineOffset(double y) const
{
    const int pixels = raster_.Pixels();
    const int row = std::clamp(static_cast<int>(y / scanSizeNm_ * pixels), 0, pixels - 1);
    return lineOffsets_[static_cast<std::size_t>(row)];
}

std::vector<double> FeatureSurface::Heights()
{
    return raster_.Scan(shape_.heightNoiseNm, [this](double x, double y) {
        double phase = 0.0, steep = 0.0;
        const double tilt = shape_.tiltXNmPerUm * x / 1000.0 + shape_.tiltYNmPerUm * y / 1000.0;
        return tilt + StepHeight(x, y) + FeatureHeight(x, y, &phase, &steep) + LineOffset(y);
    });
}

std::vector<double> FeatureSurface::Phases()
{
    return raster_.Scan(shape_.phaseNoiseDeg, [this](double x, double y) {
        double phase = 0.0, steep = 0.0;
        FeatureHeight(x, y, &phase, &steep);
        return shape_.substratePhaseDeg + phase + shape_.edgePhaseDeg * steep;
    });
}

}  // namespace SampleGen
