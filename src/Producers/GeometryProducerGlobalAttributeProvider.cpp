// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/GeometryProducerGlobalAttributeProvider.h>

#include <utility>

namespace SYLVAR {
namespace {

enum Status : std::int32_t { kSuccess = 0, kNoLocation = 2 };

GeometryProducer* above(GeometryProducer* producer) {
    return producer ? producer->parent.get() : nullptr;
}

}  // namespace

GeometryProducerGlobalAttributeProvider::GeometryProducerGlobalAttributeProvider(
    GeometryProducerPtr head)
    : head_(std::move(head)) {}

GeometryProducerGlobalAttributeProvider::~GeometryProducerGlobalAttributeProvider() = default;

std::int32_t GeometryProducerGlobalAttributeProvider::getGlobalAttrAtDepth(const std::string& name,
                                                                           const std::string&,
                                                                           std::int32_t depth,
                                                                           Attribute* output) {
    const bool startsAgain = depth < cursorDepth_;
    const bool stepsUp = startsAgain ? depth > 0 : depth > cursorDepth_;
    GeometryProducer* const from = startsAgain ? head_.get() : cursor_;
    cursor_ = stepsUp ? above(from) : from;
    cursorDepth_ = depth;
    if (!cursor_) {
        return kNoLocation;
    }
    *output = cursor_->getAttribute(name.c_str());
    return kSuccess;
}

}  // namespace SYLVAR
