// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/ByteSource.h"

#include <algorithm>
#include <cstring>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr std::size_t kFirstPiece = 4096;

}  // namespace

void ByteSource::readUpTo(std::size_t wanted) {
    grow(wanted);
    while (!hasEnded_ && size_ < wanted) {
        readPiece(wanted - size_);
    }
}

void ByteSource::readAll() {
    while (!hasEnded_) {
        if (size_ == capacity_) {
            grow(std::max(kFirstPiece, capacity_ * 2));
        }
        readPiece(capacity_ - size_);
    }
}

void ByteSource::grow(std::size_t capacity) {
    if (capacity <= capacity_) {
        return;
    }
    std::unique_ptr<char[]> larger(new char[capacity]);
    if (size_ != 0) {
        std::memcpy(larger.get(), buffer_.get(), size_);
    }
    buffer_ = std::move(larger);
    capacity_ = capacity;
}

/// A count that is short, or that no reader could have delivered, ends the stream.
void ByteSource::readPiece(std::size_t wanted) {
    const long delivered = read_(stream_, buffer_.get() + size_, static_cast<long>(wanted));
    const bool isPossible = delivered > 0 && static_cast<std::size_t>(delivered) <= wanted;
    size_ += isPossible ? static_cast<std::size_t>(delivered) : 0;
    hasEnded_ = !isPossible || static_cast<std::size_t>(delivered) < wanted;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
