#pragma once

// The families that save and their save operations, one case each, with the
// way each tells its failures. A case builds its file, opens it as the
// library does, makes a change a host might make, and saves.

#include "Faults/SourceSnapshot.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"
#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"
#include "tools/samplekit/HarlenBuilder.h"
#include "tools/samplekit/QuillonBuilder.h"
#include "tools/samplekit/TefBuilder.h"

#include <climits>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace Faults {

// The texts the system tells a user, as it has always spelled them.
inline const char* const kOutOfMemory = "Cannot save as another file, out of memory. ";
inline const char* const kUnableToModify = "Unable to modify this file, please save to another name.";
inline const char* const kOpenFailed = "OLDataSource::SaveAs DataFile::Open failed";

// How a save operation tells that it failed.
enum class Teller {
    // The ".tef" writers: a refusal shows its own text; a file that cannot be
    // made at all fails without a word.
    TefWriter,
    // The ".tef" channel writer: its whole file is written first, then
    // rewritten with the one channel, so a write that fails fails twice.
    TefChannelWriter,
    // The saving frame of Quillon and Harlen: the user is told.
    SavingFrame,
    // A Quillon file made from part of a source: the log is told.
    QuillonPartWriter,
};

enum class Fault { UnwritableFolder, FileSizeLimit, ProbeFailure };

struct Expected {
    bool saved = false;
    std::vector<std::string> messages;
    std::vector<std::string> logLines;
};

// A source opened for a case, with its snapshot.
struct OpenedSource {
    std::shared_ptr<IOLDataSource> source;
    std::function<SnapshotEntries()> snapshot;
};

template <class Family, class... Arguments>
OpenedSource OpenWatched(Arguments&&... arguments) {
    auto source = std::make_shared<Watched<Family>>(std::forward<Arguments>(arguments)...);
    source->Initialize();
    return {source, [source] { return source->Snapshot(); }};
}

struct SavingCase {
    std::string name;
    std::string extension;
    std::function<std::vector<std::uint8_t>()> build;
    std::function<OpenedSource(const std::string& path)> open;
    // Saves to target, or over the source's own file for an operation that
    // writes there.
    std::function<bool(IOLDataSource& source, const std::string& target)> save;
    bool writesOwnFile = false;
    Teller teller = Teller::SavingFrame;
    // The operation's name as its log line gives it.
    std::string operation;
};

inline std::ostream& operator<<(std::ostream& out, const SavingCase& c) { return out << c.name; }

// What the system says when the write of path fails for lack of room.
inline std::string FileTooLarge(const std::string& path) { return "Cannot write '" + path + "': File too large"; }

inline Expected ExpectedOf(const SavingCase& c, Fault fault, const std::string& written) {
    switch (fault) {
        case Fault::UnwritableFolder:
            switch (c.teller) {
                case Teller::TefWriter:
                case Teller::TefChannelWriter:
                    return {};
                case Teller::SavingFrame:
                    return {false, {kUnableToModify}, {}};
                case Teller::QuillonPartWriter:
                    return {false, {}, {std::string("DataAnalysis.OLDataSource|2|") + kOpenFailed}};
            }
            break;
        case Fault::FileSizeLimit:
            switch (c.teller) {
                case Teller::TefWriter:
                    return {false, {FileTooLarge(written)}, {}};
                case Teller::TefChannelWriter:
                    return {false, {FileTooLarge(written), FileTooLarge(written)}, {}};
                case Teller::SavingFrame:
                    return {false, {kOutOfMemory}, {}};
                case Teller::QuillonPartWriter:
                    return {false,
                            {},
                            {"DataAnalysis.QlOLDataSource|2|QlOLDataSource::" + c.operation +
                             " failed: " + FileTooLarge(written)}};
            }
            break;
        case Fault::ProbeFailure:
            // Only the saving frame probes the memory a save needs.
            if (c.teller == Teller::SavingFrame) {
                return {false, {kOutOfMemory}, {}};
            }
            return {true, {}, {}};
    }
    return {};
}

namespace CaseFiles {

// Pixel counts large enough that every saved file is some tens of KiB, so a
// limit a few KiB below its size cuts a write midway.
constexpr std::uint16_t kWidth = 128;
constexpr std::uint16_t kHeight = 96;

inline std::vector<std::uint8_t> Tef(std::uint16_t bytesPerPixel) {
    return SampleKit::TefBuilder(2, kWidth, kHeight, bytesPerPixel).Bytes();
}

// An image whose first channel carries an input offset and invalid samples,
// so that its samples in memory differ from those a save writes.
inline std::vector<std::uint8_t> QuillonImage() {
    SampleKit::QuillonBuilder file("IMAGE");
    file.Text("Dulce image list", "@2:Z input offset", "V (1 V/LSB) 100.0000 V");
    file.Text("Dulce image list", "Invalid Data Flag", "-2147483648");
    std::vector<std::int32_t> samples(std::size_t{kWidth} * kHeight);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = 2147000000 - static_cast<std::int32_t>(i) * 1000;
    }
    samples[5] = INT_MIN;
    samples[1000] = INT_MIN;
    file.Samples32(0, kHeight, kWidth, samples);
    return file.Bytes();
}

inline std::vector<std::uint8_t> QuillonForceVolume() { return SampleKit::QuillonBuilder("FVOL").Bytes(); }

inline std::vector<std::uint8_t> HarlenImage() { return SampleKit::HarlenBuilder::Image(kHeight, kWidth).Bytes(); }

inline OpenedSource OpenTef(const std::string& path) { return OpenWatched<TefOLDataSource>(path); }

template <class Family>
OpenedSource OpenSections(const std::string& path) {
    return OpenWatched<Family>(Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr), nullptr);
}

}  // namespace CaseFiles

namespace CaseSaves {

inline bool SaveAs(IOLDataSource& s, const std::string& target) { return s.SaveAs(target, false); }
inline bool Save(IOLDataSource& s, const std::string&) { return s.Save(false); }
// The second channel, so that a channel other than the first becomes the file's only one.
inline bool SaveChannelAs(IOLDataSource& s, const std::string& target) { return s.SaveChannelAs(1, target, false); }
inline bool SaveForceCurveSet(IOLDataSource& s, const std::string& target) { return s.SaveForceCurveSet(1, target); }

}  // namespace CaseSaves

inline std::vector<SavingCase> AllSavingCases() {
    using namespace CaseFiles;
    using namespace CaseSaves;
    const auto tef2 = [] { return Tef(2); };
    const auto tef4 = [] { return Tef(4); };
    const auto quillon = OpenSections<QlOLDataSource>;
    const auto harlen = OpenSections<HarlenOLDataSource>;
    return {
        {"Tef2ByteSaveAs", ".tef", tef2, OpenTef, SaveAs, false, Teller::TefWriter, "SaveAs"},
        {"Tef2ByteSave", ".tef", tef2, OpenTef, Save, true, Teller::TefWriter, "Save"},
        {"Tef2ByteSaveChannelAs", ".tef", tef2, OpenTef, SaveChannelAs, false, Teller::TefChannelWriter,
         "SaveChannelAs"},
        {"Tef4ByteSaveAs", ".tef", tef4, OpenTef, SaveAs, false, Teller::TefWriter, "SaveAs"},
        {"Tef4ByteSave", ".tef", tef4, OpenTef, Save, true, Teller::TefWriter, "Save"},
        {"Tef4ByteSaveChannelAs", ".tef", tef4, OpenTef, SaveChannelAs, false, Teller::TefChannelWriter,
         "SaveChannelAs"},
        {"QuillonSaveAs", ".qdf", QuillonImage, quillon, SaveAs, false, Teller::SavingFrame, "SaveAs"},
        {"QuillonSave", ".qdf", QuillonImage, quillon, Save, true, Teller::SavingFrame, "Save"},
        {"QuillonSaveChannelAs", ".qdf", QuillonImage, quillon, SaveChannelAs, false, Teller::QuillonPartWriter,
         "SaveChannelAs"},
        {"QuillonSaveForceCurveSet", ".qdf", QuillonForceVolume, quillon, SaveForceCurveSet, false,
         Teller::QuillonPartWriter, "SaveForceCurveSet"},
        {"HarlenSaveAs", ".hdf", HarlenImage, harlen, SaveAs, false, Teller::SavingFrame, "SaveAs"},
        {"HarlenSave", ".hdf", HarlenImage, harlen, Save, true, Teller::SavingFrame, "Save"},
        // A Harlen file has one channel to give, so the file is saved over itself.
        {"HarlenSaveChannelAs", ".hdf", HarlenImage, harlen, SaveChannelAs, true, Teller::SavingFrame,
         "SaveChannelAs"},
    };
}

// The cases that write a file of their own, beside the source's.
inline std::vector<SavingCase> NewFileCases() {
    std::vector<SavingCase> cases;
    for (SavingCase& c : AllSavingCases()) {
        if (!c.writesOwnFile) {
            cases.push_back(std::move(c));
        }
    }
    return cases;
}

}  // namespace Faults
