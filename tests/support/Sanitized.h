// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ovtest {

/// Whether a sanitizer with an allocator of its own is at work: one that ends the process where
/// memory would run out.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif
#else
constexpr bool kIsSanitized = false;
#endif

}  // namespace ovtest
