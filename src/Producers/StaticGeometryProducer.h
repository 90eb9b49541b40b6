// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/StaticGeometryProducer.h>

#include <atomic>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace SYLVAR {

/// A location of a scene that is there as a whole. There is nothing to evict and no client.
///
/// A wrong kind under any key reads as a missing one; a null group has no attributes and no
/// children.
class StaticGeometryProducer final : public GeometryProducer {
public:
    static constexpr std::int64_t kUnknownIndex = -1;

    /// `index` is the place among the siblings, or `kUnknownIndex`.
    StaticGeometryProducer(std::string path,
                           GroupAttribute locationGroup,
                           std::int64_t index,
                           GeometryProducerPtr parent);

    void getAttributeNames(std::set<std::string>* names) override;

    /// Decodes the name of every child: a list for callers, not for a step.
    StringAttribute getPotentialChildren() override;

    Attribute getAttribute(const char* name) override;
    std::string getName() override;
    std::string getFullName() override;

    /// Covers the children too: a change anywhere below changes it.
    std::string getHash() override;

    /// The name is looked up as it is given: a child whose key is encoded is not found by its
    /// readable name, and a dot leads into a group within the child. Null for a null name.
    GeometryProducerPtr getChildByName(const char* name, bool evict) override;

    GeometryProducerPtr getFirstChild(bool evict) override;

    /// The sibling's path is this path and the sibling's name: it grows with every step along the
    /// siblings. `getName` and `parent` are those of the tree. Null below a parent of another kind.
    GeometryProducerPtr getNextSibling(bool evict) override;

private:
    GroupAttribute childGroups() const { return locationGroup_.getChild<GroupAttribute>("c"); }
    GeometryProducerPtr childNamed(std::string_view name);
    std::int64_t placeAmong(const GroupAttribute& siblings);

    const std::string path_;
    const GroupAttribute locationGroup_;
    std::atomic<std::int64_t> index_;  ///< Found at first need; whoever looks finds the same.
};

}  // namespace SYLVAR
