// Samples that an instrument marked invalid are replaced by the mean of their
// valid neighbours. A neighbour repaired earlier in the pass does not count,
// so the result depends on the order of the pass, which stays row by row.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

// A neighbour counts when it was valid before the pass and was not on the
// list of repaired indices: those repaired in the pass were invalid before
// it, and valid samples are never changed. So a sample's repair reads only
// what the image held before the pass, and each row can first be scanned
// without a branch (the sum of its valid samples, and which are invalid)
// before its invalid samples alone are visited, in order.
class InvalidSampleRepair {
public:
    InvalidSampleRepair(std::int32_t* data, std::uint64_t width, std::uint64_t count, std::int32_t invalid,
                        std::vector<std::uint32_t>& repaired)
        : data_(data), width_(width), count_(count), invalid_(invalid), repaired_(repaired),
          // a row is never longer than the samples the item holds
          previous_(std::min(width, count), 0), current_(previous_.size(), 0), invalidAt_(previous_.size()) {
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
        for (std::uint64_t start = 0; start < count_; start += width_) {
            const std::uint64_t length = std::min(width_, count_ - start);
            RepairRow(start, length, ScanRow(start, length));
            std::swap(previous_, current_);
        }
        if (unrepaired_ == 0) {
            return;
        }
        const std::int32_t fill =
            validCount_ == 0 ? 0 : static_cast<std::int32_t>(validSum_ / static_cast<std::int64_t>(validCount_));
        for (std::uint64_t index = 0; index < count_; ++index) {
            if (data_[index] == invalid_) {
                data_[index] = fill;
            }
        }
    }

private:
    // Marks the row's invalid samples in current_ and adds up its valid
    // ones; gives the number of invalid samples, whose places are then the
    // first entries of invalidAt_.
    std::uint64_t ScanRow(std::uint64_t start, std::uint64_t length) {
        const std::int32_t* row = data_ + start;
        std::int64_t sum = 0;
        std::uint64_t valid = 0;
        for (std::uint64_t x = 0; x < length; ++x) {
            const bool bad = row[x] == invalid_;
            current_[x] = bad;
            sum += bad ? 0 : row[x];
            valid += !bad;
        }
        validSum_ += sum;
        validCount_ += valid;
        std::uint64_t found = 0;
        for (std::uint64_t x = 0; x < length; ++x) {
            invalidAt_[found] = static_cast<std::uint32_t>(x);
            found += current_[x];
        }
        return found;
    }

    void RepairRow(std::uint64_t start, std::uint64_t length, std::uint64_t invalidCount) {
        for (std::uint64_t k = 0; k < invalidCount; ++k) {
            const std::uint64_t x = invalidAt_[k];
            const std::uint64_t index = start + x;
            repaired_.push_back(static_cast<std::uint32_t>(index));
            std::int64_t sum = 0;
            int neighbours = 0;
            auto consider = [&](std::uint64_t neighbour, bool wasValid) {
                if (wasValid && (listedBefore_.empty() || !listedBefore_[neighbour])) {
                    sum += data_[neighbour];
                    ++neighbours;
                }
            };
            if (start > 0) {
                consider(index - width_, !previous_[x]);
            }
            if (index + width_ < count_) {
                consider(index + width_, data_[index + width_] != invalid_);
            }
            if (x > 0) {
                consider(index - 1, !current_[x - 1]);
            }
            if (x + 1 < length) {
                consider(index + 1, !current_[x + 1]);
            }
            if (neighbours > 0) {
                data_[index] = static_cast<std::int32_t>(static_cast<double>(sum) / neighbours + 0.5);
            } else {
                ++unrepaired_;
            }
        }
    }

    std::int32_t* data_;
    std::uint64_t width_;
    std::uint64_t count_;
    std::int32_t invalid_;
    std::vector<std::uint32_t>& repaired_;
    std::vector<bool> listedBefore_;
    // which samples of the row above and of this row were invalid before the pass
    std::vector<std::uint8_t> previous_, current_;
    std::vector<std::uint32_t> invalidAt_;
    std::int64_t validSum_ = 0;
    std::uint64_t validCount_ = 0;
    std::uint64_t unrepaired_ = 0;
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
