// SPDX-License-Identifier: Apache-2.0
// Renderers that tell what they are asked for, that fail, and that have unusable tables.
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>
#include <SylvarPlatform/suites/Plugin.h>
#include <SylvarPlatform/suites/Renderer.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

const OvAttributeSuite* attributes;
const OvScenegraphIteratorSuite* scene;

std::int32_t setHost(const OvHostTable* host) {
    attributes = static_cast<const OvAttributeSuite*>(
        host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION));
    scene = static_cast<const OvScenegraphIteratorSuite*>(
        host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION));
    const bool hasOldTable = host->findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                                             OV_SCENEGRAPH_ITERATOR_SUITE_VERSION_2) != nullptr;
    return attributes && scene && hasOldTable ? 0 : 1;
}

std::int32_t refuseHost(const OvHostTable* /*host*/) {
    return 5;
}

void printOps(OvAttributeStruct* opTree) {
    const std::int64_t count = opTree ? attributes->getNumberOfChildren(opTree) : 0;
    for (std::int64_t i = 0; i < count; ++i) {
        std::int32_t length = 0;
        const char* const name = attributes->getChildName(opTree, i, &length);
        std::printf("op %.*s\n", static_cast<int>(length), name);
    }
}

void printText(const char* name, const char* text) {
    std::printf("%s %s\n", name, text ? text : "(null)");
}

std::int32_t tell(const OvRenderJob* job) {
    std::printf("size %s\n", job->size >= sizeof(OvRenderJob) ? "fits" : "is small");
    std::printf("threads %u\n", job->threads);
    printText("file", job->opTreeFile);
    printText("group", job->opTree ? "there" : nullptr);
    printOps(job->opTree);
    printText("output", job->outputFile);
    for (std::uint32_t i = 0; i < job->optionCount; ++i) {
        printText("option", job->options[i]);
    }
    std::printf("reserved %u\n", job->reserved);
    return 0;
}

std::int32_t fail(const OvRenderJob* /*job*/) {
    std::puts("half an image");
    return -3;
}

std::int32_t throwError(const OvRenderJob* /*job*/) {
    throw std::runtime_error("no \x1B light");
}

std::int32_t throwNumber(const OvRenderJob* /*job*/) {
    throw 5;
}

std::int32_t stepTooDeep(const OvRenderJob* job) {
    const auto release = [](OvSgIteratorStruct* iterator) { scene->sgRelease(iterator); };
    const std::unique_ptr<OvSgIteratorStruct, decltype(release)> root(
        scene->sgCreateRootFromFile(job->opTreeFile), release);
    scene->sgGetChildByName(root.get(), "a/b", 0);
    return 0;
}

/// A table of a later version.
struct LaterRenderer {
    OvRenderer renderer;
    std::array<void*, 99> more;
};

constexpr std::uint32_t kSize = sizeof(OvRenderer);
const OvRenderer kTelling = {kSize, 0, "Tells its job\x1B.", tell};
const OvRenderer kFailing = {kSize, 0, "Fails.", fail};
const OvRenderer kThrowing = {kSize, 0, nullptr, throwError};
const OvRenderer kThrowingNumber = {kSize, 0, "", throwNumber};
const OvRenderer kDeep = {kSize, 0, "Steps too deep.", stepTooDeep};
const OvRenderer kSmall = {kSize - 1, 0, "Has a small table.", tell};
const OvRenderer kIdle = {kSize, 0, "Has no render.", nullptr};
const LaterRenderer kLater = {{sizeof(LaterRenderer), 0, "Of a later version.", tell}, {}};

template <auto& kTable>
const void* suite() {
    return &kTable;
}

const void* noSuite() {
    return nullptr;
}

OvPluginStruct plugin(const char* name,
                      const void* (*getSuite)(),
                      std::int32_t (*takeHost)(const OvHostTable*) = setHost) {
    return {sizeof(OvPluginStruct),
            OV_PLUGIN_VERSION,
            name,
            OV_RENDERER_API_NAME,
            OV_RENDERER_API_VERSION,
            0,
            takeHost,
            getSuite,
            nullptr};
}

std::array<OvPluginStruct, 10> plugins = {plugin("Telling", suite<kTelling>),
                                          plugin("Failing", suite<kFailing>),
                                          plugin("Throwing", suite<kThrowing>),
                                          plugin("ThrowingNumber", suite<kThrowingNumber>),
                                          plugin("Deep", suite<kDeep>),
                                          plugin("Small", suite<kSmall>),
                                          plugin("Idle", suite<kIdle>),
                                          plugin("Later", suite<kLater>),
                                          plugin("Empty", noSuite),
                                          plugin("Refusing", suite<kTelling>, refuseHost)};

}  // namespace

OV_PLUGIN_EXPORT std::int32_t OvGetPluginCount() {
    return static_cast<std::int32_t>(plugins.size());
}

OV_PLUGIN_EXPORT OvPluginStruct* OvGetPlugin(std::int32_t index) {
    return &plugins.at(static_cast<std::size_t>(index));
}
