// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DelimiterCodec.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "Scene/SceneLocation.h"

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using Names = OvAttribute::SampleAccessor<SYLVAR::StringAttribute>;

Names childNames(const GeometryProducerPtr& producer) {
    return Names(producer->getPotentialChildren(), 0.0F);
}

/// Whether the producer takes it for the name of a child.
bool isChildName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

class CookedLocation final : public SceneLocation {
public:
    CookedLocation(const GeometryProducerPtr& producer, std::int64_t place)
        : SceneLocation(producer, producer->getName(), place) {}

    std::int64_t childCount() const override { return childNames(producer()).getNumberOfValues(); }

    SceneLocationPtr childFrom(std::int64_t place) const override {
        const Names names = childNames(producer());
        if (place == 0) {
            return wrap(producer()->getFirstChild(false), names, 0);
        }
        for (; place < names.getNumberOfValues(); ++place) {
            if (const auto child = producer()->getChildByName(names.getNearest()[place], false)) {
                return std::make_shared<CookedLocation>(child, place);
            }
        }
        return nullptr;
    }

    SceneLocationPtr nextSibling() const override {
        const GeometryProducerPtr next = producer()->getNextSibling(false);
        return next ? wrap(next, childNames(next->parent), place() + 1) : nullptr;
    }

    SceneLocationPtr childNamed(const std::string& name) const override {
        for (const std::string& spelling : {name, OvAttribute::DelimiterDecode(name)}) {
            const GeometryProducerPtr child =
                isChildName(spelling) ? producer()->getChildByName(spelling.c_str(), false)
                                      : nullptr;
            if (child) {
                return wrap(child, childNames(producer()), 0);
            }
        }
        return nullptr;
    }

private:
    /// `from` is the first place that it can have.
    static SceneLocationPtr wrap(const GeometryProducerPtr& child,
                                 const Names& names,
                                 std::int64_t from) {
        if (!child) {
            return nullptr;
        }
        const std::string name = child->getName();
        while (from < names.getNumberOfValues() && names.getNearest()[from] != name) {
            ++from;
        }
        return std::make_shared<CookedLocation>(child, from);
    }
};

}  // namespace

SceneLocationPtr cookedTopLocation(const GeometryProducerPtr& producer) {
    return std::make_shared<CookedLocation>(producer, 0);
}

}  // namespace ovscene
