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

/// Whether it is the sanitizer of threads.
#if defined(__SANITIZE_THREAD__)
constexpr bool kIsThreadSanitized = true;
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
constexpr bool kIsThreadSanitized = true;
#else
constexpr bool kIsThreadSanitized = false;
#endif
#else
constexpr bool kIsThreadSanitized = false;
#endif

}  // namespace ovtest
