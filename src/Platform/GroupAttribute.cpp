// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GroupAttribute.h>

#include <boost/container/small_vector.hpp>

namespace Sylvar3::internal::OvAttribute {

namespace {

/// Allocates nothing for as many children as most groups have.
template <class T>
using ForEachChild = boost::container::small_vector<T, 24>;

}  // namespace

GroupAttribute::GroupAttribute(const std::vector<Child>& children, bool groupInherit) {
    ForEachChild<const char*> names;
    ForEachChild<std::int32_t> lengths;
    ForEachChild<OvAttributeStruct*> handles;
    names.reserve(children.size());
    lengths.reserve(children.size());
    handles.reserve(children.size());
    for (const auto& [name, child] : children) {
        names.push_back(name.data());
        lengths.push_back(static_cast<std::int32_t>(name.size()));
        handles.push_back(child.handle());
    }
    *this = adopt(_attrSuite->createGroupWithLengths(names.data(),
                                                     lengths.data(),
                                                     handles.data(),
                                                     static_cast<std::int64_t>(children.size()),
                                                     groupInherit ? 1 : 0));
}

std::string_view GroupAttribute::getChildNameView(std::int64_t index) const {
    if (!isValid()) {
        return {};
    }
    std::int32_t length = 0;
    const char* const name = _attrSuite->getChildName(handle(), index, &length);
    return length < 1 ? std::string_view()
                      : std::string_view(name, static_cast<std::size_t>(length));
}

void GroupAttribute::fillChildVector(std::vector<Child>* children) const {
    const std::int64_t count = getNumberOfChildren();
    children->reserve(children->size() + static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        children->emplace_back(getChildName(i), getChildByIndex(i));
    }
}

}  // namespace Sylvar3::internal::OvAttribute
