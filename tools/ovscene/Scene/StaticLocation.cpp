// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/DelimiterCodec.h>

#include "Scene/HostTables.h"
#include "Scene/SceneLocation.h"

#include <string_view>
#include <utility>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

GroupAttribute orEmpty(const GroupAttribute& group) {
    return group ? group : GroupAttribute({}, false);
}

/// The tables make no location of a group, but a producer does.
Location locationOf(const std::string& name, const GroupAttribute& group) {
    return hostScene().share(SYLVAR::OvGeometryProducerToHandle(
        SYLVAR::CreateStaticGeometryProducer("/" + name, orEmpty(group), nullptr)));
}

class StaticLocation final : public SceneLocation {
public:
    StaticLocation(std::string name,
                   const GroupAttribute& group,
                   GroupAttribute siblings,
                   std::int64_t place)
        : SceneLocation(locationOf(name, group)),
          name_(std::move(name)),
          place_(place),
          children_(group.getChild<GroupAttribute>("c")),
          siblings_(std::move(siblings)) {}

    std::string name() const override { return name_; }
    std::int64_t place() const override { return place_; }
    std::int64_t childCount() const override { return children_.getNumberOfChildren(); }
    SceneLocationPtr childFrom(std::int64_t place) const override { return at(children_, place); }
    SceneLocationPtr nextSibling() const override { return at(siblings_, place_ + 1); }

    SceneLocationPtr childNamed(const std::string& name) const override {
        for (std::int64_t i = 0; i < childCount(); ++i) {
            const std::string_view encoded = children_.getChildNameView(i);
            const bool same =
                encoded == name || (encoded.find('%') != std::string_view::npos &&
                                    OvAttribute::DelimiterDecode(std::string(encoded)) == name);
            if (same) {
                return childFrom(i);
            }
        }
        return nullptr;
    }

private:
    static SceneLocationPtr at(const GroupAttribute& group, std::int64_t place) {
        if (place >= group.getNumberOfChildren()) {
            return nullptr;
        }
        return std::make_shared<StaticLocation>(
            OvAttribute::DelimiterDecode(group.getChildName(place)),
            OvAttribute::castAttribute<GroupAttribute>(group.getChildByIndex(place)),
            group,
            place);
    }

    std::string name_;
    std::int64_t place_;
    GroupAttribute children_;
    GroupAttribute siblings_;
};

}  // namespace

SceneLocationPtr staticTopLocation(const GroupAttribute& scene) {
    return std::make_shared<StaticLocation>("root", scene, GroupAttribute(), 0);
}

}  // namespace ovscene
