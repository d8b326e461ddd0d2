#include "Infrastructure/OrxDataCore/UnboundDataObject.h"
#include "Platform/AssertFailed.h"
#include "Platform/DataStreams.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Orx::DataCore;

namespace {

struct NoSerializer {
    int x = 0;
};

// Collects warnings and assertion reports for the length of a test.
class BindingTest : public ::testing::Test {
protected:
    void SetUp() override {
        Orx::Core::Warning::SetHandler([this](const Orx::Core::Warning& w) {
            warnings.push_back(w.GetMessage());
            categories.push_back(w.GetCategory());
        });
        Orx::Core::SetAssertHandler([this](const std::string& text, const std::string& function) {
            asserts.push_back(text + " @ " + function);
        });
    }
    void TearDown() override {
        Orx::Core::Warning::SetHandler(nullptr);
        Orx::Core::SetAssertHandler(nullptr);
    }

    static std::vector<std::uint8_t> Bytes(std::initializer_list<std::uint8_t> b) { return b; }

    std::vector<std::string> warnings;
    std::vector<std::string> categories;
    std::vector<std::string> asserts;
};

TEST_F(BindingTest, MatchingTypeBindsSilently) {
    UnboundData unbound("int", Bytes({0x2A, 0, 0, 0x80}));
    auto bound = Data<int>::FromObject(unbound.BindType<int>());
    ASSERT_TRUE(bound);
    EXPECT_EQ(*bound, static_cast<int>(0x8000002A));
    EXPECT_TRUE(bound.GetWrapper()->IsLockable());
    EXPECT_TRUE(warnings.empty());
    EXPECT_FALSE(Data<float>::FromObject(unbound.BindType<int>())) << "the handle of another type stays empty";
}

TEST_F(BindingTest, TypeMismatchIsReportedAndTheBindingGoesOn) {
    UnboundData unbound("int", Bytes({0, 0, 0x80, 0x3F}));
    auto bound = Data<float>::FromObject(unbound.BindType<float>());
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], "Attempted to bind unbound data of type \"int\" as \"float\"");
    EXPECT_EQ(categories[0], "Orx.DataCore");
    ASSERT_TRUE(bound);
    EXPECT_EQ(*bound, 1.0f);
}

TEST_F(BindingTest, SizeMismatchIsReportedThenTheScalarAsserts) {
    UnboundData unbound("float", Bytes({0, 0, 0x20, 0x41, 9, 9, 9, 9}));
    auto bound = Data<float>::FromObject(unbound.BindType<float>());
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], "Attempted to bind unbound data with size 8 to size 4\n");
    ASSERT_EQ(asserts.size(), 1u);
    EXPECT_EQ(asserts[0], "sizeof(data_type) == p_ui64NumBytes @ BasicBuiltInSerializer");
    EXPECT_EQ(*bound, 10.0f) << "the read goes on after the report";

    UnboundData shortDouble("double", Bytes({1, 2, 3}));
    EXPECT_THROW(shortDouble.BindType<double>(), Orx::Core::LogicError) << "but never past the content";
}

TEST_F(BindingTest, TypeWithoutSerializerIsReported) {
    UnboundData unbound("int", Bytes({1, 0, 0, 0}));
    auto object = unbound.BindType<NoSerializer>();
    ASSERT_EQ(warnings.size(), 2u);
    EXPECT_EQ(warnings[0].rfind("Attempted to bind unbound data of type \"int\" as \"", 0), 0u);
    std::string expected = "Attempted to bind unbound data to a " + object->GetTypeName() + " storing a int";
    EXPECT_EQ(warnings[1], expected);
    EXPECT_EQ(object->GetSerializer(), nullptr);
}

TEST_F(BindingTest, CompositeValuesBindFromTheirBinaryForms) {
    std::vector<std::uint8_t> bytes;
    Orx::Core::DataOutputStream out(bytes);
    out.WriteString("Dulce image list");
    out.WriteString("");
    out.WriteString("\xB5m");
    UnboundData names("vector<string>", bytes);
    auto bound = Data<std::vector<std::string>>::FromObject(names.BindType<std::vector<std::string>>());
    EXPECT_EQ(*bound, (std::vector<std::string>{"Dulce image list", "", "\xB5m"}));

    UnboundData text("AsciiString", Bytes({'a', 0, 'b'}));
    EXPECT_EQ(*Data<std::string>::FromObject(text.BindType<std::string>()), std::string("a\0b", 3));

    std::vector<std::uint8_t> matrix;
    Orx::Core::DataOutputStream m(matrix);
    m.WriteUInt32(1);
    m.WriteUInt32(2);
    m.WriteInt32(-1);
    m.WriteInt32(7);
    UnboundData raw("Matrix<long>", matrix);
    auto samples = Data<IntMatrix>::FromObject(raw.BindType<IntMatrix>());
    ASSERT_EQ(samples->size2(), 2u);
    EXPECT_EQ((*samples)(0, 0), -1);
    EXPECT_EQ((*samples)(0, 1), 7);
    EXPECT_TRUE(warnings.empty());

    matrix.resize(matrix.size() - 1);
    UnboundData cut("Matrix<long>", matrix);
    EXPECT_THROW(cut.BindType<IntMatrix>(), Orx::Core::LogicError);
}

}  // namespace
