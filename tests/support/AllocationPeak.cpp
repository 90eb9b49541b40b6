// SPDX-License-Identifier: Apache-2.0
#include "support/AllocationPeak.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define OV_TEST_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
#define OV_TEST_SANITIZED 1
#endif
#endif
#ifndef OV_TEST_SANITIZED
#define OV_TEST_SANITIZED 0
#endif

namespace {

std::atomic<std::int64_t> inUse{0};
std::atomic<std::int64_t> peak{0};

}  // namespace

namespace ovtest {

bool isAllocationPeakKnown() {
    return OV_TEST_SANITIZED == 0;
}

std::int64_t allocatedBytes() {
    return inUse.load();
}

std::int64_t allocationPeak() {
    return peak.load();
}

void beginAllocationPeak() {
    peak.store(inUse.load());
}

}  // namespace ovtest

#if !OV_TEST_SANITIZED

// The C library's own functions, which its manual names for this use.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

void* taken(void* memory) {
    const auto bytes = static_cast<std::int64_t>(malloc_usable_size(memory));
    const std::int64_t now = inUse.fetch_add(bytes, std::memory_order_relaxed) + bytes;
    std::int64_t most = peak.load(std::memory_order_relaxed);
    while (now > most && !peak.compare_exchange_weak(most, now, std::memory_order_relaxed)) {
    }
    return memory;
}

void givenBack(void* memory) {
    const auto bytes = static_cast<std::int64_t>(malloc_usable_size(memory));
    inUse.fetch_sub(bytes, std::memory_order_relaxed);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) {
    return taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
    return taken(__libc_calloc(count, size));
}

void* memalign(std::size_t alignment, std::size_t size) {
    return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

/// Counts as a new piece beside the old one: it may have to be moved.
void* realloc(void* memory, std::size_t size) {
    const auto before = static_cast<std::int64_t>(malloc_usable_size(memory));
    void* const moved = taken(__libc_realloc(memory, size));
    if (moved || size == 0) {
        inUse.fetch_sub(before, std::memory_order_relaxed);
    }
    return moved;
}

void free(void* memory) {
    givenBack(memory);
    __libc_free(memory);
}
}

#endif
