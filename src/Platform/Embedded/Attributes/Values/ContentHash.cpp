// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/ContentHash.h"

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/Hashing.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <boost/container/small_vector.hpp>

#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

struct DataContent {
    std::uint32_t kind;
    std::uint32_t tupleSize;
    std::uint64_t sampleCount;
    std::int64_t valueCount;
    OvAttributeHash times;
    OvAttributeHash values;
};

struct GroupContent {
    std::uint32_t kind;
    std::uint32_t inherits;
    std::int64_t size;
    OvAttributeHash names;
    OvAttributeHash children;
};

OvAttributeHash digestOfStrings(const DataValue& value) {
    const std::int64_t count = value.totalValues();
    if (count == 0) {
        return digestOf("", 0);
    }
    const std::string_view last = TextRecord::at(value.valuesAs<const char*>()[count - 1]);
    const char* const end = last.data() + last.size() + 1;
    return digestOf(value.records(), static_cast<std::size_t>(end - value.records()));
}

OvAttributeHash hashOfData(const DataValue& value) {
    const DataContent content{value.kind,
                              value.tupleSize,
                              value.sampleCount,
                              value.valueCount,
                              digestOf(value.times(), value.sampleCount * sizeof(float)),
                              value.kind == OV_ATTRIBUTE_STRING
                                  ? digestOfStrings(value)
                                  : digestOf(value.values(), value.valuesBytes())};
    return digestOf(&content, sizeof content);
}

OvAttributeHash hashOf(const DataValue& value) {
    if (!(value.flags & kKeepsHash)) {
        return hashOfData(value);
    }
    auto& slot = *(reinterpret_cast<HashSlot*>(const_cast<DataValue*>(&value)) - 1);
    OvAttributeHash hash{};
    if (!slot.read(hash)) {
        hash = hashOfData(value);
        slot.write(hash);
    }
    return hash;
}

/// Of anything but a group that does not know its hash yet.
OvAttributeHash knownHashOf(const Value* value) {
    OvAttributeHash hash{};
    if (!value) {
        return hash;
    }
    if (value->kind != OV_ATTRIBUTE_GROUP) {
        return hashOf(static_cast<const DataValue&>(*value));
    }
    static_cast<const GroupValue*>(value)->hash.read(hash);
    return hash;
}

bool isKnown(const Value* value) {
    OvAttributeHash hash{};
    return !value || value->kind != OV_ATTRIBUTE_GROUP ||
           static_cast<const GroupValue*>(value)->hash.read(hash);
}

/// Hashes a group whose children are known.
void hashGroup(GroupValue& group) {
    boost::container::small_vector<OvAttributeHash, 32> children;
    children.reserve(static_cast<std::size_t>(group.size()));
    for (const Value* const child : group) {
        children.push_back(knownHashOf(child));
    }
    const GroupContent content{OV_ATTRIBUTE_GROUP,
                               group.inherits() ? 1U : 0U,
                               group.size(),
                               group.shape->digest(),
                               digestOf(children.data(), children.size() * sizeof children[0])};
    group.hash.write(digestOf(&content, sizeof content));
}

/// A group on the way down, and the first of its children that may be unknown.
struct Step {
    GroupValue* group;
    Value* const* next;
};

void hashTree(GroupValue& top) {
    std::vector<Step> way{{&top, top.begin()}};
    while (!way.empty()) {
        Step& step = way.back();
        while (step.next != step.group->end() && isKnown(*step.next)) {
            ++step.next;
        }
        if (step.next == step.group->end()) {
            hashGroup(*step.group);
            way.pop_back();
        } else {
            GroupValue* const child = asGroup(*step.next++);
            way.push_back({child, child->begin()});
        }
    }
}

}  // namespace

OvAttributeHash contentHashOf(const Value* value) {
    if (!isKnown(value)) {
        hashTree(static_cast<GroupValue&>(*const_cast<Value*>(value)));
    }
    return knownHashOf(value);
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
