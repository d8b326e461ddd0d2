// The words of a command: operands, options with values, flags, and the
// mistakes that are told as usage errors rather than acted on.

#include "tools/dstool/CommandLine.h"
#include "tools/dstool/DataUnits.h"

#include <gtest/gtest.h>

namespace {

using Dstool::CommandLine;
using Dstool::DataUnits;
using Dstool::UsageError;

CommandLine Line(const std::vector<std::string>& words)
{
    return CommandLine(words, {"channel", "out"}, {"json", "raw", "volts", "metric", "force"});
}

TEST(CommandLineTest, OperandsOptionsAndFlagsInAnyOrder)
{
    const CommandLine line = Line({"a.qdf", "--channel", "2", "b.qdf", "--json", "--out=dir"});
    EXPECT_EQ(line.Operands(), (std::vector<std::string>{"a.qdf", "b.qdf"}));
    EXPECT_EQ(line.Count("channel"), 2);
    EXPECT_EQ(line.Value("out"), "dir");
    EXPECT_TRUE(line.Has("json"));
    EXPECT_FALSE(line.Has("raw"));
    // after "--" every word is an operand, even one that looks like an option
    EXPECT_EQ(Line({"--", "--json", "-"}).Operands(), (std::vector<std::string>{"--json", "-"}));
}

TEST(CommandLineTest, MistakesAreUsageErrors)
{
    const std::vector<std::vector<std::string>> mistakes = {
        {"--colour"},                 // unknown
        {"--channel"},                // value missing
        {"--json=yes"},               // a flag with a value
        {"--channel", "1", "--channel", "2"},
    };
    for (const auto& words : mistakes)
        EXPECT_THROW(Line(words), UsageError) << words.front();
    for (const char* count : {"-1", "two", "1.5", "", "99999999999"})
        EXPECT_THROW(Line({"--channel", count}).Count("channel"), UsageError) << count;
    EXPECT_THROW(Line({"--raw", "--volts"}).OneOf({"raw", "volts"}), UsageError);
    EXPECT_THROW(Line({}).OneOperand("FILE"), UsageError);
    EXPECT_THROW(Line({"a", "b"}).OneOperand("FILE"), UsageError);
    EXPECT_EQ(Line({"a"}).OneOperand("FILE"), "a");
}

TEST(CommandLineTest, UnitsFollowTheFlagsWithMetricAsTheDefault)
{
    EXPECT_EQ(Dstool::UnitsOf(Line({})), DataUnits::Metric);
    EXPECT_EQ(Dstool::UnitsOf(Line({"--raw"})), DataUnits::Raw);
    EXPECT_EQ(Dstool::UnitsOf(Line({"--volts"})), DataUnits::Volts);
    EXPECT_EQ(Dstool::UnitsOf(Line({"--force"})), DataUnits::Force);
    EXPECT_THROW(Dstool::UnitsOf(Line({"--force", "--metric"})), UsageError);
}

}  // namespace
