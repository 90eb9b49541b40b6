// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Forms/TextOutput.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Lays the items of a list out in lines of about 100 columns, which break between tuples where
/// tuples are short. Used over and over; keeps its memory. Belongs to one thread.
class ListLayout {
public:
    static constexpr std::size_t kLongestLine = 100;

    /// Between two items stand `comma` and a space, or `comma` and a new line at `depth`.
    ListLayout(TextOutput& output, std::string_view comma) : output_(output), comma_(comma) {}

    void begin(std::size_t tupleSize, std::size_t depth);

    /// Where to write the next item: append to it, then call `endItem`.
    std::string& beginItem();
    void endItem();

    void end();

private:
    static constexpr std::size_t kLongestUnit = 16;

    void passOn();

    TextOutput& output_;
    const std::string_view comma_;
    std::string unit_;  ///< A tuple in the making.
    std::size_t unitSize_ = 1;
    std::size_t inUnit_ = 0;
    std::size_t depth_ = 0;
    bool isFirst_ = true;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
