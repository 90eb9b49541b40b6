// SPDX-License-Identifier: Apache-2.0
#include "support/StaticScene.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::StaticScene;

namespace {

std::string textOf(const Attribute& attribute) {
    return castAttribute<StringAttribute>(attribute).getValue("none");
}

GroupAttribute group(const std::vector<GroupAttribute::Child>& children, bool inherit) {
    return GroupAttribute(children, inherit);
}

StaticScene settings() {
    return StaticScene()
        .set("/root", "s", group({{"x", IntAttribute(1)}, {"y", IntAttribute(1)}}, false))
        .set("/root", "quality", "high")
        .set("/root/a/b", "s", group({{"x", IntAttribute(2)}}, true));
}

}  // namespace

TEST(GetGlobalAttribute, GivesTheAttributeOfThisLocationFirst) {
    const auto scene = StaticScene().set("/root", "t", "far").set("/root/a", "t", "near");
    EXPECT_EQ("near", textOf(scene.open("/root/a")->getGlobalAttribute("t")));
    EXPECT_EQ("far", textOf(scene.open()->getGlobalAttribute("t")));
}

TEST(GetGlobalAttribute, GivesTheAttributeOfTheNearestLocationAbove) {
    EXPECT_EQ("high", textOf(settings().open("/root/a/b")->getGlobalAttribute("quality")));
}

TEST(GetGlobalAttribute, IsNullWhenNoLocationHasIt) {
    EXPECT_FALSE(settings().open("/root/a/b")->getGlobalAttribute("absent"));
}

TEST(GetGlobalAttribute, MergesGroupsThatInherit) {
    const auto merged =
        castAttribute<GroupAttribute>(settings().open("/root/a/b")->getGlobalAttribute("s"));
    EXPECT_EQ(group({{"x", IntAttribute(2)}, {"y", IntAttribute(1)}}, false).getHash(),
              merged.getHash());
}

TEST(GetGlobalAttribute, TakesDottedNames) {
    const auto found = settings().open("/root/a/b")->getGlobalAttribute("s.y");
    EXPECT_EQ(1, castAttribute<IntAttribute>(found).getValue(0));
}

TEST(GetGlobalAttribute, GivesOneAnswerToEightThreads) {
    const GeometryProducerPtr shared = settings().open("/root/a/b");
    const Hash expected = shared->getGlobalAttribute("s").getHash();
    ovtest::onThreads(8, [&](int) {
        for (int round = 0; round < 200; ++round) {
            ASSERT_EQ(expected, shared->getGlobalAttribute("s").getHash());
            ASSERT_EQ("high", textOf(shared->getGlobalAttribute("quality")));
        }
    });
}
