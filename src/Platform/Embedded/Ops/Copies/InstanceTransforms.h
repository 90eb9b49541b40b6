// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/NumberList.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <Imath/ImathMatrix.h>
#include <Imath/ImathVec.h>

#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Where instances stand: a matrix for each, or a position with an orientation and a scale.
/// Immutable; any thread.
class InstanceTransforms {
public:
    /// Of the arguments "matrices", or "positions", "orientations" and "scales". Throws `OpError`.
    explicit InstanceTransforms(const Arguments& arguments);

    std::size_t count() const { return count_; }

    /// The matrix of one instance, with a sample for each time.
    LocationWriter::Value* write(std::size_t instance, LocationWriter& out) const;

private:
    void readMatrices(const Arguments& arguments);
    void readParts(const Arguments& arguments);
    NumberList readPart(const Arguments& arguments,
                        const char* name,
                        std::size_t size,
                        std::size_t count);
    Imath::M44d matrixOf(std::size_t instance, std::size_t sample) const;
    Imath::V3d scaleAt(std::size_t sample, std::size_t instance) const;

    std::size_t count_ = 0;
    NumberList matrices_;
    NumberList positions_;
    NumberList orientations_;
    NumberList scales_;
    NumberList times_;  ///< One of them: that with the samples, if any has several.
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
