// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Session.h"

#include "Platform/Embedded/Runtime/Statistics.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// Ops end and others come: more ways than this are forgotten, and found again.
constexpr std::size_t kMostCursors = 4096;

}  // namespace

Session::Session() {
    store.add(*this);
    try {
        Statistics::instance().add(*this);
    } catch (...) {
        store.remove(*this);
        throw;
    }
}

Session::~Session() {
    Statistics::instance().remove(*this);
    store.remove(*this);
}

Cursor& Session::cursorOf(const InternedOp& op) {
    if (lastOp_ != &op) {
        if (cursors_.size() >= kMostCursors && cursors_.count(&op) == 0) {
            lastOp_ = nullptr;
            cursors_.clear();
        }
        lastCursor_ = &cursors_[&op];
        lastOp_ = &op;
    }
    return *lastCursor_;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
