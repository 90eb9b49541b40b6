// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Patterns/PatternTree.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <string>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Dotted names of attributes, each piece of them a pattern for one name, "**" no other than "*".
/// A child of a group takes a few look-ups, whatever the number of patterns, as a name of a path
/// does (`PatternTree`). Immutable; any thread.
class AttributeNamePatterns {
public:
    using GroupValue = LocationWriter::GroupValue;

    /// Throws `OpError`, 'attribute name "a..b": one of its pieces is empty', with the name and
    /// what is wrong with it.
    explicit AttributeNamePatterns(const std::vector<std::string>& names);

    /// The group without the attributes of these names; the very same, not kept, when it has none
    /// of them.
    GroupValue* without(GroupValue& attributes, LocationWriter& out) const;

private:
    PatternTree tree_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
