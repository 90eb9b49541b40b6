// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "Platform/Embedded/Runtime/Store.h"
#include "Platform/Support/Mutex.h"

#include <array>
#include <cstdint>
#include <set>
#include <thread>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Session;

/// What all sessions of the process have done. Counted by each for itself, added up when asked for.
/// Any thread.
class Statistics {
public:
    struct OfType {
        std::uint64_t cooks = 0;
        std::uint64_t hits = 0;
        std::uint64_t nanoseconds = 0;
    };
    using Counts = std::array<OfType, kMostOpTypes>;

    static Statistics& instance();

    Statistics() = default;
    Statistics(const Statistics&) = delete;
    Statistics& operator=(const Statistics&) = delete;

    void add(const Session& session) OV_EXCLUDES(mutex_);
    void remove(const Session& session) OV_EXCLUDES(mutex_);
    Counts counts() const OV_EXCLUDES(mutex_);

    /// Whether that thread is within a cook of any session.
    bool isCooking(std::thread::id thread) const OV_EXCLUDES(mutex_);

private:
    static void addTo(Counts& sums, const Session& session);

    mutable Support::Mutex mutex_;
    std::set<const Session*> sessions_ OV_GUARDED_BY(mutex_);
    Counts ended_ OV_GUARDED_BY(mutex_){};
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
