// Texts that dstool writes: CSV cells and tables, UTF-8 from the library's
// Latin texts, numbers for people and for machines.

#include "tools/dstool/CsvWriter.h"
#include "tools/dstool/JsonWriter.h"
#include "tools/dstool/Latin1Text.h"
#include "tools/dstool/NumberText.h"

#include "support/TestTempPath.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

using Dstool::CsvWriter;

std::string Contents(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(TextFormsTest, CsvCellsAreQuotedOnlyWhereTheyMustBe)
{
    EXPECT_EQ(CsvWriter::Cell("approach"), "approach");
    EXPECT_EQ(CsvWriter::Cell("Ch 1: Point 2, Defl"), "\"Ch 1: Point 2, Defl\"");
    EXPECT_EQ(CsvWriter::Cell("say \"hi\""), "\"say \"\"hi\"\"\"");
    EXPECT_EQ(CsvWriter::Cell("two\nlines"), "\"two\nlines\"");
}

TEST(TextFormsTest, CsvTableHasItsHeaderThenItsRows)
{
    const std::string path = TestTempPath("dstool_table.csv");
    CsvWriter::WriteTable(path, {"series", "x (nm)", "a,b"}, {{"approach", "1", "2"}, {"retract", "3", "4"}});
    EXPECT_EQ(Contents(path), "series,x (nm),\"a,b\"\napproach,1,2\nretract,3,4\n");
    CsvWriter::Write(path, {1.5, -2.0, 3.0, 0.1}, 3);
    EXPECT_EQ(Contents(path), "1.5,-2,3\n0.1\n");
    EXPECT_THROW(CsvWriter::Write(TestTempPath("no/such/folder.csv"), {1.0}, 1), std::runtime_error);
}

TEST(TextFormsTest, LatinTextsBecomeUtf8)
{
    EXPECT_EQ(Dstool::Utf8FromLatin1("nm"), "nm");
    EXPECT_EQ(Dstool::Utf8FromLatin1("\xB5m"), "\xC2\xB5m");   // micrometre
    EXPECT_EQ(Dstool::Utf8FromLatin1("\xBA/V"), "\xC2\xBA/V");  // degree of a phase
    EXPECT_EQ(Dstool::Utf8FromLatin1("\xFF"), "\xC3\xBF");
    EXPECT_EQ(Dstool::JsonWriter::Quoted("\xB5m \"x\""), "\"\\u00b5m \\\"x\\\"\"");
}

TEST(TextFormsTest, NumbersForMachinesReadBackAndForPeopleAreShort)
{
    EXPECT_EQ(Dstool::NumberText(0.1), "0.1");
    EXPECT_EQ(std::stod(Dstool::NumberText(1.0 / 3.0)), 1.0 / 3.0);
    EXPECT_EQ(Dstool::ReadableNumber(2.0000000000000004), "2");
    EXPECT_EQ(Dstool::ReadableNumber(6.25e6), "6.25e+06");
    EXPECT_EQ(Dstool::ReadableNumber(1118.208), "1118.21");
}

}  // namespace
