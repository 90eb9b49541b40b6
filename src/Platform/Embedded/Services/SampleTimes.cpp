// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/SampleTimes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

using OvAttribute::Attribute;

namespace {

std::int64_t countOf(const Attribute& data) {
    return Attribute::_attrSuite->getNumberOfTimeSamples(data.handle());
}

/// The time of a sample, and never -0.
float timeOf(const Attribute& data, std::int64_t sample) {
    return Attribute::_attrSuite->getSampleTime(data.handle(), sample) + 0.0F;
}

}  // namespace

bool hasSampleTime(const Attribute& data) {
    std::int64_t sample = 0;
    const std::int64_t count = countOf(data);
    while (sample < count && std::isnan(timeOf(data, sample))) {
        ++sample;
    }
    return sample < count;
}

void addSampleTimes(const Attribute& data, SampleTimes& times) {
    const std::size_t known = times.size();
    const auto knownEnd = [&] { return times.begin() + static_cast<std::ptrdiff_t>(known); };
    for (std::int64_t sample = 0, count = countOf(data); sample < count; ++sample) {
        const float time = timeOf(data, sample);
        if (!std::isnan(time) && !std::binary_search(times.begin(), knownEnd(), time)) {
            times.push_back(time);
        }
    }
    if (times.size() != known) {
        std::sort(knownEnd(), times.end());
        std::inplace_merge(times.begin(), knownEnd(), times.end());
        times.erase(std::unique(times.begin(), times.end()), times.end());
    }
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
