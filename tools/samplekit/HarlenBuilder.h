#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Infrastructure/OrxDataCore/Matrices.h"
#include "tools/samplekit/ContainerBuilder.h"

namespace SampleKit {

// Harlen files as the instrument writes them, with any key changed in a line:
//
//   HarlenBuilder::Image(64, 64).Text("[Data Version]", "Program", "Other").Write(path);
//   HarlenBuilder::Force(256, 16).Remove("[Point Spectroscopy Data]", "Z Start").Bytes();
//
// An image is a float height map in nanometres; a force set is one float
// matrix of labelled rows for each position of the ramp.
class HarlenBuilder {
public:
    // What the standard files hold, for tests to compare with.
    static constexpr double kScanRange = 5.0;  // in micrometres, both axes
    static constexpr const char* kCreationTime = "Mar/04/2021 10:11:12 PM";
    static constexpr const char* kZTransfer = "12.5 nm/V";
    static constexpr const char* kZUnit = "nm/V";
    static constexpr std::int32_t kColorTableIndex = 3;
    static constexpr std::int32_t kDataOffset = 2048;
    static constexpr const char* kLabels8 = "Trace Z,nm,Trace Defl,V,Retrace Z,nm,Retrace Defl,V";
    static constexpr const char* kLabels16 =
        "Trace Z,nm,Trace Defl,V,Trace Force,nN,Trace Lateral,V,"
        "Retrace Z,nm,Retrace Defl,V,Retrace Force,nN,Retrace Lateral,V";
    static constexpr double kRampStart = -400.0;            // nm
    static constexpr double kRampEnd = 400.0;               // nm
    static constexpr double kDeflectionSensitivity = 45.5;  // nm per volt
    static constexpr double kSpringConstant = 0.2;          // N/m

    // An image of rows x columns heights: a tilted plane with a terrace step
    // and a few round particles.
    static HarlenBuilder Image(std::size_t rows = 32, std::size_t columns = 32);
    // A force set of count ramp positions with 8 labels (4 rows) or 16 (8 rows).
    static HarlenBuilder Force(std::size_t count = 128, int labels = 8);

    // The heights and curves the standard files hold.
    static std::vector<float> FeatureHeights(std::size_t rows, std::size_t columns);
    static Orx::DataCore::FloatMatrixVector RampCurves(std::size_t count, int labels);

    // A key of a section, replaced where it stands or added at the end; a
    // missing section is made.
    HarlenBuilder& Text(const std::string& section, const std::string& key, const std::string& value);
    HarlenBuilder& Int(const std::string& section, const std::string& key, std::int32_t value);
    HarlenBuilder& Unitized(const std::string& section, const std::string& key, double value, const std::string& unit);
    HarlenBuilder& Remove(const std::string& section, const std::string& key);
    HarlenBuilder& RemoveSection(const std::string& section);
    // Replaces the data of the file.
    HarlenBuilder& Heights(std::size_t rows, std::size_t columns, const std::vector<float>& values);
    HarlenBuilder& Curves(const Orx::DataCore::FloatMatrixVector& curves);
    // A custom colour table of a few edit points, as a user saves one.
    HarlenBuilder& CustomColorTable();

    ContainerBuilder& Container() { return container_; }
    std::vector<std::uint8_t> Bytes() const { return container_.Bytes(); }
    void Write(const std::string& path) const { container_.Write(path); }

private:
    HarlenBuilder();
    ContainerBuilder container_;
};

}  // namespace SampleKit
