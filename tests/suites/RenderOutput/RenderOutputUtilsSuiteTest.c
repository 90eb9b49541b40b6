/* SPDX-License-Identifier: Apache-2.0 */
/* The render output table as a program in plain C99 uses it: every entry once. */
#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

#include <stdio.h>
#include <string.h>

static const OvAttributeSuite* attributes;
static const OvScenegraphIteratorSuite* scene;
static const OvRenderOutputUtilsSuite* table;
static int failures = 0;

#define CHECK(condition)                                                        \
    do {                                                                        \
        if (!(condition)) {                                                     \
            fprintf(stderr, "%s:%d: not %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                         \
        }                                                                       \
    } while (0)

/* An op tree of one scene: a camera and a box in front of it, with a material and a procedural. */
static const char kTree[] =
    "{'format': 'sylvar', 'version': 1, 'content': 'op tree', 'root': {'scene': {"
    "'opType': 'scene', 'opArgs': {'tree': {"
    "  'a': {'renderSettings': {'cameraName': '/root/cam', 'resolution': 'pal', 'tempDir': '/tmp',"
    "                           'tileRender': [1, 2], 'outputs': {'beauty': {'tempRenderId': "
    "'17'}}}},"
    "  'c': {"
    "    'cam': {'a': {"
    "      'xform': {'translate': [0.0, 0.0, 5.0]},"
    "      'geometry': {'fov': 40.5, 'near': 0.5, 'far': 9.0, 'left': -1.0, 'right': 1.25,"
    "                   'top': 0.75, 'bottom': -0.625, 'projection': 'orthographic',"
    "                   'orthographicWidth': 8.0}}},"
    "    'box': {'a': {"
    "      'bound': [-0.5, 0.625, -0.625, 0.75, -1.0, 0.0],"
    "      'procedural': {'args': {'n': 3}},"
    "      'material': {"
    "        'style': 'network', 'terminals': {'surface': 'shader'}, 'nodes': {"
    "          'shader': {'name': 'shader', 'type': 'standard', 'parameters': {'roughness': 0.5},"
    "                     'connections': {'base': 'out@image'}},"
    "          'image': {'name': 'image', 'type': 'file'}}}}}}}}}}}";

typedef struct Text {
    char bytes[sizeof kTree];
    long length;
    long place;
} Text;

static long readText(void* stream, void* buffer, long size) {
    Text* const text = stream;
    const long left = text->length - text->place;
    const long count = left < size ? left : size;
    memcpy(buffer, text->bytes + text->place, (size_t)count);
    text->place += count;
    return count;
}

/* The tree, with the quotes that JSON has. */
static OvAttributeStruct* opTree(void) {
    Text text;
    char* quote;
    memcpy(text.bytes, kTree, sizeof kTree);
    text.length = (long)strlen(kTree);
    text.place = 0;
    for (quote = strchr(text.bytes, '\''); quote; quote = strchr(quote, '\'')) {
        *quote = '"';
    }
    return attributes->readStream(&text, readText);
}

/* Whether the attribute's first value is that text; gives the attribute back. */
static int isText(OvAttributeStruct* attribute, const char* wanted) {
    const char* text = NULL;
    const int same = attribute && attributes->getNearestString(&attribute, 0, 0.0F, &text) &&
                     strcmp(text, wanted) == 0;
    if (attribute) {
        attributes->release(attribute);
    }
    return same;
}

static void giveBack(OvAttributeStruct* attribute) {
    CHECK(attribute != NULL);
    if (attribute) {
        attributes->release(attribute);
    }
}

static void readSettings(OvSgIteratorStruct* root) {
    int width = 0;
    int height = 0;
    CHECK(isText(table->getRenderResolution(root, &width, &height), "pal"));
    CHECK(width == 720 && height == 576);
    CHECK(isText(table->getCameraPath(root), "/root/cam"));
    CHECK(isText(table->getRenderOutputTempLocation(root, "beauty", "pre_", "exr", 7.0F),
                 "/tmp/pre_17.exr"));
    CHECK(isText(table->processTilePath(root, "/a/beauty.exr"), "/a/tile_1_2.beauty.exr"));
}

static void readLens(CameraInfoStruct* camera) {
    CHECK(table->getCameraFov(camera) == 40.5F);
    CHECK(table->getCameraNear(camera) == 0.5F);
    CHECK(table->getCameraFar(camera) == 9.0F);
    CHECK(table->getCameraLeft(camera) == -1.0F);
    CHECK(table->getCameraRight(camera) == 1.25F);
    CHECK(table->getCameraTop(camera) == 0.75F);
    CHECK(table->getCameraBottom(camera) == -0.625F);
    CHECK(table->isCameraOrthographic(camera));
    CHECK(table->getCameraOrthographicWidth(camera) == 8.0F);
}

static void readCamera(OvSgIteratorStruct* root) {
    CameraInfoStruct* const camera = table->getCameraInfo(root, "/root/cam");
    const double* xform;
    CHECK(camera != NULL);
    table->retainCameraInfo(camera);
    table->releaseCameraInfo(camera);
    readLens(camera);
    xform = table->getCameraXform(camera);
    CHECK(xform && xform[0] == 1.0 && xform[14] == 5.0 && xform[15] == 1.0);
    table->releaseCameraInfo(camera);
}

static void readConnection(ShadingNodeDescriptionStruct* node) {
    ShadingNodeConnectionDescriptionStruct* const connection =
        table->getShadingNodeConnection(node, "base");
    CHECK(connection != NULL);
    table->retainShadingNodeConnection(connection);
    table->releaseShadingNodeConnection(connection);
    CHECK(strcmp(table->getConnectionName(connection), "base") == 0);
    CHECK(strcmp(table->getConnectionNodeName(connection), "image") == 0);
    CHECK(strcmp(table->getConnectionPortName(connection), "out") == 0);
    CHECK(table->isConnectionValid(connection));
    table->releaseShadingNodeConnection(connection);
}

static void readNode(OvShadingNetworkNodesStruct* nodes) {
    double roughness = 0.0;
    OvAttributeStruct* value;
    ShadingNodeDescriptionStruct* const node = table->getShadingNetworkNode(nodes, "shader");
    CHECK(node != NULL);
    table->freeShadingNetworkNodes(nodes);
    table->retainShadingNode(node);
    table->releaseShadingNode(node);
    CHECK(table->isShadingNodeValid(node));
    CHECK(strcmp(table->getShadingNodeName(node), "shader") == 0);
    CHECK(strcmp(table->getShadingNodeType(node), "standard") == 0);
    CHECK(table->getShadingNodeParameterCount(node) == 1U);
    CHECK(strcmp(table->getShadingNodeParameterName(node, 0), "roughness") == 0);
    value = table->getShadingNodeParameter(node, "roughness");
    CHECK(value && attributes->getNearestDouble(&value, 0, 0.0F, &roughness) && roughness == 0.5);
    giveBack(value);
    CHECK(table->getShadingNodeConnectionCount(node) == 1U);
    CHECK(strcmp(table->getShadingNodeConnectionName(node, 0), "base") == 0);
    readConnection(node);
    table->releaseShadingNode(node);
}

static void readMaterial(OvSgIteratorStruct* box) {
    OvAttributeStruct* const terminals = attributes->createString("surface");
    OvAttributeStruct* const material = table->getFlattenedMaterialAttr(box, terminals);
    readNode(table->getShadingNetworkNodesFromAttr(material));
    readNode(table->getShadingNetworkNodesFromIterator(box));
    giveBack(material);
    giveBack(terminals);
    table->emptyFlattenedMaterialCache();
}

static void askDelegates(OvSgIteratorStruct* box) {
    OvAttributeStruct* const types = table->getLocationTypesWithDelegates("none");
    void* result = box;
    CHECK(!table->processLocationDelegate(box, "none", "none", NULL, &result));
    CHECK(result == box);
    CHECK(types && attributes->getNumberOfValues(types) == 0);
    giveBack(types);
    table->flushPluginCaches("none");
}

static void readBox(OvSgIteratorStruct* box) {
    CHECK(isText(table->buildProceduralArgumentsString(box,
                                                       OV_PROCEDURAL_ARGUMENTS_CLASSIC,
                                                       "procedural",
                                                       7,
                                                       0.25F,
                                                       0.75F,
                                                       0.0F,
                                                       1.0F,
                                                       0.5F,
                                                       0.25F,
                                                       640,
                                                       480),
                 " -n 3 -frame 7 -shutter 0.25 0.75 -cropwindow 0 1 0.5 0.25"));
    CHECK(table->getPixelAreaThroughCamera(box, "/root/cam", "pal") == 360 * 576);
    readMaterial(box);
    askDelegates(box);
}

static void convert(void) {
    static const float samples[] = {2.0F, 1.0F, 2.0F};
    const char* const name = "color";
    OvAttributeStruct* map = attributes->createString("c.tx");
    OvAttributeStruct* const textures = attributes->createGroup(&name, &map, 1, 0);
    OvAttributeStruct* const converted = table->convertTexturesToArbitraryAttr(textures);
    OvAttributeStruct* const times =
        table->findSampleTimesRelevantToShutterRange(samples, 3, 0.0F, 3.0F);
    CHECK(isText(attributes->getChildByName(converted, "color.scope", 11), "primitive"));
    CHECK(times && attributes->getNumberOfValues(times) == 2);
    CHECK(isText(table->getArchString(), "kelnix1"));
    CHECK(isText(table->expandArchPath("/lib/%ARCH"), "/lib/kelnix1"));
    giveBack(times);
    giveBack(converted);
    giveBack(textures);
    giveBack(map);
}

static void readScene(OvSgIteratorStruct* root) {
    OvSgIteratorStruct* const box = scene->sgGetChildByName(root, "box", 0);
    scene->sgRetain(box);
    readSettings(root);
    readCamera(root);
    CHECK(box != NULL);
    if (box) {
        readBox(box);
    }
    scene->sgRelease(box);
}

int main(void) {
    const OvHostTable* const host = OvGetHostTable();
    OvAttributeStruct* tree;
    OvSgIteratorStruct* root;

    CHECK(OvSylvarProducersInitialize(host) == OV_HOST_SUITE_REGISTERED);
    attributes = host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    scene =
        host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    table =
        host->findSuite(OV_RENDER_OUTPUT_UTILS_SUITE_NAME, OV_RENDER_OUTPUT_UTILS_SUITE_VERSION);
    if (!attributes || !scene || !table) {
        fprintf(stderr, "the host lacks a suite\n");
        return 1;
    }

    convert();
    tree = opTree();
    CHECK(tree != NULL);
    root = scene->sgCreateRootFromAttr(tree);
    CHECK(root != NULL);
    if (root) {
        readScene(root);
        scene->sgFinalize(root);
        scene->sgRelease(root);
    }
    giveBack(tree);
    return failures == 0 ? 0 : 1;
}
