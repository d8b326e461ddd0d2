// Changes a host makes to an open ".tef" source before saving it: channels
// taken out, Z scales divided, data scales set.

#include "Tef/TefSourceTestSupport.h"

#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include <gtest/gtest.h>

#include <memory>

using SampleKit::TefBuilder;

namespace {

class TefSourceChangesTest : public TefTest::TefSourceTest {
protected:
    std::unique_ptr<TefOLDataSource> Load(const TefBuilder& builder)
    {
        path = TestTempPath("changes.tef");
        TefTest::WriteBytes(path, builder.Bytes());
        auto source = std::make_unique<TefOLDataSource>(path);
        source->Initialize();
        EXPECT_TRUE(source->IsOpen());
        return source;
    }
};

}  // namespace

TEST_F(TefSourceChangesTest, RemovedChannelLeavesEveryTableAndTheOthersMoveUp)
{
    const auto source = Load(TefBuilder(3, 2, 2));
    std::int32_t* lastPixels = source->GetData(2);
    const TefChannelInfo lastRow = source->GetChannelTable()[2];

    source->RemoveChannel(1);
    EXPECT_EQ(source->GetChannelPixels().size(), 2u);
    EXPECT_EQ(source->GetChannelRecords().size(), 2u);
    ASSERT_EQ(source->GetChannelTable().size(), 2u);
    EXPECT_EQ(source->GetChannelTable()[1], lastRow);
    EXPECT_EQ(source->GetChannelRecords()[1].channelIndex, 2u);
    EXPECT_EQ(source->GetDataTypeDesc(1), "Error (Amplitude)");
    // the moved channel still reads the pixels it had
    EXPECT_EQ(source->GetData(1), lastPixels);
    EXPECT_EQ(source->GetDataItem(2), nullptr);
    // the counts are the caller's to lower, and the file's count stays
    EXPECT_EQ(source->GetNumberOfChannels(), 3);
    EXPECT_EQ(source->GetFileChannelCount(), 3);

    source->RemoveChannel(5);
    EXPECT_EQ(source->GetChannelPixels().size(), 2u);
    EXPECT_NE(source->GetDataItem(1), nullptr);
}

TEST_F(TefSourceChangesTest, ChannelParametersDivideTheZScaleAndTheDataScaleFollows)
{
    TefBuilder builder(2, 2, 2);
    builder.Set(100, TefBuilder::Text("V"));
    builder.Set(101, TefBuilder::Text("furlong"));
    const auto source = Load(builder);

    source->SetChannelParameters(0, 4.0f);
    EXPECT_EQ(source->GetZScaleInSwUnits(0), 62.5f);
    EXPECT_EQ(source->GetDataScale(0, false).GetValue(), 62.5);
    EXPECT_EQ(source->GetDataScaleName(0), "V");

    // no factor above 0 leaves the Z scale
    source->SetChannelParameters(0, 0.0f);
    source->SetChannelParameters(0, -2.0f);
    EXPECT_EQ(source->GetZScaleInSwUnits(0), 62.5f);

    source->SetChannelParameters(1, 2.0f);
    EXPECT_EQ(source->GetZScaleInSwUnits(1), 125.5f);
    EXPECT_EQ(source->GetDataScale(1, false).GetValue(), 125.5);
    EXPECT_EQ(source->GetDataScaleName(1), "Arb");

    // a length is no voltage, and its scale is set all the same
    const auto lengths = Load(TefBuilder(1, 2, 2));
    lengths->SetChannelParameters(0, 10.0f);
    EXPECT_EQ(lengths->GetDataScale(0, true).GetValue(), 25.0);
    EXPECT_EQ(lengths->GetDataScale(0, true).GetUnits()->GetName(), "nm");
    UValue micrometre(0.5, "um");
    lengths->SetDataScale(0, micrometre, true);
    EXPECT_DOUBLE_EQ(lengths->GetDataScale(0, true).GetValue(), 500.0);

    // a channel beyond the table changes nothing
    source->SetChannelParameters(9, 2.0f);
    UValue scale(1.0);
    source->SetDataScale(9, scale, true);
    EXPECT_EQ(source->GetZScaleInSwUnits(1), 125.5f);
}
