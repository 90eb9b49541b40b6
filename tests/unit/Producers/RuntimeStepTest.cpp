// SPDX-License-Identifier: Apache-2.0
#include "Producers/BaseGeometryProducer.h"
#include "unit/Producers/RuntimeProducers.h"

#include <stdexcept>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::Kind;
using ovtest::pathOf;
using testing::ElementsAre;

namespace {

using RuntimeStep = ovtest::RuntimeProducer;

}  // namespace

INSTANTIATE_TEST_SUITE_P(EveryKind,
                         RuntimeStep,
                         testing::Values(Kind::ThreadAware, Kind::Sync, Kind::Async),
                         ovtest::nameOf);

TEST_P(RuntimeStep, AsksTheRuntimeAtEachStepAndMakesANewObject) {
    at("/root", {"a"}).at("/root/a");
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_NE(root->getFirstChild(false), root->getFirstChild(false));
    EXPECT_THAT(asked(), ElementsAre("/root/a", "/root/a"));
}

TEST_P(RuntimeStep, GivesItsParentAndItselfByTwoDotsAndOneDot) {
    at("/root", {"..", "."}).at("/root/..").at("/root/.").at("/root/a");
    const GeometryProducerPtr a = open("/root/a");
    EXPECT_EQ(a->parent, a->getChildByName("..", true));
    EXPECT_EQ(a, a->getChildByName(".", true));
    EXPECT_EQ(nullptr, a->parent->getChildByName("..", false));
}

TEST_P(RuntimeStep, ThrowsForANameWithASlash) {
    at("/root", {"a/b"}).at("/root/a/b");
    const GeometryProducerPtr root = open();
    for (const char* const name : {"a/b", "/", "../a", "./a", "a/"}) {
        try {
            root->getChildByName(name, false);
            ADD_FAILURE() << name;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ("getChildByName does not support deep child lookups", error.what());
        }
    }
}

TEST_P(RuntimeStep, FindsAChildByNameBelowItself) {
    at("/root", {"a", "b"}).at("/root/a").at("/root/b", {"c"}).at("/root/b/c");
    const GeometryProducerPtr root = open();
    fake.take();
    const GeometryProducerPtr b = root->getChildByName("b", false);
    EXPECT_THAT(asked(), ElementsAre("/root/b"));
    EXPECT_EQ("/root/b", pathOf(b));
    EXPECT_EQ(root, b->parent);
    EXPECT_EQ("/root/b/c", pathOf(root->getProducerByPath("root/b/c", false)));
}

TEST_P(RuntimeStep, FindsNoChildThatIsNotListedThoughItIsThere) {
    at("/root", {"a"}).at("/root/a").at("/root/b").at("/root/");
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getChildByName("b", false));
    EXPECT_EQ(nullptr, root->getChildByName("", false));
    EXPECT_EQ(nullptr, root->getChildByName(nullptr, false));
    EXPECT_EQ(nullptr, root->getChildByName("A", false));
    EXPECT_THAT(asked(), ElementsAre()) << "nothing was cooked";
}

TEST_P(RuntimeStep, FindsAChildWithoutANameWhenItIsListed) {
    at("/root", {""}).at("/root/");
    EXPECT_EQ("/root/", pathOf(open()->getChildByName("", false)));
}

TEST_P(RuntimeStep, FindsNoChildThatIsListedAndNotThere) {
    at("/root", {"a", "b", "a"});
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
    EXPECT_THAT(asked(), ElementsAre("/root/a")) << "and does not search further";
}

TEST_P(RuntimeStep, LooksForANameInAllTimeSamplesAndOtherwiseInTheNearestAlone) {
    const ovtest::FakeRuntime::NameSamples samples{{5, {"late", "x"}}, {0, {"a", "b"}}};
    at("/root").at("/root/late").at("/root/a").at("/root/b").at("/root/x");
    fake.atTimes("/root", samples);
    const GeometryProducerPtr root = open();
    EXPECT_EQ("/root/late", pathOf(root->getChildByName("late", false)));
    EXPECT_EQ("/root/b", pathOf(root->getChildByName("b", false)));
    EXPECT_EQ("/root/a", pathOf(root->getFirstChild(false)));
    EXPECT_EQ("/root/b", pathOf(root->getFirstChild(false)->getNextSibling(false)));
}

TEST_P(RuntimeStep, TakesItsPlaceFromTheSampleInWhichItsNameWasFound) {
    const ovtest::FakeRuntime::NameSamples samples{
        {5, {"x", "late"}}, {0, {"a", "b"}}, {9, {"b", "c"}}};
    at("/root").at("/root/late").at("/root/b").at("/root/x");
    fake.atTimes("/root", samples);
    const GeometryProducerPtr root = open();
    EXPECT_EQ("/root/b", pathOf(root->getChildByName("x", false)->getNextSibling(false)));
    EXPECT_EQ(nullptr, root->getChildByName("late", false)->getNextSibling(false));
    EXPECT_EQ(nullptr, root->getChildByName("b", false)->getNextSibling(false));
}

TEST_P(RuntimeStep, PassesOverChildrenThatAreNotThere) {
    at("/root", {"x", "a", "y", "z", "b", "w"}).at("/root/a").at("/root/b");
    const GeometryProducerPtr a = open()->getFirstChild(false);
    EXPECT_THAT(asked(), testing::Contains("/root/x"));
    EXPECT_EQ("/root/a", pathOf(a));
    const GeometryProducerPtr b = a->getNextSibling(false);
    EXPECT_THAT(asked(), ElementsAre("/root/y", "/root/z", "/root/b"));
    EXPECT_EQ("/root/b", pathOf(b));
    EXPECT_EQ(a->parent, b->parent);
    EXPECT_EQ(nullptr, b->getNextSibling(false));
    EXPECT_THAT(asked(), ElementsAre("/root/w")) << "the index counts what was passed over";
}

TEST_P(RuntimeStep, AsksForAllChildrenWhenNoneIsThere) {
    at("/root", {"a", "b", "c"});
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_THAT(asked(), ElementsAre("/root/a", "/root/b", "/root/c"));
}

TEST_P(RuntimeStep, HasNoFirstChildWithoutNames) {
    at("/root");
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_THAT(asked(), ElementsAre());
    fake.atTimes("/root", {});
    EXPECT_EQ(nullptr, open()->getFirstChild(false)) << "no time samples";
}

TEST_P(RuntimeStep, HasNoNextSiblingOnTheTop) {
    at("/root");
    EXPECT_EQ(nullptr, open()->getNextSibling(false));
}

TEST_P(RuntimeStep, GivesTheFirstChildOfItsParentAsNextSiblingWhenItWasCreatedByPath) {
    at("/root", {"x", "a", "b"}).at("/root/a").at("/root/b");
    EXPECT_EQ("/root/a", pathOf(open("/root/b")->getNextSibling(false)));
    EXPECT_EQ("/root/a", pathOf(open("/root/a")->getNextSibling(false))) << "itself";
}

TEST_P(RuntimeStep, HasNoNextSiblingBelowAParentWithoutNames) {
    at("/root").at("/root/a");
    EXPECT_EQ(nullptr, open("/root/a")->getNextSibling(false));
}

TEST_P(RuntimeStep, WalksAWideScene) {
    Names names;
    for (int i = 0; i < 3000; ++i) {
        names.push_back("child" + std::to_string(i));
        if (i % 3 != 0) {
            at("/root/" + names.back());
        }
    }
    at("/root", names);
    int found = 0;
    for (auto child = open()->getFirstChild(false); child; child = child->getNextSibling(false)) {
        ++found;
    }
    EXPECT_EQ(2000, found);
}

TEST_P(RuntimeStep, StepsBelowAParentOfAnotherKindToo) {
    at("/root", {"a", "b"}).at("/root/a").at("/root/b");
    const GeometryProducerPtr other =
        GetParam() == Kind::Sync
            ? CreateThreadAwareGeometryProducer(freshTree(), "/root")
            : CreateSyncGeometryProducer(ClientCreateWithOpTree(freshSource()), "/root");
    const GeometryProducerPtr holder = open();
    auto& root = static_cast<BaseGeometryProducer&>(*holder);
    const GeometryProducerPtr a =
        root.createProducer("/root/a", client->cookLocation("/root/a"), 0, other);
    EXPECT_EQ(other, a->parent);
    EXPECT_EQ("/root/b", pathOf(a->getNextSibling(false)));
    EXPECT_EQ(other, a->getNextSibling(false)->parent);
}

TEST_P(RuntimeStep, LetsThroughWhatTheRuntimeThrows) {
    at("/root", {"a", "b"}).at("/root/a").at("/root/b");
    const GeometryProducerPtr root = open();
    const GeometryProducerPtr a = root->getFirstChild(false);
    const GeometryProducerPtr b = a->getNextSibling(false);
    fake.throwIn(GetParam() == Kind::Async ? "getCachedLocation" : "cookLocation");
    EXPECT_THROW(root->getFirstChild(false), std::runtime_error);
    EXPECT_THROW(root->getChildByName("a", false), std::runtime_error);
    EXPECT_THROW(a->getNextSibling(false), std::runtime_error);
    EXPECT_EQ(nullptr, b->getNextSibling(false)) << "behind the last name nothing is asked";
    cooked.clear();
    EXPECT_THROW(open("/root/a"), std::runtime_error);
    EXPECT_THAT(logs.take(), ElementsAre());
}
