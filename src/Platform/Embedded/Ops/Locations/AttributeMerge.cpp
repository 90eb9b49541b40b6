// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/AttributeMerge.h"

#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

constexpr int kDeepest = 200;

/// A group that stands in many places is merged in each of them.
constexpr int kMostGroups = 100'000;

/// A group under a name that a nearer group has a group of, too.
struct Farther {
    std::string_view name;
    std::size_t turn;  ///< A farther one's is larger.
    GroupValue* group;
};

using FartherList = boost::container::small_vector<Farther, 8>;

/// Takes what the nearer groups do not have from each; tells the groups that are to be merged, with
/// those of one name together, the nearest first.
FartherList takeMissing(AttributeEdit& merged, const GroupList& groups) {
    FartherList farther;
    for (std::size_t turn = 1; turn < groups.size(); ++turn) {
        const GroupValue& under = *groups[turn];
        for (std::int64_t i = 0; i < under.size(); ++i) {
            const std::string_view name = under.shape->name(i);
            if (!merged.has(name)) {
                merged.set(name, under[i]);
                continue;
            }
            GroupValue* const nearest = asGroup(merged.find(name));
            GroupValue* const group = asGroup(under[i]);
            if (nearest && group && nearest != group) {
                farther.push_back({name, turn, group});
            }
        }
    }
    std::sort(farther.begin(), farther.end(), [](const Farther& a, const Farther& b) {
        return std::tie(a.name, a.turn) < std::tie(b.name, b.turn);
    });
    return farther;
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as groups may be nested here, and no deeper.
GroupValue* merge(const GroupList& groups, LocationWriter& out, int depth, int& count) {
    if (depth > kDeepest) {
        throw OpError("groups are nested more than " + std::to_string(kDeepest) +
                      " levels deep, and cannot be merged");
    }
    if (++count > kMostGroups) {
        throw OpError("more than " + std::to_string(kMostGroups) +
                      " groups lie in one another, and cannot be merged");
    }
    AttributeEdit merged(*groups.front());
    const FartherList farther = takeMissing(merged, groups);
    for (auto next = farther.begin(); next != farther.end();) {
        const std::string_view name = next->name;
        GroupList nested = {asGroup(merged.find(name))};
        for (; next != farther.end() && next->name == name; ++next) {
            nested.push_back(next->group);
        }
        merged.set(name, merge(nested, out, depth + 1, count));
    }
    return merged.write(out);
}

}  // namespace

GroupValue* mergeGroups(const GroupList& groups, LocationWriter& out) {
    int count = 0;
    return merge(groups, out, 0, count);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
