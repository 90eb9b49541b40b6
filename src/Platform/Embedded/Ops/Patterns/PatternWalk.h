// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Patterns/PatternTree.h"

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The nodes of a pattern tree that a path reaches, each once, name by name. Belongs to one thread.
class PatternWalk {
public:
    /// Begins above the top locations. Borrows the tree.
    explicit PatternWalk(const PatternTree& tree);

    void enter(std::string_view name);

    /// Goes to where `name` leads from where another walk, of the same tree, stands.
    void enterFrom(const PatternWalk& above, std::string_view name);

    /// Nothing is reached here or below.
    bool isOver() const { return reached_.empty(); }
    /// Of the path walked so far.
    Verdict verdict() const;
    bool matches() const { return isMatch(verdict()); }
    bool canMatchBelow() const;

private:
    void reachFrom(std::uint32_t node, std::string_view name);
    void reach(std::uint32_t node);
    bool isNews(std::uint32_t mark);
    void forgetMarks();

    const PatternTree& tree_;
    boost::container::small_vector<std::uint32_t, 32> reached_;
    boost::container::small_vector<std::uint64_t, 16> marked_;  ///< One bit for each mark.
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
