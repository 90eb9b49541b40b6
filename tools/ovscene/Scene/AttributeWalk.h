// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Scene/VisitLimit.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ovscene {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;

/// An attribute and all that is nested in it, a group before its children, with a stack of its
/// own.
///
///     for (AttributeWalk walk(attribute, limit); !walk.atEnd(); walk.next()) { ... }
class AttributeWalk {
public:
    AttributeWalk(Attribute first, VisitLimit& limit);

    bool atEnd() const { return atEnd_; }
    void next();

    /// Null for a null child.
    const Attribute& attribute() const { return attribute_; }

    /// The first attribute has depth 0 and the empty name.
    std::size_t depth() const { return stack_.size(); }
    std::string_view name() const;

    /// The names from the first attribute down, with dots between them.
    std::string dottedName() const;

private:
    struct Level {
        GroupAttribute group;
        std::int64_t nextChild = 0;
    };

    void enter();

    VisitLimit& limit_;
    Attribute attribute_;
    std::vector<Level> stack_;  ///< The groups that the attribute is in.
    bool atEnd_ = false;
};

}  // namespace ovscene
