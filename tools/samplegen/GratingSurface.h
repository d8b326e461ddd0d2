#pragma once

#include "tools/samplegen/Raster.h"

#include <cstdint>
#include <vector>

namespace SampleGen {

// A calibration grating as a scan sees it: a flat top with square pits on a
// square pitch, walls widened by the tip, the whole sample tilted against
// the scanner, and noise of the instrument. Values are given row by row,
// top row first, over a square scan that starts at the pit grid's origin.
class GratingSurface {
public:
    struct Shape {
        double pitchNm = 10000.0;
        double pitNm = 5000.0;     // side of a pit
        double depthNm = 100.0;
        double wallNm = 250.0;     // width of a wall's slope
        double tiltXNmPerUm = 0.40;
        double tiltYNmPerUm = -0.25;
        double heightNoiseNm = 0.8;
        // phase: the top, the pit floors, the dip on the walls
        double topPhaseDeg = 12.0;
        double floorPhaseDeg = 17.5;
        double wallPhaseDeg = 6.0;
        double phaseNoiseDeg = 0.3;
    };

    GratingSurface(Shape shape, double scanSizeNm, int pixels, std::uint32_t seed);

    std::vector<double> Heights();  // nm
    std::vector<double> Phases();   // deg

private:
    // 0 on the top, 1 on a pit floor, in between on a wall.
    double PitDepthFraction(double xNm, double yNm) const;
    // How far along a wall, 1 in its middle and 0 away from any wall.
    double WallPart(double xNm, double yNm) const;

    Shape shape_;
    Raster raster_;
};

}  // namespace SampleGen
