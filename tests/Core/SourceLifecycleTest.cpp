// A source's lifetime in the base class: when it counts as open, closing
// without a data file, the file title, and the record's defaults.

#include "support/MemoryDataSource.h"

#include <gtest/gtest.h>

TEST(SourceLifecycleTest, OpenNeedsTheFlagAndAChannel) {
    MemoryDataSource source;
    EXPECT_FALSE(source.IsOpen());
    source.opened = true;
    EXPECT_FALSE(source.IsOpen());
    source.AddChannel({});
    EXPECT_TRUE(source.IsOpen());
    source.opened = false;
    EXPECT_FALSE(source.IsOpen());
}

TEST(SourceLifecycleTest, CloseWithoutADataFileDoesNothing) {
    MemoryDataSource source;
    source.AddChannel({}, {1, 2});
    EXPECT_FALSE(source.Close());
    EXPECT_TRUE(source.IsOpen());
    EXPECT_EQ(source.GetData(0)[1], 2);
}

TEST(SourceLifecycleTest, FileTitleIsTheNameAndExtensionWithoutTheFolder) {
    MemoryDataSource source;
    for (const auto& [path, title] : std::vector<std::pair<std::string, std::string>>{
             {"/data/scans/sample.001.tef", "sample.001.tef"},
             {"C:\\scans\\grating.spm", "grating.spm"},
             {"plain", "plain"},
             {"/data/folder/", ""}}) {
        source.filePath = path;
        source.SetFileTitleFromPath();
        EXPECT_EQ(source.GetFileTitle(), title) << path;
        EXPECT_EQ(source.GetFilePath(), path);
    }
}

TEST(SourceLifecycleTest, RecordStartsAtItsDefaults) {
    MemoryDataSource source;
    EXPECT_EQ(source.GetNumberOfChannels(), 0);
    EXPECT_EQ(source.GetScanRate().GetValue(), 0.0);
    EXPECT_EQ(source.GetScanRateValue(), 0.0);
    EXPECT_EQ(source.GetAspectRatio(), 0.0f);
    EXPECT_EQ(source.GetSegmentCount(), 0);
    EXPECT_EQ(source.GetCrestloadCapture(), "");
    EXPECT_EQ(source.GetDateTime().valid, false);
    EXPECT_EQ(source.GetImportType(), 0);
    EXPECT_FALSE(source.IsHarlenFile());
    EXPECT_FALSE(source.IsEcFile());
    // Every channel's raw range is the full count range, whatever the channel.
    EXPECT_EQ(source.GetRawRange(0), 4294967295.0);
    EXPECT_EQ(source.GetRawRange(12345), 4294967295.0);
    EXPECT_EQ(source.GetBitsPerPixel(3), 16);
}

TEST(SourceLifecycleTest, CrestLoadAmplitudeIsTheValueTimesItsScale) {
    MemoryDataSource source;
    source.crestloadAmplitudeValue = 3.0;
    source.crestloadAmplitudeScale = 0.5;
    EXPECT_EQ(source.GetCrestloadAmplitude(), 1.5);
    EXPECT_EQ(source.GetCrestloadAmplitudeValue(), 3.0);
}
