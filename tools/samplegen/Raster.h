#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <vector>

namespace SampleGen {

// The pixels of a square scan, as a scan sees a surface: each pixel's value
// at its place plus noise of the instrument, row by row, top row first,
// over a scan that starts at the origin of the surface's coordinates.
class Raster {
public:
    Raster(double scanSizeNm, int pixels, std::uint32_t seed);

    int Pixels() const { return pixels_; }
    // The place of a pixel's centre along either axis, in nm.
    double Coordinate(int pixel) const;
    // Every pixel's value at (x, y), with noise of that spread added.
    std::vector<double> Scan(double noiseSigma, const std::function<double(double, double)>& valueAt);
    // A random number source shared by the scans of one surface.
    std::mt19937& Random() { return random_; }

private:
    double scanSizeNm_;
    int pixels_;
    std::mt19937 random_;
};

}  // namespace SampleGen
