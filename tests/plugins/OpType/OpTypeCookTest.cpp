// SPDX-License-Identifier: Apache-2.0
#include "plugins/OpType/TestOp.h"
#include "support/OpTreeFile.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class OpTypeCook : public TestOp {
protected:
    Client openNaming(const std::vector<std::string>& names) {
        return open(Action("children").set("names", names));
    }

    static GroupAttribute scene() {
        return StaticScene()
            .set("/root", "here", "top")
            .set("/root/a", "here", "a")
            .set("/root/a/b", "here", "b")
            .group();
    }
    Client openScene(const char* at) {
        return open(Action("scene").set("values", scene()).set("path", at));
    }
};

}  // namespace

TEST_F(OpTypeCook, KnowsItsPathAndItsInputs) {
    const GroupAttribute attributes =
        openOverScene(Action("path"))->cookLocation("/root").getAttrs();
    EXPECT_EQ("/root", attributes.getChild<StringAttribute>("path").getValue(""));
    EXPECT_EQ(5, attributes.getChild<IntAttribute>("length").getValue(0));
    EXPECT_EQ(1, attributes.getChild<IntAttribute>("inputs").getValue(0));
    EXPECT_EQ(1, attributes.getChild<IntAttribute>("createdWith").getValue(0));
}

TEST_F(OpTypeCook, ReadsTheVeryLocationsOfItsInputs) {
    const auto client = OpTree()
                            .op("s", "generate", Args().set("breadth", 2).set("depth", 1))
                            .op("t", "test.op", Action("input").set("path", "/root/c1"), {"s"})
                            .open();
    const auto input =
        OpTree().op("s", "generate", Args().set("breadth", 2).set("depth", 1)).open();
    const GroupAttribute found =
        client->cookLocation("/root").getAttrs().getChild<GroupAttribute>("found");
    EXPECT_EQ(1, found.getChild<IntAttribute>("exists").getValue(0));
    EXPECT_EQ(input->cookLocation("/root/c1").getAttrs().handle(),
              found.getChildByName("attrs").handle());
}

TEST_F(OpTypeCook, ReadsItsOwnPathWhereItNamesNone) {
    const GroupAttribute found = openOverScene(Action("input"))
                                     ->cookLocation("/root")
                                     .getAttrs()
                                     .getChild<GroupAttribute>("found");
    const SampleAccessor<StringAttribute> children(found.getChildByName("pc"), 0.0F);
    EXPECT_THAT(std::vector<std::string>(children.begin(), children.end()),
                ElementsAre("c0", "c1"));
}

TEST_F(OpTypeCook, FindsNothingWhereAnInputHasNoLocationOrIsNotThere) {
    for (const GroupAttribute& arguments : {GroupAttribute(Action("input").set("path", "/root/no")),
                                            GroupAttribute(Action("input").set("path", "root")),
                                            GroupAttribute(Action("input").set("index", 1)),
                                            GroupAttribute(Action("input").set("index", -1))}) {
        const auto location = openOverScene(arguments)->cookLocation("/root");
        EXPECT_TRUE(location.doesLocationExist());
        EXPECT_EQ(0, location.getAttrs().getNumberOfChildren());
    }
}

TEST_F(OpTypeCook, HandsAnInputsLocationOnAsItIs) {
    const auto client = openOverScene(Action("pass"));
    EXPECT_EQ(3, countFrom(*client, "/root"));
    const auto plain =
        OpTree()
            .op("s", "generate", Args().set("breadth", 2).set("depth", 1).set("seed", 99))
            .open();
    EXPECT_EQ(plain->cookLocation("/root/c1").getAttrs().handle(),
              client->cookLocation("/root/c1").getAttrs().handle());
    EXPECT_FALSE(isThere(openOverScene(Action("pass").set("index", 1)), "/root"));
}

TEST_F(OpTypeCook, EditsWhatAnInputHasInAnyOrder) {
    const auto client = openOverScene(Action("edit").set("values", values()));
    EXPECT_EQ(3, countFrom(*client, "/root"));
    EXPECT_EQ(7, intAt(client, "mark"));
    EXPECT_THAT(childrenOf(client->cookLocation("/root")), ElementsAre("c0", "c1"));

    const auto fewer =
        openOverScene(Action("edit").set("names", std::vector<std::string>{"c1", "c7"}));
    EXPECT_THAT(childrenOf(fewer->cookLocation("/root")), ElementsAre("c1", "c7"));
    EXPECT_TRUE(isThere(fewer, "/root/c1"));
    EXPECT_FALSE(isThere(fewer, "/root/c0"));
    EXPECT_FALSE(isThere(fewer, "/root/c7"));

    const auto none = openOverScene(Action("edit").set("names", std::vector<std::string>{}));
    EXPECT_EQ(1, countFrom(*none, "/root"));
}

TEST_F(OpTypeCook, LeavesALocationOutWhateverElseItSays) {
    EXPECT_FALSE(isThere(open(Action("absent").set("values", values())), "/root"));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(OpTypeCook, GivesAttributesThatAreKeptAndNotCopied) {
    const GroupAttribute own = values();
    const auto client = open(Action("attributes").set("values", own));
    EXPECT_EQ(own.handle(), client->cookLocation("/root").getAttrs().handle());
    EXPECT_EQ(0,
              open(Action("attributes"))->cookLocation("/root").getAttrs().getNumberOfChildren());
    EXPECT_THAT(errorAt(open(Action("wrongAttributes"))),
                HasSubstr("the attributes: expected group, found string"));
}

TEST_F(OpTypeCook, GivesNamesOfChildrenThatAreKeptAndNotCopied) {
    const StringAttribute names(std::vector<std::string>{"b", "a", "x.y"});
    const auto client = open(Action("children").set("names", names));
    const auto location = client->cookLocation("/root");
    EXPECT_THAT(childrenOf(location), ElementsAre("b", "a", "x.y"));
    EXPECT_EQ(names.handle(), location.getPotentialChildren().handle());
    EXPECT_FALSE(isThere(client, "/root/b"));
    EXPECT_THAT(childrenOf(openNaming({})->cookLocation("/root")), IsEmpty());
    EXPECT_THAT(childrenOf(open(Action("children"))->cookLocation("/root")), IsEmpty());
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(OpTypeCook, FailsForNamesThatNoPathCanHold) {
    EXPECT_THAT(errorAt(openNaming({"a", ""})),
                HasSubstr("the child \"\" has a name that no path can hold"));
    EXPECT_THAT(errorAt(openNaming({"a/b"})),
                HasSubstr("the child \"a/b\" has a name that no path can hold"));
    EXPECT_THAT(errorAt(openNaming({"a", "b", "a"})), HasSubstr("two children are named \"a\""));
    const StringAttribute moving({{0.0F, {"a"}}, {1.0F, {"b"}}});
    EXPECT_THAT(errorAt(open(Action("children").set("names", moving))),
                HasSubstr("the names of the children have 2 samples in place of one"));
    EXPECT_THAT(errorAt(open(Action("wrongChildren").set("values", values()))),
                HasSubstr("the names of the children: expected string, found group"));
}

TEST_F(OpTypeCook, ShowsAStaticSceneWhereItIsTold) {
    const auto client = openScene("/root/world/set");
    EXPECT_THAT(childrenOf(client->cookLocation("/root")), ElementsAre("world"));
    EXPECT_THAT(childrenOf(client->cookLocation("/root/world")), ElementsAre("set"));
    EXPECT_FALSE(isThere(client, "/root/other"));
    EXPECT_FALSE(isThere(client, "/root/world/setter"));
    EXPECT_FALSE(isThere(client, "/root/world/set/b"));
    EXPECT_EQ(5, countFrom(*client, "/root"));
    const auto here = [&](const char* path) {
        return client->cookLocation(path).getAttrs().getChild<StringAttribute>("here").getValue("");
    };
    EXPECT_EQ("top", here("/root/world/set"));
    EXPECT_EQ("b", here("/root/world/set/a/b"));
}

TEST_F(OpTypeCook, ShowsTheVeryValuesOfAStaticScene) {
    const GroupAttribute tree = scene();
    const auto client = open(Action("scene").set("values", tree).set("path", "/root"));
    EXPECT_EQ(tree.getChildByName("c.a.a").handle(),
              client->cookLocation("/root/a").getAttrs().handle());
}

TEST_F(OpTypeCook, FailsWhereAStaticSceneCannotStand) {
    for (const char* const at : {"", "root", "/root/", "/root//a"}) {
        EXPECT_THAT(errorAt(openScene(at)), HasSubstr("\" is no path of a location")) << at;
    }
    EXPECT_TRUE(isThere(open(Action("scene")), "/root"));
}

TEST_F(OpTypeCook, FailsWithTheFirstReasonAlone) {
    const auto client = open(Action("fail"));
    EXPECT_EQ("test.op (op 1 of 1), /root: the first reason", errorAt(client));
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("/root: the first reason")));
    EXPECT_EQ("test.op (op 1 of 1), /root: fails, and gives no reason",
              errorAt(open(Action("failWithoutReason"))));
}

TEST_F(OpTypeCook, FailsAndTheRestOfTheSceneStands) {
    const auto client = sceneBelow("t", Action("fail")).op("m", "merge", {}, {"t", "s"}).open();
    EXPECT_THAT(errorAt(client), HasSubstr("the first reason"));
    EXPECT_EQ(3, countFrom(*client, "/root"));
}

TEST_F(OpTypeCook, FailsWithTheFaultOfAnInputThatCannotBeRead) {
    std::deque<TestFile> files;
    for (int i = 0; i < 500; ++i) {
        files.emplace_back("op_type_deep_" + std::to_string(i) + ".optree");
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string& next = files[(i + 1) % files.size()].path();
        files[i].writeOpTree(OpTree()
                                 .op("l", "load", Args().set("file", next))
                                 .op("t", "test.op", Action("pass"), {"l"})
                                 .group());
    }
    const auto client = OpTree().op("l", "load", Args().set("file", files[0].path())).open();
    EXPECT_THAT(errorAt(client), HasSubstr("ops read one another more than 400 levels deep"));
}
