// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/TextureAttributes.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SampleAccessor.h>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::GroupBuilder;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::SampleAccessor;
using Sylvar3::internal::OvAttribute::StringAttribute;

/// What an assignment comes to; null maps make it none.
struct Assignment {
    StringAttribute maps;
    IntAttribute indices;
};

Assignment assignmentOf(const Attribute& child) {
    if (child.getType() == StringAttribute::kType) {
        return {castAttribute<StringAttribute>(child), IntAttribute()};
    }
    const auto group = castAttribute<GroupAttribute>(child);
    return {group.getChild<StringAttribute>("maps"), group.getChild<IntAttribute>("indicies")};
}

bool isOfFaces(const Assignment& assignment) {
    return assignment.indices &&
           SampleAccessor<StringAttribute>(assignment.maps).getNumberOfValues() >= 2;
}

void setArbitrary(GroupBuilder& builder, const std::string& name, const Assignment& assignment) {
    if (isOfFaces(assignment)) {
        builder.set(name + ".scope", StringAttribute("face"))
            .set(name + ".indexedValue", assignment.maps)
            .set(name + ".index", assignment.indices);
    } else {
        builder.set(name + ".value", assignment.maps)
            .set(name + ".scope", StringAttribute("primitive"));
    }
}

}  // namespace

GroupAttribute ConvertTexturesToArbitraryAttr(const GroupAttribute& textures) {
    if (!textures) {
        return {};
    }
    GroupBuilder builder;
    bool isAnyAccepted = false;
    for (std::int64_t i = 0; i < textures.getNumberOfChildren(); ++i) {
        const Assignment assignment = assignmentOf(textures.getChildByIndex(i));
        if (assignment.maps) {
            setArbitrary(builder, textures.getChildName(i), assignment);
            isAnyAccepted = true;
        }
    }
    return isAnyAccepted ? builder.build() : GroupAttribute({}, true);
}

}  // namespace SYLVAR
