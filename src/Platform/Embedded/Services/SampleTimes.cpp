// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/SampleTimes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

void addSampleTimes(const OvAttribute::Embedded::DataValue& data, SampleTimes& times) {
    const std::size_t known = times.size();
    const auto knownEnd = [&] { return times.begin() + static_cast<std::ptrdiff_t>(known); };
    for (std::uint32_t sample = 0; sample < data.sampleCount; ++sample) {
        const float neverMinusZero = data.times()[sample] + 0.0F;
        if (!std::isnan(neverMinusZero) &&
            !std::binary_search(times.begin(), knownEnd(), neverMinusZero)) {
            times.push_back(neverMinusZero);
        }
    }
    if (times.size() != known) {
        std::sort(knownEnd(), times.end());
        std::inplace_merge(times.begin(), knownEnd(), times.end());
        times.erase(std::unique(times.begin(), times.end()), times.end());
    }
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
