/* SPDX-License-Identifier: Apache-2.0 */
/* An importer for assets that end in .told: imports none, and tells what the host's services give.
 */
#include <SylvarPlatform/suites/AssetImporter.h>
#include <SylvarPlatform/suites/Plugin.h>

#include <stdio.h>

static const OvHostTable* host;

static int32_t setHost(const OvHostTable* table) {
    host = table;
    return 0;
}

static void defaultOptions(OvAssetImportOptions* options) {
    const OvAssetImportOptions none = {0, 0, 1, 1, 1, 0, 0};
    *options = none;
}

static void tellLevels(const char* logger) {
    static const char* const names[] = {"a debug", "an info", "a warn", "an error"};
    int32_t level;
    for (level = OV_LOG_DEBUG; level <= OV_LOG_ERROR; ++level) {
        if (host->isLogEnabled(logger, level)) {
            host->log(logger, level, names[level], "Telling\x1B.c", level);
        }
    }
}

static int32_t importAsset(const OvAttributeSuite* suite,
                           const char* filename,
                           const OvAssetImportOptions* options,
                           OvImportProgress progress,
                           void* progressContext,
                           OvAssetImportResult* result) {
    char word[32] = "not set";
    (void)suite;
    (void)options;
    (void)progress;
    (void)progressContext;
    tellLevels("Telling");
    tellLevels("Other=Telling");
    host->getConfiguration("a.word", word, sizeof word);
    snprintf(result->message, sizeof result->message, "%s: the word is '%s'", filename, word);
    return 0;
}

static const void* getSuite(void) {
    static const char* const extensions[] = {"told", 0};
    static const OvAssetImporter importer = {
        OV_ASSET_IMPORTER_VERSION, extensions, defaultOptions, importAsset};
    return &importer;
}

static OvPluginStruct plugin = {sizeof(OvPluginStruct),
                                OV_PLUGIN_VERSION,
                                "TellingImporter",
                                OV_ASSET_IMPORTER_API_NAME,
                                OV_ASSET_IMPORTER_VERSION,
                                0,
                                setHost,
                                getSuite,
                                0};

OV_PLUGIN_EXPORT int32_t OvGetPluginCount(void);
OV_PLUGIN_EXPORT OvPluginStruct* OvGetPlugin(int32_t index);

int32_t OvGetPluginCount(void) {
    return 1;
}
OvPluginStruct* OvGetPlugin(int32_t index) {
    return index == 0 ? &plugin : 0;
}
