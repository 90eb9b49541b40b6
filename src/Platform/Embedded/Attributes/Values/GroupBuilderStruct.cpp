// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/GroupBuilderStruct.h"

#include "Platform/Embedded/Attributes/Values/Lifetime.h"

#include <algorithm>

using Sylvar3::internal::OvAttribute::Embedded::asGroup;
using Sylvar3::internal::OvAttribute::Embedded::NameList;
using Sylvar3::internal::OvAttribute::Embedded::retained;

void OvGroupBuilderStruct::set(std::string_view name, Value* owned) {
    Node& node = *nodeFor(name, Missing::Make);
    setIn(node, name, owned);
}

void OvGroupBuilderStruct::setIn(Node& node, std::string_view name, Value* owned) {
    const auto place = static_cast<std::size_t>(node.children.set(name, owned));
    if (place < node.nested.size()) {
        node.nested[place] = nullptr;
    }
}

void OvGroupBuilderStruct::remove(std::string_view name) {
    Node* const node = nodeFor(name, Missing::Stop);
    const std::int64_t place = node ? node->children.find(name) : NameList::kNone;
    if (place == NameList::kNone) {
        return;
    }
    node->children.remove(place);
    if (static_cast<std::size_t>(place) < node->nested.size()) {
        node->nested.erase(node->nested.begin() + place);
    }
}

void OvGroupBuilderStruct::update(const GroupValue& group) {
    for (std::int64_t i = 0; i < group.size(); ++i) {
        setIn(top_, group.shape->name(i), retained(group[i]));
    }
}

OvGroupBuilderStruct::Value* OvGroupBuilderStruct::build() {
    finish();
    return top_.children.make();
}

OvGroupBuilderStruct::Value* OvGroupBuilderStruct::take() {
    finish();
    return top_.children.take();
}

void OvGroupBuilderStruct::finish() {
    for (auto node = nodes_.rbegin(); node != nodes_.rend(); ++node) {
        finishNested(**node);
    }
    finishNested(top_);
    nodes_.clear();
}

OvGroupBuilderStruct::Node* OvGroupBuilderStruct::nodeFor(std::string_view& name, Missing missing) {
    Node* node = &top_;
    for (std::size_t dot = name.find('.'); isNested_ && node && dot != std::string_view::npos;
         dot = name.find('.')) {
        node = nestedIn(*node, name.substr(0, dot), missing);
        name.remove_prefix(dot + 1);
    }
    return node;
}

OvGroupBuilderStruct::Node* OvGroupBuilderStruct::nestedIn(Node& node,
                                                           std::string_view name,
                                                           Missing missing) {
    const std::int64_t place = node.children.find(name);
    const auto index = static_cast<std::size_t>(place);
    if (place >= 0 && index < node.nested.size() && node.nested[index]) {
        return node.nested[index];
    }
    GroupValue* const old = place < 0 ? nullptr : asGroup(node.children[place]);
    return old || missing == Missing::Make ? &openNested(node, name, old) : nullptr;
}

/// A new node for a child of `node`, with the children that it has so far.
OvGroupBuilderStruct::Node& OvGroupBuilderStruct::openNested(Node& node,
                                                             std::string_view name,
                                                             const GroupValue* old) {
    Node& nested = *nodes_.emplace_back(std::make_unique<Node>());
    if (old) {
        nested.children.inherits = old->inherits();
        nested.children.update(*old);
    }
    const auto place = static_cast<std::size_t>(node.children.set(name, nullptr));
    node.nested.resize(std::max(node.nested.size(), place + 1));
    node.nested[place] = &nested;
    return nested;
}

/// Puts the groups in place that are made further behind, which are finished themselves.
void OvGroupBuilderStruct::finishNested(Node& node) {
    for (std::size_t place = 0; place < node.nested.size(); ++place) {
        if (Node* const nested = node.nested[place]) {
            node.children.replace(static_cast<std::int64_t>(place), nested->children.take());
            node.nested[place] = nullptr;
        }
    }
    node.nested.clear();
}
