// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/GroupAssembly.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

/// A group builder: groups in the making. In nested mode the parts of a dotted name lead from the
/// group to be built to others, each of them behind the one that leads to it.
struct OvGroupBuilderStruct {
public:
    using GroupValue = Sylvar3::internal::OvAttribute::Embedded::GroupValue;
    using Value = Sylvar3::internal::OvAttribute::Embedded::Value;

    explicit OvGroupBuilderStruct(bool isNested) : isNested_(isNested) {}

    /// As the operations of these names in the table; `set` takes over the caller's reference.
    void set(std::string_view name, Value* owned);
    void remove(std::string_view name);
    void update(const GroupValue& group);
    void setInherits(bool inherits) { top_.children.inherits = inherits; }

    /// A new group with one reference.
    Value* build();

    /// The same; empty afterwards, with group inherit off.
    Value* take();

private:
    struct Node {
        Sylvar3::internal::OvAttribute::Embedded::GroupAssembly children;
        /// By place: the node in which that child is being made; null for a child that stands.
        std::vector<Node*> nested;
    };

    static void setIn(Node& node, std::string_view name, Value* owned);

    enum class Missing { Make, Stop };

    /// The node in which the last part of a dotted name stands, and only that part in `name`. Null
    /// when a part in front leads to no group and none is to be made.
    Node* nodeFor(std::string_view& name, Missing missing);
    Node* nestedIn(Node& node, std::string_view name, Missing missing);
    Node& openNested(Node& node, std::string_view name, const GroupValue* old);
    void finish();
    static void finishNested(Node& node);

    bool isNested_;
    Node top_;
    std::vector<std::unique_ptr<Node>> nodes_;
};
