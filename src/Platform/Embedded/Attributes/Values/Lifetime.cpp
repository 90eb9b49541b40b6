// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/Lifetime.h"

#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/Shape.h"

#include <new>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// Standalone values that have lost their last reference and wait for their end. They are chained
/// through their own memory, so that ending the deepest tree needs neither stack nor allocation.
class Graveyard {
public:
    void bury(Value& value) {
        Owner& owner = ownerOf(value);
        if (owner.block) {
            owner.block->release();
        } else {
            owner.nextDead = next_;
            next_ = &value;
        }
    }

    void clear() {
        while (next_) {
            Value& value = *next_;
            Owner& owner = ownerOf(value);
            next_ = owner.nextDead;
            if (value.kind == OV_ATTRIBUTE_GROUP) {
                letGo(static_cast<GroupValue&>(value));
            }
            ::operator delete(&owner);
        }
    }

private:
    void letGo(const GroupValue& group) {
        for (Value* const child : group) {
            if (child && dropIsLast(*child)) {
                bury(*child);
            }
        }
        group.shape->release();
    }

    Value* next_ = nullptr;
};

}  // namespace

void end(Value& value) noexcept {
    Graveyard graveyard;
    graveyard.bury(value);
    graveyard.clear();
}

void* allocateStandalone(std::size_t before, std::size_t bytes, std::uint32_t& toOwner) {
    void* const memory = ::operator new(sizeof(Owner) + before + bytes);
    Owner* const owner = new (memory) Owner{{1}, {nullptr}};
    toOwner = static_cast<std::uint32_t>((sizeof(Owner) + before) / 8);
    return reinterpret_cast<char*>(owner + 1) + before;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
