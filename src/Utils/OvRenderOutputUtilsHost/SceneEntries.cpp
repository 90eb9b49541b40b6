// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/SceneEntries.h"

#include <OvSylvarProducers/ArchPath.h>
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/ProceduralArguments.h>
#include <OvSylvarProducers/Projection.h>
#include <OvSylvarProducers/RenderResolution.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/TextureAttributes.h>

#include "Utils/OvRenderOutputUtilsHost/NearestValues.h"
#include "Utils/OwnedString.h"

#include <set>
#include <string>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

template <class Wanted>
Wanted borrowed(OvAttributeStruct* attribute) {
    return castAttribute<Wanted>(Attribute::share(attribute));
}

void ignoreUnresolved(const std::string& /*message*/, GeometryProducerPtr /*producer*/) {}

OvAttributeStruct* buildProceduralArgumentsString(OvSgIteratorStruct* iterator,
                                                  int style,
                                                  const char* attributeName,
                                                  int frame,
                                                  float shutterOpen,
                                                  float shutterClose,
                                                  float cropWindow0,
                                                  float cropWindow1,
                                                  float cropWindow2,
                                                  float cropWindow3,
                                                  int xres,
                                                  int yres) {
    const GeometryProducerPtr producer = OvHandleToGeometryProducer(iterator);
    const auto attrs = castAttribute<GroupAttribute>(producer->getAttribute(attributeName));
    if (!attrs) {
        return nullptr;
    }
    ProceduralOutputContextInfo context{frame,
                                        shutterOpen,
                                        shutterClose,
                                        {cropWindow0, cropWindow1, cropWindow2, cropWindow3},
                                        xres,
                                        yres};
    switch (style) {
        case OV_PROCEDURAL_ARGUMENTS_CLASSIC:
            return ownedString(
                BuildClassicProceduralArgumentsString(producer, context, attrs, ignoreUnresolved));
        case OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR:
            return ownedString(BuildScenegraphAttrProceduralArgumentsString(
                producer, context, attrs, ignoreUnresolved));
        default:
            return ownedString("");
    }
}

int getPixelAreaThroughCamera(OvSgIteratorStruct* iterator,
                              const char* cameraPath,
                              const char* resolutionName) {
    return GetPixelAreaThroughCamera(
        OvHandleToGeometryProducer(iterator), cameraPath, resolutionName);
}

OvAttributeStruct* findSampleTimesRelevantToShutterRange(const float* sampleTimes,
                                                         unsigned count,
                                                         float shutterOpen,
                                                         float shutterClose) {
    const std::set<float> samples(sampleTimes, sampleTimes + count);
    std::vector<float> relevant;
    FindSampleTimesRelevantToShutterRange(samples, shutterOpen, shutterClose, relevant);
    return FloatAttribute(relevant, 1).detach();
}

OvAttributeStruct* getRenderResolution(OvSgIteratorStruct* root, int* width, int* height) {
    std::string name;
    GetRenderResolution(&name, width, height, OvHandleToGeometryProducer(root));
    return ownedString(name);
}

OvAttributeStruct* getCameraPath(OvSgIteratorStruct* root) {
    return ownedString(GetCameraPath(OvHandleToGeometryProducer(root)));
}

OvAttributeStruct* convertTexturesToArbitraryAttr(OvAttributeStruct* textures) {
    return ConvertTexturesToArbitraryAttr(borrowed<GroupAttribute>(textures)).detach();
}

OvAttributeStruct* getArchString() {
    return ownedString(GetArchString());
}

OvAttributeStruct* expandArchPath(const char* path) {
    return ownedString(ExpandArchPath(path));
}

OvAttributeStruct* getFlattenedMaterialAttr(OvSgIteratorStruct* iterator,
                                            OvAttributeStruct* terminals) {
    const auto names = borrowed<StringAttribute>(terminals);
    if (!names) {
        return nullptr;
    }
    return GetFlattenedMaterialAttr(OvHandleToGeometryProducer(iterator),
                                    nearestValues<std::string>(names))
        .detach();
}

}  // namespace

void setSceneEntries(OvRenderOutputUtilsSuite& suite) {
    suite.buildProceduralArgumentsString = buildProceduralArgumentsString;
    suite.getPixelAreaThroughCamera = getPixelAreaThroughCamera;
    suite.findSampleTimesRelevantToShutterRange = findSampleTimesRelevantToShutterRange;
    suite.getRenderResolution = getRenderResolution;
    suite.getCameraPath = getCameraPath;
    suite.convertTexturesToArbitraryAttr = convertTexturesToArbitraryAttr;
    suite.getArchString = getArchString;
    suite.expandArchPath = expandArchPath;
    suite.getFlattenedMaterialAttr = getFlattenedMaterialAttr;
    suite.emptyFlattenedMaterialCache = EmptyFlattenedMaterialCache;
}

}  // namespace SYLVAR
