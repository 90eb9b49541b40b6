// SPDX-License-Identifier: Apache-2.0
#include "Commands/OutputsView.h"

#include <SylvarPlatform/SampleAccessor.h>

#include "Print/AttributeText.h"
#include "Scene/SceneWalk.h"

#include <algorithm>
#include <cstdint>

namespace ovscene {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::SampleAccessor;

constexpr char kOutputs[] = "renderSettings.outputs";
constexpr char kTile[] = "renderSettings.tileRender";

/// What the table takes for a tile, whether or not it makes sense; empty when there is none.
std::optional<std::vector<int>> tileOf(const SceneLocation& top) {
    const auto setting = castAttribute<IntAttribute>(top.attribute(kTile));
    if (!setting) {
        return std::nullopt;
    }
    constexpr std::int64_t kMost = 4;
    const SampleAccessor<IntAttribute> values(setting, 0.0F);
    std::vector<int> tile;
    for (std::int64_t i = 0; i < std::min(values.getNumberOfValues(), kMost); ++i) {
        tile.push_back(values.getNearest()[i]);
    }
    return tile;
}

std::string whyNoOutputs(const Attribute& setting) {
    const std::string named = std::string("\"") + kOutputs + "\"";
    if (!setting) {
        return "/root has no " + named;
    }
    const bool isGroup = setting.getType() == OV_ATTRIBUTE_GROUP;
    return "the " + named + " of /root is " +
           (isGroup ? "empty" : std::string(kindName(setting)) + ", not a group");
}

OutputPlace placeOf(const SceneLocation& top,
                    const std::string& name,
                    const OutputNaming& naming,
                    bool hasTile) {
    OutputPlace place;
    place.name = name;
    place.tempLocation = outputTempLocation(top.handle(), name, naming);
    place.tilePath = hasTile ? tilePath(top.handle(), place.tempLocation) : "";
    return place;
}

}  // namespace

OutputsView outputsView(const SceneFile& file, const OutputNaming& naming) {
    const SceneLocationPtr top = topLocation(file);
    OutputsView view;
    view.file = file.name;
    view.cameraPath = renderCameraPath(top->handle());
    view.picture = renderPicture(file.name, top->handle());
    view.frame = naming.frame;
    view.tile = tileOf(*top);
    const Attribute setting = top->attribute(kOutputs);
    const auto outputs = castAttribute<GroupAttribute>(setting);
    for (std::int64_t i = 0; i < outputs.getNumberOfChildren(); ++i) {
        view.outputs.push_back(
            placeOf(*top, outputs.getChildName(i), naming, view.tile.has_value()));
    }
    view.whyNone = view.outputs.empty() ? whyNoOutputs(setting) : "";
    VisitLimit limit(file.name);
    view.errors.look(SceneWalk(top, "", limit));
    return view;
}

}  // namespace ovscene
