// SPDX-License-Identifier: Apache-2.0
#include "Scene/RenderOutputs.h"

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "Scene/HostTables.h"

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::IntAttribute;
using OvAttribute::StringAttribute;

std::string textOf(OvAttributeStruct* owned) {
    return OvAttribute::castAttribute<StringAttribute>(owned).getValue("");
}

GroupAttribute opTreeOfTile(const std::vector<int>& tile) {
    const std::vector<std::int32_t> values(tile.begin(), tile.end());
    return GroupBuilder()
        .set("tile.opType", StringAttribute("scene"))
        .set("tile.opArgs.tree.a.renderSettings.tileRender", IntAttribute(values))
        .build();
}

}  // namespace

std::string renderCameraPath(OvSgIteratorStruct* top) {
    return textOf(hostRenderOutputUtils().getCameraPath(top));
}

std::string outputTempLocation(OvSgIteratorStruct* location,
                               const std::string& output,
                               const OutputNaming& naming) {
    return textOf(hostRenderOutputUtils().getRenderOutputTempLocation(
        location, output.c_str(), naming.prefix.c_str(), naming.suffix.c_str(), naming.frame));
}

std::string tilePath(OvSgIteratorStruct* location, const std::string& path) {
    return textOf(hostRenderOutputUtils().processTilePath(location, path.c_str()));
}

std::string pathOfTile(const std::vector<int>& tile, const std::string& path) {
    const SYLVAR::Suites::Location top =
        valueOf(hostScene().openOpTree(opTreeOfTile(tile).handle()));
    return tilePath(top.handle(), path);
}

}  // namespace ovscene
