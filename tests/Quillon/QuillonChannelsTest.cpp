#include "Quillon/QuillonTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace QuillonTest;

namespace {

const char* const kImage = "Dulce image list";

}  // namespace

TEST(QuillonChannelsTest, ImageChannelTakesItsScaleFromTheSensitivityItNames) {
    QuillonBuilder file("IMAGE");
    file.Text(kImage, "@Z magnify", "C [2:Z scale] 2.000000");
    auto s = Load(file);
    ASSERT_TRUE(s->IsOpen());
    OLDataItem& item = *s->GetDataItem(0);
    EXPECT_EQ(item.GetNumberOfLines(), 4u);
    EXPECT_EQ(item.GetSamplesPerLine(), 4u);
    EXPECT_EQ(item.GetDataSize(), 16u);
    EXPECT_EQ(item.GetData()[5], QuillonBuilder("IMAGE").SamplesOf(0)[5]);
    EXPECT_EQ(item.GetScanSize().GetValue(), 1000.0);
    EXPECT_EQ(UnitOf(item.GetScanSize()), "nm");
    EXPECT_EQ(item.GetZMagnify(), 2.0f);
    EXPECT_EQ(item.GetZScaleInHwUnits(), 440.0f);
    EXPECT_EQ(item.GetZScaleInSwUnits(), 5500.0f);  // 12.5 nm/V times 440 V
    EXPECT_EQ(item.GetZSensitivitySoftScale(), 12.5);
    EXPECT_EQ(item.GetZSensitivityUnits(), "nm");
    EXPECT_EQ(item.GetZSensitivityName(), "Sens. Zsens");
    EXPECT_EQ(item.GetZSensitivitySection(), "Scanner list");
    EXPECT_EQ(item.GetSensitivityText(), QuillonBuilder::kZSensitivity);
    EXPECT_NEAR(item.GetScalingFactor(), 4294967296.0, 1e3);  // 440 V over 440/2^32 V a count
    EXPECT_EQ(item.GetDataScale(false).GetValue(), 880.0);
    EXPECT_EQ(item.GetDataScaleName(), "V");
    EXPECT_EQ(item.GetDataName(), "Height");
    EXPECT_EQ(item.GetDataTypeDesc(), "Height");  // a native file names its type by the data name
    EXPECT_EQ(item.GetLineDirection(), "Retrace");
    EXPECT_EQ(item.GetScanLine(), "Main");
    EXPECT_EQ(item.GetNote(), "Made by the sample kit");
    EXPECT_EQ(item.GetPlistName(), kImage);
    EXPECT_EQ(item.GetValidLenX(), 4u);
    EXPECT_EQ(item.GetInvalidFill(), "None");
    EXPECT_EQ(item.GetScaleBits(), 32u);
    EXPECT_EQ(item.GetFileBytesPerPixel(), 4u);

    // The second image names the deflection sensitivity; the scan section's
    // own copy of a sensitivity comes before the scanner list's.
    QuillonBuilder scanCopy("IMAGE");
    scanCopy.Text("Dulce scan list", "@Sens. DeflSens", "V 10 nm/V");
    auto t = Load(scanCopy);
    EXPECT_EQ(t->GetZSensitivitySoftScale(1), 10.0);
    EXPECT_EQ(t->GetDataItem(1)->GetZSensitivitySection(), "Dulce scan list");
}

TEST(QuillonChannelsTest, ForceChannelsShareOneSpringConstant) {
    QuillonBuilder file("FVOL");
    file.Remove("Dulce force image list", "Spring Constant").Text("Dulce force image list#2", "Spring constant", "0.75");
    file.Remove("Dulce force image list#2", "Spring Constant");
    auto s = Load(file);
    ASSERT_TRUE(s->IsOpen());
    for (unsigned c = 0; c < 3; ++c) {
        EXPECT_EQ(s->GetForceSpringConstant(c), 0.75) << c;
    }
    OLDataItem& force = *s->GetDataItem(1);
    EXPECT_TRUE(force.HasSecondScale());
    EXPECT_FALSE(s->GetDataItem(0)->HasSecondScale());
    EXPECT_EQ(force.GetRetracePoints(), 8u);
    EXPECT_EQ(force.GetTracePoints(), 8u);
    EXPECT_EQ(force.GetSamplesPerLine(), 20u);  // both halves and the hold
    EXPECT_EQ(force.GetNumberOfLines(), 4u);    // one line of the matrix a curve
    EXPECT_EQ(force.GetDataName(), "Deflection Error");
    EXPECT_EQ(force.GetRampSize(false).GetValue(), 40.0);
    EXPECT_EQ(force.GetRampSensitivity(), 12.5);
    EXPECT_NEAR(force.GetRampSize(true).GetValue(), 500.0, 1e-9);
    EXPECT_EQ(s->rampSizeText, "V [Sens. Zsens] (0.0006103516 V/LSB) 40.0000 V");
    EXPECT_EQ(force.GetThirdScale(false).GetValue(), 2.0);
    // The volume's scale counts 32-bit steps here: 24.576 V over 24.576/65536 V a count.
    EXPECT_NEAR(force.GetSecondScaleFactor(), 65536.0, 0.1);
    EXPECT_FLOAT_EQ(force.GetZScaleInSwUnits(), static_cast<float>(45.5 * QuillonBuilder::kDeflectionScaleVolts));

    QuillonBuilder sixteen("FORCE");
    sixteen.Samples16(0, 1, 20, std::vector<std::int16_t>(20, 1));
    EXPECT_NEAR(Load(sixteen)->GetDataItem(0)->GetSecondScaleFactor(), 65536.0 * 65536.0, 1e4);
}

TEST(QuillonChannelsTest, HighSpeedAndElectrochemistryChannels) {
    QuillonBuilder hsdc("HSDC");
    auto h = Load(hsdc);
    ASSERT_TRUE(h->IsOpen());
    OLDataItem& fast = *h->GetDataItem(0);
    EXPECT_EQ(fast.GetSamplesPerLine(), 16u);  // two bytes a sample
    EXPECT_EQ(fast.GetNumberOfPointsPerCurve(), 32u);
    EXPECT_EQ(fast.GetHighSpeedSamples(), 16u);
    EXPECT_EQ(fast.GetZScaleInHwUnits(), 20.0f);
    EXPECT_EQ(fast.GetZScaleInSwUnits(), 910.0f);  // 45.5 nm/V times 20 V
    EXPECT_EQ(fast.GetZSensitivityUnits(), "nm");
    EXPECT_EQ(fast.GetScalingFactor(), static_cast<float>(4294967295.0));
    EXPECT_EQ(fast.GetDataScaleName(), "Volts");
    EXPECT_EQ(fast.GetDataName(), "Deflection");
    EXPECT_EQ(h->GetDataTypeDesc(1), "Amplitude");
    EXPECT_EQ(fast.GetData()[3], QuillonBuilder("HSDC").SamplesOf(0)[3]);

    // Soft and hard scale in one unit: the sensitivity is 1.
    hsdc.Unitized("High speed data list", "High Speed Data Soft Scale", 7.0, "V");
    EXPECT_EQ(Load(hsdc)->GetZScaleInSwUnits(0), 1.0f);

    QuillonBuilder ec("ECAFM");
    ec.Remove("EC current list", "Data type");
    auto e = Load(ec);
    ASSERT_TRUE(e->IsOpen());  // an electrochemistry channel may lack its name
    EXPECT_EQ(e->GetDataName(2), "Potential");
    EXPECT_EQ(e->GetDataName(3), "");
    EXPECT_EQ(e->GetDataName(1), "Current");
    EXPECT_EQ(e->GetZSensitivityUnits(1), "nA");

    // A force volume section that is no list of either kind has no data name to give.
    QuillonBuilder volume("FVOL");
    volume.AddImageChannel("Dulce extra");
    LogCapture log;
    EXPECT_FALSE(Load(volume)->IsOpen());
    EXPECT_EQ(log.messages.back(), "QlOLDataSource::Initialize failed to open. Failed to get Image Data tag");
}

TEST(QuillonChannelsTest, SampleWidthDecidesTheRange) {
    QuillonBuilder four("IMAGE");
    QuillonBuilder absent("IMAGE");
    absent.Samples16(0, 4, 4, std::vector<std::int16_t>(16, 3)).Remove(kImage, "Bytes/pixel");
    const float wide = Load(four)->GetScalingFactor(0);
    auto narrow = Load(absent);
    EXPECT_EQ(narrow->GetDataItem(0)->GetFileBytesPerPixel(), 2u);
    EXPECT_EQ(narrow->GetScalingFactor(0), wide * 65536.0f);
    EXPECT_EQ(narrow->GetData(0)[0], 3 * 65536);

    // Files before release 9.2 hold 16-bit scales.
    QuillonBuilder older("IMAGE");
    older.Text("File list", "Version", "0x09010000");
    EXPECT_EQ(Load(older)->GetDataItem(0)->GetScaleBits(), 16u);
}

TEST(QuillonChannelsTest, OldAspectRatiosAreRecomputedBut0x04240000Keeps) {
    const std::pair<const char*, float> cases[] = {
        {"0x04240000", 2.0f}, {"0x04230000", 1.0f}, {"0x05ffffff", 1.0f}, {"0x06000000", 2.0f}};
    for (const auto& [version, ratio] : cases) {
        QuillonBuilder file("IMAGE");
        file.Text("File list", "Version", version).Text(kImage, "Aspect Ratio", "2:1");
        EXPECT_EQ(Load(file)->GetChannelAspectRatio(0), ratio) << version;
    }
    // Of an electrochemistry file the image lists alone are recomputed: the
    // potential channel of 1 x 16 samples keeps its ratio of 1.
    QuillonBuilder ec("EC");
    ec.Text("File list", "Version", "0x05000000").Text(kImage, "Aspect Ratio", "2:1");
    auto e = Load(ec);
    EXPECT_EQ(e->GetChannelAspectRatio(0), 1.0f);
    EXPECT_EQ(e->GetChannelAspectRatio(1), 1.0f);
    ec.Text("File list", "Version", "0x06000000");
    EXPECT_EQ(Load(ec)->GetChannelAspectRatio(0), 2.0f);
}

TEST(QuillonChannelsTest, RawDataShapeOverridesTheHeader) {
    QuillonBuilder file("IMAGE");
    std::vector<std::int32_t> samples(256 * 128);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<std::int32_t>(i);
    }
    file.Samples32(0, 256, 128, samples).Remove("Dulce image list#2", "RawData");
    auto s = Load(file);
    ASSERT_TRUE(s->IsOpen());
    EXPECT_EQ(s->GetNumberOfLines(0), 256u);
    EXPECT_EQ(s->GetSamplesPerLine(0), 128u);
    EXPECT_EQ(s->GetDataBufferSize(0), 256u * 128u);
    EXPECT_EQ(s->GetData(0)[256 * 128 - 1], 256 * 128 - 1);
    EXPECT_EQ(s->GetImageLines(), 256);
    EXPECT_EQ(s->GetImageSamplesPerLine(), 128);
    // A channel without samples keeps the header's shape and has no buffer.
    EXPECT_EQ(s->GetData(1), nullptr);
    EXPECT_EQ(s->GetDataBufferSize(1), 0u);
    EXPECT_EQ(s->GetNumberOfLines(1), 4u);
    EXPECT_EQ(s->GetSamplesPerLine(1), 4u);
}

TEST(QuillonChannelsTest, LegacyZScaleOfOlderFiles) {
    // 65536000 counts of a 16-bit file at the default Z range of 220 and a
    // Z sensitivity of 200 give 1342.77: it is shown divided by 1000, in "mV".
    QuillonBuilder file("IMAGE");
    file.Text("File list", "Version", "0x05120000")
        .Remove(kImage, "@2:Z scale")
        .Text(kImage, "Z scale", "V 65536000 (0.006713867 V/LSB)")
        .Text("Microscope list", "Z sensitivity", "200");
    auto s = Load(file);
    ASSERT_TRUE(s->IsOpen());
    const double value = 65536000.0 / 65536.0 * 220.0 / 32768.0;
    EXPECT_FLOAT_EQ(s->GetZScaleInHwUnits(0), static_cast<float>(value / 1000.0));
    EXPECT_FLOAT_EQ(s->GetZScaleInSwUnits(0), static_cast<float>(value * 200.0 / 1000.0));
    EXPECT_EQ(s->GetDataScaleName(0), "mV");
    EXPECT_EQ(s->GetZSensitivityUnits(0), "um");
    EXPECT_EQ(s->GetZSensitivitySoftScale(0), 200.0);

    // A text of other than four words gives its first number as the scale.
    QuillonBuilder plain("IMAGE");
    plain.Remove(kImage, "@2:Z scale").Text(kImage, "Z scale", "12.5 nm (0.0067 V/LSB) 440 V");
    auto p = Load(plain);
    EXPECT_EQ(p->GetZScaleInSwUnits(0), 12.5f);
    EXPECT_EQ(p->GetZScaleInHwUnits(0), 12.5f);
    EXPECT_EQ(p->GetZSensitivityUnits(0), "nm");
    EXPECT_EQ(p->GetDataScaleName(0), "V");
}

TEST(QuillonChannelsTest, PressureSensitivitiesReadInMegaAndGigapascal) {
    const std::pair<const char*, std::pair<const char*, float>> cases[] = {
        {"V 2000000000 Pa/V", {"GPa", 2.0f * 440.0f}},
        {"V 3000000 Pa/V", {"MPa", 3.0f * 440.0f}},
        {"V 999999 Pa/V", {"Pa", 999999.0f * 440.0f}}};
    for (const auto& [sensitivity, expected] : cases) {
        QuillonBuilder file("IMAGE");
        file.Text("Scanner list", "@Sens. Zsens", sensitivity);
        auto s = Load(file);
        EXPECT_EQ(s->GetZSensitivityUnits(0), expected.first);
        EXPECT_EQ(s->GetZScaleInSwUnits(0), expected.second);
    }
}

TEST(QuillonChannelsTest, ScaleCombinationTurnsAVoltageSensitivityIntoVolts) {
    const UValue hard(440.0, "V");
    EXPECT_EQ(QlOLDataSource::CombineScales(UValue(12.5, "nm"), hard).GetValue(), 5500.0);
    EXPECT_EQ(UnitOf(QlOLDataSource::CombineScales(UValue(12.5, "nm"), hard)), "nm");
    EXPECT_NEAR(QlOLDataSource::CombineScales(UValue(2.0, "mV"), hard).GetValue(), 0.88, 1e-12);
    EXPECT_EQ(QlOLDataSource::CombineScales(UValue(2.0, "mV"), UValue(440.0)).GetValue(), 880.0);
}

TEST(QuillonChannelsTest, PlaneFitOf16BitFilesIsWidened) {
    QuillonBuilder narrow("IMAGE");
    narrow.Samples16(0, 4, 4, std::vector<std::int16_t>(16, 0)).Text(kImage, "Plane fit", "1.7 -2.2 3 2");
    const PlaneFitSettings widened = Load(narrow)->GetPlanefitSettings(0);
    // Each coefficient is truncated to a whole 16-bit step first.
    EXPECT_EQ(widened, (PlaneFitSettings{65536.0, -2.0 * 65536.0, 3.0 * 65536.0, 2}));
    QuillonBuilder wide("IMAGE");
    wide.Text(kImage, "Plane fit", "1.7 -2.2 3 2");
    EXPECT_EQ(Load(wide)->GetPlanefitSettings(0), (PlaneFitSettings{1.7, -2.2, 3.0, 2}));
    QuillonBuilder damaged("IMAGE");
    damaged.Samples16(0, 4, 4, std::vector<std::int16_t>(16, 0)).Text(kImage, "Plane fit", "1e300 nan -1e300 7");
    const PlaneFitSettings saturated = Load(damaged)->GetPlanefitSettings(0);
    EXPECT_EQ(saturated.order, 7u);
}

TEST(QuillonChannelsTest, InputOffsetIsAddedToTheSamples) {
    const std::vector<std::int32_t> original = QuillonBuilder("IMAGE").SamplesOf(0);
    QuillonBuilder file("IMAGE");
    file.Text(kImage, "@2:Z input offset", "V [Sens. Zsens] (1.024455e-07 V/LSB) 0.5 V")
        .Text("Dulce image list#2", "@2:Z input offset", "V (1 V/LSB) 0.25");
    auto s = Load(file);
    const auto counts = static_cast<std::int32_t>(0.5 / (440.0f / 4294967296.0));
    EXPECT_EQ(s->ZOffsetOfChannel(0), counts);
    EXPECT_TRUE(s->GetDataItem(0)->HasInputOffset());
    EXPECT_EQ(s->GetDataItem(1)->GetInputOffset(), 0.25f);  // a bare number is in the channel's unit
    for (std::size_t i = 0; i < original.size(); ++i) {
        EXPECT_EQ(s->GetData(0)[i], static_cast<std::int32_t>(static_cast<std::uint32_t>(original[i]) + counts));
    }
    // Taking the offsets off gives the file's samples back, across the wrap of 32 bits.
    s->GetData(0)[0] = 2147483647;
    s->ApplyZOffsets(true);
    s->ApplyZOffsets(false);
    EXPECT_EQ(s->GetData(0)[0], 2147483647);
    s->ApplyZOffsets(true);
    EXPECT_EQ(s->GetData(0)[1], original[1]);
}
