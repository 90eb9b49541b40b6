/* SPDX-License-Identifier: Apache-2.0 */
/* A runtime that answers every query with the setting "answer", and refuses when there is none. It
   has nothing else.
 */
#include <SylvarPlatform/suites/Plugin.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include <stddef.h>

static const OvHostTable* host;
static char runtime;

static int32_t setHost(const OvHostTable* table) {
    host = table;
    return 0;
}

static OvRuntimeStruct* createRuntime(void) {
    return (OvRuntimeStruct*)&runtime;
}

static void releaseRuntime(OvRuntimeStruct* released) {
    (void)released;
}

static void queryRuntimeInfo(OvRuntimeStruct* asked,
                             const char* name,
                             uint64_t nameLength,
                             void* context,
                             OvRuntimeCompletion completion) {
    char answer[4096];
    const int64_t length = host->getConfiguration("answer", answer, sizeof answer);
    const int isThere = length >= 0 && (size_t)length < sizeof answer;
    (void)asked;
    (void)name;
    (void)nameLength;
    completion(isThere ? 0 : 1, answer, isThere ? (uint64_t)length : 0, context);
}

static const void* getSuite(void) {
    static OvRuntimeSuite suite;
    suite.createRuntime = createRuntime;
    suite.releaseRuntime = releaseRuntime;
    suite.queryRuntimeInfo = queryRuntimeInfo;
    return &suite;
}

static OvPluginStruct plugin = {sizeof(OvPluginStruct),
                                OV_PLUGIN_VERSION,
                                "AnsweringRuntime",
                                OV_RUNTIME_API_NAME,
                                OV_RUNTIME_API_VERSION,
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
