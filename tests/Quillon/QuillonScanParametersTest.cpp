#include "Quillon/QuillonTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

using namespace QuillonTest;

namespace {

const char* const kScan = "Dulce scan list";

}  // namespace

TEST(QuillonScanParametersTest, EachFallbackSpellingIsReadAndTheFirstWins) {
    // Value texts of the spellings, in order: each differs from the builder's
    // default, and the first from the others.
    struct Case {
        std::vector<const char*> keys;
        bool unitized;
        std::function<std::string(Source&)> read;
    };
    auto number = [](const UValue& v) { return std::to_string(v.GetValue()) + " " + v.GetUnits()->GetName(); };
    const Case cases[] = {
        {{"Scan Size", "Scan size"}, true, [&](Source& s) { return number(s.GetScanSize()); }},
        {{"X Offset", "X offset"}, true, [&](Source& s) { return number(s.GetXOffset()); }},
        {{"Y Offset", "Y offset"}, true, [&](Source& s) { return number(s.GetYOffset()); }},
        {{"Capture mode", "Capture mode "}, false, [](Source& s) { return s.GetCaptureMode(); }},
        {{"Tip Serial Number", "Tip serial number"}, false, [](Source& s) { return s.GetTipSerialNumber(); }},
        {{"Scan Rate", "Scan rate"}, false, [&](Source& s) { return number(s.GetScanRate()); }},
        {{"Bidirectional Scan", "Bidirectional scan", "bidirectional scan"}, false,
         [](Source& s) { return std::string(s.bidirectional ? "Enabled" : "Disabled"); }},
    };
    auto put = [](QuillonBuilder& f, const Case& c, std::size_t spelling, bool preferred) {
        if (c.unitized) {
            f.Unitized(kScan, c.keys[spelling], preferred ? 7.0 : 9.0, "nm");
        } else {
            f.Text(kScan, c.keys[spelling], c.keys.size() == 3 ? (preferred ? "Disabled" : "Enabled")
                                                                : (preferred ? "7" : "9"));
        }
    };
    for (const Case& c : cases) {
        QuillonBuilder all("IMAGE");
        for (std::size_t spelling = 0; spelling < c.keys.size(); ++spelling) {
            put(all, c, spelling, spelling == 0);
        }
        const std::string first = c.read(*Load(all));
        EXPECT_NE(first.find(c.keys.size() == 3 ? "Disabled" : "7"), std::string::npos) << c.keys[0] << ": " << first;
        for (std::size_t spelling = 1; spelling < c.keys.size(); ++spelling) {
            QuillonBuilder alone("IMAGE");
            for (const char* key : c.keys) {
                alone.Remove(kScan, key);
            }
            put(alone, c, spelling, false);
            const std::string read = c.read(*Load(alone));
            EXPECT_NE(read.find(c.keys.size() == 3 ? "Enabled" : "9"), std::string::npos) << c.keys[spelling] << ": " << read;
        }
    }
    // The texts fall back when the first is empty, the typed values only when it is missing.
    QuillonBuilder empty("IMAGE");
    empty.Text(kScan, "Scan Rate", "").Text(kScan, "Scan rate", "1.5").Text(kScan, "Tip Serial Number", "")
        .Text(kScan, "Tip serial number", "TS-9").Text(kScan, "Bidirectional Scan", "").Text(kScan, "Bidirectional scan", "")
        .Text(kScan, "bidirectional scan", "Enabled").Text(kScan, "Scan Size", "").Unitized(kScan, "Scan size", 5.0, "nm");
    auto s = Load(empty);
    EXPECT_EQ(s->GetScanRate().GetValue(), 1.5);
    EXPECT_EQ(UnitOf(s->GetScanRate()), "Hz");
    EXPECT_EQ(s->GetTipSerialNumber(), "TS-9");
    EXPECT_TRUE(s->bidirectional);
    // A typed read of "" fails, so the fallback is tried.
    EXPECT_EQ(s->GetScanSize().GetValue(), 5.0);
    EXPECT_EQ(UnitOf(s->GetScanSize()), "nm");
}

TEST(QuillonScanParametersTest, ScanSizeTurnsToMicronsAboveAThousandNanometres) {
    struct Case {
        double nanometres;
        int samples;
        double value;
        const char* unit;
    };
    const Case cases[] = {{1000.5, 4, 1.0005, "\xB5m"}, {1000.0, 4, 1000.0, "nm"}, {0.0, 512, 512.0, "Arb"}};
    for (const Case& c : cases) {
        QuillonBuilder file("IMAGE");
        file.Unitized(kScan, "Scan Size", c.nanometres, "nm").Int(kScan, "Samps/line", c.samples);
        auto source = Load(file);
        EXPECT_NEAR(source->GetScanSize().GetValue(), c.value, 1e-9) << c.nanometres;
        EXPECT_EQ(UnitOf(source->GetScanSize()), c.unit);
    }
}

TEST(QuillonScanParametersTest, EquipmentScanAndScannerValues) {
    QuillonBuilder file("IMAGE");
    file.Text("Equipment list", "Lyrant", "Yes").Text(kScan, "Rotate Ang.", "12.5").Text(kScan, "Z atten.", "3.5");
    auto s = Load(file);
    EXPECT_TRUE(s->lyrant);
    EXPECT_EQ(s->microscope, "Dulce");
    EXPECT_EQ(s->GetUnits(), "Metric");
    EXPECT_EQ(s->GetTipRadius(0), 2e-08);
    EXPECT_EQ(s->GetCantileverAngle(), 12.0);
    EXPECT_EQ(s->GetChannelRotateAngle(0), 12.5f);
    EXPECT_EQ(s->zAttenuation, 3.5);
    EXPECT_EQ(s->microscopeList, "Microscope list");
    EXPECT_EQ(s->captureDirection, "Down");
    EXPECT_EQ(s->tmFbIgain, 0.5);
    EXPECT_EQ(s->softFbIgain, 8.0);
    EXPECT_EQ(s->GetTmSetAmplitude(), 0.2);
    EXPECT_EQ(s->GetCantDrive(), 250.0);
    EXPECT_EQ(s->GetDriveAmplitude3().GetValue(), 0.05);
    EXPECT_EQ(s->driveAmplitude3Hard.GetValue(), 0.0003);
    EXPECT_EQ(s->GetDriveAmplitude3Sens().GetValue(), 12.0);
    EXPECT_EQ(s->GetXRound(), 0.5);
    EXPECT_EQ(s->sensZSensText, QuillonBuilder::kZSensitivity);
    EXPECT_EQ(s->GetEigenmode(), 1);
    EXPECT_EQ(s->GetFreeAirQ3(), 700.0);
    EXPECT_EQ(s->GetTipModel(), "Sphere");
    EXPECT_TRUE(s->GetSaveLoadEnabled());
    EXPECT_EQ(s->GetImageLines(), 4);
    EXPECT_EQ(s->GetOriginalLines(), 4);
    EXPECT_EQ(s->GetAspectRatio(), 1.0f);
}

TEST(QuillonScanParametersTest, TheFirstSetpointWithTextWinsAndNamesItsSensitivity) {
    QuillonBuilder file("IMAGE");
    file.Text(kScan, "@2:SoftLyrantSetpoint", "")
        .Text(kScan, "@2:SentrelSetpoint", "V [Sens. DeflSens] (0.0003 V/LSB) 0.07 V")
        .Text(kScan, "@2:ForceDigitalSetPoint", "V [Sens. Zsens] (0.5 V/LSB) 9 V");
    auto s = Load(file);
    EXPECT_TRUE(s->hasSetpoint);
    EXPECT_EQ(s->setpointSoft.GetValue(), 0.07);
    EXPECT_EQ(s->setpointHard.GetValue(), 0.0003);
    EXPECT_EQ(s->setpointSensitivity, 45.5);
    EXPECT_EQ(s->setpointSensitivityUnit, "nm");

    QuillonBuilder both("IMAGE");
    both.Text(kScan, "@2:SentrelSetpoint", "V [Sens. Zsens] (0.5 V/LSB) 9 V");
    EXPECT_EQ(Load(both)->setpointSoft.GetValue(), 0.05);  // the builder's "@2:SoftLyrantSetpoint"

    QuillonBuilder none("IMAGE");
    none.Remove(kScan, "@2:SoftLyrantSetpoint");
    EXPECT_FALSE(Load(none)->hasSetpoint);
}

TEST(QuillonScanParametersTest, OlderScanSectionsGiveLinesWithTheSamples) {
    // A scan section under another name without "Lines" carries "samples lines".
    QuillonBuilder file("IMAGE");
    file.Text("QuillonFileOverviewInfo", "ScanListPlistName", "Ciao scan list")
        .Text("Ciao scan list", "Samps/line", "512 128");
    auto s = Load(file);
    EXPECT_EQ(s->GetImageLines(), 4);  // the samples of the channel decide at last
    EXPECT_EQ(s->GetAspectRatio(), 4.0f);
    EXPECT_EQ(s->GetImageSamplesPerLine(), 4);

    QuillonBuilder ratio("IMAGE");
    ratio.Text("QuillonFileOverviewInfo", "ScanListPlistName", "Ciao scan list")
        .Text("Ciao scan list", "Samps/line", "512 128")
        .Text("Ciao scan list", "Aspect ratio", "1");
    EXPECT_EQ(Load(ratio)->GetAspectRatio(), 2.0f);  // a lone number is a power of two
}

TEST(QuillonScanParametersTest, CrestloadGroupOfForceFiles) {
    struct Case {
        double snt;
        double sync;
    };
    for (const Case& c : {Case{0.01, 16.5}, Case{0.011, 0.011}}) {
        QuillonBuilder file("FORCE");
        file.Double(kScan, "Sync Distance SNT", c.snt).Text(kScan, "CLT Freq", "2 KHz");
        auto s = Load(file);
        EXPECT_EQ(s->GetSyncDistance(), c.sync) << c.snt;
        EXPECT_EQ(s->GetCrestloadTappingFreq().GetValue(), 2.0);
        EXPECT_EQ(UnitOf(s->GetCrestloadTappingFreq()), "kHz");
        EXPECT_NEAR(s->GetCrestloadAmplitude(), 150.0, 1e-9);
        EXPECT_EQ(s->crestloadAmplitudeScale, 12.0);
        EXPECT_EQ(s->GetCrestloadCapture(), "Off");
        EXPECT_EQ(s->GetSamplePoints(), 1024);
    }
    QuillonBuilder noSensitivity("FORCE");
    noSensitivity.Remove(kScan, "@Sens. DriveAmplitude3Sens");
    EXPECT_EQ(Load(noSensitivity)->crestloadAmplitudeValue, 0.0);
    // Image files have no crest load.
    QuillonBuilder image("IMAGE");
    image.Double(kScan, "Sync Distance", 3.0);
    EXPECT_EQ(Load(image)->GetSyncDistance(), 0.0);
}

TEST(QuillonScanParametersTest, AdhesionAlgorithmOnlyForACapture) {
    const std::pair<const char*, const char*> cases[] = {
        {"On", "Baseline Relative"}, {"Allow", "Baseline Relative"}, {"Off", "Absolute Minimum"}, {"on", "Absolute Minimum"}};
    for (const auto& [capture, algorithm] : cases) {
        QuillonBuilder file("FVOL");
        file.Text(kScan, "Crestload Capture", capture);
        EXPECT_EQ(Load(file)->GetAdhesionAlgorithm(), algorithm) << capture;
    }
}

TEST(QuillonScanParametersTest, ForceVolumeLimitsAndDefaults) {
    QuillonBuilder file("FVOL");
    file.Remove(kScan, "@1:FVModulusLimit").Remove(kScan, "@1:LogFVModulusLimit");
    auto s = Load(file);
    EXPECT_TRUE(s->includeAdhesion);
    EXPECT_EQ(s->GetModulusFitModel(), "Hertzian");
    const std::pair<const char*, const char*> missing[] = {{"Arb", "Pa"}, {"log(Arb)", "log(Pa)"}};
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(s->fvLimits[i].value.GetValue(), 0.0);
        EXPECT_EQ(UnitOf(s->fvLimits[i].value), missing[i].first);
        EXPECT_EQ(s->fvLimits[i].sensitivity, 0.0);
        EXPECT_EQ(s->fvLimits[i].sensitivityUnits, missing[i].second);
    }
    // A limit that names a sensitivity takes it from the scanner list.
    EXPECT_EQ(s->fvLimits[3].value.GetValue(), 5.0);
    EXPECT_EQ(s->fvLimits[3].sensitivity, 20.0);
    EXPECT_EQ(s->fvLimits[3].sensitivityUnits, "nN");
    EXPECT_EQ(s->GetFvForceLimit(true).GetValue(), 100.0);
    EXPECT_EQ(s->fvLimits[2].sensitivityUnits, "");

    const char* const units[11] = {"kHz", "", "Meters", "", "", "", "nm", "", "GPa", "GPa", ""};
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(UnitOf(s->fvValues[i].value), "Arb") << i;
        EXPECT_EQ(s->fvValues[i].sensitivity, 0.0) << i;
        EXPECT_EQ(s->fvValues[i].sensitivityUnits, units[i]) << i;
    }
}

TEST(QuillonScanParametersTest, HighSpeedParameters) {
    QuillonBuilder file("HSDC");
    file.Remove(kScan, "Sync Distance");
    auto s = Load(file);
    EXPECT_EQ(s->GetTorsionalFreq(), 1.2e6);
    EXPECT_EQ(s->GetCyclesToAverage(), 8);
    EXPECT_EQ(s->GetCalculationPeriod(), 2.0);
    EXPECT_FALSE(s->GetInvertTorsional());
    EXPECT_TRUE(s->GetInvertVertical());
    EXPECT_EQ(s->GetDeflSens().GetValue(), 45.5);
    EXPECT_EQ(UnitOf(s->GetDriveFrequency3()), "kHz");
    EXPECT_EQ(s->GetCantFrequency().GetValue(), 300.0);
    // Without a sync distance the soft one stands in.
    EXPECT_EQ(s->GetSyncDistance(), 14.0);
    EXPECT_EQ(s->GetHsdcRate().GetValue(), 6.25);
    EXPECT_EQ(UnitOf(s->GetHsdcRate()), "MHz");
    EXPECT_EQ(s->GetHsdcYLineNumber(), 3);

    QuillonBuilder withSync("HSDC");
    EXPECT_EQ(Load(withSync)->GetSyncDistance(), 12.25);
}
