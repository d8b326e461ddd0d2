#include "tools/samplegen/GratingSurface.h"

#include <algorithm>
#include <cmath>

namespace SampleGen {

GratingSurface::GratingSurface(Shape shape, double scanSizeNm, int pixels, std::uint32_t seed)
    : shape_(shape), scanSizeNm_(scanSizeNm), pixels_(pixels), random_(seed)
{
}

double GratingSurface::Coordinate(int pixel) const { return (pixel + 0.5) * scanSizeNm_ / pixels_; }

double GratingSurface::PitDepthFraction(double xNm, double yNm) const
{
    // Distance into the pit along one axis: positive inside, with the pit
    // centred in its cell; the slope of the wall runs across its edge.
    const auto inside = [&](double v) {
        const double inCell = std::fmod(v, shape_.pitchNm) - shape_.pitchNm / 2.0;
        const double fromEdge = shape_.pitNm / 2.0 - std::abs(inCell);
        return std::clamp(fromEdge / shape_.wallNm + 0.5, 0.0, 1.0);
    };
    return std::min(inside(xNm), inside(yNm));
}

double GratingSurface::WallPart(double xNm, double yNm) const
{
    const double depth = PitDepthFraction(xNm, yNm);
    if (depth <= 0.0 || depth >= 1.0)
        return 0.0;
    return 1.0 - std::abs(2.0 * depth - 1.0);
}

std::vector<double> GratingSurface::Scan(double noiseSigma, const std::function<double(double, double)>& valueAt)
{
    std::normal_distribution<double> noise(0.0, noiseSigma);
    std::vector<double> out;
    out.reserve(static_cast<std::size_t>(pixels_) * static_cast<std::size_t>(pixels_));
    for (int row = 0; row < pixels_; ++row) {
        // top row first: the top of the picture is the far end of the scan
        const double y = Coordinate(pixels_ - 1 - row);
        for (int column = 0; column < pixels_; ++column)
            out.push_back(valueAt(Coordinate(column), y) + noise(random_));
    }
    return out;
}

std::vector<double> GratingSurface::Heights()
{
    return Scan(shape_.heightNoiseNm, [this](double x, double y) {
        const double tilt = shape_.tiltXNmPerUm * x / 1000.0 + shape_.tiltYNmPerUm * y / 1000.0;
        return tilt - shape_.depthNm * PitDepthFraction(x, y);
    });
}

std::vector<double> GratingSurface::Phases()
{
    return Scan(shape_.phaseNoiseDeg, [this](double x, double y) {
        return shape_.topPhaseDeg + (shape_.floorPhaseDeg - shape_.topPhaseDeg) * PitDepthFraction(x, y) +
               (shape_.wallPhaseDeg - shape_.topPhaseDeg) * WallPart(x, y);
    });
}

}  // namespace SampleGen
