#include "TestFiles.h"

#include "Platform/DataCore/DataFile.h"
#include "Platform/DataCore/QuillonDataFile.h"
#include "tools/samplekit/ContainerBuilder.h"

#include <gtest/gtest.h>

using namespace Orx::DataCore;
using DataCoreTest::AsText;
using DataCoreTest::ReadBytes;
using DataCoreTest::SectionText;
using DataCoreTest::TempPath;
using SampleKit::ContainerBuilder;

namespace {

const std::string kMicron = "\xB5m";

// A file with every value type, keys whose blanks and prefixes are part of
// them, Latin-1 bytes, and two channels of 16- and 32-bit samples.
ContainerBuilder RichQuillonFile() {
    FloatMatrixVector curves(3, FloatMatrix(2, 1));
    for (std::size_t c = 0; c < curves.size(); ++c) {
        curves[c](0, 0) = 0.5f * static_cast<float>(c);
        curves[c](1, 0) = -1.25f * static_cast<float>(c);
    }
    ContainerBuilder b = ContainerBuilder::Quillon();
    b.Section("QuillonFileOverviewInfo")
        .Text("FileSubType", "IMAGE")
        .Int("NumberOfDataPlists", 2)
        .Texts("DataPlistNames", {"Dulce image list", "Dulce image list#2"})
        .Section("File list")
        .Text("Version", "0x09020000")
        .Int("Data length", 0xA000)
        .Section("Dulce scan list")
        .Text("Capture mode ", "Single")
        .Text("Capture mode", "Continuous")
        .Text("@2:Z scale", "V [Sens. Zsens] (0.006713765 V/LSB) 11.00000 V")
        .Text("@Sens. Zsens", "V 12.5 nm/V")
        .Text("Scan Size", "10 10 " + kMicron)
        .Long("Lines", 256)
        .UInt("Serial", 4000000000u)
        .Float("Gain", 0.1f)
        .Double("Hold Time", 1.0 / 3.0)
        .Unitized("X Offset", -2.5, "nm")
        .Texts("Empty list", {})
        .Text("Quoted \"and\\ slashed\"", "tab\there, line\nbreak")
        .Typed("Future key", "mystery<7>", "  any text at all \"unbalanced")
        .FloatMatrix("Calibration", 2, 2, {1.0f, 2.0f, 3.0f, 4.5f})
        .FloatMatrices("Curves", curves)
        .Section("Equipment list")
        .Text("@1:Model", "Nano " + kMicron + "scope ")
        .Int("Count", -7)
        .Section("Dulce image list")
        .Text("@2:Image Data", "S [Height] \"Height\"")
        .Samples16(0xA000, 2, 3, {1, -2, 3, -32768, 32767, 0})
        .Section("Dulce image list#2")
        .Text("@2:Image Data", "S [Phase] \"Phase\"")
        .Samples32(0xA000 + 12, 2, 3, {1, -2, 2147483647, -2147483647 - 1, 65536, 0});
    return b;
}

std::string HeaderOf(const std::vector<std::uint8_t>& bytes) {
    std::string text = AsText(bytes);
    return text.substr(0, text.find("end-of-header\n") + 14);
}

void ExpectSameContainer(const DataContainer& a, const DataContainer& b) {
    EXPECT_EQ(a.GetName(), b.GetName());
    auto ea = a.GetEntries();
    auto eb = b.GetEntries();
    ASSERT_EQ(ea.size(), eb.size()) << a.GetName();
    for (std::size_t i = 0; i < ea.size(); ++i) {
        EXPECT_EQ(ea[i].first, eb[i].first);
        EXPECT_EQ(ea[i].second.TypeName(), eb[i].second.TypeName()) << ea[i].first;
        if (auto m = ea[i].second.GetIntMatrix()) {
            ASSERT_TRUE(eb[i].second.GetIntMatrix());
            EXPECT_EQ(m->data(), eb[i].second.GetIntMatrix()->data());
        } else if (auto f = ea[i].second.GetFloatMatrix()) {
            ASSERT_TRUE(eb[i].second.GetFloatMatrix());
            EXPECT_EQ(f->data(), eb[i].second.GetFloatMatrix()->data());
        } else if (auto v = ea[i].second.GetFloatMatrices()) {
            ASSERT_TRUE(eb[i].second.GetFloatMatrices());
            ASSERT_EQ(v->size(), eb[i].second.GetFloatMatrices()->size());
            for (std::size_t k = 0; k < v->size(); ++k) {
                EXPECT_EQ((*v)[k].data(), (*eb[i].second.GetFloatMatrices())[k].data());
            }
        } else {
            EXPECT_EQ(ea[i].second.HeaderText(), eb[i].second.HeaderText()) << ea[i].first;
        }
    }
    auto ca = a.GetChildren();
    auto cb = b.GetChildren();
    ASSERT_EQ(ca.size(), cb.size());
    for (std::size_t i = 0; i < ca.size(); ++i) {
        ExpectSameContainer(*ca[i], *cb[i]);
    }
}

TEST(ContainerRoundTrip, ReadsBackEveryTypeAndExactKey) {
    std::string path = TempPath("roundtrip_values.qdf");
    RichQuillonFile().Write(path);
    auto file = DataFile::Open(path, 1, 0, "", nullptr);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->GetFileType(), "Quillon Data File");
    EXPECT_TRUE(std::dynamic_pointer_cast<QuillonDataFile>(file));

    auto scan = file->GetContainer({"Dulce scan list"});
    ASSERT_TRUE(scan);
    std::string text;
    EXPECT_TRUE(scan->GetValue("Capture mode ", text));
    EXPECT_EQ(text, "Single");
    EXPECT_TRUE(scan->GetValue("Capture mode", text));
    EXPECT_EQ(text, "Continuous");
    EXPECT_FALSE(scan->HasKey("Capture mode  "));
    EXPECT_FALSE(scan->HasKey("Z scale"));
    EXPECT_TRUE(scan->GetValue("Scan Size", text));
    EXPECT_EQ(text, "10 10 " + kMicron);
    EXPECT_TRUE(scan->GetValue("Quoted \"and\\ slashed\"", text));
    EXPECT_EQ(text, "tab\there, line\nbreak");

    std::int32_t lines = 0;
    EXPECT_TRUE(scan->GetValue("Lines", lines));
    EXPECT_EQ(lines, 256);
    std::uint32_t serial = 0;
    EXPECT_TRUE(scan->GetValue("Serial", serial));
    EXPECT_EQ(serial, 4000000000u);
    float gain = 0;
    EXPECT_TRUE(scan->GetValue("Gain", gain));
    EXPECT_EQ(gain, 0.1f);
    double hold = 0;
    EXPECT_TRUE(scan->GetValue("Hold Time", hold));
    EXPECT_EQ(hold, 1.0 / 3.0);
    Orx::Core::UnitizedValue<double> offset;
    EXPECT_TRUE(scan->GetValue("X Offset", offset));
    EXPECT_EQ(offset.GetValue(), -2.5);
    std::vector<std::string> empty{"x"};
    EXPECT_TRUE(scan->GetValue("Empty list", empty));
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(scan->GetEntry("Future key")->TypeName(), "mystery<7>");
    EXPECT_EQ(scan->GetEntry("Future key")->HeaderText(), "  any text at all \"unbalanced");

    auto calibration = scan->GetFloatMatrix("Calibration");
    ASSERT_TRUE(calibration);
    EXPECT_EQ((*calibration)(1, 1), 4.5f);
    auto curves = scan->GetFloatMatrices("Curves");
    ASSERT_TRUE(curves);
    ASSERT_EQ(curves->size(), 3u);
    EXPECT_EQ((*curves)[2](1, 0), -2.5f);

    auto first = file->GetContainer({"Dulce image list"})->GetRawData("RawData");
    ASSERT_TRUE(first);
    ASSERT_EQ(first->size1(), 2u);
    ASSERT_EQ(first->size2(), 3u);
    EXPECT_EQ((*first)(0, 0), 65536);
    EXPECT_EQ((*first)(0, 1), -2 * 65536);
    EXPECT_EQ((*first)(1, 0), -2147483647 - 1);
    EXPECT_EQ((*first)(1, 1), 32767 * 65536);
    auto second = file->GetContainer({"Dulce image list#2"})->GetRawData("RawData");
    ASSERT_TRUE(second);
    EXPECT_EQ((*second)(0, 2), 2147483647);
    EXPECT_EQ((*second)(1, 0), -2147483647 - 1);

    EXPECT_EQ(file->GetPlistNames(),
              (std::vector<std::string>{"QuillonFileOverviewInfo", "File list", "Dulce scan list", "Equipment list",
                                        "Dulce image list", "Dulce image list#2"}));
}

TEST(ContainerRoundTrip, RewriteIsByteIdenticalAndChangesStayLocal) {
    std::string path = TempPath("roundtrip_bytes.qdf");
    RichQuillonFile().Write(path);
    auto original = ReadBytes(path);

    auto file = DataFile::Open(path, 1, 0, "", nullptr);
    ASSERT_TRUE(file);
    file->SetContentModified(true);
    file->Close();
    EXPECT_EQ(ReadBytes(path), original) << "an unchanged file is written back byte for byte";

    auto again = DataFile::Open(path, 1, 0, "", nullptr);
    again->GetContainer({"Dulce scan list"})->SetValue("Lines", 512);
    auto samples = again->GetContainer({"Dulce image list"})->GetRawData("RawData");
    (*samples)(0, 0) = -5 * 65536;
    again->SetContentModified(true);
    again->Close();

    auto changed = ReadBytes(path);
    std::string before = HeaderOf(original);
    std::string after = HeaderOf(changed);
    EXPECT_NE(before, after);
    for (const char* untouched : {"\"Equipment list\"", "\"Dulce image list\"", "\"File list\""}) {
        EXPECT_FALSE(SectionText(before, untouched).empty()) << untouched;
        EXPECT_EQ(SectionText(before, untouched), SectionText(after, untouched)) << untouched;
    }
    EXPECT_NE(SectionText(after, "\"Dulce scan list\"").find("key \"Lines\" long 512\n"), std::string::npos)
        << "an int written to a long key keeps it a long";

    auto reread = DataFile::Open(path, 1, 0, "", nullptr);
    EXPECT_EQ((*reread->GetContainer({"Dulce image list"})->GetRawData("RawData"))(0, 0), -5 * 65536);
    EXPECT_EQ((*reread->GetContainer({"Dulce image list#2"})->GetRawData("RawData"))(1, 0), -2147483647 - 1);
}

TEST(ContainerRoundTrip, ReadWriteReadGivesTheSameTree) {
    auto bytes = RichQuillonFile().Bytes();
    auto first = DataFile::OpenMemory(bytes.data(), bytes.size());
    auto rewritten = first->ToBytes();
    auto second = DataFile::OpenMemory(rewritten.data(), rewritten.size());
    ExpectSameContainer(*first->GetRoot(), *second->GetRoot());
    EXPECT_EQ(bytes, rewritten);
}

TEST(ContainerRoundTrip, HandWrittenValuesKeepTheirSpellingUntilChanged) {
    std::string header =
        "OrxDataContainer 1\r\n"
        "# written by hand\n"
        "type \"Harlen Data File\"\n"
        "section \"[Data Parameters]\"\n"
        "\tkey \"ScanRangeX\" TUnitized 1.50e1 \"nm\"\n"
        "\tkey \"ResolutionX\" int 0256\n"
        "\tkey \"Counts\" \"unsigned int\" 7\n"
        "end\n"
        "end-of-header\n";
    auto file = DataFile::OpenMemory(header.data(), header.size());
    EXPECT_EQ(file->GetFileType(), "Harlen Data File");
    auto section = file->GetContainer({"[Data Parameters]"});
    std::int32_t resolution = 0;
    EXPECT_TRUE(section->GetValue("ResolutionX", resolution));
    EXPECT_EQ(resolution, 256);
    std::string written = AsText(file->ToBytes());
    EXPECT_NE(written.find("key \"ScanRangeX\" TUnitized 1.50e1 \"nm\"\n"), std::string::npos);
    EXPECT_NE(written.find("key \"ResolutionX\" int 0256\n"), std::string::npos);
    EXPECT_NE(written.find("key \"Counts\" \"unsigned int\" 7\n"), std::string::npos);

    section->SetValue("ResolutionX", 512);
    written = AsText(file->ToBytes());
    EXPECT_NE(written.find("key \"ResolutionX\" int 512\n"), std::string::npos);
}

TEST(ContainerRoundTrip, ValueOfATypeNobodyKnowsKeepsEveryByteToItsLastCarriageReturn) {
    // The reader drops the one carriage return before each line feed; the
    // value's own must come back through any number of rewrites.
    const std::string header =
        "OrxDataContainer 1\n"
        "type \"Quillon Data File\"\n"
        "section \"S\"\n"
        "  key \"Odd\" trix 2x2 \xff\xb5 in-section\r\r\r\n"
        "end\n"
        "end-of-header\n";
    auto file = DataFile::OpenMemory(header.data(), header.size());
    const auto once = file->ToBytes();
    EXPECT_NE(AsText(once).find("trix 2x2 \xff\xb5 in-section\r\r\r\n"), std::string::npos);
    auto again = DataFile::OpenMemory(once.data(), once.size());
    EXPECT_EQ(again->ToBytes(), once);
}

// The worked example of docs/container-format.md, byte for byte.
TEST(ContainerRoundTrip, DocumentedExampleIsWhatTheWriterWrites) {
    std::string example =
        "OrxDataContainer 1\n"
        "type \"Quillon Data File\"\n"
        "section \"QuillonFileOverviewInfo\"\n"
        "  key \"FileSubType\" AsciiString \"IMAGE\"\n"
        "  key \"NumberOfDataPlists\" int 1\n"
        "  key \"DataPlistNames\" vector<string> 1 \"Dulce image list\"\n"
        "end\n"
        "section \"Dulce image list\"\n"
        "  key \"@2:Image Data\" AsciiString \"S [Height] \\\"Height\\\"\"\n"
        "  key \"Scan Size\" AsciiString \"10 10 \xB5m\"\n"
        "  key \"Capture mode \" AsciiString \"Single\"\n"
        "  key \"Data offset\" AsciiString \"640\"\n"
        "  key \"Data length\" int 8\n"
        "  key \"Bytes/pixel\" int 2\n"
        "  key \"RawData\" Matrix long 2x2 in-section\n"
        "  key \"Calibration\" Matrix float 1x2 at 648\n"
        "end\n"
        "end-of-header\n";
    ASSERT_EQ(example.size(), 578u);
    example.resize(640, '\0');
    const unsigned char blocks[] = {0x01, 0x00, 0xff, 0xff, 0x00, 0x01, 0x00, 0x80, 0x01, 0x00, 0x00, 0x00,
                                    0x02, 0x00, 0x00, 0x00, 0x00, 0x00, 0xc0, 0x3f, 0x00, 0x00, 0x00, 0xc0};
    example.append(reinterpret_cast<const char*>(blocks), sizeof blocks);

    auto built = ContainerBuilder::Quillon()
                     .Section("QuillonFileOverviewInfo")
                     .Text("FileSubType", "IMAGE")
                     .Int("NumberOfDataPlists", 1)
                     .Texts("DataPlistNames", {"Dulce image list"})
                     .Section("Dulce image list")
                     .Text("@2:Image Data", "S [Height] \"Height\"")
                     .Text("Scan Size", "10 10 " + kMicron)
                     .Text("Capture mode ", "Single")
                     .Samples16(640, 2, 2, {1, -1, 256, -32768})
                     .FloatMatrix("Calibration", 1, 2, {1.5f, -2.0f})
                     .Bytes();
    EXPECT_EQ(AsText(built), example);

    auto file = DataFile::OpenMemory(example.data(), example.size());
    auto samples = file->GetContainer({"Dulce image list"})->GetRawData("RawData");
    EXPECT_EQ(std::vector<std::int32_t>(samples->data().begin(), samples->data().end()),
              (std::vector<std::int32_t>{65536, -65536, 16777216, -2147483647 - 1}));
}

TEST(ContainerRoundTrip, CloseWritesOnlyMarkedContent) {
    std::string path = TempPath("close_marks.qdf");
    RichQuillonFile().Write(path);
    auto file = DataFile::Open(path, 1, 0, "", nullptr);
    ASSERT_TRUE(file->IsOpen());
    ASSERT_TRUE(Orx::Core::RemoveFile(path));
    file->Close();
    EXPECT_FALSE(file->IsOpen());
    EXPECT_FALSE(Orx::Core::PathExists(path)) << "nothing was marked, nothing is written";
    EXPECT_TRUE(file->GetContainer({"Dulce scan list"})) << "sections stay readable after Close";

    file->DeleteParm("Dulce scan list", "Lines");
    EXPECT_TRUE(file->IsContentModified());
    file->SetContentModified(false);
    file->Close();
    EXPECT_FALSE(Orx::Core::PathExists(path));

    file->AddParm("Dulce scan list", "Lines", "1024", "Scan Size");
    file->Close();
    ASSERT_TRUE(Orx::Core::PathExists(path));
    auto reread = DataFile::Open(path, 1, 0, "", nullptr);
    auto keys = reread->GetPlistKeys("Dulce scan list");
    auto at = std::find(keys.begin(), keys.end(), "Scan Size");
    ASSERT_NE(at, keys.end());
    EXPECT_EQ(*(at + 1), "Lines");
}

}  // namespace
