// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Services/TransformOperation.h"

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <utility>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// Is told what takes part in a chain of transforms, from the top down.
class TransformVisitor {
public:
    using DataValue = OvAttribute::Embedded::DataValue;

    /// What came so far is forgotten.
    virtual void origin() = 0;

    /// `values` are numbers, as many as the operation takes, at one time that is a number at least.
    virtual void transform(const TransformOperation& operation, const DataValue& values) = 0;

protected:
    ~TransformVisitor() = default;
};

/// The numbered "xform" groups of a chain of locations. Keeps nothing of what is in them, which can
/// be far more than the memory that it stands in: groups may be shared. Lives on the stack of one
/// call.
class TransformChain {
public:
    /// Borrows `transforms`.
    explicit TransformChain(const OvAttribute::GroupAttribute& transforms);

    /// All that takes part, as `OvXFormUtil` tells.
    void visit(TransformVisitor& visitor) const;

private:
    /// The number of a location, and its "xform".
    using Level = std::pair<std::uint64_t, const OvAttribute::Embedded::GroupValue*>;

    boost::container::small_vector<Level, 24> levels_;
};

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
