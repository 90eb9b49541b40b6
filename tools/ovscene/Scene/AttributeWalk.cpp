// SPDX-License-Identifier: Apache-2.0
#include "Scene/AttributeWalk.h"

#include <utility>

namespace ovscene {

AttributeWalk::AttributeWalk(Attribute first, VisitLimit& limit)
    : limit_(limit), attribute_(std::move(first)) {
    limit_.count();
}

void AttributeWalk::next() {
    enter();
    while (!stack_.empty() &&
           stack_.back().nextChild == stack_.back().group.getNumberOfChildren()) {
        stack_.pop_back();
    }
    atEnd_ = stack_.empty();
    if (!atEnd_) {
        limit_.count();
        attribute_ = stack_.back().group.getChildByIndex(stack_.back().nextChild++);
    }
}

void AttributeWalk::enter() {
    auto group = Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(attribute_);
    if (group) {
        stack_.push_back({std::move(group)});
    }
}

std::string_view AttributeWalk::name() const {
    return stack_.empty() ? std::string_view()
                          : stack_.back().group.getChildNameView(stack_.back().nextChild - 1);
}

std::string AttributeWalk::dottedName() const {
    std::string name;
    for (const Level& level : stack_) {
        name.append(name.empty() ? "" : ".")
            .append(level.group.getChildNameView(level.nextChild - 1));
    }
    return name;
}

}  // namespace ovscene
