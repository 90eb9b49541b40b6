// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneLocation.h"

#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/DelimiterCodec.h>

#include <string_view>
#include <utility>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

GroupAttribute orEmpty(const GroupAttribute& group) {
    return group ? group : GroupAttribute({}, false);
}

}  // namespace

SceneLocation::SceneLocation(std::string name, const GroupAttribute& group)
    : name_(std::move(name)),
      children_(group.getChild<GroupAttribute>("c")),
      producer_(SYLVAR::CreateStaticGeometryProducer("/" + name_, orEmpty(group), nullptr)) {}

GroupAttribute SceneLocation::attributes() const {
    return OvAttribute::castAttribute<GroupAttribute>(producer_->getAttribute(""));
}

SceneLocation SceneLocation::child(std::int64_t index) const {
    return SceneLocation(
        OvAttribute::DelimiterDecode(children_.getChildName(index)),
        OvAttribute::castAttribute<GroupAttribute>(children_.getChildByIndex(index)));
}

std::int64_t SceneLocation::indexOf(const std::string& name) const {
    for (std::int64_t i = 0; i < childCount(); ++i) {
        const std::string_view encoded = children_.getChildNameView(i);
        const bool same =
            encoded == name || (encoded.find('%') != std::string_view::npos &&
                                OvAttribute::DelimiterDecode(std::string(encoded)) == name);
        if (same) {
            return i;
        }
    }
    return -1;
}

}  // namespace ovscene
