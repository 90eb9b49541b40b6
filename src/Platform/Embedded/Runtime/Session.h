// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Cursor.h"
#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "Platform/Embedded/Runtime/Reader.h"
#include "Platform/Embedded/Runtime/Store.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <thread>
#include <unordered_map>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What one thread needs to cook: its place in the store, its way through each op, and its counts.
/// A client has some, and lends one to each thread that asks it for a location.
class Session : public Reader {
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Cursor& cursorOf(const InternedOp& op);

    /// Counted by one thread at a time, read by any.
    struct Counts {
        std::atomic<std::uint64_t> cooks{0};
        std::atomic<std::uint64_t> hits{0};
        std::atomic<std::uint64_t> nanoseconds{0};  ///< Of its own, without the inputs' cooks.

        static void raise(std::atomic<std::uint64_t>& count, std::uint64_t by) {
            count.store(count.load(std::memory_order_relaxed) + by, std::memory_order_relaxed);
        }
    };

    Store& store = Store::instance();
    std::array<Counts, kMostOpTypes> counts;

    /// @name Of the thread that has taken it
    /// @{
    std::uint32_t depth = 0;             ///< How many cooks are under way, one in another.
    std::uint64_t inputNanoseconds = 0;  ///< Spent in cooks that ended.
    std::atomic<std::thread::id> cookingThread{};  ///< While a cook is under way.
    std::atomic<std::uint64_t> finishedCooks{0};   ///< Of those that were no other cook's input.
    /// @}

private:
    const InternedOp* lastOp_ = nullptr;
    Cursor* lastCursor_ = nullptr;
    std::unordered_map<const InternedOp*, Cursor> cursors_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
