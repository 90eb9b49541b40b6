/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_ATTRIBUTE_SUITE_H
#define SYLVAR_PLATFORM_SUITES_ATTRIBUTE_SUITE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Attribute values as plain C.
 *
 * An attribute is an immutable, reference-counted value behind one opaque pointer. The null handle
 * is the null attribute. Unless an entry says otherwise:
 *
 * - a handle that an entry returns is owned by the caller, who gives it back with release;
 * - a handle that an entry is given is borrowed for the call, and must not be null;
 * - pointers into a value (names, strings, samples) live as long as the caller holds the value;
 * - an entry reports failure by a null or zero result and never throws, unless memory runs out
 *   (std::bad_alloc travels) or a single value is beyond all bounds: a string of 4 GiB, or 2 GiB of
 *   names in one group (std::length_error travels);
 * - every entry may be called from any thread at any time, on shared handles too. Only a builder
 *   belongs to one thread at a time.
 *
 * A data attribute is a sequence of time samples. Every sample holds the same number of values,
 * read in tuples of the tuple size. Strings are C strings: they end at their first NUL.
 *
 * The table grows at its end alone; a place that is given away keeps its meaning.
 */

typedef struct OvAttributeStruct OvAttributeStruct;
typedef struct OvGroupBuilderStruct OvGroupBuilderStruct;

/* What getType returns. */
enum {
    OV_ATTRIBUTE_INT = 1,    /* values are int32_t */
    OV_ATTRIBUTE_FLOAT = 2,  /* values are float */
    OV_ATTRIBUTE_DOUBLE = 3, /* values are double */
    OV_ATTRIBUTE_STRING = 4, /* values are const char* */
    OV_ATTRIBUTE_GROUP = 5   /* an ordered list of named children */
};

/* The 128-bit content hash. Equal content has an equal hash; the null handle's is zero. */
typedef struct OvAttributeHash {
    uint64_t words[2];
} OvAttributeHash;

enum {
    OV_SAMPLES_DISPOSE = 0x01,   /* the table must be given back with disposeSamples */
    OV_SAMPLES_CONTIGUOUS = 0x10 /* the samples lie one after the other in a single block */
};

/* All samples of a data attribute. */
typedef struct OvSampleTable {
    uint32_t reserved;
    uint8_t flags;
    int64_t sampleCount;     /* can be 0 */
    int64_t valuesPerSample; /* can be 0 */
    const float* times;      /* one for each sample */
    /* Contiguous: the first value of the first sample; sample i starts at i * valuesPerSample.
       Otherwise: an array of one pointer to its values for each sample. */
    const void* values;
} OvSampleTable;

/* Room for a sample table on the caller's stack, zeroed before it is passed. */
typedef struct OvSampleTableBuffer {
    uint64_t words[8];
} OvSampleTableBuffer;

/* Asks `stream` for `size` bytes into `buffer`; returns the count delivered. A short count ends
   the stream. */
typedef long (*OvReadFunction)(void* stream, void* buffer, long size);

/* Takes `size` bytes of output; returns 0 to stop the writing, anything else to go on. */
typedef int (*OvWriteFunction)(void* stream, const void* bytes, long size);

typedef struct OvAttributeSuite {
    /* One of the codes above. */
    int32_t (*getType)(OvAttributeStruct* attribute);

    /* Adds a reference. Null: does nothing. */
    void (*retain)(OvAttributeStruct* attribute);

    /* Drops a reference. */
    void (*release)(OvAttributeStruct* attribute);

    /* The content hash, computed at first use. Null: zero. */
    OvAttributeHash (*getHash)(OvAttributeStruct* attribute);

    /* Of a data attribute; a group answers 0 to these three. */
    int64_t (*getTupleSize)(OvAttributeStruct* attribute);
    int64_t (*getNumberOfValues)(OvAttributeStruct* attribute); /* of one sample; can be 0 */
    int64_t (*getNumberOfTimeSamples)(OvAttributeStruct* attribute);

    /* The time of sample `index`; 0 where there is no such sample. */
    float (*getSampleTime)(OvAttributeStruct* attribute, int64_t index);

    /* One sample at time 0 with one value. A null string reads as the empty string. */
    OvAttributeStruct* (*createInt)(int32_t value);
    OvAttributeStruct* (*createFloat)(float value);
    OvAttributeStruct* (*createString)(const char* value);

    /* One sample at time 0 with `count` strings, copied. Null with count 0: the empty list.
       Null for a tuple size that is not in 1 .. 2^31 - 1. */
    OvAttributeStruct* (*createStringArray)(const char* const* values,
                                            int64_t count,
                                            int64_t tupleSize);

    /* A group of `count` children in order. Names are copied and stand as they are, dots included;
       handles are retained and may be null. A later value of a name replaces the earlier one in
       its place. All zeros with group inherit 1: the empty group. */
    OvAttributeStruct* (*createGroup)(const char* const* names,
                                      OvAttributeStruct* const* children,
                                      int64_t count,
                                      uint8_t groupInherit);

    /* Of a group; anything else has no children. */
    int64_t (*getNumberOfChildren)(OvAttributeStruct* group);

    /* The name of child `index` and its length. Read exactly `length` bytes; a length below 1 is
       the empty name. Out of range: null and length 0. */
    const char* (*getChildName)(OvAttributeStruct* group, int64_t index, int32_t* length);

    /* Child `index`; null when it is the null attribute or out of range. */
    OvAttributeStruct* (*getChildByIndex)(OvAttributeStruct* group, int64_t index);

    /* The child of that name. A dot steps into the named child group. Null when it is not there.
       Null group: null. */
    OvAttributeStruct* (*getChildByName)(OvAttributeStruct* group,
                                         const char* name,
                                         int32_t nameLength);

    /* A new, empty builder in mode 0, with group inherit off; given back with releaseBuilder. */
    OvGroupBuilderStruct* (*createBuilder)(void);

    /* Mode 0: a dotted name in setInBuilder makes nested groups. Mode 1: names stand as they are.
       Null for any other mode. */
    OvGroupBuilderStruct* (*createBuilderWithMode)(int32_t mode);

    void (*releaseBuilder)(OvGroupBuilderStruct* builder);

    /* Sets one child, in its old place when the name is there already. `child` may be null.
       `share` 1: the builder adds a reference of its own; 0: it takes the caller's. */
    void (*setInBuilder)(OvGroupBuilderStruct* builder,
                         const char* name,
                         int32_t nameLength,
                         OvAttributeStruct* child,
                         int32_t share);

    /* Sets all children of `group`, names as they stand. The group's inherit flag is not taken. */
    void (*updateBuilder)(OvGroupBuilderStruct* builder, OvAttributeStruct* group);

    /* The finished group. `keep` 0: the builder is empty afterwards, with group inherit off. */
    OvAttributeStruct* (*buildBuilder)(OvGroupBuilderStruct* builder, int32_t keep);

    void (*setBuilderGroupInherit)(OvGroupBuilderStruct* builder, uint8_t groupInherit);

    /* The value at `index` of the sample nearest `time` (a tie goes to the earlier index).
       1 and the value, or 0 when the attribute is null, of another kind, or has no such value. */
    uint8_t (*getNearestDouble)(OvAttributeStruct* const* attribute,
                                int64_t index,
                                float time,
                                double* value);
    uint8_t (*getNearestString)(OvAttributeStruct* const* attribute,
                                int64_t index,
                                float time,
                                const char** value);

    /* All samples of an attribute of the wanted type; null otherwise. `inlineWanted` 1 asks for
       the table in `buffer`. The table borrows from the attribute: hold the attribute with it.
       Null attribute: null. */
    OvSampleTable* (*acquireSamples)(OvAttributeStruct* attribute,
                                     int32_t wantedType,
                                     int32_t inlineWanted,
                                     OvSampleTableBuffer* buffer);

    /* Gives back a table whose flag asks for it. */
    void (*disposeSamples)(OvSampleTable* table);

    /* Data attributes from samples, all copied: `timeCount` times in any order, for each a pointer
       to its `valuesPerSample` values. The last two arguments are reserved: pass 0. Null for a
       tuple size that is not in 1 .. 2^31 - 1, or for a negative count. */
    OvAttributeStruct* (*createFloatFromSamples)(const float* times,
                                                 int64_t timeCount,
                                                 const float* const* samples,
                                                 int64_t valuesPerSample,
                                                 int64_t tupleSize,
                                                 void* reserved0,
                                                 void* reserved1);
    OvAttributeStruct* (*createIntFromSamples)(const float* times,
                                               int64_t timeCount,
                                               const int32_t* const* samples,
                                               int64_t valuesPerSample,
                                               int64_t tupleSize,
                                               void* reserved0,
                                               void* reserved1);
    OvAttributeStruct* (*createDoubleFromSamples)(const float* times,
                                                  int64_t timeCount,
                                                  const double* const* samples,
                                                  int64_t valuesPerSample,
                                                  int64_t tupleSize,
                                                  void* reserved0,
                                                  void* reserved1);
    OvAttributeStruct* (*createStringFromSamples)(const float* times,
                                                  int64_t timeCount,
                                                  const char* const* const* samples,
                                                  int64_t valuesPerSample,
                                                  int64_t tupleSize,
                                                  void* reserved0,
                                                  void* reserved1);
    OvAttributeStruct* (*createDouble)(double value);

    /* As getNearestDouble. */
    uint8_t (*getNearestInt)(OvAttributeStruct* const* attribute,
                             int64_t index,
                             float time,
                             int32_t* value);
    uint8_t (*getNearestFloat)(OvAttributeStruct* const* attribute,
                               int64_t index,
                               float time,
                               float* value);

    /* Group inherit of a group; 0 for anything else. */
    uint8_t (*getGroupInherit)(OvAttributeStruct* group);

    /* A group with the names and lengths given; otherwise as createGroup. A length below 1 is the
       empty name. */
    OvAttributeStruct* (*createGroupWithLengths)(const char* const* names,
                                                 const int32_t* nameLengths,
                                                 OvAttributeStruct* const* children,
                                                 int64_t count,
                                                 uint8_t groupInherit);

    /* Takes the child of that name out; nothing when it is not there. Dots follow the mode. */
    void (*removeFromBuilder)(OvGroupBuilderStruct* builder, const char* name, int32_t nameLength);

    /* A serialised attribute, in either file form; null when the bytes are none. */
    OvAttributeStruct* (*readStream)(void* stream, OvReadFunction read);

    /* An attribute from its XML (a text of `length` bytes); null when it is none. */
    OvAttributeStruct* (*parseXML)(const char* xml, int64_t length);

    /* Writes the attribute as XML. 1 when all was written; 0 when `write` stopped it or the text
       would pass the writers' limit. */
    uint8_t (*writeXML)(OvAttributeStruct* attribute, void* stream, OvWriteFunction write);

    /* As getChildByName, but the child is borrowed from the group: no reference is added. */
    OvAttributeStruct* (*borrowChildByName)(OvAttributeStruct* group,
                                            const char* name,
                                            int32_t nameLength);
} OvAttributeSuite;

/* The table of the platform of this process, for its whole life. */
const OvAttributeSuite* OvGetAttributeSuite(void);

#ifdef __cplusplus
}
#endif

#endif
