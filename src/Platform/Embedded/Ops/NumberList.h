// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>

#include <cstddef>
#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

inline bool isNumberKind(std::int32_t kind) {
    return kind == OV_ATTRIBUTE_INT || kind == OV_ATTRIBUTE_FLOAT || kind == OV_ATTRIBUTE_DOUBLE;
}

/// The samples of an attribute of ints, floats or doubles, read as doubles. Keeps the attribute.
/// Immutable; any thread.
class NumberList {
public:
    /// One without numbers.
    NumberList() = default;

    /// Of an attribute of another kind: one without numbers.
    explicit NumberList(OvAttribute::Attribute attribute);

    bool isEmpty() const { return size_ == 0; }

    /// Numbers of one sample.
    std::size_t size() const { return size_; }

    std::size_t sampleCount() const { return sampleCount_; }
    float time(std::size_t sample) const { return times_[sample]; }

    /// One for each sample. Borrowed.
    const float* times() const { return times_; }

    double at(std::size_t sample, std::size_t index) const;

    /// All of it as doubles; null when there are no numbers.
    OvAttribute::DoubleAttribute asDoubles(std::size_t tupleSize) const;

private:
    OvAttribute::Attribute attribute_;
    std::size_t size_ = 0;
    std::size_t sampleCount_ = 0;
    const float* times_ = nullptr;
    const void* values_ = nullptr;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
