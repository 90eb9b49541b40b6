/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_RENDERER_H
#define SYLVAR_PLATFORM_SUITES_RENDERER_H

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A renderer as plain C: what a plug-in of the API below returns from its getSuite. The plug-in's
 * name is the renderer's.
 *
 * A renderer is told where the scene comes from, makes a root of it and walks it through the suite
 * "ScenegraphIteratorHost", which it finds with the host's `findSuite`.
 *
 * The table and the job grow at their ends alone: read what is behind the members below only when
 * `size` covers it.
 */

#define OV_RENDERER_API_NAME "SylvarRenderer"
#define OV_RENDERER_API_VERSION 1

/* One call of a renderer. All of it is borrowed for the call. Texts may hold any bytes. */
typedef struct OvRenderJob {
    uint32_t size;    /* of this struct, in bytes */
    uint32_t threads; /* how many threads to use, at least 1 */

    /* The scene: the name of an op tree file, for sgCreateRootFromFile; or null, and then the group
       behind it is the op tree, for sgCreateRootFromAttr. */
    const char* opTreeFile;
    OvAttributeStruct* opTree;

    /* Where the result goes: the name of a file, or what else the renderer makes of the text; null
       when the user named none. */
    const char* outputFile;

    /* What else the user said to the renderer, `optionCount` texts "NAME=VALUE" in their order.
       What a renderer does not know it names in the log, and goes on. */
    const char* const* options;
    uint32_t optionCount;
    uint32_t reserved; /* 0 */
} OvRenderJob;

typedef struct OvRenderer {
    uint32_t size;     /* of this table, in bytes */
    uint32_t reserved; /* 0 */
    const char* about; /* what it makes, in one line, UTF-8 */

    /* Renders, and returns when it and all threads that it started have ended: 0 for success. With
       anything else the log has said why. What it throws counts as a failure. The host asks for
       one render at a time.

       It may write to the standard output, through stdio; the host writes nothing there meanwhile,
       and flushes it afterwards. */
    int32_t (*render)(const OvRenderJob* job);
} OvRenderer;

#ifdef __cplusplus
}
#endif

#endif
