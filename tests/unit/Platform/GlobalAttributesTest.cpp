// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GlobalAttributes.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "support/Threads.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;
using namespace Sylvar3::internal::OvSylvarServices;

namespace {

using Depths = std::vector<std::int32_t>;

/// A chain of locations, the starting one first; remembers what it is asked.
class Levels final : public BaseGlobalAttributeProviderLegacy {
public:
    explicit Levels(std::vector<Attribute> levels) : levels_(std::move(levels)) {}

    std::int32_t getGlobalAttrAtDepth(const std::string& name,
                                      const std::string& locationPath,
                                      std::int32_t depth,
                                      Attribute* output) override {
        asked.push_back(depth);
        lastQuestion = name + " at " + locationPath;
        if (depth >= static_cast<std::int32_t>(levels_.size())) {
            return 2;
        }
        *output = levels_[static_cast<std::size_t>(depth)];
        return 0;
    }

    Depths asked;
    std::string lastQuestion;

private:
    const std::vector<Attribute> levels_;
};

Attribute ask(Levels& levels) {
    return OvSylvarCookInterfaceUtils::getGlobalAttrGeneric(&levels, "name", "/root/a", nullptr);
}

Attribute valueOf(std::vector<Attribute> levels) {
    Levels provider(std::move(levels));
    return ask(provider);
}

Depths askedOf(std::vector<Attribute> levels) {
    Levels provider(std::move(levels));
    ask(provider);
    return provider.asked;
}

using Children = std::vector<GroupAttribute::Child>;

Attribute on(const Children& children) {
    return GroupAttribute(children, true);
}
Attribute off(const Children& children) {
    return GroupAttribute(children, false);
}
Attribute text(const char* value) {
    return StringAttribute(value);
}

/// The value in short: groups as {name:value ...}, with a plus in front when group inherit is on.
std::string shown(const Attribute& value) {
    const auto group = castAttribute<GroupAttribute>(value);
    if (!group) {
        return value ? castAttribute<StringAttribute>(value).getValue("?") : "null";
    }
    std::string result = group.getGroupInherit() ? "+{" : "{";
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        result += (i ? " " : "") + group.getChildName(i) + ":" + shown(group.getChildByIndex(i));
    }
    return result + "}";
}

/// `depth` groups, one inside the other, with group inherit on; `leaf` is in the innermost.
Attribute nested(int depth, const char* leaf) {
    Attribute result = on({{leaf, text("x")}});
    for (int i = 0; i < depth; ++i) {
        result = on({{"n", result}});
    }
    return result;
}

}  // namespace

TEST(GetGlobalAttrGeneric, IsNullWhenNoLevelHasTheAttribute) {
    EXPECT_EQ("null", shown(valueOf({})));
    EXPECT_EQ("null", shown(valueOf({Attribute(), Attribute()})));
}

TEST(GetGlobalAttrGeneric, GivesTheValueOfTheNearestLevelThatHasIt) {
    EXPECT_EQ("near", shown(valueOf({text("near"), text("far")})));
    EXPECT_EQ("near", shown(valueOf({Attribute(), text("near"), text("far")})));
    EXPECT_EQ("{x:1}", shown(valueOf({off({{"x", text("1")}}), on({{"y", text("2")}})})));
}

TEST(GetGlobalAttrGeneric, HandsTheNearestValueOutAsItIsWhenThereIsNothingToMerge) {
    const Attribute group = on({{"x", text("1")}});
    EXPECT_EQ(group.handle(), valueOf({group}).handle());
    EXPECT_EQ(group.handle(), valueOf({group, text("no group")}).handle());
}

TEST(GetGlobalAttrGeneric, AsksForTheDepthsInTurnAndForNoneTwice) {
    EXPECT_EQ((Depths{0, 1, 2}), askedOf({Attribute(), Attribute()}));
    EXPECT_EQ((Depths{0, 1, 2}), askedOf({on({}), on({})}));
}

TEST(GetGlobalAttrGeneric, StopsAskingOnceTheValueIsKnown) {
    const Attribute more = text("more");
    EXPECT_EQ((Depths{0}), askedOf({text("x"), more}));
    EXPECT_EQ((Depths{0}), askedOf({off({}), more}));
    EXPECT_EQ((Depths{0, 1}), askedOf({Attribute(), off({}), more}));
    EXPECT_EQ((Depths{0, 1}), askedOf({on({}), off({}), more}));
    EXPECT_EQ((Depths{0, 1}), askedOf({on({}), text("no group"), more}));
    EXPECT_EQ((Depths{0, 1, 2, 3}), askedOf({on({}), Attribute(), on({})}));
}

TEST(GetGlobalAttrGeneric, PassesTheNameAndThePathOn) {
    Levels levels({});
    ask(levels);
    EXPECT_EQ("name at /root/a", levels.lastQuestion);
}

TEST(GetGlobalAttrGeneric, MergesGroupsUnderANearerOneWithGroupInheritOn) {
    EXPECT_EQ("{x:1 y:2}",
              shown(valueOf({on({{"x", text("1")}}), off({{"y", text("2")}, {"x", text("2")}})})));
}

TEST(GetGlobalAttrGeneric, KeepsTheNearerOrderAndAddsNewNamesBehind) {
    EXPECT_EQ("{c:1 a:1 b:2 d:3}",
              shown(valueOf({on({{"c", text("1")}, {"a", text("1")}}),
                             on({{"a", text("2")}, {"b", text("2")}}),
                             on({{"d", text("3")}, {"c", text("3")}})})));
}

TEST(GetGlobalAttrGeneric, MergesUpToTheFirstGroupWithGroupInheritOff) {
    EXPECT_EQ(
        "{x:1 y:2}",
        shown(valueOf({on({{"x", text("1")}}), off({{"y", text("2")}}), off({{"z", text("3")}})})));
}

TEST(GetGlobalAttrGeneric, SkipsLevelsWithoutTheAttribute) {
    EXPECT_EQ("{x:1 y:2}",
              shown(valueOf({on({{"x", text("1")}}), Attribute(), on({{"y", text("2")}})})));
}

TEST(GetGlobalAttrGeneric, MergesNothingFromBeyondALevelThatHasNoGroup) {
    EXPECT_EQ("+{x:1}",
              shown(valueOf({on({{"x", text("1")}}), text("wall"), on({{"y", text("2")}})})));
}

TEST(GetGlobalAttrGeneric, TurnsGroupInheritOffInTheGroupsThatItMakes) {
    EXPECT_EQ("{g:{x:1 y:2} h:+{}}",
              shown(valueOf({on({{"g", on({{"x", text("1")}})}, {"h", on({})}}),
                             on({{"g", on({{"y", text("2")}})}})})));
}

TEST(GetGlobalAttrGeneric, MergesChildGroupsByTheirOwnGroupInherit) {
    const Attribute far = off({{"g", off({{"y", text("2")}})}});
    EXPECT_EQ("{g:{x:1 y:2}}", shown(valueOf({on({{"g", on({{"x", text("1")}})}}), far})));
    EXPECT_EQ("{g:{x:1}}", shown(valueOf({on({{"g", off({{"x", text("1")}})}}), far})));
}

TEST(GetGlobalAttrGeneric, EndsTheMergeOfAChildWhereThatChildHasGroupInheritOff) {
    EXPECT_EQ("{g:{x:1 y:2} z:3}",
              shown(valueOf({on({{"g", on({{"x", text("1")}})}}),
                             on({{"g", off({{"y", text("2")}})}}),
                             on({{"g", on({{"w", text("3")}})}, {"z", text("3")}})})));
}

TEST(GetGlobalAttrGeneric, MergesNoChildrenOfDifferentKinds) {
    EXPECT_EQ("{g:+{x:1} t:1}",
              shown(valueOf({on({{"g", on({{"x", text("1")}})}, {"t", text("1")}}),
                             on({{"g", text("2")}, {"t", on({})}}),
                             on({{"g", on({{"w", text("3")}})}})})));
}

TEST(GetGlobalAttrGeneric, HidesFartherChildrenBehindANullChildThatKeepsItsName) {
    EXPECT_EQ("{x:null y:2}",
              shown(valueOf({on({{"x", Attribute()}}), on({{"x", text("2")}, {"y", text("2")}})})));
    EXPECT_EQ("{g:+{x:1}}",
              shown(valueOf({on({{"g", on({{"x", text("1")}})}}),
                             on({{"g", Attribute()}}),
                             on({{"g", on({{"w", text("3")}})}})})));
}

TEST(GetGlobalAttrGeneric, TakesDottedAndEmptyChildNamesAsTheyStand) {
    EXPECT_EQ("{a.b:1 :1 a:2}",
              shown(valueOf({on({{"a.b", text("1")}, {"", text("1")}}),
                             on({{"a", text("2")}, {"", text("2")}})})));
}

TEST(GetGlobalAttrGeneric, MergesGroupsOfAnyDepth) {
    const int depth = 100000;
    auto here = castAttribute<GroupAttribute>(valueOf({nested(depth, "x"), nested(depth, "y")}));
    for (int i = 0; i < depth; ++i) {
        here = here.getChild<GroupAttribute>("n");
    }
    EXPECT_EQ("{x:x y:x}", shown(here));
}

TEST(GetGlobalAttrGeneric, MergesASharedSubtreeOnce) {
    Attribute near = on({{"x", text("1")}});
    Attribute far = on({{"y", text("2")}});
    for (int i = 0; i < 64; ++i) {
        near = on({{"l", near}, {"r", near}});
        far = on({{"l", far}, {"r", far}});
    }
    const auto merged = castAttribute<GroupAttribute>(valueOf({near, far}));
    EXPECT_EQ(merged.getChildByName("l.r.l").handle(), merged.getChildByName("r.l.r").handle());
}

TEST(GetGlobalAttrGeneric, MergesManyLevelsOfManyNames) {
    std::vector<Attribute> levels;
    for (int level = 0; level < 100; ++level) {
        Children children;
        for (int i = 0; i < 100; ++i) {
            children.emplace_back(std::to_string(level * 50 + i), text("x"));
        }
        levels.push_back(on(children));
    }
    const auto merged = castAttribute<GroupAttribute>(valueOf(levels));
    EXPECT_EQ(99 * 50 + 100, merged.getNumberOfChildren());
}

TEST(GetGlobalAttrGeneric, GivesOneAnswerToEightThreads) {
    const std::vector<Attribute> levels{on({{"g", on({{"x", text("1")}})}}),
                                        off({{"g", off({{"y", text("2")}})}})};
    ovtest::onThreads(8, [&](int) {
        for (int round = 0; round < 100; ++round) {
            ASSERT_EQ("{g:{x:1 y:2}}", shown(valueOf(levels)));
        }
    });
}
