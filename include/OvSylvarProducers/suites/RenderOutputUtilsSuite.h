/* SPDX-License-Identifier: Apache-2.0 */
#ifndef OV_SYLVAR_PRODUCERS_SUITES_RENDER_OUTPUT_UTILS_SUITE_H
#define OV_SYLVAR_PRODUCERS_SUITES_RENDER_OUTPUT_UTILS_SUITE_H

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/TableLayout.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * What a render plug-in asks of a scene beyond walking it, as plain C: arguments of procedurals,
 * cameras, materials, shading nodes, delegates, paths of outputs. The host's `findSuite` gives the
 * table by the name and the version below. docs/render_output_suite.md tells of every entry.
 *
 * Locations are the iterators of ScenegraphIteratorSuite.h. What else the table gives stands behind
 * three handles that are counted, and one that is not:
 *
 * - A camera, a shading node, a connection of a shading node: every entry that gives one makes a
 *   new handle with one reference, for the caller to give back with the release entry of its kind.
 *   Two handles may stand for the same object.
 * - The nodes of a network: freed by freeShadingNetworkNodes, once. A node that was taken from them
 *   stays.
 *
 * The null handle is what an entry gives that found nothing. Unless an entry says otherwise, null
 * is taken wherever one of these four handles is asked for, and then nothing happens, or the answer
 * is null, "", 0 or false.
 *
 * Unless an entry says otherwise:
 *
 * - an iterator must not be null;
 * - an attribute that it returns is owned by the caller, who gives it back with the release of the
 *   attribute suite; null is the null attribute;
 * - a `const char*` that it returns is borrowed, lives as long as somebody holds the node or the
 *   connection, and is never null;
 * - what it is given is borrowed for the call; texts end at their first NUL, and must not be null;
 * - what the runtime throws while it cooks travels to the caller as a C++ exception, and so do
 *   std::bad_alloc and what an entry says. A caller in C is compiled with -fexceptions where that
 *   must be survived.
 *
 * Threads: any thread may call any entry at any time, with three exceptions that callers keep apart
 * themselves, for there is no lock:
 *
 * - two calls that retain or release the same handle of one of the three kinds;
 * - two calls that make or free handles of cameras, of whatever cameras: getCameraInfo and
 *   releaseCameraInfo;
 * - two calls that look for a camera, since the cache of cameras has no lock: getCameraInfo,
 *   getPixelAreaThroughCamera, and buildProceduralArgumentsString of a location that asks for the
 *   camera.
 *
 * Reading one handle from many threads is fine.
 */

#define OV_RENDER_OUTPUT_UTILS_SUITE_NAME "RenderOutputUtilsHost"
#define OV_RENDER_OUTPUT_UTILS_SUITE_VERSION 3

typedef struct CameraInfoStruct CameraInfoStruct;
typedef struct ShadingNodeDescriptionStruct ShadingNodeDescriptionStruct;
typedef struct ShadingNodeConnectionDescriptionStruct ShadingNodeConnectionDescriptionStruct;
typedef struct OvShadingNetworkNodesStruct OvShadingNetworkNodesStruct;

/* The styles of buildProceduralArgumentsString. */
enum { OV_PROCEDURAL_ARGUMENTS_CLASSIC = 1, OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR = 2 };

/* Version 3. */
typedef struct OvRenderOutputUtilsSuite {
    /* What a procedural is told when it is called, from a group attribute of its location: a
       command line, or XML (the styles above). The crop window stands there in the order in which
       it is given. "" for any other style; null, whatever the style, when the attribute is no
       group. Where the group asks for the camera it throws what getCameraInfo throws. */
    OvAttributeStruct* (*buildProceduralArgumentsString)(OvSgIteratorStruct* iterator,
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
                                                         int yres);

    /* Asks all plug-ins of one API to drop their caches; for null and "" those of all APIs. The
       runtime's own plug-ins ("SylvarRuntime") are left alone, also when they are named. */
    void (*flushPluginCaches)(const char* apiName);

    /* How many pixels the location's "bound" takes up through a camera, in a picture of the named
       resolution. 0 when there is no such camera or resolution, and for a null iterator. Throws
       what getCameraInfo throws, and std::runtime_error, "Cannot get bounds attribute on <path>",
       for a camera and a resolution that are there. */
    int (*getPixelAreaThroughCamera)(OvSgIteratorStruct* iterator,
                                     const char* cameraPath,
                                     const char* resolutionName);

    /* The times among the samples, in any order and none of them NaN, that matter while the shutter
       is open, ascending: floats, of which there may be none. */
    OvAttributeStruct* (*findSampleTimesRelevantToShutterRange)(const float* sampleTimes,
                                                                unsigned count,
                                                                float shutterOpen,
                                                                float shutterClose);

    /* The name of the render's resolution, and its size in pixels, from the root's
       "renderSettings.resolution"; "square_512" without one, and for a null iterator. A null place
       is not written.
       Throws std::runtime_error for a name that the resolution table does not have, and when there
       is no table. */
    OvAttributeStruct* (*getRenderResolution)(OvSgIteratorStruct* root, int* width, int* height);

    /* The path of the render's camera, from the root's "renderSettings.cameraName";
       "/root/world/cam/camera" without one, "" for a null iterator. */
    OvAttributeStruct* (*getCameraPath)(OvSgIteratorStruct* root);

    /* Texture assignments rewritten as arbitrary attributes; null for anything that is no group. */
    OvAttributeStruct* (*convertTexturesToArbitraryAttr)(OvAttributeStruct* textures);

    /* The architecture of the library's build, and a path with "%ARCH" replaced by it. */
    OvAttributeStruct* (*getArchString)(void);
    OvAttributeStruct* (*expandArchPath)(const char* path);

    /* The materials of the location and those above it as one group, for terminals that a string
       attribute names; null when that is none, and when there are no materials. One result is
       remembered for each path until it is emptied. Both throw boost::lock_error when the cache
       cannot be locked. */
    OvAttributeStruct* (*getFlattenedMaterialAttr)(OvSgIteratorStruct* iterator,
                                                   OvAttributeStruct* terminals);
    void (*emptyFlattenedMaterialCache)(void);

    /* The nodes of a network: of a group, null for anything else; and of the location's own
       "material", where there may be none. */
    OvShadingNetworkNodesStruct* (*getShadingNetworkNodesFromAttr)(OvAttributeStruct* network);
    OvShadingNetworkNodesStruct* (*getShadingNetworkNodesFromIterator)(
        OvSgIteratorStruct* iterator);
    void (*freeShadingNetworkNodes)(OvShadingNetworkNodesStruct* nodes);

    void (*retainShadingNode)(ShadingNodeDescriptionStruct* node);
    void (*releaseShadingNode)(ShadingNodeDescriptionStruct* node);
    void (*retainShadingNodeConnection)(ShadingNodeConnectionDescriptionStruct* connection);
    void (*releaseShadingNodeConnection)(ShadingNodeConnectionDescriptionStruct* connection);

    /* The node of that name; null when there is none. */
    ShadingNodeDescriptionStruct* (*getShadingNetworkNode)(OvShadingNetworkNodesStruct* nodes,
                                                           const char* name);

    /* A node's name and type; its parameters in their order, by index, which must be below the
       count, and by name; and what drives its inputs, in the same way. */
    const char* (*getShadingNodeName)(ShadingNodeDescriptionStruct* node);
    const char* (*getShadingNodeType)(ShadingNodeDescriptionStruct* node);
    unsigned (*getShadingNodeParameterCount)(ShadingNodeDescriptionStruct* node);
    const char* (*getShadingNodeParameterName)(ShadingNodeDescriptionStruct* node, unsigned index);
    OvAttributeStruct* (*getShadingNodeParameter)(ShadingNodeDescriptionStruct* node,
                                                  const char* name);
    unsigned (*getShadingNodeConnectionCount)(ShadingNodeDescriptionStruct* node);
    const char* (*getShadingNodeConnectionName)(ShadingNodeDescriptionStruct* node, unsigned index);
    ShadingNodeConnectionDescriptionStruct* (
        *getShadingNodeConnection)(ShadingNodeDescriptionStruct* node, const char* name);

    /* Whether the node has a name and a type. */
    bool (*isShadingNodeValid)(ShadingNodeDescriptionStruct* node);

    /* The input, the node that drives it, and the port of that node. */
    const char* (*getConnectionName)(ShadingNodeConnectionDescriptionStruct* connection);
    const char* (*getConnectionNodeName)(ShadingNodeConnectionDescriptionStruct* connection);
    const char* (*getConnectionPortName)(ShadingNodeConnectionDescriptionStruct* connection);

    /* Whether all three are there. True for the null connection, other than for the null node. */
    bool (*isConnectionValid)(ShadingNodeConnectionDescriptionStruct* connection);

    /* The camera at a path below the root; null when there is none that can be read, and for a null
       iterator. Throws std::runtime_error, "Error building attribute time samples are different
       sizes.". */
    CameraInfoStruct* (*getCameraInfo)(OvSgIteratorStruct* root, const char* cameraPath);
    void (*retainCameraInfo)(CameraInfoStruct* camera);
    void (*releaseCameraInfo)(CameraInfoStruct* camera);

    /* The horizontal field of view in degrees, the clipping distances, and the screen rectangle,
       which an orthographic camera has in units of half the orthographic width. */
    float (*getCameraFov)(CameraInfoStruct* camera);
    float (*getCameraNear)(CameraInfoStruct* camera);
    float (*getCameraFar)(CameraInfoStruct* camera);
    float (*getCameraLeft)(CameraInfoStruct* camera);
    float (*getCameraRight)(CameraInfoStruct* camera);
    float (*getCameraTop)(CameraInfoStruct* camera);
    float (*getCameraBottom)(CameraInfoStruct* camera);
    bool (*isCameraOrthographic)(CameraInfoStruct* camera);
    float (*getCameraOrthographicWidth)(CameraInfoStruct* camera);

    /* From the camera to the world, for row vectors: 16 doubles, row by row, borrowed for as long
       as somebody holds the handle. */
    const double* (*getCameraXform)(CameraInfoStruct* camera);

    /* Hands the location to the delegate for that type and renderer, null and "" being delegates
       for any renderer. False when the type is null, when there is no such delegate, and when it
       cannot be made. Otherwise true, and `*result`, unless `result` is null, is what the delegate
       returned. The iterator, which may be null, and the input reach the delegate as they are; what
       it throws travels. */
    bool (*processLocationDelegate)(OvSgIteratorStruct* iterator,
                                    const char* rendererName,
                                    const char* locationType,
                                    void* input,
                                    void** result);

    /* The types of location that there are delegates for, ascending: strings, of which there may be
       none. The name is as above. */
    OvAttributeStruct* (*getLocationTypesWithDelegates)(const char* rendererName);

    /* Where an output is rendered to before it is moved to its place, from the location's
       "renderSettings": the output's "tempRenderLocation" with "~", variables and runs of "#" (the
       frame) filled in; or else "tempDir" and a name made of prefix, "tempRenderId", "." and
       suffix. A null prefix leaves the directory alone, a null suffix ends the name at the ".". ""
       for a null iterator. */
    OvAttributeStruct* (*getRenderOutputTempLocation)(OvSgIteratorStruct* iterator,
                                                      const char* outputName,
                                                      const char* prefix,
                                                      const char* suffix,
                                                      float frame);

    /* The path of the tile that is being rendered, from that of the whole picture, by the integers
       "renderSettings.tileRender" of the location or those above it: column, row, and perhaps how
       many of each. The path itself for a null iterator, and where no tile is being rendered. */
    OvAttributeStruct* (*processTilePath)(OvSgIteratorStruct* iterator, const char* path);
} OvRenderOutputUtilsSuite;

#define OV_AT(entry, place) (OV_TABLE_PLACE(OvRenderOutputUtilsSuite, entry) == (place) + 1)
OV_REQUIRE(OvRenderOutputUtilsSuiteEntries, OV_TABLE_ENTRIES(OvRenderOutputUtilsSuite) == 49);
OV_REQUIRE(OvRenderOutputUtilsSuiteOrder,
           OV_AT(buildProceduralArgumentsString, 0) && OV_AT(flushPluginCaches, 1) &&
               OV_AT(getPixelAreaThroughCamera, 2) &&
               OV_AT(findSampleTimesRelevantToShutterRange, 3) && OV_AT(getRenderResolution, 4) &&
               OV_AT(getCameraPath, 5) && OV_AT(convertTexturesToArbitraryAttr, 6) &&
               OV_AT(getArchString, 7) && OV_AT(expandArchPath, 8) &&
               OV_AT(getFlattenedMaterialAttr, 9) && OV_AT(emptyFlattenedMaterialCache, 10) &&
               OV_AT(getShadingNetworkNodesFromAttr, 11) &&
               OV_AT(getShadingNetworkNodesFromIterator, 12) &&
               OV_AT(freeShadingNetworkNodes, 13) && OV_AT(retainShadingNode, 14) &&
               OV_AT(releaseShadingNode, 15) && OV_AT(retainShadingNodeConnection, 16) &&
               OV_AT(releaseShadingNodeConnection, 17) && OV_AT(getShadingNetworkNode, 18) &&
               OV_AT(getShadingNodeName, 19) && OV_AT(getShadingNodeType, 20) &&
               OV_AT(getShadingNodeParameterCount, 21) && OV_AT(getShadingNodeParameterName, 22) &&
               OV_AT(getShadingNodeParameter, 23) && OV_AT(getShadingNodeConnectionCount, 24) &&
               OV_AT(getShadingNodeConnectionName, 25) && OV_AT(getShadingNodeConnection, 26) &&
               OV_AT(isShadingNodeValid, 27) && OV_AT(getConnectionName, 28) &&
               OV_AT(getConnectionNodeName, 29) && OV_AT(getConnectionPortName, 30) &&
               OV_AT(isConnectionValid, 31) && OV_AT(getCameraInfo, 32) &&
               OV_AT(retainCameraInfo, 33) && OV_AT(releaseCameraInfo, 34) &&
               OV_AT(getCameraFov, 35) && OV_AT(getCameraNear, 36) && OV_AT(getCameraFar, 37) &&
               OV_AT(getCameraLeft, 38) && OV_AT(getCameraRight, 39) && OV_AT(getCameraTop, 40) &&
               OV_AT(getCameraBottom, 41) && OV_AT(isCameraOrthographic, 42) &&
               OV_AT(getCameraOrthographicWidth, 43) && OV_AT(getCameraXform, 44) &&
               OV_AT(processLocationDelegate, 45) && OV_AT(getLocationTypesWithDelegates, 46) &&
               OV_AT(getRenderOutputTempLocation, 47) && OV_AT(processTilePath, 48));
#undef OV_AT

#ifdef __cplusplus
}
#endif

#endif
