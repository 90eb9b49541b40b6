// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <flatbuffers/flatbuffers.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// What is wrong with a file.
struct Malformed {
    std::string what;
};

/// A vector of the file that is consumed from its front.
template <class T>
class Supply {
public:
    Supply(const flatbuffers::Vector<T>* from, const char* name)
        : next_(from ? from->data() : nullptr), left_(from ? from->size() : 0), name_(name) {}

    /// The next `count` items; throws `Malformed` when there are fewer.
    const T* take(std::uint64_t count) {
        if (count > left_) {
            throw Malformed{std::string("its ") + name_ + " end too early"};
        }
        const T* const taken = next_;
        next_ += count;
        left_ -= count;
        return taken;
    }

    void mustBeUsedUp() const {
        if (left_ != 0) {
            throw Malformed{std::string("it holds ") + name_ + " that nothing refers to"};
        }
    }

private:
    const T* next_;
    std::uint64_t left_;
    const char* name_;
};

/// Texts whose lengths and bytes lie in two vectors.
class TextSupply {
public:
    TextSupply(const flatbuffers::Vector<std::uint32_t>* lengths,
               const flatbuffers::Vector<std::uint8_t>* text,
               const char* name)
        : lengths_(lengths, name), text_(text, name) {}

    std::string_view take() {
        const std::uint32_t length = *lengths_.take(1);
        return {reinterpret_cast<const char*>(text_.take(length)), length};
    }

    /// The lengths of the next `count` texts, which stay to be taken.
    const std::uint32_t* lengthsOf(std::uint64_t count) const {
        Supply<std::uint32_t> ahead = lengths_;
        return ahead.take(count);
    }

    /// Throws when fewer than `bytes` of text are left.
    void textMustHold(std::uint64_t bytes) const {
        Supply<std::uint8_t> ahead = text_;
        ahead.take(bytes);
    }

    void mustBeUsedUp() const {
        lengths_.mustBeUsedUp();
        text_.mustBeUsedUp();
    }

private:
    Supply<std::uint32_t> lengths_;
    Supply<std::uint8_t> text_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
