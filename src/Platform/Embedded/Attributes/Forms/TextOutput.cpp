// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/TextOutput.h"

#include <algorithm>
#include <cstring>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr std::size_t kDeepestIndent = 32;

}  // namespace

TextOutput::TextOutput(void* stream, OvWriteFunction take)
    : stream_(stream), take_(take), bytes_(new char[kRoom]) {}

void TextOutput::write(std::string_view text) {
    while (!text.empty()) {
        if (size_ == kRoom) {
            passOn();
        }
        const std::size_t count = std::min(text.size(), kRoom - size_);
        std::memcpy(bytes_.get() + size_, text.data(), count);
        size_ += count;
        text.remove_prefix(count);
    }
}

void TextOutput::newLine(std::size_t depth) {
    put('\n');
    lineBegin_ = length();
    for (std::size_t i = std::min(depth, kDeepestIndent); i != 0; --i) {
        write("  ");
    }
}

bool TextOutput::finish() {
    passOn();
    return !isStopped_;
}

void TextOutput::passOn() {
    if (size_ != 0 && !isStopped_) {
        isStopped_ = take_(stream_, bytes_.get(), static_cast<long>(size_)) == 0;
    }
    passedOn_ += size_;
    size_ = 0;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
