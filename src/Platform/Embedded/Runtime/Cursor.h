// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Node.h"
#include "Platform/Embedded/Runtime/Slot.h"

#include <boost/container/small_vector.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

class InternedOp;

/// The way to the location of one op that was asked for last, so that the next one, a sibling or a
/// child most often, is one step away. Only good while its reader looks, and at the age at which it
/// was walked.
class Cursor {
public:
    /// Where a walk ended.
    struct Place {
        Slot* slot = nullptr;        ///< Of the first location that is no node; null: not listed.
        std::uintptr_t value = 0;    ///< What was in the slot.
        Node* node = nullptr;        ///< The location itself, when it is there.
        Node* parent = nullptr;      ///< Whose slot it is; null for the op's own.
        std::size_t pathLength = 0;  ///< Of the location of the slot.
    };

    /// Walks as far towards a path as there are nodes. The path is "" or begins with "/".
    Place walk(InternedOp& op, std::uint64_t age, std::string_view path);

    /// Marks the nodes on the way as used of late.
    void touch() const;

private:
    struct Step {
        Node* node;
        std::uint32_t pathLength;
        std::uint32_t place;  ///< Among the children of the step before.
    };

    std::uint32_t goBack(std::string_view path);

    boost::container::small_vector<Step, 8> steps_;
    std::string path_;
    std::uint64_t age_ = 0;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
