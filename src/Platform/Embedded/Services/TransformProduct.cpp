// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/TransformProduct.h"

#include "Platform/Embedded/Services/SampleCursor.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

using OvAttribute::DoubleAttribute;
using OvAttribute::Embedded::DataShape;
using OvAttribute::Embedded::newDataValue;

namespace {

constexpr std::int64_t kTuple = 16;

}  // namespace

TransformProduct::TransformProduct(SampleTimes times)
    : times_(std::move(times)), matrices_(times_.size()) {}

void TransformProduct::origin() {
    std::fill(matrices_.begin(), matrices_.end(), Imath::M44d());
    isIdentity_ = true;
    isAbsolute_ = true;
}

void TransformProduct::transform(const TransformOperation& operation, const DataValue& values) {
    switch (values.kind) {
        case OV_ATTRIBUTE_INT:
            prepend<std::int32_t>(operation, values);
            break;
        case OV_ATTRIBUTE_FLOAT:
            prepend<float>(operation, values);
            break;
        default:
            prepend<double>(operation, values);
    }
}

/// What comes later acts first. Nothing is multiplied by the identity: infinity times 0 is NaN.
template <class T>
void TransformProduct::prepend(const TransformOperation& operation, const DataValue& values) {
    SampleCursor<T> samples(values);
    double numbers[TransformOperation::kMostValues];
    for (std::size_t i = 0; i < times_.size(); ++i) {
        samples.read(times_[i], numbers, operation.valueCount);
        const Imath::M44d own = operation.matrix(numbers);
        matrices_[i] = isIdentity_ ? own : own * matrices_[i];
    }
    isIdentity_ = false;
}

TransformMatrix TransformProduct::result() const {
    if (isIdentity_ && !isAbsolute_) {
        return {};
    }
    DataShape shape{OV_ATTRIBUTE_DOUBLE, kTuple};
    shape.sampleCount = static_cast<std::int64_t>(times_.size());
    shape.valueCount = kTuple;
    shape.times = times_.data();
    auto* const value = newDataValue(nullptr, shape);
    auto* out = static_cast<double*>(value->values());
    for (const Imath::M44d& matrix : matrices_) {
        out = std::copy_n(matrix.getValue(), kTuple, out);
    }
    return {DoubleAttribute::adopt(value), isAbsolute_};
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
