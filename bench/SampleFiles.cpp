#include "SampleFiles.h"

#include "tools/samplekit/QuillonBuilder.h"
#include "tools/samplekit/TefBuilder.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <stdexcept>
#include <system_error>

#include <unistd.h>

namespace {

constexpr std::uint16_t kBitsInUseId = 11;
constexpr std::uint16_t kChannelBitsId = 146;
constexpr std::size_t kChannelGroupSize = 8;

// One force curve: flat while the tip is away, a rising line in contact,
// the same on the way back, then a hold at the turning point.
void WriteCurve(std::int32_t* curve, std::size_t half, std::size_t hold, std::mt19937& random)
{
    const std::size_t contact = half * 3 / 5;
    auto point = [&](std::size_t i) {
        const std::int64_t rise = i > contact ? static_cast<std::int64_t>(i - contact) * 90000 : 0;
        return static_cast<std::int32_t>(-2000000 + rise + static_cast<std::int64_t>(random() % 4001) - 2000);
    };
    for (std::size_t i = 0; i < half; ++i)
        curve[i] = point(half - 1 - i);
    for (std::size_t i = 0; i < half; ++i)
        curve[half + i] = point(i);
    for (std::size_t i = 0; i < hold; ++i)
        curve[2 * half + i] = point(half - 1);
}

}  // namespace

SampleFiles& SampleFiles::Get()
{
    static SampleFiles files;
    return files;
}

SampleFiles::SampleFiles()
{
    folder_ = std::filesystem::temp_directory_path() / ("ds_bench_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder_);
}

SampleFiles::~SampleFiles()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string SampleFiles::PathOf(const std::string& name) const { return (folder_ / name).string(); }

const std::string& SampleFiles::Tef(std::uint16_t bitsInUse)
{
    std::string& path = tef_[bitsInUse];
    if (path.empty()) {
        const std::string made = PathOf("channels_" + std::to_string(bitsInUse) + "bit.tef");
        WriteTef(made, kTefChannels, kTefSide, bitsInUse);
        path = made;
    }
    return path;
}

const std::string& SampleFiles::QuillonImage()
{
    if (quillon_.empty()) {
        SampleKit::QuillonBuilder file("IMAGE");
        for (std::size_t c = file.ChannelCount(); c < kQuillonChannels; ++c)
            file.AddImageChannel("Dulce image list#" + std::to_string(c + 1));
        for (std::size_t c = 0; c < kQuillonChannels; ++c)
            file.Samples32(c, kQuillonSide, kQuillonSide,
                           Surface(kQuillonSide, kQuillonSide, -2000000000, 2000000000, static_cast<unsigned>(c)));
        const std::string made = PathOf("image.qdf");
        file.Write(made);
        quillon_ = made;
    }
    return quillon_;
}

const std::string& SampleFiles::ForceVolume()
{
    if (volume_.empty()) {
        using SampleKit::QuillonBuilder;
        const std::size_t curves = kVolumeSide * kVolumeSide;
        const std::string half = std::to_string(kVolumeCurveHalf);
        QuillonBuilder file("FVOL");
        file.Text(QuillonBuilder::kForceList, "Samps/line", half + " " + half)
            .Text(QuillonBuilder::kForceList, "Hold Samples", std::to_string(kVolumeHoldPoints))
            .Int(QuillonBuilder::kForceList, "force/line", static_cast<std::int32_t>(curves));
        file.Samples32(0, kVolumeSide, kVolumeSide, Surface(kVolumeSide, kVolumeSide, -1000000, 1000000, 7));
        std::mt19937 random(11);
        const std::size_t stride = 2 * kVolumeCurveHalf + kVolumeHoldPoints;
        for (std::size_t c = 1; c < file.ChannelCount(); ++c) {
            std::vector<std::int32_t> samples(curves * stride);
            for (std::size_t k = 0; k < curves; ++k)
                WriteCurve(samples.data() + k * stride, kVolumeCurveHalf, kVolumeHoldPoints, random);
            file.Text(file.ChannelName(c), "Samps/line", half + " " + half);
            file.Samples32(c, curves, stride, samples);
        }
        const std::string made = PathOf("volume.qdf");
        file.Write(made);
        volume_ = made;
    }
    return volume_;
}

void SampleFiles::WriteTef(const std::string& path, std::uint16_t channels, std::uint16_t side,
                           std::uint16_t bitsInUse)
{
    using SampleKit::TefBuilder;
    if (bitsInUse > 16)
        throw std::invalid_argument("2-byte pixels have at most 16 bits in use");
    TefBuilder file(channels, side, side, 2);
    file.Set(kBitsInUseId, TefBuilder::Word(bitsInUse));
    for (std::size_t i = 0; i < std::min<std::size_t>(channels, kChannelGroupSize); ++i)
        file.Set(static_cast<std::uint16_t>(kChannelBitsId + i), TefBuilder::Word(bitsInUse));
    const std::int64_t top = (std::int64_t{1} << bitsInUse) - 1;
    for (std::size_t i = 0; i < file.channels.size(); ++i) {
        const std::vector<std::int32_t> surface = Surface(side, side, 0, top, static_cast<unsigned>(i));
        file.channels[i].pixels.assign(surface.begin(), surface.end());
    }
    file.Save(path);
}

std::vector<std::int32_t> SampleFiles::Surface(std::size_t width, std::size_t height, std::int64_t low,
                                               std::int64_t high, unsigned seed)
{
    std::vector<double> across(width), down(height);
    for (std::size_t x = 0; x < width; ++x)
        across[x] = std::sin(2.0 * std::numbers::pi * static_cast<double>(x) / 61.0);
    for (std::size_t y = 0; y < height; ++y)
        down[y] = std::cos(2.0 * std::numbers::pi * static_cast<double>(y) / 47.0);
    std::mt19937 random(seed);
    std::vector<std::int32_t> samples(width * height);
    const double span = static_cast<double>(high - low);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            const double tilt = 0.3 * static_cast<double>(x) / static_cast<double>(width) +
                                0.2 * static_cast<double>(y) / static_cast<double>(height);
            const double noise = static_cast<double>(random() % 2048) / 2047.0 - 0.5;
            const double t = std::clamp(0.25 + tilt + 0.2 * across[x] * down[y] + 0.04 * noise, 0.0, 1.0);
            samples[y * width + x] = static_cast<std::int32_t>(low + static_cast<std::int64_t>(t * span));
        }
    }
    return samples;
}
