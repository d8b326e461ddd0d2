#include "Infrastructure/OrxDataCore/BuiltInDataObjects.h"
#include "Platform/AssertFailed.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Orx::DataCore;
using Orx::Core::DataInputStream;
using Orx::Core::DataOutputStream;
using Orx::Core::XMLWriter;

namespace {

template <class T>
std::vector<std::uint8_t> BinaryOf(const T& value) {
    Data<T> data;
    *data = value;
    std::vector<std::uint8_t> bytes;
    DataOutputStream out(bytes);
    std::uint64_t written = data.GetWrapper()->GetSerializer()->ToBinary(out);
    EXPECT_EQ(written, bytes.size());
    EXPECT_EQ(data.GetWrapper()->GetSerializer()->GetDataSize_bytes(), bytes.size());
    return bytes;
}

template <class T>
T FromBinary(const std::vector<std::uint8_t>& bytes) {
    Data<T> data;
    DataInputStream in(bytes.data(), bytes.size());
    EXPECT_EQ(data.GetWrapper()->GetSerializer()->FromBinary(bytes.size(), in), bytes.size());
    return *data;
}

template <class T>
std::string XmlOf(const T& value) {
    Data<T> data;
    *data = value;
    std::ostringstream out;
    XMLWriter writer(out);
    writer.StartTag("Value");
    data.GetWrapper()->GetSerializer()->DataToXML(writer);
    writer.EndTag();
    return out.str();
}

template <class T>
T FromXml(const std::string& xml) {
    Data<T> data;
    data.GetWrapper()->GetSerializer()->DataFromXML(xml);
    return *data;
}

IntMatrix Counting(std::size_t rows, std::size_t columns) {
    IntMatrix m(rows, columns);
    for (std::size_t i = 0; i < m.data().size(); ++i) {
        m.data()[i] = static_cast<std::int32_t>(i + 1);
    }
    return m;
}

TEST(SerializerForms, BinaryFormsAreLittleEndianAndBare) {
    EXPECT_EQ(BinaryOf(-2), (std::vector<std::uint8_t>{0xFE, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(BinaryOf(LongValue{258}), (std::vector<std::uint8_t>{2, 1, 0, 0}));
    EXPECT_EQ(BinaryOf(1.0f), (std::vector<std::uint8_t>{0, 0, 0x80, 0x3F}));
    EXPECT_EQ(BinaryOf(1.0).size(), 8u);
    EXPECT_EQ(BinaryOf(std::string("ab")), (std::vector<std::uint8_t>{'a', 'b'})) << "no length, no terminator";
    EXPECT_TRUE(BinaryOf(std::string()).empty());
    EXPECT_EQ(BinaryOf(std::vector<std::string>{"ab", ""}),
              (std::vector<std::uint8_t>{2, 0, 0, 0, 'a', 'b', 0, 0, 0, 0}));
    EXPECT_EQ(BinaryOf(Counting(1, 2)), (std::vector<std::uint8_t>{1, 0, 0, 0, 2, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0}));

    EXPECT_EQ(FromBinary<std::vector<std::string>>(BinaryOf(std::vector<std::string>{"x", "", "\xB5"})),
              (std::vector<std::string>{"x", "", "\xB5"}));
    EXPECT_EQ(FromBinary<IntMatrix>(BinaryOf(Counting(3, 2))).data(), Counting(3, 2).data());
    FloatMatrixVector curves(2, FloatMatrix(2, 1, 0.5f));
    auto back = FromBinary<FloatMatrixVector>(BinaryOf(curves));
    ASSERT_EQ(back.size(), 2u);
    EXPECT_EQ(back[1](1, 0), 0.5f);
}

TEST(SerializerForms, ReadsStayWithinTheirBytes) {
    Data<std::string> text;
    *text = "kept";
    std::vector<std::uint8_t> none;
    DataInputStream empty(none.data(), 0);
    EXPECT_EQ(text.GetWrapper()->GetSerializer()->FromBinary(0, empty), 0u);
    EXPECT_EQ(*text, "kept") << "nothing to read changes nothing";

    std::vector<std::uint8_t> bytes{5, 0, 0, 0, 'a'};
    DataInputStream in(bytes.data(), bytes.size());
    Data<std::vector<std::string>> list;
    EXPECT_THROW(list.GetWrapper()->GetSerializer()->FromBinary(bytes.size(), in), Orx::Core::LogicError);

    std::vector<std::uint8_t> huge{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 1, 2, 3, 4};
    DataInputStream hugeIn(huge.data(), huge.size());
    Data<IntMatrix> matrix;
    EXPECT_THROW(matrix.GetWrapper()->GetSerializer()->FromBinary(huge.size(), hugeIn), Orx::Core::LogicError)
        << "sizes that promise more than the bytes are refused before allocating";

    std::vector<std::string> reports;
    Orx::Core::SetAssertHandler([&reports](const std::string& text, const std::string&) { reports.push_back(text); });
    Data<double> d;
    std::vector<std::uint8_t> four{0, 0, 0, 0};
    DataInputStream fourIn(four.data(), four.size());
    EXPECT_THROW(d.GetWrapper()->GetSerializer()->FromBinary(4, fourIn), Orx::Core::LogicError);
    Orx::Core::SetAssertHandler(nullptr);
    EXPECT_EQ(reports, std::vector<std::string>{"sizeof(data_type) == p_ui64NumBytes"});
}

TEST(SerializerForms, TextEscapesReplaceTheFiveSpecialCharacters) {
    EXPECT_EQ(XMLWriter::Escape("a<b>&'\"c"), "a&lt;b&gt;&amp;&apos;&quot;c");
    EXPECT_EQ(XMLWriter::Escape("plain \xB5m"), "plain \xB5m");
    EXPECT_EQ(XmlOf(std::string("<S [Height] \"Height\">")),
              "<Value encoding=\"AsciiString\">&lt;S [Height] &quot;Height&quot;&gt;</Value>");
    EXPECT_EQ(FromXml<std::string>("<Value encoding=\"AsciiString\">&lt;a&amp;b&#65;&#x42;&gt;</Value>"),
              "<a&bAB>");
    EXPECT_EQ(XmlOf(std::vector<std::string>{"a&b", ""}),
              "<Value encoding=\"vector&lt;string&gt;\"><Str>a&amp;b</Str><Str></Str></Value>");
    EXPECT_EQ(FromXml<std::vector<std::string>>(XmlOf(std::vector<std::string>{"a&b", "", "c"})),
              (std::vector<std::string>{"a&b", "", "c"}));
}

TEST(SerializerForms, MatrixXmlListsSize1ElementsPerLine) {
    EXPECT_EQ(XmlOf(Counting(2, 3)),
              "<Value encoding=\"Matrix\"><Contents size1=\"2\" size2=\"3\">1 2\n3 4\n5 6</Contents></Value>");
    auto m = FromXml<IntMatrix>(
        "<Value encoding=\"Matrix\"><Contents size2=\"3\" size1=\"2\">1\t2 3\r\n4  5\n6</Contents></Value>");
    EXPECT_EQ(m.size1(), 2u);
    EXPECT_EQ(m.size2(), 3u);
    EXPECT_EQ(m.data(), Counting(2, 3).data()) << "sizes are read by name, in either order";
    EXPECT_EQ(FromXml<IntMatrix>("<Value encoding='Matrix'><Contents size1='1' other='x' size2='1'> 9 </Contents>"
                                 "</Value>")(0, 0),
              9);
    EXPECT_THROW(FromXml<IntMatrix>("<Value encoding=\"Matrix\"><Contents size1=\"2\" size2=\"2\">1 2 3</Contents>"
                                    "</Value>"),
                 Orx::Core::LogicError);
    EXPECT_THROW(FromXml<IntMatrix>("<Value encoding=\"Matrix\"><Contents size1=\"99999999\" "
                                    "size2=\"99999999\">1</Contents></Value>"),
                 Orx::Core::LogicError);
}

TEST(SerializerForms, LargeOrFloatMatricesFallBackToTheDefaultForm) {
    auto limit = Serializer::GetMaxScalarElementsForPlainText();
    Serializer::SetMaxScalarElementsForPlainText(4);
    std::string xml = XmlOf(Counting(2, 3));
    Serializer::SetMaxScalarElementsForPlainText(limit);
    EXPECT_EQ(xml, "<Value encoding=\"hexBinary\">0200000003000000010000000200000003000000040000000500000006000000"
                   "</Value>");
    EXPECT_EQ(FromXml<IntMatrix>(xml).data(), Counting(2, 3).data());

    FloatMatrix f(1, 2);
    f(0, 0) = 0.1f;
    f(0, 1) = -3.5f;
    EXPECT_EQ(FromXml<FloatMatrix>(XmlOf(f)).data(), f.data());
    Serializer::EnablePlainTextForFloatCollections(false);
    std::string floats = XmlOf(f);
    Serializer::EnablePlainTextForFloatCollections(true);
    EXPECT_EQ(floats.rfind("<Value encoding=\"hexBinary\">", 0), 0u);
    EXPECT_EQ(FromXml<FloatMatrix>(floats).data(), f.data());
    EXPECT_THROW(FromXml<FloatMatrix>("<Value encoding=\"Unknown\">1</Value>"), Orx::Core::LogicError);
}

TEST(SerializerForms, ScalarsAndUnitsRoundTripThroughXml) {
    EXPECT_EQ(XmlOf(42), "<Value encoding=\"int\">42</Value>");
    EXPECT_EQ(FromXml<int>("<Value encoding=\"int\"> -7 </Value>"), -7);
    EXPECT_EQ(XmlOf(LongValue{5}), "<Value encoding=\"long\">5</Value>");
    EXPECT_EQ(FromXml<unsigned int>("<Value>4000000000</Value>"), 4000000000u) << "no encoding: the own one";
    EXPECT_EQ(FromXml<float>(XmlOf(0.1f)), 0.1f);
    EXPECT_EQ(FromXml<double>(XmlOf(1.0 / 3.0)), 1.0 / 3.0);
    EXPECT_THROW(FromXml<int>("<Value encoding=\"int\">seven</Value>"), Orx::Core::LogicError);
    EXPECT_THROW(FromXml<int>("<Value encoding=\"int\">7</Other>"), Orx::Core::LogicError);

    Orx::Core::UnitizedValue<double> size(12.5, "nm");
    auto back = FromXml<Orx::Core::UnitizedValue<double>>(XmlOf(size));
    EXPECT_EQ(back.GetValue(), 12.5);
    EXPECT_EQ(back.GetUnits()->GetName(), size.GetUnits()->GetName());
    auto binary = FromBinary<Orx::Core::UnitizedValue<double>>(BinaryOf(size));
    EXPECT_EQ(binary.GetValue(), 12.5);
    EXPECT_EQ(binary.GetUnits()->GetName(), size.GetUnits()->GetName());

    std::vector<std::uint8_t> unknown;
    DataOutputStream out(unknown);
    out.WriteDouble(1.0);
    out.WriteString("furlongs");
    Data<Orx::Core::UnitizedValue<double>> data;
    DataInputStream in(unknown.data(), unknown.size());
    EXPECT_THROW(data.GetWrapper()->GetSerializer()->FromBinary(unknown.size(), in), Orx::Core::LogicError);
}

}  // namespace
