// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/Lifetime.h"

#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/Shape.h"

#include <new>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Standalone values and blocks that have lost their last reference and wait for their end. They
/// are chained through their own memory, so that ending the deepest tree needs neither stack nor
/// allocation.
class Graveyard {
public:
    void bury(Value& value) {
        Owner& owner = ownerOf(value);
        if (!owner.block) {
            owner.nextDead = nextValue_;
            nextValue_ = &value;
        } else if (owner.block->dropIsLast()) {
            bury(*owner.block);
        }
    }

    void bury(Block& block) {
        block.nextDead_ = nextBlock_;
        nextBlock_ = &block;
    }

    void clear() {
        while (nextValue_ || nextBlock_) {
            nextValue_ ? endNextValue() : endNextBlock();
        }
    }

private:
    void endNextValue() {
        Value& value = *nextValue_;
        Owner& owner = ownerOf(value);
        nextValue_ = owner.nextDead;
        if (value.kind == OV_ATTRIBUTE_GROUP) {
            letGo(static_cast<GroupValue&>(value));
        }
        ::operator delete(&owner);
    }

    void endNextBlock() {
        Block& block = *nextBlock_;
        nextBlock_ = block.nextDead_;
        block.beforeEnd();
        for (Value* const held : block.heldValues_) {
            letGo(held);
        }
        delete &block;
    }

    void letGo(const GroupValue& group) {
        for (Value* const child : group) {
            letGo(child);
        }
        group.shape->release();
    }

    void letGo(Value* value) {
        if (value && dropIsLast(*value)) {
            bury(*value);
        }
    }

    Value* nextValue_ = nullptr;
    Block* nextBlock_ = nullptr;
};

void Block::end(Block& block) noexcept {
    Graveyard graveyard;
    graveyard.bury(block);
    graveyard.clear();
}

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
