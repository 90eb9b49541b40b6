// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/NumberList.h"

#include "Platform/Embedded/Attributes/Values/DataValue.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::DataValue;

NumberList::NumberList(OvAttribute::Attribute attribute) : attribute_(std::move(attribute)) {
    if (!attribute_ || !isNumberKind(attribute_.getType())) {
        return;
    }
    const auto& data = static_cast<const DataValue&>(*attribute_.handle());
    if (data.totalValues() > 0) {
        size_ = static_cast<std::size_t>(data.valueCount);
        sampleCount_ = data.sampleCount;
        times_ = data.times();
        values_ = data.values();
    }
}

double NumberList::at(std::size_t sample, std::size_t index) const {
    const std::size_t place = sample * size_ + index;
    switch (attribute_.getType()) {
        case OV_ATTRIBUTE_INT:
            return static_cast<const std::int32_t*>(values_)[place];
        case OV_ATTRIBUTE_FLOAT:
            return static_cast<double>(static_cast<const float*>(values_)[place]);
        default:
            return static_cast<const double*>(values_)[place];
    }
}

OvAttribute::DoubleAttribute NumberList::asDoubles(std::size_t tupleSize) const {
    if (isEmpty()) {
        return {};
    }
    OvAttribute::TimedSamples<double> samples(sampleCount_);
    for (std::size_t sample = 0; sample < sampleCount_; ++sample) {
        samples[sample].first = times_[sample];
        for (std::size_t i = 0; i < size_; ++i) {
            samples[sample].second.push_back(at(sample, i));
        }
    }
    return OvAttribute::DoubleAttribute(samples, static_cast<long>(tupleSize));
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
