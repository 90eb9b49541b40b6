// SPDX-License-Identifier: Apache-2.0
// The transforms of a chain of locations, as one matrix.
#include "support/StaticScene.h"
#include "support/Transforms.h"

#include <gtest/gtest.h>

#include <string>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::doubles;
using ovtest::Numbers;
using ovtest::samplesOf;
using ovtest::StaticScene;
using ovtest::timed;

namespace {

Attribute matrixOf(const GeometryProducerPtr& location) {
    return ovtest::atTime(location->getGlobalXFormGroup()).attribute;
}

/// Where the location's own zero point lies in the world.
Numbers placeOf(const GeometryProducerPtr& location) {
    const Numbers matrix = samplesOf(matrixOf(location)).at(0).second;
    return {matrix[12], matrix[13], matrix[14]};
}

}  // namespace

TEST(WorldMatrix, ActsFromTheLocationUpToTheTop) {
    const auto scene = StaticScene()
                           .set("/root", "xform.scale", doubles({2, 2, 2}))
                           .set("/root/a", "xform.translate", doubles({1, 0, 0}))
                           .set("/root/a/b", "xform.rotate", doubles({180, 0, 0, 1}))
                           .set("/root/a/b/c", "xform.translate", doubles({0.25, 0, 3}));
    EXPECT_EQ((Numbers{0, 0, 0}), placeOf(scene.open("/root")));
    EXPECT_EQ((Numbers{2, 0, 0}), placeOf(scene.open("/root/a")));
    const Numbers place = placeOf(scene.open("/root/a/b/c"));
    EXPECT_DOUBLE_EQ(1.5, place[0]);
    EXPECT_NEAR(0, place[1], 1e-15);
    EXPECT_DOUBLE_EQ(6, place[2]);
}

TEST(WorldMatrix, PassesOverLocationsWithoutATransform) {
    const auto scene = StaticScene()
                           .set("/root", "xform.translate", doubles({1, 0, 0}))
                           .at("/root/a")
                           .set("/root/a/b", "xform.scale", doubles({2, 2, 2}))
                           .set("/root/a/b/c", "xform.translate", doubles({0, 1, 0}));
    EXPECT_EQ((Numbers{1, 2, 0}), placeOf(scene.open("/root/a/b/c")));
}

TEST(WorldMatrix, IsThatOfTheTopForALocationWithoutATransform) {
    const auto scene =
        StaticScene().set("/root", "xform.translate", doubles({1, 2, 3})).at("/root/a");
    EXPECT_EQ((Numbers{1, 2, 3}), placeOf(scene.open("/root/a")));
}

TEST(WorldMatrix, IsNullWithoutAnyTransform) {
    EXPECT_FALSE(matrixOf(StaticScene().at("/root/a").open("/root/a")));
}

TEST(WorldMatrix, BeginsAnewAtAnOrigin) {
    const auto scene = StaticScene()
                           .set("/root", "xform.translate", doubles({1, 2, 3}))
                           .set("/root/a", "xform.origin", 1)
                           .set("/root/a", "xform.translate", doubles({0, 5, 0}));
    EXPECT_EQ((Numbers{0, 5, 0}), placeOf(scene.open("/root/a")));
}

TEST(WorldMatrix, KeepsItsOrderBeyondTenLocations) {
    StaticScene scene;
    std::string path;
    for (int depth = 0; depth < 24; ++depth) {
        path += "/level" + std::to_string(depth);
        const Attribute value = depth % 2 == 0 ? doubles({0.5, 0.5, 0.5}) : doubles({1, 0, 0});
        scene.set(path, depth % 2 == 0 ? "xform.scale" : "xform.translate", value);
    }
    double x = 0;
    for (int pair = 0; pair < 12; ++pair) {
        x = (x + 1) * 0.5;
    }
    EXPECT_EQ((Numbers{x, 0, 0}), placeOf(scene.open(path)));
}

TEST(WorldMatrix, HasTheTimesOfAllLocations) {
    const auto scene =
        StaticScene()
            .set("/root", "xform.translate", timed({{0, {0, 0, 0}}, {1, {4, 0, 0}}}))
            .set("/root/a", "xform.translate", timed({{0.5F, {0, 0, 0}}, {1, {0, 2, 0}}}));
    const GroupAttribute chain = scene.open("/root/a")->getGlobalXFormGroup();
    const auto samples = samplesOf(ovtest::atExistingTimes(chain).attribute);
    ASSERT_EQ(3U, samples.size());
    EXPECT_EQ(0.5F, samples[1].first);
    EXPECT_EQ(2, samples[1].second[12]);
    EXPECT_EQ(2, samples[2].second[13]);
}
