// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/SampleAccessor.h>

#include <cmath>

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
    const double begin = samples.getSampleTime(found.before);
    const double end = samples.getSampleTime(found.after);
    found.fraction =
        end > begin && std::isfinite(end - begin) ? (time - begin) / (end - begin) : 0.0;
    return found;
}

/// Each end has its own share: their difference may be beyond all numbers when they are not.
double between(double a, double b, double fraction) {
    return a == b || fraction == 0.0 ? a : a * (1.0 - fraction) + b * fraction;
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
        out[i] = isThere ? between(samples.getSample(around.before)[i],
                                   samples.getSample(around.after)[i],
                                   around.fraction)
                         : otherwise;
    }
}

}  // namespace Sylvar3::internal::OvAttribute
