// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <atomic>
#include <cstddef>
#include <cstdint>

/// Every value begins with this header; a handle is its address. What follows is told in
/// `DataValue.h` and `GroupValue.h`. Values lie at multiples of 8 bytes.
struct OvAttributeStruct {
    std::uint8_t kind;   ///< `OV_ATTRIBUTE_INT` and so on.
    std::uint8_t flags;  ///< Of `ValueFlag`.
    std::uint16_t reserved;
    std::uint32_t toOwner;  ///< How far in front of this its owner lies, in units of 8 bytes.
};

namespace Sylvar3::internal::OvAttribute::Embedded {

using Value = OvAttributeStruct;

enum ValueFlag : std::uint8_t {
    kGroupInherit = 0x01,
    kTimed = 0x02,      ///< Sample times are stored; without: one sample at time 0.
    kKeepsHash = 0x04,  ///< A `HashSlot` lies in front of the data value.
};

class Block;

/// Counts the references on the values that share one piece of memory, and lies at its beginning:
/// one standalone value, or the values of one page of a `Block`.
struct Owner {
    std::atomic<std::int64_t> count;
    union {
        Block* block;     ///< The block of a page; null for a standalone value.
        Value* nextDead;  ///< The next in line, while a dead standalone value waits for its end.
    };
};

inline Owner& ownerOf(const Value& value) {
    const char* const at = reinterpret_cast<const char*>(&value);
    return *reinterpret_cast<Owner*>(const_cast<char*>(at - std::ptrdiff_t{value.toOwner} * 8));
}

/// A hash that is computed once and kept. Both words of a hash are non-zero, so each of them shows
/// by itself whether it is there: no order between the two is needed, and all who race to fill the
/// slot write the same.
struct HashSlot {
    std::atomic<std::uint64_t> words[2];

    bool read(OvAttributeHash& hash) const {
        hash.words[0] = words[0].load(std::memory_order_relaxed);
        hash.words[1] = words[1].load(std::memory_order_relaxed);
        return hash.words[0] != 0 && hash.words[1] != 0;
    }
    void write(const OvAttributeHash& hash) {
        words[0].store(hash.words[0], std::memory_order_relaxed);
        words[1].store(hash.words[1], std::memory_order_relaxed);
    }
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
