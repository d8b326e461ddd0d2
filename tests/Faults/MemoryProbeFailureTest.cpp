// Saving when the memory a save needs cannot be had: the probe that the
// saving frame runs first fails, before any file is touched. The saves that
// do not go through the frame never probe, and write their files whole.

#include "Faults/SaveFaultTest.h"
#include "support/ProbeFailure.h"

#include <gtest/gtest.h>

namespace Faults {
namespace {

class MemoryProbeFailureTest : public SaveFaultTest {};

}  // namespace

TEST_P(MemoryProbeFailureTest, FailedProbeTouchesNoFileAndLeavesTheSourceAsItWas) {
    ASSERT_NO_FATAL_FAILURE(SetUpCase("probe"));
    const FolderContents files = ContentsOf(work);
    SaveOutcome outcome;
    {
        const TestSupport::ProbeFailure failure;
        outcome = RunSave();
    }
    ExpectOutcome(outcome, Fault::ProbeFailure, Written(), files);
}

INSTANTIATE_TEST_SUITE_P(EverySave, MemoryProbeFailureTest, ::testing::ValuesIn(AllSavingCases()),
                         [](const auto& info) { return info.param.name; });

}  // namespace Faults
