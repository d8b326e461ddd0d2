#pragma once

// The ends of an item's percentile range, found for a large buffer from two
// of its samples rather than from a histogram of all of them.
//
// The histogram rule puts every sample into one of 1024 bins between the
// extremes and walks the bins from each end until more than 1% of the
// samples are passed. A bin's number never falls as the sample rises, so the
// walk up stops at the bin of the sample whose rank from below is that 1%
// plus one, and the walk down at the bin of the sample of the same rank from
// above (where that bin is above 0). Those two samples are found in the one
// pass that finds the extremes: the samples beyond two cuts, put a little
// outside each rank by a probe of the buffer, are kept aside, and each rank
// is then looked up among the few kept. Where the cuts prove to be wrong,
// the answer is false, and the rule itself decides.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

class PercentileRankEnds {
public:
    // The 1024 bins of the rule over lo..hi: the arithmetic that puts a
    // sample in its bin and a bin back on a sample value.
    struct Bins {
        static constexpr int kCount = 1024;
        double start;
        double width;

        Bins(std::int32_t lo, std::int32_t hi)
            : start(lo), width((static_cast<double>(hi) - static_cast<double>(lo) + 1.0) * 0.0009765625) {}

        int Of(std::int32_t sample) const {
            const double position = (static_cast<double>(sample) - start) / width - 0.5;
            const auto bin = static_cast<std::int32_t>(static_cast<std::int64_t>(position));
            // Samples outside lo..hi cannot occur for the extremes of the same
            // buffer; the clamp keeps a foreign buffer inside the table.
            return std::clamp(bin, 0, kCount - 1);
        }

        std::int32_t LowEdge(int bin) const { return static_cast<std::int32_t>(bin * width + start); }

        // Samples that each end of the range leaves out, 1 per cent of n.
        static std::uint64_t Threshold(std::uint32_t n) {
            constexpr double percent = 1.0;
            return static_cast<std::uint64_t>(static_cast<float>(n) * static_cast<float>(percent) / 100.0f);
        }
    };

    // Smaller buffers are left to the rule, which is then as quick.
    static constexpr std::uint32_t kWorthSamples = 1u << 16;

    // The extremes of the samples narrowed as the rule narrows them, into lo
    // and hi; false, with lo and hi of no meaning, for a null or small buffer
    // or where the probe misjudged the buffer.
    static bool Narrow(const std::int32_t* samples, std::uint32_t n, std::int32_t& lo, std::int32_t& hi);
    // The same with the cuts given instead of probed: whatever they are, the
    // answer is the rule's or false.
    static bool NarrowWithCuts(const std::int32_t* samples, std::uint32_t n, std::int32_t cutLow,
                               std::int32_t cutHigh, std::int32_t& lo, std::int32_t& hi);

private:
    PercentileRankEnds(const std::int32_t* samples, std::uint32_t n);

    void Probe();
    bool Find(std::int32_t& lo, std::int32_t& hi);
    bool Pass(std::int32_t& lo, std::int32_t& hi);
    bool KeepAside(const std::int32_t* chunk, std::size_t count);
    bool RankFromBelow(std::int32_t& sample);
    bool RankFromAbove(std::int32_t& sample);

    const std::int32_t* samples_;
    std::uint32_t n_;
    std::uint64_t rank_;
    std::int32_t cutLow_ = 0, cutHigh_ = 0;
    // how many samples may be kept aside at each end before the cuts are
    // taken to have misjudged the buffer
    std::size_t cap_ = 0;
    std::vector<std::int32_t> below_, above_;
    std::uint64_t onLow_ = 0, onHigh_ = 0;
};
