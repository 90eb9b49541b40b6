// SPDX-License-Identifier: Apache-2.0
#include "Producers/StaticGeometryProducer.h"
#include "support/FakeProducer.h"
#include "support/StaticScene.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::StaticScene;

namespace {

using Names = std::vector<std::string>;

Names namesFrom(GeometryProducerPtr here) {
    Names names;
    for (; here; here = here->getNextSibling(false)) {
        names.push_back(here->getName());
    }
    return names;
}

StaticScene abc() {
    return StaticScene().at("/root/a").at("/root/b").at("/root/c");
}

GeometryProducerPtr childAt(const GeometryProducerPtr& parent,
                            const std::string& path,
                            std::int64_t index = StaticGeometryProducer::kUnknownIndex) {
    return new StaticGeometryProducer(path, GroupAttribute({}, false), index, parent);
}

}  // namespace

TEST(StaticGetNextSibling, WalksTheChildrenInOrder) {
    EXPECT_EQ((Names{"a", "b", "c"}), namesFrom(abc().open()->getFirstChild(false)));
}

TEST(StaticGetNextSibling, FindsItsPlaceByNameWhenItIsNotKnown) {
    const GeometryProducerPtr root = abc().open();
    EXPECT_EQ((Names{"b", "c"}), namesFrom(root->getChildByName("b", false)));
    const GeometryProducerPtr made = childAt(root, "/anywhere/b");
    EXPECT_EQ("c", made->getNextSibling(false)->getName());
    EXPECT_EQ("c", made->getNextSibling(false)->getName()) << "and remembers it";
}

TEST(StaticGetNextSibling, TrustsAPlaceThatItKnows) {
    EXPECT_EQ("c", childAt(abc().open(), "/root/a", 1)->getNextSibling(false)->getName());
}

TEST(StaticGetNextSibling, IsNullOnTheLastChild) {
    const GeometryProducerPtr root = abc().open();
    EXPECT_EQ(nullptr, root->getChildByName("c", false)->getNextSibling(false));
    EXPECT_EQ(nullptr, childAt(root, "/root/c", 2)->getNextSibling(false));
}

TEST(StaticGetNextSibling, IsNullForANameThatIsNotInTheList) {
    const GeometryProducerPtr stranger = childAt(abc().open(), "/root/stranger");
    EXPECT_EQ(nullptr, stranger->getNextSibling(false));
    EXPECT_EQ(nullptr, stranger->getNextSibling(false));
}

TEST(StaticGetNextSibling, IsNullForAChildThatWasReachedByItsEncodedName) {
    const GeometryProducerPtr root = StaticScene().at("/root/m%2En").at("/root/z").open();
    EXPECT_EQ(nullptr, root->getChildByName("m%2En", false)->getNextSibling(false))
        << "the list holds the readable name";
}

TEST(StaticGetNextSibling, IsNullWithoutAParent) {
    EXPECT_EQ(nullptr, abc().open()->getNextSibling(false));
}

TEST(StaticGetNextSibling, IsNullBelowAParentOfAnotherKind) {
    const GeometryProducerPtr other(new ovtest::FakeProducer("/root"));
    const auto child = CreateStaticGeometryProducer("/root/a", abc().group(), other);
    EXPECT_EQ(nullptr, child->getNextSibling(false));
}

TEST(StaticGetNextSibling, IsNullBelowAParentWithoutChildren) {
    for (const GroupAttribute& parent : {GroupAttribute({}, false),
                                         GroupAttribute({{"c", GroupAttribute({}, false)}}, false),
                                         GroupAttribute({{"c", IntAttribute(1)}}, false)}) {
        const auto root = CreateStaticGeometryProducer("/root", parent, nullptr);
        EXPECT_EQ(nullptr, childAt(root, "/root/a")->getNextSibling(false));
        EXPECT_EQ(nullptr, childAt(root, "/root/a", 0)->getNextSibling(false));
    }
}

TEST(StaticGetNextSibling, GrowsThePathByOneComponentForEachSibling) {
    const GeometryProducerPtr a = abc().open("/root/a");
    const GeometryProducerPtr b = a->getNextSibling(false);
    const GeometryProducerPtr c = b->getNextSibling(false);
    EXPECT_EQ("/root/a/b", b->getFullName());
    EXPECT_EQ("/root/a/b/c", c->getFullName());
    EXPECT_EQ("b", b->getName());
    EXPECT_EQ("c", c->getName());
    EXPECT_EQ(a->parent, b->parent) << "the links stay those of the tree";
    EXPECT_EQ(a->parent, c->parent);
}

TEST(StaticGetNextSibling, NamesTheSiblingAsItIsListed) {
    const GeometryProducerPtr root =
        StaticScene().at("/root/a").at("/root/x%2Fy").at("/root/n%00u").at("/root/z").open();
    const GeometryProducerPtr first = root->getFirstChild(false);
    EXPECT_EQ("/root/a/x/y", first->getNextSibling(false)->getFullName());
    EXPECT_EQ((Names{"a", "y", "n", "z"}), namesFrom(first));
    EXPECT_EQ((Names{"n", "z"}), namesFrom(childAt(root, "/root/n")));
}

TEST(StaticGetNextSibling, MakesAProducerWithoutAGroupOfASiblingThatIsNone) {
    const auto scene = StaticScene()
                           .at("/root/a")
                           .replaceBy("/root/text", StringAttribute("x"))
                           .replaceBy("/root/null", Attribute())
                           .set("/root/z", "type", "mesh");
    const GeometryProducerPtr text = scene.open("/root/a")->getNextSibling(false);
    ASSERT_NE(nullptr, text);
    EXPECT_FALSE(text->getAttribute(""));
    const GeometryProducerPtr z = text->getNextSibling(false)->getNextSibling(false);
    EXPECT_EQ("mesh", z->getType());
}

TEST(StaticGetNextSibling, GivesOneAnswerToEightThreadsOnOneObject) {
    StaticScene scene;
    for (int i = 0; i < 200; ++i) {
        scene.at("/root/n" + std::to_string(i));
    }
    const GeometryProducerPtr root = scene.open();
    for (int round = 0; round < 50; ++round) {
        const GeometryProducerPtr shared = root->getChildByName("n150", false);
        std::vector<std::string> found(8);
        ovtest::onThreads(8, [&](int i) {
            found[static_cast<std::size_t>(i)] = shared->getNextSibling(false)->getName();
        });
        EXPECT_EQ(std::vector<std::string>(8, "n151"), found);
    }
}

TEST(StaticGetNextSibling, TakesAnEmptyNameAsAnyOther) {
    const GroupAttribute location({}, false);
    const GroupAttribute children({{"a", location}, {"", location}, {"z", location}}, false);
    const GeometryProducerPtr root = StaticScene().setKey("/root", "c", children).open();
    EXPECT_EQ("/root/a/", root->getFirstChild(false)->getNextSibling(false)->getFullName());
    EXPECT_EQ((Names{"a", "", "z"}), namesFrom(root->getFirstChild(false)));
    EXPECT_EQ((Names{"", "z"}), namesFrom(root->getChildByName("", false)));
}

TEST(StaticGetNextSibling, PassesBothChildrenThatDecodeToOneNameAndFindsTheFirst) {
    const GeometryProducerPtr root =
        StaticScene().at("/root/%2e").at("/root/%2E").at("/root/z").open();
    EXPECT_EQ((Names{".", ".", "z"}), namesFrom(root->getFirstChild(false)));
    EXPECT_EQ((Names{".", ".", "z"}), namesFrom(childAt(root, "/root/.")));
}

TEST(StaticGetNextSibling, KeepsThePlaceThatItFound) {
    const GeometryProducerPtr here = childAt(abc().open(), "/root/b");
    EXPECT_EQ("c", here->getNextSibling(false)->getName());
    here->parent = StaticScene().at("/root/b").at("/root/x").at("/root/y").open();
    EXPECT_EQ("y", here->getNextSibling(false)->getName()) << "the second place, not the name";
}

TEST(StaticGetNextSibling, TakesTheFirstPlaceWhenItLooksWhereThereIsNoList) {
    const GeometryProducerPtr bare =
        CreateStaticGeometryProducer("/root", GroupAttribute({}, false), nullptr);
    const GeometryProducerPtr here = childAt(bare, "/root/c");
    EXPECT_EQ(nullptr, here->getNextSibling(false));
    here->parent = abc().open();
    EXPECT_EQ("b", here->getNextSibling(false)->getName());
}
