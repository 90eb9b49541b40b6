// SPDX-License-Identifier: Apache-2.0
#include "plugins/ImportOp/ImportingHost.h"

#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/OpType.h>

#include <atomic>
#include <cstring>
#include <utility>

namespace ovtest {

namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;

std::atomic<int> madeFloats{0};

int identitiesUntil = 0;
std::function<void()> meanwhile;

template <class Suite>
const Suite& platforms(const char* name, std::uint32_t version) {
    return *static_cast<const Suite*>(OvGetHostTable()->findSuite(name, version));
}

const OvOpHost& platformsOpHost() {
    return platforms<OvOpHost>(OV_OP_HOST_SUITE_NAME, OV_OP_HOST_SUITE_VERSION);
}

OvAttributeStruct* createFloats(const float* times,
                                std::int64_t timeCount,
                                const float* const* samples,
                                std::int64_t valuesPerSample,
                                std::int64_t tupleSize,
                                void* reserved0,
                                void* reserved1) {
    ++madeFloats;
    return OvGetAttributeSuite()->createFloatFromSamples(
        times, timeCount, samples, valuesPerSample, tupleSize, reserved0, reserved1);
}

std::int64_t getFileIdentity(const char* path, char* buffer, std::size_t bufferSize) {
    if (buffer && meanwhile && identitiesUntil-- == 0) {
        std::exchange(meanwhile, nullptr)();
    }
    return platformsOpHost().getFileIdentity(path, buffer, bufferSize);
}

const void* findSuite(const char* name, std::uint32_t version) {
    static OvAttributeSuite attributes = *OvGetAttributeSuite();
    static OvOpHost ops = platformsOpHost();
    attributes.createFloatFromSamples = createFloats;
    ops.getFileIdentity = getFileIdentity;
    if (std::strcmp(name, OV_ATTRIBUTE_SUITE_NAME) == 0) {
        return &attributes;
    }
    return std::strcmp(name, OV_OP_HOST_SUITE_NAME) == 0
               ? &ops
               : OvGetHostTable()->findSuite(name, version);
}

}  // namespace

ImportingHost& ImportingHost::instance() {
    static ImportingHost host;
    return host;
}

ImportingHost::ImportingHost() {
    static OvHostTable table = *OvGetHostTable();
    table.findSuite = findSuite;
    PluginManager::setHostTable(&table);
    PluginManager::setSearchDirectories({OV_TEST_PLUGIN_DIR});
}

int ImportingHost::floatsMade() const {
    return madeFloats;
}

void ImportingHost::beforeIdentity(int count, std::function<void()> happens) {
    identitiesUntil = count;
    meanwhile = std::move(happens);
}

}  // namespace ovtest
