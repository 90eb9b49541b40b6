// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/GroupAssembly.h"

#include "Platform/Embedded/Attributes/Values/Lifetime.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

void releaseAny(Value* value) {
    if (value) {
        release(*value);
    }
}

}  // namespace

GroupAssembly::~GroupAssembly() {
    for (Value* const child : children_) {
        releaseAny(child);
    }
}

std::int64_t GroupAssembly::set(std::string_view name, Value* owned) {
    try {
        const std::int64_t place = names_.add(name);
        const auto index = static_cast<std::size_t>(place);
        if (index == children_.size()) {
            children_.push_back(nullptr);
        }
        replace(place, owned);
        return place;
    } catch (...) {
        releaseAny(owned);
        throw;
    }
}

void GroupAssembly::replace(std::int64_t place, Value* owned) {
    releaseAny(std::exchange(children_[static_cast<std::size_t>(place)], owned));
}

void GroupAssembly::update(const GroupValue& group) {
    for (std::int64_t i = 0; i < group.size(); ++i) {
        set(group.shape->name(i), retained(group[i]));
    }
}

void GroupAssembly::remove(std::int64_t place) {
    names_.remove(place);
    const auto child = children_.begin() + place;
    releaseAny(*child);
    children_.erase(child);
}

void GroupAssembly::clear() {
    for (Value* const child : children_) {
        releaseAny(child);
    }
    children_.clear();
    names_.clear();
    inherits = false;
}

GroupValue* GroupAssembly::take() {
    GroupValue* const group = makeBy(newGroupValueTaking);
    children_.clear();  // They are the group's.
    clear();
    return group;
}

GroupValue* GroupAssembly::makeBy(NewGroup newGroup) const {
    const Shape* const shape = Shape::of(names_);
    try {
        GroupValue* const group = newGroup(*shape, children_.data(), inherits);
        shape->release();
        return group;
    } catch (...) {
        shape->release();
        throw;
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
