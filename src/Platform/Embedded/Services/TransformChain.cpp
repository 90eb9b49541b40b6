// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/TransformChain.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::DataValue;
using OvAttribute::Embedded::GroupValue;
using OvAttribute::Embedded::isDataKind;
using OvAttribute::Embedded::Value;

namespace {

bool readNumber(std::string_view name, std::uint64_t& number) {
    if (name.empty() || name[0] != 'i') {
        return false;
    }
    const char* const end = name.data() + name.size();
    const auto [last, fault] = std::from_chars(name.data() + 1, end, number);
    return fault == std::errc() && last == end;
}

/// Null when the value is anything else.
const DataValue* asNumbers(const Value* value) {
    return value && isDataKind(value->kind) && value->kind != OV_ATTRIBUTE_STRING
               ? static_cast<const DataValue*>(value)
               : nullptr;
}

bool hasTime(const DataValue& values) {
    const float* const times = values.times();
    return std::any_of(
        times, times + values.sampleCount, [](float time) { return !std::isnan(time); });
}

void visitLocation(const GroupValue& transform, TransformVisitor& visitor) {
    for (std::int64_t i = 0, count = transform.size(); i < count; ++i) {
        const auto* const operation = TransformOperation::find(transform.shape->name(i));
        const DataValue* const values = operation ? asNumbers(transform[i]) : nullptr;
        if (!values) {
            continue;
        }
        if (operation->isOrigin()) {
            visitor.origin();
        } else if (values->valueCount >= operation->valueCount && hasTime(*values)) {
            visitor.transform(*operation, *values);
        }
    }
}

}  // namespace

TransformChain::TransformChain(const OvAttribute::GroupAttribute& transforms) {
    const GroupValue* const group = asGroup(transforms.handle());
    std::uint64_t number = 0;
    for (std::int64_t i = 0, count = group ? group->size() : 0; i < count; ++i) {
        const GroupValue* const transform = asGroup((*group)[i]);
        if (transform && readNumber(group->shape->name(i), number)) {
            levels_.emplace_back(number, transform);
        }
    }
    const auto isAbove = [](const Level& a, const Level& b) { return a.first < b.first; };
    if (!std::is_sorted(levels_.begin(), levels_.end(), isAbove)) {
        std::stable_sort(levels_.begin(), levels_.end(), isAbove);
    }
}

void TransformChain::visit(TransformVisitor& visitor) const {
    for (const auto& [number, transform] : levels_) {
        visitLocation(*transform, visitor);
    }
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
