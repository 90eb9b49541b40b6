/* SPDX-License-Identifier: Apache-2.0 */
/* Leaks one iterator, by releasing it without having retained it. What checks for leaks has to
   find it: otherwise it says nothing about all the other tests. */
#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <stddef.h>
#include <stdio.h>

static const OvAttributeSuite* attributes;
static const OvScenegraphIteratorSuite* scene;

/* An op tree of one op without a type or arguments, of which the scene is /root alone. */
static OvAttributeStruct* opTree(void) {
    const char* const names[] = {"opType", "one"};
    OvAttributeStruct* children[2];
    OvAttributeStruct* tree;
    children[0] = attributes->createString("generate");
    children[1] = attributes->createGroup(names, children, 1, 0);
    tree = attributes->createGroup(names + 1, children + 1, 1, 0);
    attributes->release(children[0]);
    attributes->release(children[1]);
    return tree;
}

/* In a frame of its own, which others overwrite afterwards. */
__attribute__((noinline)) static void leakAStepFrom(OvSgIteratorStruct* root) {
    scene->sgRelease(scene->sgGetRoot(root));
}

__attribute__((noinline)) static void overwriteTheStack(void) {
    volatile char frame[16384];
    size_t i;
    for (i = 0; i < sizeof frame; ++i) {
        frame[i] = 0;
    }
}

int main(void) {
    const OvHostTable* const host = OvGetHostTable();
    OvAttributeStruct* tree;
    OvSgIteratorStruct* root;
    OvSylvarProducersInitialize(host);
    attributes = host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION);
    scene =
        host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    if (!attributes || !scene) {
        fprintf(stderr, "the host lacks a suite\n");
        return 2;
    }
    tree = opTree();
    root = scene->sgCreateRootFromAttr(tree);
    attributes->release(tree);
    if (!root) {
        return 2;
    }
    leakAStepFrom(root);
    overwriteTheStack();
    scene->sgRelease(root);
    return 0;
}
