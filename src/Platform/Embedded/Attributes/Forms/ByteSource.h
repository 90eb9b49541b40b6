// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <cstddef>
#include <memory>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The bytes of a stream, read through a callback piece by piece, in one buffer that grows.
class ByteSource {
public:
    ByteSource(void* stream, OvReadFunction read) : stream_(stream), read_(read) {}

    /// Reads until `wanted` bytes are there or the stream has ended. Throws `std::bad_alloc`, and
    /// what the callback throws.
    void readUpTo(std::size_t wanted);

    /// Reads to the end.
    void readAll();

    std::string_view bytes() const { return {buffer_.get(), size_}; }

private:
    void grow(std::size_t capacity);
    void readPiece(std::size_t wanted);

    void* stream_;
    OvReadFunction read_;
    std::unique_ptr<char[]> buffer_;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
    bool hasEnded_ = false;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
