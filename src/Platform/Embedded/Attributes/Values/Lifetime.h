// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/Value.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Adds a reference to a value that the caller holds, or that what he holds keeps alive. One
/// atomic operation, and a second one only when nothing of the value's page was held.
inline void retain(Value& value) {
    Owner& owner = ownerOf(value);
    if (owner.count.fetch_add(1, std::memory_order_relaxed) == 0) {
        owner.block->retain();
    }
}

inline Value* retained(Value* value) {
    if (value) {
        retain(*value);
    }
    return value;
}

/// For a value whose owner has lost its last reference: ends it, and all that this sets free. A
/// loop, however deep the groups.
void end(Value& value) noexcept;

/// Drops a reference; true when it was the owner's last one. The one reference to a standalone
/// value is shared with nobody, and need not be written; to a page, others may add theirs
/// meanwhile.
inline bool dropIsLast(Value& value) {
    Owner& owner = ownerOf(value);
    if (!owner.block && owner.count.load(std::memory_order_acquire) == 1) {
        return true;
    }
    return owner.count.fetch_sub(1, std::memory_order_acq_rel) == 1;
}

/// Drops a reference, and ends the value with the last one.
inline void release(Value& value) {
    if (dropIsLast(value)) {
        end(value);
    }
}

/// Memory for one standalone value of `bytes` with `before` bytes in front of it; throws
/// `std::bad_alloc`. It is born with one reference.
void* allocateStandalone(std::size_t before, std::size_t bytes, std::uint32_t& toOwner);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
