#include "Quillon/QuillonTestSupport.h"

#include "Platform/DataCore/DataContainer.h"
#include "QlDataAnalysisExt/ColorTables/ColorTableStore.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"
#include "QlDataAnalysisExt/Core/OLDataItemLoadRecord.h"
#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include <gtest/gtest.h>

using namespace QuillonTest;

namespace {

const char* const kImage = "Dulce image list";

// Writes keys straight into the section, where saving would go through the file.
class WritingSource : public Source {
public:
    using Source::Source;
    void WriteChannelHeader(const DataFilePtr&, const DataContainerPtr& section, unsigned, const std::string&,
                            const std::string& key, const std::string& value, const std::string& followKey) override {
        section->PutEntry(key, Orx::DataCore::ContainerValue(value), followKey);
    }
    bool WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned, const std::string&,
                          const std::string& key) override {
        section->RemoveKey(key);
        return file != nullptr;
    }
};

// Answers as told and notes the order in which it was asked.
class RecordingCallback : public InterpolatingColorTableCallback {
public:
    explicit RecordingCallback(bool skip) : skip_(skip) {}
    std::int32_t DefaultColorTableIndex() override { return note("default"), 7; }
    bool SkipColorTables() override { return note("skip"), skip_; }
    bool ReservedTest1() override { return note("first"), true; }
    bool ReservedTest2() override { return note("second"), true; }
    std::vector<std::string> asked;

private:
    void note(const char* what) { asked.push_back(what); }
    bool skip_;
};

void CustomTableKeys(QuillonBuilder& file, int redPoints) {
    file.Text(kImage, "Custom Color Table", "Yes").Text(kImage, "Interpolation Mode", "1");
    file.Text(kImage, "Number of Red Edit Points", std::to_string(redPoints));
    for (int n = 0; n < redPoints; ++n) {
        file.Text(kImage, "Red Edit Point" + std::to_string(n), std::to_string(n % 256) + " " + std::to_string(n % 200));
    }
    file.Text(kImage, "Number of Green Edit Points", "2")
        .Text(kImage, "Green Edit Point0", "0 10")
        .Text(kImage, "Green Edit Point1", "255 250")
        .Text(kImage, "Number of Blue Edit Points", "1")
        .Text(kImage, "Blue Edit Point0", "not a point")
        .Text(kImage, "Number of Color Points", "2")
        .Text(kImage, "Color Point0", "17")
        .Text(kImage, "Color Point1", "99");
}

}  // namespace

TEST(QuillonColorTableTest, ChannelsAskTheCallbackInItsOrder) {
    QuillonBuilder file("IMAGE");
    file.Int(kImage, "Color Table Index", 3);
    CustomTableKeys(file, 2);
    RecordingCallback reading(false);
    auto s = Load(file, &reading);
    ASSERT_TRUE(s->IsOpen());
    EXPECT_EQ(std::vector<std::string>(reading.asked.begin(), reading.asked.begin() + 4),
              (std::vector<std::string>{"default", "skip", "first", "second"}));
    std::int32_t table = 0;
    std::uint32_t first = 0, second = 0;
    bool flag = false;
    s->GetColorTableSettings(0, table, first, second, flag);
    EXPECT_EQ(table, 3);
    EXPECT_EQ(first, 1u);
    EXPECT_TRUE(s->HasColorTable(0));
    EXPECT_EQ(s->GetColorTable(0).positions[0], (std::vector<std::uint32_t>{0, 1}));

    // A host that skips the file's colours gives its own index and reads no table.
    RecordingCallback skipping(true);
    auto t = Load(file, &skipping);
    t->GetColorTableSettings(0, table, first, second, flag);
    EXPECT_EQ(table, 7);
    EXPECT_FALSE(t->HasColorTable(0));
    // Without a callback the index is the item's default.
    Load(file)->GetColorTableSettings(0, table, first, second, flag);
    EXPECT_EQ(table, 12);
}

TEST(QuillonColorTableTest, EditPointsAreReadUpTo256WithOrWithoutACallback) {
    QuillonBuilder file("IMAGE");
    CustomTableKeys(file, 300);
    auto s = Load(file);
    const DataContainerPtr section = s->GetDataFile()->GetContainer({kImage});
    InterpolatingColorTableCallback interpolating;
    for (ICreateColorTableCallback* callback : {static_cast<ICreateColorTableCallback*>(nullptr),
                                                static_cast<ICreateColorTableCallback*>(&interpolating)}) {
        Source source(s->GetDataFile(), callback);
        OLDataItemColorSettings settings;
        source.ReadColorTable(section, settings);
        EXPECT_TRUE(settings.custom);
        EXPECT_TRUE(settings.interpolation);
        EXPECT_EQ(settings.positions[0].size(), 256u);
        EXPECT_EQ(settings.positions[1], (std::vector<std::uint32_t>{0, 255}));
        EXPECT_EQ(settings.positions[2], std::vector<std::uint32_t>{0});  // unreadable, still counted
        EXPECT_EQ(settings.colorPoints, (std::vector<std::uint32_t>{17, 99}));
        // Without a callback no table is made.
        EXPECT_EQ(settings.entries[255].green, callback ? 250 : 0);
    }
}

TEST(QuillonColorTableTest, AFavouriteThatMatchesDoesNotGrowTheCustomList) {
    QuillonBuilder file("IMAGE");
    CustomTableKeys(file, 3);
    file.Text(kImage, "New Favorite", "Yes");
    InterpolatingColorTableCallback callback;
    auto first = Load(file, &callback);
    const std::size_t count = CustomColorTableCount();
    std::int32_t table = 0;
    std::uint32_t v1 = 0, v2 = 0;
    bool flag = false;
    first->GetColorTableSettings(0, table, v1, v2, flag);
    EXPECT_GE(table, kFirstCustomColorTable);
    EXPECT_FALSE(first->HasColorTable(0));  // a favourite is kept by the host, not the channel

    auto again = Load(file, &callback);
    std::int32_t againTable = 0;
    again->GetColorTableSettings(0, againTable, v1, v2, flag);
    EXPECT_EQ(againTable, table);
    EXPECT_EQ(CustomColorTableCount(), count);
}

TEST(QuillonColorTableTest, WrittenTableReadsBackWithTheSameEditPoints) {
    QuillonBuilder file("IMAGE");
    const std::vector<std::uint8_t> bytes = file.Bytes();
    InterpolatingColorTableCallback callback;
    WritingSource source(Orx::DataCore::DataFile::OpenMemory(bytes.data(), bytes.size()), &callback);
    source.Initialize();
    ASSERT_TRUE(source.IsOpen());

    ColorTableObject table;
    table.interpolation = true;
    table.positions = {std::vector<std::uint32_t>{0, 128, 255}, {0, 255}, {10, 200}};
    table.colorPoints = {3, 5, 8};
    ColorTableRequest request{true, table.positions, {{{0, 90, 255}, {40, 220}, {7, 70}}}};
    callback.CreateTable(request, table.entries);
    source.SetColorTable(0, table);

    const DataContainerPtr section = source.GetDataFile()->GetContainer({kImage});
    source.WriteColorTable(source.GetDataFile(), section, 0, kImage, 12);
    EXPECT_EQ(QlSectionReader(section).Text("Red Edit Point1"), "128 90");

    OLDataItemColorSettings read;
    source.ReadColorTable(section, read);
    EXPECT_TRUE(read.custom);
    EXPECT_TRUE(read.interpolation);
    EXPECT_EQ(read.positions, table.positions);
    EXPECT_EQ(read.colorPoints, table.colorPoints);
    EXPECT_EQ(read.entries, table.entries);

    // A standard table of a channel without its own writes nothing but its index.
    source.SetHasColorTable(0, false);
    source.WriteColorTable(source.GetDataFile(), section, 0, kImage, 25);
    EXPECT_FALSE(section->HasKey("Custom Color Table"));
    EXPECT_FALSE(section->HasKey("Red Edit Point0"));
    EXPECT_TRUE(section->HasKey("Color Table Index"));
}
