#pragma once

// Quillon files on disk for the tests of changes and saving: a builder's file
// written into a folder of its own, sources opened as the library opens them,
// the sections of a saved file, and what a save must leave as it was.

#include "Quillon/QuillonTestSupport.h"
#include "support/MessageCapture.h"
#include "support/ProbeFailure.h"
#include "support/TempFolder.h"
#include "support/UnprivilegedScope.h"

#include "Platform/DataCore/ContainerValue.h"
#include "Platform/DataCore/DataContainer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace QuillonSave {

using TestSupport::MessageCapture;
using TestSupport::ProbeFailure;
using TestSupport::UnprivilegedScope;
using QuillonTest::QuillonBuilder;
namespace fs = std::filesystem;

// Channel sections of the builder's files.
inline const char* const kImage = "Dulce image list";
inline const char* const kImage2 = "Dulce image list#2";
inline const char* const kForce = "Dulce force image list";
inline const char* const kForce2 = "Dulce force image list#2";

// A Quillon source whose marks and offsets a test may read and set.
class Source : public QuillonTest::Source {
public:
    using QuillonTest::Source::Source;
    using OLDataSource::aspectRatio;
    using OLDataSource::dataLength;
    using OLDataSource::linesChanged;
    using OLDataSource::samplesChanged;
    using OLDataSource::startContext;
    using QlOLDataSource::ApplyZOffsets;
    using QlOLDataSource::ApplyInvalidFill;
};

inline std::shared_ptr<Source> OpenPath(const fs::path& path, ICreateColorTableCallback* callback = nullptr) {
    auto source =
        std::make_shared<Source>(Orx::DataCore::DataFile::Open(path.string(), 1, 0, "", nullptr), callback);
    source->Initialize();
    return source;
}

// A fresh folder for one test; the name keeps tests of other rooms apart.
inline fs::path Folder(const std::string& name) { return TestSupport::TempFolder("quillon_" + name); }

// A builder's file written into its own folder and opened from there.
struct FileOnDisk {
    fs::path folder;
    fs::path path;
    std::shared_ptr<Source> source;

    FileOnDisk(const std::string& name, QuillonBuilder& file, ICreateColorTableCallback* callback = nullptr)
        : folder(Folder(name)), path(folder / "original.spm") {
        file.Write(path.string());
        source = OpenPath(path, callback);
    }
    fs::path Target(const std::string& name) const { return folder / name; }
    // Saves under a new name and opens what was written.
    std::shared_ptr<Source> SaveAndReopen(bool largeHeader = false, const std::string& name = "saved.spm") const {
        EXPECT_TRUE(source->SaveAs(Target(name).string(), largeHeader));
        return OpenPath(Target(name));
    }
};

inline DataContainerPtr SectionOf(const fs::path& path, const std::string& name) {
    const auto file = Orx::DataCore::DataFile::Open(path.string(), 1, 0, "", nullptr);
    return file ? file->GetContainer({name}) : nullptr;
}

// A key's value as its text; "<none>" for a key the section lacks.
inline std::string TextOf(const DataContainerPtr& section, const std::string& key) {
    std::string text = "<none>";
    if (section) {
        section->GetValue(key, text);
    }
    return text;
}

inline std::vector<std::int32_t> SamplesOf(const IOLDataSource& source, unsigned channel) {
    const std::int32_t* data = source.GetData(channel);
    return data ? std::vector<std::int32_t>(data, data + source.GetDataBufferSize(channel))
                : std::vector<std::int32_t>();
}

// The samples a channel section holds for its file.
inline std::vector<std::int32_t> RawSamplesOf(const DataContainerPtr& section) {
    const auto matrix = section ? section->GetRawData("RawData") : nullptr;
    return matrix ? std::vector<std::int32_t>(matrix->data().begin(), matrix->data().end())
                  : std::vector<std::int32_t>();
}

inline std::vector<std::int32_t> FileSamplesOf(const fs::path& path, const std::string& section) {
    return RawSamplesOf(SectionOf(path, section));
}

// What a client reads of a source, channel by channel: two sources that agree
// here show the same file.
inline void ExpectSameSource(Source& a, Source& b) {
    ASSERT_TRUE(b.IsOpen());
    EXPECT_EQ(b.GetFileSubType(), a.GetFileSubType());
    EXPECT_EQ(b.GetStartContext(), a.GetStartContext());
    EXPECT_EQ(b.GetFileVersion(), a.GetFileVersion());
    EXPECT_DOUBLE_EQ(b.GetScanSize().GetValue(), a.GetScanSize().GetValue());
    EXPECT_EQ(QuillonTest::UnitOf(b.GetScanSize()), QuillonTest::UnitOf(a.GetScanSize()));
    EXPECT_DOUBLE_EQ(b.GetScanRate().GetValue(), a.GetScanRate().GetValue());
    EXPECT_EQ(b.GetImageLines(), a.GetImageLines());
    EXPECT_EQ(b.GetImageSamplesPerLine(), a.GetImageSamplesPerLine());
    EXPECT_EQ(b.GetAspectRatio(), a.GetAspectRatio());
    EXPECT_EQ(b.GetUnits(), a.GetUnits());
    EXPECT_EQ(b.GetTipRadius(0), a.GetTipRadius(0));
    EXPECT_EQ(b.GetHalfAngle(0), a.GetHalfAngle(0));
    EXPECT_EQ(b.GetSyncDistance(), a.GetSyncDistance());
    EXPECT_EQ(b.GetForceSamplesPerLine(), a.GetForceSamplesPerLine());
    EXPECT_EQ(b.GetNumberOfHoldPoints(), a.GetNumberOfHoldPoints());
    EXPECT_EQ(b.GetScanRateValue(), a.GetScanRateValue());
    ASSERT_EQ(b.GetNumberOfChannels(), a.GetNumberOfChannels());
    EXPECT_EQ(b.GetNumberOfDisplayChannels(), a.GetNumberOfDisplayChannels());
    for (unsigned c = 0; c < static_cast<unsigned>(a.GetNumberOfChannels()); ++c) {
        SCOPED_TRACE("channel " + std::to_string(c));
        EXPECT_EQ(b.GetPlistName(c), a.GetPlistName(c));
        EXPECT_EQ(b.GetDataName(c), a.GetDataName(c));
        EXPECT_EQ(b.GetNumberOfLines(c), a.GetNumberOfLines(c));
        EXPECT_EQ(b.GetSamplesPerLine(c), a.GetSamplesPerLine(c));
        EXPECT_EQ(SamplesOf(b, c), SamplesOf(a, c));
        EXPECT_EQ(b.GetZScaleInHwUnits(c), a.GetZScaleInHwUnits(c));
        EXPECT_EQ(b.GetZScaleInSwUnits(c), a.GetZScaleInSwUnits(c));
        EXPECT_EQ(b.GetScalingFactor(c), a.GetScalingFactor(c));
        EXPECT_EQ(b.GetZMagnify(c), a.GetZMagnify(c));
        EXPECT_EQ(b.GetZSensitivitySoftScale(c), a.GetZSensitivitySoftScale(c));
        EXPECT_EQ(b.GetZSensitivityUnits(c), a.GetZSensitivityUnits(c));
        EXPECT_EQ(b.GetDataScaleName(c), a.GetDataScaleName(c));
        EXPECT_EQ(b.GetChannelAspectRatio(c), a.GetChannelAspectRatio(c));
        EXPECT_DOUBLE_EQ(b.GetDataItem(c)->GetScanSize().GetValue(), a.GetDataItem(c)->GetScanSize().GetValue());
        EXPECT_EQ(b.GetNote(c), a.GetNote(c));
        EXPECT_EQ(b.GetForceSpringConstant(c), a.GetForceSpringConstant(c));
        EXPECT_EQ(b.GetDataLength(c), a.GetDataLength(c));
        EXPECT_EQ(b.GetValidLenX(c), a.GetValidLenX(c));
        EXPECT_EQ(b.GetValidLenY(c), a.GetValidLenY(c));
        std::int32_t tableA = 0, tableB = 0;
        std::uint32_t v1 = 0, v2 = 0;
        bool flag = false;
        a.GetColorTableSettings(c, tableA, v1, v2, flag);
        b.GetColorTableSettings(c, tableB, v1, v2, flag);
        EXPECT_EQ(tableB, tableA);
    }
}

}  // namespace QuillonSave
