// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/InternedOp.h"
#include "Platform/Support/Mutex.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The ops of the process, found by their hash. Holds no reference. Any thread.
class Interner {
public:
    static Interner& instance();

    Interner() = default;
    Interner(const Interner&) = delete;
    Interner& operator=(const Interner&) = delete;

    /// The op of that hash, or null.
    std::shared_ptr<InternedOp> find(const OvAttribute::Hash& hash) OV_EXCLUDES(mutex_);

    /// The op of these parts' hash: a new one, or the one that is there already.
    std::shared_ptr<InternedOp> intern(InternedOp::Parts parts) OV_EXCLUDES(mutex_);

    /// All ops that there are just now, in no special order.
    std::vector<std::shared_ptr<InternedOp>> all() OV_EXCLUDES(mutex_);

    /// For an op that ends.
    void forget(const InternedOp& op) OV_EXCLUDES(mutex_);

private:
    struct Entry {
        const InternedOp* address = nullptr;
        std::weak_ptr<InternedOp> op;
    };

    Support::Mutex mutex_;
    std::unordered_map<OvAttribute::Hash, Entry> ops_ OV_GUARDED_BY(mutex_);
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
