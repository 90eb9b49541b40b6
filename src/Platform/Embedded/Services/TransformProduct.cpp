// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/TransformProduct.h"

#include "Platform/Embedded/Services/SampleCursor.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

using OvAttribute::Attribute;
using OvAttribute::DoubleAttribute;
using OvAttribute::FloatAttribute;
using OvAttribute::IntAttribute;

TransformProduct::TransformProduct(SampleTimes times)
    : times_(std::move(times)), matrices_(times_.size(), kIdentity) {}

void TransformProduct::origin() {
    std::fill(matrices_.begin(), matrices_.end(), kIdentity);
    isIdentity_ = true;
    isAbsolute_ = true;
}

void TransformProduct::transform(const TransformOperation& operation, const Attribute& values) {
    switch (values.getType()) {
        case OV_ATTRIBUTE_INT:
            prepend<IntAttribute>(operation, values);
            break;
        case OV_ATTRIBUTE_FLOAT:
            prepend<FloatAttribute>(operation, values);
            break;
        default:
            prepend<DoubleAttribute>(operation, values);
    }
}

/// What comes later acts first. Nothing is multiplied by the identity: infinity times 0 is NaN.
template <class DataAttributeType>
void TransformProduct::prepend(const TransformOperation& operation, const Attribute& values) {
    SampleCursor<DataAttributeType> samples(values);
    double numbers[TransformOperation::kMostValues];
    for (std::size_t i = 0; i < times_.size(); ++i) {
        samples.read(times_[i], numbers, operation.valueCount);
        const Matrix4 own = operation.matrix(numbers);
        matrices_[i] = isIdentity_ ? own : product(own, matrices_[i]);
    }
    isIdentity_ = false;
}

TransformMatrix TransformProduct::result() const {
    if (isIdentity_ && !isAbsolute_) {
        return {};
    }
    boost::container::small_vector<const double*, 8> samples;
    for (const Matrix4& matrix : matrices_) {
        samples.push_back(matrix.data());
    }
    return {DoubleAttribute::adopt(Attribute::_attrSuite->createDoubleFromSamples(
                times_.data(),
                static_cast<std::int64_t>(times_.size()),
                samples.data(),
                kIdentity.size(),
                kIdentity.size(),
                nullptr,
                nullptr)),
            isAbsolute_};
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
