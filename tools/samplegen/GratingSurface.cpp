#include "tools/samplegen/GratingSurface.h"

#include <algorithm>
#include <cmath>

namespace SampleGen {

GratingSurface::GratingSurface(Shape shape, double scanSizeNm, int pixels, std::uint32_t seed)
    : shape_(shape), raster_(scanSizeNm, pixels, seed)
{
}

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

std::vector<double> GratingSurface::Heights()
{
    return raster_.Scan(shape_.heightNoiseNm, [this](double x, double y) {
        const double tilt = shape_.tiltXNmPerUm * x / 1000.0 + shape_.tiltYNmPerUm * y / 1000.0;
        return tilt - shape_.depthNm * PitDepthFraction(x, y);
    });
}

std::vector<double> GratingSurface::Phases()
{
    return raster_.Scan(shape_.phaseNoiseDeg, [this](double x, double y) {
        return shape_.topPhaseDeg + (shape_.floorPhaseDeg - shape_.topPhaseDeg) * PitDepthFraction(x, y) +
               (shape_.wallPhaseDeg - shape_.topPhaseDeg) * WallPart(x, y);
    });
}

}  // namespace SampleGen
