/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_PLUGIN_H
#define SYLVAR_PLATFORM_SUITES_PLUGIN_H

#include <SylvarPlatform/suites/HostTable.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A plug-in as plain C. A plug-in file is a shared object that exports the two functions at the
 * end of this header, and links nothing of ours: what it needs it gets through the host table.
 *
 * - A file is loaded once and never unloaded: everything that it hands out lives as long as the
 *   process.
 * - Loading runs the file's static initialisers and the two functions on the thread of the host
 *   that looks for plug-ins. They do no more than describe: there is no host table yet.
 * - No lock of the host is held while a function of a plug-in runs, so that it may call the host.
 * - A function that throws rejects its plug-in, or makes it answer null; nothing travels further.
 */

#define OV_PLUGIN_VERSION 1

/* No name is longer, in bytes, and no file has more plug-ins. */
#define OV_PLUGIN_MAX_NAME 255
#define OV_PLUGIN_MAX_COUNT 1024

typedef struct OvPluginStruct {
    uint32_t size;    /* sizeof(OvPluginStruct) */
    uint32_t version; /* OV_PLUGIN_VERSION: of this struct and the two functions */

    /* The plug-in's own name, and what it is a plug-in for: the API's name and the version of the
       table that getSuite returns, at least 1. UTF-8, not empty. A plug-in of which name, API and
       version are those of an earlier one is left out. */
    const char* name;
    const char* apiName;
    int32_t apiVersion;
    int32_t reserved; /* 0 */

    /* Takes the host's table. 0 for success; anything else: the plug-in cannot work here, and has
       no suite. Called once, before getSuite, on the thread that asks first. May be null. */
    int32_t (*setHost)(const OvHostTable* host);

    /* The plug-in's function table, of the form that its API tells; null when it has none. Called
       once, after setHost; those who ask meanwhile wait. A plug-in that asks for its own suite in
       here, over others too, gets null. It must not wait for a thread that asks for it. */
    const void* (*getSuite)(void);

    /* Drops what is cached and can be made anew. May come before setHost. May be null.
       [any thread; several at a time] */
    void (*flush)(void);
} OvPluginStruct;

/* What a plug-in file exports, with plain names: how many plug-ins it has, and each of them. The
   struct is the plug-in's; the host knows the plug-in by the struct's address and copies what
   stands in it. */
#define OV_PLUGIN_COUNT_SYMBOL "OvGetPluginCount"
#define OV_PLUGIN_SYMBOL "OvGetPlugin"
typedef int32_t (*OvGetPluginCountFunction)(void);
typedef OvPluginStruct* (*OvGetPluginFunction)(int32_t index);

/* Before the definition of each of the two. */
#ifdef __cplusplus
#define OV_PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))
#else
#define OV_PLUGIN_EXPORT __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
}
#endif

#endif
