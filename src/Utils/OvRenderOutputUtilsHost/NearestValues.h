// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SampleAccessor.h>

#include <vector>

namespace SYLVAR {

/// Copies of the values of the sample nearest time 0; none where there are no samples.
template <class Value, class DataAttributeType>
std::vector<Value> nearestValues(const DataAttributeType& attribute) {
    using Sylvar3::internal::OvAttribute::SampleAccessor;
    const SampleAccessor<DataAttributeType> samples(attribute, 0.0F);
    return std::vector<Value>(samples.begin(), samples.end());
}

}  // namespace SYLVAR
