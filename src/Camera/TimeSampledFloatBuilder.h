// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>

#include <map>
#include <vector>

namespace SYLVAR {

/// Gathers the time samples of a float attribute. One thread.
class TimeSampledFloatBuilder {
public:
    explicit TimeSampledFloatBuilder(long tupleSize) : tupleSize_(tupleSize) {}

    /// Sets the sample at that time, in place of an earlier one.
    void set(float time, std::vector<float> values) { samples_[time] = std::move(values); }

    /// The samples, ascending by time; without any, one sample at time 0 without values.
    ///
    /// Throws `std::runtime_error`, "Error building attribute time samples are different sizes.".
    Sylvar3::internal::OvAttribute::FloatAttribute build() const;

private:
    std::map<float, std::vector<float>> samples_;
    long tupleSize_;
};

}  // namespace SYLVAR
