// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <cstddef>
#include <memory>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// A text on its way out, in pieces of 64 KiB. Once the other side has stopped it, what is written
/// goes nowhere. Belongs to one thread.
class TextOutput {
public:
    TextOutput(void* stream, OvWriteFunction take);

    void put(char c) {
        if (size_ == kRoom) {
            passOn();
        }
        bytes_[size_++] = c;
    }
    void write(std::string_view text);

    /// Ends the line and indents the next one by 2 for each level, up to 32 levels.
    void newLine(std::size_t depth);

    /// How many bytes the line has, and the whole text.
    std::size_t column() const { return length() - lineBegin_; }
    std::size_t length() const { return passedOn_ + size_; }

    bool isStopped() const { return isStopped_; }

    /// Passes on what is left; false when the other side has stopped it.
    bool finish();

private:
    static constexpr std::size_t kRoom = std::size_t{64} * 1024;

    void passOn();

    void* const stream_;
    const OvWriteFunction take_;
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
    std::size_t passedOn_ = 0;
    std::size_t lineBegin_ = 0;
    bool isStopped_ = false;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
