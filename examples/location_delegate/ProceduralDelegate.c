/* SPDX-License-Identifier: Apache-2.0 */
/*
 * A location delegate as a plug-in, complete and in plain C99: for locations of the type "renderer
 * procedural" it tells any renderer which library to load, and what to tell it. Build it into a
 * shared object and put that where plug-ins are looked for:
 *
 *     cc -std=c99 -fexceptions -shared -fPIC -fvisibility=hidden ProceduralDelegate.c \
 *         -o ProceduralDelegate.so
 *
 * It links nothing: all that it calls comes in tables of functions, which the host hands over.
 * ProceduralCall.h is for the renderers too.
 *
 * -fexceptions, because what goes wrong while the arguments are made travels through `process` as a
 * C++ exception, to the renderer.
 */
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/LocationDelegate.h>
#include <SylvarPlatform/suites/Plugin.h>

#include "ProceduralCall.h"

#include <stdlib.h>

static const OvAttributeSuite* attributes;     /* makes and reads values */
static const OvScenegraphIteratorSuite* scene; /* reads locations */
static const OvRenderOutputUtilsSuite* output; /* makes the arguments */

/* ---- The call ----------------------------------------------------------------------------- */

/* A call with the attributes that its texts lie in. */
typedef struct HeldCall {
    ProceduralCall call; /* the first member: to the renderer it is all */
    OvAttributeStruct* library;
    OvAttributeStruct* arguments;
} HeldCall;

static void giveBack(OvAttributeStruct* attribute) {
    if (attribute) {
        attributes->release(attribute);
    }
}

static void dispose(ProceduralCall* call) {
    HeldCall* const held = (HeldCall*)call;
    giveBack(held->library);
    giveBack(held->arguments);
    free(held);
}

/* The text of a string attribute, good for as long as the attribute is held; "" for none. */
static const char* textOf(OvAttributeStruct* attribute) {
    const char* text = "";
    attributes->getNearestString(&attribute, 0, 0, &text);
    return text;
}

static OvAttributeStruct* argumentsOf(OvSgIteratorStruct* location, const ProceduralFrame* frame) {
    return output->buildProceduralArgumentsString(location,
                                                  OV_PROCEDURAL_ARGUMENTS_CLASSIC,
                                                  "procedural",
                                                  frame->frame,
                                                  frame->shutterOpen,
                                                  frame->shutterClose,
                                                  frame->cropWindow[0],
                                                  frame->cropWindow[1],
                                                  frame->cropWindow[2],
                                                  frame->cropWindow[3],
                                                  frame->width,
                                                  frame->height);
}

/* ---- The delegate ------------------------------------------------------------------------- */

/* There is nothing to keep from one location to the next, so one instance is enough for all of
   them. Null would mean that there is none. */
static void* create(void) {
    static char instance;
    return &instance;
}

/* Any thread, several at a time. What is held when the arguments throw stays held, so they come
   first. */
static void* process(void* instance, OvSgIteratorStruct* location, void* input) {
    OvAttributeStruct* const arguments = argumentsOf(location, (const ProceduralFrame*)input);
    OvAttributeStruct* const library = scene->sgGetAttribute(location, "procedural.library");
    HeldCall* const held = *textOf(library) ? (HeldCall*)malloc(sizeof(HeldCall)) : 0;
    (void)instance;
    if (!held) {
        giveBack(library);
        giveBack(arguments);
        return 0;
    }
    held->call.library = textOf(library);
    held->call.arguments = textOf(arguments);
    held->call.dispose = dispose;
    held->library = library;
    held->arguments = arguments;
    return &held->call;
}

/* For any renderer. For one alone: attributes->createString("its name"). */
static OvAttributeStruct* getSupportedRenderer(void* instance) {
    (void)instance;
    return 0;
}

static OvAttributeStruct* getLocationTypes(void* instance) {
    (void)instance;
    return attributes->createString(SAMPLE_PROCEDURAL_TYPE);
}

static const OvLocationDelegate delegate = {create,
                                            0, /* destroy: the instance stays */
                                            process,
                                            getSupportedRenderer,
                                            getLocationTypes};

/* ---- The plug-in -------------------------------------------------------------------------- */

/* Called once, before anything else is wanted of the plug-in. Anything but 0 refuses the host. */
static int32_t setHost(const OvHostTable* host) {
    attributes = (const OvAttributeSuite*)host->findSuite(OV_ATTRIBUTE_SUITE_NAME,
                                                          OV_ATTRIBUTE_SUITE_VERSION);
    scene = (const OvScenegraphIteratorSuite*)host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                                                              OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    output = (const OvRenderOutputUtilsSuite*)host->findSuite(OV_RENDER_OUTPUT_UTILS_SUITE_NAME,
                                                              OV_RENDER_OUTPUT_UTILS_SUITE_VERSION);
    return attributes && scene && output ? 0 : 1;
}

static const void* getSuite(void) {
    return &delegate;
}

static OvPluginStruct plugin = {sizeof(OvPluginStruct),
                                OV_PLUGIN_VERSION,
                                "sample.procedural",
                                OV_LOCATION_DELEGATE_API_NAME,
                                OV_LOCATION_DELEGATE_API_VERSION,
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
