// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <cmath>
#include <cstddef>
#include <ostream>
#include <utility>
#include <vector>

namespace ovtest {

using Numbers = std::vector<double>;

/// The samples of an attribute.
using TimedNumbers = Sylvar3::internal::OvAttribute::TimedSamples<double>;

inline Sylvar3::internal::OvAttribute::DoubleAttribute doubles(const Numbers& values) {
    return Sylvar3::internal::OvAttribute::DoubleAttribute(values);
}
inline Sylvar3::internal::OvAttribute::DoubleAttribute timed(const TimedNumbers& samples) {
    return Sylvar3::internal::OvAttribute::DoubleAttribute(samples);
}

/// An "xform" group, or a chain of them.
inline Sylvar3::internal::OvAttribute::GroupAttribute group(
    const std::vector<Sylvar3::internal::OvAttribute::GroupAttribute::Child>& children) {
    return {children, false};
}

/// All samples of a double attribute.
inline TimedNumbers samplesOf(const Sylvar3::internal::OvAttribute::Attribute& attribute) {
    using namespace Sylvar3::internal::OvAttribute;
    const SampleAccessor<DoubleAttribute> samples(attribute);
    TimedNumbers result;
    for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples(); ++i) {
        const double* const values = samples.getSample(i);
        result.emplace_back(samples.getSampleTime(i),
                            Numbers(values, values + samples.getNumberOfValues()));
    }
    return result;
}

}  // namespace ovtest
