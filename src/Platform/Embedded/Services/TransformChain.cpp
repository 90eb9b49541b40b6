// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/TransformChain.h"

#include "Platform/Embedded/Services/SampleTimes.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

using OvAttribute::Attribute;
using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;

namespace {

bool readNumber(std::string_view name, std::uint64_t& number) {
    if (name.empty() || name[0] != 'i') {
        return false;
    }
    const char* const end = name.data() + name.size();
    const auto [last, fault] = std::from_chars(name.data() + 1, end, number);
    return fault == std::errc() && last == end;
}

bool isOfNumbers(const Attribute& attribute) {
    const std::int32_t type = attribute.getType();
    return type == OV_ATTRIBUTE_INT || type == OV_ATTRIBUTE_FLOAT || type == OV_ATTRIBUTE_DOUBLE;
}

bool hasValues(const Attribute& data, int count) {
    return Attribute::_attrSuite->getNumberOfValues(data.handle()) >= count;
}

void visitChild(const TransformOperation& operation,
                const Attribute& values,
                TransformVisitor& visitor) {
    if (!isOfNumbers(values)) {
        return;
    }
    if (operation.isOrigin()) {
        visitor.origin();
    } else if (hasValues(values, operation.valueCount) && hasSampleTime(values)) {
        visitor.transform(operation, values);
    }
}

void visitLocation(const GroupAttribute& transform, TransformVisitor& visitor) {
    for (std::int64_t i = 0, count = transform.getNumberOfChildren(); i < count; ++i) {
        const auto* const operation = TransformOperation::find(transform.getChildNameView(i));
        if (operation) {
            visitChild(*operation, transform.getChildByIndex(i), visitor);
        }
    }
}

}  // namespace

TransformChain::TransformChain(const GroupAttribute& transforms) : transforms_(transforms) {
    std::uint64_t number = 0;
    for (std::int64_t i = 0, count = transforms.getNumberOfChildren(); i < count; ++i) {
        if (readNumber(transforms.getChildNameView(i), number)) {
            levels_.emplace_back(number, i);
        }
    }
    std::sort(levels_.begin(), levels_.end());
}

void TransformChain::visit(TransformVisitor& visitor) const {
    for (const auto& [number, place] : levels_) {
        visitLocation(castAttribute<GroupAttribute>(transforms_.getChildByIndex(place)), visitor);
    }
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
