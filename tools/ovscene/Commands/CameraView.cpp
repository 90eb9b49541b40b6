// SPDX-License-Identifier: Apache-2.0
#include "Commands/CameraView.h"

#include <OvSylvarProducers/Projection.h>
#include <OvSylvarProducers/RenderResolution.h>
#include <ResolutionTableOv/ResolutionTable.h>

#include "Commands/NearName.h"
#include "ExitStatus.h"
#include "Print/AttributeText.h"
#include "Print/NumberText.h"
#include "Scene/SceneProducer.h"
#include "Scene/SceneWalk.h"

#include <stdexcept>
#include <vector>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using OvAttribute::castAttribute;
using OvAttribute::getStringValue;
using OvAttribute::StringAttribute;
using SYLVAR::GeometryProducerPtr;

constexpr char kCameraSetting[] = "renderSettings.cameraName";
constexpr char kResolutionSetting[] = "renderSettings.resolution";

StringAttribute setting(const GeometryProducerPtr& top, const char* name) {
    return castAttribute<StringAttribute>(top->getAttribute(name));
}

/// Who named the camera that is not there.
std::string originOf(const GeometryProducerPtr& top, bool isRenders) {
    if (!isRenders) {
        return "--camera names it";
    }
    return setting(top, kCameraSetting)
               ? std::string(kCameraSetting) + " names it"
               : std::string("the usual one, since the string ") + kCameraSetting + " is not set";
}

/// Why there is no location at that path, without the file's name in front.
std::string whyMissing(const SceneFile& file, const std::string& path) {
    try {
        findLocation(topLocation(file), path, file.name);
    } catch (const CommandError& error) {
        const std::string text = error.what();
        return text.substr(file.name.size() + 2);
    }
    return "the path has to be spelled as the scene spells it";
}

/// What is wrong with a location that is no camera.
std::string whyUnreadable(const GeometryProducerPtr& location) {
    const auto message = castAttribute<StringAttribute>(location->getAttribute("errorMessage"));
    if (message) {
        return "it has the error: " + getStringValue(message, "", false);
    }
    const Attribute geometry = location->getAttribute("geometry");
    if (!geometry || geometry.getType() != OV_ATTRIBUTE_GROUP) {
        return geometry ? std::string("its \"geometry\" is ") + kindName(geometry) + ", not a group"
                        : "it has no \"geometry\"";
    }
    for (const char* const name : {"fov", "near", "far", "left", "right", "top", "bottom"}) {
        const Attribute value = castAttribute<GroupAttribute>(geometry).getChildByName(name);
        if (!value || value.getType() != OV_ATTRIBUTE_DOUBLE) {
            return std::string("its \"geometry.") + name + "\" is " +
                   (value ? std::string(kindName(value)) + ", not double" : "missing");
        }
    }
    return "it could not be read";
}

[[noreturn]] void throwNoCamera(const SceneFile& file,
                                const GeometryProducerPtr& top,
                                const CameraView& view) {
    const GeometryProducerPtr location = top->getProducerByPath(view.path, false);
    throw CommandError(ExitStatus::NotFound,
                       file.name + ": no camera " + (view.path.empty() ? "''" : view.path) + " (" +
                           originOf(top, view.isRenders) + "); " +
                           (location ? whyUnreadable(location) : whyMissing(file, view.path)));
}

[[noreturn]] void throwNoResolution(const SceneFile& file,
                                    const GeometryProducerPtr& top,
                                    const std::string& reason) {
    const auto table = ORM_OV::ResolutionTable::v4::GetResolutionTable(nullptr);
    if (!table) {
        throw CommandError(ExitStatus::Unexpected, file.name + ": " + reason);
    }
    const std::string name = getStringValue(setting(top, kResolutionSetting), "", false);
    const std::vector<std::string> names = table->getNames();
    const std::string near = nearName(name, names);
    throw CommandError(
        ExitStatus::NotFound,
        file.name + ": no resolution '" + name + "' (" + kResolutionSetting + " names it); " +
            (near.empty() ? "the table has " +
                                counted(static_cast<std::int64_t>(names.size()), "resolution") +
                                ", none of that name"
                          : "did you mean '" + near + "'?"));
}

Picture pictureOf(const SceneFile& file, const GeometryProducerPtr& top) {
    Picture picture;
    try {
        SYLVAR::GetRenderResolution(&picture.name, &picture.width, &picture.height, top);
    } catch (const std::runtime_error& error) {
        throwNoResolution(file, top, error.what());
    }
    return picture;
}

/// As the scene spells it, of a path that a person wrote.
std::string fullPath(const SceneFile& file,
                     const GeometryProducerPtr& top,
                     const std::string& path) {
    findLocation(topLocation(file), path, file.name);
    return steppedPath(file, top, path);
}

}  // namespace

CameraView cameraView(const SceneFile& file,
                      const GeometryProducerPtr& top,
                      const std::optional<std::string>& cameraPath) {
    CameraView view;
    view.isRenders = !cameraPath.has_value();
    view.path = cameraPath ? fullPath(file, top, *cameraPath) : SYLVAR::GetCameraPath(top);
    view.info = SYLVAR::GetCameraInfo(top, view.path);
    if (!view.info) {
        throwNoCamera(file, top, view);
    }
    view.picture = pictureOf(file, top);
    view.projection = SYLVAR::GetProjectionMatrix(*view.info, view.picture.aspect());
    return view;
}

}  // namespace ovscene
