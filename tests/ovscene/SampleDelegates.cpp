// SPDX-License-Identifier: Apache-2.0
// Location delegates, some of which fail when they are asked, and plug-ins with odd names. All
// print a line when they are asked and there is a setting "talk".
#include <SylvarPlatform/suites/LocationDelegate.h>
#include <SylvarPlatform/suites/Plugin.h>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace {

const OvAttributeSuite* attributes;

std::int32_t setHost(const OvHostTable* host) {
    attributes = static_cast<const OvAttributeSuite*>(
        host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION));
    if (host->getConfiguration("talk", nullptr, 0) >= 0) {
        std::puts("A plug-in talks.");
    }
    return attributes ? 0 : 1;
}

void* create() {
    return nullptr;
}

void* createNothing() {
    throw std::runtime_error("no \x1B instance");
}

void* createNumber() {
    throw 5;
}

void* process(void* /*instance*/, OvSgIteratorStruct* /*location*/, void* input) {
    return input;
}

template <const char* kText>
OvAttributeStruct* text(void* /*instance*/) {
    return attributes->createString(kText);
}

OvAttributeStruct* none(void* /*instance*/) {
    return nullptr;
}

OvAttributeStruct* hairAndFur(void* /*instance*/) {
    const std::array<const char*, 2> types = {"hair", "fur\n\x1B[2J"};
    return attributes->createStringArray(types.data(), 2, 1);
}

constexpr char kTelling[] = "Telling";
constexpr char kUnknown[] = "Ray\x1Bs";
constexpr char kHair[] = "hair";
constexpr char kCrowd[] = "crowd";

const OvLocationDelegate kOfTelling = {create, nullptr, process, text<kTelling>, hairAndFur};
const OvLocationDelegate kSecond = {create, nullptr, process, text<kUnknown>, text<kHair>};
const OvLocationDelegate kOfAny = {create, nullptr, process, none, text<kCrowd>};
const OvLocationDelegate kOfNothing = {create, nullptr, process, text<kTelling>, none};
const OvLocationDelegate kThrowing = {createNothing, nullptr, process, none, hairAndFur};
const OvLocationDelegate kThrowingNumber = {createNumber, nullptr, process, none, hairAndFur};
const OvLocationDelegate kIncomplete = {create, nullptr, nullptr, none, hairAndFur};

template <auto& kTable>
const void* suite() {
    return &kTable;
}

const void* throwingSuite() {
    throw std::runtime_error("no \x1B table");
}

OvPluginStruct plugin(const char* name,
                      const void* (*getSuite)(),
                      const char* api = OV_LOCATION_DELEGATE_API_NAME,
                      std::int32_t version = OV_LOCATION_DELEGATE_API_VERSION) {
    return {sizeof(OvPluginStruct),
            OV_PLUGIN_VERSION,
            name,
            api,
            version,
            0,
            setHost,
            getSuite,
            nullptr};
}

std::array<OvPluginStruct, 11> plugins = {
    plugin("Hair", suite<kOfTelling>),
    plugin("Crowd", suite<kOfAny>),
    plugin("Second", suite<kSecond>),
    plugin("Idle", suite<kOfNothing>),
    plugin("Throwing", suite<kThrowing>),
    plugin("ThrowingNumber", suite<kThrowingNumber>),
    plugin("Incomplete", suite<kIncomplete>),
    plugin("Tableless", throwingSuite),
    plugin("Later", suite<kOfAny>, OV_LOCATION_DELEGATE_API_NAME, 2),
    plugin("odd\n\x1B[31m\xFF", suite<kOfAny>, "An API\t\x1B]0;x\x07", 2147483647),
    plugin("unread", suite<kOfAny>, "An API", 0)};

}  // namespace

OV_PLUGIN_EXPORT std::int32_t OvGetPluginCount() {
    return static_cast<std::int32_t>(plugins.size());
}

OV_PLUGIN_EXPORT OvPluginStruct* OvGetPlugin(std::int32_t index) {
    return &plugins.at(static_cast<std::size_t>(index));
}
