// Harlen files that no instrument wrote: each opens or is refused as stated,
// and an open one answers every read from its own memory.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "Harlen/HarlenTestSupport.h"
#include "support/LogCapture.h"

using namespace HarlenTest;
using TestSupport::LogCapture;
using Orx::DataCore::FloatMatrix;
using Orx::DataCore::FloatMatrixVector;

namespace {

const float kNaN = std::numeric_limits<float>::quiet_NaN();
const char* const kUnknownUnitLabels = "Trace Z,furlong,Trace Defl,bogus,Retrace Z,furlong,Retrace Defl,bogus";

struct Damage {
    const char* name;
    HarlenBuilder file;
    int channels;  // 0: refused
};

std::vector<Damage> damages() {
    return {
        {"resolution_beyond_the_samples",
         HarlenBuilder::Image(3, 4)
             .Int("[Data Parameters]", "ResolutionX", 100000)
             .Int("[Data Parameters]", "ResolutionY", -7),
         1},
        {"samples_not_numbers", HarlenBuilder::Image(2, 2).Heights(2, 2, {kNaN, 1.0f, 3.0f, kNaN}), 1},
        {"image_data_a_text", HarlenBuilder::Image(2, 2).Text("[Data]", "RawData", "not a matrix"), 1},
        {"units_no_dictionary_knows",
         HarlenBuilder::Image(2, 2)
             .Text("[Data Parameters]", "ZUnit", "parsec/fortnight")
             .Text("[Data Parameters]", "ScanningRate", "2 blinks")
             .Unitized("[Data Parameters]", "ScanRangeY", 3.0, "V"),
         1},
        {"curve_rows_missing", HarlenBuilder::Force(4).Curves(FloatMatrixVector(4, FloatMatrix(1, 1, 2.0f))), 3},
        {"channel_count_huge", HarlenBuilder::Force(4).Int("HarlenFileOverviewInfo", "NumberOfDataPlists", 2147483647),
         3},
        {"channel_count_negative", HarlenBuilder::Force(4).Int("HarlenFileOverviewInfo", "NumberOfDataPlists", -5), 0},
        {"curve_set_empty", HarlenBuilder::Force(4).Curves({}), 3},
        {"sixteen_labels_over_four_rows",
         HarlenBuilder::Force(8).Text("HarlenFileOverviewInfo", "ForceCurveDataLabels", HarlenBuilder::kLabels16), 4},
        {"label_units_unknown",
         HarlenBuilder::Force(4)
             .Text("HarlenFileOverviewInfo", "ForceCurveDataLabels", kUnknownUnitLabels)
             .Text("[Point Spectroscopy Data]", "Deflection Sensitivity", "45.5 parsec")
             .Text("[Point Spectroscopy Data]", "Approach Rate", "3 leagues/s"),
         3},
    };
}

}  // namespace

TEST(HarlenDamagedFilesTest, EachOpensAsStatedAndReadsOnlyItsOwnMemory) {
    for (const Damage& damage : damages()) {
        const auto source = Open(damage.file);
        ASSERT_EQ(source->IsOpen() ? source->GetNumberOfChannels() : 0, damage.channels) << damage.name;
        for (unsigned c = 0; c < static_cast<unsigned>(damage.channels); ++c) {
            // An item's buffer is what its sizes say, and the item walks all of it.
            const std::uint32_t samples = source->GetSamplesPerLine(c);
            EXPECT_EQ(source->GetDataBufferSize(c),
                      source->IsForceFile() ? 2 * samples : source->GetNumberOfLines(c) * samples)
                << damage.name;
            std::int32_t lowest = 0, highest = 0;
            source->GetRawRange(c, &lowest, &highest);
            double lo = 0.0, hi = 0.0;
            source->GetDisplayRange(c, &lo, &hi);
            EXPECT_NO_THROW(source->GetDataScale(c, true)) << damage.name;
            EXPECT_NO_THROW(source->GetZRange(c, true)) << damage.name;
        }
    }
}

TEST(HarlenDamagedFilesTest, WhatDamagedFilesOpenWith) {
    const auto all = damages();
    const auto open = [&](const char* name) {
        return Open(
            std::find_if(all.begin(), all.end(), [&](const Damage& d) { return std::string(d.name) == name; })->file);
    };
    const auto shaped = open("resolution_beyond_the_samples");
    EXPECT_EQ(shaped->GetNumberOfLines(0), 3u);
    EXPECT_EQ(shaped->GetSamplesPerLine(0), 4u);

    // Samples that are not numbers take no part in the range and count 0.
    const auto nan = open("samples_not_numbers");
    EXPECT_DOUBLE_EQ(nan->GetDataSpan(), 2.0);
    EXPECT_EQ(nan->GetData(0)[0], 0);
    EXPECT_EQ(nan->GetData(0)[1], std::numeric_limits<std::int32_t>::min());

    EXPECT_EQ(open("image_data_a_text")->GetDataBufferSize(0), 0u);
    EXPECT_EQ(open("units_no_dictionary_knows")->GetZSensitivityUnits(0), "");

    // The Z item's trace row is there and reaches the top count; its retrace row is not.
    const auto rows = open("curve_rows_missing");
    EXPECT_EQ(rows->GetData(1)[0], 2147483647);
    EXPECT_EQ(rows->GetData(1)[4], 0);

    EXPECT_EQ(open("curve_set_empty")->GetDataBufferSize(0), 2u);
    const auto units = open("label_units_unknown");
    EXPECT_EQ(units->GetDataScaleName(1), "");
    EXPECT_DOUBLE_EQ(units->GetForwardRampVelocity(0, false), 3.0);
}

TEST(HarlenDamagedFilesTest, FileOfAnotherFamilyOrOfNothingIsRefusedAndListsNothing) {
    const auto quillon =
        SampleKit::ContainerBuilder::Quillon().Section("QuillonFileOverviewInfo").Text("FileSubType", "IMAGE").Bytes();
    LogCapture log;
    HarlenOLDataSource other(Orx::DataCore::DataFile::OpenMemory(quillon.data(), quillon.size()), nullptr);
    other.Initialize();
    HarlenOLDataSource none(nullptr, nullptr);
    none.Initialize();
    EXPECT_FALSE(other.IsOpen());
    EXPECT_FALSE(none.IsOpen());
    // Only a file of the family lists its sections and parameters.
    EXPECT_TRUE(other.GetDataPlistNames().empty());
    EXPECT_EQ(other.GetParameterListForItem("QuillonFileOverviewInfo", "FileSubType"), "");
    ASSERT_EQ(log.lines.size(), 2u);
    EXPECT_EQ(log.lines[0].text, "HarlenOLDataSource::Initialize failed to open get [Data]");
    EXPECT_EQ(log.lines[1].text, "HarlenOLDataSource::Initialize failed to open file");
}
