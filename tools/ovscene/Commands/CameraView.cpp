// SPDX-License-Identifier: Apache-2.0
#include "Commands/CameraView.h"

#include <OvSylvarProducers/Projection.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "ExitStatus.h"
#include "Print/AttributeText.h"
#include "Scene/HostTables.h"
#include "Scene/SceneProducer.h"
#include "Scene/SceneWalk.h"

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using OvAttribute::castAttribute;
using OvAttribute::getStringValue;
using OvAttribute::StringAttribute;
using SYLVAR::GeometryProducerPtr;

constexpr char kCameraSetting[] = "renderSettings.cameraName";

/// Who named the camera that is not there.
std::string originOf(const GeometryProducerPtr& top, bool isRenders) {
    if (!isRenders) {
        return "--camera names it";
    }
    return castAttribute<StringAttribute>(top->getAttribute(kCameraSetting))
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
    const Location location = hostScene().share(SYLVAR::OvGeometryProducerToHandle(top));
    view.picture = renderPicture(file.name, location.handle());
    view.projection = SYLVAR::GetProjectionMatrix(*view.info, view.picture.aspect());
    return view;
}

}  // namespace ovscene
