#pragma once

#include "tools/samplekit/ContainerBuilder.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace SampleKit {

// Quillon files of each of the eleven subtypes, with the sections and keys
// an instrument writes for that subtype and a few channels of samples:
//
//   QuillonBuilder file("IMAGE");
//   file.Text("Dulce scan list", "Scan Rate", "2.5").Remove("Dulce image list", "Bytes/pixel");
//   file.Samples32(0, 2, 3, {1, 2, 3, 4, 5, 6});
//   file.Write(path);
//
// Each channel's "Data offset" is the header size plus the data lengths of
// the channels before it, and the file section's "Data length" is the header
// size, as an instrument writes them; both are settled when the file is
// written, so that a test may change lengths and samples freely before.
class QuillonBuilder {
public:
    // The values that the default keys hold, for tests to compare with.
    static constexpr std::uint64_t kHeaderSize = 0xA000;
    static constexpr const char* kVersion = "0x09020000";
    static constexpr const char* kDate = "03:15:42 PM Tue Jan 05 2021";
    static constexpr const char* kScanList = "Dulce scan list";
    static constexpr const char* kFileList = "File list";
    static constexpr const char* kForceList = "Dulce force list";
    static constexpr const char* kZSensitivity = "V 12.5 nm/V";
    static constexpr const char* kDeflectionSensitivity = "V 45.5 nm/V";
    static constexpr double kZScaleVolts = 440.0;
    static constexpr double kDeflectionScaleVolts = 24.576;
    static constexpr double kSpringConstant = 0.4;
    static constexpr const char* kTipSerialNumber = "TS-1042";
    static constexpr std::size_t kImageSide = 4;      // lines and samples of an image channel
    static constexpr std::size_t kCurveHalf = 8;      // points of each half of a force curve
    static constexpr std::size_t kHoldPoints = 4;     // hold section of a force curve
    static constexpr std::size_t kForceCurves = 4;    // curves of a force volume channel
    static constexpr std::size_t kHighSpeedSamples = 16;
    static constexpr double kHighSpeedHardVolts = 20.0;
    static constexpr double kHighSpeedSensitivity = 45.5;  // nm/V

    // A file of that subtype; any other text makes an image file that names
    // itself by the text.
    explicit QuillonBuilder(const std::string& subtype);
    // A copy would share the tree of sections with its original.
    QuillonBuilder(const QuillonBuilder&) = delete;
    QuillonBuilder& operator=(const QuillonBuilder&) = delete;
    QuillonBuilder(QuillonBuilder&&) = default;
    QuillonBuilder& operator=(QuillonBuilder&&) = default;

    // Keys of a top-level section, made where it is missing.
    QuillonBuilder& Text(const std::string& section, const std::string& key, const std::string& value);
    QuillonBuilder& Int(const std::string& section, const std::string& key, std::int32_t value);
    QuillonBuilder& Double(const std::string& section, const std::string& key, double value);
    QuillonBuilder& Unitized(const std::string& section, const std::string& key, double value,
                             const std::string& unit);
    QuillonBuilder& Texts(const std::string& section, const std::string& key, const std::vector<std::string>& values);
    QuillonBuilder& Remove(const std::string& section, const std::string& key);
    QuillonBuilder& RemoveSection(const std::string& section);

    // Channels in the order of "DataPlistNames".
    std::size_t ChannelCount() const { return channels_.size(); }
    const std::string& ChannelName(std::size_t channel) const { return channels_.at(channel); }
    // Replaces a channel's samples with rows x columns of 32-bit samples ("Bytes/pixel" 4).
    QuillonBuilder& Samples32(std::size_t channel, std::size_t rows, std::size_t columns,
                              const std::vector<std::int32_t>& samples);
    // Two-byte samples, given as stored: the file layer reads them times 65536.
    QuillonBuilder& Samples16(std::size_t channel, std::size_t rows, std::size_t columns,
                              const std::vector<std::int16_t>& samples);
    // The samples a channel was given, as the file layer reads them back.
    std::vector<std::int32_t> SamplesOf(std::size_t channel) const;
    // Adds an image channel section like the first of an image file, listed
    // last in "DataPlistNames".
    QuillonBuilder& AddImageChannel(const std::string& name);

    // The header size, before the first channel's samples.
    QuillonBuilder& HeaderSize(std::uint64_t size);

    // The tree as it is written.
    Orx::DataCore::DataContainerPtr Root();
    std::vector<std::uint8_t> Bytes();
    void Write(const std::string& path);

private:
    void Overview(const std::string& subtype);
    void FileSection(const std::string& startContext);
    void EquipmentAndProbe();
    void ScanSection(const std::string& subtype);
    void ScannerList();
    void ForceList(const std::string& subtype);
    void HighSpeedList();
    void ElectrochemistryList(const std::string& subtype);
    void ImageChannel(const std::string& name, const std::string& dataName, const std::string& sensitivity,
                      double volts);
    void ForceChannel(const std::string& name, const std::string& dataName, std::size_t curves);
    void HighSpeedChannel(const std::string& name, const std::string& dataType);
    void ElectrochemistryChannel(const std::string& name, const std::string& dataType);
    void ListChannel(const std::string& name);
    // Offsets and lengths as an instrument writes them.
    void Settle();

    ContainerBuilder file_;
    std::vector<std::string> channels_;
    std::string subtype_;
    std::uint64_t headerSize_ = kHeaderSize;
};

}  // namespace SampleKit
