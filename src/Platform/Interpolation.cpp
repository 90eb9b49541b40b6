// SPDX-License-Identifier: Apache-2.0
#include "Platform/Interpolation.h"

#include <SylvarPlatform/SampleAccessor.h>

namespace Sylvar3::internal::OvAttribute {

namespace {

using Samples = SampleAccessor<DoubleAttribute>;

/// The samples on both sides of a time, and how far the time lies from the first to the second.
struct Bracket {
    std::int64_t before = -1;
    std::int64_t after = -1;
    double fraction = 0.0;
};

/// Of equal times the one with the smaller index counts. At least one sample must be there.
Bracket bracketOf(const Samples& samples, float time) {
    Bracket found;
    for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples(); ++i) {
        const float at = samples.getSampleTime(i);
        if (at <= time && (found.before < 0 || at > samples.getSampleTime(found.before))) {
            found.before = i;
        }
        if (at >= time && (found.after < 0 || at < samples.getSampleTime(found.after))) {
            found.after = i;
        }
    }
    if (found.before < 0 || found.after < 0) {
        const std::int64_t only = found.before < 0 ? found.after : found.before;
        return {only, only, 0.0};
    }
    found.fraction = fractionBetween(
        samples.getSampleTime(found.before), samples.getSampleTime(found.after), time);
    return found;
}

}  // namespace

void DoubleAttribute::fillInterpSample(double* out,
                                       long count,
                                       float time,
                                       double otherwise,
                                       bool /*reserved*/) const {
    const Samples samples(*this);
    const Bracket around =
        samples.getNumberOfTimeSamples() > 0 ? bracketOf(samples, time) : Bracket{};
    for (long i = 0; i < count; ++i) {
        const bool isThere = around.before >= 0 && i < samples.getNumberOfValues();
        out[i] = isThere ? interpolated(samples.getSample(around.before)[i],
                                        samples.getSample(around.after)[i],
                                        around.fraction)
                         : otherwise;
    }
}

}  // namespace Sylvar3::internal::OvAttribute
