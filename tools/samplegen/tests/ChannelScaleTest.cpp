// The scale of a sample's channel: the texts the file holds and the counts
// of its values read back by the library as the values, to a count, in both
// sample widths.

#include "tools/samplegen/ChannelScale.h"
#include "tools/samplegen/QuillonSampleFile.h"

#include "LibraryReads.h"
#include "support/TestTempPath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using SampleGen::ChannelScale;

TEST(ChannelScaleTest, TextsAsTheInstrumentWritesThem)
{
    const ChannelScale z("Sens. Zsens", 440.0, 12.5, "nm");
    EXPECT_EQ(z.ScaleText(4), "V [Sens. Zsens] (1.024455e-07 V/LSB) 440.0000 V");
    EXPECT_EQ(z.ScaleText(2), "V [Sens. Zsens] (0.006713867 V/LSB) 440.0000 V");
    EXPECT_EQ(z.ScaleText(2, 0.0), "V [Sens. Zsens] (0.006713867 V/LSB) 0.0000 V");
    EXPECT_EQ(z.SensitivityText(), "V 12.500 nm/V");
    EXPECT_DOUBLE_EQ(z.FullScale(), 5500.0);
    EXPECT_DOUBLE_EQ(z.Volts(25.0), 2.0);
}

TEST(ChannelScaleTest, ValuesBeyondTheRangeAreHeldAtItsEnds)
{
    const ChannelScale s("Sens. Zsens", 20.0, 12.5, "nm");  // 250 nm over the counts
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(s.Counts32({1e9, -1e9, 0.0}), (std::vector<std::int32_t>{INT32_MAX, INT32_MIN, 0}));
    EXPECT_EQ(s.Counts16({1e9, -1e9}), (std::vector<std::int16_t>{INT16_MAX, INT16_MIN}));
    EXPECT_EQ(s.Counts32({nan}), std::vector<std::int32_t>{0});
}

TEST(ChannelScaleTest, TheLibraryReadsBackTheValuesInBothWidths)
{
    const std::vector<double> values = {-120.0, -3.25, 0.0, 0.5, 17.0, 42.125, 99.9, 124.0, -0.01};
    const ChannelScale height("Sens. Zsens", 20.0, 12.5, "nm");
    for (int bytes : {2, 4}) {
        SampleGen::QuillonSampleFile file("IMAGE", bytes == 2 ? "0x08150000" : "0x09020000", "10:00:00 AM Mon Jan 01 2024");
        file.ScanGeometry(3, 3, 100.0, 1.0);
        file.ImageChannel(0, "Height", height, bytes, 3, 3, values);
        file.ImageChannel(1, "Phase", ChannelScale("Sens. Phase", 5.0, 18.0, "\xBA"), bytes, 3, 3, values);
        const std::string path = TestTempPath("samplegen_scale" + std::to_string(bytes) + ".qdf");
        file.Write(path);

        const OpenedFile opened(path);
        ASSERT_TRUE(opened.Opened()) << bytes;
        const std::vector<double> read = MetricImage(0);
        ASSERT_EQ(read.size(), values.size());
        const double count = height.FullScale() / std::ldexp(1.0, 8 * bytes);
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_NEAR(read[i], values[i], count) << bytes << " bytes, value " << i;
        char* unit = DataSourceDllGetMetricDataScaleUnits(1);
        EXPECT_STREQ(unit, "deg");
        DataSourceDllFreeString(unit);
    }
}

}  // namespace
