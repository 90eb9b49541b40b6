// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace SYLVAR {

/// The retain and release entries of handles that are counted in a plain `refCount` and begin with
/// 1: one thread at a time has such a handle. Null does nothing.
template <class Handle>
void retainHandle(Handle* handle) noexcept {
    if (handle) {
        ++handle->refCount;
    }
}

template <class Handle>
void releaseHandle(Handle* handle) noexcept {
    if (handle && --handle->refCount <= 0) {
        delete handle;
    }
}

}  // namespace SYLVAR
