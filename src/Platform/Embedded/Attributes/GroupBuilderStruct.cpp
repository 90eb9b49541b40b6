// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/GroupBuilderStruct.h"

#include <algorithm>

#include "Platform/Embedded/Attributes/Lifetime.h"

using namespace Sylvar3::internal::OvAttribute::Embedded;

void OvGroupBuilderStruct::set(std::string_view name, Value* owned) {
    Node& node = *nodeFor(name, Missing::Make);
    const auto place = static_cast<std::size_t>(node.children.set(name, owned));
    if (place < node.nested.size()) {
        node.nested[place] = 0;
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
    Node& top = nodes_.front();
    for (std::int64_t i = 0; i < group.size(); ++i) {
        const std::int64_t place = top.children.set(group.shape->name(i), retained(group[i]));
        if (static_cast<std::size_t>(place) < top.nested.size()) {
            top.nested[static_cast<std::size_t>(place)] = 0;
        }
    }
}

OvGroupBuilderStruct::Value* OvGroupBuilderStruct::build() {
    for (std::size_t i = nodes_.size(); i-- > 0;) {
        finishNested(nodes_[i]);
    }
    nodes_.resize(1);
    return nodes_.front().children.make();
}

void OvGroupBuilderStruct::clear() {
    nodes_.resize(1);
    nodes_.front().children.clear();
    nodes_.front().nested.clear();
}

OvGroupBuilderStruct::Node* OvGroupBuilderStruct::nodeFor(std::string_view& name, Missing missing) {
    Node* node = &nodes_.front();
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
    if (place >= 0 && index < node.nested.size() && node.nested[index] != 0) {
        return &nodes_[node.nested[index]];
    }
    GroupValue* const old = place < 0 ? nullptr : asGroup(node.children[place]);
    return old || missing == Missing::Make ? &openNested(node, name, old) : nullptr;
}

/// A new node for a child of `node`, with the children that it has so far.
OvGroupBuilderStruct::Node& OvGroupBuilderStruct::openNested(Node& node,
                                                             std::string_view name,
                                                             const GroupValue* old) {
    Node& nested = nodes_.emplace_back();
    if (old) {
        nested.children.inherits = old->inherits();
        nested.children.update(*old);
    }
    const auto place = static_cast<std::size_t>(node.children.set(name, nullptr));
    node.nested.resize(std::max(node.nested.size(), place + 1));
    node.nested[place] = nodes_.size() - 1;
    return nested;
}

/// Puts the groups in place that the nodes behind this one have made.
void OvGroupBuilderStruct::finishNested(Node& node) {
    for (std::size_t place = 0; place < node.nested.size(); ++place) {
        if (node.nested[place] != 0) {
            node.children.replace(static_cast<std::int64_t>(place),
                                  nodes_[node.nested[place]].children.make());
        }
    }
    node.nested.clear();
}
