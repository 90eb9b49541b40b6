/* SPDX-License-Identifier: Apache-2.0 */
/*
 * An op type as a plug-in, complete and in plain C99: "sample.wave" lays a wave over the meshes of
 * its input. Build it into a shared object, put that where plug-ins are looked for, and name the
 * type in an op tree:
 *
 *     cc -std=c99 -shared -fPIC -fvisibility=hidden WaveOp.c -o WaveOp.so -lm
 *     ovscene tree wave.optree.json --plugins .
 *
 * It links nothing: all that it calls comes in two tables of functions, which the host hands over.
 */
#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/OpType.h>
#include <SylvarPlatform/suites/Plugin.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const OvAttributeSuite* attributes; /* makes and reads values */
static const OvOpHost* host;               /* what an op asks, and where it answers */

/* One op of an op tree: what its arguments say. It never changes once it is made, since any number
   of threads cook with it. */
typedef struct Wave {
    double height;
    double length;
} Wave;

/* ---- Reading attributes ------------------------------------------------------------------- */

/* The child of that name, borrowed from the group; a dot steps into a group. Null: not there. */
static OvAttributeStruct* child(OvAttributeStruct* group, const char* name) {
    return group ? attributes->borrowChildByName(group, name, (int32_t)strlen(name)) : 0;
}

/* An argument of the kind "number" may be an int, a float or a double. */
static double number(OvAttributeStruct* arguments, const char* name, double otherwise) {
    OvAttributeStruct* const value = child(arguments, name);
    int32_t whole;
    float single;
    if (attributes->getNearestInt(&value, 0, 0, &whole)) {
        return whole;
    }
    if (attributes->getNearestFloat(&value, 0, 0, &single)) {
        return (double)single;
    }
    attributes->getNearestDouble(&value, 0, 0, &otherwise);
    return otherwise;
}

static int isMesh(OvAttributeStruct* locationAttributes) {
    OvAttributeStruct* const type = child(locationAttributes, "type");
    const char* text = "";
    attributes->getNearestString(&type, 0, 0, &text);
    return strcmp(text, "mesh") == 0;
}

/* ---- Making attributes -------------------------------------------------------------------- */

/* The values of one time sample, of either layout of the table. */
static const float* sampleOf(const OvSampleTable* table, int64_t index) {
    if (table->flags & OV_SAMPLES_CONTIGUOUS) {
        return (const float*)table->values + index * table->valuesPerSample;
    }
    return ((const float* const*)table->values)[index];
}

static void lift(const Wave* wave, const float* from, float* to, int64_t count) {
    const double turns = 6.283185307179586 / wave->length;
    int64_t i;
    memcpy(to, from, (size_t)count * sizeof(float));
    for (i = 0; i + 2 < count; i += 3) {
        to[i + 1] += (float)(wave->height * sin(turns * (double)from[i]));
    }
}

/* New points for all time samples; null when memory runs out. Owned by the caller. */
static OvAttributeStruct* wavedPoints(const Wave* wave, const OvSampleTable* table) {
    const size_t samples = (size_t)table->sampleCount;
    const size_t values = (size_t)table->valuesPerSample;
    float* const moved = (float*)malloc(samples * values * sizeof(float) + 1);
    const float** const rows = (const float**)malloc(samples * sizeof(float*) + 1);
    OvAttributeStruct* points = 0;
    if (moved && rows) {
        size_t i;
        for (i = 0; i < samples; ++i) {
            rows[i] = moved + i * values;
            lift(wave, sampleOf(table, (int64_t)i), moved + i * values, table->valuesPerSample);
        }
        points = attributes->createFloatFromSamples(
            table->times, table->sampleCount, rows, table->valuesPerSample, 3, 0, 0);
    }
    free((void*)rows);
    free(moved);
    return points;
}

/* The attributes of a mesh with other points; what is not touched is shared, not copied. Owned by
   the caller. */
static OvAttributeStruct* withPoints(OvAttributeStruct* mesh, OvAttributeStruct* points) {
    static const char name[] = "geometry.points";
    static const char bound[] = "bound"; /* these two hold no longer */
    static const char normals[] = "geometry.normals";
    OvGroupBuilderStruct* const builder = attributes->createBuilder();
    OvAttributeStruct* changed;
    attributes->updateBuilder(builder, mesh);
    attributes->setBuilderGroupInherit(builder, attributes->getGroupInherit(mesh));
    attributes->setInBuilder(builder, name, (int32_t)(sizeof name - 1), points, 1);
    attributes->removeFromBuilder(builder, bound, (int32_t)(sizeof bound - 1));
    attributes->removeFromBuilder(builder, normals, (int32_t)(sizeof normals - 1));
    changed = attributes->buildBuilder(builder, 0);
    attributes->releaseBuilder(builder);
    return changed;
}

static void waveMesh(const Wave* wave, OvOpCookStruct* cook, OvAttributeStruct* mesh) {
    OvAttributeStruct* const old = child(mesh, "geometry.points");
    OvSampleTableBuffer buffer;
    OvSampleTable* table;
    memset(&buffer, 0, sizeof buffer);
    table = attributes->acquireSamples(old, OV_ATTRIBUTE_FLOAT, 1, &buffer);
    if (!table) {
        return; /* A mesh without points stays as it is. */
    }
    {
        OvAttributeStruct* const points = wavedPoints(wave, table);
        if (points) {
            OvAttributeStruct* const changed = withPoints(mesh, points);
            host->setAttributes(cook, changed); /* takes a reference of its own */
            attributes->release(changed);
            attributes->release(points);
        } else {
            host->fail(cook, "there is not enough memory for the points");
        }
    }
    if (table->flags & OV_SAMPLES_DISPOSE) {
        attributes->disposeSamples(table);
    }
}

/* ---- The op type -------------------------------------------------------------------------- */

/* Called for each op of this type. Its arguments fit the schema already: names and kinds are right,
   and what must be given is there. What is left to check is told by a message. */
static void* create(OvAttributeStruct* arguments,
                    int32_t inputCount,
                    char* message,
                    size_t messageSize) {
    const double height = number(arguments, "height", 1.0);
    const double length = number(arguments, "length", 10.0);
    Wave* wave = 0;
    (void)inputCount;
    if (!(length > 0.0)) {
        snprintf(message,
                 messageSize,
                 "argument \"length\": expected a positive number, found %g",
                 length);
    } else if (!(wave = (Wave*)malloc(sizeof(Wave)))) {
        snprintf(message, messageSize, "there is not enough memory");
    } else {
        wave->height = height;
        wave->length = length;
    }
    return wave;
}

static void destroy(void* instance) {
    free(instance);
}

/* Makes one location, the one that somebody asks for. It is a pure function of the path, the
   arguments and the inputs. */
static void cook(void* instance, OvOpCookStruct* cook) {
    OvAttributeStruct* const location = host->getInput(cook, 0, 0, 0);
    OvAttributeStruct* const own = child(location, "attrs");
    host->passInput(cook, 0, 0, 0); /* all as it is, children too ... */
    if (isMesh(own)) {
        waveMesh((const Wave*)instance, cook, own); /* ... but for other attributes */
    }
}

static const OvOpArgument arguments[] = {
    {"height", "number", "1", "How far the wave goes up and down."},
    {"length", "number", "10", "From one crest to the next one, along x."},
};

static const OvOpSchema schema = {
    "Lays a wave over the meshes of its input.",
    "Points are moved along y, in the space of their mesh. A mesh loses its \"bound\".",
    1, /* inputs at least */
    1, /* and at most */
    arguments,
    sizeof arguments / sizeof *arguments};

static const OvOpType opType = {OV_OP_TYPE_API_VERSION,
                                0, /* reserved */
                                &schema,
                                create,
                                destroy,
                                cook,
                                0, /* getIdentity and hasChanged are for ops that read files */
                                0};

/* ---- The plug-in -------------------------------------------------------------------------- */

/* Called once, before anything else is wanted of the plug-in. Anything but 0 refuses the host. */
static int32_t setHost(const OvHostTable* table) {
    attributes = (const OvAttributeSuite*)table->findSuite(OV_ATTRIBUTE_SUITE_NAME,
                                                           OV_ATTRIBUTE_SUITE_VERSION);
    host = (const OvOpHost*)table->findSuite(OV_OP_HOST_SUITE_NAME, OV_OP_HOST_SUITE_VERSION);
    return attributes && host ? 0 : 1;
}

static const void* getSuite(void) {
    return &opType;
}

/* The plug-in's name is the op type's. A site's own types are called "site.name". */
static OvPluginStruct plugin = {sizeof(OvPluginStruct),
                                OV_PLUGIN_VERSION,
                                "sample.wave",
                                OV_OP_TYPE_API_NAME,
                                OV_OP_TYPE_API_VERSION,
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
