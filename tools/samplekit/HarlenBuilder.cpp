#include "tools/samplekit/HarlenBuilder.h"

#include <algorithm>
#include <cmath>

namespace SampleKit {

using Orx::DataCore::FloatMatrix;
using Orx::DataCore::FloatMatrixVector;

HarlenBuilder::HarlenBuilder() : container_(ContainerBuilder::Harlen()) {}

HarlenBuilder HarlenBuilder::Image(std::size_t rows, std::size_t columns) {
    HarlenBuilder b;
    b.container_.Section("HarlenFileOverviewInfo").Text("FileSubType", "IMAGE").Int("NumberOfDataPlists", 1);
    b.container_.Section("[Data Version]").Text("Program", "Harlen").Text("Version", "2.4.1");
    b.container_.Section("[Data Parameters]")
        .Text("CreationTime", kCreationTime)
        .Text("DataName", "Topography")
        .Unitized("ScanRangeX", kScanRange, "\xB5m")
        .Unitized("ScanRangeY", kScanRange, "\xB5m")
        .Int("ResolutionX", static_cast<std::int32_t>(columns))
        .Int("ResolutionY", static_cast<std::int32_t>(rows))
        .Text("Rotation", "30.0\xB0")
        .Int("DataOffset", kDataOffset)
        .Text("ScanningRate", "1.5 Hz")
        .Text("ScanDirection", "Forward")
        .Text("ZTransferCoefficient", kZTransfer)
        .Text("ZUnit", kZUnit)
        .Text("Leveling", "None")
        .Int("Color Table Index", kColorTableIndex);
    b.container_.Section("[PreProcessing]").Text("Leveling", "Line");
    b.container_.Section("[System Info]").Text("Mode", "Contact").Text("SetPoint", "0.5V").Text("GainI", "1.2(P/I)");
    b.container_.Section("[Data]").FloatMatrix("RawData", rows, columns, FeatureHeights(rows, columns));
    return b;
}

HarlenBuilder HarlenBuilder::Force(std::size_t count, int labels) {
    HarlenBuilder b;
    b.container_.Section("HarlenFileOverviewInfo")
        .Text("FileSubType", "FORCE")
        .Int("NumberOfDataPlists", 2)
        .Text("ForceCurveDataLabels", labels == 16 ? kLabels16 : kLabels8)
        .Int("DataOffset", kDataOffset);
    b.container_.Section("[Point Spectroscopy Data]")
        .Text("Approach Rate", "1.0 um/s")
        .Text("Retreat Rate", "2.0 um/s")
        .Unitized("Z Start", kRampStart, "nm")
        .Unitized("Z End", kRampEnd, "nm")
        .Text("Deflection Sensitivity", "45.5 nm")
        .Text("Spring Constant", "0.2 N/m");
    b.container_.Section("[Data]").FloatMatrices("RawData", RampCurves(count, labels));
    return b;
}

std::vector<float> HarlenBuilder::FeatureHeights(std::size_t rows, std::size_t columns) {
    struct Particle {
        double x, y, radius, height;  // in fractions of the image, height in nm
    };
    const Particle particles[] = {{0.25, 0.3, 0.08, 18.0}, {0.7, 0.65, 0.12, 25.0}, {0.6, 0.2, 0.05, 9.0}};
    std::vector<float> heights(rows * columns);
    for (std::size_t r = 0; r < rows; ++r) {
        for (std::size_t c = 0; c < columns; ++c) {
            const double x = columns > 1 ? static_cast<double>(c) / static_cast<double>(columns - 1) : 0.0;
            const double y = rows > 1 ? static_cast<double>(r) / static_cast<double>(rows - 1) : 0.0;
            double h = 2.0 * x + 1.5 * y + (x > 0.45 ? 4.0 : 0.0);
            for (const auto& p : particles) {
                const double d2 = (x - p.x) * (x - p.x) + (y - p.y) * (y - p.y);
                h += p.height * std::exp(-d2 / (p.radius * p.radius));
            }
            heights[r * columns + c] = static_cast<float>(h);
        }
    }
    return heights;
}

FloatMatrixVector HarlenBuilder::RampCurves(std::size_t count, int labels) {
    // Rows of one position: Z and deflection (and, with 16 labels, force and
    // lateral signal) of the trace, then the same of the retrace.
    const std::size_t perHalf = labels == 16 ? 4 : 2;
    FloatMatrixVector curves;
    curves.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = count > 1 ? static_cast<double>(i) / static_cast<double>(count - 1) : 0.0;
        const double z = kRampStart + (kRampEnd - kRampStart) * t;
        // In contact beyond z = 0; the retrace sticks a little before it lets go.
        const double trace = std::max(0.0, z) / kDeflectionSensitivity;
        const double retrace = std::max(z > -60.0 && z <= 0.0 ? -0.3 * (1.0 + z / 60.0) : 0.0, trace);
        const double halves[2][4] = {{z, trace, trace * kDeflectionSensitivity * kSpringConstant, 0.01 * trace},
                                     {z, retrace, retrace * kDeflectionSensitivity * kSpringConstant, -0.01 * retrace}};
        FloatMatrix m(2 * perHalf, 1);
        for (std::size_t h = 0; h < 2; ++h) {
            for (std::size_t row = 0; row < perHalf; ++row) {
                m(h * perHalf + row, 0) = static_cast<float>(halves[h][row]);
            }
        }
        curves.push_back(std::move(m));
    }
    return curves;
}

HarlenBuilder& HarlenBuilder::Text(const std::string& section, const std::string& key, const std::string& value) {
    container_.Section(section).Text(key, value);
    return *this;
}

HarlenBuilder& HarlenBuilder::Int(const std::string& section, const std::string& key, std::int32_t value) {
    container_.Section(section).Int(key, value);
    return *this;
}

HarlenBuilder& HarlenBuilder::Unitized(const std::string& section, const std::string& key, double value,
                                       const std::string& unit) {
    container_.Section(section).Unitized(key, value, unit);
    return *this;
}

HarlenBuilder& HarlenBuilder::Remove(const std::string& section, const std::string& key) {
    if (auto s = container_.Root()->GetChild(section)) {
        s->RemoveKey(key);
    }
    return *this;
}

HarlenBuilder& HarlenBuilder::RemoveSection(const std::string& section) {
    container_.Root()->RemoveChild(section);
    return *this;
}

HarlenBuilder& HarlenBuilder::Heights(std::size_t rows, std::size_t columns, const std::vector<float>& values) {
    container_.Section("[Data]").FloatMatrix("RawData", rows, columns, values);
    return *this;
}

HarlenBuilder& HarlenBuilder::Curves(const FloatMatrixVector& curves) {
    container_.Section("[Data]").FloatMatrices("RawData", curves);
    return *this;
}

HarlenBuilder& HarlenBuilder::CustomColorTable() {
    container_.Section("[Custom Color Table]")
        .Text("New Favorite", "No")
        .Text("Custom Color Table", "Yes")
        .Text("Interpolation Mode", "1")
        .Text("Number of Red Edit Points", "2")
        .Text("Red Edit Point0", "0 0")
        .Text("Red Edit Point1", "255 250")
        .Text("Number of Green Edit Points", "3")
        .Text("Green Edit Point0", "0 10")
        .Text("Green Edit Point1", "128 200")
        .Text("Green Edit Point2", "255 40")
        .Text("Number of Blue Edit Points", "2")
        .Text("Blue Edit Point0", "0 120")
        .Text("Blue Edit Point1", "255 0")
        .Text("Number of Color Points", "2")
        .Text("Color Point0", "0")
        .Text("Color Point1", "255");
    return *this;
}

}  // namespace SampleKit
