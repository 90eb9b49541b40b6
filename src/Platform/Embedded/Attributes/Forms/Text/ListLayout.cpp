// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Text/ListLayout.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

void ListLayout::begin(std::size_t tupleSize, std::size_t depth) {
    unit_.clear();
    unitSize_ = tupleSize <= kLongestUnit ? tupleSize : 1;
    inUnit_ = 0;
    depth_ = depth;
    isFirst_ = true;
}

std::string& ListLayout::beginItem() {
    if (inUnit_ != 0) {
        unit_.append(comma_).push_back(' ');
    }
    return unit_;
}

void ListLayout::endItem() {
    if (++inUnit_ == unitSize_) {
        passOn();
    }
}

void ListLayout::end() {
    if (inUnit_ != 0) {
        passOn();
    }
}

void ListLayout::passOn() {
    if (!isFirst_) {
        output_.write(comma_);
        if (output_.column() + unit_.size() >= kLongestLine) {
            output_.newLine(depth_);
        } else {
            output_.put(' ');
        }
    }
    output_.write(unit_);
    unit_.clear();
    inUnit_ = 0;
    isFirst_ = false;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
