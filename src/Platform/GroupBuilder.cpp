// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GroupBuilder.h>

#include <utility>

namespace Sylvar3::internal::OvAttribute {

namespace {

OvGroupBuilderStruct* newBuilder(const OvAttributeSuite& suite, GroupBuilder::Mode mode) {
    OvGroupBuilderStruct* const builder =
        suite.createBuilderWithMode(static_cast<std::int32_t>(mode));
    return builder ? builder : suite.createBuilder();
}

std::int32_t lengthOf(std::string_view name) {
    return static_cast<std::int32_t>(name.size());
}

}  // namespace

GroupBuilder::GroupBuilder(Mode mode) : builder_(newBuilder(*_attrSuite, mode)) {}

GroupBuilder::~GroupBuilder() {
    if (builder_) {
        _attrSuite->releaseBuilder(builder_);
    }
}

GroupBuilder::GroupBuilder(GroupBuilder&& other) noexcept
    : builder_(std::exchange(other.builder_, nullptr)) {}

GroupBuilder& GroupBuilder::operator=(GroupBuilder&& other) noexcept {
    std::swap(builder_, other.builder_);
    return *this;
}

GroupBuilder& GroupBuilder::set(std::string_view name, const Attribute& child) {
    _attrSuite->setInBuilder(builder_, name.data(), lengthOf(name), child.handle(), 1);
    return *this;
}

GroupBuilder& GroupBuilder::update(const GroupAttribute& group) {
    if (group) {
        _attrSuite->updateBuilder(builder_, group.handle());
    }
    return *this;
}

GroupBuilder& GroupBuilder::remove(std::string_view name) {
    _attrSuite->removeFromBuilder(builder_, name.data(), lengthOf(name));
    return *this;
}

GroupBuilder& GroupBuilder::setGroupInherit(bool groupInherit) {
    _attrSuite->setBuilderGroupInherit(builder_, groupInherit ? 1 : 0);
    return *this;
}

GroupAttribute GroupBuilder::build() {
    return castAttribute<GroupAttribute>(_attrSuite->buildBuilder(builder_, 0));
}

}  // namespace Sylvar3::internal::OvAttribute
