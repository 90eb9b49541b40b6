// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

struct Node;
class Session;

/// What an op knows of one location: nothing yet, that it is absent, that a session cooks it now,
/// or its node. A slot of a node that was dropped is gone: nobody finds anything there again.
using Slot = std::atomic<std::uintptr_t>;

namespace SlotValue {

constexpr std::uintptr_t kUnknown = 0;
constexpr std::uintptr_t kAbsent = 1;
constexpr std::uintptr_t kGone = 3;

constexpr std::uintptr_t kCookingTag = 2;
constexpr std::uintptr_t kTagMask = 3;

inline std::uintptr_t of(const Node& node) {
    return reinterpret_cast<std::uintptr_t>(&node);
}
inline std::uintptr_t cookedBy(const Session& session) {
    return reinterpret_cast<std::uintptr_t>(&session) | kCookingTag;
}
inline bool isCooking(std::uintptr_t value) {
    return (value & kTagMask) == kCookingTag;
}
inline Node* nodeOf(std::uintptr_t value) {
    return value != kUnknown && (value & kTagMask) == 0 ? reinterpret_cast<Node*>(value) : nullptr;
}

}  // namespace SlotValue

}  // namespace Sylvar3::internal::OvSylvar::Embedded
