// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ProceduralArguments.h>
#include <SylvarPlatform/DataAttribute.h>

#include "Procedurals/AssetResolution.h"
#include "Procedurals/CameraInfoRequest.h"

#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::IntAttribute;
using ChildList = std::vector<GroupAttribute::Child>;

void addContext(ChildList& arguments, const ProceduralOutputContextInfo& context) {
    arguments.emplace_back("frame", FloatAttribute(static_cast<float>(context.frame)));
    arguments.emplace_back("shutter",
                           FloatAttribute({context.shutterOpen, context.shutterClose}, 2));
    arguments.emplace_back("cropwindow", FloatAttribute(context.cropWindow.data(), 4, 4));
}

/// The path stands there twice, and as ever the group keeps one of the two.
void addCamera(ChildList& arguments,
               const RequestedCamera& camera,
               const ProceduralOutputContextInfo& context) {
    const CameraInfo& info = *camera.info;
    arguments.emplace_back("cameraInfo_path", StringAttribute(camera.path));
    arguments.emplace_back("cameraInfo_path", StringAttribute(camera.path));
    arguments.emplace_back("cameraInfo_fov", FloatAttribute(info.fov));
    arguments.emplace_back("cameraInfo_near", FloatAttribute(info.near));
    arguments.emplace_back("cameraInfo_far", FloatAttribute(info.far));
    arguments.emplace_back("cameraInfo_left", FloatAttribute(info.left));
    arguments.emplace_back("cameraInfo_right", FloatAttribute(info.right));
    arguments.emplace_back("cameraInfo_top", FloatAttribute(info.top));
    arguments.emplace_back("cameraInfo_bottom", FloatAttribute(info.bottom));
    arguments.emplace_back("cameraInfo_xform", info.xformAttr);
    arguments.emplace_back("cameraInfo_xres", IntAttribute(context.xres));
    arguments.emplace_back("cameraInfo_yres", IntAttribute(context.yres));
}

}  // namespace

std::string BuildScenegraphAttrProceduralArgumentsString(
    GeometryProducerPtr producer,
    ProceduralOutputContextInfo& context,
    GroupAttribute attrs,
    ProceduralErrorCallback /*errorCallback*/) {
    ChildList arguments;
    const auto args = ResolveAssetsInGroup(attrs.getChild<GroupAttribute>("args"), context.frame);
    if (args) {
        arguments.emplace_back("args", args);
    }
    attrs.getChild<GroupAttribute>("systemArgs").fillChildVector(&arguments);
    addContext(arguments, context);
    const RequestedCamera camera = requestedCamera(producer, attrs);
    if (camera.info) {
        addCamera(arguments, camera, context);
    }
    arguments.emplace_back("varlinFullName", StringAttribute(producer->getFullName()));
    return GroupAttribute(arguments, false).getXML();
}

}  // namespace SYLVAR
