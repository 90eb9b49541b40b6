// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>
#include <SylvarPlatform/XFormUtil.h>

#include <cstdint>
#include <utility>
#include <vector>

/// Transforms in words: `location({{"translate", doubles({1, 2, 3})}})`.
namespace ovtest {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::DoubleAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;
using Sylvar3::internal::OvSylvarServices::TransformMatrix;

using Children = std::vector<GroupAttribute::Child>;
using Numbers = std::vector<double>;
using TimedNumbers = Sylvar3::internal::OvAttribute::TimedSamples<double>;
using Times = std::vector<float>;

inline DoubleAttribute doubles(const Numbers& values) {
    return DoubleAttribute(values);
}
inline DoubleAttribute timed(const TimedNumbers& samples) {
    return DoubleAttribute(samples);
}

/// A translation of which the x at each time is told.
inline DoubleAttribute slide(const std::vector<std::pair<float, double>>& places) {
    TimedNumbers samples;
    for (const auto& [time, x] : places) {
        samples.push_back({time, {x, 0, 0}});
    }
    return timed(samples);
}

/// An "xform" group, or a chain of them.
inline GroupAttribute group(const Children& children) {
    return {children, false};
}

/// A chain of one location, of those children.
inline GroupAttribute location(const Children& children) {
    return group({{"i0", group(children)}});
}

/// All samples of a double attribute.
inline TimedNumbers samplesOf(const Attribute& attribute) {
    const Sylvar3::internal::OvAttribute::SampleAccessor<DoubleAttribute> samples(attribute);
    TimedNumbers result;
    for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples(); ++i) {
        const double* const values = samples.getSample(i);
        result.emplace_back(samples.getSampleTime(i),
                            Numbers(values, values + samples.getNumberOfValues()));
    }
    return result;
}

inline TransformMatrix atTime(const GroupAttribute& chain, float time = 0.0F) {
    return OvXFormUtil::CalcTransformMatrixAtTime(chain, time);
}
inline TransformMatrix atExistingTimes(const GroupAttribute& chain) {
    return OvXFormUtil::CalcTransformMatrixAtExistingTimes(chain);
}

/// The 16 values at a time; none when there is nothing to compute.
inline Numbers matrixOf(const GroupAttribute& chain, float time = 0.0F) {
    const TimedNumbers samples = samplesOf(atTime(chain, time).attribute);
    return samples.empty() ? Numbers() : samples[0].second;
}

inline Times timesOf(const GroupAttribute& chain) {
    Times times;
    for (const auto& [time, values] : samplesOf(atExistingTimes(chain).attribute)) {
        times.push_back(time);
    }
    return times;
}

}  // namespace ovtest
