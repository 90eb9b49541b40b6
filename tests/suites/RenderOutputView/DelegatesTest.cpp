// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/suites/LocationDelegate.h>
#include <SylvarPlatform/suites/Plugin.h>

#include "suites/RenderOutputView/RenderOutputViewTest.h"
#include "support/InProcessPlugin.h"

#include <stdexcept>
#include <string>

namespace {

using namespace SYLVAR::Suites;
using testing::ElementsAre;
using testing::StrEq;

OvSgIteratorStruct* processed = nullptr;
char instance = 0;

/// Gives back what goes in.
const OvLocationDelegate kDelegate = {
    []() -> void* { return &instance; },
    nullptr,
    [](void*, OvSgIteratorStruct* location, void* input) {
        processed = location;
        return input ? input : throw std::runtime_error("no input");
    },
    [](void*) { return OvGetAttributeSuite()->createString("Rays"); },
    [](void*) {
        const char* const types[] = {"hair", "cloud"};
        return OvGetAttributeSuite()->createStringArray(types, 2, 1);
    }};

OvPluginStruct plugin = {sizeof(OvPluginStruct),
                         OV_PLUGIN_VERSION,
                         "Delegate",
                         OV_LOCATION_DELEGATE_API_NAME,
                         OV_LOCATION_DELEGATE_API_VERSION,
                         0,
                         nullptr,
                         []() -> const void* { return &kDelegate; },
                         nullptr};

class Delegates : public ovtest::RenderOutputViewTest {
protected:
    /// Before anybody asks for delegates: it is known for the life of the process.
    static void SetUpTestSuite() {
        static const std::string refused = ovtest::registerPlugin(plugin);
        EXPECT_EQ("", refused);
    }

    Delegates() { fake.at("/root"); }
};

TEST_F(Delegates, AreHandedALocationAndGiveAResult) {
    const Location root = open();
    int input = 5;
    const auto result = output.processLocation(root, "Rays", "hair", &input);
    ASSERT_TRUE(result && *result);
    EXPECT_EQ(&input, **result);
    EXPECT_EQ(root.handle(), processed);
    EXPECT_TRUE(output.processLocation(Location(), "Rays", "cloud", &input));
    EXPECT_EQ(nullptr, processed);
}

TEST_F(Delegates, OfAnotherRendererOrTypeAreNotThere) {
    for (const auto& none : {output.processLocation(open(), "Other", "hair", nullptr),
                             output.processLocation(open(), "", "hair", nullptr),
                             output.processLocation(open(), nullptr, "hair", nullptr),
                             output.processLocation(open(), "Rays", "mesh", nullptr),
                             output.processLocation(open(), "Rays", nullptr, nullptr)}) {
        ASSERT_TRUE(none);
        EXPECT_FALSE(*none);
    }
}

TEST_F(Delegates, ThatThrowAreAnError) {
    const auto refused = output.processLocation(open(), "Rays", "hair", nullptr);
    ASSERT_FALSE(refused);
    EXPECT_EQ("no input", refused.error().message());
}

TEST_F(Delegates, TellTheirTypes) {
    const auto types = output.locationTypesWithDelegates("Rays");
    ASSERT_TRUE(types);
    EXPECT_THAT(*types, ElementsAre(StrEq("cloud"), StrEq("hair")));
    const auto none = output.locationTypesWithDelegates("");
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty());
}

}  // namespace
