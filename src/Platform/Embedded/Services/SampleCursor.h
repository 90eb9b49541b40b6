// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Interpolation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// Reads numbers of the type `T` at one time after the other. All times together cost one pass over
/// the samples, and a sort when these are not in order. Lives on the stack of one call.
template <class T>
class SampleCursor {
public:
    /// Borrows `data`. At least one sample must be at a time that is a number.
    explicit SampleCursor(const OvAttribute::Embedded::DataValue& data)
        : values_(data.valuesAs<T>()),
          times_(data.times()),
          valueCount_(static_cast<std::size_t>(data.valueCount)),
          size_(data.sampleCount) {
        if (!isAscending()) {
            sort();
        }
    }

    /// Fills `out` with the first `count` values at `time`, which must not lie before that of the
    /// last call: interpolated linearly, clamped outside the samples. Of samples at one time the
    /// first counts.
    void read(float time, double* out, int count) {
        while (here_ + 1 < size_ && timeAt(here_ + 1) <= time) {
            ++here_;
        }
        const T* const before = valuesAt(here_);
        if (here_ + 1 == size_ || !(timeAt(here_) < time)) {
            std::copy_n(before, count, out);
            return;
        }
        const T* const after = valuesAt(here_ + 1);
        const double fraction =
            OvAttribute::fractionBetween(timeAt(here_), timeAt(here_ + 1), time);
        for (int i = 0; i < count; ++i) {
            out[i] = OvAttribute::interpolated(before[i], after[i], fraction);
        }
    }

private:
    std::size_t place(std::size_t index) const { return order_.empty() ? index : order_[index]; }
    float timeAt(std::size_t index) const { return times_[place(index)]; }
    const T* valuesAt(std::size_t index) const { return values_ + place(index) * valueCount_; }

    bool isAscending() const {
        const auto isNotBefore = [](float a, float b) { return !(a < b); };
        return std::adjacent_find(times_, times_ + size_, isNotBefore) == times_ + size_;
    }

    void sort() {
        for (std::size_t i = 0; i < size_; ++i) {
            if (!std::isnan(times_[i])) {
                order_.push_back(static_cast<std::uint32_t>(i));
            }
        }
        std::stable_sort(order_.begin(), order_.end(), [this](std::uint32_t a, std::uint32_t b) {
            return times_[a] < times_[b];
        });
        const auto isSameTime = [this](std::uint32_t a, std::uint32_t b) {
            return times_[a] == times_[b];
        };
        order_.erase(std::unique(order_.begin(), order_.end(), isSameTime), order_.end());
        size_ = order_.size();
    }

    const T* values_;
    const float* times_;
    std::size_t valueCount_;  ///< Of one sample.
    std::size_t size_;
    std::vector<std::uint32_t> order_;  ///< The samples that count; empty: all, as they stand.
    std::size_t here_ = 0;
};

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
