#pragma once

// Sources over builder files, the source's log, and the record fields that
// have no getter of their own.

#include "Platform/DataCore/DataFile.h"
#include "Platform/Logger.h"
#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"
#include "tools/samplekit/QuillonBuilder.h"

#include <memory>
#include <string>
#include <vector>

namespace QuillonTest {

using SampleKit::QuillonBuilder;

// A Quillon source whose record a test may read whole.
class Source : public QlOLDataSource {
public:
    using QlOLDataSource::QlOLDataSource;
    using OLDataSource::adhesionAlgorithm;
    using OLDataSource::bidirectional;
    using OLDataSource::captureDirection;
    using OLDataSource::crestloadAmplitudeScale;
    using OLDataSource::crestloadAmplitudeValue;
    using OLDataSource::detectSensitivity;
    using OLDataSource::driveAmplitude3Hard;
    using OLDataSource::fvLimits;
    using OLDataSource::fvValues;
    using OLDataSource::hasSetpoint;
    using OLDataSource::history;
    using OLDataSource::imageLines;
    using OLDataSource::imageSamples;
    using OLDataSource::includeAdhesion;
    using OLDataSource::lyrant;
    using OLDataSource::microscope;
    using OLDataSource::microscopeList;
    using OLDataSource::opened;
    using OLDataSource::rampSizeText;
    using OLDataSource::scanRateValue;
    using OLDataSource::sensZSensText;
    using OLDataSource::setpointHard;
    using OLDataSource::setpointSensitivity;
    using OLDataSource::setpointSensitivityUnit;
    using OLDataSource::setpointSoft;
    using OLDataSource::softFbIgain;
    using OLDataSource::tmFbIgain;
    using OLDataSource::userRating;
    using OLDataSource::zAttenuation;
};

// The messages written to the source's logger while the capture lives.
class LogCapture {
public:
    LogCapture() {
        Orx::Core::LogManager::Instance().SetSink([this](const std::string& logger, int severity,
                                                         const std::string& text) {
            if (logger == "DataAnalysis.QlOLDataSource" && severity == 2) {
                messages.push_back(text);
            }
        });
    }
    ~LogCapture() { Orx::Core::LogManager::Instance().SetSink({}); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::vector<std::string> messages;
};

// The builder's file, read from memory, after Initialize.
inline std::shared_ptr<Source> Load(QuillonBuilder& file, ICreateColorTableCallback* callback = nullptr) {
    const std::vector<std::uint8_t> bytes = file.Bytes();
    auto source = std::make_shared<Source>(Orx::DataCore::DataFile::OpenMemory(bytes.data(), bytes.size()), callback);
    source->Initialize();
    return source;
}

inline std::string UnitOf(const UValue& value) { return value.GetUnits()->GetName(); }

}  // namespace QuillonTest
