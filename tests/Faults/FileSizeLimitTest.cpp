// Saving when the disk takes only part of the file: the save runs in a child
// process whose files may not grow beyond a few KiB less than the file it
// writes, so that the write fails midway, as on a full disk or a quota.

#include "Faults/ChildProcess.h"
#include "Faults/SaveFaultTest.h"

#include <gtest/gtest.h>

namespace Faults {
namespace {

// How far below the saved file's size the limit stands.
constexpr std::size_t kShortBy = 4096;

class FileSizeLimitTest : public SaveFaultTest {};

}  // namespace

TEST_P(FileSizeLimitTest, WriteCutMidwayLeavesNoPartialFileAndTheSourceAsItWas) {
    ASSERT_NO_FATAL_FAILURE(SetUpCase("file_size"));
    // The write must get well under way before it fails.
    ASSERT_GE(reference.size(), 4 * kShortBy);
    const FolderContents files = ContentsOf(work);

    const ChildResult child = RunWithFileSizeLimit(reference.size() - kShortBy, [this] { return RunSave().Pack(); });
    ASSERT_EQ(child.failure, "");
    const auto outcome = SaveOutcome::Unpack(child.report);
    ASSERT_TRUE(outcome.has_value()) << "the child's report is damaged";
    ExpectOutcome(*outcome, Fault::FileSizeLimit, Written(), files);
}

INSTANTIATE_TEST_SUITE_P(EverySave, FileSizeLimitTest, ::testing::ValuesIn(AllSavingCases()),
                         [](const auto& info) { return info.param.name; });

}  // namespace Faults
