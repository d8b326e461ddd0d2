#pragma once

#include "tools/samplegen/Raster.h"

#include <cstdint>
#include <vector>

namespace SampleGen {

// A flat sample with a few things on it, as a scan sees it: round bumps
// (particles, or flat islands when their edge is short), fibres lying along
// curved paths, a terrace step, the whole tilted against the scanner, with
// the noise of the instrument and a small offset from line to line. The phase
// tells the materials apart and darkens on steep edges.
class FeatureSurface {
public:
    struct Bump {
        double xNm, yNm;
        double radiusNm;
        double edgeNm;  // width of the rim; equal to the radius for a dome
        double heightNm;
        double phaseDeg;  // phase on top, against the substrate
    };
    struct Fibre {
        double fromXNm, fromYNm, toXNm, toYNm;
        double waveNm;     // sideways swing of its path
        double widthNm;
        double heightNm;
        double phaseDeg;
    };
    struct Shape {
        std::vector<Bump> bumps;
        std::vector<Fibre> fibres;
        double stepHeightNm = 0.0;  // the terrace beyond the step line is higher
        double stepAtXNm = 0.0;     // where the step crosses the bottom edge
        double stepSlope = 0.0;     // its drift in x per nm of y
        double tiltXNmPerUm = 0.0;
        double tiltYNmPerUm = 0.0;
        double heightNoiseNm = 0.1;
        double lineOffsetNm = 0.0;  // spread of each line's offset
        double substratePhaseDeg = 0.0;
        double edgePhaseDeg = 0.0;  // change of the phase where the surface is steepest
        double phaseNoiseDeg = 0.2;
    };

    FeatureSurface(Shape shape, double scanSizeNm, int pixels, std::uint32_t seed);

    std::vector<double> Heights();  // nm
    std::vector<double> Phases();   // deg

private:
    // The surface without tilt, noise or step: how high the features stand
    // at a place, and how much of a feature's material is there (0 to 1).
    double FeatureHeight(double xNm, double yNm, double* phaseDeg, double* steepness) const;
    double StepHeight(double xNm, double yNm) const;
    double LineOffset(double yNm) const;

    Shape shape_;
    double scanSizeNm_;
    Raster raster_;
    std::vector<double> lineOffsets_;
};

}  // namespace SampleGen
