/* SPDX-License-Identifier: Apache-2.0 */
#ifndef OV_SYLVAR_PRODUCERS_SUITES_SCENEGRAPH_ITERATOR_SUITE_H
#define OV_SYLVAR_PRODUCERS_SUITES_SCENEGRAPH_ITERATOR_SUITE_H

#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/TableLayout.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A scene as plain C: what a render plug-in walks. The host's `findSuite` gives the table by the
 * name and a version below.
 *
 * An iterator is one location behind an opaque pointer. It does not change; every step makes a new
 * one, also when it leads to a location that another iterator stands for. The null pointer is the
 * null iterator: what a step that leads nowhere gives. Every entry takes it, and then does nothing
 * or gives null.
 *
 * Counts of references, which differ by where an iterator comes from:
 *
 * - An iterator of the two entries that make a root comes with one reference, for the caller to
 *   give back with sgRelease.
 * - All others come with none. Take one with sgRetain and give it back with sgRelease, which then
 *   frees the iterator. One that is released without having been retained is never freed.
 *
 * Unless an entry says otherwise:
 *
 * - an attribute that it returns is owned by the caller, who gives it back with the release of the
 *   attribute suite; null is the null attribute;
 * - what it is given is borrowed for the call; texts end at their first NUL, and must not be null;
 * - a flag is a byte of which any value but 0 means yes. With `evict` the location that is stepped
 *   to is dropped from the runtime's cache and cooked anew;
 * - any thread may call it at any time, on shared iterators too;
 * - what the runtime throws while it cooks travels to the caller as a C++ exception, and so do
 *   std::bad_alloc and what an entry says. A caller in C is compiled with -fexceptions where that
 *   must be survived. Only the two entries that make a root catch, and that only what is a
 *   std::exception.
 */

#define OV_SCENEGRAPH_ITERATOR_SUITE_NAME "ScenegraphIteratorHost"
#define OV_SCENEGRAPH_ITERATOR_SUITE_VERSION 3
#define OV_SCENEGRAPH_ITERATOR_SUITE_VERSION_2 2

typedef struct OvSgIteratorStruct OvSgIteratorStruct;

/* Version 3. */
typedef struct OvScenegraphIteratorSuite {
    /* Adds a reference. */
    void (*sgRetain)(OvSgIteratorStruct* iterator);

    /* Drops a reference; the last one frees the iterator. */
    void (*sgRelease)(OvSgIteratorStruct* iterator);

    /* The group that an op tree file holds; nothing is built or cooked. Null when the file holds
       none. Null, with a message on the standard error stream, when there is no such file. Throws
       std::runtime_error, "Error opening file: <name>", when it cannot be opened. */
    OvAttributeStruct* (*sgLoadOpTreeDescription)(const char* filename);

    /* The location /root of the scene that an op tree file describes, with one reference.

       Null when it cannot be made, with the line "Sylvar3 producer create failed." on the standard
       error stream and in the log. Before that a std::exception leaves these two lines on the
       standard error stream:

           Error occurred creating ThreadAwareGeometyProducer.
           Exception message: '<its text>'

       Every thread that walks gets a client of its own. With the environment variable
       RUNTIME_USE_CONCURRENT set to exactly "1" all threads share one client of a runtime of its
       own, which is published as "renderRuntime" in place of an earlier one; two such calls must
       not run at the same time. Then a runtime that cannot be had is told to the log alone, as
       "Runtime could not be loaded.". */
    OvSgIteratorStruct* (*sgCreateRootFromFile)(const char* filename);

    /* The same for an op tree that a group spells out, always with a client for each thread.
       Anything that is no group makes no scene. */
    OvSgIteratorStruct* (*sgCreateRootFromAttr)(OvAttributeStruct* opTree);

    /* The first child that exists, and the next location beside this one that does. */
    OvSgIteratorStruct* (*sgGetFirstChild)(OvSgIteratorStruct* iterator, uint8_t evict);
    OvSgIteratorStruct* (*sgGetNextSibling)(OvSgIteratorStruct* iterator, uint8_t evict);

    /* The location above; null for the root. */
    OvSgIteratorStruct* (*sgGetParent)(OvSgIteratorStruct* iterator);

    /* The top of the tree. */
    OvSgIteratorStruct* (*sgGetRoot)(OvSgIteratorStruct* iterator);

    /* One step down by name; "." is this location and ".." the one above. A null name leads
       nowhere. Throws std::runtime_error, "getChildByName does not support deep child lookups", for
       another name with a "/" in it. */
    OvSgIteratorStruct* (*sgGetChildByName)(OvSgIteratorStruct* iterator,
                                            const char* name,
                                            uint8_t evict);

    /* The location at a path of which the first component is this location's own name (from /root,
       "/root/world/geo"), "." or "..". `evict` reaches the last step alone. */
    OvSgIteratorStruct* (*sgGetByPath)(OvSgIteratorStruct* iterator,
                                       const char* path,
                                       uint8_t evict);

    /* The name, and the path from the top down: a string. */
    OvAttributeStruct* (*sgGetName)(OvSgIteratorStruct* iterator);
    OvAttributeStruct* (*sgGetFullName)(OvSgIteratorStruct* iterator);

    /* An attribute of the location; a dot steps into a group. Null or "" gives the group of all
       attributes. */
    OvAttributeStruct* (*sgGetAttribute)(OvSgIteratorStruct* iterator, const char* name);

    /* The same, with the locations above considered: the nearest one that has it wins, and groups
       with group inherit on are merged with those above. The name must not be null. */
    OvAttributeStruct* (*sgGetGlobalAttribute)(OvSgIteratorStruct* iterator, const char* name);

    /* The names of the location's attributes, sorted: strings, of which there may be none. */
    OvAttributeStruct* (*sgGetAttributeNames)(OvSgIteratorStruct* iterator);

    /* The attributes "xform" of the locations from the top down to this one: a group with the
       children "i0", "i1", ... by depth, without those of locations that have none. */
    OvAttributeStruct* (*sgGetGlobalXFormGroup)(OvSgIteratorStruct* iterator);

    /* The names of the children that the location may have: strings, or null. A potential child
       need not exist. */
    OvAttributeStruct* (*sgGetPotentialChildren)(OvSgIteratorStruct* iterator);

    /* The end of a render: the scene's runtime waits for what is being cooked and drops what was.
       Where every thread has a client of its own, it is the runtime of the calling thread's client;
       a scene without a client has none. It is left alone while a live render goes on, which is
       when /root has an attribute "liveRenderSettings" or "liveRender" of any kind; the log is then
       told "Runtime finalize deferred while live rendering.", as an info. Gives no reference back;
       iterators stay good to walk and to release. */
    void (*sgFinalize)(OvSgIteratorStruct* iterator);
} OvScenegraphIteratorSuite;

/* Version 2: the same without op tree descriptions, roots from attributes, and sgFinalize. */
typedef struct OvScenegraphIteratorSuite2 {
    void (*sgRetain)(OvSgIteratorStruct* iterator);
    void (*sgRelease)(OvSgIteratorStruct* iterator);
    OvSgIteratorStruct* (*sgCreateRootFromFile)(const char* filename);
    OvSgIteratorStruct* (*sgGetFirstChild)(OvSgIteratorStruct* iterator, uint8_t evict);
    OvSgIteratorStruct* (*sgGetNextSibling)(OvSgIteratorStruct* iterator, uint8_t evict);
    OvSgIteratorStruct* (*sgGetParent)(OvSgIteratorStruct* iterator);
    OvSgIteratorStruct* (*sgGetRoot)(OvSgIteratorStruct* iterator);
    OvSgIteratorStruct* (*sgGetChildByName)(OvSgIteratorStruct* iterator,
                                            const char* name,
                                            uint8_t evict);
    OvSgIteratorStruct* (*sgGetByPath)(OvSgIteratorStruct* iterator,
                                       const char* path,
                                       uint8_t evict);
    OvAttributeStruct* (*sgGetName)(OvSgIteratorStruct* iterator);
    OvAttributeStruct* (*sgGetFullName)(OvSgIteratorStruct* iterator);
    OvAttributeStruct* (*sgGetAttribute)(OvSgIteratorStruct* iterator, const char* name);
    OvAttributeStruct* (*sgGetGlobalAttribute)(OvSgIteratorStruct* iterator, const char* name);
    OvAttributeStruct* (*sgGetAttributeNames)(OvSgIteratorStruct* iterator);
    OvAttributeStruct* (*sgGetGlobalXFormGroup)(OvSgIteratorStruct* iterator);
    OvAttributeStruct* (*sgGetPotentialChildren)(OvSgIteratorStruct* iterator);
} OvScenegraphIteratorSuite2;

#define OV_AT(entry, place) (OV_TABLE_PLACE(OvScenegraphIteratorSuite, entry) == (place))
OV_REQUIRE(OvScenegraphIteratorSuiteEntries, OV_TABLE_ENTRIES(OvScenegraphIteratorSuite) == 19);
OV_REQUIRE(OvScenegraphIteratorSuiteOrder,
           OV_AT(sgRetain, 1) && OV_AT(sgRelease, 2) && OV_AT(sgLoadOpTreeDescription, 3) &&
               OV_AT(sgCreateRootFromFile, 4) && OV_AT(sgCreateRootFromAttr, 5) &&
               OV_AT(sgGetFirstChild, 6) && OV_AT(sgGetNextSibling, 7) && OV_AT(sgGetParent, 8) &&
               OV_AT(sgGetRoot, 9) && OV_AT(sgGetChildByName, 10) && OV_AT(sgGetByPath, 11) &&
               OV_AT(sgGetName, 12) && OV_AT(sgGetFullName, 13) && OV_AT(sgGetAttribute, 14) &&
               OV_AT(sgGetGlobalAttribute, 15) && OV_AT(sgGetAttributeNames, 16) &&
               OV_AT(sgGetGlobalXFormGroup, 17) && OV_AT(sgGetPotentialChildren, 18) &&
               OV_AT(sgFinalize, 19));
#undef OV_AT

#define OV_AT(entry, place) (OV_TABLE_PLACE(OvScenegraphIteratorSuite2, entry) == (place))
OV_REQUIRE(OvScenegraphIteratorSuite2Entries, OV_TABLE_ENTRIES(OvScenegraphIteratorSuite2) == 16);
OV_REQUIRE(OvScenegraphIteratorSuite2Order,
           OV_AT(sgRetain, 1) && OV_AT(sgRelease, 2) && OV_AT(sgCreateRootFromFile, 3) &&
               OV_AT(sgGetFirstChild, 4) && OV_AT(sgGetNextSibling, 5) && OV_AT(sgGetParent, 6) &&
               OV_AT(sgGetRoot, 7) && OV_AT(sgGetChildByName, 8) && OV_AT(sgGetByPath, 9) &&
               OV_AT(sgGetName, 10) && OV_AT(sgGetFullName, 11) && OV_AT(sgGetAttribute, 12) &&
               OV_AT(sgGetGlobalAttribute, 13) && OV_AT(sgGetAttributeNames, 14) &&
               OV_AT(sgGetGlobalXFormGroup, 15) && OV_AT(sgGetPotentialChildren, 16));
#undef OV_AT

#ifdef __cplusplus
}
#endif

#endif
