// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/AsyncGeometryProducer.h>
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "Producers/BaseGeometryProducer.h"
#include "support/RuntimeTest.h"

#include <cstddef>
#include <cstring>
#include <stdexcept>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;

namespace {

enum class Kind { ThreadAware, Sync, Async };

/// What holds for every producer over a runtime. For the asynchronous one all locations that a test
/// names are cooked before.
class RuntimeProducer : public ovtest::RuntimeTest, public testing::WithParamInterface<Kind> {
public:
    /// A location that exists.
    RuntimeProducer& at(const std::string& path, const Names& children = {}) {
        fake.at(path, children);
        cooked.push_back(path);
        return *this;
    }

protected:
    GeometryProducerPtr open(const std::string& path = "/root") {
        for (const std::string& name : cooked) {
            client->cookLocation(name);
        }
        fake.take();
        if (GetParam() == Kind::ThreadAware) {
            return CreateThreadAwareGeometryProducer(tree, path);
        }
        return GetParam() == Kind::Sync ? CreateSyncGeometryProducer(client, path)
                                        : CreateAsyncGeometryProducer(client, path);
    }

    /// The paths that were asked for, in order.
    Names asked() {
        Names paths;
        for (const std::string& call : fake.take()) {
            if (call.find("Location ") != std::string::npos) {
                paths.push_back(call.substr(call.rfind(' ') + 1));
            }
        }
        return paths;
    }

    const GroupAttribute tree = freshTree();
    const std::shared_ptr<SylvarRuntime::Client> client = ClientCreateWithOpTree(freshSource());
    Names cooked;
};

std::string nameOf(const testing::TestParamInfo<Kind>& info) {
    const char* const names[] = {"ThreadAware", "Sync", "Async"};
    return names[static_cast<int>(info.param)];
}

std::string pathOf(const GeometryProducerPtr& producer) {
    return producer ? producer->getFullName() : "null";
}

template <class Function>
std::ptrdiff_t slotOf(Function function) {
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &function, sizeof place);
    return (place - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(EveryKind,
                         RuntimeProducer,
                         testing::Values(Kind::ThreadAware, Kind::Sync, Kind::Async),
                         nameOf);

TEST_P(RuntimeProducer, IsNullForAPathThatDoesNotBeginWithASlash) {
    at("").at("root").at("/root");
    for (const char* const path : {"", "root", "root/a", " /root"}) {
        EXPECT_EQ(nullptr, open(path)) << path;
        EXPECT_THAT(asked(), ElementsAre()) << path;
    }
}

TEST_P(RuntimeProducer, IsNullForALocationThatIsNotThere) {
    at("/root");
    EXPECT_EQ(nullptr, open("/other"));
    EXPECT_EQ(nullptr, open("/root/a"));
    fake.put("/gone", GroupBuilder().set("exists", IntAttribute(0)).build());
    cooked.emplace_back("/gone");
    EXPECT_EQ(nullptr, open("/gone"));
}

TEST_P(RuntimeProducer, IsMadeWithAllItsAncestorsFromTheTopDown) {
    at("/root").at("/root/a").at("/root/a/b");
    const GeometryProducerPtr b = open("/root/a/b");
    EXPECT_THAT(asked(), ElementsAre("/root", "/root/a", "/root/a/b"));
    EXPECT_EQ("/root/a/b", pathOf(b));
    EXPECT_EQ("/root/a", pathOf(b->parent));
    EXPECT_EQ("/root", pathOf(b->parent->parent));
    EXPECT_EQ(nullptr, b->parent->parent->parent);
}

TEST_P(RuntimeProducer, HasNoParentOnTheTop) {
    at("/root").at("/root/a").at("/");
    EXPECT_EQ(nullptr, open("/root")->parent);
    EXPECT_EQ(nullptr, open("/")->parent);
    EXPECT_EQ(nullptr, open("/root/a")->parent->parent);
}

TEST_P(RuntimeProducer, TakesEmptyNamesInAPathAsTheyStand) {
    at("/root").at("/root/").at("/").at("//a");
    EXPECT_EQ("/root", pathOf(open("/root/")->parent));
    EXPECT_EQ("", open("/root/")->getName());
    EXPECT_EQ("/", pathOf(open("//a")->parent));
}

TEST_P(RuntimeProducer, StopsAtTheFirstMissingLevel) {
    at("/root").at("/root/a/b/c");
    EXPECT_EQ(nullptr, open("/root/a/b/c"));
    EXPECT_THAT(asked(), ElementsAre("/root", "/root/a"));
}

TEST_P(RuntimeProducer, OpensALocationOfAThousandLevels) {
    std::string path;
    for (int i = 0; i < 1000; ++i) {
        path += "/x";
        at(path);
    }
    EXPECT_EQ(path, pathOf(open(path)));
}

TEST_P(RuntimeProducer, TellsNameAndPath) {
    at("/root").at("/root/a");
    EXPECT_EQ("a", open("/root/a")->getName());
    EXPECT_EQ("/root/a", open("/root/a")->getFullName());
    EXPECT_EQ("root", open("/root")->getName());
}

TEST_P(RuntimeProducer, GivesTheAttributesOfItsLocation) {
    at("/root");
    fake.set("/root", "type", StringAttribute("group")).set("/root", "a.b", IntAttribute(3));
    const GeometryProducerPtr root = open();
    EXPECT_EQ("group", root->getType());
    EXPECT_EQ(3, castAttribute<IntAttribute>(root->getAttribute("a.b")).getValue(0));
    EXPECT_FALSE(root->getAttribute("missing"));
    EXPECT_EQ(2, castAttribute<GroupAttribute>(root->getAttribute(nullptr)).getNumberOfChildren());
    EXPECT_EQ(root->getAttribute(nullptr).handle(), root->getAttribute("").handle());
}

TEST_P(RuntimeProducer, AddsTheNamesOfItsAttributesAsTheyAreStored) {
    at("/root");
    fake.put("/root",
             GroupBuilder(GroupBuilder::Mode::Flat)
                 .set("exists", IntAttribute(1))
                 .set("attrs", GroupAttribute({{"a%2Eb", Attribute()}, {"c.d", Attribute()}}, true))
                 .build());
    std::set<std::string> names{"before"};
    open()->getAttributeNames(&names);
    EXPECT_THAT(names, ElementsAre("a%2Eb", "before", "c.d"));
    open()->getAttributeNames(nullptr);
}

TEST_P(RuntimeProducer, HasNoAttributesAndChildrenWhenItsLocationTellsNone) {
    fake.put("/root", GroupBuilder().set("exists", IntAttribute(1)).build());
    cooked.emplace_back("/root");
    const GeometryProducerPtr root = open();
    std::set<std::string> names;
    root->getAttributeNames(&names);
    EXPECT_TRUE(names.empty());
    EXPECT_FALSE(root->getAttribute(""));
    EXPECT_FALSE(root->getAttribute("a"));
    EXPECT_FALSE(root->getPotentialChildren());
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
}

TEST_P(RuntimeProducer, TellsTheHashOfItsLocation) {
    at("/root", {"a"}).at("/root/a");
    EXPECT_EQ(client->cookLocation("/root").getHash().str(), open()->getHash());
    EXPECT_NE(open()->getHash(), open()->getFirstChild(false)->getHash());
}

TEST_P(RuntimeProducer, ListsItsPotentialChildrenWhetherTheyExistOrNot) {
    at("/root", {"a", "b"});
    EXPECT_EQ("b", open()->getPotentialChildren().getValue("", 1));
}

TEST_P(RuntimeProducer, AsksTheRuntimeNothingForWhatItHolds) {
    at("/root", {"a"});
    const GeometryProducerPtr root = open();
    fake.take();
    std::set<std::string> names;
    root->getAttributeNames(&names);
    root->getAttribute("a");
    root->getHash();
    root->getPotentialChildren();
    root->getChildByName("missing", false);
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_P(RuntimeProducer, AsksTheRuntimeAtEachStepAndMakesANewObject) {
    at("/root", {"a"}).at("/root/a");
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_NE(root->getFirstChild(false), root->getFirstChild(false));
    EXPECT_THAT(asked(), ElementsAre("/root/a", "/root/a"));
}

TEST_P(RuntimeProducer, KeepsShowingWhatWasCooked) {
    at("/root", {"a"}).at("/root/a");
    fake.set("/root", "version", IntAttribute(1));
    const GeometryProducerPtr root = open();
    const std::string hash = root->getHash();
    fake.at("/root").set("/root", "version", IntAttribute(2));
    EXPECT_EQ(1, castAttribute<IntAttribute>(root->getAttribute("version")).getValue(0));
    EXPECT_EQ(hash, root->getHash());
    EXPECT_EQ("/root/a", pathOf(root->getFirstChild(false)));
    EXPECT_EQ(2, castAttribute<IntAttribute>(open()->getAttribute("version")).getValue(0));
}

TEST_P(RuntimeProducer, GivesItsParentAndItselfByTwoDotsAndOneDot) {
    at("/root", {"..", "."}).at("/root/..").at("/root/.").at("/root/a");
    const GeometryProducerPtr a = open("/root/a");
    EXPECT_EQ(a->parent, a->getChildByName("..", true));
    EXPECT_EQ(a, a->getChildByName(".", true));
    EXPECT_EQ(nullptr, a->parent->getChildByName("..", false));
}

TEST_P(RuntimeProducer, ThrowsForANameWithASlash) {
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

TEST_P(RuntimeProducer, FindsAChildByNameBelowItself) {
    at("/root", {"a", "b"}).at("/root/a").at("/root/b", {"c"}).at("/root/b/c");
    const GeometryProducerPtr root = open();
    fake.take();
    const GeometryProducerPtr b = root->getChildByName("b", false);
    EXPECT_THAT(asked(), ElementsAre("/root/b"));
    EXPECT_EQ("/root/b", pathOf(b));
    EXPECT_EQ(root, b->parent);
    EXPECT_EQ("/root/b/c", pathOf(root->getProducerByPath("root/b/c", false)));
}

TEST_P(RuntimeProducer, FindsNoChildThatIsNotListedThoughItIsThere) {
    at("/root", {"a"}).at("/root/a").at("/root/b").at("/root/");
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getChildByName("b", false));
    EXPECT_EQ(nullptr, root->getChildByName("", false));
    EXPECT_EQ(nullptr, root->getChildByName(nullptr, false));
    EXPECT_EQ(nullptr, root->getChildByName("A", false));
    EXPECT_THAT(asked(), ElementsAre()) << "nothing was cooked";
}

TEST_P(RuntimeProducer, FindsAChildWithoutANameWhenItIsListed) {
    at("/root", {""}).at("/root/");
    EXPECT_EQ("/root/", pathOf(open()->getChildByName("", false)));
}

TEST_P(RuntimeProducer, FindsNoChildThatIsListedAndNotThere) {
    at("/root", {"a", "b", "a"});
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
    EXPECT_THAT(asked(), ElementsAre("/root/a")) << "and does not search further";
}

TEST_P(RuntimeProducer, LooksForANameInAllTimeSamplesAndOtherwiseInTheNearestAlone) {
    const ovtest::FakeRuntime::NameSamples samples{{5, {"late", "x"}}, {0, {"a", "b"}}};
    at("/root").at("/root/late").at("/root/a").at("/root/b").at("/root/x");
    fake.atTimes("/root", samples);
    const GeometryProducerPtr root = open();
    EXPECT_EQ("/root/late", pathOf(root->getChildByName("late", false)));
    EXPECT_EQ("/root/b", pathOf(root->getChildByName("b", false)));
    EXPECT_EQ("/root/a", pathOf(root->getFirstChild(false)));
    EXPECT_EQ("/root/b", pathOf(root->getFirstChild(false)->getNextSibling(false)));
}

TEST_P(RuntimeProducer, TakesItsPlaceFromTheSampleInWhichItsNameWasFound) {
    const ovtest::FakeRuntime::NameSamples samples{
        {5, {"x", "late"}}, {0, {"a", "b"}}, {9, {"b", "c"}}};
    at("/root").at("/root/late").at("/root/b").at("/root/x");
    fake.atTimes("/root", samples);
    const GeometryProducerPtr root = open();
    EXPECT_EQ("/root/b", pathOf(root->getChildByName("x", false)->getNextSibling(false)));
    EXPECT_EQ(nullptr, root->getChildByName("late", false)->getNextSibling(false));
    EXPECT_EQ(nullptr, root->getChildByName("b", false)->getNextSibling(false));
}

TEST_P(RuntimeProducer, PassesOverChildrenThatAreNotThere) {
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

TEST_P(RuntimeProducer, AsksForAllChildrenWhenNoneIsThere) {
    at("/root", {"a", "b", "c"});
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_THAT(asked(), ElementsAre("/root/a", "/root/b", "/root/c"));
}

TEST_P(RuntimeProducer, HasNoFirstChildWithoutNames) {
    at("/root");
    const GeometryProducerPtr root = open();
    fake.take();
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_THAT(asked(), ElementsAre());
    fake.atTimes("/root", {});
    EXPECT_EQ(nullptr, open()->getFirstChild(false)) << "no time samples";
}

TEST_P(RuntimeProducer, HasNoNextSiblingOnTheTop) {
    at("/root");
    EXPECT_EQ(nullptr, open()->getNextSibling(false));
}

TEST_P(RuntimeProducer, GivesTheFirstChildOfItsParentAsNextSiblingWhenItWasCreatedByPath) {
    at("/root", {"x", "a", "b"}).at("/root/a").at("/root/b");
    EXPECT_EQ("/root/a", pathOf(open("/root/b")->getNextSibling(false)));
    EXPECT_EQ("/root/a", pathOf(open("/root/a")->getNextSibling(false))) << "itself";
}

TEST_P(RuntimeProducer, HasNoNextSiblingBelowAParentWithoutNames) {
    at("/root").at("/root/a");
    EXPECT_EQ(nullptr, open("/root/a")->getNextSibling(false));
}

TEST_P(RuntimeProducer, WalksAWideScene) {
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

TEST_P(RuntimeProducer, StepsBelowAParentOfAnotherKindToo) {
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

TEST_P(RuntimeProducer, GetsAnyLocationByItsPath) {
    at("/root").at("/other/place");
    const GeometryProducerPtr root = open();
    auto& base = static_cast<BaseGeometryProducer&>(*root);
    EXPECT_TRUE(base.cookChildLocation("/other/place", false).doesLocationExist());
    EXPECT_FALSE(base.cookChildLocation("/nowhere", false).doesLocationExist());
}

TEST_P(RuntimeProducer, KeepsItsOwnOperationsBehindThoseOfAnyProducer) {
    EXPECT_EQ(12, slotOf(&BaseGeometryProducer::cookChildLocation));
    EXPECT_EQ(13, slotOf(&BaseGeometryProducer::createProducer));
}

TEST_P(RuntimeProducer, LetsThroughWhatTheRuntimeThrows) {
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

TEST_P(RuntimeProducer, InheritsAttributesDownItsChain) {
    at("/root", {"a"}).at("/root/a");
    fake.set("/root", "color", IntAttribute(5));
    EXPECT_EQ(
        5, castAttribute<IntAttribute>(open("/root/a")->getGlobalAttribute("color")).getValue(0));
}
