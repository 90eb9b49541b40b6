// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/SceneLocation.h"
#include "Scene/VisitLimit.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace ovscene {

/// A location that was asked for by its path, and that path without the location's own name.
struct FoundLocation {
    SceneLocationPtr location;
    std::string parentPath;
};

/// The location at a full path such as /root/world/geo. A step is the name of a child, decoded or
/// encoded; one slash at the end is left out of account. Throws NotFound, with the nearest location
/// that is there.
FoundLocation findLocation(const SceneLocationPtr& top,
                           const std::string& path,
                           const std::string& filename);

/// All locations from one down, each before its children, with a stack of its own. It is one step
/// ahead of itself: the next sibling of a location is there before its children are.
///
///     for (SceneWalk walk(top, "", limit); !walk.atEnd(); walk.next()) { ... }
class SceneWalk {
public:
    static constexpr std::size_t kNoDepth = std::numeric_limits<std::size_t>::max();

    /// `parentPath` stands in front of the paths that `path` gives. Nothing deeper than
    /// `deepest` is visited; the first location has depth 0.
    SceneWalk(SceneLocationPtr first,
              std::string parentPath,
              VisitLimit& limit,
              std::size_t deepest = kNoDepth);

    bool atEnd() const { return stack_.empty(); }
    void next();

    const SceneLocation& location() const { return *stack_.back().location; }
    std::size_t depth() const { return stack_.size() - 1; }

    /// Whether the location of that depth on the way here is the last of its siblings.
    bool isLastSibling(std::size_t depth) const { return !stack_[depth].next; }

    /// The full path; a name with a slash in it stands there encoded.
    std::string path() const;

private:
    struct Level {
        SceneLocationPtr location;
        SceneLocationPtr next;  ///< The sibling to visit afterwards; null for none.
    };

    std::string parentPath_;
    VisitLimit& limit_;
    std::size_t deepest_;
    std::vector<Level> stack_;
};

}  // namespace ovscene
