// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/OutputLocation.h"

#include <OvSylvarProducers/RenderOutputUtilsHost.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <SylvarPlatform/PyString.h>

#include "Utils/OvRenderOutputUtilsHost/FrameNumber.h"
#include "Utils/OvRenderOutputUtilsHost/NearestValues.h"
#include "Utils/OwnedString.h"

#include <boost/filesystem/path.hpp>

#include <string>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;

std::string stringAt(GeometryProducer& location, const std::string& attributePath) {
    using Sylvar3::internal::OvAttribute::getStringValue;
    return getStringValue(
        castAttribute<StringAttribute>(location.getAttribute(attributePath.c_str())), "", false);
}

std::string expanded(const std::string& path) {
    namespace paths = Sylvar3::internal::pystring_v1::os::path;
    return paths::expandvars(paths::expanduser(path));
}

/// A missing piece ends the name before it.
std::string fileName(const char* prefix, const std::string& renderId, const char* suffix) {
    if (!prefix) {
        return "";
    }
    return prefix + renderId + "." + (suffix ? suffix : "");
}

std::string tempLocation(GeometryProducer& location,
                         const std::string& output,
                         const char* prefix,
                         const char* suffix,
                         float frame) {
    const std::string fixed = stringAt(location, output + ".rendererSettings.tempRenderLocation");
    if (!fixed.empty()) {
        return withFrameNumber(expanded(fixed), frame);
    }
    const boost::filesystem::path directory = stringAt(location, "renderSettings.tempDir");
    const std::string renderId = stringAt(location, output + ".tempRenderId");
    return (directory / fileName(prefix, renderId, suffix)).string();
}

}  // namespace

OvAttributeStruct* getRenderOutputTempLocation(OvSgIteratorStruct* iterator,
                                               const char* outputName,
                                               const char* prefix,
                                               const char* suffix,
                                               float frame) {
    const GeometryProducerPtr location = OvHandleToGeometryProducer(iterator);
    if (!location) {
        return ownedString("");
    }
    const std::string output = std::string("renderSettings.outputs.") + outputName;
    return ownedString(tempLocation(*location, output, prefix, suffix, frame));
}

OvAttributeStruct* processTilePath(OvSgIteratorStruct* iterator, const char* path) {
    const GeometryProducerPtr location = OvHandleToGeometryProducer(iterator);
    if (!location) {
        return ownedString(path);
    }
    const auto tile =
        castAttribute<IntAttribute>(location->getGlobalAttribute("renderSettings.tileRender"));
    return ownedString(tile ? RenderOutputUtilsHost::ProcessTilePath(path, nearestValues<int>(tile))
                            : path);
}

}  // namespace SYLVAR
