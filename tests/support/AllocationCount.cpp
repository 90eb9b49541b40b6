// SPDX-License-Identifier: Apache-2.0
#include "support/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::int64_t allocations = 0;

}  // namespace

namespace ovtest {

std::int64_t allocationsOfThisThread() {
    return allocations;
}

}  // namespace ovtest

void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    ++allocations;
    return std::malloc(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
