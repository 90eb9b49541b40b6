/* SPDX-License-Identifier: Apache-2.0 */
/* The attribute table as a plug-in in plain C99 sees it: nothing but its header. */
#include <SylvarPlatform/suites/AttributeSuite.h>

#include <stddef.h>
#include <stdio.h>
#include <string.h>

/* The place of each entry is given for good. */
#define OV_PLACE(place, entry)             \
    typedef char entry##_has_place_##place \
        [offsetof(OvAttributeSuite, entry) == (place) * sizeof(void (*)(void)) ? 1 : -1];
/* clang-format off */
    OV_PLACE(0, getType)
    OV_PLACE(1, retain)
    OV_PLACE(2, release)
    OV_PLACE(3, getHash)
    OV_PLACE(4, getTupleSize)
    OV_PLACE(5, getNumberOfValues)
    OV_PLACE(6, getNumberOfTimeSamples)
    OV_PLACE(7, getSampleTime)
    OV_PLACE(8, createInt)
    OV_PLACE(9, createFloat)
    OV_PLACE(10, createString)
    OV_PLACE(11, createStringArray)
    OV_PLACE(12, createGroup)
    OV_PLACE(13, getNumberOfChildren)
    OV_PLACE(14, getChildName)
    OV_PLACE(15, getChildByIndex)
    OV_PLACE(16, getChildByName)
    OV_PLACE(17, createBuilder)
    OV_PLACE(18, createBuilderWithMode)
    OV_PLACE(19, releaseBuilder)
    OV_PLACE(20, setInBuilder)
    OV_PLACE(21, updateBuilder)
    OV_PLACE(22, buildBuilder)
    OV_PLACE(23, setBuilderGroupInherit)
    OV_PLACE(24, getNearestDouble)
    OV_PLACE(25, getNearestString)
    OV_PLACE(26, acquireSamples)
    OV_PLACE(27, disposeSamples)
    OV_PLACE(28, createFloatFromSamples)
    OV_PLACE(29, createIntFromSamples)
    OV_PLACE(30, createDoubleFromSamples)
    OV_PLACE(31, createStringFromSamples)
    OV_PLACE(32, createDouble)
    OV_PLACE(33, getNearestInt)
    OV_PLACE(34, getNearestFloat)
    OV_PLACE(35, getGroupInherit)
    OV_PLACE(36, createGroupWithLengths)
    OV_PLACE(37, removeFromBuilder)
    OV_PLACE(38, readStream)
    OV_PLACE(39, parseXML)
    OV_PLACE(40, writeXML)
    OV_PLACE(41, borrowChildByName)
/* clang-format on */
typedef char
    the_table_has_42_entries[sizeof(OvAttributeSuite) == 42 * sizeof(void (*)(void)) ? 1 : -1];

/* A sample table has its fields in this order, with nothing in between but padding. */
typedef char sample_table_flags[offsetof(OvSampleTable, flags) == 4 ? 1 : -1];
typedef char sample_table_samples[offsetof(OvSampleTable, sampleCount) == 8 ? 1 : -1];
typedef char
    sample_table_values_per_sample[offsetof(OvSampleTable, valuesPerSample) == 16 ? 1 : -1];
typedef char sample_table_times[offsetof(OvSampleTable, times) == 24 ? 1 : -1];
typedef char sample_table_values[offsetof(OvSampleTable, values) == 24 + sizeof(void*) ? 1 : -1];
typedef char buffer_holds_a_table[sizeof(OvSampleTable) <= sizeof(OvSampleTableBuffer) ? 1 : -1];
typedef char buffer_is_eight_words[sizeof(OvSampleTableBuffer) == 64 ? 1 : -1];

static const OvAttributeSuite* suite;
static int failures = 0;

#define CHECK(condition)                                                        \
    do {                                                                        \
        if (!(condition)) {                                                     \
            fprintf(stderr, "%s:%d: not %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                         \
        }                                                                       \
    } while (0)

static int32_t lengthOf(const char* name) {
    return (int32_t)strlen(name);
}

static int haveEqualHashes(OvAttributeStruct* a, OvAttributeStruct* b) {
    const OvAttributeHash one = suite->getHash(a);
    const OvAttributeHash other = suite->getHash(b);
    return one.words[0] == other.words[0] && one.words[1] == other.words[1];
}

/* The int below `name`, or -1. */
static int32_t intAt(OvAttributeStruct* group, const char* name) {
    OvAttributeStruct* const child = suite->getChildByName(group, name, lengthOf(name));
    int32_t value = -1;
    suite->getNearestInt(&child, 0, 0.0F, &value);
    if (child) {
        suite->release(child);
    }
    return value;
}

static int childIsNamed(OvAttributeStruct* group, int64_t index, const char* name) {
    int32_t length = -1;
    const char* const text = suite->getChildName(group, index, &length);
    return length == lengthOf(name) && memcmp(text, name, strlen(name)) == 0;
}

static void everyEntryIsThere(void) {
    typedef void (*Function)(void);
    Function entries[sizeof(OvAttributeSuite) / sizeof(Function)];
    size_t i = 0;
    memcpy(entries, suite, sizeof(entries));
    for (i = 0; i < sizeof(entries) / sizeof(entries[0]); ++i) {
        CHECK(entries[i] != NULL);
    }
    CHECK(suite == OvGetAttributeSuite());
}

static void oneValueIsOneSampleAtTimeZero(void) {
    OvAttributeStruct* const made[4] = {suite->createInt(-7),
                                        suite->createFloat(0.5F),
                                        suite->createDouble(0.25),
                                        suite->createString("text")};
    int32_t kind = 0;
    int32_t wholeNumber = 0;
    float number = 0.0F;
    double precise = 0.0;
    const char* text = NULL;
    for (kind = 1; kind <= 4; ++kind) {
        OvAttributeStruct* const one = made[kind - 1];
        CHECK(suite->getType(one) == kind);
        CHECK(suite->getTupleSize(one) == 1);
        CHECK(suite->getNumberOfValues(one) == 1);
        CHECK(suite->getNumberOfTimeSamples(one) == 1);
        CHECK(!(suite->getSampleTime(one, 0) < 0.0F) && !(suite->getSampleTime(one, 0) > 0.0F));
    }
    CHECK(suite->getNearestInt(&made[0], 0, 0.0F, &wholeNumber) == 1 && wholeNumber == -7);
    CHECK(suite->getNearestFloat(&made[1], 0, 0.0F, &number) == 1 && number > 0.4F);
    CHECK(suite->getNearestDouble(&made[2], 0, 0.0F, &precise) == 1 && precise > 0.2);
    CHECK(suite->getNearestString(&made[3], 0, 0.0F, &text) == 1 && strcmp(text, "text") == 0);
    for (kind = 1; kind <= 4; ++kind) {
        suite->release(made[kind - 1]);
    }
}

static void nearestValuesLeaveTheResultAloneWhereThereIsNone(void) {
    OvAttributeStruct* const null = NULL;
    OvAttributeStruct* const integer = suite->createInt(1);
    OvAttributeStruct* const group = suite->createGroup(NULL, NULL, 0, 1);
    OvAttributeStruct* const wrong[3] = {null, integer, group};
    int32_t wholeNumber = 42;
    float number = 42.0F;
    double precise = 42.0;
    const char* text = "untouched";
    size_t i = 0;
    for (i = 0; i < 3; ++i) {
        CHECK(suite->getNearestDouble(&wrong[i], 0, 0.0F, &precise) == 0);
        CHECK(suite->getNearestString(&wrong[i], 0, 0.0F, &text) == 0);
        CHECK(suite->getNearestFloat(&wrong[i], 0, 0.0F, &number) == 0);
    }
    CHECK(suite->getNearestInt(&null, 0, 0.0F, &wholeNumber) == 0);
    CHECK(suite->getNearestInt(&group, 0, 0.0F, &wholeNumber) == 0);
    CHECK(suite->getNearestInt(&integer, 1, 0.0F, &wholeNumber) == 0);
    CHECK(suite->getNearestInt(&integer, -1, 0.0F, &wholeNumber) == 0);
    CHECK(wholeNumber == 42 && number > 41.0F && precise > 41.0);
    CHECK(strcmp(text, "untouched") == 0);
    suite->release(integer);
    suite->release(group);
}

static void samplesAreReadThroughATable(void) {
    const float times[2] = {-1.0F, 1.0F};
    const int32_t first[2] = {1, 2};
    const int32_t second[2] = {3, 4};
    const int32_t* const samples[2] = {first, second};
    OvSampleTableBuffer buffer;
    OvSampleTable* table = NULL;
    int32_t nearest = 0;
    OvAttributeStruct* const made =
        suite->createIntFromSamples(times, 2, samples, 2, 2, NULL, NULL);
    memset(&buffer, 0, sizeof(buffer));
    table = suite->acquireSamples(made, OV_ATTRIBUTE_INT, 1, &buffer);
    CHECK((void*)table == (void*)&buffer);
    CHECK(table->flags == OV_SAMPLES_CONTIGUOUS);
    CHECK(table->sampleCount == 2 && table->valuesPerSample == 2);
    CHECK(table->times[0] < 0.0F && table->times[1] > 0.0F);
    CHECK(((const int32_t*)table->values)[3] == 4);
    CHECK(suite->getTupleSize(made) == 2);
    CHECK(suite->getSampleTime(made, 1) > 0.5F);
    CHECK(suite->getNearestInt(&made, 1, 0.0F, &nearest) == 1 && nearest == 2);
    suite->disposeSamples(table);
    suite->release(made);
}

static void aTableOfItsOwnIsGivenBack(void) {
    OvAttributeStruct* const made = suite->createDouble(2.5);
    OvSampleTable* const table = suite->acquireSamples(made, OV_ATTRIBUTE_DOUBLE, 0, NULL);
    CHECK(table != NULL);
    CHECK((table->flags & OV_SAMPLES_DISPOSE) != 0);
    CHECK(((const double*)table->values)[0] > 2.0);
    suite->disposeSamples(table);
    suite->disposeSamples(NULL);
    suite->release(made);
}

static void listsAreMadeFromArrays(void) {
    const float times[2] = {0.0F, 2.0F};
    const float floats[2] = {1.5F, 2.5F};
    const double doubles[2] = {1.5, 2.5};
    const char* const words[2] = {"one", "two"};
    const float* const floatSamples[2] = {floats, floats};
    const double* const doubleSamples[2] = {doubles, doubles};
    const char* const* const stringSamples[2] = {words, words};
    OvAttributeStruct* const made[4] = {
        suite->createFloatFromSamples(times, 2, floatSamples, 2, 1, NULL, NULL),
        suite->createDoubleFromSamples(times, 2, doubleSamples, 2, 1, NULL, NULL),
        suite->createStringFromSamples(times, 2, stringSamples, 2, 1, NULL, NULL),
        suite->createStringArray(words, 2, 1)};
    OvAttributeStruct* const empty = suite->createStringArray(NULL, 0, 1);
    int64_t i = 0;
    for (i = 0; i < 4; ++i) {
        CHECK(suite->getNumberOfValues(made[i]) == 2);
        CHECK(suite->getNumberOfTimeSamples(made[i]) == (i < 3 ? 2 : 1));
        suite->release(made[i]);
    }
    CHECK(suite->getType(empty) == OV_ATTRIBUTE_STRING);
    CHECK(suite->getNumberOfValues(empty) == 0);
    suite->release(empty);
    CHECK(suite->createFloatFromSamples(times, 2, floatSamples, 2, 0, NULL, NULL) == NULL);
    CHECK(suite->createStringArray(words, 2, 0) == NULL);
}

static void groupsAreMadeAndWalked(void) {
    const char* const names[3] = {"a", "null", "b.c"};
    const int32_t lengths[3] = {1, 4, 3};
    OvAttributeStruct* const child = suite->createInt(3);
    OvAttributeStruct* const children[3] = {child, NULL, child};
    OvAttributeStruct* const group = suite->createGroup(names, children, 3, 1);
    OvAttributeStruct* const same = suite->createGroupWithLengths(names, lengths, children, 3, 1);
    OvAttributeStruct* found = NULL;
    int32_t length = -1;
    suite->release(child);
    CHECK(suite->getType(group) == OV_ATTRIBUTE_GROUP);
    CHECK(suite->getNumberOfChildren(group) == 3);
    CHECK(suite->getGroupInherit(group) == 1);
    CHECK(haveEqualHashes(group, same));
    CHECK(childIsNamed(group, 0, "a") && childIsNamed(group, 2, "b.c"));
    CHECK(suite->getChildName(group, 3, &length) == NULL && length == 0);
    CHECK(suite->getChildByIndex(group, 1) == NULL && suite->getChildByIndex(group, -1) == NULL);
    found = suite->getChildByIndex(group, 2);
    CHECK(suite->getType(found) == OV_ATTRIBUTE_INT);
    suite->release(found);
    CHECK(intAt(group, "a") == 3 && intAt(group, "b.c") == -1);
    suite->release(group);
    suite->release(same);
}

static void buildersMakeGroups(void) {
    OvGroupBuilderStruct* const nested = suite->createBuilder();
    OvGroupBuilderStruct* const flat = suite->createBuilderWithMode(1);
    OvAttributeStruct* built = NULL;
    OvAttributeStruct* child = suite->createInt(4);
    suite->setInBuilder(nested, "a.b", 3, child, 1);
    suite->setInBuilder(nested, "gone", 4, child, 1);
    suite->removeFromBuilder(nested, "gone", 4);
    suite->setBuilderGroupInherit(nested, 1);
    built = suite->buildBuilder(nested, 0);
    CHECK(suite->getNumberOfChildren(built) == 1);
    CHECK(suite->getGroupInherit(built) == 1);
    CHECK(intAt(built, "a.b") == 4);
    suite->updateBuilder(flat, built);
    suite->setInBuilder(flat, "x.y", 3, child, 0);
    suite->release(built);
    built = suite->buildBuilder(flat, 1);
    CHECK(suite->getNumberOfChildren(built) == 2);
    CHECK(childIsNamed(built, 1, "x.y"));
    CHECK(suite->getGroupInherit(built) == 0);
    suite->release(built);
    suite->releaseBuilder(flat);
    suite->releaseBuilder(nested);
    CHECK(suite->createBuilderWithMode(7) == NULL);
}

static void nullIsTakenWhereItIsLegal(void) {
    OvSampleTableBuffer buffer;
    const OvAttributeHash hash = suite->getHash(NULL);
    memset(&buffer, 0, sizeof(buffer));
    suite->retain(NULL);
    CHECK(suite->acquireSamples(NULL, OV_ATTRIBUTE_STRING, 1, &buffer) == NULL);
    CHECK(suite->getChildByName(NULL, "a", 1) == NULL);
    CHECK(suite->getChildByName(NULL, NULL, 0) == NULL);
    CHECK(hash.words[0] == 0 && hash.words[1] == 0);
}

static void dataIsNoGroup(OvAttributeStruct* data) {
    int32_t length = -1;
    OvGroupBuilderStruct* const builder = suite->createBuilder();
    OvAttributeStruct* built = NULL;
    CHECK(suite->getNumberOfChildren(data) == 0);
    CHECK(suite->getChildName(data, 0, &length) == NULL && length == 0);
    CHECK(suite->getChildByIndex(data, 0) == NULL);
    CHECK(suite->getChildByName(data, "a", 1) == NULL);
    CHECK(suite->getChildByName(data, "", 0) == NULL);
    CHECK(suite->getGroupInherit(data) == 0);
    suite->updateBuilder(builder, data);
    built = suite->buildBuilder(builder, 0);
    CHECK(suite->getNumberOfChildren(built) == 0);
    suite->release(built);
    suite->releaseBuilder(builder);
}

static void aGroupIsNoData(OvAttributeStruct* group) {
    OvSampleTableBuffer buffer;
    int32_t kind = 0;
    memset(&buffer, 0, sizeof(buffer));
    CHECK(suite->getTupleSize(group) == 0);
    CHECK(suite->getNumberOfValues(group) == 0);
    CHECK(suite->getNumberOfTimeSamples(group) == 0);
    CHECK(!(suite->getSampleTime(group, 0) > 0.0F));
    for (kind = -1; kind <= 6; ++kind) {
        CHECK(suite->acquireSamples(group, kind, 1, &buffer) == NULL);
    }
}

static void kindsAreNotMixedUp(void) {
    OvAttributeStruct* const data = suite->createString("text");
    OvAttributeStruct* const group = suite->createGroup(NULL, NULL, 0, 1);
    dataIsNoGroup(data);
    aGroupIsNoData(group);
    suite->release(data);
    suite->release(group);
}

static void referencesAreCounted(void) {
    OvAttributeStruct* const made = suite->createInt(5);
    OvAttributeStruct* const equal = suite->createInt(5);
    OvAttributeStruct* const other = suite->createInt(6);
    int32_t value = 0;
    suite->retain(made);
    suite->release(made);
    CHECK(suite->getNearestInt(&made, 0, 0.0F, &value) == 1 && value == 5);
    CHECK(haveEqualHashes(made, equal));
    CHECK(!haveEqualHashes(made, other));
    suite->release(made);
    suite->release(equal);
    suite->release(other);
}

/* A text that grows by what is written, and is read from its front. */
typedef struct Text {
    char bytes[4096];
    long size;
    long taken;
} Text;

static int writeText(void* stream, const void* bytes, long size) {
    Text* const text = (Text*)stream;
    if (text->size + size > (long)sizeof(text->bytes)) {
        return 0;
    }
    memcpy(text->bytes + text->size, bytes, (size_t)size);
    text->size += size;
    return 1;
}

static long readText(void* stream, void* buffer, long size) {
    Text* const text = (Text*)stream;
    const long left = text->size - text->taken;
    const long count = size < left ? size : left;
    memcpy(buffer, text->bytes + text->taken, (size_t)count);
    text->taken += count;
    return count;
}

static int writeNothing(void* stream, const void* bytes, long size) {
    (void)stream;
    (void)bytes;
    (void)size;
    return 0;
}

static void xmlIsWrittenAndParsed(void) {
    static Text text;
    OvAttributeStruct* const made = suite->createString("a < b");
    OvAttributeStruct* parsed = NULL;
    CHECK(suite->writeXML(made, &text, writeText) == 1);
    parsed = suite->parseXML(text.bytes, text.size);
    CHECK(parsed != NULL && haveEqualHashes(made, parsed));
    if (parsed) {
        suite->release(parsed);
    }
    CHECK(suite->parseXML("<not>", 5) == NULL);
    CHECK(suite->parseXML("", 0) == NULL && suite->parseXML(NULL, -1) == NULL);
    CHECK(suite->writeXML(made, &text, writeNothing) == 0);
    suite->release(made);
}

static void streamsAreRead(void) {
    static Text text;
    static const char json[] = "{\"format\": \"neither this nor that\"}";
    OvAttributeStruct* read = NULL;
    CHECK(suite->readStream(&text, readText) == NULL);
    memcpy(text.bytes, json, sizeof(json) - 1);
    text.size = (long)sizeof(json) - 1;
    read = suite->readStream(&text, readText);
    CHECK(read == NULL && text.taken == text.size);
}

/* Appends to what is in the text; it ends in a NUL. */
static void note(Text* text, const char* words, long size) {
    CHECK(text->size + size < (long)sizeof(text->bytes));
    memcpy(text->bytes + text->size, words, (size_t)size);
    text->size += size;
    text->bytes[text->size] = '\0';
}

static void noteString(Text* text, OvAttributeStruct* data) {
    OvSampleTableBuffer buffer;
    OvSampleTable* table = NULL;
    int64_t i = 0;
    memset(&buffer, 0, sizeof(buffer));
    table = suite->acquireSamples(data, OV_ATTRIBUTE_STRING, 1, &buffer);
    for (i = 0; table && i < table->sampleCount * table->valuesPerSample; ++i) {
        const char* const value = ((const char* const*)table->values)[i];
        note(text, "=", 1);
        note(text, value, (long)strlen(value));
    }
}

/* A group on the way down, and the child of it that comes next. */
typedef struct Level {
    OvAttributeStruct* group;
    int64_t next;
} Level;

/* Every name and every string, depth first; groups are in parentheses. Takes the reference. */
static void walk(OvAttributeStruct* top, Text* text) {
    Level levels[16];
    int depth = 0;
    levels[0].group = top;
    levels[0].next = 0;
    while (depth >= 0) {
        Level* const level = &levels[depth];
        OvAttributeStruct* child = NULL;
        const char* name = NULL;
        int32_t length = 0;
        if (level->next == suite->getNumberOfChildren(level->group)) {
            suite->release(level->group);
            note(text, ")", 1);
            --depth;
            continue;
        }
        name = suite->getChildName(level->group, level->next, &length);
        note(text, " ", 1);
        note(text, name, length);
        child = suite->getChildByIndex(level->group, level->next++);
        if (child && suite->getType(child) == OV_ATTRIBUTE_GROUP) {
            note(text, "(", 1);
            levels[++depth].group = child;
            levels[depth].next = 0;
        } else if (child) {
            noteString(text, child);
            suite->release(child);
        }
    }
}

static void aTreeIsReadAndWalked(void) {
    static Text file;
    static Text walked;
    static const char json[] =
        "{\"format\": \"sylvar\", \"version\": 1, \"content\": \"static scene\", \"root\": {"
        "\"a\": {\"type\": \"group\", \"n\": 1, \"gone\": null},"
        "\"c\": {\"geo\": {\"a\": {\"names\": [\"x\", \"y\"]}}, \"none\": {}}}}";
    OvAttributeStruct* top = NULL;
    memcpy(file.bytes, json, sizeof(json) - 1);
    file.size = (long)sizeof(json) - 1;
    top = suite->readStream(&file, readText);
    CHECK(top != NULL);
    if (top) {
        walk(top, &walked);
        CHECK(strcmp(walked.bytes, " a( type=group n gone) c( geo( a( names=x=y)) none()))") == 0);
    }
}

int main(void) {
    suite = OvGetAttributeSuite();
    everyEntryIsThere();
    oneValueIsOneSampleAtTimeZero();
    nearestValuesLeaveTheResultAloneWhereThereIsNone();
    samplesAreReadThroughATable();
    aTableOfItsOwnIsGivenBack();
    listsAreMadeFromArrays();
    groupsAreMadeAndWalked();
    buildersMakeGroups();
    nullIsTakenWhereItIsLegal();
    kindsAreNotMixedUp();
    referencesAreCounted();
    xmlIsWrittenAndParsed();
    streamsAreRead();
    aTreeIsReadAndWalked();
    return failures == 0 ? 0 : 1;
}
