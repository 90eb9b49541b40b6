/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_LOCATION_DELEGATE_H
#define SYLVAR_PLATFORM_SUITES_LOCATION_DELEGATE_H

#include <SylvarPlatform/suites/AttributeSuite.h>
#include <SylvarPlatform/suites/TableLayout.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A delegate as plain C: what a plug-in of the API below returns from its getSuite. It handles
 * locations of some types for one renderer, or for any that asks.
 *
 * A renderer hands it locations with `processLocationDelegate` of "RenderOutputUtilsHost". What
 * goes in and what comes out is between the two: they agree on a struct, and on who frees it.
 *
 * Which types a delegate handles for whom is asked once in a process, when the first renderer asks
 * for any delegate. Of two for the same type and renderer the one that comes first in the order of
 * the plug-ins counts. One that throws when it is asked, or has a null entry among those that are
 * called, is left out. What runs meanwhile, the plug-in's setHost and getSuite included, must not
 * ask the library for delegates: that would wait for itself.
 */

#define OV_LOCATION_DELEGATE_API_NAME "ScenegraphLocationDelegatePlugin"
#define OV_LOCATION_DELEGATE_API_VERSION 1

struct OvSgIteratorStruct; /* a location: OvSylvarProducers/suites/ScenegraphIteratorSuite.h */

typedef struct OvLocationDelegate {
    /* An instance, or null when there can be none. Called once to ask the two queries below, and
       once for every location that is to be processed. It is not given back: keep it light, or
       return the same one each time. [any thread; several at a time] */
    void* (*create)(void);

    /* Gives an instance back. The library calls it nowhere; a renderer that uses this table itself
       may. May be null. */
    void (*destroy)(void* instance);

    /* Handles a location, which is borrowed for the call, and so is `input`. What it returns goes
       to the renderer as it is. What it throws travels to the renderer.
       [any thread; several at a time] */
    void* (*process)(void* instance, struct OvSgIteratorStruct* location, void* input);

    /* The name of the one renderer that it is for: a string, owned by the caller. For any renderer:
       null, an empty string, or an attribute of another kind. The instance may be null. */
    OvAttributeStruct* (*getSupportedRenderer)(void* instance);

    /* The types of location that it handles: strings, owned by the caller. The instance may be
       null. */
    OvAttributeStruct* (*getLocationTypes)(void* instance);
} OvLocationDelegate;

OV_REQUIRE(OvLocationDelegateOrder,
           OV_TABLE_PLACE(OvLocationDelegate, create) == 1 &&
               OV_TABLE_PLACE(OvLocationDelegate, destroy) == 2 &&
               OV_TABLE_PLACE(OvLocationDelegate, process) == 3 &&
               OV_TABLE_PLACE(OvLocationDelegate, getSupportedRenderer) == 4 &&
               OV_TABLE_PLACE(OvLocationDelegate, getLocationTypes) == 5);

#ifdef __cplusplus
}
#endif

#endif
