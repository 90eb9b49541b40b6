// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace Sylvar3::internal::Support {

/// What tells the calling thread from all others that live: cheaper than to ask the system. A
/// thread that starts may get what one that has ended had.
inline const void* thisThread() noexcept {
    [[gnu::tls_model("initial-exec")]] static thread_local char mark = 0;
    return &mark;
}

}  // namespace Sylvar3::internal::Support
