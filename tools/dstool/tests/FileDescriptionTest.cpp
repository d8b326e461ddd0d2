// What info tells of files of each kind: the parts a kind has are there
// with the library's answers, and the parts it has not are left out.

#include "tools/dstool/FileDescription.h"
#include "tools/dstool/LibrarySession.h"

#include "LibraryFiles.h"
#include "tools/samplekit/HarlenBuilder.h"

#include <gtest/gtest.h>

namespace {

using Dstool::FileDescription;
using Dstool::LibrarySession;
using SampleKit::QuillonBuilder;

FileDescription Describe(const std::string& path)
{
    LibrarySession session;
    EXPECT_TRUE(session.Open(path)) << path;
    return FileDescription::OfOpenFile(path);
}

TEST(FileDescriptionTest, AnImageHasChannelsAndNoCurves)
{
    const FileDescription d = Describe(WrittenQuillon("IMAGE"));
    EXPECT_EQ(d.family, "Quillon");
    EXPECT_EQ(d.typeText, "Quillon Data File");
    EXPECT_EQ(d.kind, "image");
    EXPECT_EQ(d.channelCount, 2);
    EXPECT_FALSE(d.curves);
    EXPECT_FALSE(d.segmentCount);
    EXPECT_FALSE(d.tappingFrequency);
    EXPECT_FALSE(d.channels[0].springConstant);
    EXPECT_EQ(d.channels[1].name, "Deflection Error");
}

TEST(FileDescriptionTest, AForceFileTellsItsCurvesHoldAndSpring)
{
    const FileDescription d = Describe(WrittenQuillon("FORCE"));
    EXPECT_EQ(d.kind, "force");
    ASSERT_TRUE(d.curves);
    EXPECT_EQ(d.curves->curves, 2);  // a force file counts its channels
    EXPECT_EQ(d.curves->pointsPerCurve, int(QuillonBuilder::kCurveHalf));
    EXPECT_EQ(d.curves->holdPoints, int(QuillonBuilder::kHoldPoints));
    EXPECT_EQ(d.curves->holdTime, 0.5);
    EXPECT_FALSE(d.curves->forcesPerLine);
    EXPECT_EQ(d.channels[1].springConstant, QuillonBuilder::kSpringConstant);
}

TEST(FileDescriptionTest, AForceVolumeCountsFromItsCurveChannel)
{
    const FileDescription d = Describe(WrittenQuillon("FVOL"));
    EXPECT_EQ(d.kind, "force volume");
    ASSERT_TRUE(d.curves);
    EXPECT_EQ(d.curves->forcesPerLine, int(QuillonBuilder::kForceCurves));
    // channel 0 is the image; the points are those of the curves in channel 1
    EXPECT_EQ(d.curves->pointsPerCurve, int(QuillonBuilder::kCurveHalf));
    EXPECT_EQ(d.channels[1].pointsPerCurve, int(QuillonBuilder::kCurveHalf));
}

TEST(FileDescriptionTest, AScriptListsItsSegments)
{
    const FileDescription d = Describe(WrittenQuillon("SCRIPT"));
    EXPECT_EQ(d.kind, "script");
    ASSERT_EQ(d.segmentCount, 3);
    ASSERT_EQ(d.segments.size(), 3u);
    EXPECT_EQ(d.segments[0].description, "Extend Z");
    EXPECT_EQ(d.segments[2].description, "Hold Z");
    EXPECT_EQ(d.segments[2].type, 6);
    EXPECT_EQ(d.segments[2].samples, int(QuillonBuilder::kHoldPoints));
    EXPECT_FLOAT_EQ(static_cast<float>(d.segments[2].duration), 0.25f);
}

TEST(FileDescriptionTest, ScriptListsShorterThanTheirCountKeepWhatTheyHave)
{
    QuillonBuilder file("SCRIPT");
    file.Text(QuillonBuilder::kForceList, "Segment Type", "1");
    const FileDescription d = Describe(WrittenQuillon(std::move(file), "short_lists.qdf"));
    ASSERT_EQ(d.segments.size(), 3u);
    EXPECT_EQ(d.segments[0].description, "Extend Z");
    // the types the list lacks stay as dstool's buffer had them: 0
    EXPECT_EQ(d.segments[1].description, "Unknown Segment");
}

TEST(FileDescriptionTest, HighSpeedChannelsHaveTheirRates)
{
    const FileDescription d = Describe(WrittenQuillon("HSDC"));
    EXPECT_EQ(d.kind, "high-speed");
    ASSERT_EQ(d.channels.size(), 2u);
    EXPECT_EQ(d.channels[0].highSpeedRate, 6.25e6);
    EXPECT_EQ(d.channels[1].highSpeedRate, 6.25e6);
    ASSERT_TRUE(d.curves);
    EXPECT_EQ(d.curves->pointsPerCurve, int(QuillonBuilder::kHighSpeedSamples));
}

TEST(FileDescriptionTest, KindsOfTheOtherSubtypesAndFamilies)
{
    EXPECT_EQ(Describe(WrittenQuillon("TIMED")).kind, "timed");
    const FileDescription ec = Describe(WrittenQuillon("ECAFM"));
    EXPECT_EQ(ec.kind, "electrochemistry AFM");
    EXPECT_FALSE(ec.curves);

    const std::string harlen = TestTempPath("dstool_force16.hdf");
    SampleKit::HarlenBuilder::Force(32, 16).Write(harlen);
    const FileDescription h = Describe(harlen);
    EXPECT_EQ(h.family, "Harlen");
    EXPECT_EQ(h.kind, "force");
    EXPECT_EQ(h.channelCount, 4);
}

TEST(FileDescriptionTest, CaptureTellsItsTappingFrequency)
{
    QuillonBuilder file("FORCE");
    file.Text(QuillonBuilder::kScanList, "Crestload Capture", "Allow");
    const FileDescription d = Describe(WrittenQuillon(std::move(file), "allow.qdf"));
    EXPECT_EQ(d.tappingFrequency, 2000.0);
}

}  // namespace
