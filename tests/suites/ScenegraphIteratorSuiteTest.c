/* SPDX-License-Identifier: Apache-2.0 */
/* The scene table as a program in plain C99 uses it: every entry once, in both versions. */
#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <stdio.h>
#include <string.h>

static const OvAttributeSuite* attributes;
static const OvScenegraphIteratorSuite* scene;
static int failures = 0;

#define CHECK(condition)                                                        \
    do {                                                                        \
        if (!(condition)) {                                                     \
            fprintf(stderr, "%s:%d: not %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                         \
        }                                                                       \
    } while (0)

/* Whether the attribute's first value is that text; gives the attribute back. */
static int isText(OvAttributeStruct* attribute, const char* wanted) {
    const char* text = NULL;
    const int same = attribute && attributes->getNearestString(&attribute, 0, 0.0F, &text) &&
                     strcmp(text, wanted) == 0;
    if (attribute) {
        attributes->release(attribute);
    }
    return same;
}

static OvAttributeStruct* groupOf(const char* name, OvAttributeStruct* child) {
    OvAttributeStruct* const group = attributes->createGroup(&name, &child, 1, 0);
    attributes->release(child);
    return group;
}

static OvAttributeStruct* groupOfTwo(const char* first,
                                     OvAttributeStruct* firstChild,
                                     const char* second,
                                     OvAttributeStruct* secondChild) {
    const char* names[2];
    OvAttributeStruct* children[2];
    OvAttributeStruct* group;
    names[0] = first;
    names[1] = second;
    children[0] = firstChild;
    children[1] = secondChild;
    group = attributes->createGroup(names, children, 2, 0);
    attributes->release(firstChild);
    attributes->release(secondChild);
    return group;
}

/* An op tree of one op, of which the scene is /root with a child "a" and its child "b". */
static OvAttributeStruct* opTree(void) {
    OvAttributeStruct* const b = groupOf("a", groupOf("type", attributes->createString("mesh")));
    OvAttributeStruct* const a = groupOf("c", groupOf("b", b));
    OvAttributeStruct* const root =
        groupOfTwo("a", groupOf("quality", attributes->createInt(3)), "c", groupOf("a", a));
    OvAttributeStruct* const op =
        groupOfTwo("opType", attributes->createString("scene"), "opArgs", groupOf("tree", root));
    return groupOf("scene", op);
}

static void readLocation(OvSgIteratorStruct* location) {
    int32_t quality = 0;
    OvAttributeStruct* value = scene->sgGetGlobalAttribute(location, "quality");
    CHECK(isText(scene->sgGetName(location), "b"));
    CHECK(isText(scene->sgGetFullName(location), "/root/a/b"));
    CHECK(isText(scene->sgGetAttribute(location, "type"), "mesh"));
    CHECK(isText(scene->sgGetAttributeNames(location), "type"));
    CHECK(value && attributes->getNearestInt(&value, 0, 0.0F, &quality) && quality == 3);
    attributes->release(value);
    value = scene->sgGetGlobalXFormGroup(location);
    CHECK(value && attributes->getNumberOfChildren(value) == 0);
    attributes->release(value);
}

static void walk(OvSgIteratorStruct* root) {
    OvSgIteratorStruct* const a = scene->sgGetFirstChild(root, 0);
    OvSgIteratorStruct* const b = scene->sgGetChildByName(a, "b", 0);
    OvSgIteratorStruct* const same = scene->sgGetByPath(root, "/root/a/b", 0);
    OvSgIteratorStruct* const parent = scene->sgGetParent(b);
    OvSgIteratorStruct* const top = scene->sgGetRoot(b);
    scene->sgRetain(a);
    scene->sgRetain(b);
    scene->sgRetain(same);
    scene->sgRetain(parent);
    scene->sgRetain(top);
    CHECK(isText(scene->sgGetPotentialChildren(a), "b"));
    CHECK(scene->sgGetNextSibling(a, 0) == NULL);
    readLocation(b);
    readLocation(same);
    CHECK(isText(scene->sgGetFullName(parent), "/root/a"));
    CHECK(isText(scene->sgGetFullName(top), "/root"));
    scene->sgRelease(a);
    scene->sgRelease(b);
    scene->sgRelease(same);
    scene->sgRelease(parent);
    scene->sgRelease(top);
}

int main(void) {
    const OvHostTable* const host = OvGetHostTable();
    const OvScenegraphIteratorSuite2* scene2;
    OvAttributeStruct* tree;
    OvSgIteratorStruct* root;

    CHECK(OvSylvarProducersInitialize(host) == OV_HOST_SUITE_REGISTERED);
    attributes = host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    scene =
        host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    scene2 =
        host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION_2);
    if (!attributes || !scene || !scene2) {
        fprintf(stderr, "the host lacks a suite\n");
        return 1;
    }

    tree = opTree();
    root = scene->sgCreateRootFromAttr(tree);
    attributes->release(tree);
    CHECK(root != NULL);
    if (root) {
        walk(root);
        scene->sgFinalize(root);
        scene->sgRelease(root);
    }

    CHECK(scene->sgCreateRootFromAttr(NULL) == NULL);
    CHECK(scene->sgCreateRootFromFile("") == NULL);
    CHECK(scene2->sgCreateRootFromFile("") == NULL);
    CHECK(scene->sgLoadOpTreeDescription("/no/such/file") == NULL);
    return failures == 0 ? 0 : 1;
}
