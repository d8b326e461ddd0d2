#pragma once

// The files that the cases open, made by the sample builders into a
// temporary folder of the run's own, each once, on first use; the folder
// goes when the program ends.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

class SampleFiles {
public:
    // Shapes of the files.
    static constexpr std::uint16_t kTefChannels = 8;
    static constexpr std::uint16_t kTefSide = 1024;
    static constexpr std::size_t kQuillonChannels = 4;
    static constexpr std::size_t kQuillonSide = 2048;
    static constexpr std::size_t kVolumeSide = 128;        // curves per line and lines
    static constexpr std::size_t kVolumeCurveHalf = 256;   // points of each half of a curve
    static constexpr std::size_t kVolumeHoldPoints = 32;

    static SampleFiles& Get();
    ~SampleFiles();
    SampleFiles(const SampleFiles&) = delete;
    SampleFiles& operator=(const SampleFiles&) = delete;

    // kTefChannels channels of kTefSide x kTefSide 2-byte pixels.
    const std::string& Tef(std::uint16_t bitsInUse);
    // kQuillonChannels image channels of kQuillonSide x kQuillonSide 32-bit samples.
    const std::string& QuillonImage();
    // A force volume of kVolumeSide x kVolumeSide curves, every one of them
    // within reach of the curve reader.
    const std::string& ForceVolume();

    // A ".tef" file of that many square channels, 2-byte pixels of a surface
    // that uses the bits in use.
    static void WriteTef(const std::string& path, std::uint16_t channels, std::uint16_t side,
                         std::uint16_t bitsInUse);
    // A measured-looking surface: a tilt, a grating and noise, spread over
    // low to high, row by row; the same for the same seed.
    static std::vector<std::int32_t> Surface(std::size_t width, std::size_t height, std::int64_t low,
                                             std::int64_t high, unsigned seed);

private:
    SampleFiles();
    std::string PathOf(const std::string& name) const;

    std::filesystem::path folder_;
    std::map<std::uint16_t, std::string> tef_;
    std::string quillon_, volume_;
};
