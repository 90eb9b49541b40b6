// SPDX-License-Identifier: Apache-2.0
#include "Camera/TimeSampledFloatBuilder.h"

#include <stdexcept>

namespace SYLVAR {

Sylvar3::internal::OvAttribute::FloatAttribute TimeSampledFloatBuilder::build() const {
    using Sylvar3::internal::OvAttribute::FloatAttribute;
    using Sylvar3::internal::OvAttribute::TimedSamples;
    if (samples_.empty()) {
        return FloatAttribute(std::vector<float>(), tupleSize_);
    }
    const std::size_t size = samples_.begin()->second.size();
    for (const auto& [time, values] : samples_) {
        if (values.size() != size) {
            throw std::runtime_error("Error building attribute time samples are different sizes.");
        }
    }
    return FloatAttribute(TimedSamples<float>(samples_.begin(), samples_.end()), tupleSize_);
}

}  // namespace SYLVAR
