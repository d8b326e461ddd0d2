// Saving where no file can be made: a folder without write permission, and a
// folder that cannot exist because a file stands at its path. Root may write
// into any folder, so the first case acts as an unprivileged user while it
// saves; the second binds root and every user alike.

#include "Faults/SaveFaultTest.h"
#include "support/UnprivilegedScope.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace Faults {
namespace {

// Whether the present effective user may make a file in folder.
bool CanCreateFileIn(const fs::path& folder) {
    const std::string probe = (folder / ".can-create").string();
    const int fd = ::open(probe.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0600);
    if (fd < 0) {
        return false;
    }
    ::close(fd);
    ::unlink(probe.c_str());
    return true;
}

// Takes the write permission of a folder for its lifetime.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(fs::path folder) : folder_(std::move(folder)) {
        fs::permissions(folder_, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                        fs::perm_options::remove);
    }
    ~ReadOnlyFolder() { fs::permissions(folder_, fs::perms::owner_write, fs::perm_options::add); }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

private:
    fs::path folder_;
};

class UnwritableFolderTest : public SaveFaultTest {};
class MissingFolderTest : public SaveFaultTest {};

}  // namespace

TEST_P(UnwritableFolderTest, ReadOnlyFolderKeepsItsFilesAndTheSourceAsTheyWere) {
    ASSERT_NO_FATAL_FAILURE(SetUpCase("read_only"));
    // An older file at the target must survive a save that cannot replace it.
    if (!GetParam().writesOwnFile) {
        WriteFile(target, std::vector<std::uint8_t>{'o', 'l', 'd', 'e', 'r'});
    }
    const fs::path folder = fs::path(Written()).parent_path();
    const FolderContents files = ContentsOf(work);

    SaveOutcome outcome;
    {
        const ReadOnlyFolder locked(folder);
        const TestSupport::UnprivilegedScope unprivileged;
        if (CanCreateFileIn(folder)) {
            GTEST_SKIP() << "this user writes into read-only folders (root that cannot give up its rights)";
        }
        // The ".tef" writers read the source's file again: it must stay readable.
        ASSERT_EQ(::access(original.c_str(), R_OK), 0);
        outcome = RunSave();
    }
    ExpectOutcome(outcome, Fault::UnwritableFolder, Written(), files);
}

TEST_P(MissingFolderTest, FolderBlockedByAFileGetsNothingAndTheSourceStaysAsItWas) {
    ASSERT_NO_FATAL_FAILURE(SetUpCase("blocked"));
    const fs::path blocker = work / "dst" / "blocker";
    WriteFile(blocker.string(), std::vector<std::uint8_t>{'f', 'i', 'l', 'e'});
    const std::string inside = (blocker / fs::path(target).filename()).string();
    const FolderContents files = ContentsOf(work);

    const SaveOutcome outcome = RunSaveTo(inside);
    ExpectOutcome(outcome, Fault::UnwritableFolder, inside, files);
}

INSTANTIATE_TEST_SUITE_P(EverySave, UnwritableFolderTest, ::testing::ValuesIn(AllSavingCases()),
                         [](const auto& info) { return info.param.name; });
// A save over the source's own file always has a folder to go to.
INSTANTIATE_TEST_SUITE_P(EverySaveToANewFile, MissingFolderTest, ::testing::ValuesIn(NewFileCases()),
                         [](const auto& info) { return info.param.name; });

}  // namespace Faults
