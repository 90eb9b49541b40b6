// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/GroupMerge.h"

#include <SylvarPlatform/GroupBuilder.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Sylvar3::internal::OvSylvarServices::Embedded {
namespace {

using OvAttribute::Attribute;
using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;

using Groups = std::vector<GroupAttribute>;

/// One name of a merge: its value, or the groups that are yet to be merged into it.
struct Entry {
    std::string_view name;
    Attribute value;
    Groups groups;
    bool isOpen = false;  ///< A group behind may still be merged under it.

    Entry(std::string_view itsName, Attribute nearest) : name(itsName), value(std::move(nearest)) {
        add(value);
    }

    void add(Attribute child) {
        auto group = castAttribute<GroupAttribute>(std::move(child));
        isOpen = group.getGroupInherit();
        if (group) {
            groups.push_back(std::move(group));
        }
    }

    bool needsMerge() const { return groups.size() > 1; }
};

std::vector<Entry> entriesOf(const Groups& groups) {
    std::vector<Entry> entries;
    std::unordered_map<std::string_view, std::size_t> places;
    for (const GroupAttribute& group : groups) {
        for (std::int64_t i = 0, count = group.getNumberOfChildren(); i < count; ++i) {
            const std::string_view name = group.getChildNameView(i);
            const auto [place, isNew] = places.emplace(name, entries.size());
            if (isNew) {
                entries.emplace_back(name, group.getChildByIndex(i));
            } else if (entries[place->second].isOpen) {
                entries[place->second].add(group.getChildByIndex(i));
            }
        }
    }
    return entries;
}

struct ByHandles {
    bool operator()(const Groups& a, const Groups& b) const {
        return std::lexicographical_compare(
            a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
                return std::less<>()(x.handle(), y.handle());
            });
    }
};

/// A merge under way: it rests at an entry while that one's groups are merged.
class Merge {
public:
    explicit Merge(Groups groups) : groups_(std::move(groups)), entries_(entriesOf(groups_)) {}

    /// The next entry whose groups are to be merged; null when there is none left.
    Entry* nextToMerge() {
        while (next_ < entries_.size() && !entries_[next_].needsMerge()) {
            ++next_;
        }
        return next_ < entries_.size() ? &entries_[next_] : nullptr;
    }

    void finishEntry(GroupAttribute merged) { entries_[next_++].value = std::move(merged); }

    GroupAttribute build() const {
        GroupBuilder builder(GroupBuilder::Mode::Flat);
        for (const Entry& entry : entries_) {
            builder.set(entry.name, entry.value);
        }
        return builder.build();
    }

    /// What was merged; the names end with it.
    Groups takeGroups() { return std::move(groups_); }

private:
    Groups groups_;
    std::vector<Entry> entries_;
    std::size_t next_ = 0;
};

/// Merges inside merges, kept on a stack of its own.
class Merger {
public:
    explicit Merger(Groups groups) { under_.emplace_back(std::move(groups)); }

    GroupAttribute run() {
        GroupAttribute merged;
        while (!under_.empty()) {
            if (Entry* const entry = under_.back().nextToMerge()) {
                begin(*entry);
            } else {
                merged = finishInnermost();
            }
        }
        return merged;
    }

private:
    void begin(Entry& entry) {
        const auto known = done_.find(entry.groups);
        if (known != done_.end()) {
            under_.back().finishEntry(known->second);
        } else {
            under_.emplace_back(std::move(entry.groups));
        }
    }

    GroupAttribute finishInnermost() {
        GroupAttribute merged = under_.back().build();
        done_.emplace(under_.back().takeGroups(), merged);
        under_.pop_back();
        if (!under_.empty()) {
            under_.back().finishEntry(merged);
        }
        return merged;
    }

    std::vector<Merge> under_;
    std::map<Groups, GroupAttribute, ByHandles> done_;
};

}  // namespace

GroupAttribute mergeGroups(Groups groups) {
    return groups.size() == 1 ? groups.front() : Merger(std::move(groups)).run();
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
