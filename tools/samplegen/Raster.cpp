#include "tools/samplegen/Raster.h"

namespace SampleGen {

Raster::Raster(double scanSizeNm, int pixels, std::uint32_t seed)
    : scanSizeNm_(scanSizeNm), pixels_(pixels), random_(seed)
{
}

double Raster::Coordinate(int pixel) const { return (pixel + 0.5) * scanSizeNm_ / pixels_; }

std::vector<double> Raster::Scan(double noiseSigma, const std::function<double(double, double)>& valueAt)
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

}  // namespace SampleGen
