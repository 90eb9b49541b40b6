// SPDX-License-Identifier: Apache-2.0
#include "Procedurals/AssetResolution.h"

#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/PyString.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::SampleAccessor;
using Sylvar3::internal::OvAttribute::StringAttribute;
using Sylvar3::OvAssetHost::v1::OvAssetPluginManager;

void resolve(std::string& value, int frame) {
    try {
        value = OvAssetPluginManager::getDefaultAssetPlugin()->resolveAsset(value, frame, false);
    } catch (...) {  // it stays as it was, and nobody is told
    }
}

StringAttribute resolvedString(const StringAttribute& attribute, int frame) {
    const SampleAccessor<StringAttribute> nearest(attribute, 0.0F);
    std::vector<std::string> values(nearest.begin(), nearest.end());
    for (std::string& value : values) {
        resolve(value, frame);
    }
    return StringAttribute(values, attribute.getTupleSize());
}

/// Goes through groups in groups with a stack of its own, since they may be deeper than any other.
class GroupResolution {
public:
    explicit GroupResolution(int frame) : frame_(frame) {}

    GroupAttribute resolved(const GroupAttribute& group) {
        open(group, "");
        while (true) {
            Level& level = levels_.back();
            if (level.next < level.children.size()) {
                const auto& [name, value] = level.children[level.next++];
                add(name, value);
            } else if (levels_.size() > 1) {
                close();
            } else {
                return GroupAttribute(level.resolved, true);
            }
        }
    }

private:
    struct Level {
        GroupAttribute group;
        std::string name;
        std::vector<GroupAttribute::Child> children;
        std::size_t next;
        std::vector<GroupAttribute::Child> resolved;
    };

    void open(const GroupAttribute& group, const std::string& name) {
        Level level{group, name, {}, 0, {}};
        group.fillChildVector(&level.children);
        levels_.push_back(std::move(level));
    }

    void close() {
        const Level level = std::move(levels_.back());
        levels_.pop_back();
        const GroupAttribute resolved(level.resolved, true);
        done_.emplace(level.group.handle(), resolved);
        levels_.back().resolved.emplace_back(level.name, resolved);
    }

    /// Takes a name and a value that the current level holds.
    void add(const std::string& name, const Attribute& value) {
        if (Sylvar3::internal::pystring_v1::startswith(name, "__")) {
            return;
        }
        std::vector<GroupAttribute::Child>& resolved = levels_.back().resolved;
        if (const auto found = done_.find(value.handle()); found != done_.end()) {
            resolved.emplace_back(name, found->second);
        } else if (value.getType() == GroupAttribute::kType) {
            open(castAttribute<GroupAttribute>(value), name);
        } else if (value.getType() == StringAttribute::kType) {
            resolved.emplace_back(name,
                                  resolvedString(castAttribute<StringAttribute>(value), frame_));
        } else {
            resolved.emplace_back(name, value);
        }
    }

    int frame_;
    std::vector<Level> levels_;
    std::unordered_map<const OvAttributeStruct*, GroupAttribute> done_;
};

}  // namespace

GroupAttribute ResolveAssetsInGroup(const GroupAttribute& group, int frame) {
    return group ? GroupResolution(frame).resolved(group) : group;
}

}  // namespace SYLVAR
