// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"
#include "Procedurals/AssetResolution.h"
#include "support/SmallStack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>

using namespace ovtest;
using SYLVAR::ResolveAssetsInGroup;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::ElementsAre;

class AssetsInGroup : public ProceduralTest {};

TEST_F(AssetsInGroup, OfANullGroupIsNull) {
    EXPECT_FALSE(ResolveAssetsInGroup(GroupAttribute(), 1).isValid());
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(AssetsInGroup, KeepsTheChildrenInTheirOrderAndInherits) {
    const Children children = {{"z", IntAttribute(1)},
                               {"a.b", FloatAttribute(0.5F)},
                               {"null", Attribute()},
                               {"s", StringAttribute("x")},
                               {"", DoubleAttribute(2.0)}};
    expectEqual(group(children, true), ResolveAssetsInGroup(group(children, false), 1));
    expectEqual(group(children, true), ResolveAssetsInGroup(group(children, true), 1));
    expectEqual(group({}, true), ResolveAssetsInGroup(group({}), 1));
}

TEST_F(AssetsInGroup, ResolvesEachStringForTheFrameWithoutTheFlag) {
    assets.answer("two", "2");
    const GroupAttribute resolved = ResolveAssetsInGroup(
        group({{"a", StringAttribute(Strings{"one", "two", ""})}, {"b", StringAttribute("two")}}),
        7);
    EXPECT_THAT(assets.take(),
                ElementsAre("one 7 false", "two 7 false", " 7 false", "two 7 false"));
    expectEqual(
        group({{"a", StringAttribute(Strings{"one", "2", ""})}, {"b", StringAttribute("2")}}, true),
        resolved);
}

TEST_F(AssetsInGroup, KeepsTheTupleSizeOfStrings) {
    assets.answer("a", "A").answer("d", "D");
    expectEqual(
        group({{"s", StringAttribute(Strings{"A", "b", "c", "D"}, 2)}}, true),
        ResolveAssetsInGroup(group({{"s", StringAttribute(Strings{"a", "b", "c", "d"}, 2)}}), 1));
    expectEqual(group({{"s", StringAttribute(Strings{"A"}, 5)}}, true),
                ResolveAssetsInGroup(group({{"s", StringAttribute(Strings{"a"}, 5)}}), 1));
}

TEST_F(AssetsInGroup, TakesTheStringsOfTheSampleNearestTimeZeroAlone) {
    const TimedSamples<std::string> samples = {{-1, {"early", "1"}}, {0.5F, {"late", "2"}}};
    expectEqual(group({{"s", StringAttribute(Strings{"late", "2"}, 2)}}, true),
                ResolveAssetsInGroup(group({{"s", StringAttribute(samples, 2)}}), 1));
    EXPECT_THAT(assets.take(), ElementsAre("late 1 false", "2 1 false"));
}

TEST_F(AssetsInGroup, GivesStringsWithoutValuesOneSample) {
    expectEqual(group({{"none", StringAttribute(Strings(), 3)},
                       {"noSamples", StringAttribute(Strings(), 2)}},
                      true),
                ResolveAssetsInGroup(
                    group({{"none", StringAttribute(Strings(), 3)},
                           {"noSamples", StringAttribute(TimedSamples<std::string>(), 2)}}),
                    1));
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(AssetsInGroup, KeepsNumbersWithAllTheirTimeSamples) {
    const Children numbers = {
        {"i", IntAttribute(TimedSamples<std::int32_t>{{0, {1, 2}}, {1, {3, 4}}}, 2)},
        {"f", FloatAttribute(TimedSamples<float>{{-0.5F, {1}}, {0.5F, {2}}})},
        {"d", DoubleAttribute(TimedSamples<double>{{2, {1, 2, 3}}}, 3)}};
    expectEqual(group(numbers, true), ResolveAssetsInGroup(group(numbers), 1));
}

TEST_F(AssetsInGroup, GoesIntoGroupsWhichInheritThen) {
    assets.answer("x", "X");
    const auto nest = [](const char* value, bool inherit) {
        return group({{"g",
                       group({{"h", group({{"s", StringAttribute(value)}}, inherit)},
                              {"i", IntAttribute(1)}},
                             inherit)},
                      {"empty", group({}, inherit)}},
                     inherit);
    };
    expectEqual(nest("X", true), ResolveAssetsInGroup(nest("x", false), 1));
}

TEST_F(AssetsInGroup, LeavesOutNamesThatBeginWithTwoUnderscores) {
    const GroupAttribute below = group({{"s", StringAttribute("not asked for")}});
    const Children kept = {{"_a", IntAttribute(1)},
                           {"a__", IntAttribute(2)},
                           {"a.__b", IntAttribute(3)},
                           {" __", IntAttribute(4)},
                           {"_", IntAttribute(5)}};
    Children children = {{"__", IntAttribute(6)},
                         {"__a", StringAttribute("not asked for")},
                         {"___", below},
                         {"__null", Attribute()}};
    children.insert(children.end(), kept.begin(), kept.end());
    expectEqual(group(kept, true), ResolveAssetsInGroup(group(children), 1));
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(AssetsInGroup, LeavesThemOutThreeGroupsDeep) {
    const auto nest = [](const Children& children, bool inherit) {
        return group(
            {{"a", group({{"b", group({{"c", group(children, inherit)}}, inherit)}}, inherit)}},
            inherit);
    };
    expectEqual(
        nest({{"y", IntAttribute(2)}}, true),
        ResolveAssetsInGroup(nest({{"__x", IntAttribute(1)}, {"y", IntAttribute(2)}}, false), 1));
}

TEST_F(AssetsInGroup, KeepsTheOneValueThatCannotBeResolvedAndGoesOn) {
    const Strings list = {"one", "two", "three"};
    const Strings answers = {"1", "2", "3"};
    for (std::size_t bad = 0; bad < list.size(); ++bad) {
        TellingAssets& told = TellingAssets::fresh();
        Strings expected = answers;
        expected[bad] = list[bad];
        for (std::size_t i = 0; i < list.size(); ++i) {
            told.answer(list[i], answers[i]);
        }
        told.failFor(list[bad]);
        expectEqual(group({{"s", StringAttribute(expected)}}, true),
                    ResolveAssetsInGroup(group({{"s", StringAttribute(list)}}), 1));
        EXPECT_EQ(3U, told.take().size());
    }
}

TEST_F(AssetsInGroup, CatchesAnyException) {
    struct NoException {};
    const std::function<void()> failures[] = {[] { throw std::runtime_error("x"); },
                                              [] { throw std::bad_alloc(); },
                                              [] { throw 7; },
                                              [] { throw NoException(); }};
    const GroupAttribute strings = group({{"s", StringAttribute(Strings{"a", "b"})}}, true);
    for (const auto& fail : failures) {
        assets.failFor("a", fail).failFor("b", fail);
        expectEqual(strings, ResolveAssetsInGroup(strings, 1));
    }
}

TEST_F(AssetsInGroup, TakesAGroupThatStandsInManyPlaces) {
    assets.answer("x", "X");
    const auto doubled = [](const char* value, bool inherit) {
        GroupAttribute shared = group({{"s", StringAttribute(value)}}, inherit);
        for (int i = 0; i < 60; ++i) {
            shared = group({{"a", shared}, {"b", shared}}, inherit);
        }
        return shared;
    };
    EXPECT_EQ(doubled("X", true).getHash().str(),
              ResolveAssetsInGroup(doubled("x", false), 1).getHash().str());
}

TEST_F(AssetsInGroup, TakesGroupsOfAnyDepthOnASmallStack) {
    assets.answer("x", "X");
    const auto deep = [](const char* value, bool inherit) {
        Attribute nested = StringAttribute(value);
        for (int i = 0; i < 100000; ++i) {
            nested = group({{"g", nested}}, inherit);
        }
        return Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(nested);
    };
    const GroupAttribute strings = deep("x", false);
    GroupAttribute resolved;
    onSmallStack([&] { resolved = ResolveAssetsInGroup(strings, 1); });
    EXPECT_EQ(deep("X", true).getHash().str(), resolved.getHash().str());
}
