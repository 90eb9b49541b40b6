// SPDX-License-Identifier: Apache-2.0
// Links the platform alone: the library is loaded and unloaded, as a plug-in of a host would be.
#include <OvSylvarProducers/GeometryProducer.h>

#include "support/FakeRuntime.h"
#include "support/OpTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <future>
#include <string>
#include <thread>

namespace {

using Create = SYLVAR::GeometryProducerPtr (*)(const SYLVAR::GroupAttribute&, const std::string&);

constexpr const char* kCreate =
    "_ZN6SYLVAR33CreateThreadAwareGeometryProducerERKN7Sylvar38internal11OvAttribute14GroupAttribut"
    "e"
    "ERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";

using SYLVAR::GroupAttribute;

const char* walk(void* library, const GroupAttribute& tree) {
    const auto create = reinterpret_cast<Create>(::dlsym(library, kCreate));
    if (!create) {
        return "nothing to create a producer with";
    }
    const SYLVAR::GeometryProducerPtr root = create(tree, "/root");
    if (!root || !root->getFirstChild(false)) {
        return "no scene";
    }
    return nullptr;
}

/// Walks on a thread, unloads the library, ends the thread and then the process.
[[noreturn]] void unloadBeforeTheThreadEnds(const GroupAttribute& tree) {
    void* const library = ::dlopen(OV_TEST_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        std::fprintf(stderr, "%s\n", ::dlerror());
        std::exit(1);
    }
    std::promise<const char*> walked;
    std::promise<void> isUnloaded;
    std::thread walker([&] {
        walked.set_value(walk(library, tree));
        isUnloaded.get_future().wait();
    });
    const char* const fault = walked.get_future().get();
    ::dlclose(library);
    isUnloaded.set_value();
    walker.join();
    if (fault) {
        std::fprintf(stderr, "%s\n", fault);
    }
    std::exit(fault ? 1 : 0);
}

[[noreturn]] void unloadWithARuntimeOfAPlugin() {
    ovtest::FakeRuntime::fresh().at("/root", {"a"}).at("/root/a");
    unloadBeforeTheThreadEnds(GroupAttribute({{"op", GroupAttribute({}, false)}}, false));
}

[[noreturn]] void unloadWithThePlatformsRuntime() {
    unloadBeforeTheThreadEnds(ovtest::OpTree().op("scene", "generate").group());
}

TEST(Unload, LetsAThreadThatWalkedEndAfterTheLibraryWasClosed) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(unloadWithARuntimeOfAPlugin(), testing::ExitedWithCode(0), "^$");
}

TEST(Unload, LetsAThreadThatCookedEndAfterTheLibraryWasClosed) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(unloadWithThePlatformsRuntime(), testing::ExitedWithCode(0), "^$");
}

}  // namespace
