#pragma once

// The frame of every fault test: a case's file in a folder of its own, the
// same save done once on a copy where nothing fails (what a good save
// writes), the source and the folder taken before the fault, and the checks
// after it: the save's result and words, the source as it was, and not one
// file added, changed or left half-written.

#include "Faults/FolderContents.h"
#include "Faults/SaveOutcome.h"
#include "Faults/SavingCases.h"
#include "Faults/SourceSnapshot.h"
#include "support/LogCapture.h"
#include "support/MessageCapture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace Faults {

namespace fs = std::filesystem;

class SaveFaultTest : public ::testing::TestWithParam<SavingCase> {
protected:
    // The host's change before its save: every channel gets a new note.
    static constexpr const char* kNote = "Changed before the save";

    // Lays out work/src/original, work/dst, and ref/ for the good save.
    void SetUpCase(const std::string& fault) {
        const SavingCase& c = GetParam();
        root = TestSupport::TempFolder("faults_" + fault + "_" + c.name);
        work = root / "work";
        fs::create_directories(work / "src");
        fs::create_directories(work / "dst");
        fs::create_directories(root / "ref");
        const std::vector<std::uint8_t> file = c.build();
        original = (work / "src" / ("original" + c.extension)).string();
        target = (work / "dst" / ("target" + c.extension)).string();
        WriteFile(original, file);
        reference = GoodSave(file);
        opened = c.open(original);
        ASSERT_TRUE(opened.source->IsOpen());
        opened.source->SetNoteOfAll(kNote);
        before = opened.snapshot();
    }

    // The path the case's save writes: its target, or the source's own file.
    std::string Written() const { return GetParam().writesOwnFile ? original : target; }

    // Saves to the target with everything the save tells caught.
    SaveOutcome RunSave() { return RunSaveTo(target); }

    SaveOutcome RunSaveTo(const std::string& path) {
        SaveOutcome outcome;
        TestSupport::MessageCapture messages;
        TestSupport::LogCapture log;
        outcome.saved = GetParam().save(*opened.source, path);
        outcome.messages = messages.messages;
        outcome.asserts = messages.asserts;
        for (const TestSupport::LogLine& line : log.lines) {
            outcome.logLines.push_back(line.logger + "|" + std::to_string(line.severity) + "|" + line.text);
        }
        outcome.source = opened.snapshot();
        return outcome;
    }

    // The save said what the system says for this fault, left the source as
    // it was, and left the folders as they were, but for the one file that a
    // save which goes through despite the fault writes whole.
    void ExpectOutcome(const SaveOutcome& outcome, Fault fault, const std::string& written,
                       const FolderContents& filesBefore) const {
        const Expected expected = ExpectedOf(GetParam(), fault, written);
        EXPECT_EQ(outcome.saved, expected.saved);
        EXPECT_EQ(outcome.messages, expected.messages);
        EXPECT_EQ(outcome.logLines, expected.logLines);
        EXPECT_TRUE(outcome.asserts.empty()) << ::testing::PrintToString(outcome.asserts);
        ExpectSameSnapshot(expected.saved ? AfterGoodSave() : before, outcome.source);
        FolderContents files = filesBefore;
        if (expected.saved) {
            files[fs::relative(written, work).string()] = reference;
        }
        const FolderContents after = ContentsOf(work);
        EXPECT_TRUE(after == files) << "before: " << ::testing::PrintToString(Listing(files))
                                    << "\nafter:  " << ::testing::PrintToString(Listing(after));
    }

    static void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
        Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
    }

    fs::path root;
    fs::path work;
    std::string original;
    std::string target;
    // What the save writes where nothing fails, and what it changes of its
    // source there.
    std::vector<std::uint8_t> reference;
    std::map<std::string, std::string> goodSaveChanges;
    OpenedSource opened;
    SnapshotEntries before;

private:
    SnapshotEntries AfterGoodSave() const {
        SnapshotEntries after = before;
        for (auto& [name, value] : after) {
            if (const auto changed = goodSaveChanges.find(name); changed != goodSaveChanges.end()) {
                value = changed->second;
            }
        }
        return after;
    }

    std::vector<std::uint8_t> GoodSave(const std::vector<std::uint8_t>& file) {
        const SavingCase& c = GetParam();
        const std::string copy = (root / "ref" / ("original" + c.extension)).string();
        const std::string copyTarget = (root / "ref" / ("target" + c.extension)).string();
        WriteFile(copy, file);
        const OpenedSource good = c.open(copy);
        good.source->SetNoteOfAll(kNote);
        const SnapshotEntries goodBefore = good.snapshot();
        TestSupport::MessageCapture quiet;
        EXPECT_TRUE(c.save(*good.source, copyTarget)) << ::testing::PrintToString(quiet.messages);
        const SnapshotEntries goodAfter = good.snapshot();
        for (std::size_t i = 0; i < goodBefore.size() && i < goodAfter.size(); ++i) {
            if (goodBefore[i] != goodAfter[i]) {
                goodSaveChanges[goodAfter[i].first] = goodAfter[i].second;
            }
        }
        return BytesOf(c.writesOwnFile ? copy : copyTarget);
    }
};

}  // namespace Faults
