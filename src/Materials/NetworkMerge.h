// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Materials/MaterialStyle.h"

#include <set>

namespace SYLVAR {

/// Puts networks together, the nearest first: the nearest one that drives a terminal owns it, and a
/// network that owns none is dropped whole. One thread.
class NetworkMerge {
public:
    /// The terminals that count; they outlive this.
    explicit NetworkMerge(const std::vector<std::string>& terminals) : terminals_(terminals) {}

    /// The next network. Each takes up a number, also one that is dropped.
    void add(const GroupAttribute& network);

    /// The network of what was added.
    GroupAttribute result() const;

private:
    bool takeTerminals(const GroupAttribute& network);
    void addNodes(const GroupAttribute& nodes);
    void addInterface(const GroupAttribute& interface);
    void addParameters(const GroupAttribute& parameters);

    GroupAttribute renamedNode(const GroupAttribute& node, const std::string& name) const;
    Attribute renamedConnections(const Attribute& connections) const;

    const std::vector<std::string>& terminals_;
    std::set<std::string> taken_;
    std::string suffix_;  ///< Of the network that is being added.
    std::int64_t count_ = 0;
    ChildList nodes_;
    ChildList interface_;
    ChildList parameters_;
    ChildList driven_;
};

}  // namespace SYLVAR
