// Opening Harlen images: parameters, Z transfer units, colour settings, the
// rescaling of the float heights into raw counts, and each refusal in its words.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "Harlen/HarlenTestSupport.h"
#include "support/LogCapture.h"

using namespace HarlenTest;
using TestSupport::LogCapture;

namespace {

const char* const kLogger = "DataAnalysis.HarlenOLDataSource";

// The value a count stands for, through the item's raw offset.
double valueOf(const HarlenOLDataSource& source, std::size_t i) {
    return source.RawToValue(0, source.GetData(0)[i], true);
}

}  // namespace

TEST(HarlenImageTest, StandardImageGivesItsParametersAndHeights) {
    const auto heights = HarlenBuilder::FeatureHeights(24, 32);
    const auto source = Open(HarlenBuilder::Image(24, 32));
    ASSERT_TRUE(source->IsOpen());
    EXPECT_TRUE(source->IsImageFile());
    EXPECT_TRUE(source->IsHarlenFile());
    EXPECT_EQ(source->GetNumberOfChannels(), 1);
    EXPECT_EQ(source->GetSamplesPerLine(0), 32u);
    EXPECT_EQ(source->GetNumberOfLines(0), 24u);

    EXPECT_DOUBLE_EQ(source->GetScanSize().GetValue(), HarlenBuilder::kScanRange);
    EXPECT_EQ(source->GetScanSize().GetUnits()->GetName(), "\xB5m");
    EXPECT_DOUBLE_EQ(source->GetScanSizeY().GetValue(), HarlenBuilder::kScanRange);
    EXPECT_DOUBLE_EQ(source->GetScanRate().GetValue(), 1.5);
    EXPECT_EQ(source->GetScanRate().GetUnits()->GetName(), "Hz");
    EXPECT_FLOAT_EQ(source->GetChannelRotateAngle(0), 30.0f);
    EXPECT_EQ(source->GetDate(), HarlenBuilder::kCreationTime);
    EXPECT_EQ(source->GetDataTypeDesc(0), "Topography");
    EXPECT_EQ(source->GetScanLine(0), "Main");
    EXPECT_EQ(source->GetLineDirection(0), "Forward");
    EXPECT_EQ(source->GetFeedbackText(), "Unknown");
    EXPECT_EQ(source->GetDataOffset(), static_cast<std::uint64_t>(HarlenBuilder::kDataOffset));
    EXPECT_EQ(source->GetUnits(), "Metric");

    EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(0), 12.5);
    EXPECT_EQ(source->GetZSensitivityUnits(0), "nm");
    EXPECT_EQ(source->GetDataScaleName(0), "V");
    EXPECT_EQ(source->GetZTransferUnit(), "nm/V");

    // The full count range spans the image: the lowest height is the lowest
    // count, and every count reads back as its height.
    const auto [lo, hi] = std::minmax_element(heights.begin(), heights.end());
    const double span = static_cast<double>(*hi) - static_cast<double>(*lo);
    EXPECT_DOUBLE_EQ(source->GetDataSpan(), span);
    EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(0), static_cast<float>(span));
    EXPECT_FLOAT_EQ(source->GetZScaleInHwUnits(0), static_cast<float>(span / 12.5));
    EXPECT_DOUBLE_EQ(source->GetDataRange().GetValue(), span);
    const std::int32_t* counts = source->GetData(0);
    EXPECT_EQ(*std::min_element(counts, counts + heights.size()), std::numeric_limits<std::int32_t>::min());
    EXPECT_GT(*std::max_element(counts, counts + heights.size()), std::numeric_limits<std::int32_t>::max() - 256);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        EXPECT_NEAR(valueOf(*source, i), heights[i], span * 1e-6) << i;
    }
}

TEST(HarlenImageTest, ConstantImageHasASpanOfTen) {
    const auto source = Open(HarlenBuilder::Image(4, 4).Heights(4, 4, std::vector<float>(16, 7.0f)));
    ASSERT_TRUE(source->IsOpen());
    EXPECT_DOUBLE_EQ(source->GetDataSpan(), 10.0);
    EXPECT_FLOAT_EQ(source->GetZScaleInSwUnits(0), 10.0f);
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(source->GetData(0)[i], std::numeric_limits<std::int32_t>::min());
        EXPECT_NEAR(valueOf(*source, i), 7.0, 1e-6);
    }
}

TEST(HarlenImageTest, ProgramMustBeHarlenWhateverTheVersion) {
    EXPECT_TRUE(Open(HarlenBuilder::Image(2, 2).Text("[Data Version]", "Version", "0.0-beta"))->IsOpen());

    LogCapture log;
    const auto source = Open(HarlenBuilder::Image(2, 2)
                                 .Text("[Data Version]", "Program", "Harlen2")
                                 .Text("[Data Version]", "Version", "9.9"));
    EXPECT_FALSE(source->IsOpen());
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.lines[0].logger, kLogger);
    EXPECT_EQ(log.lines[0].severity, 2);
    EXPECT_EQ(log.lines[0].text, "HarlenOLDataSource::Initialize invalid program or version: Harlen2 9.9");
}

TEST(HarlenImageTest, MissingSectionsAreRefusedByName) {
    const std::pair<const char*, const char*> cases[] = {
        {"[Data Version]", "HarlenOLDataSource::Initialize failed to open get [Data Version]"},
        {"[Data Parameters]", "HarlenOLDataSource::Initialize failed to open get [Data Parameters]"},
        {"[Data]", "HarlenOLDataSource::Initialize failed to open get [Data]"},
    };
    for (const auto& [missing, words] : cases) {
        LogCapture log;
        EXPECT_FALSE(Open(HarlenBuilder::Image(2, 2).RemoveSection(missing))->IsOpen()) << missing;
        ASSERT_EQ(log.lines.size(), 1u) << missing;
        EXPECT_EQ(log.lines[0].severity, 2);
        EXPECT_EQ(log.lines[0].text, words);
    }
}

TEST(HarlenImageTest, FileWithoutAnOverviewIsReadAsAnImageOfNoParameters) {
    const auto source = Open(HarlenBuilder::Image(3, 5).RemoveSection("HarlenFileOverviewInfo"));
    ASSERT_TRUE(source->IsOpen());
    EXPECT_FALSE(source->IsImageFile());
    EXPECT_EQ(source->GetNumberOfChannels(), 1);
    EXPECT_EQ(source->GetDataBufferSize(0), 15u);
    EXPECT_DOUBLE_EQ(source->GetScanSize().GetValue(), 0.0);
    EXPECT_EQ(source->GetDataTypeDesc(0), "");
    EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(0), 1.0);
    EXPECT_EQ(source->GetZTransferUnit(), "/");
}

TEST(HarlenImageTest, AspectRatioComesFromTheRangesOrElseFromThePixels) {
    // The second range is taken in the unit of the first.
    EXPECT_FLOAT_EQ(Open(HarlenBuilder::Image(2, 2).Unitized("[Data Parameters]", "ScanRangeY", 2500.0, "nm"))
                        ->GetChannelAspectRatio(0),
                    2.0f);
    // An unmeasured range is counted in pixels.
    const auto source = Open(HarlenBuilder::Image(4, 256).Unitized("[Data Parameters]", "ScanRangeX", 0.0, "nm"));
    ASSERT_TRUE(source->IsOpen());
    EXPECT_DOUBLE_EQ(source->GetScanSize().GetValue(), 256.0);
    EXPECT_EQ(source->GetScanSize().GetUnits()->GetName(), "Arb");
    EXPECT_DOUBLE_EQ(source->GetDataItem(0)->GetScanSize().GetValue(), 256.0);
    EXPECT_FLOAT_EQ(source->GetAspectRatio(), 64.0f);
}

TEST(HarlenImageTest, SetpointIsKeptInMillivoltsAndOneGainServesBothTerms) {
    const auto source = Open(HarlenBuilder::Image(2, 2)
                                 .Text("[System Info]", "SetPoint", "1.5V")
                                 .Text("[System Info]", "GainI", "0.75(auto)"));
    EXPECT_DOUBLE_EQ(source->GetForceDigitalSetPointValue(), 1500.0);
    EXPECT_DOUBLE_EQ(source->GetIntegralGain(), 0.75);
    EXPECT_DOUBLE_EQ(source->GetProportionalGain(), 0.75);

    const auto quiet =
        Open(HarlenBuilder::Image(2, 2).Text("[System Info]", "SetPoint", "").Remove("[System Info]", "GainI"));
    EXPECT_DOUBLE_EQ(quiet->GetForceDigitalSetPointValue(), 0.0);
    EXPECT_DOUBLE_EQ(quiet->GetIntegralGain(), 0.0);
}

TEST(HarlenImageTest, ZTransferUnitsComeFromZUnitOrFromTheCoefficient) {
    struct Case {
        const char* zUnit;  // null: the key is absent
        const char* coefficient;
        double sensitivity;
        const char* sensitivityUnit;
        const char* dataUnit;
        const char* transferUnit;
    };
    const Case cases[] = {
        {"nm/V", "12.5 nm/V", 12.5, "nm", "V", "nm/V"},
        {"nm", "3 nm/V", 3.0, "nm", "", "nm/"},
        // Without a ZUnit the sensitivity unit is the standard one of its kind.
        {nullptr, "12.5 nm/V", 12.5, "Meters", "V", "Meters/V"},
        {nullptr, "0x10 um/V", 16.0, "Meters", "V", "Meters/V"},
        {nullptr, "", 1.0, "", "", "/"},
    };
    for (const Case& c : cases) {
        auto builder = HarlenBuilder::Image(2, 2).Text("[Data Parameters]", "ZTransferCoefficient", c.coefficient);
        if (c.zUnit) {
            builder.Text("[Data Parameters]", "ZUnit", c.zUnit);
        } else {
            builder.Remove("[Data Parameters]", "ZUnit");
        }
        const auto source = Open(builder);
        ASSERT_TRUE(source->IsOpen()) << c.coefficient;
        EXPECT_DOUBLE_EQ(source->GetZSensitivitySoftScale(0), c.sensitivity) << c.coefficient;
        EXPECT_EQ(source->GetZSensitivityUnits(0), c.sensitivityUnit) << c.coefficient;
        EXPECT_EQ(source->GetDataScaleName(0), c.dataUnit) << c.coefficient;
        EXPECT_EQ(source->GetZTransferUnit(), c.transferUnit) << c.coefficient;
    }
}

TEST(HarlenImageTest, ColourTableIndexFollowsTheHost) {
    int table = 0;
    std::uint32_t v1 = 0, v2 = 0;
    bool flag = false;
    // No host: the item's own default.
    Open(HarlenBuilder::Image(2, 2))->GetColorTableSettings(0, table, v1, v2, flag);
    EXPECT_EQ(table, 12);
    // A host that skips the file's colours hands out its default.
    ICreateColorTableCallback plain;
    Open(HarlenBuilder::Image(2, 2), &plain)->GetColorTableSettings(0, table, v1, v2, flag);
    EXPECT_EQ(table, plain.DefaultColorTableIndex());
    // A host that shows colour takes the file's index and its custom table.
    InterpolatingColorTableCallback colours;
    const auto source = Open(HarlenBuilder::Image(2, 2).CustomColorTable(), &colours);
    source->GetColorTableSettings(0, table, v1, v2, flag);
    EXPECT_EQ(table, HarlenBuilder::kColorTableIndex);
    EXPECT_TRUE(source->HasColorTable(0));
    const ColorTableObject custom = source->GetColorTable(0);
    EXPECT_EQ(custom.positions[1], (std::vector<std::uint32_t>{0, 128, 255}));
    EXPECT_EQ(custom.entries[128].green, 200);
}

TEST(HarlenImageTest, DataBeyondTheFloatRangeIsRefusedAsAWarning) {
    const float huge = std::numeric_limits<float>::max();
    const std::vector<std::vector<float>> datasets = {
        {-huge, huge, 0.0f, 1.0f},
        {std::numeric_limits<float>::infinity(), 0.0f, 1.0f, 2.0f},
    };
    for (const auto& heights : datasets) {
        LogCapture log;
        EXPECT_FALSE(Open(HarlenBuilder::Image(2, 2).Heights(2, 2, heights))->IsOpen());
        ASSERT_EQ(log.lines.size(), 1u);
        EXPECT_EQ(log.lines[0].severity, 3);
        EXPECT_EQ(log.lines[0].text, "HarlenOLDataSource::Initialize: data is beyond max range");
    }
}
