// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

class StorePage;

/// Somebody who looks at the nodes of the store, from time to time, without a lock. What was
/// dropped from the store is kept until all who looked at that time have looked away. Looks are
/// short: nobody cooks or waits while he looks.
///
/// Free, then taken by one thread, which looks and looks away in turn, then free again; taking it
/// is the first look.
class alignas(64) Reader {
public:
    Reader() = default;
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// Takes it when it is free. The new owner is looking.
    bool tryTake(const std::atomic<std::uint64_t>& age) {
        std::uint64_t expected = kFree;
        if (state_.load(std::memory_order_relaxed) != kFree ||
            !state_.compare_exchange_strong(
                expected, age.load(std::memory_order_relaxed), std::memory_order_seq_cst)) {
            return false;
        }
        isLooking_ = true;
        return true;
    }
    void giveBack() {
        isLooking_ = false;
        state_.store(kFree, std::memory_order_release);
    }

    /// Begins to look. Returns the present age: what was found at the same age before is still
    /// there, and stays until `lookAway`.
    std::uint64_t look(const std::atomic<std::uint64_t>& age) {
        // In this order, and both in the one order of such operations: whoever drops something
        // raises the age before he looks for readers, so either he sees this reader, or this
        // reader sees the new age and, with it, the empty slot.
        if (!isLooking_) {
            state_.exchange(age.load(std::memory_order_relaxed), std::memory_order_seq_cst);
            isLooking_ = true;
        }
        return age.load(std::memory_order_seq_cst);
    }
    void lookAway() {
        isLooking_ = false;
        state_.store(kAway, std::memory_order_release);
    }

    /// The age since when it looks, or none.
    static constexpr std::uint64_t kNoAge = ~std::uint64_t{0};
    std::uint64_t looksSince() const {
        const std::uint64_t state = state_.load(std::memory_order_seq_cst);
        return state < kFirstAge ? kNoAge : state;
    }

    static constexpr std::uint64_t kFirstAge = 2;

    /// Where it puts what it cooks; null before the first time. Its owner's.
    StorePage* page = nullptr;
    std::size_t nextPageBytes = 0;

private:
    static constexpr std::uint64_t kFree = 0;
    static constexpr std::uint64_t kAway = 1;

    std::atomic<std::uint64_t> state_{kFree};
    bool isLooking_ = false;  ///< Its owner's.
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
