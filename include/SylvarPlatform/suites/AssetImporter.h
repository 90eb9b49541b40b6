/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_ASSET_IMPORTER_H
#define SYLVAR_PLATFORM_SUITES_ASSET_IMPORTER_H

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * The function table of an importer, a plug-in (Plugin.h) of the API and version below: turns an
 * asset file into a static scene. It makes attributes through the suite that it is given, and links
 * nothing of ours.
 */

#define OV_ASSET_IMPORTER_API_NAME "SylvarAssetImporter"
#define OV_ASSET_IMPORTER_VERSION 1

typedef struct OvAssetImportOptions {
    /* 'x', 'y' or 'z': the axis of the file that points up; it is turned to y. 0: as the file
       says, or y where it says nothing. */
    char upAxis;
    /* Scene units for one unit of the file; 0: as the file says, or 1. */
    double unitScale;
    /* 1: make locations of that kind. */
    uint8_t lights;
    uint8_t cameras;
    uint8_t materials;
    /* The largest file, in bytes, and the most locations; beyond them the import fails and says
       so. A larger file that the asset refers to counts as missing. 0: no limit. */
    int64_t maxFileBytes;
    int64_t maxLocations;
} OvAssetImportOptions;

/* Told `fraction` of the work, 0 to 1, now and then, on the thread that called importAsset; returns
   0 to stop the import. */
typedef int (*OvImportProgress)(void* context, float fraction);

typedef struct OvAssetImportResult {
    /* The static scene; owned by the caller. Null on failure. */
    OvAttributeStruct* scene;
    /* Why there is no scene: the file's name and the reason. Empty on success. Ends in a NUL; cut
       when it is too long. */
    char message[1024];
} OvAssetImportResult;

typedef struct OvAssetImporter {
    int32_t version; /* OV_ASSET_IMPORTER_VERSION */

    /* The file name extensions that are taken, lower case, without the dot; ends with null. */
    const char* const* extensions;

    /* Sets the defaults: everything on, no limits, as the file says. */
    void (*defaultOptions)(OvAssetImportOptions* options);

    /* Imports one file. Returns 1 and the scene, or 0 and the message. `progress` may be null.
       Throws nothing. [any thread; calls share nothing] */
    int32_t (*importAsset)(const OvAttributeSuite* suite,
                           const char* filename,
                           const OvAssetImportOptions* options,
                           OvImportProgress progress,
                           void* progressContext,
                           OvAssetImportResult* result);
} OvAssetImporter;

#ifdef __cplusplus
}
#endif

#endif
