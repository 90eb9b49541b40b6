// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/ExpandedSize.h"

#include "Platform/Embedded/Attributes/Values/GroupValue.h"

#include <unordered_map>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// A smaller group is as quickly counted anew.
constexpr std::int64_t kLeastKept = 32;

class Expansion {
public:
    explicit Expansion(std::int64_t most) : most_(most) {}

    std::int64_t sizeOf(const Value* top) {
        visit(top);
        while (!way_.empty() && size_ <= most_) {
            Step& step = way_.back();
            if (step.next == step.group->end()) {
                leave(step);
            } else {
                visit(*step.next++);
            }
        }
        return size_ <= most_ ? size_ : most_ + 1;
    }

private:
    struct Step {
        const GroupValue* group;
        Value* const* next;
        std::int64_t sizeBefore;
    };

    void visit(const Value* value) {
        ++size_;
        if (!value || value->kind != OV_ATTRIBUTE_GROUP) {
            return;
        }
        const auto& group = static_cast<const GroupValue&>(*value);
        const auto known = below_.find(&group);
        if (known == below_.end()) {
            way_.push_back({&group, group.begin(), size_});
        } else {
            size_ += known->second;
        }
    }

    void leave(const Step& step) {
        const std::int64_t below = size_ - step.sizeBefore;
        if (below >= kLeastKept) {
            below_.emplace(step.group, below);
        }
        way_.pop_back();
    }

    const std::int64_t most_;
    std::int64_t size_ = 0;
    std::vector<Step> way_;
    std::unordered_map<const GroupValue*, std::int64_t> below_;
};

}  // namespace

std::int64_t expandedSizeOf(const Value* value, std::int64_t most) {
    return Expansion(most).sizeOf(value);
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
