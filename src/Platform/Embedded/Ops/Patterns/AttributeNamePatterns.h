// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Patterns/NamePattern.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <string>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Dotted names of attributes, each piece of them a pattern for one name. Immutable; any thread.
class AttributeNamePatterns {
public:
    using GroupValue = LocationWriter::GroupValue;

    /// Throws `OpError` with the name and what is wrong with it.
    explicit AttributeNamePatterns(const std::vector<std::string>& names);

    /// The group without the attributes of these names; the very same, not kept, when it has none
    /// of them.
    GroupValue* without(GroupValue& attributes, LocationWriter& out) const;

    /// One of these patterns.
    using Piece = std::vector<NamePattern>;

private:
    std::vector<std::vector<Piece>> names_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
