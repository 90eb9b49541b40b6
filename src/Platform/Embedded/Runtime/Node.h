// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/ChildNames.h"
#include "Platform/Embedded/Runtime/Slot.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {
struct GroupValue;
}

namespace Sylvar3::internal::OvSylvar::Embedded {

class InternedOp;
class StorePage;

/// A location of another path that an op read to make one.
struct ForeignRead {
    InternedOp* op;  ///< Known by its address alone: it may have ended.
    const char* path;
    std::size_t pathLength;

    std::string_view pathView() const { return {path, pathLength}; }
};

/// One location that an op has cooked. It and what it points to lie in a page of the store, or are
/// held by it. Immutable once it is in a slot, but for its own slots and what the store's lock
/// guards.
struct Node {
    OvAttribute::Embedded::GroupValue* location;  ///< "exists", "pc", "attrs".
    const ChildNames* names;                      ///< Never null.
    Slot* slots;                                  ///< One for each child name.
    StorePage* page;
    const ForeignRead* reads;
    std::uint32_t readCount;
    std::uint32_t opType;

    Node* nextInPage;
    union {
        Slot* slot;      ///< Where it is; null when it was dropped. Under the store's lock.
        Node* nextDead;  ///< While it is being dropped.
    };
};

static_assert(sizeof(Node) == 64);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
