// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/DataValue.h"

#include <boost/container/small_vector.hpp>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// Times in ascending order, each once.
using SampleTimes = boost::container::small_vector<float, 8>;

/// Adds the times of a data attribute's samples that are numbers; -0 as 0. Needs no memory for
/// those that are there already.
void addSampleTimes(const OvAttribute::Embedded::DataValue& data, SampleTimes& times);

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
