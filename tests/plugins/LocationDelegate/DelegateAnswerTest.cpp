// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GroupBuilder.h>

#include "plugins/LocationDelegate/DelegateTest.h"
#include "support/SuiteCalls.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace delegates;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::GroupBuilder;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::ElementsAre;
using testing::IsEmpty;

class LocationDelegateAnswer : public DelegateTest {
protected:
    static Attribute group() { return GroupBuilder().set("name", StringAttribute("mesh")).build(); }

    /// How many more references were given back than taken.
    static int givenBack(const std::vector<ovtest::SuiteCall>& calls, const Attribute& attribute) {
        int releases = 0;
        for (const ovtest::SuiteCall& call : calls) {
            if (call.subject == attribute.handle()) {
                releases += call.operation == "release" ? 1 : 0;
                releases -= call.operation == "retain" ? 1 : 0;
            }
        }
        return releases;
    }
};

TEST_F(LocationDelegateAnswer, WithoutTypesLeavesNoDelegate) {
    search({"first"});
    script("Delta", std::vector<std::string>());
    script("Echo", Attribute(), Attribute());
    EXPECT_THAT(typesFor(), IsEmpty());
    EXPECT_EQ("", delegateFor(""));
}

TEST_F(LocationDelegateAnswer, WithoutTypesLeavesTheRendererToOthers) {
    search({"first"});
    script("Delta", {}, "ray");
    script("Echo", {}, "dots");
    script("Foxtrot", {"mesh"}, "ray");
    EXPECT_EQ("Foxtrot", delegateFor("mesh", "ray"));
    EXPECT_THAT(typesFor("ray"), ElementsAre("mesh"));
    EXPECT_EQ("", delegateFor("mesh", "dots"));
    EXPECT_THAT(typesFor("dots"), IsEmpty());
}

TEST_F(LocationDelegateAnswer, OfAnotherKindIsNoTypes) {
    search({"first"});
    script("Delta", IntAttribute(1), StringAttribute("ray"));
    script("Echo", FloatAttribute(1), Attribute());
    script("Foxtrot", group(), Attribute());
    EXPECT_THAT(typesFor("ray"), IsEmpty());
    EXPECT_THAT(typesFor(), IsEmpty());
}

TEST_F(LocationDelegateAnswer, OfAnotherKindIsNoRenderer) {
    search({"first", "second"});
    script("Delta", StringAttribute("delta"), Attribute());
    script("Echo", StringAttribute("echo"), StringAttribute(""));
    script("Foxtrot", StringAttribute("foxtrot"), IntAttribute(1));
    script("Golf", StringAttribute("golf"), group());
    script("Alpha", StringAttribute("alpha"), StringAttribute(std::vector<std::string>()));
    EXPECT_THAT(typesFor(), ElementsAre("alpha", "delta", "echo", "foxtrot", "golf"));
}

TEST_F(LocationDelegateAnswer, OfSeveralTimesIsTheOneNearestZero) {
    search({"first"});
    script(
        "Delta",
        StringAttribute(TimedSamples<std::string>{
            {-1.0F, {"before", "earlier"}}, {0.25F, {"near", "nearby"}}, {2.0F, {"far", "off"}}}),
        StringAttribute(
            TimedSamples<std::string>{{-2.0F, {"past"}}, {-0.5F, {"ray"}}, {3.0F, {"future"}}}));
    EXPECT_THAT(typesFor("ray"), ElementsAre("near", "nearby"));
    EXPECT_THAT(typesFor("past"), IsEmpty());
    EXPECT_THAT(typesFor("future"), IsEmpty());
}

TEST_F(LocationDelegateAnswer, OfTwoTimesAsNearIsTheFormer) {
    search({"first"});
    const StringAttribute types(TimedSamples<std::string>{{0.5F, {"after"}}, {-0.5F, {"before"}}});
    const StringAttribute renderer(TimedSamples<std::string>{{-1.0F, {"ray"}}, {1.0F, {"dots"}}});
    script("Delta", types, renderer);
    const std::string former = types.getSampleTime(0) > 0 ? "after" : "before";
    EXPECT_THAT(typesFor("ray"), ElementsAre(former));
    EXPECT_THAT(typesFor("dots"), IsEmpty());
}

TEST_F(LocationDelegateAnswer, OfSeveralRenderersIsTheFirst) {
    search({"first"});
    script(
        "Delta", StringAttribute("mesh"), StringAttribute(std::vector<std::string>{"ray", "dots"}));
    EXPECT_EQ("Delta", delegateFor("mesh", "ray"));
    EXPECT_EQ("", delegateFor("mesh", "dots"));
}

TEST_F(LocationDelegateAnswer, IsReleased) {
    search({"first"});
    const StringAttribute types(std::vector<std::string>{"mesh", "curves"});
    const StringAttribute renderer("ray");
    const IntAttribute noTypes(1);
    const Attribute noRenderer = group();
    script("Delta", types, renderer);
    script("Echo", noTypes, noRenderer);
    ovtest::SuiteCalls listening;
    Cache::initializeCache();
    const auto calls = listening.take();
    EXPECT_EQ(1, givenBack(calls, types));
    EXPECT_EQ(1, givenBack(calls, renderer));
    EXPECT_EQ(1, givenBack(calls, noTypes));
    EXPECT_EQ(1, givenBack(calls, noRenderer));
}

TEST_F(LocationDelegateAnswer, IsReleasedWhenTheNextQuestionThrows) {
    search({"first"});
    const StringAttribute types("mesh");
    script("Delta", types, Attribute()).onCall = [](int call, void*) {
        if (call == CALL_RENDERER) {
            throw std::runtime_error("no renderer today");
        }
    };
    ovtest::SuiteCalls listening;
    Cache::initializeCache();
    EXPECT_EQ(1, givenBack(listening.take(), types));
}

TEST_F(LocationDelegateAnswer, IsGivenByTheInstanceThatWasCreated) {
    search({"first"});
    int instance = 0;
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.instance = &instance;
    Cache::initializeCache();
    EXPECT_EQ(&instance, delta.typesInstance);
    EXPECT_EQ(&instance, delta.rendererInstance);
}

TEST_F(LocationDelegateAnswer, IsAskedForWithoutAnInstanceToo) {
    search({"first"});
    int instance = 0;
    ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    delta.typesInstance = delta.rendererInstance = &instance;
    EXPECT_EQ("Delta", delegateFor("mesh", "ray"));
    EXPECT_STREQ("ctr", delta.calls);
    EXPECT_EQ(nullptr, delta.typesInstance);
    EXPECT_EQ(nullptr, delta.rendererInstance);
}

}  // namespace
