// SPDX-License-Identifier: Apache-2.0
#include "plugins/LocationDelegate/DelegateTest.h"
#include "support/RenderOutputTable.h"

#include <array>
#include <cstddef>
#include <stdexcept>

namespace {

using namespace delegates;
using testing::ElementsAre;
using testing::IsEmpty;

/// Through the plain table, as a renderer asks.
class ProcessLocationDelegate : public DelegateTest {
protected:
    /// A pointer that must not be followed.
    template <class T>
    T* opaque() {
        return reinterpret_cast<T*>(&places_[used_++]);
    }

    const OvRenderOutputUtilsSuite& table = ovtest::renderOutputTable();

private:
    std::array<void*, 8> places_{};
    std::size_t used_ = 0;
};

TEST_F(ProcessLocationDelegate, HandsOverLocationAndInputAndBringsTheResult) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = opaque<void>();
    delta.result = opaque<void>();
    auto* const location = opaque<OvSgIteratorStruct>();
    auto* const input = opaque<void>();
    void* result = nullptr;
    EXPECT_TRUE(table.processLocationDelegate(location, "ray", "mesh", input, &result));
    EXPECT_EQ(delta.instance, delta.processInstance);
    EXPECT_EQ(location, delta.location);
    EXPECT_EQ(input, delta.input);
    EXPECT_EQ(delta.result, result);
}

TEST_F(ProcessLocationDelegate, HandsOverTheNullIteratorAndNullInput) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = opaque<void>();
    delta.location = opaque<OvSgIteratorStruct>();
    delta.input = opaque<void>();
    void* result = opaque<void>();
    EXPECT_TRUE(table.processLocationDelegate(nullptr, "ray", "mesh", nullptr, &result));
    EXPECT_EQ(nullptr, delta.location);
    EXPECT_EQ(nullptr, delta.input);
    EXPECT_EQ(nullptr, result);
}

TEST_F(ProcessLocationDelegate, CallsTheDelegateWithoutAPlaceForTheResult) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = opaque<void>();
    auto* const input = opaque<void>();
    EXPECT_TRUE(table.processLocationDelegate(nullptr, "ray", "mesh", input, nullptr));
    EXPECT_EQ(input, delta.input);
    EXPECT_STREQ("ctrcp", delta.calls);
}

TEST_F(ProcessLocationDelegate, MakesAnInstanceForEachCallAndLeavesItAlone) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    int* const first = opaque<int>();
    int* const second = opaque<int>();
    for (int* instance : {first, second}) {
        delta.instance = instance;
        EXPECT_TRUE(table.processLocationDelegate(nullptr, "ray", "mesh", nullptr, nullptr));
        EXPECT_EQ(instance, delta.processInstance);
    }
    EXPECT_STREQ("ctrcpcp", delta.calls);
}

TEST_F(ProcessLocationDelegate, TakesNoRendererForTheEmptyName) {
    search({"first"});
    script("Delta", {"mesh"}, "ray").instance = opaque<void>();
    ScriptedDelegate& echo = script("Echo", {"mesh"});
    echo.instance = opaque<void>();
    EXPECT_TRUE(table.processLocationDelegate(nullptr, nullptr, "mesh", nullptr, nullptr));
    EXPECT_TRUE(table.processLocationDelegate(nullptr, "", "mesh", nullptr, nullptr));
    EXPECT_STREQ("ctrcpcp", echo.calls);
}

TEST_F(ProcessLocationDelegate, IsFalseWithoutADelegateAndTheResultStaysAsItWas) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh", ""}, "ray");
    delta.instance = opaque<void>();
    void* const former = opaque<void>();
    struct Row {
        const char* renderer;
        const char* type;
    };
    for (const Row& row : {Row{"ray", nullptr},
                           {nullptr, nullptr},
                           {nullptr, "mesh"},
                           {"", "mesh"},
                           {"dots", "mesh"},
                           {"ray", "curves"}}) {
        void* result = former;
        EXPECT_FALSE(
            table.processLocationDelegate(nullptr, row.renderer, row.type, nullptr, &result));
        EXPECT_EQ(former, result);
    }
    EXPECT_STREQ("ctr", delta.calls);
}

TEST_F(ProcessLocationDelegate, AsksNobodyWithoutAType) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    EXPECT_FALSE(table.processLocationDelegate(nullptr, "ray", nullptr, nullptr, nullptr));
    EXPECT_FALSE(Cache::isCacheInitialized());
    EXPECT_STREQ("", delta.calls);
}

TEST_F(ProcessLocationDelegate, TakesTheEmptyTypeForAType) {
    search({"first"});
    script("Delta", {""}, "ray").instance = opaque<void>();
    EXPECT_TRUE(table.processLocationDelegate(nullptr, "ray", "", nullptr, nullptr));
}

TEST_F(ProcessLocationDelegate, IsFalseWithoutAnInstanceAndTheResultStaysAsItWas) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.result = opaque<void>();
    void* const former = opaque<void>();
    void* result = former;
    EXPECT_FALSE(table.processLocationDelegate(nullptr, "ray", "mesh", nullptr, &result));
    EXPECT_EQ(former, result);
    EXPECT_STREQ("ctrc", delta.calls);
}

TEST_F(ProcessLocationDelegate, ClearsTheResultBeforeTheDelegateIsCalled) {
    search({"first"});
    static void* seen = nullptr;
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = opaque<void>();
    delta.result = opaque<void>();
    delta.onCall = [](int call, void* input) {
        if (call == CALL_PROCESS) {
            seen = *static_cast<void**>(input);
        }
    };
    void* result = opaque<void>();
    seen = result;
    EXPECT_TRUE(table.processLocationDelegate(nullptr, "ray", "mesh", &result, &result));
    EXPECT_EQ(nullptr, seen);
    EXPECT_EQ(delta.result, result);
}

TEST_F(ProcessLocationDelegate, LetsWhatTheDelegateThrowsTravel) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = opaque<void>();
    delta.onCall = [](int call, void*) {
        if (call == CALL_PROCESS) {
            throw std::runtime_error("the location is beyond me");
        }
    };
    void* result = opaque<void>();
    EXPECT_THROW(table.processLocationDelegate(nullptr, "ray", "mesh", nullptr, &result),
                 std::runtime_error);
    EXPECT_EQ(nullptr, result);
    EXPECT_STREQ("ctrcp", delta.calls);
}

TEST_F(ProcessLocationDelegate, LetsWhatIsThrownInPlaceOfAnInstanceTravel) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    Cache::initializeCache();
    delta.onCall = [](int, void*) { throw std::runtime_error("no instance today"); };
    void* const former = opaque<void>();
    void* result = former;
    EXPECT_THROW(table.processLocationDelegate(nullptr, "ray", "mesh", nullptr, &result),
                 std::runtime_error);
    EXPECT_EQ(former, result);
}

TEST_F(ProcessLocationDelegate, TellsTheTypesAsStrings) {
    search({"first"});
    script("Delta", {"mesh", "curves"}, "ray");
    script("Echo", {"points", "light"});
    const auto typesOf = [this](const char* renderer) {
        OvAttributeStruct* const types = table.getLocationTypesWithDelegates(renderer);
        EXPECT_EQ(OV_ATTRIBUTE_STRING, OvGetAttributeSuite()->getType(types));
        EXPECT_EQ(1, OvGetAttributeSuite()->getTupleSize(types));
        return ovtest::takeStrings(types);
    };
    EXPECT_THAT(typesOf("ray"), ElementsAre("curves", "mesh"));
    EXPECT_THAT(typesOf(""), ElementsAre("light", "points"));
    EXPECT_THAT(typesOf(nullptr), ElementsAre("light", "points"));
    EXPECT_THAT(typesOf("dots"), IsEmpty());
}

TEST_F(ProcessLocationDelegate, StandsWhenPluginCachesAreFlushed) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = opaque<void>();
    Cache::initializeCache();
    table.flushPluginCaches(nullptr);
    table.flushPluginCaches(OV_LOCATION_DELEGATE_API_NAME);
    EXPECT_EQ(2, delta.flushes);
    EXPECT_TRUE(table.processLocationDelegate(nullptr, "ray", "mesh", nullptr, nullptr));
    EXPECT_STREQ("ctrcp", delta.calls);
}

}  // namespace
