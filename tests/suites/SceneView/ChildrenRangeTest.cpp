// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace SYLVAR::Suites;
using testing::ElementsAre;

class ChildrenRange : public ovtest::SceneViewTest {
protected:
    ChildrenRange() {
        fake.at("/root", {"a", "missing", "b", "c"}).at("/root/a").at("/root/b").at("/root/c");
    }

    static Names namesIn(Location::Children& children) {
        Names names;
        for (const Location& child : children) {
            names.push_back(child.name());
        }
        return names;
    }
};

TEST_F(ChildrenRange, PassesOverChildrenThatAreAbsent) {
    Location::Children children = open().children();
    EXPECT_THAT(namesIn(children), ElementsAre("a", "b", "c"));
    EXPECT_EQ(nullptr, children.error());
}

TEST_F(ChildrenRange, BeginsAnewEachTime) {
    Location::Children children = open().children();
    namesIn(children);
    EXPECT_THAT(namesIn(children), ElementsAre("a", "b", "c"));
}

TEST_F(ChildrenRange, IsEmptyBelowALeafAndAnAbsentLocation) {
    const Expected<Location> leaf = open().child("a");
    const Location none;
    for (const Location* const location : {&*leaf, &none}) {
        Location::Children children = location->children();
        EXPECT_EQ(Names(), namesIn(children));
        EXPECT_EQ(nullptr, children.error());
    }
}

TEST_F(ChildrenRange, MayOutliveTheLocationThatItIsOf) {
    Names names;
    for (const Location& child : scene.openOpTree(freshTree().handle())->children()) {
        names.push_back(child.fullName());
    }
    EXPECT_THAT(names, ElementsAre("/root/a", "/root/b", "/root/c"));
}

TEST_F(ChildrenRange, HoldsOneChildAtATime) {
    const Location root = open();
    for (const Location& child : root.children()) {
        EXPECT_EQ(1, countOf(child));
        EXPECT_EQ(2U, tables.locations().open());
    }
    EXPECT_EQ(1U, tables.locations().open());
}

TEST_F(ChildrenRange, MayBeLeftBeforeItsEnd) {
    const Location root = open();
    for (const Location& child : root.children()) {
        if (child.name() == "b") {
            break;
        }
    }
    EXPECT_EQ(1U, tables.locations().open());
}

TEST_F(ChildrenRange, LetsALoopKeepChildrenByShare) {
    std::vector<Location> kept;
    for (const Location& child : open().children()) {
        kept.push_back(child.share());
    }
    ASSERT_EQ(3U, kept.size());
    EXPECT_EQ("/root/c", kept.back().fullName());
    EXPECT_EQ(1, countOf(kept.front()));
}

TEST_F(ChildrenRange, IsARangeForAlgorithms) {
    Location::Children children = open().children();
    const auto found = std::find_if(children.begin(), children.end(), [](const Location& child) {
        return child.name() == "b";
    });
    ASSERT_NE(children.end(), found);
    EXPECT_EQ("/root/b", found->fullName());
}

TEST_F(ChildrenRange, EvictsEachChildWhenItIsTold) {
    const Location root = open();
    fake.take();
    Location::Children children = root.children(Evict::Yes);
    EXPECT_THAT(namesIn(children), ElementsAre("a", "b", "c"));
    EXPECT_EQ(4U, fake.take("evict").size());
}

TEST_F(ChildrenRange, EndsWithAnErrorThatItCanBeAskedFor) {
    const Location root = open();
    Location::Children children = root.children();
    Names names;
    for (const Location& child : children) {
        names.push_back(child.name());
        fake.throwIn("cookLocation");
    }
    EXPECT_THAT(names, ElementsAre("a"));
    ASSERT_NE(nullptr, children.error());
    EXPECT_EQ("fault of cookLocation", children.error()->message());
    EXPECT_EQ(Names(), namesIn(children)) << "the first child is an error now";
    EXPECT_NE(nullptr, children.error());
    fake.behave();
    EXPECT_THAT(namesIn(children), ElementsAre("a", "b", "c"));
    EXPECT_EQ(nullptr, children.error());
}

}  // namespace
