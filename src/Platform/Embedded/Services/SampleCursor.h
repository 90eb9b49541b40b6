// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SampleAccessor.h>

#include "Platform/Interpolation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// Reads the values of a data attribute of numbers at one time after the other. All times together
/// cost one pass over the samples, and a sort when these are not in order. Lives on the stack of
/// one call.
template <class DataAttributeType>
class SampleCursor {
public:
    /// At least one sample must be at a time that is a number.
    explicit SampleCursor(const OvAttribute::Attribute& attribute) : samples_(attribute) {
        if (!isAscending()) {
            sort();
        }
    }

    /// Fills `out` with the first `count` values at `time`, which must not lie before that of the
    /// last call: interpolated linearly, clamped outside the samples. Of samples at one time the
    /// first counts.
    void read(float time, double* out, int count) {
        while (here_ + 1 < size() && timeAt(here_ + 1) <= time) {
            ++here_;
        }
        const bool isBetween = here_ + 1 < size() && timeAt(here_) < time;
        const std::size_t next = isBetween ? here_ + 1 : here_;
        const double fraction =
            OvAttribute::fractionBetween(timeAt(here_), timeAt(next), static_cast<double>(time));
        const auto* const before = samples_.getSample(place(here_));
        const auto* const after = samples_.getSample(place(next));
        for (int i = 0; i < count; ++i) {
            out[i] = OvAttribute::interpolated(
                static_cast<double>(before[i]), static_cast<double>(after[i]), fraction);
        }
    }

private:
    std::size_t size() const {
        return order_.empty() ? static_cast<std::size_t>(samples_.getNumberOfTimeSamples())
                              : order_.size();
    }
    std::int64_t place(std::size_t index) const {
        return order_.empty() ? static_cast<std::int64_t>(index) : order_[index];
    }
    float timeAt(std::size_t index) const { return samples_.getSampleTime(place(index)); }

    bool isAscending() const {
        for (std::int64_t i = 1; i < samples_.getNumberOfTimeSamples(); ++i) {
            if (!(samples_.getSampleTime(i - 1) < samples_.getSampleTime(i))) {
                return false;
            }
        }
        return true;
    }

    void sort() {
        for (std::int64_t i = 0; i < samples_.getNumberOfTimeSamples(); ++i) {
            if (!std::isnan(samples_.getSampleTime(i))) {
                order_.push_back(i);
            }
        }
        std::sort(order_.begin(), order_.end(), [this](std::int64_t a, std::int64_t b) {
            const float timeA = samples_.getSampleTime(a);
            const float timeB = samples_.getSampleTime(b);
            return timeA < timeB || (timeA == timeB && a < b);
        });
        const auto isSameTime = [this](std::int64_t a, std::int64_t b) {
            return samples_.getSampleTime(a) == samples_.getSampleTime(b);
        };
        order_.erase(std::unique(order_.begin(), order_.end(), isSameTime), order_.end());
    }

    OvAttribute::SampleAccessor<DataAttributeType> samples_;
    std::vector<std::int64_t> order_;  ///< The samples that count; empty: all, as they stand.
    std::size_t here_ = 0;
};

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
