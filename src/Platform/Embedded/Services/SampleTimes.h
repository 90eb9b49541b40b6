// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include <boost/container/small_vector.hpp>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// Times in ascending order, each once.
using SampleTimes = boost::container::small_vector<float, 8>;

/// Whether a data attribute has a sample at a time that is a number.
bool hasSampleTime(const OvAttribute::Attribute& data);

/// Adds the times of a data attribute's samples that are numbers; -0 as 0. Needs no memory for
/// those that are there already.
void addSampleTimes(const OvAttribute::Attribute& data, SampleTimes& times);

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
