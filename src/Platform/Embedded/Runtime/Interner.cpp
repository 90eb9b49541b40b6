// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Interner.h"

#include "Platform/Support/OnceBuilt.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using Support::MutexLock;

Interner& Interner::instance() {
    static Support::OnceBuilt<Interner> interner;
    return interner.get();
}

std::shared_ptr<InternedOp> Interner::find(const OvAttribute::Hash& hash) {
    const MutexLock lock(mutex_);
    const auto found = ops_.find(hash);
    return found == ops_.end() ? nullptr : found->second.op.lock();
}

std::shared_ptr<InternedOp> Interner::intern(InternedOp::Parts parts) {
    const OvAttribute::Hash hash = parts.hash;
    auto made = std::make_shared<InternedOp>(std::move(parts));
    const MutexLock lock(mutex_);
    Entry& entry = ops_[hash];
    if (std::shared_ptr<InternedOp> present = entry.op.lock()) {
        return present;
    }
    entry = {made.get(), made};
    return made;
}

std::vector<std::shared_ptr<InternedOp>> Interner::all() {
    std::vector<std::shared_ptr<InternedOp>> ops;
    const MutexLock lock(mutex_);
    ops.reserve(ops_.size());
    for (const auto& [hash, entry] : ops_) {
        if (std::shared_ptr<InternedOp> op = entry.op.lock()) {
            ops.push_back(std::move(op));
        }
    }
    return ops;
}

void Interner::forget(const InternedOp& op) {
    const MutexLock lock(mutex_);
    const auto found = ops_.find(op.hash());
    if (found != ops_.end() && found->second.address == &op) {
        ops_.erase(found);
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
