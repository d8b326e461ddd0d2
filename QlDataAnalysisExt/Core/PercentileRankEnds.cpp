#include "QlDataAnalysisExt/Core/PercentileRankEnds.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr std::uint32_t kProbeSize = 4096;
// Samples looked at together: a chunk wholly between the cuts, nearly every
// one, is seen only by a loop the compiler makes of vectors.
constexpr std::uint32_t kChunk = 64;

}  // namespace

PercentileRankEnds::PercentileRankEnds(const std::int32_t* samples, std::uint32_t n)
    : samples_(samples), n_(n), rank_(Bins::Threshold(n)), cap_(n / 16 + 1024) {
    below_.reserve(cap_ / 4);
    above_.reserve(cap_ / 4);
}

bool PercentileRankEnds::Narrow(const std::int32_t* samples, std::uint32_t n, std::int32_t& lo, std::int32_t& hi) {
    if (!samples || n < kWorthSamples) {
        return false;
    }
    PercentileRankEnds ends(samples, n);
    ends.Probe();
    return ends.Find(lo, hi);
}

bool PercentileRankEnds::NarrowWithCuts(const std::int32_t* samples, std::uint32_t n, std::int32_t cutLow,
                                        std::int32_t cutHigh, std::int32_t& lo, std::int32_t& hi) {
    if (!samples || n == 0) {
        return false;
    }
    PercentileRankEnds ends(samples, n);
    ends.cutLow_ = cutLow;
    ends.cutHigh_ = cutHigh;
    return ends.Find(lo, hi);
}

// Cuts a few standard deviations of the probe beyond the rank, so that the
// rank lies inside what is kept aside but for a buffer far from what the
// probe saw.
void PercentileRankEnds::Probe() {
    std::vector<std::int32_t> probe(kProbeSize);
    const std::uint64_t stride = n_ / kProbeSize;
    for (std::uint64_t k = 0; k < kProbeSize; ++k) {
        // one sample from each stretch, at a place that varies from one
        // stretch to the next, so that no column of an image is favoured
        const std::uint64_t within = (k * 0x9E3779B97F4A7C15ull >> 32) % stride;
        probe[k] = samples_[k * stride + within];
    }
    const double expected = static_cast<double>(rank_ + 1) * kProbeSize / n_;
    const auto index =
        static_cast<std::ptrdiff_t>(std::min<double>(kProbeSize - 1, expected + 4.0 * std::sqrt(expected) + 4.0));
    std::nth_element(probe.begin(), probe.begin() + index, probe.end());
    cutLow_ = probe[static_cast<std::size_t>(index)];
    std::nth_element(probe.begin(), probe.end() - 1 - index, probe.end());
    cutHigh_ = *(probe.end() - 1 - index);
}

bool PercentileRankEnds::Find(std::int32_t& lo, std::int32_t& hi) {
    if (!Pass(lo, hi)) {
        return false;
    }
    std::int32_t low = 0, high = 0;
    if (!RankFromBelow(low) || !RankFromAbove(high)) {
        return false;
    }
    const Bins bins(lo, hi);
    lo = bins.LowEdge(bins.Of(low));
    const int highBin = bins.Of(high);
    if (highBin >= 1) {
        hi = bins.LowEdge(highBin);
    }
    return true;
}

// One pass over the samples: the extremes, the samples beyond the cuts, and
// how many lie on them.
bool PercentileRankEnds::Pass(std::int32_t& lo, std::int32_t& hi) {
    std::int32_t mn = samples_[0];
    std::int32_t mx = samples_[0];
    for (std::uint32_t i = 0; i < n_; i += kChunk) {
        const std::uint32_t count = std::min(kChunk, n_ - i);
        const std::int32_t* chunk = samples_ + i;
        unsigned outside = 0;
        for (std::uint32_t j = 0; j < count; ++j) {
            mn = std::min(mn, chunk[j]);
            mx = std::max(mx, chunk[j]);
            outside += static_cast<unsigned>(chunk[j] <= cutLow_) | static_cast<unsigned>(chunk[j] >= cutHigh_);
        }
        if (outside != 0 && !KeepAside(chunk, count)) {
            return false;
        }
    }
    lo = mn;
    hi = mx;
    return true;
}

bool PercentileRankEnds::KeepAside(const std::int32_t* chunk, std::size_t count) {
    for (std::size_t j = 0; j < count; ++j) {
        const std::int32_t s = chunk[j];
        if (s < cutLow_) {
            below_.push_back(s);
        } else if (s == cutLow_) {
            ++onLow_;
        }
        if (s > cutHigh_) {
            above_.push_back(s);
        } else if (s == cutHigh_) {
            ++onHigh_;
        }
    }
    return below_.size() <= cap_ && above_.size() <= cap_;
}

// The sample of rank threshold + 1 from below: among those kept aside when
// they are enough, else the cut itself when the samples on it make up the
// rank, else the cut lay below the rank.
bool PercentileRankEnds::RankFromBelow(std::int32_t& sample) {
    if (below_.size() > rank_) {
        std::nth_element(below_.begin(), below_.begin() + static_cast<std::ptrdiff_t>(rank_), below_.end());
        sample = below_[rank_];
        return true;
    }
    sample = cutLow_;
    return below_.size() + onLow_ > rank_;
}

bool PercentileRankEnds::RankFromAbove(std::int32_t& sample) {
    if (above_.size() > rank_) {
        std::nth_element(above_.begin(), above_.begin() + static_cast<std::ptrdiff_t>(rank_), above_.end(),
                         std::greater<>());
        sample = above_[rank_];
        return true;
    }
    sample = cutHigh_;
    return above_.size() + onHigh_ > rank_;
}
