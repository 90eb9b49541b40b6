/* SPDX-License-Identifier: Apache-2.0 */
/*
 * A renderer as a plug-in, complete and in plain C99: "CensusC" walks the scene and, in place of an
 * image, makes a census of it. Build it into a shared object, put that where plug-ins are looked
 * for, and name it:
 *
 *     cc -std=c99 -fexceptions -shared -fPIC -fvisibility=hidden CensusRenderer.c -o CensusC.so
 *     ovscene render shot.optree --renderer CensusC --plugins .
 *
 * It links nothing: all that it calls comes in tables of functions, which the host hands over.
 *
 * -fexceptions, because what goes wrong in the host (memory that runs out while a location is
 * cooked, a resolution that nobody knows) travels through `render` as a C++ exception, up to the
 * host, which counts it as a failed render. Some machines end a process that throws through C code
 * without it; x86-64 does not, but that is no promise. C has no way to catch, so what is held at
 * that moment stays held: iterators, attributes, the open file. A renderer that must give those
 * back, or go on, is better written in C++.
 */
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/Plugin.h>
#include <SylvarPlatform/suites/Renderer.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const OvHostTable* host;                /* messages and settings */
static const OvAttributeSuite* attributes;     /* reads values */
static const OvScenegraphIteratorSuite* scene; /* walks locations */
static const OvRenderOutputUtilsSuite* output; /* tells what else a render wants to know */

enum { DEEPEST_PRINTED = 3, FRAME = 1 };

static void logMessage(int32_t level, const char* before, const char* text) {
    char message[1024];
    if (host->isLogEnabled("CensusC", level)) {
        snprintf(message, sizeof message, "%s%s", before, text);
        host->log("CensusC", level, message, __FILE__, __LINE__);
    }
}

/* ---- Attributes --------------------------------------------------------------------------- */

/* Attributes that the host gives are the caller's to give back; there may be none. */
static void giveBack(OvAttributeStruct* attribute) {
    if (attribute) {
        attributes->release(attribute);
    }
}

/* The text of a string attribute, good for as long as the attribute is held; "" for none. */
static const char* textOf(OvAttributeStruct* attribute) {
    const char* text = "";
    attributes->getNearestString(&attribute, 0, 0, &text);
    return text;
}

static const char* shown(OvAttributeStruct* attribute) {
    const char* const text = textOf(attribute);
    return *text ? text : "-";
}

static int isGroup(OvAttributeStruct* attribute) {
    return attribute && attributes->getType(attribute) == OV_ATTRIBUTE_GROUP;
}

/* Null when there is none. */
static OvAttributeStruct* childOf(OvAttributeStruct* group, const char* name) {
    return group ? attributes->getChildByName(group, name, (int32_t)strlen(name)) : 0;
}

static int64_t childCount(OvAttributeStruct* group) {
    return group ? attributes->getNumberOfChildren(group) : 0;
}

/* The name of a child, for the caller to free; null when memory runs out. The names of children are
   no C strings: they come with a length. */
static char* childName(OvAttributeStruct* group, int64_t index) {
    int32_t length = 0;
    const char* const start = attributes->getChildName(group, index, &length);
    const size_t size = start && length > 0 ? (size_t)length : 0;
    char* const name = (char*)calloc(size + 1, 1);
    if (name && size > 0) {
        memcpy(name, start, size);
    }
    return name;
}

/* ---- The render --------------------------------------------------------------------------- */

/* A name that the resolution table does not have ends the render with an exception, and what is
   held by then is lost: C cannot give it back. */
static void printResolution(OvSgIteratorStruct* root, FILE* file) {
    int width = 0;
    int height = 0;
    OvAttributeStruct* const name = output->getRenderResolution(root, &width, &height);
    fprintf(file, "resolution %s: %d x %d\n", shown(name), width, height);
    giveBack(name);
}

static void printCamera(OvSgIteratorStruct* root, FILE* file) {
    OvAttributeStruct* const path = output->getCameraPath(root);
    CameraInfoStruct* const camera = output->getCameraInfo(root, textOf(path));
    if (camera) {
        const double fov = (double)output->getCameraFov(camera);
        fprintf(file, "camera %s: %g degrees\n", shown(path), fov);
    } else {
        fprintf(file, "camera %s: none\n", shown(path));
    }
    output->releaseCameraInfo(camera); /* which does nothing for null */
    giveBack(path);
}

/* Where an output is rendered to before it is moved to its place. */
static void printOutput(OvSgIteratorStruct* root, FILE* file, const char* name) {
    OvAttributeStruct* const place =
        output->getRenderOutputTempLocation(root, name, name, "exr", FRAME);
    fprintf(file, "output %s: %s\n", name, shown(place));
    giveBack(place);
}

/* 0 when memory runs out. */
static int printOutputs(OvSgIteratorStruct* root, FILE* file) {
    OvAttributeStruct* const outputs = scene->sgGetAttribute(root, "renderSettings.outputs");
    int isDone = 1;
    int64_t i;
    for (i = 0; i < childCount(outputs) && isDone; ++i) {
        char* const name = childName(outputs, i);
        isDone = name != 0;
        if (isDone) {
            printOutput(root, file, name);
        }
        free(name);
    }
    giveBack(outputs);
    return isDone;
}

static int printRender(OvSgIteratorStruct* root, FILE* file) {
    printResolution(root, file);
    printCamera(root, file);
    return printOutputs(root, file);
}

/* ---- What is counted ---------------------------------------------------------------------- */

typedef struct TypeCount {
    struct TypeCount* next;
    OvAttributeStruct* type; /* held, and not copied */
    int64_t locations;
} TypeCount;

typedef struct Census {
    FILE* file; /* where the lines go */
    int64_t locations;
    int64_t levels;
    int64_t points;
    int64_t materials;
    int64_t nodes;
    TypeCount* types; /* by name; scenes have few, so a list is enough */
} Census;

/* Where the type is in the list, or where it belongs. */
static TypeCount** placeOf(Census* census, const char* type) {
    TypeCount** place = &census->types;
    while (*place && strcmp(shown((*place)->type), type) < 0) {
        place = &(*place)->next;
    }
    return place;
}

/* 0 when memory runs out. */
static int insertType(TypeCount** place, OvAttributeStruct* type) {
    TypeCount* const count = (TypeCount*)malloc(sizeof *count);
    if (count) {
        attributes->retain(type); /* which does nothing for null */
        count->next = *place;
        count->type = type;
        count->locations = 0;
        *place = count;
    }
    return count != 0;
}

static int countType(Census* census, OvAttributeStruct* type) {
    TypeCount** const place = placeOf(census, shown(type));
    const int isThere = *place && strcmp(shown((*place)->type), shown(type)) == 0;
    if (!isThere && !insertType(place, type)) {
        return 0;
    }
    ++(*place)->locations;
    return 1;
}

static void freeTypes(TypeCount* count) {
    while (count) {
        TypeCount* const next = count->next;
        giveBack(count->type);
        free(count);
        count = next;
    }
}

/* ---- One location ------------------------------------------------------------------------- */

static int64_t pointCount(OvSgIteratorStruct* location) {
    OvAttributeStruct* const points = scene->sgGetAttribute(location, "geometry.points");
    int64_t count = 0;
    if (points && attributes->getType(points) == OV_ATTRIBUTE_FLOAT) {
        count = attributes->getNumberOfValues(points) / 3;
    }
    giveBack(points);
    return count;
}

/* Whether the network has a node of that name. Every handle is given back. */
static int hasNode(OvShadingNetworkNodesStruct* network, const char* name) {
    ShadingNodeDescriptionStruct* const node = output->getShadingNetworkNode(network, name);
    output->releaseShadingNode(node);
    return node != 0;
}

/* The nodes that can be used. A network is asked for them by their names, which the material has.
 */
static int64_t nodeCount(OvAttributeStruct* material) {
    OvShadingNetworkNodesStruct* const network = output->getShadingNetworkNodesFromAttr(material);
    OvAttributeStruct* const nodes = childOf(material, "nodes");
    int64_t count = 0;
    int64_t i;
    for (i = 0; i < childCount(nodes); ++i) {
        OvAttributeStruct* const node = attributes->getChildByIndex(nodes, i);
        OvAttributeStruct* const name = childOf(node, "name");
        count += hasNode(network, textOf(name));
        giveBack(name);
        giveBack(node);
    }
    giveBack(nodes);
    output->freeShadingNetworkNodes(network);
    return count;
}

/* Of the location itself: those above it have theirs counted already. */
static void countMaterial(Census* census, OvSgIteratorStruct* location) {
    OvAttributeStruct* const material = scene->sgGetAttribute(location, "material");
    if (isGroup(material)) {
        ++census->materials;
        census->nodes += nodeCount(material);
    }
    giveBack(material);
}

static void printLine(const Census* census, OvSgIteratorStruct* location, const char* type) {
    OvAttributeStruct* const path = scene->sgGetFullName(location);
    fprintf(census->file, "%s  %s\n", shown(path), type);
    giveBack(path);
}

/* 0 when memory runs out. */
static int visit(Census* census, OvSgIteratorStruct* location, int64_t depth) {
    OvAttributeStruct* const type = scene->sgGetAttribute(location, "type");
    int isCounted;
    if (depth <= DEEPEST_PRINTED) {
        printLine(census, location, shown(type));
    }
    ++census->locations;
    census->levels = depth >= census->levels ? depth + 1 : census->levels;
    census->points += pointCount(location);
    countMaterial(census, location);
    isCounted = countType(census, type);
    giveBack(type);
    return isCounted;
}

/* ---- The walk ----------------------------------------------------------------------------- */

/* A step gives an iterator without a reference: this takes one. The null iterator stays null. */
static OvSgIteratorStruct* hold(OvSgIteratorStruct* iterator) {
    scene->sgRetain(iterator);
    return iterator;
}

/* The next location behind this one, which is given back: its next sibling, or that of the nearest
   location above that has one. Null at the end. */
static OvSgIteratorStruct* stepOver(OvSgIteratorStruct* here, int64_t* depth) {
    OvSgIteratorStruct* next = hold(scene->sgGetNextSibling(here, 0));
    while (!next && here) {
        OvSgIteratorStruct* const above = hold(scene->sgGetParent(here));
        scene->sgRelease(here);
        here = above;
        --*depth;
        next = hold(scene->sgGetNextSibling(here, 0));
    }
    scene->sgRelease(here);
    return next;
}

/* Every location, one above before those below it. Scenes may be deeper than any stack, so this
   goes from neighbour to neighbour. 0 when memory runs out. */
static int walk(Census* census, OvSgIteratorStruct* root) {
    OvSgIteratorStruct* here = hold(root);
    int64_t depth = 0;
    int goesOn = 1;
    while (here && goesOn) {
        goesOn = visit(census, here, depth);
        if (goesOn) {
            OvSgIteratorStruct* const child = hold(scene->sgGetFirstChild(here, 0));
            if (child) {
                scene->sgRelease(here);
                here = child;
                ++depth;
            } else {
                here = stepOver(here, &depth);
            }
        }
    }
    scene->sgRelease(here);
    return goesOn;
}

static void printSums(const Census* census) {
    const TypeCount* count;
    fprintf(census->file,
            "%lld locations, %lld levels, %lld points, %lld materials, %lld shading nodes\n",
            (long long)census->locations,
            (long long)census->levels,
            (long long)census->points,
            (long long)census->materials,
            (long long)census->nodes);
    for (count = census->types; count; count = count->next) {
        fprintf(census->file, "%8lld  %s\n", (long long)count->locations, shown(count->type));
    }
}

/* ---- The renderer ------------------------------------------------------------------------- */

static int takeCensus(OvSgIteratorStruct* root, FILE* file) {
    Census census;
    int isDone;
    memset(&census, 0, sizeof census);
    census.file = file;
    isDone = printRender(root, file) && walk(&census, root);
    if (isDone) {
        printSums(&census);
    } else {
        logMessage(OV_LOG_ERROR, "there is not enough memory", "");
    }
    freeTypes(census.types);
    return isDone;
}

/* 0 when not all was written. The standard output is the host's to look after. */
static int closeFile(FILE* file, const char* name) {
    int failure;
    if (file == stdout) {
        return 1;
    }
    failure = ferror(file);
    failure |= fclose(file);
    if (failure) {
        logMessage(OV_LOG_ERROR, "cannot write ", name);
    }
    return !failure;
}

static int writeCensus(OvSgIteratorStruct* root, const char* name) {
    FILE* const file = name ? fopen(name, "w") : stdout;
    int isTaken;
    if (!file) {
        logMessage(OV_LOG_ERROR, "cannot open ", name);
        return 0;
    }
    isTaken = takeCensus(root, file);
    return closeFile(file, name) && isTaken;
}

/* This one has no options, and one thread is enough for it. */
static int32_t render(const OvRenderJob* job) {
    OvSgIteratorStruct* root;
    int isDone;
    uint32_t i;
    for (i = 0; i < job->optionCount; ++i) {
        logMessage(OV_LOG_WARN, "there is no option ", job->options[i]);
    }
    root = job->opTreeFile ? scene->sgCreateRootFromFile(job->opTreeFile)
                           : scene->sgCreateRootFromAttr(job->opTree);
    if (!root) {
        return 1; /* the log has the reason already */
    }
    isDone = writeCensus(root, job->outputFile);
    scene->sgFinalize(root); /* what was cooked for this render is wanted no longer */
    scene->sgRelease(root);  /* unlike a step, a root comes with a reference */
    return isDone ? 0 : 1;
}

static const OvRenderer renderer = {sizeof(OvRenderer),
                                    0, /* reserved */
                                    "A census: the render, the upper locations, and how many"
                                    " of each type.",
                                    render};

/* ---- The plug-in -------------------------------------------------------------------------- */

/* Null, with a word in the log, when the host has no such table. */
static const void* findSuite(const char* name, uint32_t version) {
    const void* const suite = host->findSuite(name, version);
    char wanted[64];
    if (!suite) {
        snprintf(wanted, sizeof wanted, "\"%s\", version %u", name, (unsigned)version);
        logMessage(OV_LOG_ERROR, "the host has no suite ", wanted);
    }
    return suite;
}

/* Called once, before anything else is wanted of the plug-in. Anything but 0 refuses the host. */
static int32_t setHost(const OvHostTable* table) {
    host = table;
    attributes =
        (const OvAttributeSuite*)findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    scene = (const OvScenegraphIteratorSuite*)findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                                                        OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    output = (const OvRenderOutputUtilsSuite*)findSuite(OV_RENDER_OUTPUT_UTILS_SUITE_NAME,
                                                        OV_RENDER_OUTPUT_UTILS_SUITE_VERSION);
    return attributes && scene && output ? 0 : 1;
}

static const void* getSuite(void) {
    return &renderer;
}

/* The plug-in's name is the renderer's. */
static OvPluginStruct plugin = {sizeof(OvPluginStruct),
                                OV_PLUGIN_VERSION,
                                "CensusC",
                                OV_RENDERER_API_NAME,
                                OV_RENDERER_API_VERSION,
                                0, /* reserved */
                                setHost,
                                getSuite,
                                0 /* flush: nothing is cached */};

OV_PLUGIN_EXPORT int32_t OvGetPluginCount(void);
OV_PLUGIN_EXPORT OvPluginStruct* OvGetPlugin(int32_t index);

int32_t OvGetPluginCount(void) {
    return 1;
}

OvPluginStruct* OvGetPlugin(int32_t index) {
    return index == 0 ? &plugin : 0;
}
