/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_OP_TYPE_H
#define SYLVAR_PLATFORM_SUITES_OP_TYPE_H

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * An op type as plain C: what a plug-in (Plugin.h) of the API and version below returns from its
 * getSuite. The plug-in's name is the op type's. An op tree that names the type "vendor.wave" asks
 * the plug-in "vendor.wave" for its table, when it is first committed, and no other plug-in.
 *
 * An op is a pure function: from its arguments, the path of a location, and what its inputs have
 * there or elsewhere, to that location. Equal ops are one op in the whole process, and what it
 * cooks is kept; so nothing else may decide what it makes, but for files, of which getIdentity and
 * hasChanged tell. A location is asked for when somebody wants it, in any order.
 *
 * - Tables, schemas and all texts in them live as long as the process and never change. Texts are
 *   UTF-8.
 * - Any thread may call any function of the plug-in at any time, several at once for one instance
 *   too. They may call everything that the host offers.
 * - Functions had better throw nothing. What they throw all the same becomes the message of a
 *   failure, but for std::bad_alloc, which travels.
 *
 * Both tables grow at their ends alone; a place that is given away keeps its meaning.
 */

#define OV_OP_TYPE_API_NAME "SylvarOpType"
#define OV_OP_TYPE_API_VERSION 1

/* What the host offers to op types: `OvOpHost`, by OvHostTable::findSuite. */
#define OV_OP_HOST_SUITE_NAME "OpHost"
#define OV_OP_HOST_SUITE_VERSION 1

/* As `mostInputs`: any number. */
#define OV_OP_ANY_NUMBER_OF_INPUTS INT32_MAX

/* No op type has more arguments. */
#define OV_OP_MAX_ARGUMENTS 256

/* One location while it is cooked. Valid for the call that it is handed to. */
typedef struct OvOpCookStruct OvOpCookStruct;

/* One argument of an op type. */
typedef struct OvOpArgument {
    /* Not "enabled" or "note", which every op has. */
    const char* name;

    /* "int" or "ints"; "number" or "numbers", one or a list of ints, floats or doubles; "string" or
       "strings"; "group"; "group or string". */
    const char* kind;

    /* For people: what holds when it is not given. "": nothing. Null: it must be given. */
    const char* defaultText;

    /* For people. */
    const char* about;
} OvOpArgument;

/* What an op type says of itself. An op that has an argument which is not told here, or is of
   another kind, one that misses an argument, and one with too few or too many inputs is an error
   in the scene; the plug-in is not asked. */
typedef struct OvOpSchema {
    const char* about;   /* For people, in one line. */
    const char* remarks; /* Paragraphs of Markdown, with empty lines between them. May be null. */
    int32_t fewestInputs;
    int32_t mostInputs;
    const OvOpArgument* arguments; /* May be null when there are none. */
    int32_t argumentCount;
} OvOpSchema;

typedef struct OvOpType {
    int32_t version;  /* OV_OP_TYPE_API_VERSION */
    int32_t reserved; /* 0 */

    const OvOpSchema* schema;

    /* The function with these arguments: an instance, which is the plug-in's own; null when the
       arguments are wrong. Then the message tells why, with its NUL, such as `argument "count":
       expected 1 to 100, found 0`. `arguments` is a group, empty when none are given, that fits
       the schema; retain it to keep it. Several instances may stand for one op. */
    void* (*create)(OvAttributeStruct* arguments,
                    int32_t inputCount,
                    char* message,
                    size_t messageSize);

    /* Ends an instance, when nobody cooks with it any more. May be null. */
    void (*destroy)(void* instance);

    /* Makes one location, through the host's table. It is there, without attributes and children,
       unless the op says otherwise. The path "" is above all locations: its children are the names
       of the top ones, such as "root". */
    void (*cook)(void* instance, OvOpCookStruct* cook);

    /* What else than type, arguments and inputs tells two ops apart: for an op that reads a file,
       the host's getFileIdentity. Writes it into `buffer`, cut to `bufferSize` with its NUL, and
       returns the length of the whole without a NUL; below 1: nothing. May be null. */
    int64_t (*getIdentity)(OvAttributeStruct* arguments, char* buffer, size_t bufferSize);

    /* Whether what this instance has read from outside is another now: then it ends, what was
       cooked is dropped, and another instance is made in its place. 0: no. Asked when somebody
       evicts a location; may be null, for an op that reads nothing. */
    int32_t (*hasChanged)(void* instance);
} OvOpType;

/*
 * What an op type asks for, and where it says what a location is.
 *
 * What a cook says is put together when it ends: where the location comes from (the last of
 * passInput, setStaticScene and setAbsent, or nothing), and in place of what that has the
 * attributes and the children that were set. A location that is absent stays so whatever is set.
 * Attributes are borrowed from the plug-in for the call; what becomes part of a location is
 * retained, not copied.
 *
 * No entry throws. When one cannot do its work (memory runs out, inputs need one another) the cook
 * has failed: entries then do nothing, getInput returns null and enterScene 0, and the location
 * becomes an error whatever else was said. There is no need to look for that.
 */
typedef struct OvOpHost {
    /* The path of the location, "" or "/root/...", with a NUL behind it, and its length when
       `length` is not null. Never null; borrowed until the cook ends. */
    const char* (*getPath)(OvOpCookStruct* cook, int64_t* length);

    int32_t (*getInputCount)(OvOpCookStruct* cook);

    /* The location of an input at a path of `length` bytes; a null path is that of the cooked
       location. A group: "exists" (an int), "pc" (the names of the potential children) and
       "attrs" (a group). Null when it is not there, or there is no such input. Borrowed until the
       cook ends. */
    OvAttributeStruct* (*getInput)(OvOpCookStruct* cook,
                                   int32_t index,
                                   const char* path,
                                   int64_t length);

    /* The location is that of an input, as getInput finds it; absent when that is. */
    void (*passInput)(OvOpCookStruct* cook, int32_t index, const char* path, int64_t length);

    /* The location is not there. */
    void (*setAbsent)(OvOpCookStruct* cook);

    /* The attributes, a group; null: none. */
    void (*setAttributes)(OvOpCookStruct* cook, OvAttributeStruct* attributes);

    /* The names of the potential children: a string attribute with one sample; null: none. A name
       that no path can hold, "" or one with a "/", or that comes twice fails the cook. */
    void (*setChildren)(OvOpCookStruct* cook, OvAttributeStruct* names);

    /* For an op whose scene begins at the location `top`. 1 when the cooked location is that one or
       below it. Otherwise 0, and all is said: on the way to `top` it has nothing but the next
       location of the way, anywhere else it is absent. */
    int32_t (*enterScene)(OvOpCookStruct* cook, const char* top);

    /* The location is the one that stands at its place in a static scene, a group of attributes
       "a" and children "c", whose top location is at `top`; where enterScene says 0, what that
       says. The attributes are the scene's own, the very same values. */
    void (*setStaticScene)(OvOpCookStruct* cook, OvAttributeStruct* scene, const char* top);

    /* The location is an error with that message, the reason alone; the first one counts. */
    void (*fail)(OvOpCookStruct* cook, const char* message);

    /* The others need no cook. */

    /* 1 when a text is the path of a location, such as /root/world. Null: 0. */
    int32_t (*isLocationPath)(const char* path);

    /* The path of an asset's file, from the default asset plug-in; the name itself where that
       fails. Written into `buffer`, cut to `bufferSize` with its NUL; returns the length of the
       whole path without a NUL. Null name, or no memory: -1. */
    int64_t (*resolveAsset)(const char* name, char* buffer, size_t bufferSize);

    /* Which file stands at a path just now: a text with the path and the file's size, time, device
       and inode; a file that is not there has one too. As resolveAsset. */
    int64_t (*getFileIdentity)(const char* path, char* buffer, size_t bufferSize);
} OvOpHost;

#ifdef __cplusplus
}
#endif

#endif
