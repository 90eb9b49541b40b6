// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/XFormUtil.h>

#include "Platform/Embedded/Services/SampleTimes.h"
#include "Platform/Embedded/Services/TransformChain.h"

#include <Imath/ImathMatrix.h>
#include <boost/container/small_vector.hpp>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// The matrices at some times of a chain of transforms that it visits.
class TransformProduct final : public TransformVisitor {
public:
    explicit TransformProduct(SampleTimes times);

    void origin() override;
    void transform(const TransformOperation& operation, const DataValue& values) override;

    /// Of all that has come so far.
    TransformMatrix result() const;

private:
    template <class T>
    void prepend(const TransformOperation& operation, const DataValue& values);

    SampleTimes times_;
    boost::container::small_vector<Imath::M44d, 4> matrices_;
    bool isIdentity_ = true;  ///< Nothing has come since the beginning or the last origin.
    bool isAbsolute_ = false;
};

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
