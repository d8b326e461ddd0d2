#include "tools/samplegen/TefSamples.h"

#include "tools/samplegen/GratingSurface.h"
#include "tools/samplekit/TefBuilder.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace SampleGen {

namespace {

using SampleKit::TefBuilder;

// What a channel of a sample shows, and the Z range its pixels span.
struct SampleChannel {
    const char* storedName;  // the builder's first channel kinds are a topography and a phase
    const char* unit;
    double rangeOriginPhysical;  // the value at pixel 0
    double zRange;               // the span of all pixel values
    std::vector<double> values;  // top row first
};

// Values to stored pixels of that many bits in use, bottom row first as the
// file keeps them.
std::vector<std::uint32_t> ToPixels(const SampleChannel& channel, int width, int bitsInUse)
{
    const double full = std::ldexp(1.0, bitsInUse) - 1.0;
    std::vector<std::uint32_t> pixels;
    pixels.reserve(channel.values.size());
    const auto rows = channel.values.size() / static_cast<std::size_t>(width);
    for (std::size_t row = rows; row-- > 0;) {
        for (int column = 0; column < width; ++column) {
            const double value = channel.values[row * static_cast<std::size_t>(width) + static_cast<std::size_t>(column)];
            const double fraction = (value - channel.rangeOriginPhysical) / channel.zRange;
            pixels.push_back(static_cast<std::uint32_t>(std::lround(std::clamp(fraction, 0.0, 1.0) * full)));
        }
    }
    return pixels;
}

// A scan as an instrument writes it: the builder's records with this scan's
// values, one channel section per channel.
TefBuilder Scan(const std::vector<SampleChannel>& channels, int pixels, double scanSizeNm, std::uint16_t bytesPerPixel,
                int bitsInUse, const char* note)
{
    const auto count = static_cast<std::uint16_t>(channels.size());
    const auto side = static_cast<std::uint16_t>(pixels);
    TefBuilder builder(count, side, side, bytesPerPixel);
    builder.note = note;
    builder.majorVersion = 2;
    builder.minorVersion = 4;
    // records kept by the format but of no meaning to a sample; 119 and 120
    // stay, as every instrument writes them and the rewriter counts on them
    for (std::uint16_t id : {12, 13, 20, 21, 25, 26, 27})
        builder.Remove(id);
    builder.Set(2, TefBuilder::Double(scanSizeNm));
    builder.Set(3, TefBuilder::Double(scanSizeNm));
    builder.Set(9, TefBuilder::Double(1.0));
    builder.Set(10, TefBuilder::Text("SN-20417"));
    builder.Set(11, TefBuilder::Word(static_cast<std::uint16_t>(bitsInUse)));
    builder.Set(16, TefBuilder::Text("2024-05-14 09:32:07"));
    builder.Set(18, TefBuilder::Double(0.0));
    builder.Set(19, TefBuilder::Double(0.0));
    builder.Set(23, TefBuilder::Double(0.35));
    builder.Set(24, TefBuilder::Double(0.8));
    builder.Set(117, TefBuilder::Double(0.0));
    builder.Set(118, TefBuilder::Double(0.0));
    builder.Set(145, TefBuilder::Dword(0));
    for (std::uint16_t i = 0; i < count; ++i) {
        const SampleChannel& channel = channels[i];
        builder.Set(static_cast<std::uint16_t>(100 + i), TefBuilder::Text(channel.unit));
        builder.Set(static_cast<std::uint16_t>(108 + i), TefBuilder::Double(channel.zRange));
        builder.Set(static_cast<std::uint16_t>(121 + i), TefBuilder::Double(channel.rangeOriginPhysical));
        builder.Set(static_cast<std::uint16_t>(129 + i), TefBuilder::Double(0.0));
        builder.Set(static_cast<std::uint16_t>(137 + i), TefBuilder::Text(channel.storedName));
        builder.Set(static_cast<std::uint16_t>(146 + i), TefBuilder::Word(static_cast<std::uint16_t>(bitsInUse)));
        builder.channels[i].direction = 1;  // every channel of the trace
        builder.channels[i].pixels = ToPixels(channel, pixels, bitsInUse);
    }
    return builder;
}

}  // namespace

void TefSamples::WriteGrating(const std::string& path)
{
    constexpr int kPixels = 512;
    constexpr double kScanNm = 50000.0;
    GratingSurface surface({}, kScanNm, kPixels, 20240514u);
    TefBuilder builder =
        Scan({{"Topography", "nm", -150.0, 200.0, surface.Heights()}, {"Phase", "deg", -10.0, 60.0, surface.Phases()}}, kPixels, kScanNm, 2,
             16, "Calibration grating: 10 um pitch, 100 nm deep square pits. Tapping mode in air.");
    builder.Save(path);
}

void TefSamples::WriteGrating12Bit(const std::string& path)
{
    constexpr int kPixels = 256;
    constexpr double kScanNm = 30000.0;
    GratingSurface::Shape shape;
    shape.heightNoiseNm = 1.5;
    GratingSurface surface(shape, kScanNm, kPixels, 20240515u);
    TefBuilder builder = Scan({{"Topography", "nm", -150.0, 200.0, surface.Heights()}}, kPixels, kScanNm, 4, 12,
                              "Calibration grating, 12-bit converter: 10 um pitch, 100 nm deep square pits.");
    builder.Save(path);
}

}  // namespace SampleGen
