/* SPDX-License-Identifier: Apache-2.0 */
/* The runtime table as a program in plain C99 uses it: every entry, and handles given back in an
   order that is not the one they came in. */
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include <stddef.h>
#include <stdio.h>
#include <string.h>

/* In tests/support/PlatformRuntime.cpp. */
extern const OvRuntimeSuite* platformRuntimeSuite(void);

/* The place of each entry is given for good. */
#define OV_PLACE(place, entry)             \
    typedef char entry##_has_place_##place \
        [offsetof(OvRuntimeSuite, entry) == (place) * sizeof(void (*)(void)) ? 1 : -1];
/* clang-format off */
    OV_PLACE(0, createRuntime)
    OV_PLACE(1, releaseRuntime)
    OV_PLACE(2, createTransaction)
    OV_PLACE(3, releaseTransaction)
    OV_PLACE(4, commit)
    OV_PLACE(5, evict)
    OV_PLACE(6, finalize)
    OV_PLACE(7, queryRuntimeInfo)
    OV_PLACE(8, createOp)
    OV_PLACE(9, releaseOp)
    OV_PLACE(10, getOpId)
    OV_PLACE(11, setOpArgs)
    OV_PLACE(12, setOpInputs)
    OV_PLACE(13, deserializeOps)
    OV_PLACE(14, createClient)
    OV_PLACE(15, releaseClient)
    OV_PLACE(16, setClientOp)
    OV_PLACE(17, cookLocation)
    OV_PLACE(18, getCachedLocation)
    OV_PLACE(19, traceAttribute)
/* clang-format on */

static const OvRuntimeSuite* suite;
static const OvAttributeSuite* attributes;
static int failures = 0;

#define CHECK(condition)                                                        \
    do {                                                                        \
        if (!(condition)) {                                                     \
            fprintf(stderr, "%s:%d: not %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                         \
        }                                                                       \
    } while (0)

static int64_t lengthOf(const char* text) {
    return (int64_t)strlen(text);
}

/* Whether a location is there; gives the location back. */
static int exists(OvAttributeStruct* location) {
    OvAttributeStruct* value = NULL;
    int32_t number = 0;
    if (location) {
        value = attributes->getChildByName(location, "exists", 6);
        attributes->getNearestInt(&value, 0, 0.0F, &number);
        attributes->release(value);
        attributes->release(location);
    }
    return number;
}

static int isThere(OvRuntimeClientStruct* client, const char* path) {
    return exists(suite->cookLocation(client, path, lengthOf(path)));
}

static int isCached(OvRuntimeClientStruct* client, const char* path) {
    OvAttributeStruct* location = NULL;
    return suite->getCachedLocation(client, path, lengthOf(path), &location) && exists(location);
}

/* Arguments of an op "generate" with one level of locations. */
static OvAttributeStruct* oneLevel(void) {
    const char* const name = "depth";
    OvAttributeStruct* const depth = attributes->createInt(1);
    OvAttributeStruct* const group = attributes->createGroup(&name, &depth, 1, 0);
    attributes->release(depth);
    return group;
}

/* A client of a generated scene, through an op without a type. */
static OvRuntimeClientStruct* openClient(OvRuntimeStruct* runtime) {
    OvRuntimeTransactionStruct* const transaction = suite->createTransaction(runtime);
    OvRuntimeOpStruct* const bottom = suite->createOp(transaction);
    OvRuntimeOpStruct* const top = suite->createOp(transaction);
    OvRuntimeOpStruct* inputs[2] = {bottom, NULL};
    OvRuntimeClientStruct* const client = suite->createClient(transaction);
    OvAttributeStruct* const arguments = oneLevel();
    CHECK(suite->getOpId(bottom) >= 0 && suite->getOpId(top) >= 0);
    suite->setOpInputs(transaction, top, inputs, 1);
    suite->setOpArgs(transaction, bottom, "generate", 8, arguments);
    suite->setOpArgs(transaction, top, "", 0, NULL);
    suite->setClientOp(transaction, client, top);
    attributes->release(arguments);
    suite->releaseOp(bottom);
    CHECK(!isThere(client, "/root"));
    suite->commit(runtime, transaction);
    suite->releaseTransaction(transaction);
    suite->releaseOp(top);
    return client;
}

static void everyEntryIsThere(void) {
    typedef void (*Function)(void);
    Function entries[sizeof(OvRuntimeSuite) / sizeof(Function)];
    size_t i = 0;
    memcpy(entries, suite, sizeof(entries));
    for (i = 0; i < sizeof(entries) / sizeof(entries[0]); ++i) {
        CHECK(entries[i] != NULL);
    }
}

static void aClientCooksCachesAndEvicts(void) {
    OvRuntimeStruct* const runtime = suite->createRuntime();
    OvRuntimeClientStruct* const client = openClient(runtime);
    CHECK(!isCached(client, "/root/c1"));
    CHECK(isThere(client, "/root/c1"));
    CHECK(isCached(client, "/root/c1"));
    CHECK(!isThere(client, "/root/other"));
    CHECK(!isThere(client, ""));
    suite->evict(runtime, "/root/c1", 8);
    CHECK(!isCached(client, "/root/c1") && isCached(client, "/root"));
    suite->finalize(runtime);
    CHECK(!isCached(client, "/root"));
    CHECK(isThere(client, "/root/c1"));
    suite->releaseRuntime(runtime);
    CHECK(isThere(client, "/root/c2"));
    suite->releaseClient(client);
}

/* Reads four bytes of nothing that is an op tree. */
static long readRubbish(void* stream, void* buffer, long size) {
    int* const calls = stream;
    const long count = ++*calls == 1 && size >= 4 ? 4 : 0;
    memset(buffer, '!', (size_t)count);
    return count;
}

static void aBadStreamGivesANegativeId(void) {
    OvRuntimeStruct* const runtime = suite->createRuntime();
    OvRuntimeTransactionStruct* const transaction = suite->createTransaction(runtime);
    OvRuntimeClientStruct* const client = suite->createClient(transaction);
    int calls = 0;
    OvRuntimeOpStruct* const op = suite->deserializeOps(transaction, &calls, readRubbish);
    CHECK(calls >= 1);
    CHECK(op && suite->getOpId(op) < 0);
    suite->setClientOp(transaction, client, op);
    suite->commit(runtime, transaction);
    CHECK(!isThere(client, "/root"));
    suite->releaseClient(client);
    suite->releaseOp(op);
    suite->releaseTransaction(transaction);
    suite->releaseRuntime(runtime);
}

struct Answer {
    int count;
    int32_t status;
    char first;
};

static void takeAnswer(int32_t status, const char* data, uint64_t length, void* context) {
    struct Answer* const answer = context;
    ++answer->count;
    answer->status = status;
    answer->first = length > 0 ? data[0] : '\0';
}

static void eachQueryIsAnsweredOnce(void) {
    static const char* const names[] = {
        "getAnonymousOpTree", "getAnonymousOpRegistry", "getStatistics", "unknown"};
    OvRuntimeStruct* const runtime = suite->createRuntime();
    int i = 0;
    for (i = 0; i < 4; ++i) {
        struct Answer answer = {0, -1, '\0'};
        suite->queryRuntimeInfo(runtime, names[i], strlen(names[i]), &answer, takeAnswer);
        CHECK(answer.count == 1);
        CHECK((answer.status == 0) == (i < 3));
        CHECK((answer.first == '{') == (i < 3));
    }
    suite->releaseRuntime(runtime);
}

static void eachTraceIsAnsweredOnce(void) {
    static const char* const paths[] = {"/root/c1", "/root/gone", ""};
    static const char* const names[] = {"value0", "gone", ""};
    OvRuntimeStruct* const runtime = suite->createRuntime();
    OvRuntimeClientStruct* const client = openClient(runtime);
    int i = 0;
    for (i = 0; i < 9; ++i) {
        const char* const path = paths[i / 3];
        const char* const name = names[i % 3];
        struct Answer answer = {0, -1, '\0'};
        suite->traceAttribute(
            client, path, lengthOf(path), name, lengthOf(name), &answer, takeAnswer);
        CHECK(answer.count == 1);
        CHECK(answer.status == 0);
        CHECK(answer.first == '{');
    }
    suite->releaseClient(client);
    suite->releaseRuntime(runtime);
}

int main(void) {
    suite = platformRuntimeSuite();
    attributes = OvGetAttributeSuite();
    everyEntryIsThere();
    aClientCooksCachesAndEvicts();
    aBadStreamGivesANegativeId();
    eachQueryIsAnsweredOnce();
    eachTraceIsAnsweredOnce();
    return failures == 0 ? 0 : 1;
}
