// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include <iterator>

namespace SYLVAR {
namespace {

using Samples = std::set<float>;

/// The last sample at or before the time, when `from` is before it; otherwise `from`.
Samples::const_iterator leftBracket(const Samples& samples,
                                    Samples::const_iterator from,
                                    float shutterOpen) {
    while (*from < shutterOpen) {
        const auto next = std::next(from);
        if (next == samples.end() || *next > shutterOpen) {
            break;
        }
        from = next;
    }
    return from;
}

}  // namespace

void FindSampleTimesRelevantToShutterRange(const std::set<float>& samples,
                                           float shutterOpen,
                                           float shutterClose,
                                           std::vector<float>& result) {
    constexpr float kNoTime = -9999.0F;
    result.clear();
    result.reserve(samples.size());
    float previous = kNoTime;
    for (auto at = samples.begin(); at != samples.end(); ++at) {
        at = leftBracket(samples, at, shutterOpen);
        if (*at > shutterClose && previous >= shutterClose) {
            return;
        }
        result.push_back(*at);
        previous = *at;
    }
}

}  // namespace SYLVAR
