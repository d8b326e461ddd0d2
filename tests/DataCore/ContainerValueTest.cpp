#include "Platform/DataCore/DataContainer.h"
#include "Platform/DataCore/DataFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace Orx::DataCore;
using Orx::Core::UnitizedValue;

namespace {

DataContainerPtr Section() {
    auto c = std::make_shared<DataContainer>("Dulce scan list");
    c->PutEntry("Count", ContainerValue(std::int32_t{12}));
    c->PutEntry("Lines", ContainerValue(std::int32_t{256}, ContainerValue::Kind::Long));
    c->PutEntry("Serial", ContainerValue(std::uint32_t{4000000000u}));
    c->PutEntry("Gain", ContainerValue(0.1f));
    c->PutEntry("Hold Time", ContainerValue(0.25));
    c->PutEntry("Number text", ContainerValue(std::string(" 17 ")));
    c->PutEntry("Word", ContainerValue(std::string("Height")));
    c->PutEntry("Size text", ContainerValue(std::string("12.5 nm")));
    c->PutEntry("Odd unit", ContainerValue(std::string("3 furlongs")));
    c->PutEntry("Scan Size", ContainerValue(10.0, "nm"));
    c->PutEntry("Names", ContainerValue(std::vector<std::string>{"a", "b"}));
    c->PutEntry("Future", ContainerValue::Opaque("mystery", "42"));
    return c;
}

TEST(ContainerValue, ParameterReadClearsWhereDirectReadKeepsTheDefault) {
    auto c = Section();
    std::string direct = "default";
    EXPECT_FALSE(c->GetValue("Missing", direct));
    EXPECT_EQ(direct, "default");
    std::string parameter = "default";
    EXPECT_FALSE(ParameterRead(c, "Missing", parameter));
    EXPECT_EQ(parameter, "");

    EXPECT_TRUE(ParameterRead(c, "Word", parameter));
    EXPECT_TRUE(c->GetValue("Word", direct));
    EXPECT_EQ(parameter, "Height");
    EXPECT_EQ(direct, parameter);

    std::string none = "x";
    EXPECT_FALSE(ParameterRead(nullptr, "Word", none));
    EXPECT_EQ(none, "");
}

TEST(ContainerValue, OtherTypesReadThroughTheTextForm) {
    auto c = Section();
    std::string text;
    EXPECT_TRUE(c->GetValue("Count", text));
    EXPECT_EQ(text, "12");
    EXPECT_TRUE(c->GetValue("Gain", text));
    EXPECT_EQ(text, "0.1");
    EXPECT_TRUE(c->GetValue("Scan Size", text));
    EXPECT_EQ(text, "10 nm");

    std::int32_t n = 0;
    EXPECT_TRUE(c->GetValue("Number text", n)) << "blanks around a number are no obstacle";
    EXPECT_EQ(n, 17);
    EXPECT_TRUE(c->GetValue("Lines", n)) << "int and long are both 32 bits";
    EXPECT_EQ(n, 256);
    double d = 0;
    EXPECT_TRUE(c->GetValue("Gain", d));
    EXPECT_EQ(d, 0.1) << "a float reads as the number its text shows";
    EXPECT_TRUE(c->GetValue("Scan Size", d)) << "a unitized value reads as its number";
    EXPECT_EQ(d, 10.0);
    float f = 0;
    EXPECT_TRUE(c->GetValue("Hold Time", f));
    EXPECT_EQ(f, 0.25f);

    UnitizedValue<double> u;
    EXPECT_TRUE(c->GetValue("Size text", u));
    EXPECT_EQ(u.GetValue(), 12.5);
    EXPECT_TRUE(c->GetValue("Count", u));
    EXPECT_EQ(u.GetValue(), 12.0);
}

TEST(ContainerValue, WhatDoesNotReadLeavesTheTargetAlone) {
    auto c = Section();
    std::int32_t n = -1;
    EXPECT_FALSE(c->GetValue("Word", n));
    EXPECT_FALSE(c->GetValue("Serial", n)) << "4000000000 is beyond a signed 32-bit number";
    EXPECT_FALSE(c->GetValue("Gain", n)) << "0.1 is no integer";
    EXPECT_FALSE(c->GetValue("Names", n));
    EXPECT_FALSE(c->GetValue("Future", n)) << "a type nobody knows is not guessed at";
    EXPECT_EQ(n, -1);
    std::uint32_t u = 5;
    c->PutEntry("Negative", ContainerValue(std::int32_t{-3}));
    EXPECT_FALSE(c->GetValue("Negative", u));
    EXPECT_EQ(u, 5u);
    std::string text = "kept";
    EXPECT_FALSE(c->GetValue("Names", text));
    EXPECT_EQ(text, "kept");
    std::vector<std::string> names{"kept"};
    EXPECT_FALSE(c->GetValue("Word", names));
    EXPECT_EQ(names.size(), 1u);

    UnitizedValue<double> value(7.0);
    EXPECT_FALSE(c->GetValue("Odd unit", value)) << "a unit the dictionary does not know";
    EXPECT_EQ(value.GetValue(), 7.0);
    c->PutEntry("Odd unitized", ContainerValue(3.0, "furlongs"));
    EXPECT_FALSE(c->GetValue("Odd unitized", value));
    std::string shown;
    EXPECT_TRUE(c->GetValue("Odd unitized", shown)) << "its text is still there";
    EXPECT_EQ(shown, "3 furlongs");
}

TEST(ContainerValue, WritesFollowTheModeAndNeverCreateUnasked) {
    auto c = Section();
    c->SetValue("Absent", std::string("x"));
    EXPECT_FALSE(c->HasKey("Absent"));
    c->SetValue("Absent", "x", true);
    EXPECT_EQ(c->GetKeys().back(), "Absent");
    EXPECT_EQ(c->GetEntry("Absent")->TypeName(), "AsciiString");

    c->SetValue("Count", std::string("13"), false, DataContainer::KeepStoredType);
    EXPECT_EQ(c->GetEntry("Count")->TypeName(), "int");
    c->SetValue("Count", std::string("many"), false, DataContainer::KeepStoredType);
    std::int32_t n = 0;
    EXPECT_TRUE(c->GetValue("Count", n));
    EXPECT_EQ(n, 13) << "a value the stored type cannot hold changes nothing";

    c->SetValue("Count", std::string("many"), false, DataContainer::TakeWrittenType);
    EXPECT_EQ(c->GetEntry("Count")->TypeName(), "AsciiString");

    EXPECT_EQ(c->GetStandingWriteMode(), DataContainer::TakeWrittenType);
    c->SetStandingWriteMode(DataContainer::KeepStoredType);
    c->SetValue("Lines", 2.5);
    EXPECT_EQ(c->GetEntry("Lines")->TypeName(), "long");
    EXPECT_TRUE(c->GetValue("Lines", n));
    EXPECT_EQ(n, 256);
    c->SetValue("Lines", 512.0);
    EXPECT_TRUE(c->GetValue("Lines", n));
    EXPECT_EQ(n, 512);

    auto keysBefore = c->GetKeys();
    c->SetValue("Scan Size", UnitizedValue<double>(20.0, "nm"));
    EXPECT_EQ(c->GetKeys(), keysBefore) << "a write keeps the key where it stands";
}

TEST(ContainerValue, MatricesAreSharedAndTypedReadsLeaveThemAlone) {
    auto c = Section();
    EXPECT_FALSE(c->GetRawData("Word"));
    EXPECT_FALSE(c->GetRawData("Missing"));
    auto m = std::make_shared<IntMatrix>(2, 2);
    (*m)(1, 1) = 9;
    c->SetRawData("RawData", m);
    EXPECT_EQ(c->GetRawData("RawData"), m);
    EXPECT_FALSE(c->GetFloatMatrix("RawData"));
    std::string text = "kept";
    EXPECT_FALSE(c->GetValue("RawData", text));
    EXPECT_EQ(text, "kept");

    auto copy = c->Clone();
    (*m)(1, 1) = 10;
    EXPECT_EQ((*copy->GetRawData("RawData"))(1, 1), 9) << "a clone owns its samples";
}

TEST(ContainerValue, ThreadsSeeWholeValues) {
    auto c = Section();
    const std::vector<std::string> shortList{"a"};
    const std::vector<std::string> longList(64, std::string(100, 'x'));
    std::vector<std::thread> threads;
    std::atomic<int> torn{0};
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 2000; ++i) {
                if (t % 2 == 0) {
                    c->SetValue("Names", (i % 2 == 0) ? shortList : longList);
                } else {
                    std::vector<std::string> seen;
                    if (!c->GetValue("Names", seen) || (seen != shortList && seen != longList &&
                                                        seen != std::vector<std::string>{"a", "b"})) {
                        ++torn;
                    }
                }
            }
        });
    }
    for (auto& t : threads) {
        t.join();
    }
    EXPECT_EQ(torn.load(), 0);
}

TEST(ContainerValue, AddParmPlacesBehindTheNamedKey) {
    auto file = DataFile::Make("", "Harlen Data File", nullptr);
    auto section = file->GetRoot()->AddChild("[Data Parameters]");
    section->PutEntry("A", ContainerValue(std::string("1")));
    section->PutEntry("B", ContainerValue(std::string("2")));
    file->AddParm("[Data Parameters]", "Color Table Index", "3", "A");
    file->AddParm("[Data Parameters]", "New Favorite", "No", "Color Table Index");
    file->AddParm("[Data Parameters]", "Tail", "t", "Nowhere");
    file->AddParm("[Data Parameters]", "End", "e", "");
    file->AddParm("[Data Parameters]", "A", "changed", "End");
    file->AddParm("[No Such Section]", "X", "x", "");
    EXPECT_EQ(section->GetKeys(),
              (std::vector<std::string>{"A", "Color Table Index", "New Favorite", "B", "Tail", "End"}));
    std::string a;
    EXPECT_TRUE(section->GetValue("A", a));
    EXPECT_EQ(a, "changed");
    EXPECT_FALSE(file->GetContainer({"[No Such Section]"}));
    EXPECT_EQ(file->GetFormattedValueString(section, "Color Table Index"), "3");

    file->DeleteParm("[Data Parameters]", "B");
    file->DeleteParm("[Data Parameters]", "Never there");
    EXPECT_FALSE(section->HasKey("B"));
}

TEST(ContainerValue, FormattedValuesShowWhatAPersonReads) {
    auto file = DataFile::Make("", "Quillon Data File", nullptr);
    auto c = Section();
    c->SetRawData("RawData", std::make_shared<IntMatrix>(4, 3));
    EXPECT_EQ(file->GetFormattedValueString(c, "Scan Size"), "10 nm");
    EXPECT_EQ(file->GetFormattedValueString(c, "Names"), "a, b");
    EXPECT_EQ(file->GetFormattedValueString(c, "Future"), "42");
    EXPECT_EQ(file->GetFormattedValueString(c, "RawData"), "Matrix long 4x3");
    EXPECT_EQ(file->GetFormattedValueString(c, "Missing"), "");
    EXPECT_EQ(file->GetFormattedValueString(nullptr, "Word"), "");
}

}  // namespace
