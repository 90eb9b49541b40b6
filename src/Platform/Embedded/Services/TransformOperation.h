// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Imath/ImathMatrix.h>

#include <string_view>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// What the children of an "xform" group do whose names begin with `prefix`.
struct TransformOperation {
    std::string_view prefix;
    int valueCount;  ///< How many values it takes, `kMostValues` at most.
    Imath::M44d (*matrix)(const double* values);  ///< Null: it forgets what stands before.

    static constexpr int kMostValues = 16;

    bool isOrigin() const { return !matrix; }

    /// The operation of a child of that name; null when it has none.
    static const TransformOperation* find(std::string_view name);
};

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
