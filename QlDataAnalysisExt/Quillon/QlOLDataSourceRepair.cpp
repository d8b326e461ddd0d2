// Samples that an instrument marked invalid are replaced by the mean of their
// valid neighbours. A neighbour repaired earlier in the pass does not count,
// so the result depends on the order of the pass, which stays row by row.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

// The mean of n neighbours, plus 0.5, truncates to the same integer whether
// the sum is divided by n or multiplied by 1 / n: for 1, 2 and 4 both are
// exact, and a third of an integer sum lies at least a sixth from the next
// integer once 0.5 is added, far beyond the rounding of either (the sum of
// four 32-bit samples is exact in a double).
constexpr std::array<double, 5> kOneOver = {0.0, 1.0, 0.5, 1.0 / 3.0, 0.25};

// A neighbour counts when it was valid before the pass and was not on the
// list of repaired indices: those repaired in the pass were invalid before
// it, and valid samples are never changed. So a sample's repair reads only
// what the image held before the pass, and each row can first be scanned
// without a branch (the sum of its valid samples, and which are invalid)
// before its invalid samples alone are visited, in order. The row below is
// scanned before a row is repaired, so that what the repair reads of it is
// at hand.
class InvalidSampleRepair {
public:
    InvalidSampleRepair(std::int32_t* data, std::uint64_t width, std::uint64_t count, std::int32_t invalid,
                        std::vector<std::uint32_t>& repaired)
        : data_(data), width_(width), count_(count), invalid_(invalid), repaired_(repaired) {
        // a row is never longer than the samples the item holds
        const std::uint64_t row = std::min(width, count);
        for (std::vector<std::uint8_t>* marks : {&above_, &here_, &below_}) {
            marks->assign(row, 0);
        }
        // The list may hold indices from before, which never count either.
        if (!repaired_.empty()) {
            listedBefore_.assign(count_, false);
            for (const std::uint32_t index : repaired_) {
                if (index < count_) {
                    listedBefore_[index] = true;
                }
            }
        }
    }

    void Run() {
        std::uint64_t invalidBelow = Scan(0, below_);
        for (std::uint64_t start = 0; start < count_; start += width_) {
            std::swap(above_, here_);
            std::swap(here_, below_);
            const std::uint64_t invalidHere = invalidBelow;
            if (start + width_ < count_) {
                invalidBelow = Scan(start + width_, below_);
            }
            if (invalidHere == 0) {
                continue;
            }
            if (listedBefore_.empty()) {
                RepairRow<false>(start, LengthAt(start), invalidHere);
            } else {
                RepairRow<true>(start, LengthAt(start), invalidHere);
            }
        }
        if (unrepaired_ == 0) {
            return;
        }
        const std::int32_t fill =
            validCount_ == 0 ? 0 : static_cast<std::int32_t>(validSum_ / static_cast<std::int64_t>(validCount_));
        if (!manyStillInvalid_) {
            for (const std::uint32_t index : stillInvalid_) {
                data_[index] = fill;
            }
            return;
        }
        // written whether it changes or not, so that the loop has no branch
        for (std::uint64_t index = 0; index < count_; ++index) {
            data_[index] = data_[index] == invalid_ ? fill : data_[index];
        }
    }

private:
    // A few samples still invalid after the pass are filled one by one;
    // more than one in 256 of the image, and a pass over the whole
    // image is the quicker way.
    void NoteStillInvalid(std::uint64_t index) {
        if (manyStillInvalid_) {
            return;
        }
        if (stillInvalid_.size() >= count_ / 256) {
            manyStillInvalid_ = true;
            return;
        }
        stillInvalid_.push_back(static_cast<std::uint32_t>(index));
    }

    std::uint64_t LengthAt(std::uint64_t start) const { return std::min(width_, count_ - start); }

    // Marks the invalid samples of the row at start and adds up its valid
    // ones; gives the number of invalid samples.
    std::uint64_t Scan(std::uint64_t start, std::vector<std::uint8_t>& marks) {
        const std::int32_t* row = data_ + start;
        const std::uint64_t length = LengthAt(start);
        std::int64_t sum = 0;
        std::uint64_t valid = 0;
        for (std::uint64_t x = 0; x < length; ++x) {
            const bool bad = row[x] == invalid_;
            marks[x] = bad;
            sum += bad ? 0 : row[x];
            valid += !bad;
        }
        validSum_ += sum;
        validCount_ += valid;
        return length - valid;
    }

    // The marks of up to 64 samples of this row from x on, as the bits of
    // a word. Eight marks at a time where the machine allows: eight bytes of
    // 0 and 1 times this constant gather into the top byte.
    std::uint64_t MarkBits(std::uint64_t x, std::uint64_t n) const {
        std::uint64_t bits = 0;
        std::uint64_t k = 0;
        if constexpr (std::endian::native == std::endian::little) {
            for (; n - k >= 8; k += 8) {
                std::uint64_t eight;
                std::memcpy(&eight, here_.data() + x + k, sizeof eight);
                bits |= ((eight * 0x0102040810204080ull) >> 56) << k;
            }
        }
        for (; k < n; ++k) {
            bits |= static_cast<std::uint64_t>(here_[x + k]) << k;
        }
        return bits;
    }

    // A list from before is the rare case; without one, no neighbour needs
    // looking up in it.
    template <bool kListedBefore>
    void RepairRow(std::uint64_t start, std::uint64_t length, std::uint64_t invalidCount) {
        const bool hasAbove = start > 0;
        const std::uint64_t lengthBelow = start + width_ < count_ ? LengthAt(start + width_) : 0;
        std::size_t listed = repaired_.size();
        repaired_.resize(listed + invalidCount);
        // The invalid samples one after the other, found as the set bits of
        // the marks: no branch waits on whether a sample is invalid.
        for (std::uint64_t base = 0; base < length; base += 64) {
            for (std::uint64_t bits = MarkBits(base, std::min<std::uint64_t>(64, length - base)); bits != 0;
                 bits &= bits - 1) {
                const std::uint64_t x = base + static_cast<std::uint64_t>(std::countr_zero(bits));
                const std::uint64_t index = start + x;
                repaired_[listed++] = static_cast<std::uint32_t>(index);
                std::int64_t sum = 0;
                int neighbours = 0;
                // whether a neighbour was valid is as random as the image's
                // damage, so it is added in without a branch either
                auto consider = [&](std::uint64_t neighbour, bool wasValid) {
                    const bool counts = wasValid && (!kListedBefore || !listedBefore_[neighbour]);
                    sum += counts ? data_[neighbour] : 0;
                    neighbours += counts;
                };
                if (hasAbove) {
                    consider(index - width_, !above_[x]);
                }
                if (x < lengthBelow) {
                    consider(index + width_, !below_[x]);
                }
                if (x > 0) {
                    consider(index - 1, !here_[x - 1]);
                }
                if (x + 1 < length) {
                    consider(index + 1, !here_[x + 1]);
                }
                if (neighbours > 0) {
                    const auto mean =
                        static_cast<std::int32_t>(static_cast<double>(sum) * kOneOver[neighbours] + 0.5);
                    data_[index] = mean;
                    // A mean can come out as the invalid value itself; the
                    // fill takes every sample that holds it after the pass.
                    if (mean == invalid_) {
                        NoteStillInvalid(index);
                    }
                } else {
                    ++unrepaired_;
                    NoteStillInvalid(index);
                }
            }
        }
    }

    std::int32_t* data_;
    std::uint64_t width_;
    std::uint64_t count_;
    std::int32_t invalid_;
    std::vector<std::uint32_t>& repaired_;
    std::vector<bool> listedBefore_;
    // which samples of the rows above, here and below were invalid before the pass
    std::vector<std::uint8_t> above_, here_, below_;
    std::int64_t validSum_ = 0;
    std::uint64_t validCount_ = 0;
    std::uint64_t unrepaired_ = 0;
    // the samples that hold the invalid value after the pass
    std::vector<std::uint32_t> stillInvalid_;
    bool manyStillInvalid_ = false;
};

}  // namespace

void QlOLDataSource::RepairInvalidSamples(OLDataItem& item) {
    std::int32_t* data = item.GetData();
    const std::uint64_t width = item.GetSamplesPerLine();
    const std::uint64_t height = item.GetNumberOfLines();
    // The image is never taken beyond the samples the item holds.
    const std::uint64_t count = std::min<std::uint64_t>(width * height, item.GetDataSize());
    if (!data || width == 0 || count == 0) {
        return;
    }
    InvalidSampleRepair(data, width, count, static_cast<std::int32_t>(item.GetInvalidFlag()), item.InvalidPoints())
        .Run();
}
